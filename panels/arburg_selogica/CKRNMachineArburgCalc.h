#pragma once

// The stage-count keypad of the Selogica screens: the user taps one digit (or
// "1" then "0" for ten), sees the number and confirms. The page hands in the
// present number of stages and the bound, and reads the choice after OK.

#include "CKRNDialog.h"

class QLabel;

class CKRNMachineArburgCalc : public CKRNDialog {
    Q_OBJECT
public:
    static constexpr int IDD = 31138;

    explicit CKRNMachineArburgCalc(QWidget* parent = nullptr);

    QLabel* m_ValueDisplay = nullptr;  // 1366
    QLabel* m_RangeDisplay = nullptr;  // 1364
    int m_nValue = 0;
    int m_nMaxValue = 0;
    int m_bTenPending = 0;  // "1" was the last digit key

    bool OnInitDialog() override;
    // Enter confirms through the same check as the confirm key.
    void OnOK() override { OnConfirm(); }

private:
    void OnDigit(int digit);
    void OnClear();
    void OnConfirm();
    void ShowValue();
};
