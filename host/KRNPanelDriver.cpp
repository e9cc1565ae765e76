#include "KRNPanelDriver.h"

#include "CKRNDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QStackedWidget>
#include <QTimer>

namespace KRNDriver {

CKRNDialog* TopDialog() {
    if (auto* modal = qobject_cast<CKRNDialog*>(QApplication::activeModalWidget())) return modal;
    CKRNDialog* top = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<CKRNDialog*>(w); dialog && dialog->isVisible()) top = dialog;
    return top;
}

QWidget* VisibleControl(QWidget* dialog, int id, Want want) {
    if (!dialog) return nullptr;
    const QString name = KRNControlName(id);
    auto fits = [&](QWidget* w) {
        if (!w->isVisibleTo(dialog)) return false;
        if (want == Want::Button) return qobject_cast<QAbstractButton*>(w) != nullptr;
        if (want == Want::Edit) return qobject_cast<QLineEdit*>(w) != nullptr;
        return true;
    };
    if (auto* stack = dialog->findChild<QStackedWidget*>(QStringLiteral("KRNPages")))
        if (QWidget* page = stack->currentWidget())
            for (QWidget* w : page->findChildren<QWidget*>(name))
                if (fits(w)) return w;
    for (QWidget* w : dialog->findChildren<QWidget*>(name))
        if (fits(w)) return w;
    return nullptr;
}

QString Text(QWidget* control) {
    if (auto* edit = qobject_cast<QLineEdit*>(control)) return edit->text();
    if (auto* label = qobject_cast<QLabel*>(control)) return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(control)) return button->text();
    return control ? control->windowTitle() : QString();
}

void Type(QWidget* control, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(control)) edit->setText(text);
}

void Keys(QWidget* control, const QString& text) {
    auto* edit = qobject_cast<QLineEdit*>(control);
    if (!edit) return;
    edit->selectAll();
    QPointer<QLineEdit> alive(edit);
    for (QChar c : text) {
        if (!alive) return;
        const int key = c == QLatin1Char('\b') ? int(Qt::Key_Backspace) : c.isLetter() ? c.toUpper().unicode() : c.unicode();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(edit, &press);
        if (!alive) return;
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(edit, &release);
    }
}

void Leave(QWidget* control) {
    if (!control) return;
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(control, &out);
}

void Click(QWidget* control) {
    if (auto* button = qobject_cast<QAbstractButton*>(control)) button->click();
}

void PressKey(QWidget* dialog, int qtKey) {
    if (!dialog) return;
    QWidget* target = dialog->focusWidget();
    if (!target || !dialog->isAncestorOf(target)) target = dialog;
    QKeyEvent press(QEvent::KeyPress, qtKey, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
}

QList<QWidget*> Pages(QWidget* dialog) {
    QList<QWidget*> pages;
    if (!dialog) return pages;
    if (auto* stack = dialog->findChild<QStackedWidget*>(QStringLiteral("KRNPages"))) {
        for (int i = 0; i < stack->count(); ++i) pages << stack->widget(i);
    } else {
        pages << dialog;
    }
    return pages;
}

QWidget* ShowPageForPicture(QWidget* dialog, QWidget* page) {
    auto* stack = dialog ? dialog->findChild<QStackedWidget*>(QStringLiteral("KRNPages")) : nullptr;
    if (!stack) return page;
    QWidget* before = stack->currentWidget();
    stack->setCurrentWidget(page);
    return before;
}

int TemplateOf(QWidget* page) {
    auto* dialog = qobject_cast<CKRNDialog*>(page);
    return dialog ? dialog->TemplateId() : 0;
}

void CancelAll() {
    for (int guard = 0; guard < 16; ++guard) {
        CKRNDialog* top = TopDialog();
        if (!top) return;
        top->OnCancel();
        if (top->isVisible()) top->EndDialog(IDCANCEL);
    }
}

void RunWhileOpen(const std::function<void()>& whileOpen, const std::function<void()>& open) {
    QObject context;  // pending steps die with this call
    QTimer::singleShot(0, &context, [&] {
        whileOpen();
        CancelAll();
    });
    open();
}

}  // namespace KRNDriver
