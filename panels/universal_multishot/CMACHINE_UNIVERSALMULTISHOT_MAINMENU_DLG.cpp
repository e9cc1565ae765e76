#include "CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG.h"

#include "CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE.h"
#include "UniversalMultishotIds.h"
#include "common/KRNStageRoutines.h"

#include <cstdint>
#include <cstring>

using namespace UniversalMultishot;

CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG::CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG()
    : CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG(CKRNMachineData()) {}

CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG::CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG(const CKRNMachineData& data,
                                                                                   QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    // OK takes the process page whatever the read-only flag says: only
    // showing the page again holds a read-only record back.
    m_bOKCommitsReadOnly = true;
    OnClicked(IDC_KEY_PROCESS, [this] { GoToPage(kProcessPage); });
    SetCtlColor(IDC_PAGE_AREA, 0x000000, 0x000000);
    SetDialogColor(0x000000, 0xFFFFFF);
}

bool CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG::OnInitDialog() {
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE(m_MachineData, this)});
    ShowPage(kProcessPage);

    // Five injection stages, the injection pressure, three hold stages. A
    // profile without a stage (an empty pressure profile) stays as it is.
    KRNStages::PadTo(m_MachineData, MI_FP_PROFILE, 6);
    KRNStages::PadTo(m_MachineData, MI_P_PROFILE, 1);
    KRNStages::PadTo(m_MachineData, MI_PP_PROFILE, 4);
    const std::int64_t firstTwo = 5;
    std::memcpy(m_nStageCounts, &firstTwo, sizeof firstTwo);
    m_nStageCounts[2] = 3;
    // The page shows the padded record, hold stages in seconds.
    DistributeRecord();
    return true;
}

void CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG::TidyAtOK() { KRNStages::TidyWithSwitchOver(m_MachineData); }
