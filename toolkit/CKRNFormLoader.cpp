#include "CKRNFormLoader.h"

#include "CKRNColorButton.h"
#include "CKRNDrawStatic.h"
#include "CNonNagtiveDigitEdit.h"

#include <QStyle>
#include <QStyleFactory>

namespace {
QStyle* PanelStyle() {
    static QStyle* style = QStyleFactory::create(QStringLiteral("Fusion"));
    return style;
}
}  // namespace

QWidget* CKRNFormLoader::createWidget(const QString& className, QWidget* parent, const QString& name) {
    QWidget* w = nullptr;
    if (className == QLatin1String("CKRNColorButton")) w = new CKRNColorButton(parent);
    else if (className == QLatin1String("CKRNDrawStatic")) w = new CKRNDrawStatic(parent);
    else if (className == QLatin1String("CNonNagtiveDigitEdit")) w = new CNonNagtiveDigitEdit(parent);
    else w = QUiLoader::createWidget(className, parent, name);
    if (!w) return nullptr;
    w->setObjectName(name);
    if (PanelStyle()) w->setStyle(PanelStyle());
    return w;
}
