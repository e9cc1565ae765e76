#include "CKRNMachineArburgCalc.h"

#include "KRNMessageBox.h"
#include "KRNNumberText.h"

#include <QLabel>

namespace {
constexpr int IDC_CALC_VALUE = 1366;
constexpr int IDC_CALC_RANGE = 1364;
constexpr int IDC_CALC_CLEAR = 1370;
constexpr int IDC_CALC_CONFIRM = 1387;
constexpr int IDC_CALC_CANCEL = 1386;
// Keys "1" to "9", then "0".
constexpr int kDigitKeys[10] = {1377, 1367, 1368, 1369, 1371, 1372, 1373, 1374, 1375, 1376};
}  // namespace

CKRNMachineArburgCalc::CKRNMachineArburgCalc(QWidget* parent) : CKRNDialog(IDD, parent) {
    for (int digit = 0; digit <= 9; ++digit) OnClicked(kDigitKeys[digit], [this, digit] { OnDigit(digit); });
    OnClicked(IDC_CALC_CLEAR, &CKRNMachineArburgCalc::OnClear);
    OnClicked(IDC_CALC_CONFIRM, &CKRNMachineArburgCalc::OnConfirm);
    OnClicked(IDC_CALC_CANCEL, [this] { EndDialog(IDCANCEL); });
}

bool CKRNMachineArburgCalc::OnInitDialog() {
    m_ValueDisplay = GetDlgItemAs<QLabel>(IDC_CALC_VALUE);
    m_RangeDisplay = GetDlgItemAs<QLabel>(IDC_CALC_RANGE);
    SetDlgItemText(IDC_CALC_RANGE, KRNFormat("[1-%d]", m_nMaxValue));
    ShowValue();
    return true;
}

void CKRNMachineArburgCalc::ShowValue() { SetDlgItemText(IDC_CALC_VALUE, KRNFormat("%d", m_nValue)); }

// Each key replaces the value; only "1" followed by "0" makes ten.
void CKRNMachineArburgCalc::OnDigit(int digit) {
    if (digit == 0)
        m_nValue = m_bTenPending == 1 ? 10 : 0;
    else
        m_nValue = digit;
    m_bTenPending = digit == 1 ? 1 : 0;
    ShowValue();
}

// Clear leaves a pending "1" standing: "1", clear, "0" still gives ten.
void CKRNMachineArburgCalc::OnClear() {
    m_nValue = 0;
    ShowValue();
}

void CKRNMachineArburgCalc::OnConfirm() {
    const double value = m_nValue;
    if (value > m_nMaxValue) {
        KRNMessageBox(KRNFormat("Can't more than %d", m_nMaxValue), this);
    } else if (value < 1.0) {
        // The screen tests against 1 but names 0; users know the message as it is.
        KRNMessageBox(KRNFormat("Can't smaller than %d", 0), this);
    } else {
        EndDialog(IDOK);
    }
}
