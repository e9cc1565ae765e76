#pragma once

// The hydraulic Mitsubishi panel: oil temperature, oil settings and oil
// speed, one page at a time behind three coloured page keys. The key of the
// page on the screen is the one lit yellow.

#include "common/CKRNPanelFrame.h"

#include <QFont>

class CKRNMachineMITSUBISH_ColorButton;

class CMACHINE_MITSU_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_MITSU_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // The page key of page `index` (0 to 2), once the template is loaded.
    CKRNMachineMITSUBISH_ColorButton* PageKey(int index) const;

protected:
    void TidyAtOK() override;

private:
    void OnPageKey(int index);
    // Lights the key of the shown page only.
    void SelectShownKey();

    QFont m_Font;  // the keys' captions
    bool m_bKeysFollowStack = false;
};
