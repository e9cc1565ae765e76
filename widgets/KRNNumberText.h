#pragma once

// Numbers as the machine screens write and read them: always with a full
// stop, whatever locale the desktop (and so the process) runs in. Every
// "%6.2f", "%lg" and "%d" of a panel and every atof/atoi/strtod goes here.

#include <QString>

#include <string>

// printf-style formatting with the classic "C" rules.
QString KRNFormat(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;

// strtod with the "C" rules, reading decimal numbers only (sign, digits, full
// stop, exponent): "nan", "inf" and "0x10" read no number, as on the screens.
// *end (when given) points past the number read, or at `text` when there is
// none. An overflowing number reads as infinity here; the readers below
// never give one.
double KRNStrtod(const char* text, const char** end);
// atof semantics on that reading: the leading number, 0.0 when there is none.
// Overflowing numbers read as 0.0 too: a field never yields a value that could
// corrupt a record.
double KRNAtof(const char* text);
double KRNAtof(const QString& text);
// atoi semantics on the same reading: KRNAtof's value without its fraction,
// held at the int limits ("1e3" is 1000, "2.5" is 2, "1e400" is 0).
int KRNAtoi(const char* text);
int KRNAtoi(const QString& text);

// A value shown in a field: `format` ("%6.2f", "%lg", ...) with one double.
// A value that is no number or infinite (a full scale of 0 behind it) shows
// "---", the screens' sign for a value the record does not feed.
QString KRNFormatValue(const char* format, double value);
// A value with "%lg" ("---" when it is not finite).
QString FormatNumber(double value);
