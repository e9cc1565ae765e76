#pragma once

// The one routine through which panels show messages: caption from string
// 327 of the resource module, exclamation icon, OK button. A host or test can
// take the messages instead (KRNSetMessageHandler).

#include <QString>

class QWidget;

void KRNMessageBox(const QString& text, QWidget* parent = nullptr);

#include <initializer_list>

// The text of resource string `id` used as a printf format for `numbers`
// (352: one limit; 353: upper, then lower limit), with a full stop whatever
// the locale. Only number conversions are filled in, so a damaged string
// cannot take the panel down; a string missing from the module reads as the
// module's usual English text.
QString KRNResourceMessage(int id, std::initializer_list<double> numbers = {});
