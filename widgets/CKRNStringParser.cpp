#include "CKRNStringParser.h"

#include "KRNNumberText.h"

#include <cmath>
#include <cstring>

namespace {
const char* SkipBlanks(const char* p) {
    while (*p == ' ' || *p == '\t') ++p;
    return p;
}

// strtod also reads "nan", "inf" and hexadecimal numbers; a machine field takes
// none of them, so that no edit can ever write a non-finite value.
bool IsDecimal(const char* begin, const char* end, double value) {
    for (const char* p = begin; p != end; ++p)
        if (!std::strchr("0123456789+-.eE", *p)) return false;
    return std::isfinite(value);
}
}  // namespace

bool CKRNStringParser::IsNumber(const char* text) const {
    if (!text) return false;
    const char* start = SkipBlanks(text);
    const char* end = nullptr;
    const double value = KRNStrtod(start, &end);
    if (value == 0.0 && *start != '0') return false;
    if (!IsDecimal(start, end, value)) return false;
    return *SkipBlanks(end) == '\0';
}

bool CKRNStringParser::IsWholeNumber(const char* text, double& value) const {
    if (!IsNumber(text)) return false;
    const double read = KRNAtof(text);
    if (read != std::trunc(read)) return false;
    value = read;
    return true;
}
