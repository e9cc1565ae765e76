#include "KRNDumpJson.h"

#include "CKRNDialog.h"
#include "CKRNMachineChart.h"
#include "KRNPanelDriver.h"

#include <QAccessible>
#include <QCheckBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <typeinfo>

#if defined(__GNUG__)
#include <cxxabi.h>
#endif

namespace {

// The C++ class of a page: most panel classes carry no meta-object of their own.
QString ClassName(const CKRNDialog& dialog) {
    const char* raw = typeid(dialog).name();
#if defined(__GNUG__)
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> plain(abi::__cxa_demangle(raw, nullptr, nullptr, &status), std::free);
    if (status == 0 && plain) return QString::fromLatin1(plain.get());
#endif
    QString name = QString::fromLatin1(raw);
    if (name.startsWith(QLatin1String("class "))) name.remove(0, 6);
    return name;
}

QString Kind(QWidget* w) {
    if (qobject_cast<QLineEdit*>(w)) return QStringLiteral("edit");
    if (qobject_cast<QCheckBox*>(w)) return QStringLiteral("check");
    if (qobject_cast<QRadioButton*>(w)) return QStringLiteral("radio");
    if (qobject_cast<QAbstractButton*>(w)) return QStringLiteral("button");
    if (auto* label = qobject_cast<QLabel*>(w))
        return label->pixmap().isNull() ? QStringLiteral("label") : QStringLiteral("picture");
    if (dynamic_cast<CKRNMachineChart*>(w)) return QStringLiteral("chart");
    return QStringLiteral("other");
}

QString AccessibleName(QWidget* w) {
    if (!w->accessibleName().isEmpty()) return w->accessibleName();
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(w);
    return face ? face->text(QAccessible::Name) : QString();
}

QJsonObject Page(CKRNDialog* dialog, bool frame, bool shown) {
    QList<int> ids = dialog->Controls().keys();
    std::sort(ids.begin(), ids.end());
    QJsonArray controls;
    for (int id : ids) {
        QWidget* w = dialog->GetDlgItem(id);
        if (id == IDC_STATIC || !w->isVisibleTo(dialog)) continue;
        auto* edit = qobject_cast<QLineEdit*>(w);
        controls.append(QJsonObject{{QStringLiteral("id"), id},
                                    {QStringLiteral("kind"), Kind(w)},
                                    {QStringLiteral("text"), KRNDriver::Text(w)},
                                    {QStringLiteral("enabled"), w->isEnabled()},
                                    {QStringLiteral("readOnly"), edit && edit->isReadOnly()},
                                    {QStringLiteral("accessibleName"), AccessibleName(w)}});
    }
    return QJsonObject{{QStringLiteral("template"), dialog->TemplateId()},
                       {QStringLiteral("class"), ClassName(*dialog)},
                       {QStringLiteral("frame"), frame},
                       {QStringLiteral("shown"), shown},
                       {QStringLiteral("controls"), controls}};
}

}  // namespace

QByteArray KRNDumpJson(CKRNDialog* panel) {
    QJsonArray pages;
    if (panel) {
        const QList<QWidget*> stack = KRNDriver::Pages(panel);
        const bool hasPages = stack.value(0) != panel;
        if (hasPages) pages.append(Page(panel, true, panel->isVisible()));
        auto* shownStack = panel->findChild<QStackedWidget*>(QStringLiteral("KRNPages"));
        const QWidget* shownPage = shownStack ? shownStack->currentWidget() : nullptr;
        for (QWidget* w : stack)
            if (auto* page = qobject_cast<CKRNDialog*>(w)) {
                // Each page read as it shows on the screen, as --dump reads
                // it: a page writes its clock line when it is shown.
                QWidget* before = KRNDriver::ShowPageForPicture(panel, w);
                pages.append(Page(page, !hasPages, !hasPages ? panel->isVisible() : shownPage == w));
                KRNDriver::ShowPageForPicture(panel, before);
            }
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("pages"), pages}}).toJson(QJsonDocument::Indented);
}
