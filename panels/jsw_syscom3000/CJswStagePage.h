#pragma once

// What the injection page and the injection-compression page of the JSW
// Syscom3000 share: six speed and pressure stages with five switching
// positions, six hold stages, all in machine units (mm/s, MPa, mm, s) and
// written back into the record's percentages at every change of a field.

#include "JswSyscom3000Ids.h"
#include "common/CKRNPanelPage.h"

class CJswStagePage : public CKRNPanelPage {
    Q_OBJECT
public:
    void ToPageForm() override;
    void ToRecordForm() override;

    double m_dFullStroke = 0.0;    // mm, MI_MAX_RAM_POSITION
    double m_dFullPressure = 0.0;  // MPa, MI_INJECTION_PRESSURE
    double m_dStrokeLimit = 0.0;   // mm, MC_SPEC_2
    double m_dFullSpeed = 0.0;     // mm/s
    int m_nFPCount = 0;
    int m_nPCount = 0;
    int m_nPPCount = 0;
    bool m_bErrorPending = false;

protected:
    // `holdZeroFromCount`: the page blanks hold stages from the profile's
    // count on rather than from its last point.
    CJswStagePage(int templateId, const CKRNMachineData& data, QWidget* frame,
                  const JswSyscom3000::StageFields& fields, bool holdZeroFromCount);

    // Full scales and counts, then every stage field.
    void InitStages();
    // A stage's value in machine units from a profile point.
    double StageValue(KRNMACHINEITEM profile, int stage, double fullScale, bool x) const;

private:
    void ShowProfileStages(KRNMACHINEITEM profile, const int* ids, int fields, double fullScale, bool x, int first,
                           bool zeroFromCount);
    // Stores (position mm, value in percent) as stage `stage` of a stroke
    // profile, with the tail rule; the first stage's position is the full
    // stroke. False (field `id` back to `stored`) when there is no stroke.
    bool StoreStrokeStage(KRNMACHINEITEM profile, int stage, double position, double percent, int id, double stored);

    void OnLevelChanged(KRNMACHINEITEM profile, int id, double fullScale, int stage, KRNField kind);
    void OnPositionChanged(int stage);
    void OnHoldPressureChanged(int stage);
    void OnHoldTimeChanged(int stage);

    JswSyscom3000::StageFields m_Fields;
    bool m_bHoldZeroFromCount;
};
