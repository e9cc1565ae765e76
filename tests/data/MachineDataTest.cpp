// The record as a host fills, copies and queries it.

#include "KRNMachineData.h"
#include "KRNRecordBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>
#include <string>

namespace {

const KRNMACHINEITEM kProfiles[] = {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE, MI_ICMF_PROFILE};

// Getters write into outputs that start at -1, so that one left alone shows.
double Read(const CKRNMachineData& r, int item) {
    double v = -1.0;
    r.GetMachineData(static_cast<KRNMACHINEITEM>(item), v);
    return v;
}

std::pair<double, double> At(const CKRNMachineData& r, KRNMACHINEITEM item, int i) {
    std::pair<double, double> p{-1, -1};
    r.GetProfileData(item, i, p.first, p.second);
    return p;
}

}  // namespace

// Unknown items first: nothing they do may show in the new record's values below.
TEST(MachineData, UnknownItemsAreIgnoredAndEachSetterReachesOnlyItsOwnItems) {
    CKRNMachineData r;
    for (int item : {-1, 28, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        const auto k = static_cast<KRNMACHINEITEM>(item);
        r.SetMachineData(k, 5.0);
        r.SetMachineData(k, 0, 1.0, 2.0);
        r.RemoveProfileData(k, 0);
        EXPECT_EQ(Read(r, item), 0.0);
        EXPECT_EQ(r.GetProfileDataCount(k), 0);
        double x = 3.0, y = 4.0;
        r.GetProfileData(k, 0, x, y);
        EXPECT_EQ(x + y, 7.0) << "outputs untouched";
        r.SetMachine(static_cast<KRNMACHINE>(item), 9.0);
        EXPECT_EQ(r.GetMachine(static_cast<KRNMACHINE>(item)), 0.0);
        std::string text = "kept";
        int value = 11;
        r.SetProcessInfo(static_cast<KRNPROCESSITEM>(item), std::string("lost"));
        r.SetProcessInfo(static_cast<KRNPROCESSITEM>(item), 3);
        r.GetProcessInfo(static_cast<KRNPROCESSITEM>(item), text);
        r.GetProcessInfo(static_cast<KRNPROCESSITEM>(item), value);
        EXPECT_EQ(text, "kept");
        EXPECT_EQ(value, 11);
    }
    for (int item = 0; item <= 30; ++item)
        EXPECT_EQ(Read(r, item), item == MI_VP_SWITCH_PERCENT ? 98.0 : 0.0) << "item " << item;
    for (int m = 0; m <= 7; ++m) EXPECT_EQ(r.GetMachine(static_cast<KRNMACHINE>(m)), 0.0);
    EXPECT_FALSE(r.IsReadOnly());
    EXPECT_EQ(r.GetCustomMode(), 0);
    EXPECT_EQ(r.GetPressureUnit(), 0);

    // Doubles sprayed over every item land on the double items, each keeping its own ...
    for (int item = 0; item <= 27; ++item) r.SetMachineData(static_cast<KRNMACHINEITEM>(item), 1000.0 + item);
    int ctrl = -1, other = -5;
    r.GetMachineData(MI_VP_SWITCH_CTRL, ctrl);
    EXPECT_EQ(ctrl, 0);
    EXPECT_FALSE(r.IsReadOnly());
    // ... and ints, bools and texts only on the switch-over control and read-only.
    for (int item = 0; item <= 40; ++item) {
        r.SetMachineData(static_cast<KRNMACHINEITEM>(item), 7);
        r.SetMachineData(static_cast<KRNMACHINEITEM>(item), true);
        r.SetMachineData(static_cast<KRNMACHINEITEM>(item), std::string("text"));
    }
    r.GetMachineData(MI_VP_SWITCH_CTRL, ctrl);
    r.GetMachineData(MI_FILLING_TIME, other);
    EXPECT_EQ(ctrl, 7);
    EXPECT_EQ(other, 0);
    EXPECT_TRUE(r.IsReadOnly());
    const std::set<int> notDoubles = {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE, MI_VP_SWITCH_CTRL, MI_READ_ONLY,
                                      MI_ICMF_PROFILE};
    for (int item = 0; item <= 27; ++item)
        EXPECT_EQ(Read(r, item), notDoubles.count(item) ? 0.0 : 1000.0 + item) << "item " << item;
    for (KRNMACHINEITEM p : kProfiles) EXPECT_EQ(r.GetProfileDataCount(p), 0);
}

TEST(MachineData, ProfilesAppendOverwriteAndRemoveInOrder) {
    for (KRNMACHINEITEM p : kProfiles) {
        CKRNMachineData r;
        r.SetMachineData(p, 0, 10.0, 50.0);
        r.SetMachineData(p, 0, 20.0, 60.0);
        EXPECT_EQ(r.GetProfileDataCount(p), 1);
        EXPECT_EQ(At(r, p, 0).second, 60.0);
        for (int i = 1; i < 100; ++i) r.SetMachineData(p, i, i, 2.0 * i);
        EXPECT_EQ(At(r, p, 99).second, 198.0);
        // Reading past either end yields (0, 0).
        EXPECT_EQ((KRNPointList{At(r, p, 100), At(r, p, -1)}), (KRNPointList{{0, 0}, {0, 0}}));
        // Far beyond the end: the point is appended once; a negative index changes nothing.
        r.SetMachineData(p, 5000, 1.0, 2.0);
        r.SetMachineData(p, -3, 1.0, 2.0);
        EXPECT_EQ(r.GetProfileDataCount(p), 101);
        EXPECT_EQ(At(r, p, 100).second, 2.0);
        // Removing outside the points changes nothing; inside, the rest close up.
        r.RemoveProfileData(p, -1);
        r.RemoveProfileData(p, 101);
        r.RemoveProfileData(p, 0);
        ASSERT_EQ(r.GetProfileDataCount(p), 100);
        EXPECT_EQ(At(r, p, 0).first, 1.0);
        EXPECT_EQ(At(r, p, 99).second, 2.0);
    }
}

TEST(MachineData, CopiesCarryEverythingAndShareNothing) {
    CKRNMachineData a;
    for (int m = 0; m <= 6; ++m) a.SetMachine(static_cast<KRNMACHINE>(m), 10.0 * (m + 1));
    a.SetMachineData(MI_FP_PROFILE, 0, 100.0, 50.0);
    a.SetProcessInfo(PI_PROCESS_NAME, std::string("original"));
    a.SetProcessInfo(PI_PROCESS_NAME, 4);  // an int for a text item: nothing
    a.SetProcessInfo(PI_MATERIAL_NAME, std::string("PA66 GF30"));
    a.SetProcessInfo(PI_PROCESS_VALUE, 5);
    a.SetLanguage("zh-TW");
    a.SetPressureUnit(2);
    a.SetCustomMode(static_cast<MACHINE_CUSTOM_MODE>(3));
    a.SetMachineData(MI_READ_ONLY, true);

    CKRNMachineData b(a);
    b.SetMachineData(MI_FP_PROFILE, 0, 1.0, 1.0);
    b.SetMachineData(MI_FP_PROFILE, 1, 0.0, 0.0);
    b.SetProcessInfo(PI_PROCESS_NAME, std::string("copy"));
    EXPECT_EQ(a.GetProfileDataCount(MI_FP_PROFILE), 1);

    CKRNMachineData c;
    c = a;
    c = c;  // harmless
    a.SetMachineData(MI_FP_PROFILE, 0, 7.0, 7.0);
    EXPECT_EQ(At(c, MI_FP_PROFILE, 0).first, 100.0);
    for (int m = 0; m <= 6; ++m) EXPECT_EQ(c.GetMachine(static_cast<KRNMACHINE>(m)), 10.0 * (m + 1));
    std::string name, material;
    int value = 0;
    c.GetProcessInfo(PI_PROCESS_NAME, name);
    c.GetProcessInfo(PI_MATERIAL_NAME, material);
    c.GetProcessInfo(PI_PROCESS_VALUE, value);
    EXPECT_EQ(name, "original");
    EXPECT_EQ(material, "PA66 GF30");
    EXPECT_EQ(value, 5);
    EXPECT_EQ(c.GetLanguage(), "zh-TW");
    EXPECT_EQ(c.GetPressureUnit(), 2);
    EXPECT_EQ(c.GetCustomMode(), 3);
    EXPECT_TRUE(c.IsReadOnly());
}

// The 40 mm record: a 40 mm screw at 200 cm3/s with 120 mm of stroke.
TEST(MachineData, StrokeTimeSumsEachStageAtItsRateUntilTheVolumeIsDelivered) {
    const double area = 40.0 * 0.0007853975 * 40.0;  // cm3 per mm of stroke
    // 60 mm at 100 cm3/s, then 60 mm at 200 cm3/s.
    const double whole = 60.0 * area / 100.0 + 60.0 * area / 200.0;
    // 90 cm3 ends the stroke at about 48.4 mm.
    const double end = 120.0 - 90.0 * 1000.0 / (40.0 * 0.7853975 * 40.0);
    const KRNPointList steps = {{100, 50}, {50, 100}, {0, 100}}, noFlow = {{100, 50}, {60, 0}, {30, 100}, {0, 100}};
    struct Case { const char* what; KRNPointList profile; std::array<double, 3> volumes; int mode; double seconds; };
    const Case cases[] = {
        {"whole stroke", steps, {}, 0, whole},
        {"mode 1, every stage with flow", steps, {}, 1, whole},
        {"three volumes", steps, {60, 20, 10}, 0, 60.0 * area / 100.0 + (60.0 - end) * area / 200.0},
        {"more volume than the stroke holds: it ends at zero", steps, {1.0e6, 0, 0}, 0, whole},
        // Mode 0: the 0 % stage runs at 0.01 cm3/s; mode 1 drops it and ends stage one at 0.
        {"stage of no flow, mode 0", noFlow, {}, 0, 48.0 * area / 100.0 + 36.0 * area / 0.01 + 36.0 * area / 200.0},
        {"stage of no flow, mode 1", noFlow, {}, 1, 120.0 * area / 100.0 + 36.0 * area / 200.0},
        // Never below a tenth of a second.
        {"no point", {}, {}, 0, 0.1},
        {"one point", {{100, 50}}, {}, 1, 0.1},
        {"0.12 mm in a blink", {{100, 100}, {99.9, 100}}, {}, 0, 0.1},
    };
    for (const Case& c : cases) {
        CKRNMachineData r = KRN40mmRecord();
        KRNSetProfile(r, MI_FP_PROFILE, c.profile);
        for (int i = 0; i < 3; ++i) r.SetMachineData(static_cast<KRNMACHINEITEM>(MI_INJECTION_VOLUME_1 + i), c.volumes[i]);
        EXPECT_NEAR(r.CalcStrokeTime(c.mode), c.seconds, 1e-13 * std::max(1.0, c.seconds)) << c.what;
    }
    EXPECT_EQ(CKRNMachineData().CalcStrokeTime(0), 0.1);
}

TEST(MachineData, StrokeTimeRepairsTheDiameterAndTakesNonFiniteInput) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}, {0, 50}});
    // No diameter (zero, negative, NaN) is repaired to 1 mm: a 1 mm screw moves next to nothing.
    for (double bad : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        r.SetMachine(MC_SCREW_DIAMETER, bad);
        const double t = r.CalcStrokeTime(0);
        if (!std::isnan(bad)) {
            EXPECT_EQ(t, 0.1) << bad;
        }
        EXPECT_EQ(r.GetMachine(MC_SCREW_DIAMETER), 1.0) << bad;
    }
    // Non-finite input never crashes.
    KRNSetProfile(r, MI_FP_PROFILE, {{100, std::numeric_limits<double>::quiet_NaN()}, {0, 100}});
    r.SetMachineData(MI_MAX_RAM_POSITION, std::numeric_limits<double>::infinity());
    (void)r.CalcStrokeTime(0);
    (void)r.CalcStrokeTime(1);
}
