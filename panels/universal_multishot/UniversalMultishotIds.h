#pragma once

// Template, control and bitmap numbers of the Universal Multishot process
// screen in the resource module, and the colours the screen gives them.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

namespace UniversalMultishot {

// Templates.
constexpr int IDD_FRAME = 1070;
constexpr int IDD_PROCESS = 31177;

// Pages; the process page is the only one.
enum Page { kProcessPage = 0 };

// ---- frame ------------------------------------------------------------------------

constexpr int IDC_PAGE_AREA = 2013;    // placeholder, hidden under the page
constexpr int IDC_KEY_PROCESS = 1972;  // shows the process page

// ---- process page, stage 1 first --------------------------------------------------

constexpr int kSpeed[5] = {2029, 2031, 2033, 2035, 2037};     // mm/s
constexpr int kPosition[5] = {2015, 2032, 2034, 2036, 2038};  // mm; stage 1 sets the full stroke
constexpr int kHoldPressure[3] = {2096, 2100, 2104};          // MPa
constexpr int kHoldTime[3] = {2095, 2099, 2103};              // s
constexpr int IDC_VP_POSITION = 2011;                         // mm
constexpr int IDC_INJECTION_PRESSURE = 2013;                  // MPa, the pressure profile's first point
constexpr int IDC_STROKE_TIME = 2009;                         // s, calculated, disabled
constexpr int IDC_FULL_STROKE = 2030;                         // repeats the stage-1 position, disabled

// Speeds up to the screw's top speed and positions against the full stroke,
// both with the flow-rate tail (a stage ending at 100 % halved, the end
// flat). Hold pressures are shown against the packing pressure but limited
// by the injection pressure; hold times in seconds. Every field of a stage
// the profile has a point for shows it, so the closing point shows too.
// fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
constexpr KRNStageFields kProcessTable[] = {
    {kSpeed, MI_FP_PROFILE, KRNField::Speed, KRNMaxInjectionSpeed, KRNMaxInjectionSpeed, 1.0, KRNStages::TailRule, KRNStageFields::FromCount},
    {kPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::TailRule, KRNStageFields::FromCount},
    {kHoldPressure, MI_PP_PROFILE, KRNField::Pressure, KRNPackingPressure, KRNInjectionPressure, 1.0, KRNStages::EndFlat, KRNStageFields::FromCount},
    {kHoldTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, KRNStages::EndFlat, KRNStageFields::FromCount},
};

// Pictures, in the order the page loads them: the injection speed profile,
// the hold profile, the screw, the switch-over and the hold clock.
constexpr int kPictureStatics[5] = {2004, 2048, 2073, 2072, 2074};
constexpr int kPictures[5] = {1072, 1073, 1074, 1075, 1076};

// Values the record has none for, shown "---" and disabled: the cushion
// (2016), the hold speeds (2097, 2101, 2105) and the hold end pressure (2098).
constexpr int kUnfed[5] = {2016, 2097, 2101, 2105, 2098};

// Colours of the page (colour references 0x00BBGGRR): text on background. A
// control with both alike is a coloured bar; every edit shows pale text on
// black; everything else is black on black.
struct ColorGroup {
    unsigned text, background;
    std::initializer_list<int> ids;
};
inline const ColorGroup kColors[] = {
    {0xFFFFFF, 0, {1991, 2135}},
    {63217, 0, {1992}},
    {63217, 63217, {1993}},
    {14536983, 0, {1994, 1995, 1997, 1998, 1999, 2000, 2001, 2002, 2017, 2018, 2019, 2021, 2023, 2025, 2027, 2040, 2042, 2045, 2051}},
    {14536983, 14536983, {1996, 2003, 2020, 2022, 2024, 2026, 2028, 2041, 2043, 2046, 2052}},
    {12905711, 0, {2005, 2009, 2011, 2013, 2015, 2016, 2029, 2031, 2032, 2033, 2034, 2035, 2036, 2037, 2038, 2055,
                   2064, 2065, 2066, 2067, 2068, 2069, 2070, 2071, 2076, 2077, 2078, 2095, 2096, 2099, 2100, 2103, 2104}},
    {12905711, 12905711, {2006, 2056}},
    {4429377, 0, {2007, 2010, 2012, 2014, 2030, 2050, 2057, 2059, 2060, 2061, 2079, 2080, 2081, 2097, 2098, 2101,
                  2105, 2107, 2109, 2110, 2111, 2113, 2114, 2115, 2117, 2118, 2127, 2129, 2130, 2131, 2133, 2134, 2136}},
    {4429377, 4429377, {2008, 2054, 2058, 2108, 2112, 2116, 2128, 2132}},
    {12061619, 0, {2082, 2083, 2085, 2086, 2087, 2088, 2089, 2091, 2093}},
    {12061619, 12061619, {2084, 2090, 2092, 2094}},
};

}  // namespace UniversalMultishot
