#include "CMACHINE_MITSUBISHI_DLG.h"

#include "MitsubishiElectricPages.h"
#include "common/KRNStageRoutines.h"

using namespace MitsubishiElectric;

CMACHINE_MITSUBISHI_DLG::CMACHINE_MITSUBISHI_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    OnClicked(IDC_KEY_TIME, [this] { GoToPage(kTimePage); });
    OnClicked(IDC_KEY_INJECTION, [this] { GoToPage(kInjectionPage); });
}

bool CMACHINE_MITSUBISHI_DLG::OnInitDialog() {
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_MITSUBISHI_TIME_PAGE(m_MachineData, this),
                                new CMACHINE_MITSUBISHI_INJECTION_PAGE(m_MachineData, this)});
    ShowPage(kTimePage);

    // Six speed and pressure stages, three hold stages.
    m_nStageCounts[0] = 6;
    m_nStageCounts[1] = 6;
    m_nStageCounts[2] = 3;
    PadAndDistribute(7, 7, 4);

    for (const auto& [control, normal, selected, focused] : kSoftKeys)
        SetBitmapButton(control, normal, selected, focused);
    return true;
}

// A profile left with its end point alone ends at (0, 0): the controller
// takes "the point before it" from nothing.
void CMACHINE_MITSUBISHI_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE})
        KRNStages::Tidy(m_MachineData, profile, KRNStages::LoneEnd::ToZero);
}
