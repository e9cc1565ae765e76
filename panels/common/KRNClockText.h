#pragma once

// The clock line of the machine screens: "2024/3/7 9:5:2", no zero padding.

#include <QString>

#include <ctime>

class CKRNDialog;

// The screens' usual clock: year/month/day hour:minute:second.
inline constexpr const char* kKRNClockFormat = "%d/%d/%d %d:%d:%d";

// The order a clock's format takes the date in; the time is always hour,
// minute, second.
enum class KRNDateOrder { YearMonthDay, MonthDayYear };

// The text for a local time with `format` (six whole numbers: the date in
// `order`, then hour, minute, second); without one (the clock could not be
// read) the date parts read 0 and the time parts -1.
QString KRNClockText(const std::tm* localTime, const char* format = kKRNClockFormat,
                     KRNDateOrder order = KRNDateOrder::YearMonthDay);
// The text for now.
QString KRNClockTextNow(const char* format = kKRNClockFormat, KRNDateOrder order = KRNDateOrder::YearMonthDay);

// Where the clocks read the time: the system clock, or a fixed source that a
// test or a demonstration sets. Gives the source it replaces; null restores
// the system clock.
using KRNTimeSource = std::time_t (*)();
KRNTimeSource KRNSetTimeSource(KRNTimeSource source);
// The local time now, from the time source; false when it can't be read.
bool KRNLocalTimeNow(std::tm& local);

// A clock a page or frame shows in one of its controls, written anew from its
// message filter on every message (the screens have no timer for it).
struct KRNClock {
    int controlId = 0;  // 0: no clock
    const char* format = kKRNClockFormat;
    KRNDateOrder order = KRNDateOrder::YearMonthDay;

    void Refresh(CKRNDialog& dialog) const;
};
