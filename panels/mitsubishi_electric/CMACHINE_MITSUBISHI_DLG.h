#pragma once

// The Mitsubishi electric panel: times and temperature, and injection and
// hold, one page at a time behind the soft keys under the screen.

#include "common/CKRNPanelFrame.h"

class CMACHINE_MITSUBISHI_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_MITSUBISHI_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Stage counts of the flow-rate, pressure and packing-pressure profiles.
    int m_nStageCounts[3] = {0, 0, 0};

protected:
    void TidyAtOK() override;
};
