#pragma once

// What every Fanuc S2000i page shares: its soft keys to other pages and the
// frame's restricted flag.

#include "FanucS2000iIds.h"
#include "common/CKRNPanelPage.h"

#include <initializer_list>
#include <utility>

class CMACHINE_FANUC_S2000I_DLG;

namespace FanucS2000i {
// The screens' recurring colour pairs (colour references, text then background).
constexpr unsigned kEditText = 0x000000, kEditBack = 0xFFFFFF;
constexpr unsigned kValueText = 0xFFFFFF, kValueBack = 32768;  // a green status field
constexpr unsigned kTitleText = 51455, kTitleBack = 0x000000;  // the title strip
}  // namespace FanucS2000i

class CFanucS2000iPage : public CKRNPanelPage {
    Q_OBJECT
public:
    CFanucS2000iPage(int templateId, const CKRNMachineData& data, CMACHINE_FANUC_S2000I_DLG* frame);

protected:
    // Binds keys to the pages they open (page numbers as the screens count them)
    // and colours them: the key of this page highlighted.
    void NavigationKeys(std::initializer_list<std::pair<int, int>> keyToPage, int ownPage);
    bool IsRestricted() const;
    CMACHINE_FANUC_S2000I_DLG* m_pFrame;
};
