#pragma once

// The four smaller screens of the Taichung V8000AC: machine data, the menu,
// the pressure curves and the temperatures.

#include "common/CKRNPanelPage.h"

class CKRNORGZCTMachineChart;

// ---- machine ----
// What the machine brings to the setting, read-only: screw diameter,
// injection rate and the top speed they give, full stroke, injection and
// packing pressure in bar.
class CMACHINE_ORGZCT_V8000AC_MACHINEPAGE1 : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ORGZCT_V8000AC_MACHINEPAGE1(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// ---- menu ----
// The screen the panel opens on: a key per screen, whichever menu the
// column of keys shows.
class CMACHINE_ORGZCT_V8000AC_MENUPAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ORGZCT_V8000AC_MENUPAGE(const CKRNMachineData& data, QWidget* frame);
};

// ---- pressure curves ----
// The injection stages over the stroke (speed and pressure) and the hold
// pressure over the packing time, as the record holds them in percent.
class CMACHINE_ORGZCT_V8000AC_PRESSCORVE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ORGZCT_V8000AC_PRESSCORVE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    CKRNORGZCTMachineChart* m_pInjectionChart = nullptr;  // made at the first initialisation
    CKRNORGZCTMachineChart* m_pHoldChart = nullptr;
};

// ---- temperatures ----
// The melt temperature (the nozzle zone), repeated as its actual value.
class CMACHINE_ORGZCT_V8000AC_TEMP_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_ORGZCT_V8000AC_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

private:
    void OnMeltChanged();
};
