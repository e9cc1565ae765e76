#pragma once

// Drives open panels with no one at the keyboard: finds the topmost panel
// dialog and its visible controls by number, and types, leaves, clicks and
// presses keys the way a person would. krn-panel's scripts and the tests use it.

#include <QList>
#include <QString>
#include <qnamespace.h>

#include <functional>

class CKRNDialog;
class QWidget;

namespace KRNDriver {

// The topmost open panel dialog: a modal one (a keypad over its page) first,
// else the last visible panel window; null when none is open.
CKRNDialog* TopDialog();

// What an action needs of a control: some screens use one number twice, for
// a key of the frame and a field of a page.
enum class Want { Any, Button, Edit };

// The visible control `id` of `dialog` that fits `want`: looked up on the
// page now shown first, then on the dialog itself; null when there is none.
QWidget* VisibleControl(QWidget* dialog, int id, Want want = Want::Any);

// A control as a script names it: its number alone ("1454", "IDOK"), found
// as VisibleControl finds it, or "TEMPLATE:ID" ("31145:1454") for the
// control of that one page or of the frame.
struct Address {
    int templateId = 0;  // 0: the shown page first, then the frame
    int id = 0;
};
bool ParseAddress(const QString& word, Address& address);

// The visible control `address` names in `dialog` that fits `want`. Null
// when there is none, with `problem` saying why: the template is not open,
// its page is not the one shown, or it has no such control.
QWidget* FindControl(QWidget* dialog, const Address& address, Want want, QString& problem);

// The text a person sees in a control.
QString Text(QWidget* control);

// The whole text becomes `text` in one change.
void Type(QWidget* control, const QString& text);
// The whole text is selected, then `text` is typed a character at a time.
void Keys(QWidget* control, const QString& text);
// The control takes the focus, as a click into it does; the control that
// had it loses it first.
void Focus(QWidget* control);
// The control loses the focus: for real when it has it, so that the next
// field taking the focus does not leave it a second time.
void Leave(QWidget* control);
void Click(QWidget* control);
// A key pressed in `dialog` (on its focused field when it has one): Enter
// and Escape, or Tab and Shift+Tab (Qt::Key_Backtab), which move the focus
// through the dialog's fields in their tab order.
void PressKey(QWidget* dialog, int qtKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// The pages of a panel: the widgets of its page stack, or the dialog alone.
QList<QWidget*> Pages(QWidget* dialog);
// Makes `page` the shown page of its stack without committing anything (for
// pictures); returns the page shown before.
QWidget* ShowPageForPicture(QWidget* dialog, QWidget* page);
int TemplateOf(QWidget* page);

// Runs `whileOpen` inside the modal loop that `open` starts; panels still
// open afterwards are cancelled, so `open` always returns.
void RunWhileOpen(const std::function<void()>& whileOpen, const std::function<void()>& open);

// Cancels every open panel dialog, topmost first.
void CancelAll();

}  // namespace KRNDriver
