#pragma once

// The clock line of the machine screens: "2024/3/7 9:5:2", no zero padding.

#include <QString>

#include <ctime>

// The text for a local time; without one (the clock could not be read) the
// date parts read 0 and the time parts -1.
QString KRNClockText(const std::tm* localTime);
// The text for now.
QString KRNClockTextNow();
