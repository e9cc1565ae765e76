#pragma once

// The injection and hold settings of the Fanuc S2000i: five speed stages with
// their switch positions, three hold stages (pressure in bar, time in s), the
// injection pressure limit and the V-P switch position, all in machine units
// and written back into the record's percentages at every keystroke.

#include "CFanucS2000iPage.h"

class CMACHINE_FANUC_S2000I_PACKING_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_PACKING_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);

    bool OnInitDialog() override;
    // Hold stages: each stage's own time in seconds while the page shows them.
    void ToPageForm() override;
    void ToRecordForm() override;

    double m_dMaxSpeed = 0.0;     // mm/s
    double m_dMaxStroke = 0.0;    // mm, the 100 % of stroke
    double m_dMaxPressure = 0.0;  // MPa, the injection pressure
    bool m_bError = false;        // a refusal was shown
    int m_nFPCount = 0;
    int m_nPCount = 0;
    int m_nPPCount = 0;
    bool m_bFirstPositionEdited = false;

private:
    void ShowSpeedStages();
    void ShowHoldStages();

    double Speed(int stage) const;
    double Position(int stage) const;
    double HoldPressure(int stage) const;  // bar
    double HoldTime(int stage) const;

    void OnSpeedChanged(int stage);
    void OnPositionChanged(int stage);
    void OnHoldPressureChanged(int stage);
    void OnHoldTimeChanged(int stage);
    void OnSpeedStagesChanged();
    void OnHoldStagesChanged();
};
