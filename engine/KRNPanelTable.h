#pragma once

// The controller panels by controller type. Each panel adds one entry to the
// table in KRNPanelTable.cpp; the dispatch itself never changes.

#include "KRNMachineData.h"

#include <memory>

class IKRNHostedPanel;

struct KRNPanelEntry {
    int controllerType;
    // Runs the panel modally on data. True when it ended with OK; data then
    // holds the panel's record.
    bool (*runModal)(CKRNMachineData& data);
    // Constructs the panel for hosted use; null when it has none.
    std::unique_ptr<IKRNHostedPanel> (*createHosted)();
};

// The entry of a controller type, or null when that type has no panel (yet).
const KRNPanelEntry* KRNFindPanel(int controllerType);
