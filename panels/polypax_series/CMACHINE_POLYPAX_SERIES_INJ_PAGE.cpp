#include "CMACHINE_POLYPAX_SERIES_INJ_PAGE.h"

#include "KRNMessageBox.h"
#include "KRNNumberText.h"
#include "PolypaxSeriesIds.h"
#include "common/KRNMachineScales.h"
#include "common/KRNStageRoutines.h"

#include <algorithm>
#include <cmath>
#include <iterator>

using namespace PolypaxSeries;

CMACHINE_POLYPAX_SERIES_INJ_PAGE::CMACHINE_POLYPAX_SERIES_INJ_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNStagePage(IDD_INJECTION, data, frame, kInjectionTable, kStageRules) {
    for (int k = 0; k < static_cast<int>(std::size(kPressure)); ++k)
        OnChange(kPressure[k], [this, k] { OnPressureChanged(k); });
    BindPlainField(IDC_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position);
    OnChange(IDC_VP_POSITION, &CMACHINE_POLYPAX_SERIES_INJ_PAGE::OnVPPositionChanged);
    OnClicked(IDC_KEY_CHART, [this] { GoToPage(kInjectionChartPage); });
}

bool CMACHINE_POLYPAX_SERIES_INJ_PAGE::OnInitDialog() {
    const bool zhTw = UsesZhTwPictures(m_MachineData);
    for (std::size_t i = 0; i < std::size(kPictureStatics); ++i)
        SetBitmap(kPictureStatics[i], zhTw ? kPicturesZhTw[i] : kPictures[i]);
    for (std::size_t i = 0; i < std::size(kFixedPictureStatics); ++i)
        SetBitmap(kFixedPictureStatics[i], kFixedPictures[i]);

    m_bErrorPending = false;
    PlaceSwitchOver();
    FillGuard guard(this);
    ShowStages();
    ShowPressures();
    SetDlgItemText(IDC_SUCK_BACK, FormatNumber(m_MachineData.GetSuckBackValue()));
    // Only an entry line for a new switch-over: it shows 0.00 whatever the
    // record holds. Where the switch-over is, the stage table shows.
    SetDlgItemText(IDC_VP_POSITION, QStringLiteral("0.00"));
    SetDlgItemText(IDC_STROKE_TIME, FormatNumber(m_MachineData.GetCalcStrokeTime()));
    EnableDlgItem(IDC_STROKE_TIME, false);
    ShowUnfed(kInjectionUnfed);
    return true;
}

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::PlaceSwitchOver() {
    const double stroke = KRNFullStroke(m_MachineData);
    const int count = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    for (int i = 0; i < count; ++i) {
        double x = 0, y = 0;
        m_MachineData.GetFPData(i, x, y);
        if (x != 0.0 || y != 0.0) continue;
        double before = 0;
        if (i > 0) m_MachineData.GetFPData(i - 1, x, before);
        const double at = m_MachineData.GetVPRamPosition() / stroke * 100.0;
        if (before != 0.0 && KRNHasFullScale(stroke) && std::isfinite(at)) m_MachineData.SetFPData(i, at, 0.0);
        return;
    }
}

// ---- injection pressures ---------------------------------------------------------

double CMACHINE_POLYPAX_SERIES_INJ_PAGE::ShownPressure(int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetPData(stage, x, y);
    return y * InjectionPressureScale(m_MachineData) * 0.01 * 10.0;
}

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::ShowPressures() {
    const int count = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    for (int k = 0; k < static_cast<int>(std::size(kPressure)); ++k) {
        if (k < count)
            ShowNumber(kPressure[k], ShownPressure(k));
        else
            SetDlgItemText(kPressure[k], QStringLiteral("0"));
    }
}

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::OnPressureChanged(int stage) {
    const int id = kPressure[stage];
    const double stored = ShownPressure(stage);
    const double fullScale = InjectionPressureScale(m_MachineData) * 10.0;
    double pressure = 0;
    m_bErrorPending = !ReadNumberField(id, stored, pressure, KRNField::Pressure, fullScale) ||
                      !CheckFullScale(fullScale, id, stored);
    if (!m_bErrorPending) ShowStrokeTime();
}

// ---- the other fields ------------------------------------------------------------

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::OnVPPositionChanged() {
    double position = 0;
    if (!ReadPlainField(IDC_VP_POSITION, 0.0, position, KRNField::Position, "%.2f")) return;
    if (position != 0.0) m_MachineData.SetMachineData(MI_VP_RAM_POSITION, position);
}

bool CMACHINE_POLYPAX_SERIES_INJ_PAGE::CheckBeforeNumberTest(const KRNStageFields& row, int stage) {
    if (row.kind != KRNField::Position || stage != 0) return true;
    const int id = row.ids[0];
    if (KRNAtof(GetDlgItemText(id)) > 0.0) return true;
    KRNMessageBox(KRNResourceMessage(351, {0.0}), this);
    RestoreNumber(id, ShownValue(row, 0));
    return false;
}

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::OnStageStored(const KRNStageFields& row, int) {
    if (row.profile == MI_FP_PROFILE) ShowStrokeTime();
}

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::ShowStrokeTime() {
    SetDlgItemText(IDC_STROKE_TIME, KRNFormatValue("%f", KRNStrokeTime(m_MachineData, 1)));
}

// ---- leaving the page --------------------------------------------------------------

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::ToRecordForm() {
    ReadBackStages();
    // The closing hold point carries no stage: cleared before the stages go back.
    const int last = m_MachineData.GetProfileDataCount(MI_PP_PROFILE) - 1;
    if (last >= 0) m_MachineData.SetPPData(last, 0.0, 0.0);
    CKRNStagePage::ToRecordForm();
}

void CMACHINE_POLYPAX_SERIES_INJ_PAGE::ReadBackStages() {
    const auto levelOf = [this](int id, double fullScale, double& percent) {
        if (KRNHasFullScale(fullScale)) percent = KRNAtof(GetDlgItemText(id)) / fullScale * 100.0;
    };
    // Speed and pressure stages share their positions.
    const int stages = std::min<int>(static_cast<int>(std::size(kPosition)), m_MachineData.GetProfileDataCount(MI_FP_PROFILE));
    for (int i = 0; i < stages; ++i) {
        const double position = KRNAtof(GetDlgItemText(kPosition[i]));
        double x = 0, speed = 0, pressure = 0;
        m_MachineData.GetFPData(i, x, speed);
        levelOf(kSpeed[i], KRNMaxInjectionSpeed(m_MachineData), speed);
        if (!StoreStrokePoint(MI_FP_PROFILE, i, position, speed, KRNStages::HalveOrDropTail)) continue;
        // A stage the pressure profile has no point for stays without one.
        if (i >= m_MachineData.GetProfileDataCount(MI_P_PROFILE)) continue;
        m_MachineData.GetPData(i, x, pressure);
        levelOf(kPressure[i], InjectionPressureScale(m_MachineData) * 10.0, pressure);
        StoreStrokePoint(MI_P_PROFILE, i, position, pressure, KRNStages::HalveOrDropTail);
    }
    const int holds = std::min<int>(static_cast<int>(std::size(kHoldTime)), m_MachineData.GetProfileDataCount(MI_PP_PROFILE));
    for (int i = 0; i < holds; ++i) {
        double x = 0, pressure = 0;
        m_MachineData.GetPPData(i, x, pressure);
        levelOf(kHoldPressure[i], PackingPressureScale(m_MachineData) * 10.0, pressure);
        m_MachineData.SetPPData(i, KRNAtof(GetDlgItemText(kHoldTime[i])), pressure);
        KRNStages::HoldTail(m_MachineData, MI_PP_PROFILE);
    }
}
