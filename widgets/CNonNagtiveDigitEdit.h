#pragma once

// An edit field for values that cannot be negative: only digits, the full
// stop and backspace get through the keyboard (a minus sign is dropped
// without a sound). CheckNonNegative catches what came in another way.

#include <QLineEdit>

class CNonNagtiveDigitEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit CNonNagtiveDigitEdit(QWidget* parent = nullptr) : QLineEdit(parent) {}

    // True when the field reads 0 or more; otherwise tells the user
    // "The value can't less than 0." and returns false.
    bool CheckNonNegative();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
