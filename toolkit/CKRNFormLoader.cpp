#include "CKRNFormLoader.h"

#include "CKRNColorButton.h"
#include "CKRNDrawStatic.h"
#include "CNonNagtiveDigitEdit.h"

#include <QHash>
#include <QMetaEnum>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace {
QStyle* PanelStyle() {
    static QStyle* style = QStyleFactory::create(QStringLiteral("Fusion"));
    return style;
}

QHash<QString, CKRNFormLoader::Factory>& PanelClasses() {
    static QHash<QString, CKRNFormLoader::Factory> classes;
    return classes;
}
}  // namespace

void CKRNFormLoader::RegisterControlClass(const QString& className, Factory make) {
    PanelClasses().insert(className, make);
}

QWidget* CKRNFormLoader::createWidget(const QString& className, QWidget* parent, const QString& name) {
    QWidget* w = nullptr;
    if (className == QLatin1String("CKRNColorButton")) w = new CKRNColorButton(parent);
    else if (className == QLatin1String("CKRNDrawStatic")) w = new CKRNDrawStatic(parent);
    else if (className == QLatin1String("CNonNagtiveDigitEdit")) w = new CNonNagtiveDigitEdit(parent);
    else if (Factory make = PanelClasses().value(className)) w = make(parent);
    else w = QUiLoader::createWidget(className, parent, name);
    if (!w) return nullptr;
    w->setObjectName(name);
    if (PanelStyle()) w->setStyle(PanelStyle());
    return w;
}

void CKRNFormLoader::ApplyPalette(QWidget* widget) {
    const QVariant value = widget->property("krnPalette");
    if (!value.isValid()) return;
    // A screen repeats a handful of colour pairs: each is read once.
    static QHash<QString, QPalette> read;
    const QString text = value.toString();
    if (auto it = read.constFind(text); it != read.constEnd()) {
        widget->setPalette(*it);
        return;
    }
    static const QMetaEnum roles = QMetaEnum::fromType<QPalette::ColorRole>();
    // Only the roles named are the control's own; the rest come from its parent.
    QPalette palette;
    const QStringList groups = text.split(QLatin1Char('|'));
    for (int g = 0; g < groups.size() && g < 2; ++g) {
        for (const QString& entry : groups[g].split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const qsizetype eq = entry.indexOf(QLatin1Char('='));
            bool known = false;
            const int role = roles.keyToValue(entry.left(eq).toLatin1().constData(), &known);
            const QColor colour = QColor::fromString(entry.mid(eq + 1));
            if (eq <= 0 || !known || !colour.isValid()) continue;
            if (g == 0)
                palette.setColor(static_cast<QPalette::ColorRole>(role), colour);
            else
                palette.setColor(QPalette::Disabled, static_cast<QPalette::ColorRole>(role), colour);
        }
    }
    read.insert(text, palette);
    widget->setPalette(palette);
}
