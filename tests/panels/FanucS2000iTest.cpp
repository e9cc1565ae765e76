// The Fanuc S2000i panel as a process engineer uses it, and as a host embeds it.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "fanuc_s2000i/CMACHINE_FANUC_S2000I_DLG.h"

#include <QApplication>

#include <gtest/gtest.h>

using namespace KRNTest;

namespace {

using Fanuc = CMACHINE_FANUC_S2000I_DLG;

// Soft keys and fields of the screens.
constexpr int kKeyPacking = 1747, kKeyMenu = 1829;
constexpr int kToCooling = 1213;  // from the packing page
constexpr int kSpeed[5] = {1123, 1124, 1208, 1219, 1221};
constexpr int kPosition[4] = {1128, 1222, 1223, 1233};
constexpr int kHoldPressure[3] = {1139, 1225, 1228};
constexpr int kHoldTime[3] = {1143, 1226, 1229};
constexpr int kSpeedStages = 1125, kHoldStages = 1140, kPressureLimit = 1195;

}  // namespace

// Short profiles are padded on screen, long ones show their first stages;
// neither Enter nor Escape closes the panel, and OK without edits gives the
// record back as it came.
TEST(FanucS2000i, ProfilesShowTheirFirstStagesAndOkWithoutEditsKeepsThem) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}, {0, 50}});
    OpenPanel<Fanuc>(r, [] {
        EXPECT_FALSE(Text(1138).empty());  // the menu's first key is on show
        Click(kKeyPacking);
        EXPECT_EQ(Text(kSpeedStages), "5");  // short profiles are padded
        EXPECT_EQ(Text(kSpeed[0]), "79.58");  // 50 % of 159.16 mm/s
        EXPECT_EQ(Text(kSpeed[1]), "0.00");
        EXPECT_EQ(Text(kPosition[0]), "120.00");
        OK();
    });
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 10}, {90, 20}, {80, 30}, {70, 40}, {60, 50}, {50, 60}, {0, 60}});
    Session s = OpenPanel<Fanuc>(r, [] {
        Click(kKeyPacking);
        EXPECT_EQ(Text(kSpeedStages), "6");
        EXPECT_EQ(Text(kSpeed[4]), "79.58");
        EXPECT_EQ(Text(kPosition[3]), "84.00");
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        EXPECT_NE(KRNDriver::TopDialog(), nullptr);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);
}

// Refused entries leave field and record as they were (a speed is refused at
// the keystroke that crosses the full scale); plain fields store what is
// typed, within reason.
TEST(FanucS2000i, ValuesNoMachineTakesNeverReachTheRecord) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenPanel<Fanuc>(r, [] {
        Click(kKeyPacking);
        Keys(kSpeed[1], "200");
        EXPECT_EQ(Text(kSpeed[1]), "20.00");  // the last accepted value is back
        for (const char* text : {"abc", "nan", "1e999", "1e300", "-5"}) {
            Type(kSpeed[0], text);
            EXPECT_EQ(Text(kSpeed[0]), "63.66") << text;
        }
        Type(kHoldTime[0], "-1");
        EXPECT_EQ(Text(kHoldTime[0]), "1.50");  // 25 % of 6 s
        Type(kHoldTime[1], "1e308");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        Type(kPosition[1], "1e308");
        Type(kPressureLimit, "-1e308");
        Type(1134, "1e308");  // V/P position
        Click(kKeyMenu);
        Click(1140);  // temperature page
        Type(1309, "-1e308");  // melt temperature
        OK();
    });
    ASSERT_EQ(s.messages.size(), 12u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 159.16.");
    EXPECT_EQ(s.messages[1], "Please enter a number.");
    EXPECT_EQ(s.messages[4], s.messages[0]);
    // Times run up to 9999 s, not below 0.
    EXPECT_EQ(s.messages[6], "Please enter a value not above 9999.00 and not below 0.00.");
    EXPECT_EQ(s.messages[7], s.messages[6]);
    EXPECT_TRUE(KRNAllFinite(s.record));
    for (KRNMACHINEITEM item : {MI_INJECTION_PRESSURE, MI_VP_RAM_POSITION, MI_MELT_TEMPERATURE, MI_PACKING_TIME})
        EXPECT_EQ(KRNItem(s.record, item), KRNItem(r, item)) << item;
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
    KRNPointList fp = KRNProfile(r, MI_FP_PROFILE);
    fp[1].second = 20.0 / KRN40mmTopSpeed() * 100.0;
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), fp);
}

// Counts outside 1..99 are refused with the count kept; half-typed texts are
// an entry in progress; a middle hold stage without time is dropped.
TEST(FanucS2000i, StageCountsGrowAndShrinkTheProfilesWithinOneTo99) {
    Session s = OpenPanel<Fanuc>(KRN40mmRecord(), [] {
        Click(kKeyPacking);
        for (const char* text : {"2147483647", "100000", "300000000", "1e3", "0"}) {
            Type(kSpeedStages, text);
            EXPECT_EQ(Text(kSpeedStages), "5") << text;
        }
        Type(kSpeedStages, "2");
        EXPECT_TRUE(Enabled(kSpeed[1]));
        EXPECT_FALSE(Enabled(kSpeed[2]));
        EXPECT_EQ(Text(kSpeed[2]), "0");
        // Deleting "2" to type "3" passes through an empty field.
        for (const char* text : {"", "-", "-1", "abc", "2.5", "1e"}) Type(kSpeedStages, text);
        EXPECT_TRUE(Enabled(kSpeed[1]));
        EXPECT_FALSE(Enabled(kSpeed[2]));
        Type(kHoldTime[1], "0");
        Click(kKeyMenu);
        Click(kKeyPacking);
        EXPECT_EQ(Text(kHoldStages), "2");
        EXPECT_FALSE(Enabled(kHoldTime[2]));
        Type(kHoldStages, "99");  // the most a count field takes
        OK();
    });
    ASSERT_EQ(s.messages.size(), 5u);
    EXPECT_EQ(s.messages[0], "Can't more than 99");
    EXPECT_EQ(s.messages[3], "Can't more than 99");
    EXPECT_EQ(s.messages[4], "Can't smaller than 1");
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {85, 70}, {0, 70}}));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE).size(), 100u);
}

TEST(FanucS2000i, MachinesWithoutFullScaleWriteNothingThatIsNoNumber) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SCREW_DIAMETER, 0.0);
    r.SetMachineData(MI_MAX_RAM_POSITION, 0.0);
    r.SetMachineData(MI_PACKING_PRESSURE, 0.0);
    Session s = OpenPanel<Fanuc>(r, [] {
        Click(kKeyPacking);
        EXPECT_EQ(Text(kSpeed[0]), "---");  // no screw diameter: no mm/s to show
        Type(kSpeed[0], "50");
        Type(kPosition[1], "50");
        Type(kHoldPressure[0], "100");
        OK();
    });
    EXPECT_TRUE(KRNAllFinite(s.record));
    // Diameter, stroke and packing pressure: none gives a full scale.
    ASSERT_EQ(s.messages.size(), 3u);
    for (const std::string& m : s.messages) EXPECT_NE(m.find("no full scale"), std::string::npos) << m;
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
}

// Hold stages go back as shares of the packing time; the first position sets
// the full stroke; plain values go to their items.
TEST(FanucS2000i, TypedStagesAndValuesReachTheRecord) {
    Session s = OpenPanel<Fanuc>(KRN40mmRecord(), [] {
        Click(kKeyPacking);
        // 60 %, 50 % and 40 % of 80 MPa, in bar.
        for (int i = 0; i < 3; ++i) Type(kHoldPressure[i], QString::number(480 - 80 * i));
        Type(kHoldTime[0], "1");
        Type(kHoldTime[1], "2");
        Type(kHoldTime[2], "1");
        Type(kPosition[0], "110");
        Leave(kPosition[0]);
        Type(kPosition[1], "55");  // now against 110 mm
        Type(kPressureLimit, "1400");
        Type(1134, "21.5");
        Click(kToCooling);
        EXPECT_EQ(Text(1804), "21.50");
        Type(1369, "12.5");
        Click(1755);  // to temperature
        Type(1309, "245");
        Click(1248);  // to retreat
        Type(1245, "4");
        OK();
    });
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 40}, {75, 50}, {25, 60}, {0, 60}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 4.0);
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 110.0);
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    EXPECT_EQ(fp[0].first, 100.0);
    EXPECT_EQ(fp[1].first, 50.0);
    EXPECT_EQ(KRNItem(s.record, MI_INJECTION_PRESSURE), 140.0);
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 21.5);
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 12.5);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.0);
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 4.0);
}

TEST(FanucS2000i, ReadOnlyRecordsNeverChange) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Fanuc>(r, [] {
        Click(kKeyPacking);
        Type(kSpeed[0], "100");
        Type(kHoldTime[0], "3");
        Click(kToCooling);
        Type(1369, "99");
        OK();
    });
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 15.0);
}

TEST(FanucS2000i, HostedWithoutAModalLoopOkAndCancel) {
    CKRNProMachineInterface panels;
    // OK hands the record over and closes the window...
    panels.CreateMachineDialog(KRN40mmRecord(), "FANUC-A");
    EXPECT_FALSE(panels.CanUpdate());
    Click(kKeyPacking);
    Type(kPressureLimit, "1300");
    OK();
    EXPECT_TRUE(panels.CanUpdate());
    EXPECT_EQ(KRNItem(panels.GetMachineData(), MI_INJECTION_PRESSURE), 130.0);
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);

    // ...and the re-used panel shows the new record; Cancel leaves no update.
    panels.SetHasUpdate(false);
    CKRNMachineData other = KRN40mmRecord();
    other.SetMachineData(MI_INJECTION_PRESSURE, 100.0);
    panels.CreateMachineDialog(other, "FANUC-A");
    Click(kKeyPacking);
    EXPECT_EQ(Text(kPressureLimit), "1000");
    Type(kPressureLimit, "900");
    Cancel();
    EXPECT_FALSE(panels.CanUpdate());
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);
}
