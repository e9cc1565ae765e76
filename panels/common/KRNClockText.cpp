#include "KRNClockText.h"

#include "KRNNumberText.h"

QString KRNClockText(const std::tm* t) {
    if (!t) return KRNFormat("%d/%d/%d %d:%d:%d", 0, 0, 0, -1, -1, -1);
    return KRNFormat("%d/%d/%d %d:%d:%d", t->tm_year + 1900, t->tm_mon + 1, t->tm_mday, t->tm_hour, t->tm_min,
                     t->tm_sec);
}

QString KRNClockTextNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#if defined(_WIN32)
    const bool ok = now != static_cast<std::time_t>(-1) && localtime_s(&local, &now) == 0;
#else
    const bool ok = now != static_cast<std::time_t>(-1) && localtime_r(&now, &local) != nullptr;
#endif
    return KRNClockText(ok ? &local : nullptr);
}
