#include "KRNClockText.h"

#include "CKRNDialog.h"

#include "KRNNumberText.h"

namespace {
// The formats are the panels' own constants, each six whole numbers.
QString SixNumbers(const char* format, int a, int b, int c, int d, int e, int f) {
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif
    return KRNFormat(format, a, b, c, d, e, f);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
}
}  // namespace

QString KRNClockText(const std::tm* t, const char* format, KRNDateOrder order) {
    if (!t) return SixNumbers(format, 0, 0, 0, -1, -1, -1);
    const int year = t->tm_year + 1900, month = t->tm_mon + 1;
    if (order == KRNDateOrder::MonthDayYear)
        return SixNumbers(format, month, t->tm_mday, year, t->tm_hour, t->tm_min, t->tm_sec);
    return SixNumbers(format, year, month, t->tm_mday, t->tm_hour, t->tm_min, t->tm_sec);
}

void KRNClock::Refresh(CKRNDialog& dialog) const {
    if (!controlId) return;
    const QString now = KRNClockTextNow(format, order);
    if (dialog.GetDlgItemText(controlId) != now) dialog.SetDlgItemText(controlId, now);
}

namespace {
KRNTimeSource g_TimeSource = nullptr;
}  // namespace

KRNTimeSource KRNSetTimeSource(KRNTimeSource source) {
    const KRNTimeSource previous = g_TimeSource;
    g_TimeSource = source;
    return previous;
}

bool KRNLocalTimeNow(std::tm& local) {
    const std::time_t now = g_TimeSource ? g_TimeSource() : std::time(nullptr);
    if (now == static_cast<std::time_t>(-1)) return false;
#if defined(_WIN32)
    return localtime_s(&local, &now) == 0;
#else
    return localtime_r(&now, &local) != nullptr;
#endif
}

QString KRNClockTextNow(const char* format, KRNDateOrder order) {
    std::tm local{};
    const bool ok = KRNLocalTimeNow(local);
    return KRNClockText(ok ? &local : nullptr, format, order);
}
