#pragma once

// What a machine screen accepts in a field, by the kind of value it holds.
//
// The panels keep each controller's own limits and messages (a speed up to
// the full-scale speed, a position up to the stroke limit); beyond them, no
// machine takes a value outside these ranges, so a field refuses it with
// message 353 (the upper, then the lower bound) and shows its stored value
// again. The bounds are the widest any of the controllers' screens shows in
// its fields ("%6.2f": four whole digits), in the units the field shows.

enum class KRNField {
    Count,        // stages of a profile: one stage at least, two digits
    Time,         // s: injection, hold, cooling, stage times
    Position,     // mm: screw positions, V/P switch, suck-back
    Speed,        // mm/s
    Pressure,     // MPa or bar, as the screen shows it
    Temperature,  // °C: a chilled mould may run below 0
    Force,        // kN: compression and clamp forces
    Percent,      // % of a full scale
};

struct KRNFieldRange {
    double lower;
    double upper;
};

constexpr KRNFieldRange KRNRangeOf(KRNField kind) {
    switch (kind) {
    case KRNField::Count: return {1.0, 99.0};
    case KRNField::Time: return {0.0, 9999.0};
    case KRNField::Position: return {0.0, 9999.0};
    case KRNField::Speed: return {0.0, 9999.0};
    case KRNField::Pressure: return {0.0, 9999.0};
    case KRNField::Temperature: return {-100.0, 999.0};
    case KRNField::Force: return {0.0, 99999.0};
    case KRNField::Percent: return {0.0, 100.0};
    }
    return {0.0, 0.0};
}
