#pragma once

// Enter and Escape would close a dialog; the machine panels close only by
// their OK and Cancel commands, so frames and clock pages swallow them.

#include <QEvent>
#include <QKeyEvent>

inline bool KRNIsClosingKey(const QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}
