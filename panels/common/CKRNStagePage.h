#pragma once

// A page of stage fields: speeds, pressures, forces, switching positions and
// hold times, shown in machine units and written back into the record's
// percentage profiles at every change of a field.
//
// A stage panel's page is its table of fields (which control shows which
// stage of which profile, in what unit, up to what limit, with what rule
// after a stored edit) plus its few quirks. Filling runs once, under the fill
// guard; every edit goes one way: the number test, the limit, the range of
// its kind of field, the full scale, then the point, the tail rule and the
// page's own follow-up. A refused edit tells the user, shows the stored value
// again and leaves the record alone.

#include "CKRNPanelPage.h"
#include "KRNStageField.h"

class CKRNStagePage : public CKRNPanelPage {
    Q_OBJECT
public:
    // Hold stages (a time row on MI_PP_PROFILE in the table) are edited in
    // seconds: they change form with the page, against MI_PACKING_TIME.
    void ToPageForm() override;
    void ToRecordForm() override;

    bool m_bErrorPending = false;  // a refusal was shown; cleared by the next stored edit

protected:
    CKRNStagePage(int templateId, const CKRNMachineData& data, QWidget* frame, std::span<const KRNStageFields> table,
                  KRNStageRules rules = {});

    // Every field of the table from the page's record.
    void ShowStages();
    // What the field of stage `stage` of row `row` shows for the record as it
    // stands, in machine units.
    double ShownValue(const KRNStageFields& row, int stage) const;

    // Stores (position in mm, level in percent) as stage `stage` of a stroke
    // profile and applies `tail`. The first stage begins at the full stroke:
    // its position becomes MI_MAX_RAM_POSITION and its x 100. False, record
    // unchanged, when there is no stroke to take the position against.
    bool StoreStrokePoint(KRNMACHINEITEM profile, int stage, double position, double percent, KRNTail tail);

    // Every stage field's text back into the page's record as atof reads it,
    // without checks or messages (the fields hold what was accepted or
    // restored), through the same point rules as an edit: levels at their
    // stage's present position, positions moving their profiles. Stages the
    // profile has no point for, and fields without a full scale behind them,
    // leave the record as it is.
    void ReadBackStages();

    // After an edit of stage `stage` of row `row` was stored (the page's
    // follow-up: a stroke time, a mirror).
    virtual void OnStageStored(const KRNStageFields& row, int stage) {
        (void)row;
        (void)stage;
    }
    // A screen's own check of an entry in stage `stage` of row `row` that
    // comes before the number test (a first position that must lie above 0,
    // read as the controller reads it). False: the page has told the user and
    // shown the stored value again; nothing is stored and the error is pending.
    virtual bool CheckBeforeNumberTest(const KRNStageFields& row, int stage) {
        (void)row;
        (void)stage;
        return true;
    }

private:
    void OnFieldChanged(const KRNStageFields& row, int stage);
    bool EditLevel(const KRNStageFields& row, int stage);
    bool EditPosition(const KRNStageFields& row, int stage);
    // The neighbour rule of KRNStageRules::positionSpacing; tells the user on refusal.
    bool BetweenNeighbours(const KRNStageFields& row, int stage, double position);
    // The point a field shows: a position field may show the next stage's.
    int ShownPoint(const KRNStageFields& row, int stage) const;

    bool HoldsTimesOf(KRNMACHINEITEM profile) const;

    std::span<const KRNStageFields> m_Table;
    KRNStageRules m_Rules;
};
