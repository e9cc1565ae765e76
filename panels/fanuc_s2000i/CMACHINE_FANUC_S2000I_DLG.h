#pragma once

// The Fanuc S2000i panel: a frame with a row of soft keys and seven pages
// (packing, pressure, menu, cooling, injection-pre, retreat, temperature)
// shown one at a time. It opens on the menu page. A host can also keep it
// open without a modal loop (CreateMachineDialog with "FANUC-A").

#include "common/CKRNPanelFrame.h"

class CMACHINE_FANUC_S2000I_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    // For hosted use: the record and the host are given before the window is made.
    CMACHINE_FANUC_S2000I_DLG();
    explicit CMACHINE_FANUC_S2000I_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // The page shown, as the screens count them (1 packing ... 7 temperature).
    unsigned CurrentPage() const { return static_cast<unsigned>(ShownPage() + 1); }
    // Goes to page `number`, committing the shown one (unless read-only).
    void ShowFanucPage(int number) { GoToPage(number - 1); }

    // Stage counts of the flow-rate, pressure and packing-pressure profiles
    // (5, 1 and 3 once the panel is open; for information only).
    int m_nFPStages = 0;
    int m_nPStages = 0;
    int m_nPPStages = 0;
    // Set by a holder that wants the setting keys locked; nothing in the panel sets it.
    bool m_bRestricted = false;

protected:
    void TidyAtOK() override;
};
