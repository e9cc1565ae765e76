#include "KRNMessageBox.h"

#include "KRNPanelMessages.h"
#include "KRNNumberText.h"
#include "KRNResources.h"

#include <QApplication>
#include <QMessageBox>

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
