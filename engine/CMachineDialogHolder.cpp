#include "CMachineDialogHolder.h"

#include "KRNPanelTable.h"

CMachineDialogHolder::CMachineDialogHolder() = default;
CMachineDialogHolder::~CMachineDialogHolder() = default;

IKRNHostedPanel* CMachineDialogHolder::HostedPanel(int controllerType) {
    if (IKRNHostedPanel* panel = ExistingHostedPanel(controllerType)) return panel;
    const KRNPanelEntry* entry = KRNFindPanel(controllerType);
    if (!entry || !entry->createHosted) return nullptr;
    auto panel = entry->createHosted();
    IKRNHostedPanel* raw = panel.get();
    m_HostedPanels[controllerType] = std::move(panel);
    return raw;
}

IKRNHostedPanel* CMachineDialogHolder::ExistingHostedPanel(int controllerType) const {
    auto it = m_HostedPanels.find(controllerType);
    return it == m_HostedPanels.end() ? nullptr : it->second.get();
}
