#pragma once

// The Niigata MD series panel: injection and hold, temperatures, the main
// screen (shown first) and the pressure curve, one page at a time behind four
// page keys over the screen area.

#include "common/CKRNPanelFrame.h"

class CMACHINE_NIIGATA_MDSERIES_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_NIIGATA_MDSERIES_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Stage counts of the flow-rate, pressure and packing-pressure profiles.
    int m_nStageCounts[3] = {0, 0, 0};

protected:
    void TidyAtOK() override;
};
