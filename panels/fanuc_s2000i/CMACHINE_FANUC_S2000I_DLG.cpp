#include "CMACHINE_FANUC_S2000I_DLG.h"

#include "CMACHINE_FANUC_S2000I_PACKING_PAGE.h"
#include "FanucS2000iChartPages.h"
#include "FanucS2000iPages.h"
#include "common/KRNStageRoutines.h"

using namespace FanucS2000i;

CMACHINE_FANUC_S2000I_DLG::CMACHINE_FANUC_S2000I_DLG() : CMACHINE_FANUC_S2000I_DLG(CKRNMachineData()) {}

CMACHINE_FANUC_S2000I_DLG::CMACHINE_FANUC_S2000I_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    OnClicked(IDC_KEY_PACKING, [this] { ShowFanucPage(kPacking); });
    OnClicked(IDC_KEY_INJECTION_PRE, [this] { ShowFanucPage(kInjectionPre); });
    OnClicked(IDC_KEY_MENU, [this] { ShowFanucPage(kMenu); });
    SetCtlColor(IDC_PAGE_AREA, 0x000000, 0xFFFFFF);
}

bool CMACHINE_FANUC_S2000I_DLG::OnInitDialog() {
    // Pages in the order of the screens' page numbers; each on its own copy of the record.
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_FANUC_S2000I_PACKING_PAGE(m_MachineData, this),
                                new CMACHINE_FANUC_S2000I_PRESSURE_PAGE(m_MachineData, this),
                                new CMACHINE_FANUC_S2000I_MENU_PAGE(m_MachineData, this),
                                new CMACHINE_FANUC_S2000I_COOLING_PAGE(m_MachineData, this),
                                new CMACHINE_FANUC_S2000I_INJECTION_PRE_PAGE(m_MachineData, this),
                                new CMACHINE_FANUC_S2000I_RETREAT_PAGE(m_MachineData, this),
                                new CMACHINE_FANUC_S2000I_TEMPERATURE_PAGE(m_MachineData, this)});
    ShowPage(kMenu - 1);

    // Enough stages for every field of the screens: 5 speeds, 1 pressure, 3 holds.
    m_nFPStages = 5;
    m_nPStages = 1;
    m_nPPStages = 3;
    PadAndDistribute(6, 2, 4);

    for (int i = 0; i < 12; ++i) SetBitmap(kMenuKeys[i], kMenuKeyBitmaps[i], true);
    return true;
}

void CMACHINE_FANUC_S2000I_DLG::TidyAtOK() {
    KRNStages::Tidy(m_MachineData, MI_FP_PROFILE);
    KRNStages::Tidy(m_MachineData, MI_P_PROFILE);
    KRNStages::Tidy(m_MachineData, MI_PP_PROFILE);
}
