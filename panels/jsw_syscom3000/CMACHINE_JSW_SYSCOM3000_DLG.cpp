#include "CMACHINE_JSW_SYSCOM3000_DLG.h"

#include "CKRNColorButton.h"
#include "JswSyscom3000Pages.h"
#include "common/KRNStageRoutines.h"

using namespace JswSyscom3000;

CMACHINE_JSW_SYSCOM3000_DLG::CMACHINE_JSW_SYSCOM3000_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    OnClicked(IDC_KEY_TEMPERATURE, [this] { GoToPage(kTemperaturePage); });
    OnClicked(IDC_KEY_INJECTION, [this] { GoToPage(kInjectionPage); });
    OnClicked(IDC_KEY_COMPRESSION, [this] { GoToPage(kCompressionPage); });
}

bool CMACHINE_JSW_SYSCOM3000_DLG::IsCompressionProcess() const {
    int process = 0;
    m_MachineData.GetProcessInfo(PI_PROCESS_VALUE, process);
    return process == kInjectionCompression;
}

bool CMACHINE_JSW_SYSCOM3000_DLG::OnInitDialog() {
    // Each page initialises itself on the record as it came, unpadded.
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_JSW_SYSCOM3000_TEMP(m_MachineData, this),
                                new CMACHINE_JSW_SYSCOM3000_INJ(m_MachineData, this),
                                new CMACHINE_JSW_SYSCOM3000_PACK(m_MachineData, this)});
    ShowPage(kTemperaturePage);

    // Six stages on every screen: seven points.
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) KRNStages::PadTo(m_MachineData, profile, 7);
    if (IsCompressionProcess()) {
        // A compression profile of six points already fills the screen.
        const int n = m_MachineData.GetProfileDataCount(MI_ICMF_PROFILE);
        if (n < 6) KRNStages::Pad(m_MachineData, MI_ICMF_PROFILE, 7 - n);
    }
    for (int& count : m_nStageCounts) count = 6;
    // Every page shows the padded record from the start, hold stages in
    // seconds, even a read-only record whose pages are never committed.
    DistributeRecord();

    SetBitmap(IDC_PICTURE, IDB_PICTURE);
    if (auto* key = GetDlgItemAs<CKRNColorButton>(IDC_KEY_INJECTION)) key->SetColors(255, 0xFFFFFF, 0x80A0E0);
    if (auto* key = GetDlgItemAs<CKRNColorButton>(IDC_KEY_TEMPERATURE)) key->SetColors(255, 0xFFFFFF, 0x80A0E0);
    int process = 0;
    m_MachineData.GetProcessInfo(PI_PROCESS_VALUE, process);
    if (auto* key = GetDlgItemAs<CKRNColorButton>(IDC_KEY_COMPRESSION)) {
        // Without a process kind the injection-compression page can't be reached.
        if (process != 0)
            key->SetColors(255, 0xFFFFFF, 0x40C0C0);
        else
            key->setEnabled(false);
    }
    return true;
}

void CMACHINE_JSW_SYSCOM3000_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) KRNStages::Tidy(m_MachineData, profile);
    if (IsCompressionProcess()) KRNStages::Tidy(m_MachineData, MI_ICMF_PROFILE);
}
