#include "CKRNPanelPage.h"

#include "CKRNPanelFrame.h"
#include "CKRNStringParser.h"
#include "KRNClockText.h"
#include "KRNMessageBox.h"
#include "KRNNumberText.h"

#include <cmath>
#include "KRNPanelKeys.h"

CKRNPanelPage::CKRNPanelPage(int templateId, const CKRNMachineData& data, QWidget* parent)
    : CKRNDialog(templateId, parent), m_MachineData(data) {}

bool CKRNPanelPage::PreTranslateMessage(QObject* target, QEvent* event) {
    if (!m_nClockControl) return CKRNDialog::PreTranslateMessage(target, event);
    if (KRNIsClosingKey(event)) return true;
    const QString now = KRNClockTextNow();
    if (GetDlgItemText(m_nClockControl) != now) SetDlgItemText(m_nClockControl, now);
    return false;
}

void CKRNPanelPage::GoToPage(int index) {
    for (QObject* o = parent(); o; o = o->parent())
        if (auto* frame = qobject_cast<CKRNPanelFrame*>(o)) return frame->GoToPage(index);
}

void CKRNPanelPage::RestoreNumber(int id, double stored) { RestoreDlgItemText(id, KRNFormat("%6.2f", stored)); }

bool CKRNPanelPage::ReadNumberField(int id, double stored, double& value) {
    const QByteArray text = GetDlgItemText(id).toUtf8();
    if (!CKRNStringParser().IsNumber(text.constData())) {
        KRNMessageBox(KRNResourceMessage(61713), this);
        RestoreNumber(id, stored);
        return false;
    }
    value = KRNAtof(text.constData());
    return true;
}

bool CKRNPanelPage::ReadNumberField(int id, double stored, double& value, double upper) {
    if (!ReadNumberField(id, stored, value)) return false;
    if (value > upper) {
        KRNMessageBox(KRNResourceMessage(352, {upper}), this);
        RestoreNumber(id, stored);
        return false;
    }
    return true;
}

bool CKRNPanelPage::ReadNumberFieldInRange(int id, double stored, double& value, double lower, double upper) {
    if (!ReadNumberField(id, stored, value)) return false;
    if (value < lower || value > upper) {
        KRNMessageBox(KRNResourceMessage(353, {upper, lower}), this);
        RestoreNumber(id, stored);
        return false;
    }
    return true;
}

bool CKRNPanelPage::ToPercent(double value, double fullScale, double& percent, int id, double stored) {
    percent = value / fullScale * 100.0;
    if (std::isfinite(percent)) return true;
    KRNMessageBox(QStringLiteral("The machine's full scale for this value is %1; the entry can't be stored.")
                      .arg(KRNFormat("%lg", fullScale)),
                  this);
    RestoreNumber(id, stored);
    return false;
}

bool CKRNPanelPage::EditStageValue(int id, KRNMACHINEITEM profile, int stage, double fullScale, double upper,
                                   double unit) {
    double x = 0, y = 0;
    m_MachineData.GetProfileData(profile, stage, x, y);
    const double stored = y * fullScale * 0.01 * unit;
    double value = 0, percent = 0;
    if (!ReadNumberField(id, stored, value, upper) || !ToPercent(value / unit, fullScale, percent, id, stored))
        return false;
    m_MachineData.SetMachineData(profile, stage, x, percent);
    return true;
}

bool CKRNPanelPage::EditStageTime(int id, KRNMACHINEITEM profile, int stage) {
    double x = 0, y = 0;
    m_MachineData.GetProfileData(profile, stage, x, y);
    double seconds = 0;
    if (!ReadNumberField(id, x, seconds)) return false;
    m_MachineData.SetMachineData(profile, stage, seconds, y);
    return true;
}
