#pragma once

// The JSW Syscom3000 panel: temperatures, injection and hold, and
// injection-compression and hold, one page at a time behind three page keys.

#include "common/CKRNPanelFrame.h"

class CMACHINE_JSW_SYSCOM3000_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_JSW_SYSCOM3000_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Stage counts of the flow-rate, pressure, packing-pressure and
    // compression profiles (6 once the panel is open).
    int m_nStageCounts[4] = {0, 0, 0, 0};

protected:
    void TidyAtOK() override;

private:
    bool IsCompressionProcess() const;
};
