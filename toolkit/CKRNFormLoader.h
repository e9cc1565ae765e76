#pragma once

// Loads the dialog templates (Qt Designer forms) of the resource module. A
// form names the shared control classes of the panels directly
// (CKRNColorButton, CKRNDrawStatic, CNonNagtiveDigitEdit, as promoted widgets
// in Designer), and every control gets the panels' own style so that the
// machine screens look the same on every desktop.
//
// Colours travel in a form as one short dynamic property per control,
// krnPalette = "WindowText=#ffc800 Window=#000000 | WindowText=#808080" (the
// roles for every state, then after '|' those that differ when disabled):
// far less to read at every opening than Designer's full palettes.

#include <QUiLoader>

class CKRNFormLoader : public QUiLoader {
public:
    using QUiLoader::QUiLoader;
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;

    // A control class of one panel only, made for the forms that name it; the
    // panel registers it before its template loads (registering again is harmless).
    using Factory = QWidget* (*)(QWidget* parent);
    static void RegisterControlClass(const QString& className, Factory make);

    // Applies the krnPalette of `widget`, if it has one.
    static void ApplyPalette(QWidget* widget);
};
