#pragma once

// Loads the dialog templates (Qt Designer forms) of the resource module. A
// form names the shared control classes of the panels directly
// (CKRNColorButton, CKRNDrawStatic, CNonNagtiveDigitEdit, as promoted widgets
// in Designer), and every control gets the panels' own style so that the
// machine screens look the same on every desktop.

#include <QUiLoader>

class CKRNFormLoader : public QUiLoader {
public:
    using QUiLoader::QUiLoader;
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;
};
