#pragma once

// The pages of the CLF series panel.

#include "ClfSeriesIds.h"
#include "common/CKRNStagePage.h"

class CKRNMachineChartCLF;

// What the injection page and the full data set page share: speeds,
// pressures and hold pressures in percent, positions in mm checked against
// their neighbours when the field is left, hold times in seconds, and the
// total time of injection and hold kept up to date.
class CClfStagePage : public CKRNStagePage {
    Q_OBJECT
protected:
    CClfStagePage(int templateId, const CKRNMachineData& data, QWidget* frame, std::span<const KRNStageFields> table,
                  int totalTimeId);
    bool OnInitDialog() override;
    void OnStageStored(const KRNStageFields& row, int stage) override;

private:
    // The screw's stroke time over the flow-rate profile plus the hold
    // stages' durations, "%f" s.
    void ShowTotalTime();

    int m_nTotalTimeId;
};

// Main screen: what the process runs at, for reading only.
class CMACHINE_CLF_SERIES_MAIN_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_CLF_SERIES_MAIN_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// Injection and hold: the stage table, cooling time, V/P position and
// suck-back.
class CMACHINE_CLF_SERIES_INJECTION_PAGE : public CClfStagePage {
    Q_OBJECT
public:
    CMACHINE_CLF_SERIES_INJECTION_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// The full data set: the same stages on a sheet of every setting.
class CMACHINE_CLF_SERIES_FULL_DATESET_PAGE : public CClfStagePage {
    Q_OBJECT
public:
    CMACHINE_CLF_SERIES_FULL_DATESET_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// Temperatures: the melt temperature, repeated twice on the screen.
class CMACHINE_CLF_SERIES_TEMPERATUREE_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_CLF_SERIES_TEMPERATUREE_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// The speed and pressure stages drawn over the stroke.
class CMACHINE_CLF_SERIES_CURVE_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_CLF_SERIES_CURVE_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    CKRNMachineChartCLF* m_pChart = nullptr;  // made once, at the first initialisation
};
