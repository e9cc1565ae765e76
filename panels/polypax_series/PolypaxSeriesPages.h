#pragma once

// The smaller pages of the Polypax series panel: the injection charts, the
// machine status, the pressure curve and the temperatures.

#include "common/CKRNPanelPage.h"

class CMachinePolyPaxInjectionChart;
class CKRNPolyPaxPressChart;

// The injection charts: the speed stages and the pressure stages as steps,
// each beside its full scale, and the monitor of the last shot the record
// has nothing for.
class CMACHINE_POLYPAX_SERIES_INJCHRG_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_POLYPAX_SERIES_INJCHRG_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    CMachinePolyPaxInjectionChart* m_pSpeedChart = nullptr;     // made once, at the first initialisation
    CMachinePolyPaxInjectionChart* m_pPressureChart = nullptr;  // likewise
};

// The machine status: melt temperature, injection pressure, cooling and
// stroke time, and a clock. Enter and Escape do nothing here.
class CMACHINE_POLYPAX_SERIES_MACHINE_STATUS_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_POLYPAX_SERIES_MACHINE_STATUS_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// The pressure curve: the pressure stages as steps over their share of the
// stroke, and the stroke time.
class CMACHINE_POLYPAX_SERIES_PRESSCORVE_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_POLYPAX_SERIES_PRESSCORVE_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    CKRNPolyPaxPressChart* m_pChart = nullptr;  // made once, at the first initialisation
};

// The temperatures: the nozzle's set value is the melt temperature, repeated
// as its actual value once it is edited; the barrel zones, the mould and the
// oil the record does not feed; and a clock. Enter and Escape do nothing here.
class CMACHINE_POLYPAX_SERIES_TEMP_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_POLYPAX_SERIES_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};
