#pragma once

// The one routine through which panels show messages: caption from string
// 327 of the resource module, exclamation icon, OK button. A host or test can
// take the messages instead (KRNSetMessageHandler).

#include <QString>

class QWidget;

void KRNMessageBox(const QString& text, QWidget* parent = nullptr);
