#pragma once

// The Polypax series panel: one screen area over two rows of soft keys, with
// injection and hold, the injection charts, the machine status (shown first),
// the pressure curve and the temperatures taking turns in it. Pressures are
// shown at the machine's second diameter (MC_SPEC_6) rather than at the
// screw. A host can also keep it open without a modal loop
// (CreateMachineDialog with "Polypax-Series").

#include "common/CKRNPanelFrame.h"

class CMACHINE_POLYPAX_SERIES_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    // For hosted use: the record and the host are given before the window is made.
    CMACHINE_POLYPAX_SERIES_DLG();
    explicit CMACHINE_POLYPAX_SERIES_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Stage counts of the flow-rate, pressure and packing-pressure profiles
    // (5, 5 and 4 once the panel is open; for information only).
    int m_nStageCounts[3] = {0, 0, 0};
    // Whether the pressure-curve key leads anywhere; nothing in the panel sets
    // it (a holder may, before the window is made). Clear, the key is greyed
    // out and does nothing.
    bool m_bPressureCurve = false;

protected:
    void TidyAtOK() override;
};
