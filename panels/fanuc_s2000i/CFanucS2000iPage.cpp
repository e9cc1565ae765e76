#include "CFanucS2000iPage.h"

#include "CMACHINE_FANUC_S2000I_DLG.h"
#include "KRNNumberText.h"

namespace {
// Soft-key captions dark green on light green; the key of the page shown purple.
constexpr unsigned kKeyText = 20480, kKeyBack = 10349242, kKeyShownText = 8519810;
}  // namespace

CFanucS2000iPage::CFanucS2000iPage(int templateId, const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame)
    : CKRNPanelPage(templateId, data, frame), m_pFrame(frame) {}

void CFanucS2000iPage::NavigationKeys(std::initializer_list<std::pair<int, int>> keyToPage, int ownPage) {
    for (const auto& [key, page] : keyToPage) {
        const int index = page - 1;
        OnClicked(key, [this, index] { GoToPage(index); });
        SetCtlColor(key, page == ownPage ? kKeyShownText : kKeyText, kKeyBack);
    }
}

bool CFanucS2000iPage::IsRestricted() const { return m_pFrame && m_pFrame->m_bRestricted; }
