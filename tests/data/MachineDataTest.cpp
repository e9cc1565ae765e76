// The record as a host fills, copies and queries it.

#include "KRNMachineData.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

const KRNMACHINEITEM kProfiles[] = {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE, MI_ICMF_PROFILE};

bool HoldsDouble(int item) {
    return item != MI_FP_PROFILE && item != MI_P_PROFILE && item != MI_PP_PROFILE && item != MI_ICMF_PROFILE &&
           item != MI_VP_SWITCH_CTRL && item != MI_READ_ONLY && item <= 27;
}

double Read(const CKRNMachineData& r, int item) {
    double v = -1.0;
    r.GetMachineData(static_cast<KRNMACHINEITEM>(item), v);
    return v;
}

struct Point {
    double x, y;
};
Point At(const CKRNMachineData& r, KRNMACHINEITEM item, int i) {
    Point p{-1, -1};
    r.GetProfileData(item, i, p.x, p.y);
    return p;
}

}  // namespace

TEST(MachineData, NewRecordIsZeroAndEachSetterReachesOnlyItsOwnItems) {
    CKRNMachineData r;
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
    for (int item = 0; item <= 27; ++item)
        EXPECT_EQ(Read(r, item), HoldsDouble(item) ? 1000.0 + item : 0.0) << "item " << item;
    for (KRNMACHINEITEM p : kProfiles) EXPECT_EQ(r.GetProfileDataCount(p), 0);
}

TEST(MachineData, UnknownItemsAreIgnoredAndReadAsZero) {
    CKRNMachineData r;
    const int unknown[] = {-1, 28, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    for (int item : unknown) {
        const auto k = static_cast<KRNMACHINEITEM>(item);
        r.SetMachineData(k, 5.0);
        r.SetMachineData(k, 0, 1.0, 2.0);
        r.RemoveProfileData(k, 0);
        EXPECT_EQ(Read(r, item), 0.0);
        EXPECT_EQ(r.GetProfileDataCount(k), 0);
        double x = 3.0, y = 4.0;
        std::string text = "kept";
        int value = 11;
        r.GetProfileData(k, 0, x, y);
        EXPECT_EQ(x + y, 7.0) << "outputs untouched";
        r.SetMachine(static_cast<KRNMACHINE>(item), 9.0);
        EXPECT_EQ(r.GetMachine(static_cast<KRNMACHINE>(item)), 0.0);
        r.SetProcessInfo(static_cast<KRNPROCESSITEM>(item), std::string("lost"));
        r.SetProcessInfo(static_cast<KRNPROCESSITEM>(item), 3);
        r.GetProcessInfo(static_cast<KRNPROCESSITEM>(item), text);
        r.GetProcessInfo(static_cast<KRNPROCESSITEM>(item), value);
        EXPECT_EQ(text, "kept");
        EXPECT_EQ(value, 11);
    }
    EXPECT_EQ(Read(r, MI_VP_SWITCH_PERCENT), 98.0);
}

TEST(MachineData, ProfilesAppendOverwriteAndRemoveInOrder) {
    for (KRNMACHINEITEM p : kProfiles) {
        CKRNMachineData r;
        r.SetMachineData(p, 0, 10.0, 50.0);
        r.SetMachineData(p, 0, 20.0, 60.0);
        EXPECT_EQ(r.GetProfileDataCount(p), 1);
        EXPECT_EQ(At(r, p, 0).y, 60.0);
        for (int i = 1; i < 100; ++i) r.SetMachineData(p, i, i, 2.0 * i);
        EXPECT_EQ(At(r, p, 99).y, 198.0);
        // Reading past either end yields (0, 0).
        EXPECT_EQ(At(r, p, 100).x + At(r, p, 100).y + At(r, p, -1).x, 0.0);
        // Far beyond the end: the point is appended once; a negative index changes nothing.
        r.SetMachineData(p, 5000, 1.0, 2.0);
        r.SetMachineData(p, -3, 1.0, 2.0);
        EXPECT_EQ(r.GetProfileDataCount(p), 101);
        EXPECT_EQ(At(r, p, 100).y, 2.0);
        // Removing outside the points changes nothing; inside, the rest close up.
        r.RemoveProfileData(p, -1);
        r.RemoveProfileData(p, 101);
        r.RemoveProfileData(p, 0);
        ASSERT_EQ(r.GetProfileDataCount(p), 100);
        EXPECT_EQ(At(r, p, 0).x, 1.0);
        EXPECT_EQ(At(r, p, 99).y, 2.0);
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
    EXPECT_EQ(At(c, MI_FP_PROFILE, 0).x, 100.0);
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

// 40 mm screw, 200 cm3/s, 120 mm stroke.
class StrokeTime : public ::testing::Test {
protected:
    void SetUp() override {
        r.SetMachine(MC_SCREW_DIAMETER, 40.0);
        r.SetMachine(MC_MAX_INJECTION_RATE, 200.0);
        r.SetMachineData(MI_MAX_RAM_POSITION, 120.0);
    }
    void Profile(std::initializer_list<Point> points) {
        int i = 0;
        for (Point p : points) r.SetMachineData(MI_FP_PROFILE, i++, p.x, p.y);
    }
    CKRNMachineData r;
    const double area = 40.0 * 0.0007853975 * 40.0;  // cm3 per mm of stroke
};

TEST_F(StrokeTime, SumsEachStageAtItsRateUntilTheVolumeIsDelivered) {
    Profile({{100, 50}, {50, 100}, {0, 100}});
    // 60 mm at 100 cm3/s, then 60 mm at 200 cm3/s.
    const double whole = 60.0 * area / 100.0 + 60.0 * area / 200.0;
    EXPECT_NEAR(r.CalcStrokeTime(0), whole, 1e-12);
    EXPECT_NEAR(r.CalcStrokeTime(1), whole, 1e-12);
    // 90 cm3 in three volumes ends the stroke at about 48.4 mm.
    r.SetMachineData(MI_INJECTION_VOLUME_1, 60.0);
    r.SetMachineData(MI_INJECTION_VOLUME_2, 20.0);
    r.SetMachineData(MI_INJECTION_VOLUME_3, 10.0);
    const double end = 120.0 - 90.0 * 1000.0 / (40.0 * 0.7853975 * 40.0);
    EXPECT_NEAR(r.CalcStrokeTime(0), 60.0 * area / 100.0 + (60.0 - end) * area / 200.0, 1e-12);
    // More volume than the stroke holds: it ends at zero.
    r.SetMachineData(MI_INJECTION_VOLUME_1, 1.0e6);
    EXPECT_NEAR(r.CalcStrokeTime(0), whole, 1e-12);
}

TEST_F(StrokeTime, ModeOneSkipsStagesWithoutFlow) {
    Profile({{100, 50}, {60, 0}, {30, 100}, {0, 100}});
    // Mode 0: the 0 % stage runs at 0.01 cm3/s; mode 1 drops it and ends stage one at 0.
    const double mode0 = 48.0 * area / 100.0 + 36.0 * area / 0.01 + 36.0 * area / 200.0;
    const double mode1 = 120.0 * area / 100.0 + 36.0 * area / 200.0;
    EXPECT_NEAR(r.CalcStrokeTime(0), mode0, 1e-9);
    EXPECT_NEAR(r.CalcStrokeTime(1), mode1, 1e-12);
}

TEST_F(StrokeTime, NeverBelowATenthOfASecondAndRepairsTheDiameter) {
    CKRNMachineData empty;
    EXPECT_EQ(empty.CalcStrokeTime(0), 0.1);
    Profile({{100, 50}});
    EXPECT_EQ(r.CalcStrokeTime(1), 0.1);  // one point
    Profile({{100, 100}, {99.9, 100}});
    EXPECT_EQ(r.CalcStrokeTime(0), 0.1);  // 0.12 mm in a blink

    // No diameter (zero, negative, NaN) is repaired to 1 mm: a 1 mm screw moves next to nothing.
    Profile({{100, 50}, {0, 50}});
    for (double bad : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        r.SetMachine(MC_SCREW_DIAMETER, bad);
        const double t = r.CalcStrokeTime(0);
        if (!std::isnan(bad)) {
            EXPECT_EQ(t, 0.1) << bad;
        }
        EXPECT_EQ(r.GetMachine(MC_SCREW_DIAMETER), 1.0) << bad;
    }
    // Non-finite input never crashes.
    Profile({{100, std::numeric_limits<double>::quiet_NaN()}, {0, 100}});
    r.SetMachineData(MI_MAX_RAM_POSITION, std::numeric_limits<double>::infinity());
    (void)r.CalcStrokeTime(0);
    (void)r.CalcStrokeTime(1);
}
