#pragma once

// The three pages of the CDC2000 panel.

#include "ChenHsongCdc2000Ids.h"
#include "common/CKRNStagePage.h"

// ---- temperatures ----
// The barrel, mould and oil temperatures of the controller's screen; the
// record feeds only the melt temperature, taken at every change of its field.
class CMACHINE_CHENSONG_CDC2000_TEMP_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_CHENSONG_CDC2000_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// ---- machine model ----
// The injection unit the record was made for; nothing to edit.
class CMACHINE_CHENSONG_CDC2000_MODEL_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_CHENSONG_CDC2000_MODEL_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// ---- injection and holding times ----
// Injection time, four injection stages (speed, pressure, where each begins)
// and three holding stages (pressure, own time), each field taken when it
// loses the focus. Holding stages are read from the packing-pressure profile
// as it stands in the record: x is the time left, in percent of the packing
// time, so stage 1 is the last-but-one point.
class CMACHINE_CHENSONG_CDC2000_TIME_PAGE : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_CHENSONG_CDC2000_TIME_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    // Full scales taken from the record at each initialisation.
    double m_dStrokeScale = 0.0;        // mm, MI_MAX_RAM_POSITION
    double m_dPressureScale = 0.0;      // MPa, MI_INJECTION_PRESSURE
    double m_dHoldPressureScale = 0.0;  // MPa, MI_PACKING_PRESSURE
    double m_dHoldTimeScale = 0.0;      // s, MI_PACKING_TIME
    double m_dMachineValue = 0.0;       // mm, the machine's stroke limit (MC_SPEC_2)
    double m_dSpeedScale = 0.0;         // mm/s, the screw's top speed
    int m_nPointCounts[3] = {0, 0, 0};  // flow-rate, pressure, packing-pressure profiles

protected:
    void OnStageStored(const KRNStageFields& row, int stage) override;

private:
    void ShowPage();
    // Screw position `point` in mm (x × stroke scale × 0.01).
    double Position(int point) const;
    // The packing-pressure point that holding stage `stage` shows; -1 when
    // the profile has no such stage.
    int HoldPoint(int stage) const;
    // Holding stage `stage`'s own time in s; 0 when there is no such stage.
    double HoldTime(int stage) const;

    void OnInjectionTime();
    void OnPosition(int point);
    void OnHoldPressure(int stage);
    void OnHoldTime(int stage);
};
