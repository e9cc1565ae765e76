#include "KRNPanelTable.h"

#include "CMachineDialogHolder.h"

namespace {
const KRNPanelEntry kPanels[] = {
    {-1, nullptr, nullptr},  // keeps the table well-formed while it has no panel
};
}  // namespace

const KRNPanelEntry* KRNFindPanel(int controllerType) {
    for (const KRNPanelEntry& entry : kPanels)
        if (entry.runModal && entry.controllerType == controllerType) return &entry;
    return nullptr;
}
