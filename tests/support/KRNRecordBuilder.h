#pragma once

// Records for panel tests, written the way a process engineer reads them.

#include "KRNMachineData.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

using KRNPointList = std::vector<std::pair<double, double>>;

inline void KRNSetProfile(CKRNMachineData& r, KRNMACHINEITEM item, const KRNPointList& points) {
    while (r.GetProfileDataCount(item) > 0) r.RemoveProfileData(item, r.GetProfileDataCount(item) - 1);
    for (std::size_t i = 0; i < points.size(); ++i)
        r.SetMachineData(item, static_cast<int>(i), points[i].first, points[i].second);
}

inline KRNPointList KRNProfile(const CKRNMachineData& r, KRNMACHINEITEM item) {
    KRNPointList points;
    for (int i = 0; i < r.GetProfileDataCount(item); ++i) {
        double x = 0, y = 0;
        r.GetProfileData(item, i, x, y);
        points.emplace_back(x, y);
    }
    return points;
}

inline double KRNItem(const CKRNMachineData& r, KRNMACHINEITEM item) {
    double v = 0;
    r.GetMachineData(item, v);
    return v;
}

// A 40 mm screw at 200 cm3/s (top speed 159.16 mm/s) with 120 mm of stroke,
// 160 MPa injection and 80 MPa packing pressure, 6 s of packing.
inline CKRNMachineData KRN40mmRecord() {
    CKRNMachineData r;
    r.SetMachine(MC_SCREW_DIAMETER, 40.0);
    r.SetMachine(MC_MAX_INJECTION_RATE, 200.0);
    r.SetMachine(MC_SPEC_2, 180.0);
    r.SetMachineData(MI_MAX_RAM_POSITION, 120.0);
    r.SetMachineData(MI_VP_RAM_POSITION, 18.0);
    r.SetMachineData(MI_INJECTION_PRESSURE, 160.0);
    r.SetMachineData(MI_PACKING_PRESSURE, 80.0);
    r.SetMachineData(MI_PACKING_TIME, 6.0);
    r.SetMachineData(MI_COOLING_TIME, 15.0);
    r.SetMachineData(MI_MELT_TEMPERATURE, 260.0);
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {85, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}, {60, 85}, {15, 60}, {0, 60}});
    KRNSetProfile(r, MI_PP_PROFILE, {{100, 40}, {75, 50}, {25, 60}, {0, 60}});
    return r;
}

// The 40 mm record's top speed: 200 cm3/s through a 40 mm screw, with the
// screens' 3.14159 (159.155 mm/s).
inline double KRN40mmTopSpeed() { return 200.0 * 10.0 / (4.0 * 4.0 * 3.14159 * 0.25); }

// Every point of `got` within `tolerance` of `expected`, one failure a point.
void KRNExpectPoints(const KRNPointList& got, const KRNPointList& expected, double tolerance = 1e-9);

// True when no double of the record is NaN or infinite.
bool KRNAllFinite(const CKRNMachineData& r);

// The seconds the screw needs over the flow-rate profile, worked out afresh
// from the stroke-time rule (mode 1 skips stages of no flow), so that tests
// check the module against the rule rather than against itself. Unlike the
// record's own calculation it never repairs a screw diameter of 0.
double KRNExpectedStrokeTime(const CKRNMachineData& r, int mode);
