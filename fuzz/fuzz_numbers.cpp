// The number readers of the machine screens under any text a field can hold.
// What the panels rely on:
// - no reader crashes or reads beyond the text;
// - KRNStrtod reads decimal numbers only (no "nan", "inf" or "0x10"), and
//   KRNAtof gives its value, or 0 when that is no finite number;
// - KRNAtoi is KRNAtof's value without its fraction, held at the int limits;
// - a text the number test accepts reads as a finite number over the whole
//   text, and its whole-number test agrees with KRNAtof;
// - what a field shows of a finite value reads back: exactly with "%.17g",
//   within the rounding of "%6.2f" and "%lg"; a value that is no number shows
//   "---", which is no number to the test.
// What KRNAtof makes of a text the number test refuses is left open.

#include "CKRNStringParser.h"
#include "KRNNumberText.h"

#include <QString>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace {

std::string Printable(const std::string& text) {
    std::string out;
    for (unsigned char c : text) {
        if (c >= 0x20 && c < 0x7f && c != '\\' && c != '"') {
            out += static_cast<char>(c);
        } else {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", c);
            out += escaped;
        }
    }
    return out;
}

[[noreturn]] void Fail(const char* what, const std::string& text, double got, double expected) {
    std::fprintf(stderr, "\n%s\n  text: \"%s\"\n  got %.17g, expected %.17g\n", what, Printable(text).c_str(), got,
                 expected);
    std::abort();
}

// The distance to the next double away from zero: the reading error of a
// decimal text that lies on `v`.
double Ulp(double v) {
    const double a = std::fabs(v);
    return std::nextafter(a, std::numeric_limits<double>::infinity()) - a;
}

int HeldAtIntLimits(double whole) {
    if (whole >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (whole <= static_cast<double>(INT_MIN)) return INT_MIN;
    return static_cast<int>(whole);
}

const CKRNStringParser kParser;

// What the screens show of `v`, read back.
void ShownAndReadBack(double v) {
    if (!std::isfinite(v)) {
        const QByteArray shown = KRNFormatValue("%6.2f", v).toUtf8();
        if (shown != "---") Fail("a value that is no number is not shown as ---", shown.toStdString(), v, 0);
        if (kParser.IsNumber(shown.constData())) Fail("--- passes the number test", shown.toStdString(), v, 0);
        return;
    }
    const QByteArray exact = KRNFormat("%.17g", v).toUtf8();
    if (KRNAtof(exact.constData()) != v) Fail("\"%.17g\" does not read back", exact.toStdString(), KRNAtof(exact.constData()), v);
    if (v != 0 && !kParser.IsNumber(exact.constData()))
        Fail("\"%.17g\" of a number fails the number test", exact.toStdString(), v, v);

    const QByteArray fixed = KRNFormatValue("%6.2f", v).toUtf8();
    if (fixed != KRNFormat("%6.2f", v).toUtf8()) Fail("KRNFormatValue differs from KRNFormat", fixed.toStdString(), v, v);
    const double fixedBack = KRNAtof(fixed.constData());
    if (!(std::fabs(fixedBack - v) <= 0.005 + 2 * Ulp(v))) Fail("\"%6.2f\" does not read back", fixed.toStdString(), fixedBack, v);
    // A field shows no number it would refuse once the user leaves it.
    if (fixedBack != 0 && !kParser.IsNumber(fixed.constData()))
        Fail("a field's own \"%6.2f\" fails the number test", fixed.toStdString(), fixedBack, v);

    const QByteArray general = FormatNumber(v).toUtf8();
    const double generalBack = KRNAtof(general.constData());
    if (!(std::fabs(generalBack - v) <= std::fabs(v) * 5.000001e-6 + Ulp(v)))
        Fail("\"%lg\" does not read back", general.toStdString(), generalBack, v);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const char* text = input.c_str();  // a field's text ends at its first NUL
    const std::size_t length = std::strlen(text);
    const std::string field(text, length);

    const char* end = nullptr;
    const double read = KRNStrtod(text, &end);
    if (end < text || end > text + length) Fail("KRNStrtod ends outside the text", field, read, 0);
    if (end == text && read != 0) Fail("KRNStrtod read a number but did not move", field, read, 0);
    for (const char* p = text; p != end; ++p)
        if (!std::strchr(" \t\n\v\f\r0123456789+-.eE", *p)) Fail("KRNStrtod read more than a decimal number", field, read, 0);

    const double value = KRNAtof(text);
    if (!std::isfinite(value)) Fail("KRNAtof gave no finite number", field, value, 0);
    if (value != (std::isfinite(read) ? read : 0.0)) Fail("KRNAtof differs from KRNStrtod", field, value, read);
    const int whole = KRNAtoi(text);
    if (whole != HeldAtIntLimits(std::trunc(value))) Fail("KRNAtoi differs from KRNAtof", field, whole, value);

    const QString shown = QString::fromUtf8(text);
    if (KRNAtof(shown) != value) Fail("KRNAtof reads a QString otherwise", field, KRNAtof(shown), value);
    if (KRNAtoi(shown) != whole) Fail("KRNAtoi reads a QString otherwise", field, KRNAtoi(shown), whole);

    double counted = 0;
    const bool isWhole = kParser.IsWholeNumber(text, counted);
    if (kParser.IsNumber(text)) {
        if (!std::isfinite(read)) Fail("a text that passes the number test reads as no finite number", field, read, 0);
        if (*end && std::strspn(end, " \t") != std::strlen(end))
            Fail("a text that passes the number test is read only in part", field, read, 0);
        if (isWhole != (value == std::trunc(value)))
            Fail("the whole-number test disagrees with KRNAtof", field, value, std::trunc(value));
        ShownAndReadBack(value);
    } else if (isWhole) {
        Fail("a whole number that is no number", field, counted, 0);
    }
    if (isWhole) {
        if (counted != value) Fail("the whole-number test reads another value than KRNAtof", field, counted, value);
        if (whole != HeldAtIntLimits(counted)) Fail("KRNAtoi differs from the whole-number test", field, whole, counted);
    }

    ShownAndReadBack(read);
    if (size >= sizeof(double)) {
        double bits = 0;
        std::memcpy(&bits, data, sizeof bits);
        ShownAndReadBack(bits);
    }
    return 0;
}
