#include "CMACHINE_MITSU_DLG.h"

#include "CKRNMachineMITSUBISH_ColorButton.h"
#include "MitsubishiHydraulicPages.h"
#include "common/KRNStageRoutines.h"

#include <QStackedWidget>

using namespace MitsubishiHydraulic;

CMACHINE_MITSU_DLG::CMACHINE_MITSU_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    CKRNMachineMITSUBISH_ColorButton::RegisterWithForms();
    for (int page = 0; page < 3; ++page) OnClicked(kPageKeys[page], [this, page] { OnPageKey(page); });
    // OK takes the page on the screen even from a read-only record; only
    // leaving a page is held back there.
    m_bOKCommitsReadOnly = true;
    SetCtlColor({IDC_KEY_OIL_TEMP, IDC_KEY_OIL_SET, IDC_KEY_OIL_SPEED}, kKeyText, kKeyBack);
    SetCtlColor(IDC_MACHINE_STRIP, kMachineText, kMachineBack);
    SetCtlColor(IDC_MODE_STRIP, kModeText, kModeBack);
    SetCtlColor(IDC_TITLE_STRIP, kTitleText, kTitleBack);
    SetDialogColor(kRestText, kRestBack);
    m_Font.setFamily(QStringLiteral("DejaVu Sans"));
    m_Font.setPointSize(10);
    m_Font.setBold(true);
}

CKRNMachineMITSUBISH_ColorButton* CMACHINE_MITSU_DLG::PageKey(int index) const {
    return index >= 0 && index < 3 ? GetDlgItemAs<CKRNMachineMITSUBISH_ColorButton>(kPageKeys[index]) : nullptr;
}

bool CMACHINE_MITSU_DLG::OnInitDialog() {
    // Each page starts from its own copy of the record as it came.
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_MITSU_OIL_TEMP_PAGE(m_MachineData, this),
                                new CMACHINE_MITSU_OIL_SET_PAGE(m_MachineData, this),
                                new CMACHINE_MITSU_OIL_SPEED_PAGE(m_MachineData, this)});
    ShowPage(kOilTempPage);
    for (int page = 0; page < 3; ++page) {
        if (CKRNMachineMITSUBISH_ColorButton* key = PageKey(page)) {
            key->setFont(m_Font);
            key->SetColors(kBlack, kYellow, kWhite);
        }
    }
    // The key follows the page on the screen however it got there (the
    // pictures of every page are taken by turning the page stack directly).
    if (auto* stack = findChild<QStackedWidget*>(QStringLiteral("KRNPages")); stack && !m_bKeysFollowStack) {
        connect(stack, &QStackedWidget::currentChanged, this, [this] { SelectShownKey(); });
        m_bKeysFollowStack = true;
    }
    SelectShownKey();
    return true;
}

void CMACHINE_MITSU_DLG::OnPageKey(int index) {
    GoToPage(index);  // nothing at all for the page already shown
    SelectShownKey();
}

void CMACHINE_MITSU_DLG::SelectShownKey() {
    const auto* stack = findChild<QStackedWidget*>(QStringLiteral("KRNPages"));
    const int shown = stack ? stack->currentIndex() : ShownPage();
    for (int page = 0; page < 3; ++page)
        if (CKRNMachineMITSUBISH_ColorButton* key = PageKey(page)) key->SetSelected(page == shown);
}

// Padding stages the controller never adds: every point but the last that
// lies at x 0 goes, from the last-but-one towards the first, and the last
// point closes the profile at x 0 with the level of the point before it. A
// profile left with its end point alone keeps it.
void CMACHINE_MITSU_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) KRNStages::Tidy(m_MachineData, profile);
}
