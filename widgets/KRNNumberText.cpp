#include "KRNNumberText.h"

#include <cerrno>
#include <cmath>
#include <climits>
#include <clocale>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#if defined(__unix__) || defined(__APPLE__)
#include <locale.h>
#if defined(__APPLE__)
#include <xlocale.h>
#endif
#define KRN_HAVE_USELOCALE 1
#endif

namespace {

#if KRN_HAVE_USELOCALE
// Switches this thread to the "C" rules for one call.
class ClassicLocale {
public:
    ClassicLocale() : m_previous(uselocale(Classic())) {}
    ~ClassicLocale() { uselocale(m_previous); }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;

private:
    static locale_t Classic() {
        static locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
        return c;
    }
    locale_t m_previous;
};
#else
class ClassicLocale {};
#endif

}  // namespace

QString KRNFormat(const char* format, ...) {
    ClassicLocale classic;
    char buffer[256];
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int n = std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    QString result;
    if (n < 0) {
        result = QString();
    } else if (static_cast<std::size_t>(n) < sizeof buffer) {
        result = QString::fromUtf8(buffer, n);
    } else {
        std::vector<char> big(static_cast<std::size_t>(n) + 1);
        std::vsnprintf(big.data(), big.size(), format, again);
        result = QString::fromUtf8(big.data(), n);
    }
    va_end(again);
    return result;
}

namespace {
// The end of the decimal number at the start of `p` (sign, digits, a full
// stop, an exponent), or `p` when there is none. strtod would also read
// "nan", "inf" and hexadecimal numbers, which no machine field shows.
const char* DecimalEnd(const char* p) {
    const char* q = p;
    if (*q == '+' || *q == '-') ++q;
    const char* digits = q;
    while (*q >= '0' && *q <= '9') ++q;
    bool any = q != digits;
    if (*q == '.') {
        const char* fraction = ++q;
        while (*q >= '0' && *q <= '9') ++q;
        any = any || q != fraction;
    }
    if (!any) return p;
    if (*q == 'e' || *q == 'E') {
        const char* e = q + 1;
        if (*e == '+' || *e == '-') ++e;
        if (*e >= '0' && *e <= '9') {
            while (*e >= '0' && *e <= '9') ++e;
            q = e;
        }
    }
    return q;
}
}  // namespace

double KRNStrtod(const char* text, const char** end) {
    if (end) *end = text;
    if (!text) return 0.0;
    const char* start = text;
    while (*start == ' ' || (*start >= '\t' && *start <= '\r')) ++start;
    const char* stop = DecimalEnd(start);
    if (stop == start) return 0.0;
    const std::string number(start, stop);
    ClassicLocale classic;
    const double value = std::strtod(number.c_str(), nullptr);
    if (end) *end = stop;
    return value;
}

double KRNAtof(const char* text) {
    const double value = KRNStrtod(text, nullptr);
    return std::isfinite(value) ? value : 0.0;
}

double KRNAtof(const QString& text) { return KRNAtof(text.toUtf8().constData()); }

int KRNAtoi(const char* text) {
    const double value = std::trunc(KRNAtof(text));
    if (value >= static_cast<double>(INT_MAX)) return INT_MAX;
    if (value <= static_cast<double>(INT_MIN)) return INT_MIN;
    return static_cast<int>(value);
}

int KRNAtoi(const QString& text) { return KRNAtoi(text.toUtf8().constData()); }

QString KRNFormatValue(const char* format, double value) {
    if (!std::isfinite(value)) return QStringLiteral("---");
    return KRNFormat(format, value);
}

QString FormatNumber(double value) { return KRNFormatValue("%lg", value); }
