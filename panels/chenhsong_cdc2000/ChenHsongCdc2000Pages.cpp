#include "ChenHsongCdc2000Pages.h"

#include "KRNMessageBox.h"
#include "KRNNumberText.h"

#include <algorithm>
#include <cmath>
#include <vector>

using namespace ChenHsongCdc2000;

// ---- temperatures ----

CMACHINE_CHENSONG_CDC2000_TEMP_PAGE::CMACHINE_CHENSONG_CDC2000_TEMP_PAGE(const CKRNMachineData& data,
                                                                         QWidget* frame)
    : CKRNPanelPage(IDD_TEMP, data, frame) {
    // Taken as typed, at every change: text that is no number reads as 0.
    BindPlainField(IDC_MELT_TEMPERATURE, MI_MELT_TEMPERATURE, KRNField::Temperature, "%lg");
    OnClicked(IDC_KEY_TO_TIMES, [this] { GoToPage(kTimePage); });
}

bool CMACHINE_CHENSONG_CDC2000_TEMP_PAGE::OnInitDialog() {
    SetDlgItemText(IDC_MELT_TEMPERATURE, KRNFormatValue("%lg", m_MachineData.GetMeltTemperature()));
    ShowUnfed(kTempUnfed);
    return true;
}

// ---- machine model ----

CMACHINE_CHENSONG_CDC2000_MODEL_PAGE::CMACHINE_CHENSONG_CDC2000_MODEL_PAGE(const CKRNMachineData& data,
                                                                           QWidget* frame)
    : CKRNPanelPage(IDD_MODEL, data, frame) {}

bool CMACHINE_CHENSONG_CDC2000_MODEL_PAGE::OnInitDialog() {
    SetDlgItemText(IDC_SCREW_DIAMETER, KRNFormatValue("%lg", m_MachineData.GetMachine(MC_SCREW_DIAMETER)));
    SetDlgItemText(IDC_MAX_INJECTION_RATE, KRNFormatValue("%lg", m_MachineData.GetMachine(MC_MAX_INJECTION_RATE)));
    SetDlgItemText(IDC_STROKE_LIMIT, KRNFormatValue("%lg", m_MachineData.GetMachine(MC_SPEC_2)));
    ShowNumber(IDC_MAX_SPEED, KRNMaxInjectionSpeed(m_MachineData));  // "---" for a screw of no diameter
    return true;
}

// ---- injection and holding times ----

namespace {
const QString kAllPositionsZero = QStringLiteral("Error:\nAll screw position field cannot be zero.");
const QString kAllHoldTimesZero = QStringLiteral("Error:\nAll pack time field cannot be zero.");
}  // namespace

CMACHINE_CHENSONG_CDC2000_TIME_PAGE::CMACHINE_CHENSONG_CDC2000_TIME_PAGE(const CKRNMachineData& data,
                                                                         QWidget* frame)
    : CKRNStagePage(IDD_TIME, data, frame, kInjectionTable) {
    OnKillFocus(IDC_INJECTION_TIME, &CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnInjectionTime);
    for (int k = 0; k < 5; ++k) OnKillFocus(kPosition[k], [this, k] { OnPosition(k); });
    for (int k = 0; k < 3; ++k) {
        OnKillFocus(kHoldPressure[k], [this, k] { OnHoldPressure(k); });
        OnKillFocus(kHoldTime[k], [this, k] { OnHoldTime(k); });
    }
    OnClicked(IDC_KEY_TO_TEMPS, [this] { GoToPage(kTempPage); });
}

bool CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnInitDialog() {
    m_dStrokeScale = m_MachineData.GetMaxRamPosition();
    m_dPressureScale = m_MachineData.GetInjectionPressure();
    m_dHoldPressureScale = m_MachineData.GetPackingPressure();
    m_dHoldTimeScale = m_MachineData.GetPackingTime();
    m_dMachineValue = m_MachineData.GetMachine(MC_SPEC_2);
    m_dSpeedScale = KRNMaxInjectionSpeed(m_MachineData);
    m_nPointCounts[0] = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPointCounts[1] = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    m_nPointCounts[2] = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    m_bErrorPending = false;
    ShowPage();
    return true;
}

double CMACHINE_CHENSONG_CDC2000_TIME_PAGE::Position(int point) const {
    double x = 0, y = 0;
    m_MachineData.GetProfileData(MI_FP_PROFILE, point, x, y);
    return x * m_dStrokeScale * 0.01;
}

int CMACHINE_CHENSONG_CDC2000_TIME_PAGE::HoldPoint(int stage) const {
    const int point = m_MachineData.GetProfileDataCount(MI_PP_PROFILE) - 2 - stage;
    return point >= 0 ? point : -1;
}

double CMACHINE_CHENSONG_CDC2000_TIME_PAGE::HoldTime(int stage) const {
    const int point = HoldPoint(stage);
    if (point < 0) return 0.0;
    double x = 0, y = 0, nextX = 0, nextY = 0;
    m_MachineData.GetProfileData(MI_PP_PROFILE, point, x, y);
    m_MachineData.GetProfileData(MI_PP_PROFILE, point + 1, nextX, nextY);
    return x * m_dHoldTimeScale * 0.01 - nextX * m_dHoldTimeScale * 0.01;
}

void CMACHINE_CHENSONG_CDC2000_TIME_PAGE::ShowPage() {
    FillGuard guard(this);
    SetDlgItemText(IDC_INJECTION_TIME, KRNFormatValue("%lg", m_MachineData.GetInjectionTime()));
    ShowStages();
    for (int k = 0; k < 5; ++k) ShowNumber(kPosition[k], Position(k));
    for (int k = 0; k < 3; ++k) {
        const int point = HoldPoint(k);
        double x = 0, y = 0;
        if (point >= 0) m_MachineData.GetProfileData(MI_PP_PROFILE, point, x, y);
        ShowNumber(kHoldPressure[k], y * m_dHoldPressureScale * 0.01);
        ShowNumber(kHoldTime[k], HoldTime(k));
    }
}

void CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnStageStored(const KRNStageFields&, int) { ShowPage(); }

void CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnInjectionTime() {
    const double stored = m_MachineData.GetInjectionTime();
    double seconds = 0;
    if (!ReadNumberField(IDC_INJECTION_TIME, stored, seconds, KRNField::Time)) {
        RestoreDlgItemText(IDC_INJECTION_TIME, KRNFormatValue("%lg", stored));
        m_bErrorPending = true;
        return;
    }
    m_MachineData.SetInjectionTime(seconds);
    m_bErrorPending = false;
}

// A position above the full stroke is refused (352), except for the first,
// which sets the full stroke; every other position keeps its millimetres.
void CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnPosition(int point) {
    const int id = kPosition[point];
    const double stored = Position(point);
    const double upper = point > 0 && KRNHasFullScale(m_dStrokeScale) ? m_dStrokeScale : HUGE_VAL;
    double value = 0;
    m_bErrorPending = true;
    if (!ReadNumberField(id, stored, value, KRNField::Position, upper)) return;
    const int count = std::min(m_MachineData.GetProfileDataCount(MI_FP_PROFILE), 5);
    if (point >= count) {  // the record has no such point to move
        RestoreNumber(id, stored);
        return;
    }
    std::vector<double> positions(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) positions[static_cast<std::size_t>(i)] = Position(i);
    positions[static_cast<std::size_t>(point)] = value;
    if (std::all_of(positions.begin(), positions.end(), [](double p) { return p == 0.0; })) {
        KRNMessageBox(kAllPositionsZero, this);
        RestoreNumber(id, stored);
        return;
    }
    const double stroke = point == 0 ? value : m_dStrokeScale;
    if (!CheckFullScale(stroke, id, stored)) return;
    std::vector<double> xs(positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i) {
        xs[i] = positions[i] / stroke * 100.0;
        if (!std::isfinite(xs[i])) {
            CheckFullScale(0.0, id, stored);
            return;
        }
    }
    if (point == 0) {
        m_dStrokeScale = value;
        m_MachineData.SetMachineData(MI_MAX_RAM_POSITION, value);
    }
    for (int i = 0; i < count; ++i) {
        double x = 0, y = 0;
        m_MachineData.GetProfileData(MI_FP_PROFILE, i, x, y);
        m_MachineData.SetMachineData(MI_FP_PROFILE, i, xs[static_cast<std::size_t>(i)], y);
    }
    m_bErrorPending = false;
    ShowPage();
}

// Up to the packing pressure (352).
void CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnHoldPressure(int stage) {
    const int point = HoldPoint(stage);
    if (point < 0) {
        RestoreNumber(kHoldPressure[stage], 0.0);
        return;
    }
    m_bErrorPending = !EditStageValue(kHoldPressure[stage], MI_PP_PROFILE, point, m_dHoldPressureScale,
                                      m_dHoldPressureScale, KRNField::Pressure);
    if (!m_bErrorPending) ShowPage();
}

// The stages' own times add up again from the end of the packing time; the
// packing time itself stays, as on the controller.
void CMACHINE_CHENSONG_CDC2000_TIME_PAGE::OnHoldTime(int stage) {
    const int id = kHoldTime[stage];
    const double stored = HoldTime(stage);
    double value = 0;
    m_bErrorPending = true;
    if (!ReadNumberField(id, stored, value, KRNField::Time)) return;
    const int count = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    const int stages = std::min(count - 1, 3);
    if (HoldPoint(stage) < 0 || stage >= stages) {
        RestoreNumber(id, stored);
        return;
    }
    std::vector<double> times(static_cast<std::size_t>(stages));
    for (int k = 0; k < stages; ++k) times[static_cast<std::size_t>(k)] = HoldTime(k);
    times[static_cast<std::size_t>(stage)] = value;
    if (std::all_of(times.begin(), times.end(), [](double t) { return t == 0.0; })) {
        KRNMessageBox(kAllHoldTimesZero, this);
        RestoreNumber(id, stored);
        return;
    }
    if (!CheckFullScale(m_dHoldTimeScale, id, stored)) return;
    double end = 0, endY = 0;
    m_MachineData.GetProfileData(MI_PP_PROFILE, count - 1, end, endY);
    std::vector<double> xs(times.size());
    double running = end;
    for (std::size_t k = 0; k < times.size(); ++k) {
        running += times[k] / m_dHoldTimeScale * 100.0;
        if (!std::isfinite(running)) {
            CheckFullScale(0.0, id, stored);
            return;
        }
        xs[k] = running;
    }
    for (int k = 0; k < stages; ++k) {
        double x = 0, y = 0;
        m_MachineData.GetProfileData(MI_PP_PROFILE, count - 2 - k, x, y);
        m_MachineData.SetMachineData(MI_PP_PROFILE, count - 2 - k, xs[static_cast<std::size_t>(k)], y);
    }
    m_bErrorPending = false;
    ShowPage();
}
