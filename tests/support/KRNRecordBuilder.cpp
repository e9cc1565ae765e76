#include "KRNRecordBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

bool KRNAllFinite(const CKRNMachineData& r) {
    for (int item = 0; item <= MI_INJECTION_VOLUME_3; ++item) {
        if (!std::isfinite(KRNItem(r, static_cast<KRNMACHINEITEM>(item)))) return false;
        for (const auto& [x, y] : KRNProfile(r, static_cast<KRNMACHINEITEM>(item)))
            if (!std::isfinite(x) || !std::isfinite(y)) return false;
    }
    for (int m = 0; m <= MC_SPEC_6; ++m)
        if (!std::isfinite(r.GetMachine(static_cast<KRNMACHINE>(m)))) return false;
    return true;
}

double KRNExpectedStrokeTime(const CKRNMachineData& r, int mode) {
    const double d = r.GetMachine(MC_SCREW_DIAMETER), rate = r.GetMachine(MC_MAX_INJECTION_RATE);
    const double stroke = KRNItem(r, MI_MAX_RAM_POSITION), area = d * 0.0007853975 * d;
    // Where the injected volume is delivered: the stroke less the volume's length of screw.
    const double volume = KRNItem(r, MI_INJECTION_VOLUME_1) + KRNItem(r, MI_INJECTION_VOLUME_2) +
                          KRNItem(r, MI_INJECTION_VOLUME_3);
    const double end = stroke > 0.0 ? std::max(0.0, stroke - volume * 1000.0 / (d * 0.7853975 * d)) : 0.0;
    const KRNPointList fp = KRNProfile(r, MI_FP_PROFILE);
    double total = 0.0;
    for (std::size_t i = 0; i + 1 < fp.size(); ++i) {
        const auto [x0, y0] = fp[i];
        const auto [x1, y1] = fp[i + 1];
        const double s0 = stroke * x0 * 0.01;
        double s1 = stroke * x1 * 0.01;
        if (mode == 1) {
            if (x1 != 0.0 && y1 == 0.0) s1 = 0.0;
            if (x0 != 0.0 && y0 == 0.0) continue;
        }
        double flow = rate * 0.01 * y0;
        if (flow < 0.001) flow = 0.01;
        const bool last = s0 > end && end > s1;
        if (last) s1 = end;
        total += std::fabs((s0 - s1) * area / flow);
        if (last) break;
    }
    return std::max(total, 0.1);
}

void KRNExpectPoints(const KRNPointList& got, const KRNPointList& expected, double tolerance) {
    ASSERT_EQ(got.size(), expected.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_NEAR(got[i].first, expected[i].first, tolerance) << "point " << i;
        EXPECT_NEAR(got[i].second, expected[i].second, tolerance) << "point " << i;
    }
}
