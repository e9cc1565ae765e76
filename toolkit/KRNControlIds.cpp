#include "KRNControlIds.h"

QString KRNControlName(int id) {
    switch (id) {
    case IDOK: return QStringLiteral("IDOK");
    case IDCANCEL: return QStringLiteral("IDCANCEL");
    case IDC_STATIC: return QStringLiteral("IDC_STATIC");
    default: return QStringLiteral("IDC_%1").arg(id);
    }
}

int KRNControlId(const QString& name, bool* ok) {
    if (ok) *ok = true;
    if (name == QLatin1String("IDOK")) return IDOK;
    if (name == QLatin1String("IDCANCEL")) return IDCANCEL;
    if (name.startsWith(QLatin1String("IDC_STATIC"))) return IDC_STATIC;
    if (name.startsWith(QLatin1String("IDC_"))) {
        bool number = false;
        const int id = name.mid(4).toInt(&number);
        if (number) return id;
    }
    if (ok) *ok = false;
    return IDC_STATIC;
}
