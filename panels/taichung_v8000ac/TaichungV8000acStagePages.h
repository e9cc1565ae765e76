#pragma once

// The two stage screens of the Taichung V8000AC: injection (five injection
// stages of speed, pressure and switch position, four hold stages, times and
// the V-P switch-over) and settings (the same speeds, positions and hold
// stages beside the times and the melt temperature). Both take every entry at
// each change of its text and read all their stage fields back when the
// frame takes their record.

#include "common/CKRNStagePage.h"

// ---- shared by both stage screens ----
class CKRNOrgzctStagePage : public CKRNStagePage {
    Q_OBJECT
public:
    // The stage fields read back, then the hold stages back to record form.
    void ToRecordForm() override;

    // The working values, taken when the page initialises.
    double m_dMaxStroke = 0.0;    // mm, MI_MAX_RAM_POSITION
    double m_dMaxPressure = 0.0;  // MPa, the injection pressure
    double m_dMaxSpeed = 0.0;     // mm/s, the screw's top speed
    int m_nPoints[3] = {0, 0, 0};  // flow-rate, pressure, packing-pressure points

protected:
    CKRNOrgzctStagePage(int templateId, const CKRNMachineData& data, QWidget* frame,
                        std::span<const KRNStageFields> table);
    void TakeWorkingValues();
    void OnStageStored(const KRNStageFields& row, int stage) override;
    // A stroke stage stored: the page's follow-up (a stroke time).
    virtual void OnStrokeStageStored() {}
};

// ---- injection ----
class CMACHINE_ORGZCT_V8000AC_INJPAGE : public CKRNOrgzctStagePage {
    Q_OBJECT
public:
    CMACHINE_ORGZCT_V8000AC_INJPAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

protected:
    void OnStrokeStageStored() override { ShowStrokeTime(); }

private:
    void ShowStrokeTime();
    // The overlay marks and titles, placed over the controls they belong to.
    void LayOutOverlays();
};

// ---- settings ----
// Speed, position and hold fields take entries as on the injection page;
// the melt temperature, injection time, suck-back and cooling time are
// taken as typed (atof), within the range of their kind.
class CMACHINE_ORGZCT_V8000AC_SETTINGPAGE1 : public CKRNOrgzctStagePage {
    Q_OBJECT
public:
    CMACHINE_ORGZCT_V8000AC_SETTINGPAGE1(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};
