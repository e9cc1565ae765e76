#pragma once

// The two pages of the Mitsubishi electric panel.

#include "MitsubishiElectricIds.h"
#include "common/CKRNStagePage.h"

class CKRNMITSUBISHChart;

// Times and temperature: the nozzle's set temperature (the melt
// temperature), repeated as its actual value and twice over as its overheat
// limit; zones and timers the record does not feed.
class CMACHINE_MITSUBISHI_TIME_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_MITSUBISHI_TIME_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    bool m_bErrorPending = false;

private:
    void ShowMeltMirrors(const QString& text, double value);
    void OnMeltChanged();
};

// Injection and hold: six speed and pressure stages in percent of the
// machine's full scale, their switching positions in mm, three hold stages,
// cooling time and V/P position, and the speed and pressure stages drawn
// over the stroke.
class CMACHINE_MITSUBISHI_INJECTION_PAGE : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_MITSUBISHI_INJECTION_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    CKRNMITSUBISHChart* m_pSpeedChart = nullptr;  // made once, at the first initialisation
    CKRNMITSUBISHChart* m_pPressureChart = nullptr;

protected:
    void OnStageStored(const KRNStageFields& row, int stage) override;

private:
    void CreateCharts();
    void DrawCharts();
    void ShowFullStroke();
};
