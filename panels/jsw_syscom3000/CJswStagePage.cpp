#include "CJswStagePage.h"

#include "KRNNumberText.h"
#include "common/KRNMachineScales.h"
#include "common/KRNStageRoutines.h"

CJswStagePage::CJswStagePage(int templateId, const CKRNMachineData& data, QWidget* frame,
                             const JswSyscom3000::StageFields& fields, bool holdZeroFromCount)
    : CKRNPanelPage(templateId, data, frame), m_Fields(fields), m_bHoldZeroFromCount(holdZeroFromCount) {
    SetClock(JswSyscom3000::IDC_CLOCK);
    for (int i = 0; i < 6; ++i) {
        OnChange(m_Fields.speed[i], [this, i] { OnLevelChanged(MI_FP_PROFILE, m_Fields.speed[i], m_dFullSpeed, i, KRNField::Speed); });
        OnChange(m_Fields.pressure[i],
                 [this, i] { OnLevelChanged(MI_P_PROFILE, m_Fields.pressure[i], m_dFullPressure, i, KRNField::Pressure); });
        OnChange(m_Fields.holdPressure[i], [this, i] { OnHoldPressureChanged(i); });
        OnChange(m_Fields.holdTime[i], [this, i] { OnHoldTimeChanged(i); });
    }
    for (int i = 0; i < 5; ++i) OnChange(m_Fields.position[i], [this, i] { OnPositionChanged(i); });
}

void CJswStagePage::ToPageForm() { KRNStages::ToPageForm(m_MachineData, MI_PP_PROFILE, MI_PACKING_TIME); }

void CJswStagePage::ToRecordForm() { KRNStages::ToRecordForm(m_MachineData, MI_PP_PROFILE, MI_PACKING_TIME); }

double CJswStagePage::StageValue(KRNMACHINEITEM profile, int stage, double fullScale, bool x) const {
    double px = 0, py = 0;
    m_MachineData.GetProfileData(profile, stage, px, py);
    return (x ? px : py) * fullScale * 0.01;
}

void CJswStagePage::ShowProfileStages(KRNMACHINEITEM profile, const int* ids, int fields, double fullScale, bool x,
                                      int first, bool zeroFromCount) {
    const int count = m_MachineData.GetProfileDataCount(profile);
    for (int k = 0; k < fields; ++k) {
        const int stage = first + k;
        if (stage < count) ShowNumber(ids[k], StageValue(profile, stage, fullScale, x));
        // The last point closes the last stage and is no stage of its own.
        if (k >= (zeroFromCount ? count : count - 1)) SetDlgItemText(ids[k], QStringLiteral("0"));
    }
}

void CJswStagePage::InitStages() {
    m_dFullStroke = m_MachineData.GetMaxRamPosition();
    m_dFullPressure = m_MachineData.GetInjectionPressure();
    m_dStrokeLimit = m_MachineData.GetMachine(MC_SPEC_2);
    m_dFullSpeed = KRNMaxInjectionSpeed(m_MachineData);
    m_nFPCount = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPCount = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    m_nPPCount = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);

    const double packing = m_MachineData.GetPackingPressure();
    ShowProfileStages(MI_FP_PROFILE, m_Fields.speed, 6, m_dFullSpeed, false, 0, false);
    ShowProfileStages(MI_P_PROFILE, m_Fields.pressure, 6, m_dFullPressure, false, 0, false);
    // Switching positions: where stages 2 to 6 begin.
    ShowProfileStages(MI_FP_PROFILE, m_Fields.position, 5, m_dFullStroke, true, 1, false);
    ShowProfileStages(MI_PP_PROFILE, m_Fields.holdPressure, 6, packing, false, 0, m_bHoldZeroFromCount);
    ShowProfileStages(MI_PP_PROFILE, m_Fields.holdTime, 6, 100.0, true, 0, m_bHoldZeroFromCount);
}

bool CJswStagePage::StoreStrokeStage(KRNMACHINEITEM profile, int stage, double position, double percent, int id,
                                     double stored) {
    // The first stage starts at the full stroke: its position is the full stroke.
    double x = 0;
    if (!ToPercent(position, stage == 0 ? position : m_dFullStroke, x, id, stored)) return false;
    if (stage == 0) {
        m_dFullStroke = position;
        m_MachineData.SetMachineData(MI_MAX_RAM_POSITION, position);
    }
    m_MachineData.SetMachineData(profile, stage, x, percent);
    KRNStages::TailRule(m_MachineData, profile);
    return true;
}

// ---- edits -------------------------------------------------------------------

// A speed or pressure stage: its level up to the full scale, at the stage's
// own position.
void CJswStagePage::OnLevelChanged(KRNMACHINEITEM profile, int id, double fullScale, int stage, KRNField kind) {
    const double stored = StageValue(profile, stage, fullScale, false);
    double value = 0, y = 0;
    m_bErrorPending =
        !ReadNumberField(id, stored, value, kind, fullScale) || !ToPercent(value, fullScale, y, id, stored) ||
        !StoreStrokeStage(profile, stage, StageValue(profile, stage, m_dFullStroke, true), y, id, stored);
}

// Speed and pressure stages share their switching positions. The field of
// stage k shows where stage k + 1 begins; what is typed there is taken as the
// position of stage k, so the first field sets the full stroke and every
// later position is seen against it.
void CJswStagePage::OnPositionChanged(int stage) {
    const int id = m_Fields.position[stage];
    const double stored = StageValue(MI_FP_PROFILE, stage + 1, m_dFullStroke, true);
    double position = 0;
    if (!ReadNumberFieldInRange(id, stored, position, KRNField::Position, 0.0, m_dStrokeLimit)) {
        m_bErrorPending = true;
        return;
    }
    double fx = 0, speed = 0, px = 0, pressure = 0;
    m_MachineData.GetFPData(stage, fx, speed);
    m_MachineData.GetPData(stage, px, pressure);
    m_bErrorPending = !StoreStrokeStage(MI_FP_PROFILE, stage, position, speed, id, stored) ||
                      !StoreStrokeStage(MI_P_PROFILE, stage, position, pressure, id, stored);
}

void CJswStagePage::OnHoldPressureChanged(int stage) {
    m_bErrorPending = !EditStageValue(m_Fields.holdPressure[stage], MI_PP_PROFILE, stage,
                                      m_MachineData.GetPackingPressure(), m_dFullPressure, KRNField::Pressure);
    if (!m_bErrorPending) KRNStages::EndFlat(m_MachineData, MI_PP_PROFILE);
}

void CJswStagePage::OnHoldTimeChanged(int stage) {
    m_bErrorPending = !EditStageTime(m_Fields.holdTime[stage], MI_PP_PROFILE, stage);
    if (!m_bErrorPending) KRNStages::EndFlat(m_MachineData, MI_PP_PROFILE);
}
