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

bool ParseAddress(const QString& word, Address& address) {
    const qsizetype colon = word.indexOf(QLatin1Char(':'));
    const QString number = colon < 0 ? word : word.mid(colon + 1);
    address = {};
    bool ok = true;
    if (colon >= 0) {
        address.templateId = word.left(colon).toInt(&ok);
        if (!ok || address.templateId <= 0) return false;
    }
    if (number == QLatin1String("IDOK")) address.id = IDOK;
    else if (number == QLatin1String("IDCANCEL")) address.id = IDCANCEL;
    else address.id = number.toInt(&ok);
    return ok;
}

namespace {

QString Kind(Want want) {
    switch (want) {
    case Want::Button: return QStringLiteral("button");
    case Want::Edit: return QStringLiteral("edit field");
    case Want::Any: break;
    }
    return QStringLiteral("control");
}

// The page or frame a control belongs to: its nearest panel dialog.
QWidget* Owner(QWidget* control) {
    QWidget* w = control->parentWidget();
    while (w && !qobject_cast<CKRNDialog*>(w)) w = w->parentWidget();
    return w;
}

}  // namespace

QWidget* FindControl(QWidget* dialog, const Address& address, Want want, QString& problem) {
    const QString number = address.id == IDOK ? QStringLiteral("IDOK")
                           : address.id == IDCANCEL ? QStringLiteral("IDCANCEL")
                                                     : QString::number(address.id);
    if (address.templateId == 0) {
        QWidget* control = VisibleControl(dialog, address.id, want);
        if (!control) problem = QStringLiteral("no visible %1 %2 on the open dialog").arg(Kind(want), number);
        return control;
    }
    // The frame, or one of its pages; a dialog without pages is its own frame.
    QWidget* target = TemplateOf(dialog) == address.templateId ? dialog : nullptr;
    QStringList open{QString::number(TemplateOf(dialog))};
    for (QWidget* page : Pages(dialog)) {
        if (page == dialog) continue;
        open << QString::number(TemplateOf(page));
        if (!target && TemplateOf(page) == address.templateId) target = page;
    }
    if (!target) {
        problem = QStringLiteral("template %1 is not open (the open dialog holds %2)").arg(address.templateId).arg(open.join(QStringLiteral(", ")));
        return nullptr;
    }
    if (!target->isVisibleTo(dialog) && target != dialog) {
        problem = QStringLiteral("page %1 is not the page shown").arg(address.templateId);
        return nullptr;
    }
    for (QWidget* w : target->findChildren<QWidget*>(KRNControlName(address.id))) {
        if (Owner(w) != target || !w->isVisibleTo(dialog)) continue;
        if (want == Want::Button && !qobject_cast<QAbstractButton*>(w)) continue;
        if (want == Want::Edit && !qobject_cast<QLineEdit*>(w)) continue;
        return w;
    }
    problem = QStringLiteral("template %1 has no visible %2 %3").arg(address.templateId).arg(Kind(want), number);
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

void Focus(QWidget* control) {
    if (!control || control->hasFocus()) return;
    // Focus events reach only the widgets of the active window.
    if (QWidget* window = control->window(); !window->isActiveWindow()) {
        window->activateWindow();
        QApplication::setActiveWindow(window);
    }
    control->setFocus(Qt::MouseFocusReason);
}

void Leave(QWidget* control) {
    if (!control) return;
    if (control->hasFocus()) return control->clearFocus();
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(control, &out);
}

void Click(QWidget* control) {
    auto* button = qobject_cast<QAbstractButton*>(control);
    if (!button) return;
    // A mouse press gives the button the focus first when it takes focus
    // from a click, so the field being edited takes its kill focus before
    // the button acts, as on a desktop.
    if (button->focusPolicy() & Qt::ClickFocus) Focus(button);
    button->click();
}

void PressKey(QWidget* dialog, int qtKey, Qt::KeyboardModifiers modifiers) {
    if (!dialog) return;
    QWidget* target = dialog->focusWidget();
    if (!target || !dialog->isAncestorOf(target)) target = dialog;
    QKeyEvent press(QEvent::KeyPress, qtKey, modifiers);
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
