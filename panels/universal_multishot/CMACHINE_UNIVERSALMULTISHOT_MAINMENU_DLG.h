#pragma once

// The Universal Multishot panel: one process page over the frame's screen
// area, with a key to show it, OK and Cancel. A host can also keep it open
// without a modal loop (CreateMachineDialog with "UMS-Series").

#include "common/CKRNPanelFrame.h"

class CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    // For hosted use: the record and the host are given before the window is made.
    CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG();
    explicit CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Stage counts of the flow-rate, pressure and packing-pressure profiles
    // (for information only). The controller writes the first two as one
    // 64-bit 5, so the pressure count reads 0: 5, 0 and 3 once open.
    int m_nStageCounts[3] = {0, 0, 0};

protected:
    void TidyAtOK() override;
};
