#pragma once

// The three pages of the hydraulic Mitsubishi panel.

#include "MitsubishiHydraulicIds.h"
#include "common/CKRNStagePage.h"

class CKRNMachineMITSUBISH_HydraulicChart;

// ---- oil temperature ----
// The nozzle's set temperature (the melt temperature), repeated as its
// actual value; the barrel zones, deviations and the oil temperature the
// record does not feed.
class CMACHINE_MITSU_OIL_TEMP_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_MITSU_OIL_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

private:
    void OnMeltChanged();
};

// ---- oil settings ----
// Charge, suck-back and ejector settings: of these the record holds the
// suck-back only.
class CMACHINE_MITSU_OIL_SET_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_MITSU_OIL_SET_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// ---- oil speed ----
// Injection in six stages as the hydraulic controller sets it: where each
// stage begins in mm, its speed, pressure and holding pressure in percent;
// injection and cooling time, V/P switch-over; speed and pressure stages
// drawn over the stroke.
class CMACHINE_MITSU_OIL_SPEED_PAGE : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_MITSU_OIL_SPEED_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    // What 100 % stands for on this machine, taken at initialisation. The
    // fields show percent, as the controller does; the scales are told
    // beside the tables.
    double m_dStrokeScale = 0.0;    // mm, MI_MAX_RAM_POSITION
    double m_dPressureScale = 0.0;  // MPa, the injection pressure
    double m_dSpeedScale = 0.0;     // mm/s, the screw's top speed
    // Points of the flow-rate, pressure and packing-pressure profiles, taken
    // at initialisation: a stage beyond them shows empty and takes no entry.
    int m_nPoints[3] = {0, 0, 0};

    CKRNMachineMITSUBISH_HydraulicChart* m_pSpeedChart = nullptr;  // made at the first initialisation
    CKRNMachineMITSUBISH_HydraulicChart* m_pPressureChart = nullptr;

protected:
    void OnStageStored(const KRNStageFields& row, int stage) override;

private:
    void ShowLevels();
    void OnLevelChanged(const MitsubishiHydraulic::KRNLevelRow& row, int stage);
    void DrawCharts();
    void ShowStrokeScale();
    void BindCheckedField(int id, KRNMACHINEITEM item, KRNField kind);
};
