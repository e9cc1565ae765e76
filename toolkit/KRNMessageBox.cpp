#include "KRNMessageBox.h"

#include "KRNPanelMessages.h"
#include "KRNNumberText.h"
#include "KRNResources.h"

#include <QApplication>
#include <QMessageBox>

#include <cstring>
#include <utility>

namespace {
KRNMessageHandler& Handler() {
    static KRNMessageHandler handler;
    return handler;
}
}  // namespace

KRNMessageHandler KRNSetMessageHandler(KRNMessageHandler handler) {
    return std::exchange(Handler(), std::move(handler));
}

void KRNMessageBox(const QString& text, QWidget* parent) {
    const QString caption = KRNFormat("%s", LoadResourceString(327).toUtf8().constData());
    if (const KRNMessageHandler& handler = Handler()) {
        handler(caption.toStdString(), text.toStdString());
        return;
    }
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    QMessageBox box(QMessageBox::Warning, caption, text, QMessageBox::Ok,
                    parent ? parent : QApplication::activeWindow());
    box.exec();
}

namespace {
QString Fallback(int id) {
    switch (id) {
    case 61713: return QStringLiteral("Please enter a number.");
    case 352: return QStringLiteral("Please enter a value not greater than %.2f.");
    case 353: return QStringLiteral("Please enter a value not above %.2f and not below %.2f.");
    case 351: return QStringLiteral("Please enter a value greater than %.2f.");
    default: return QString();
    }
}
}  // namespace

QString KRNResourceMessage(int id, std::initializer_list<double> numbers) {
    QString format = LoadResourceString(id);
    if (format.isEmpty()) format = Fallback(id);
    const QByteArray f = format.toUtf8();
    QString out;
    const double* next = numbers.begin();
    for (qsizetype i = 0; i < f.size(); ++i) {
        if (f[i] != '%') {
            qsizetype j = i;
            while (j < f.size() && f[j] != '%') ++j;
            out += QString::fromUtf8(f.constData() + i, j - i);
            i = j - 1;
            continue;
        }
        if (i + 1 < f.size() && f[i + 1] == '%') {
            out += QLatin1Char('%');
            ++i;
            continue;
        }
        // One conversion: flags, width, precision, an optional 'l', then f/g/e.
        qsizetype j = i + 1;
        while (j < f.size() && std::strchr("-+ #0123456789.", f[j])) ++j;
        if (j < f.size() && f[j] == 'l') ++j;
        if (j < f.size() && std::strchr("fgeFGE", f[j]) && next != numbers.end()) {
            const QByteArray spec = QByteArray("%") + f.mid(i + 1, j - i).replace("l", "");
            out += KRNFormat(spec.constData(), *next++);
            i = j;
        } else {
            out += QLatin1Char('%');
        }
    }
    return out;
}
