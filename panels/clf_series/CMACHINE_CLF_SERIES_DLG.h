#pragma once

// The CLF series panel: main screen, injection and hold, the full data set,
// temperatures and the curve, one page at a time behind five page keys, with
// the date and time in the frame's own clock line.

#include "common/CKRNPanelFrame.h"

class CMACHINE_CLF_SERIES_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_CLF_SERIES_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Stage counts of the flow-rate, pressure and packing-pressure profiles.
    int m_nStageCounts[3] = {0, 0, 0};

protected:
    void TidyAtOK() override;
};
