#pragma once

// Loads the dialog templates of the resource module. The module holds each
// template compiled at build time from its Qt Designer form (forms/<id>.ui,
// the source that stays editable in Designer; see KRNCompiledForm.h), and
// this loader builds the widgets from it with plain constructors and setters.
// A Designer form given as it is (a module made by hand, a test's module)
// still loads, through QUiLoader.
//
// Why compiled templates: opening a panel read and interpreted its forms'
// XML at every opening, through QUiLoader's generic property machinery, and
// that cost more than building the widgets themselves (the figures, from
// bench_krn, are in CKRNFormLoader.cpp). Caching between openings would help
// only from the second opening on, and creating pages' contents only when
// first shown would break the rule that every page initialises at creation.
//
// A form names the shared control classes of the panels directly
// (CKRNColorButton, CKRNDrawStatic, CNonNagtiveDigitEdit, as promoted widgets
// in Designer), and every control gets the panels' own style so that the
// machine screens look the same on every desktop.
//
// Colours travel in a form as one short dynamic property per control,
// krnPalette = "WindowText=#ffc800 Window=#000000 | WindowText=#808080" (the
// roles for every state, then after '|' those that differ when disabled);
// the compiler turns it into colours, so nothing is parsed at opening.

#include <QUiLoader>

class CKRNFormLoader : public QUiLoader {
public:
    using QUiLoader::QUiLoader;

    // Builds the template in `device` (compiled or a Designer form) as a child
    // of `parentWidget`. Null when it cannot be read; errorString() says why.
    QWidget* load(QIODevice* device, QWidget* parentWidget = nullptr);
    QString errorString() const;

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;

    // A control class of one panel only, made for the forms that name it; the
    // panel registers it before its template loads (registering again is harmless).
    using Factory = QWidget* (*)(QWidget* parent);
    static void RegisterControlClass(const QString& className, Factory make);

    // Applies the krnPalette of `widget`, if it has one (a Designer form
    // loaded as it is; compiled templates carry their colours already).
    static void ApplyPalette(QWidget* widget);

private:
    QWidget* LoadCompiled(const QByteArray& bytes, QWidget* parentWidget);
    QString m_error;
};
