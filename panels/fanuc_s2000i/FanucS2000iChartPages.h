#pragma once

// The Fanuc S2000i pages that draw the record's profiles: the injection-pre
// page (flow rate and pressure over stroke) and the pressure page (pressure
// over the share of time). Both are read-only.

#include "CFanucS2000iPage.h"

class CKRNFanucTypeAPressChart;

class CMACHINE_FANUC_S2000I_INJECTION_PRE_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_INJECTION_PRE_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);
    bool OnInitDialog() override;

    CKRNFanucTypeAPressChart* m_pChart = nullptr;  // made once, at the first initialisation
};

class CMACHINE_FANUC_S2000I_PRESSURE_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_PRESSURE_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);
    bool OnInitDialog() override;

    CKRNFanucTypeAPressChart* m_pChart = nullptr;
};
