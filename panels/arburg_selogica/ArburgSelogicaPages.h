#pragma once

// The seven screens of the Selogica panel. Each page keeps its own copy of
// the record; the frame takes the shown page's copy and hands the merged
// record back to every page.

#include "ArburgSelogicaIds.h"
#include "common/CKRNPanelPage.h"
#include "common/KRNStageRoutines.h"

class CMachineChartArburg;
class CMachineCruveArbug;

// ---- production sequence ----
// The machine cycle as pictures with the record's figures under the steps,
// and the part, material and cycle figures the record was made for; the three
// keys switch between the whole cycle, the injection unit and the clamp. The
// page only shows the record.
class CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

private:
    void ShowPicture(int index);
    int m_nPicture = 0;  // kept over commits: the setter's choice
};

// ---- injection ----
// Five injection stages: speed (cm3/s), the stage's own volume (cm3) and
// pressure (bar), the switch-over volume and the dose chart. Between commits
// the page holds its profiles' x values as stage volumes; the record keeps
// them as stroke in percent of the maximum ram position.
class CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
    // Rebuild step: stroke percentages to stage volumes.
    void ToPageForm() override;
    // Save step: stage volumes to stroke percentages and the maximum ram position.
    void ToRecordForm() override;

    // The shot in cm3 from the record-form flow-rate profile.
    double InjectionVolume() const;

    bool m_bChartReady = false;
    bool m_bError = false;
    double m_dInjectionPressure = 0.0;  // MPa
    double m_dMaxRate = 0.0;            // cm3/s, the machine's injection rate
    int m_nFlowRatePoints = 0;
    int m_nPressurePoints = 0;

private:
    void ShowFields();
    void BuildChart();
    void OnSpeed(int stage);
    void OnVolume(int stage);
    void OnPressure(int stage);
    void OnSwitchOverVolume();
    void OnStageKey();
    // After a stage point was stored: the controller's tail rule.
    void Stored(KRNMACHINEITEM profile);

    CMachineChartArburg* m_pChart = nullptr;
};

// ---- measurement chart ----
// The machine's figures and a chart of one profile, chosen by three keys.
class CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    KRNMACHINEITEM m_eShown = MI_FP_PROFILE;  // the profile the chart shows

private:
    void ShowProfile(KRNMACHINEITEM profile);
    CMachineCruveArbug* m_pChart = nullptr;
};

// ---- cooling ----
class CMACHINE_ARBURG_SELOGICA_COOLING_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_COOLING_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

private:
    void OnCoolingTime();
};

// ---- holding pressure ----
// Up to ten holding stages: pressure (bar) and time (s, the point's x as the
// record holds it), with the holding pressure drawn over time.
class CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    bool m_bError = false;
    int m_nPackingPoints = 0;

private:
    void ShowFields();
    void BuildChart();
    void OnPressure(int id, int stage);
    void OnTime(int id, int stage);
    void OnStageKey();

    CMachineChartArburg* m_pChart = nullptr;
};

// ---- program administration ----
// The stored program: what it is for, the machine it was set on and its
// stages, and whether it may be changed. The page only shows the record.
class CMACHINE_ARBURG_SELOGICA_PROGRAMADMINISTRATION_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_PROGRAMADMINISTRATION_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// ---- temperatures ----
// The melt temperature and its tolerance band.
class CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

private:
    void OnMeltTemperature();
    void ShowBand();
};

// The screw's cross-section in cm2 for a diameter in mm, with the
// controller's circle constant.
double ArburgScrewArea(double diameterMm);

// The holding pressure over time as the holding page draws it: from 0 s each
// of the first `stages` points of the packing-pressure profile holds its
// pressure (bar) for its time (s), falling to 0 after the last.
KRNStages::Points ArburgHoldingSteps(const CKRNPanelData& data, int stages);
