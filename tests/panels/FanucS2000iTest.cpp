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

// What is taken reaches the record: hold stages as shares of the packing
// time, the first position as the full stroke, plain values in their items.
// A refused entry (a speed at the keystroke that crosses the full scale)
// shows the value taken last and leaves the record as it was.
TEST(FanucS2000i, EntriesAreTakenOrRefusedWithTheFieldRestored) {
    Session s = OpenPanel<Fanuc>(KRN40mmRecord(), [] {
        Click(kKeyPacking);
        Keys(kSpeed[1], "200");  // 20 is taken, 200 refused
        for (const char* text : {"abc", "nan", "1e999", "1e300", "-5"}) {
            Type(kSpeed[0], text);
            EXPECT_EQ(Text(kSpeed[0]), "63.66") << text;
        }
        EXPECT_EQ(Text(kHoldTime[0]), "1.50");  // the last of three stages: 25 % of 6 s
        Type(kHoldPressure[0], "560");          // 70 % of 80 MPa, in bar
        Type(kHoldTime[0], "1");
        Type(kHoldTime[1], "2");
        Type(kHoldTime[2], "1");
        Type(kHoldTime[0], "-1");
        EXPECT_EQ(Text(kHoldTime[0]), "1.00");
        Type(kPosition[0], "110");
        Leave(kPosition[0]);
        Type(kPosition[1], "55");  // now against 110 mm
        Type(kPosition[1], "1e308");
        Type(kPressureLimit, "1400");
        Type(kPressureLimit, "-1e308");
        Type(1134, "21.5");  // V/P position
        Type(1134, "1e308");
        Click(kToCooling);
        EXPECT_EQ(Text(1804), "21.50");
        Type(1369, "12.5");
        Click(1755);  // to temperature
        Type(1309, "245");
        Type(1309, "-1e308");
        Click(1248);  // to retreat
        Type(1245, "4");
        OK();
    });
    const std::string over = "Please enter a value not greater than 159.16.", number = "Please enter a number.",
                      range = "Please enter a value not above 9999.00 and not below 0.00.",
                      temperature = "Please enter a value not above 999.00 and not below -100.00.";
    EXPECT_EQ(s.messages, (std::vector<std::string>{over, number, number, number, over, range, range, range, range,
                                                    range, temperature}));
    EXPECT_TRUE(KRNAllFinite(s.record));
    // Stages of 1, 2 and 1 s, the last first.
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 40}, {75, 50}, {25, 70}, {0, 70}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 4.0);
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 110.0);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE),
                    {{100, 40}, {50, 20.0 / KRN40mmTopSpeed() * 100.0}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
    EXPECT_EQ(KRNItem(s.record, MI_INJECTION_PRESSURE), 140.0);
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 21.5);
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 12.5);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.0);
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 4.0);
}

// A long profile shows its first stages. Counts outside 1..99 are refused
// with the count kept; half-typed texts are an entry in progress; a middle
// hold stage without time is dropped.
TEST(FanucS2000i, StageCountsGrowAndShrinkTheProfilesWithinOneTo99) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 10}, {90, 20}, {80, 30}, {70, 40}, {60, 50}, {50, 60}, {0, 60}});
    Session s = OpenPanel<Fanuc>(r, [] {
        Click(kKeyPacking);
        EXPECT_EQ(Text(kSpeed[4]), "79.58");     // 50 % of 159.16 mm/s
        EXPECT_EQ(Text(kPosition[3]), "84.00");  // 70 % of 120 mm
        for (const char* text : {"2147483647", "100000", "300000000", "1e3", "0"}) {
            Type(kSpeedStages, text);
            EXPECT_EQ(Text(kSpeedStages), "6") << text;
        }
        Type(kSpeedStages, "2");
        EXPECT_TRUE(Enabled(kSpeed[1]));
        EXPECT_FALSE(Enabled(kSpeed[2]));
        EXPECT_EQ(Text(kSpeed[2]), "0");
        // Deleting "2" to type "3" passes through an empty field.
        for (const char* text : {"", "-", "-1", "abc", "2.5", "1e"}) Type(kSpeedStages, text);
        Type(kHoldTime[1], "0");
        Click(kKeyMenu);
        Click(kKeyPacking);
        EXPECT_EQ(Text(kHoldStages), "2");
        EXPECT_FALSE(Enabled(kHoldTime[2]));
        Type(kHoldStages, "99");  // the most a count field takes
        OK();
    });
    const std::string more = "Can't more than 99";
    EXPECT_EQ(s.messages, (std::vector<std::string>{more, more, more, more, "Can't smaller than 1"}));
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 10}, {90, 20}, {0, 20}}));
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
        for (int id : {kSpeed[0], kPosition[1], kHoldPressure[0]}) Type(id, "50");
        OK();
    });
    EXPECT_TRUE(KRNAllFinite(s.record));
    // Diameter, stroke and packing pressure: none gives a full scale.
    ASSERT_EQ(s.messages.size(), 3u);
    for (const std::string& m : s.messages) EXPECT_NE(m.find("no full scale"), std::string::npos) << m;
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
}

// A read-only record never changes: nothing typed is taken, and a short
// profile, padded on screen, goes back as it came. Neither Enter nor Escape
// closes the panel.
TEST(FanucS2000i, ReadOnlyRecordsNeverChangeThoughShortProfilesArePaddedOnScreen) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}, {0, 50}});
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Fanuc>(r, [] {
        EXPECT_FALSE(Text(1138).empty());  // the menu's first key is on show
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        Click(kKeyPacking);
        EXPECT_EQ(Text(kSpeedStages), "5");
        EXPECT_EQ(Text(kSpeed[1]), "0.00");
        EXPECT_EQ(Text(kPosition[0]), "120.00");  // the full stroke
        Type(kSpeed[0], "100");
        Type(kHoldTime[0], "3");
        Click(kToCooling);
        Type(1369, "99");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);
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
