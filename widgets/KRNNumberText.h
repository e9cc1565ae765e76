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

// strtod with the "C" rules; *end (when given) points past the number read.
double KRNStrtod(const char* text, const char** end);
// atof semantics: the leading number, 0.0 when there is none. "nan", "inf"
// and overflowing numbers read as 0.0 too: a field never yields a value that
// could corrupt a record.
double KRNAtof(const char* text);
double KRNAtof(const QString& text);
// atoi semantics: the leading whole number, 0 when there is none; out-of-range
// values are held at the int limits.
int KRNAtoi(const char* text);
int KRNAtoi(const QString& text);

// A value with "%lg".
QString FormatNumber(double value);
