#include "CMACHINE_FANUC_S2000I_PACKING_PAGE.h"

#include "KRNNumberText.h"
#include "common/KRNMachineScales.h"
#include "common/KRNStageRoutines.h"

using namespace FanucS2000i;

CMACHINE_FANUC_S2000I_PACKING_PAGE::CMACHINE_FANUC_S2000I_PACKING_PAGE(const CKRNMachineData& data,
                                                                       CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_PACKING, data, frame) {
    NavigationKeys({{1212, kPacking}, {1213, kCooling}, {1214, kTemperature}, {1217, kRetreat}}, kPacking);

    // The pressure limit in bar, the record's in MPa.
    BindPlainField(IDC_INJECTION_PRESSURE_LIMIT, MI_INJECTION_PRESSURE, KRNField::Pressure, "%lg", 10.0);
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position, "%6.2f", 1.0,
                   [this](const QString& text) { SetDlgItemText(IDC_VP_POSITION_COPY, text); });
    OnChange(IDC_SPEED_STAGES, &CMACHINE_FANUC_S2000I_PACKING_PAGE::OnSpeedStagesChanged);
    OnChange(IDC_HOLD_STAGES, &CMACHINE_FANUC_S2000I_PACKING_PAGE::OnHoldStagesChanged);
    for (int k = 0; k < 5; ++k) OnChange(kSpeedFields[k], [this, k] { OnSpeedChanged(k); });
    // The first position is taken when the user leaves it: it sets the full stroke.
    OnKillFocus(kPositionFields[0], [this] {
        m_bFirstPositionEdited = true;
        OnPositionChanged(0);
    });
    for (int k = 1; k < 4; ++k) OnChange(kPositionFields[k], [this, k] { OnPositionChanged(k); });
    for (int k = 0; k < 3; ++k) {
        OnChange(kHoldPressureFields[k], [this, k] { OnHoldPressureChanged(k); });
        OnChange(kHoldTimeFields[k], [this, k] { OnHoldTimeChanged(k); });
    }

    for (int id : kSpeedFields) SetCtlColor(id, kEditText, kEditBack);
    for (int id : kPositionFields) SetCtlColor(id, kEditText, kEditBack);
    for (int id : kHoldPressureFields) SetCtlColor(id, kEditText, kEditBack);
    for (int id : kHoldTimeFields) SetCtlColor(id, kEditText, kEditBack);
    SetCtlColor({IDC_INJECTION_PRESSURE_LIMIT, IDC_VP_POSITION, IDC_SPEED_STAGES, IDC_HOLD_STAGES}, kEditText, kEditBack);
    SetCtlColor(IDC_VP_POSITION_COPY, kValueText, kValueBack);
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_PACKING_PAGE::OnInitDialog() {
    for (int i = 0; i < 3; ++i) SetBitmap(kPackingBitmapStatics[i], kPackingBitmaps[i]);

    m_dMaxStroke = m_MachineData.GetMaxRamPosition();
    m_dMaxPressure = m_MachineData.GetInjectionPressure();
    m_dMaxSpeed = KRNMaxInjectionSpeed(m_MachineData);
    m_nFPCount = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPCount = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    m_nPPCount = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    m_bFirstPositionEdited = false;

    SetDlgItemText(IDC_INJECTION_PRESSURE_LIMIT, FormatNumber(m_MachineData.GetInjectionPressure() * 10.0));
    ShowNumber(IDC_VP_POSITION, m_MachineData.GetVPRamPosition());
    ShowNumber(IDC_VP_POSITION_COPY, m_MachineData.GetVPRamPosition());
    SetDlgItemText(IDC_SPEED_STAGES, KRNFormat("%d", m_nFPCount - 1));
    SetDlgItemText(IDC_HOLD_STAGES, KRNFormat("%d", m_nPPCount - 1));
    ShowSpeedStages();
    ShowHoldStages();
    ShowUnfed(kPackingUnfed);

    if (IsRestricted())
        for (int id : kPackingRestricted) EnableDlgItem(id, false);
    return true;
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::ToPageForm() {
    KRNStages::ToPageForm(m_MachineData, MI_PP_PROFILE, MI_PACKING_TIME);
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::ToRecordForm() {
    KRNStages::ToRecordForm(m_MachineData, MI_PP_PROFILE, MI_PACKING_TIME);
}

// ---- what the fields show ------------------------------------------------------

double CMACHINE_FANUC_S2000I_PACKING_PAGE::Speed(int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetFPData(stage, x, y);
    return y / 100.0 * m_dMaxSpeed;
}

double CMACHINE_FANUC_S2000I_PACKING_PAGE::Position(int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetFPData(stage, x, y);
    return x / 100.0 * m_dMaxStroke;
}

double CMACHINE_FANUC_S2000I_PACKING_PAGE::HoldPressure(int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetPPData(stage, x, y);
    return y * m_MachineData.GetPackingPressure() * 0.01 * 10.0;
}

double CMACHINE_FANUC_S2000I_PACKING_PAGE::HoldTime(int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetPPData(stage, x, y);
    return x;
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::ShowSpeedStages() {
    FillGuard guard(this);
    const int stages = m_MachineData.GetProfileDataCount(MI_FP_PROFILE) - 1;
    for (int k = 0; k < 5; ++k) {
        const bool fed = k < stages;
        EnableDlgItem(kSpeedFields[k], fed);
        SetDlgItemText(kSpeedFields[k], fed ? KRNFormatValue("%6.2f", Speed(k)) : QStringLiteral("0"));
    }
    for (int k = 0; k < 4; ++k) {
        const bool fed = k < stages;
        EnableDlgItem(kPositionFields[k], fed);
        SetDlgItemText(kPositionFields[k], fed ? KRNFormatValue("%6.2f", Position(k)) : QStringLiteral("0"));
    }
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::ShowHoldStages() {
    FillGuard guard(this);
    const int stages = m_MachineData.GetProfileDataCount(MI_PP_PROFILE) - 1;
    for (int k = 0; k < 3; ++k) {
        const bool fed = k < stages;
        EnableDlgItem(kHoldPressureFields[k], fed);
        EnableDlgItem(kHoldTimeFields[k], fed);
        SetDlgItemText(kHoldPressureFields[k], fed ? KRNFormatValue("%6.2f", HoldPressure(k)) : QStringLiteral("0"));
        SetDlgItemText(kHoldTimeFields[k], fed ? KRNFormatValue("%6.2f", HoldTime(k)) : QStringLiteral("0"));
    }
}

// ---- edits -----------------------------------------------------------------

void CMACHINE_FANUC_S2000I_PACKING_PAGE::OnSpeedChanged(int stage) {
    const int id = kSpeedFields[stage];
    double speed = 0, y = 0;
    if (!ReadNumberField(id, Speed(stage), speed, KRNField::Speed, m_dMaxSpeed) || !ToPercent(speed, m_dMaxSpeed, y, id, Speed(stage))) {
        m_bError = true;
        return;
    }
    double x = 0, oldY = 0;
    m_MachineData.GetFPData(stage, x, oldY);
    if (stage == 0 && m_bFirstPositionEdited && Position(0) != 0.0) {
        // The first position was set by hand: it is the full stroke from now on.
        m_dMaxStroke = Position(0);
        m_MachineData.SetMachineData(MI_MAX_RAM_POSITION, m_dMaxStroke);
        x = 100.0;
    }
    m_MachineData.SetFPData(stage, x, y);
    KRNStages::EndFlat(m_MachineData, MI_FP_PROFILE);
    m_bError = false;
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::OnPositionChanged(int stage) {
    const int id = kPositionFields[stage];
    double position = 0;
    if (!ReadNumberField(id, Position(stage), position, KRNField::Position)) {
        m_bError = true;
        return;
    }
    double oldX = 0, y = 0;
    m_MachineData.GetFPData(stage, oldX, y);
    double x = 0;
    if (stage == 0 && m_bFirstPositionEdited) {
        if (!ToPercent(position, position, x, id, Position(stage))) {
            m_bError = true;
            return;
        }
        m_dMaxStroke = position;
        m_MachineData.SetMachineData(MI_MAX_RAM_POSITION, position);
    } else if (!ToPercent(position, m_dMaxStroke, x, id, Position(stage))) {
        m_bError = true;
        return;
    }
    m_MachineData.SetFPData(stage, x, y);
    KRNStages::EndFlat(m_MachineData, MI_FP_PROFILE);
    m_bError = false;
}

// Hold pressures in bar up to the injection pressure; the stage's time stays.
void CMACHINE_FANUC_S2000I_PACKING_PAGE::OnHoldPressureChanged(int stage) {
    m_bError = !EditStageValue(kHoldPressureFields[stage], MI_PP_PROFILE, stage, m_MachineData.GetPackingPressure(),
                               m_dMaxPressure * 10.0, KRNField::Pressure, 10.0);
    if (!m_bError) KRNStages::HoldTail(m_MachineData, MI_PP_PROFILE);
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::OnHoldTimeChanged(int stage) {
    m_bError = !EditStageTime(kHoldTimeFields[stage], MI_PP_PROFILE, stage);
    if (!m_bError) KRNStages::HoldTail(m_MachineData, MI_PP_PROFILE);
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::OnSpeedStagesChanged() {
    int stages = 0;
    if (!ReadStageCount(IDC_SPEED_STAGES, m_nFPCount - 1, stages)) return;
    KRNStages::SetStageCount(m_MachineData, MI_FP_PROFILE, stages);
    m_nFPCount = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    ShowSpeedStages();
    ShowHoldStages();
}

void CMACHINE_FANUC_S2000I_PACKING_PAGE::OnHoldStagesChanged() {
    int stages = 0;
    if (!ReadStageCount(IDC_HOLD_STAGES, m_nPPCount - 1, stages)) return;
    KRNStages::SetStageCount(m_MachineData, MI_PP_PROFILE, stages);
    m_nPPCount = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    ShowSpeedStages();
    ShowHoldStages();
}
