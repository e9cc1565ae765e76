#include "ArburgSelogicaPages.h"

#include "CKRNChartVariants.h"
#include "CKRNMachineArburgCalc.h"
#include "KRNColors.h"
#include "KRNMessageBox.h"
#include "KRNNumberText.h"
#include "common/KRNMachineScales.h"
#include "common/KRNPageCharts.h"
#include "common/KRNStageRoutines.h"

#include <QAbstractButton>

#include <algorithm>
#include <cmath>
#include <cstring>

using namespace ArburgSelogica;

double ArburgScrewArea(double diameterMm) {
    const double cm = diameterMm / 10.0;
    return cm * cm * 3.14159 * 0.25;
}

namespace {
// What the screens show in the fields of stages beyond the count.
const QString kNoStage = QStringLiteral("-------");

bool IsNoStage(const QString& text) { return text.trimmed().toLower() == kNoStage; }

// The stage-count keypad on `points` points with `bound` stages at most: the
// new point count after OK, else -1.
int AskPointCount(int points, int bound) {
    CKRNMachineArburgCalc keypad;
    keypad.m_nValue = points - 1;
    keypad.m_nMaxValue = bound;
    keypad.m_bTenPending = 0;
    if (keypad.DoModal() != IDOK) return -1;
    return keypad.m_nValue + 1;
}

// The x values of a profile summed up as they go, each in percent of the
// total: the share of the dose delivered by the end of each stage.
KRNStages::Points DoseShares(const KRNStages::Points& points) {
    KRNStages::Points shares;
    double total = 0;
    for (const XYProfile& p : points) total += p.x;
    if (!std::isfinite(total) || total == 0.0) return shares;
    double running = 0;
    for (const XYProfile& p : points) {
        running += p.x;
        shares.push_back({running / total * 100.0, p.y});
    }
    return shares;
}
}  // namespace

// ---- production sequence ------------------------------------------------------------------

namespace {
QString Seconds(double s) { return KRNFormatValue("%.2f s", s); }
QString Millimetres(double mm) { return KRNFormatValue("%.1f mm", mm); }
}  // namespace

CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE::
    CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_PRODUCTION_SEQUENCE, data, frame) {
    for (int k = 0; k < 3; ++k) OnClicked(kSequenceKeys[k], [this, k] { ShowPicture(k); });
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE::OnInitDialog() {
    ShowPicture(m_nPicture);
    SetDlgItemText(IDC_SEQ_PROCESS, QString::fromStdString(m_MachineData.GetProcessName()));
    SetDlgItemText(IDC_SEQ_MATERIAL, QString::fromStdString(m_MachineData.GetMaterialName()));
    SetDlgItemText(IDC_SEQ_INJECTION_TIME, KRNFormatValue("%.2f", m_MachineData.GetInjectionTime()));
    SetDlgItemText(IDC_SEQ_HOLDING_TIME, KRNFormatValue("%.2f", m_MachineData.GetPackingTime()));
    SetDlgItemText(IDC_SEQ_COOLING_TIME, KRNFormatValue("%.2f", m_MachineData.GetCoolingTime()));
    SetDlgItemText(IDC_SEQ_DOSE_STROKE, KRNFormatValue("%.1f", m_MachineData.GetMaxRamPosition()));
    SetDlgItemText(IDC_SEQ_SWITCH_OVER, KRNFormatValue("%.1f", m_MachineData.GetVPRamPosition()));
    SetDlgItemText(IDC_SEQ_MELT, KRNFormatValue("%.0f", m_MachineData.GetMeltTemperature()));
    SetDlgItemText(IDC_SEQ_MOULD, KRNFormatValue("%.0f", m_MachineData.GetMoldTemperature()));
    return true;
}

// Under each step of the picture the figure of the record that belongs to
// it; steps the record holds nothing for stay blank.
void CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE::ShowPicture(int index) {
    m_nPicture = index;
    SetBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[index]);
    for (int k = 0; k < 3; ++k)
        if (auto* key = GetDlgItemAs<QAbstractButton>(kSequenceKeys[k])) key->setChecked(k == index);
    const CKRNPanelData& r = m_MachineData;
    QString steps[6];
    if (index == 0) {  // close, inject, hold, cool, open, eject
        steps[1] = Seconds(r.GetInjectionTime());
        steps[2] = Seconds(r.GetPackingTime());
        steps[3] = Seconds(r.GetCoolingTime());
    } else if (index == 1) {  // nozzle forward, inject, hold, dose, decompress, nozzle back
        steps[1] = Seconds(r.GetInjectionTime());
        steps[2] = Seconds(r.GetPackingTime());
        steps[3] = Millimetres(r.GetMaxRamPosition());
        steps[4] = Millimetres(r.GetSuckBackValue());
    } else {  // close, lock, cool, open, eject, core
        steps[2] = Seconds(r.GetCoolingTime());
    }
    for (int k = 0; k < 6; ++k) SetDlgItemText(kSequenceSteps[k], steps[k]);
}

// ---- injection -------------------------------------------------------------------------------

CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE(
    const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_INJECTION, data, frame) {
    for (int k = 0; k < 5; ++k) {
        OnKillFocus(kSpeed[k], [this, k] { OnSpeed(k); });
        OnKillFocus(kPressure[k], [this, k] { OnPressure(k); });
        OnClicked(kInjectionStageKeys[k], &CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnStageKey);
    }
    for (int k = 0; k < 4; ++k) OnKillFocus(kVolume[k], [this, k] { OnVolume(k); });
    OnKillFocus(IDC_SWITCH_OVER_VOLUME, &CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnSwitchOverVolume);
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnInitDialog() {
    m_bChartReady = false;
    m_bError = false;
    m_dInjectionPressure = m_MachineData.GetInjectionPressure();
    m_dMaxRate = m_MachineData.GetMachine(MC_MAX_INJECTION_RATE);
    m_nFlowRatePoints = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPressurePoints = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    ShowFields();
    BuildChart();
    return true;
}

double CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::InjectionVolume() const {
    const KRNStages::Points points = KRNStages::Read(m_MachineData, MI_FP_PROFILE);
    const double area = ArburgScrewArea(m_MachineData.GetMachine(MC_SCREW_DIAMETER));
    double volume = 0;
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        volume += (points[i].x - points[i + 1].x) * area * 0.01 * m_MachineData.GetMaxRamPosition() * 0.1;
    return volume;
}

// Each stage takes the share of the shot its stroke covers; the end point
// has no stage of its own and takes 0. Both profiles share these x values,
// the pressure profile keeping its own levels (points it lacks continue its
// last level).
void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::ToPageForm() {
    const KRNStages::Points flow = KRNStages::Read(m_MachineData, MI_FP_PROFILE);
    const double shot = InjectionVolume();
    if (flow.size() < 2 || !std::isfinite(shot)) return;
    std::vector<double> volumes(flow.size(), 0.0);
    for (std::size_t i = 0; i + 1 < flow.size(); ++i) volumes[i] = (flow[i].x - flow[i + 1].x) * shot * 0.01;
    KRNStages::Points pressure = KRNStages::Read(m_MachineData, MI_P_PROFILE);
    const double lastLevel = pressure.empty() ? 0.0 : pressure.back().y;
    for (std::size_t i = 0; i < flow.size(); ++i) {
        m_MachineData.SetMachineData(MI_FP_PROFILE, static_cast<int>(i), volumes[i], flow[i].y);
        const double level = i < pressure.size() ? pressure[i].y : lastLevel;
        m_MachineData.SetMachineData(MI_P_PROFILE, static_cast<int>(i), volumes[i], level);
    }
}

// The stage volumes, running from the last stage back to the first, give
// each point the stroke still ahead of it: the first point stands at 100,
// the end point at 0. The x values go into both profiles point by point the
// way the record sets points: a pressure profile with fewer points than the
// flow-rate profile gains the missing ones, one with more keeps its extra
// points as they are. Both profiles then share one stroke, so OK from this
// page may reshape the pressure profile with nothing edited; that is the
// controller's exchange and is kept.
void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::ToRecordForm() {
    const KRNStages::Points flow = KRNStages::Read(m_MachineData, MI_FP_PROFILE);
    const double area = ArburgScrewArea(m_MachineData.GetMachine(MC_SCREW_DIAMETER));
    if (flow.size() < 2 || !KRNHasFullScale(area)) return;
    double total = 0;
    for (std::size_t i = 0; i + 1 < flow.size(); ++i) total += flow[i].x;
    const double stroke = total / area * 10.0;
    if (!KRNHasFullScale(total) || !KRNHasFullScale(stroke)) return;  // no shot: the record stays as it was
    std::vector<double> xs(flow.size(), 0.0);
    double ahead = 0;
    for (std::size_t i = flow.size() - 1; i-- > 0;) {
        ahead += flow[i].x;
        xs[i] = ahead / total * 100.0;
    }
    m_MachineData.SetMachineData(MI_MAX_RAM_POSITION, stroke);
    KRNStages::Points pressure = KRNStages::Read(m_MachineData, MI_P_PROFILE);
    const double lastLevel = pressure.empty() ? 0.0 : pressure.back().y;
    for (std::size_t i = 0; i < flow.size(); ++i) {
        m_MachineData.SetMachineData(MI_FP_PROFILE, static_cast<int>(i), xs[i], flow[i].y);
        const double level = i < pressure.size() ? pressure[i].y : lastLevel;
        m_MachineData.SetMachineData(MI_P_PROFILE, static_cast<int>(i), xs[i], level);
    }
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::ShowFields() {
    FillGuard guard(this);
    const double area = ArburgScrewArea(m_MachineData.GetMachine(MC_SCREW_DIAMETER));
    SetDlgItemText(IDC_SWITCH_OVER_VOLUME, KRNFormatValue("%6.2f", m_MachineData.GetVPRamPosition() / 10.0 * area));
    const int flowStages = m_nFlowRatePoints - 1;
    const int pressureStages = m_nPressurePoints - 1;
    for (int k = 0; k < 5; ++k) {
        double x = 0, y = 0;
        m_MachineData.GetProfileData(MI_FP_PROFILE, k, x, y);
        if (k < flowStages) {
            ShowNumber(kSpeed[k], y * m_dMaxRate * 0.01);
            if (k < 4) ShowNumber(kVolume[k], x);
        } else {
            SetDlgItemText(kSpeed[k], kNoStage);
            if (k < 4) SetDlgItemText(kVolume[k], kNoStage);
        }
        m_MachineData.GetProfileData(MI_P_PROFILE, k, x, y);
        if (k < pressureStages)
            ShowNumber(kPressure[k], y * m_dInjectionPressure * 0.01 * 10.0);
        else
            SetDlgItemText(kPressure[k], kNoStage);
    }
    SetDlgItemText(IDC_INJECTION_STAGES, KRNFormat("%d", std::max(flowStages, 0)));
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::BuildChart() {
    if (!m_pChart && (m_pChart = KRNChartOver<CMachineChartArburg>(*this, IDC_INJECTION_CHART))) {
        m_pChart->m_nLocked = 1;  // the stages are set in the fields
        m_pChart->m_nXReversed = 0;
    }
    if (!m_pChart) return;
    KRNSetCurve(*m_pChart, 0, DoseShares(KRNStages::Read(m_MachineData, MI_FP_PROFILE)));
    m_pChart->m_dSwitchPos = 99.0;
    m_pChart->m_crBackground = KRNColorRef(kChartPlot);
    m_pChart->update();
    m_bChartReady = true;
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::Stored(KRNMACHINEITEM profile) {
    KRNStages::TailRule(m_MachineData, profile);
    m_bError = false;
    if (m_bChartReady) BuildChart();
    ShowFields();
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnSpeed(int stage) {
    if (IsNoStage(GetDlgItemText(kSpeed[stage]))) return;
    if (stage >= m_nFlowRatePoints - 1) {  // no such stage: the field keeps its sign
        RestoreDlgItemText(kSpeed[stage], kNoStage);
        return;
    }
    if (!EditStageValue(kSpeed[stage], MI_FP_PROFILE, stage, m_dMaxRate, m_dMaxRate, KRNField::Speed)) {
        m_bError = true;
        return;
    }
    Stored(MI_FP_PROFILE);
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnPressure(int stage) {
    if (IsNoStage(GetDlgItemText(kPressure[stage]))) return;
    if (stage >= m_nPressurePoints - 1) {
        RestoreDlgItemText(kPressure[stage], kNoStage);
        return;
    }
    if (!EditStageValue(kPressure[stage], MI_P_PROFILE, stage, m_dInjectionPressure, m_dInjectionPressure * 10.0,
                        KRNField::Pressure, 10.0)) {
        m_bError = true;
        return;
    }
    Stored(MI_P_PROFILE);
}

// A stage's own volume, as the stage's x; the tail rule follows as for the
// speeds, so a last stage set to exactly 100 is halved.
void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnVolume(int stage) {
    const int id = kVolume[stage];
    if (IsNoStage(GetDlgItemText(id))) return;
    if (stage >= m_nFlowRatePoints - 1) {
        RestoreDlgItemText(id, kNoStage);
        return;
    }
    double x = 0, y = 0, value = 0;
    m_MachineData.GetProfileData(MI_FP_PROFILE, stage, x, y);
    // cm3 take the four-digit range of the screens' positions.
    if (!ReadNumberField(id, x, value, KRNField::Position)) {
        m_bError = true;
        return;
    }
    m_MachineData.SetMachineData(MI_FP_PROFILE, stage, value, y);
    Stored(MI_FP_PROFILE);
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnSwitchOverVolume() {
    const QString text = GetDlgItemText(IDC_SWITCH_OVER_VOLUME);
    const double area = ArburgScrewArea(m_MachineData.GetMachine(MC_SCREW_DIAMETER));
    const double volume = KRNAtof(text);
    const KRNStages::Points flow = KRNStages::Read(m_MachineData, MI_FP_PROFILE);
    double shot = 0;
    for (std::size_t i = 0; i + 1 < flow.size(); ++i) shot += flow[i].x;
    const QString stored = KRNFormatValue("%6.2f", m_MachineData.GetVPRamPosition() / 10.0 * area);
    if (volume < 0.0 || volume > shot) {
        // The controller hands the typed text to the message in place of the
        // number, so the figure is meaningless; users know the message so.
        const QByteArray typed = text.toUtf8().leftJustified(sizeof(double), '\0');
        double figure = 0;
        std::memcpy(&figure, typed.constData(), sizeof figure);
        KRNMessageBox(KRNFormat("Can't more than injection volume: %lg", figure), this);
        RestoreDlgItemText(IDC_SWITCH_OVER_VOLUME, stored);
        return;
    }
    if (!CheckFullScale(area, IDC_SWITCH_OVER_VOLUME, m_MachineData.GetVPRamPosition() / 10.0 * area)) return;
    m_MachineData.SetMachineData(MI_VP_RAM_POSITION, volume / area * 10.0);
}

// The count applies to both profiles of the page; each changes only with a
// stage and its end point to work on.
void CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE::OnStageKey() {
    const int points = AskPointCount(m_nFlowRatePoints, kInjectionStageBound);
    if (points < 0 || points == m_nFlowRatePoints) return;
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE})
        if (m_MachineData.GetProfileDataCount(profile) >= 2) KRNStages::SetStageCount(m_MachineData, profile, points - 1);
    m_nFlowRatePoints = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPressurePoints = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    ShowFields();
    if (m_bChartReady) BuildChart();
}

// ---- measurement chart ---------------------------------------------------------------------------

CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE::CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE(
    const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_MEASUREMENT_CHART, data, frame) {
    OnClicked(IDC_SHOW_SPEED, [this] { ShowProfile(MI_FP_PROFILE); });
    OnClicked(IDC_SHOW_PRESSURE, [this] { ShowProfile(MI_P_PROFILE); });
    OnClicked(IDC_SHOW_HOLDING, [this] { ShowProfile(MI_PP_PROFILE); });
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE::OnInitDialog() {
    const double diameter = m_MachineData.GetMachine(MC_SCREW_DIAMETER);
    // The diameter in mm as it stands: this figure is the controller's own.
    SetDlgItemText(IDC_SPECIFIC_RATE, KRNFormatValue("%4.0f", m_MachineData.GetMachine(MC_MAX_INJECTION_RATE) * 10.0 /
                                                                  (diameter * diameter * 3.14159 * 0.25)));
    SetDlgItemText(IDC_MEAS_INJECTION_PRESSURE, KRNFormatValue("%4.0f", m_MachineData.GetInjectionPressure()));
    SetDlgItemText(IDC_MEAS_PACKING_PRESSURE, KRNFormatValue("%4.0f", m_MachineData.GetPackingPressure()));
    if (!m_pChart && (m_pChart = KRNChartOver<CMachineCruveArbug>(*this, IDC_MEASUREMENT_CHART)))
        m_pChart->m_nLocked = 1;
    ShowProfile(m_eShown);
    return true;
}

void CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE::ShowProfile(KRNMACHINEITEM profile) {
    m_eShown = profile;
    KRNShowProfiles(m_pChart, m_MachineData, profile);
}

// ---- cooling --------------------------------------------------------------------------------------

CMACHINE_ARBURG_SELOGICA_COOLING_PAGE::CMACHINE_ARBURG_SELOGICA_COOLING_PAGE(const CKRNMachineData& data,
                                                                             QWidget* frame)
    : CKRNPanelPage(IDD_COOLING, data, frame) {
    OnKillFocus(IDC_COOLING_TIME, &CMACHINE_ARBURG_SELOGICA_COOLING_PAGE::OnCoolingTime);
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_COOLING_PAGE::OnInitDialog() {
    for (int k = 0; k < 6; ++k) SetBitmap(kCoolingPictures[k], IDB_COOLING[k]);
    SetDlgItemText(IDC_COOLING_TIME, KRNFormatValue("%.2lg", m_MachineData.GetCoolingTime()));
    return true;
}

// Taken as typed: text that is no number reads as 0.
void CMACHINE_ARBURG_SELOGICA_COOLING_PAGE::OnCoolingTime() {
    const double stored = m_MachineData.GetCoolingTime();
    if (GetDlgItemText(IDC_COOLING_TIME).trimmed().isEmpty())
        RestoreDlgItemText(IDC_COOLING_TIME, KRNFormatValue("%.2lg", stored));
    double seconds = 0;
    if (ReadPlainField(IDC_COOLING_TIME, stored, seconds, KRNField::Time, "%.2lg")) m_MachineData.SetCoolingTime(seconds);
}

// ---- holding pressure ----------------------------------------------------------------------------

CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE(
    const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_HOLDING_PRESSURE, data, frame) {
    for (int k = 0; k < 10; ++k) {
        OnKillFocus(kHoldPressure[k], [this, k] { OnPressure(kHoldPressure[k], k + 1); });
        OnKillFocus(kHoldTime[k], [this, k] { OnTime(kHoldTime[k], k + 1); });
        OnClicked(kHoldingStageKeys[k], &CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::OnStageKey);
    }
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::OnInitDialog() {
    m_bError = false;
    m_nPackingPoints = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    ShowFields();
    BuildChart();
    return true;
}

KRNStages::Points ArburgHoldingSteps(const CKRNPanelData& data, int stages) {
    const double scale = data.GetPackingPressure() * 0.01 * 10.0;
    KRNStages::Points steps{{0.0, 0.0}};
    double t = 0;
    for (int k = 0; k < stages && k + 1 < data.GetProfileDataCount(MI_PP_PROFILE); ++k) {
        double x = 0, y = 0;
        data.GetProfileData(MI_PP_PROFILE, k, x, y);
        const double bar = std::isfinite(y * scale) ? y * scale : 0.0;
        steps.push_back({t, bar});
        if (std::isfinite(x) && x > 0) t += x;
        steps.push_back({t, bar});
    }
    steps.push_back({t, 0.0});
    return steps;
}

// Time runs left to right from the switch-over at 0 s; the pressure scale
// ends at the injection pressure, the ceiling of every holding stage.
void CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::BuildChart() {
    if (!m_pChart && (m_pChart = KRNChartOver<CMachineChartArburg>(*this, IDC_HOLDING_CHART))) {
        m_pChart->m_nLocked = 1;  // the stages are set in the fields
        m_pChart->m_nXReversed = 0;
        m_pChart->m_dSwitchPos = 0.0;
        m_pChart->m_crBackground = KRNColorRef(kChartPlot);  // the injection chart's grey
    }
    if (!m_pChart) return;
    const KRNStages::Points steps = ArburgHoldingSteps(m_MachineData, m_nPackingPoints - 1);
    double top = m_MachineData.GetInjectionPressure() * 10.0;
    for (const XYProfile& p : steps) top = std::max(top, p.y);
    m_pChart->m_dXMax = m_pChart->m_dDefXMax = KRNHasFullScale(steps.back().x) ? steps.back().x : 1.0;
    m_pChart->m_dYMax = m_pChart->m_dDefYMax = KRNHasFullScale(top) ? top : 100.0;
    KRNSetCurve(*m_pChart, 0, steps);
    m_pChart->update();
}

void CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::ShowFields() {
    FillGuard guard(this);
    const double scale = m_MachineData.GetPackingPressure();
    for (int k = 0; k < 10; ++k) {
        if (k < m_nPackingPoints - 1) {
            double x = 0, y = 0;
            m_MachineData.GetProfileData(MI_PP_PROFILE, k, x, y);
            ShowNumber(kHoldPressure[k], y * scale * 0.01 * 10.0);
            ShowNumber(kHoldTime[k], x);
        } else {
            SetDlgItemText(kHoldPressure[k], kNoStage);
            SetDlgItemText(kHoldTime[k], kNoStage);
        }
    }
    SetDlgItemText(IDC_HOLDING_STAGES, KRNFormat("%d", std::max(m_nPackingPoints - 1, 0)));
}

// No holding stage above the injection pressure.
void CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::OnPressure(int id, int stage) {
    if (IsNoStage(GetDlgItemText(id))) return;
    if (stage > m_nPackingPoints - 1) {
        RestoreDlgItemText(id, kNoStage);
        return;
    }
    m_bError = !EditStageValue(id, MI_PP_PROFILE, stage - 1, m_MachineData.GetPackingPressure(),
                               m_MachineData.GetInjectionPressure() * 10.0, KRNField::Pressure, 10.0);
    if (!m_bError && m_pChart) BuildChart();
}

// The stage's time as the point's x, within the range of times.
void CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::OnTime(int id, int stage) {
    if (IsNoStage(GetDlgItemText(id))) return;
    if (stage > m_nPackingPoints - 1) {
        RestoreDlgItemText(id, kNoStage);
        return;
    }
    m_bError = !EditStageTime(id, MI_PP_PROFILE, stage - 1);
    if (!m_bError && m_pChart) BuildChart();
}

void CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE::OnStageKey() {
    const int points = AskPointCount(m_nPackingPoints, kHoldingStageBound);
    if (points < 0 || points == m_nPackingPoints) return;
    if (m_MachineData.GetProfileDataCount(MI_PP_PROFILE) >= 2)
        KRNStages::SetStageCount(m_MachineData, MI_PP_PROFILE, points - 1);
    m_nPackingPoints = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    ShowFields();
    if (m_pChart) BuildChart();
}

// ---- program administration -----------------------------------------------------------------------

CMACHINE_ARBURG_SELOGICA_PROGRAMADMINISTRATION_PAGE::CMACHINE_ARBURG_SELOGICA_PROGRAMADMINISTRATION_PAGE(
    const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_PROGRAM_ADMINISTRATION, data, frame) {
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_PROGRAMADMINISTRATION_PAGE::OnInitDialog() {
    const CKRNPanelData& r = m_MachineData;
    SetBitmap(IDC_ADMIN_PICTURE, IDB_ADMIN);
    SetDlgItemText(IDC_ADMIN_PROCESS, QString::fromStdString(r.GetProcessName()));
    SetDlgItemText(IDC_ADMIN_MATERIAL, QString::fromStdString(r.GetMaterialName()));
    SetDlgItemText(IDC_ADMIN_PROTECTION, r.IsReadOnly() ? QStringLiteral("Protected: read only")
                                                        : QStringLiteral("Open for changes"));
    SetDlgItemText(IDC_ADMIN_SCREW, KRNFormatValue("%.0f", r.GetMachine(MC_SCREW_DIAMETER)));
    SetDlgItemText(IDC_ADMIN_RATE, KRNFormatValue("%.0f", r.GetMachine(MC_MAX_INJECTION_RATE)));
    SetDlgItemText(IDC_ADMIN_PRESSURE, KRNFormatValue("%.0f", r.GetInjectionPressure() * 10.0));
    SetDlgItemText(IDC_ADMIN_INJECTION_STAGES,
                   KRNFormat("%d", std::max(r.GetProfileDataCount(MI_FP_PROFILE) - 1, 0)));
    SetDlgItemText(IDC_ADMIN_HOLDING_STAGES,
                   KRNFormat("%d", std::max(r.GetProfileDataCount(MI_PP_PROFILE) - 1, 0)));
    return true;
}

// ---- temperatures ----------------------------------------------------------------------------------

CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE::CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE(const CKRNMachineData& data,
                                                                                       QWidget* frame)
    : CKRNPanelPage(IDD_TEMPERATURES, data, frame) {
    OnKillFocus(IDC_MELT_TEMPERATURE, &CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE::OnMeltTemperature);
    SetDialogColor(kScreenText, kScreenBack);
}

bool CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE::OnInitDialog() {
    SetDlgItemText(IDC_MELT_TEMPERATURE, KRNFormatValue("%6.1f", m_MachineData.GetMeltTemperature()));
    ShowBand();
    return true;
}

void CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE::OnMeltTemperature() {
    const double stored = m_MachineData.GetMeltTemperature();
    if (GetDlgItemText(IDC_MELT_TEMPERATURE).trimmed().isEmpty())
        RestoreDlgItemText(IDC_MELT_TEMPERATURE, KRNFormatValue("%6.1lg", stored));
    double melt = 0;
    if (ReadPlainField(IDC_MELT_TEMPERATURE, stored, melt, KRNField::Temperature, "%6.1f"))
        m_MachineData.SetMeltTemperature(melt);
    ShowBand();
}

// The band is the controller's, fixed and lopsided: 100 above, 30 below for
// the warning and 100 below, never under 0, for the stop.
void CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE::ShowBand() {
    const QString text = GetDlgItemText(IDC_MELT_TEMPERATURE);
    const double set = KRNAtof(text);
    SetDlgItemText(IDC_BAND_SET, text);
    SetDlgItemText(IDC_BAND_UPPER, KRNFormatValue("%6.0f", set + 100.0));
    SetDlgItemText(IDC_BAND_LOWER, KRNFormatValue("%6.0f", set - 30.0));
    SetDlgItemText(IDC_BAND_FLOOR, KRNFormatValue("%6.0f", std::max(set - 100.0, 0.0)));
}
