#include "CNonNagtiveDigitEdit.h"

#include "KRNMessageBox.h"
#include "KRNNumberText.h"

#include <QKeyEvent>

void CNonNagtiveDigitEdit::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    if (typed.size() == 1) {
        const QChar c = typed.front();
        const bool allowed = (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('.') ||
                             c == QLatin1Char('\b') || !c.isPrint();
        if (!allowed) {
            event->accept();
            return;
        }
    }
    QLineEdit::keyPressEvent(event);
}

bool CNonNagtiveDigitEdit::CheckNonNegative() {
    if (KRNAtof(text()) < 0.0) {
        KRNMessageBox(QStringLiteral("The value can't less than 0."), window());
        return false;
    }
    return true;
}
