#pragma once

// The controller panels by controller type. Each panel adds one entry to the
// table in KRNPanelTable.cpp; the dispatch itself never changes.

#include "KRNMachineData.h"

#include <memory>
#include <span>
#include <string_view>

class IKRNHostedPanel;

// A controller name as hosts pass it, and the controller type it stands for.
struct KRNControllerName {
    std::string_view name;
    int type;
};

// The names in the order they are tried; the first exact match wins.
std::span<const KRNControllerName> KRNControllerTable();

// Controller types 0 to 5 have no panel; 6 to 16 each have one.
constexpr int kKRNFirstPanelType = 6;
constexpr int kKRNLastPanelType = 16;

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
