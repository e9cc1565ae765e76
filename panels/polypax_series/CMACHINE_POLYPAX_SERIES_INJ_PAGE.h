#pragma once

// Injection and hold on the Polypax series: five injection stages, each with
// its speed, its pressure and the position it starts at, four hold stages of
// pressure and time, the suck-back, an entry line for the V-P switch-over and
// the stroke time. Pressures are shown at the machine's second diameter: the
// record's MPa at the screw, ×10, over the pressure ratio. Speeds, positions
// and hold stages are stored at every change of their text; the injection
// pressures are checked as typed but stored only when the page is left or
// the panel confirmed, when every stage field is read back.

#include "common/CKRNStagePage.h"

class CMACHINE_POLYPAX_SERIES_INJ_PAGE : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_POLYPAX_SERIES_INJ_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
    // Before the frame takes the page: every stage field is read back (the
    // injection pressures with it), then the hold stages go to record form.
    void ToRecordForm() override;

protected:
    // A speed or position stored: the stroke time follows.
    void OnStageStored(const KRNStageFields& row, int stage) override;
    // The first position must lie above 0 (351 with 0), checked on the text
    // as atof reads it, so text that is no number meets this refusal first.
    bool CheckBeforeNumberTest(const KRNStageFields& row, int stage) override;

private:
    // The injection pressure of stage `stage` as the screen shows it; no
    // number without a pressure ratio (shown "---").
    double ShownPressure(int stage) const;
    void ShowPressures();
    // A pressure typed for stage `stage`: not a number (61713), above the
    // shown injection pressure (352), outside the range of pressures (353) or
    // without a pressure ratio (no full scale) it is refused and the field
    // shows the stored pressure again. Accepted, it waits for the read-back.
    void OnPressureChanged(int stage);
    // A V-P position other than 0 is stored as typed; 0 is the field's own
    // empty text.
    void OnVPPositionChanged();
    // The switch-over as a free flow-rate point: the first (0, 0) point after
    // a stage with speed takes the V-P position, with no speed.
    void PlaceSwitchOver();
    void ShowStrokeTime();
    // The stage fields' texts back into the page's record through the point
    // setters, without checks or messages: the fields hold what was accepted
    // or restored. A level without a full scale behind it keeps its value.
    void ReadBackStages();
};
