#pragma once

// Injection and hold on the Niigata MD series: five speed stages with their
// switching positions, five hold stages (pressure and time), the injection
// pressure as one flat limit, injection and cooling time and the V/P switch
// position. Every field is taken at each change of its text; a speed or
// position edit shows the screw's stroke time as the injection time.

#include "common/CKRNStagePage.h"

class CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
    // Before the frame takes the page, every stage field is read back as it
    // stands, then the hold stages go back to record form.
    void ToRecordForm() override;

protected:
    void OnStageStored(const KRNStageFields& row, int stage) override;

private:
    void OnInjectionPressureChanged();
    // The stage fields' texts back into the page's record, without checks.
    void ReadBackStages();
};
