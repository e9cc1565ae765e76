#pragma once

// The smaller Fanuc S2000i pages: the main menu, and the cooling, retreat and
// temperature pages with their one editable value each.

#include "CFanucS2000iPage.h"

class CMACHINE_FANUC_S2000I_MENU_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_MENU_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);
    bool OnInitDialog() override;
};

class CMACHINE_FANUC_S2000I_COOLING_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_COOLING_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);
    bool OnInitDialog() override;
};

class CMACHINE_FANUC_S2000I_RETREAT_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_RETREAT_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);
    bool OnInitDialog() override;
};

class CMACHINE_FANUC_S2000I_TEMPERATURE_PAGE : public CFanucS2000iPage {
    Q_OBJECT
public:
    CMACHINE_FANUC_S2000I_TEMPERATURE_PAGE(const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);
    bool OnInitDialog() override;
};
