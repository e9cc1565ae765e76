#include "CKRNPanelPage.h"

#include "CKRNPanelFrame.h"
#include "CKRNStringParser.h"
#include "KRNClockText.h"
#include "KRNMessageBox.h"
#include "KRNNumberText.h"

#include "KRNMachineScales.h"
#include "KRNPanelKeys.h"

#include <cmath>

CKRNPanelPage::CKRNPanelPage(int templateId, const CKRNMachineData& data, QWidget* parent)
    : CKRNDialog(templateId, parent), m_MachineData(data) {}

bool CKRNPanelPage::PreTranslateMessage(QObject* target, QEvent* event) {
    if (!m_Clock.controlId) return CKRNDialog::PreTranslateMessage(target, event);
    if (KRNIsClosingKey(event)) return true;
    m_Clock.Refresh(*this);
    return false;
}

void CKRNPanelPage::GoToPage(int index) {
    for (QObject* o = parent(); o; o = o->parent())
        if (auto* frame = qobject_cast<CKRNPanelFrame*>(o)) return frame->GoToPage(index);
}

void CKRNPanelPage::ShowNumber(int id, double value) { SetDlgItemText(id, KRNFormatValue("%6.2f", value)); }

void CKRNPanelPage::ShowUnfed(std::span<const int> ids, bool disable) {
    for (int id : ids) {
        SetDlgItemText(id, QStringLiteral("---"));
        if (disable) EnableDlgItem(id, false);
    }
}

void CKRNPanelPage::RestoreNumber(int id, double stored) { RestoreDlgItemText(id, KRNFormatValue("%6.2f", stored)); }

namespace {
// Message 353 when `value` lies outside lower..upper.
bool InRange(double value, double lower, double upper, QWidget* page) {
    if (value >= lower && value <= upper) return true;
    KRNMessageBox(KRNResourceMessage(353, {upper, lower}), page);
    return false;
}
}  // namespace

bool CKRNPanelPage::ReadNumberField(int id, double stored, double& value, KRNField kind) {
    return ReadNumberFieldInRange(id, stored, value, kind, -HUGE_VAL, HUGE_VAL);
}

bool CKRNPanelPage::ReadNumberField(int id, double stored, double& value, KRNField kind, double upper) {
    const QByteArray text = GetDlgItemText(id).toUtf8();
    if (!CKRNStringParser().IsNumber(text.constData())) {
        KRNMessageBox(KRNResourceMessage(61713), this);
        RestoreNumber(id, stored);
        return false;
    }
    value = KRNAtof(text.constData());
    if (value > upper) {
        KRNMessageBox(KRNResourceMessage(352, {upper}), this);
        RestoreNumber(id, stored);
        return false;
    }
    const KRNFieldRange range = KRNRangeOf(kind);
    if (!InRange(value, range.lower, range.upper, this)) {
        RestoreNumber(id, stored);
        return false;
    }
    return true;
}

bool CKRNPanelPage::ReadNumberFieldInRange(int id, double stored, double& value, KRNField kind, double lower,
                                           double upper) {
    if (!ReadNumberField(id, stored, value, kind, HUGE_VAL)) return false;
    if (!InRange(value, lower, upper, this)) {
        RestoreNumber(id, stored);
        return false;
    }
    return true;
}

bool CKRNPanelPage::ReadPlainField(int id, double stored, double& value, KRNField kind, const char* format) {
    const double typed = KRNAtof(GetDlgItemText(id));
    const KRNFieldRange range = KRNRangeOf(kind);
    if (!InRange(typed, range.lower, range.upper, this)) {
        RestoreDlgItemText(id, KRNFormatValue(format, stored));
        return false;
    }
    value = typed;
    return true;
}

void CKRNPanelPage::BindPlainField(int id, KRNMACHINEITEM item, KRNField kind, const char* format,
                                   double perRecordUnit, std::function<void(const QString&)> mirror) {
    OnChange(id, [=, this] {
        double stored = 0, value = 0;
        m_MachineData.GetMachineData(item, stored);
        if (!ReadPlainField(id, stored * perRecordUnit, value, kind, format)) return;
        m_MachineData.SetMachineData(item, value / perRecordUnit);
        if (mirror) mirror(GetDlgItemText(id));
    });
}

bool CKRNPanelPage::ReadStageCount(int id, int stages, int& wanted) {
    const QByteArray text = GetDlgItemText(id).toUtf8();
    double count = 0;
    if (!CKRNStringParser().IsWholeNumber(text.constData(), count) || count < 0) return false;
    const KRNFieldRange range = KRNRangeOf(KRNField::Count);
    const QString refusal = count < range.lower ? KRNFormat("Can't smaller than %d", static_cast<int>(range.lower))
                            : count > range.upper ? KRNFormat("Can't more than %d", static_cast<int>(range.upper))
                                                  : QString();
    if (!refusal.isEmpty()) {
        KRNMessageBox(refusal, this);
        RestoreDlgItemText(id, KRNFormat("%d", stages));
        return false;
    }
    wanted = static_cast<int>(count);
    return true;
}

bool CKRNPanelPage::CheckFullScale(double fullScale, int id, double stored) {
    if (KRNHasFullScale(fullScale)) return true;
    KRNMessageBox(QStringLiteral("The machine data give this value no full scale (a screw diameter, stroke, "
                                 "pressure or time of 0): the entry can't be stored."),
                  this);
    RestoreNumber(id, stored);
    return false;
}

bool CKRNPanelPage::ToPercent(double value, double fullScale, double& percent, int id, double stored) {
    if (!CheckFullScale(fullScale, id, stored)) return false;
    percent = value / fullScale * 100.0;
    if (std::isfinite(percent)) return true;
    return CheckFullScale(0.0, id, stored);
}

bool CKRNPanelPage::EditStageValue(int id, KRNMACHINEITEM profile, int stage, double fullScale, double upper,
                                   KRNField kind, double unit) {
    double x = 0, y = 0;
    m_MachineData.GetProfileData(profile, stage, x, y);
    const double stored = y * fullScale * 0.01 * unit;
    double value = 0, percent = 0;
    if (!ReadNumberField(id, stored, value, kind, upper) || !ToPercent(value / unit, fullScale, percent, id, stored))
        return false;
    m_MachineData.SetMachineData(profile, stage, x, percent);
    return true;
}

bool CKRNPanelPage::EditStageTime(int id, KRNMACHINEITEM profile, int stage) {
    double x = 0, y = 0;
    m_MachineData.GetProfileData(profile, stage, x, y);
    double seconds = 0;
    if (!ReadNumberField(id, x, seconds, KRNField::Time)) return false;
    // The stages' durations add up to the total time on the way back.
    double total = seconds;
    const int count = m_MachineData.GetProfileDataCount(profile);
    for (int k = 0; k + 1 < count; ++k) {
        double kx = 0, ky = 0;
        if (k != stage) m_MachineData.GetProfileData(profile, k, kx, ky);
        total += kx;
    }
    if (!std::isfinite(total)) {
        KRNMessageBox(QStringLiteral("The stage times would add up to no finite total time: the entry can't be stored."),
                      this);
        RestoreNumber(id, x);
        return false;
    }
    m_MachineData.SetMachineData(profile, stage, seconds, y);
    return true;
}
