// The CDC2000 panel as a process engineer uses it: the melt temperature, the
// four injection stages and three holding stages of the controller's screens
// in mm, mm/s, MPa and s, and the clock line with its Chinese weekday.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "chenhsong_cdc2000/CMACHINE_CHENSONG_CDC2000_DLG.h"
#include "chenhsong_cdc2000/ChenHsongCdc2000Ids.h"
#include "common/KRNClockText.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

using namespace KRNTest;
namespace Cdc = ChenHsongCdc2000;

namespace {

constexpr int kClock = 2130, kMelt = 1030, kToTimes = 1260, kToTemps = 1244, kInjectionTime = 1056;
constexpr int kSpeed[4] = {1040, 1041, 1042, 1043};
constexpr int kPressure[4] = {1044, 1045, 1046, 1047};
constexpr int kPosition[5] = {1048, 1049, 1050, 1051, 1052};
constexpr int kHoldPressure[3] = {1084, 1085, 1086};
constexpr int kHoldTime[3] = {1087, 1088, 1089};
using Frame = CMACHINE_CHENSONG_CDC2000_DLG;

// The controller takes a field when the cursor leaves it.
void Enter(int id, const char* text) {
    Type(id, text);
    Leave(id);
}

// Sunday 3 March 2024, 08:05 local time.
std::time_t SundayFivePastEight() {
    std::tm t{};
    t.tm_year = 124, t.tm_mon = 2, t.tm_mday = 3, t.tm_hour = 8, t.tm_min = 5, t.tm_isdst = -1;
    return std::mktime(&t);
}

}  // namespace

// The controller writes its weekdays in Big5; the screen must show the same characters.
TEST(ChenHsongCdc2000, ClockLineOfASundayWithTheControllersBig5WeekdaysAndTheModelPage) {
    const KRNTimeSource previous = KRNSetTimeSource(&SundayFivePastEight);
    OpenPanel<Frame>(KRN40mmRecord(), [](Frame& frame) {
        EXPECT_EQ(Text(kClock), "2024/03/03 (\u65e5) 8:5");
        EXPECT_EQ(Text(kMelt), "260");
        frame.GetDlgItem(1766)->setVisible(true);  // the key the controller keeps hidden
        Click(1766);
        EXPECT_EQ(Text(Cdc::IDC_SCREW_DIAMETER), "40");
        EXPECT_EQ(Text(Cdc::IDC_MAX_SPEED), Fixed(KRN40mmTopSpeed(), 2));
        Cancel();
    });
    KRNSetTimeSource(previous);

    const char* big5[7] = {"\xA4\xE9", "\xA4\x40", "\xA4\x47", "\xA4\x54", "\xA5\x7C", "\xA4\xAD", "\xA4\xBB"};
    QStringEncoder toBig5("Big5");
    ASSERT_TRUE(toBig5.isValid());
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(QByteArray(toBig5.encode(ChenHsongWeekday(day))), QByteArray(big5[day])) << day;
    EXPECT_EQ(ChenHsongWeekday(7), "?");
}

TEST(ChenHsongCdc2000, AThreePointProfileShowsFourSpeedStagesAndFivePositionsAndComesBackOnOK) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}, {40, 80}, {0, 80}});
    const Session s = OpenPanel<Frame>(r, [] {
        Click(kToTimes);
        const std::string speeds[4] = {Fixed(0.5 * KRN40mmTopSpeed(), 2), Fixed(0.8 * KRN40mmTopSpeed(), 2), "0.00", "0.00"};
        for (int k = 0; k < 4; ++k) EXPECT_EQ(Text(kSpeed[k]), speeds[k]) << k;
        const char* positions[5] = {"120.00", "48.00", "0.00", "0.00", "0.00"};  // 100 % and 40 % of 120 mm
        for (int k = 0; k < 5; ++k) EXPECT_EQ(Text(kPosition[k]), positions[k]) << k;
        EXPECT_EQ(Text(kPressure[0]), "112.00");  // 70 % of 160 MPa
        EXPECT_EQ(Text(kPressure[3]), "0.00");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    // The padded stages go again at OK.
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 50}, {40, 80}, {0, 80}}));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{100, 70}, {60, 85}, {15, 60}, {0, 60}}));
}

TEST(ChenHsongCdc2000, ScrewPositionZeroIsTheFullStroke) {
    const Session s = OpenPanel<Frame>(KRN40mmRecord(), [] {
        Click(kToTimes);
        Enter(kPosition[0], "150");
        EXPECT_EQ(Text(kPosition[1]), "102.00");  // the other positions keep their millimetres
        OK();
    });
    EXPECT_TRUE(s.messages.empty());
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    EXPECT_DOUBLE_EQ(KRNProfile(s.record, MI_FP_PROFILE)[1].first, 102.0 / 150.0 * 100.0);
}

TEST(ChenHsongCdc2000, ScrewPositionsRefusedWithTheFieldRestored) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 40}});
    const Session s = OpenPanel<Frame>(r, [] {
        Click(kToTimes);
        Enter(kPosition[0], "0");  // the only position that is not 0
        EXPECT_EQ(Text(kPosition[0]), "120.00");
        Enter(kPosition[1], "130");  // beyond the 120 mm stroke
        EXPECT_EQ(Text(kPosition[1]), "0.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(s.messages[0], "Error:\nAll screw position field cannot be zero.");
    EXPECT_EQ(s.messages[1], "Please enter a value not greater than 120.00.");
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {0, 40}}));
}

// Packing pressure 80 MPa over 6 s; the profile 100/40, 75/50, 25/60, 0/60
// read from the last-but-one point: 60 % for 25 % of 6 s, 50 % for 50 %, 40 % for 25 %.
TEST(ChenHsongCdc2000, HoldingStagesShownFromTheEndAndRebuiltFromTheirTimes) {
    const Session s = OpenPanel<Frame>(KRN40mmRecord(), [] {
        Click(kToTimes);
        const char* pressures[3] = {"48.00", "40.00", "32.00"};
        const char* times[3] = {"1.50", "3.00", "1.50"};
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(Text(kHoldPressure[k]), pressures[k]) << k;
            EXPECT_EQ(Text(kHoldTime[k]), times[k]) << k;
        }
        Enter(kHoldTime[1], "2");
        Enter(kHoldPressure[2], "36");
        Enter(kHoldPressure[0], "81");  // above the packing pressure
        EXPECT_EQ(Text(kHoldPressure[0]), "48.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 80.00.");
    // Stage times 1.5, 2, 1.5 s added up from the end: 25 %, 58.33 %, 83.33 % of 6 s.
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{5.0 / 6.0 * 100.0, 45}, {3.5 / 6.0 * 100.0, 50}, {25, 60}, {0, 60}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);

    const Session zero = OpenPanel<Frame>(KRN40mmRecord(), [] {
        Click(kToTimes);
        for (int k : {0, 1, 2}) Enter(kHoldTime[k], "0");
        EXPECT_EQ(Text(kHoldTime[2]), "1.50");
        OK();
    });
    ASSERT_EQ(zero.messages.size(), 1u);
    EXPECT_EQ(zero.messages[0], "Error:\nAll pack time field cannot be zero.");
    // The first two stages took no time; the third is what is left.
    EXPECT_EQ(KRNProfile(zero.record, MI_PP_PROFILE), (KRNPointList{{25, 40}, {0, 40}}));
}

TEST(ChenHsongCdc2000, MeltTemperatureTakenAtEveryChangeAndPagesCommit) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_INJECTION_TIME, 1.25);
    const Session s = OpenPanel<Frame>(r, [] {
        Keys(kMelt, "245");
        Click(kToTimes);
        Enter(kInjectionTime, "x");  // no number: refused, shown as it was
        EXPECT_EQ(Text(kInjectionTime), "1.25");
        Enter(kInjectionTime, "2.5");
        Click(kToTemps);
        EXPECT_EQ(Text(kMelt), "245");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.0);
    EXPECT_EQ(KRNItem(s.record, MI_INJECTION_TIME), 2.5);

    const Session t = OpenPanel<Frame>(r, [] {
        Type(kMelt, "hot");  // reads as 0
        OK();
    });
    EXPECT_EQ(KRNItem(t.record, MI_MELT_TEMPERATURE), 0.0);
}

TEST(ChenHsongCdc2000, ReadOnlyCancelAndTheInterface) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    const Session s = OpenPanel<Frame>(r, [] {
        Type(kMelt, "245");
        Click(kToTimes);  // leaving the page keeps nothing of it
        OK();             // OK takes the page shown, whatever the flag
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    // Six points are five on this screen: the point before the last goes.
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {85, 70}, {60, 90}, {35, 60}, {0, 60}}));
    const Session shown = OpenPanel<Frame>(r, [] {
        Type(kMelt, "245");
        OK();
    });
    EXPECT_EQ(KRNItem(shown.record, MI_MELT_TEMPERATURE), 245.0);

    EXPECT_EQ(OpenPanel<Frame>(KRN40mmRecord(), [] { Cancel(); }).result, IDCANCEL);

    CKRNProMachineInterface panels;
    WhileOpen([&] { panels.KRNDoModal(KRN40mmRecord(), "CHEN HSONG-CDC2000"); },
              [] {
                  Type(kMelt, "230");
                  PressKey(Qt::Key_Return);  // neither key closes the panel
                  PressKey(Qt::Key_Escape);
                  Click(kToTimes);
                  Enter(kSpeed[0], "100");
                  OK();
              });
    EXPECT_TRUE(panels.IsOK());
    EXPECT_EQ(KRNItem(panels.GetMachineData(), MI_MELT_TEMPERATURE), 230.0);
    EXPECT_DOUBLE_EQ(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE)[0].second, 100.0 / KRN40mmTopSpeed() * 100.0);
}

// A screw of no diameter and a stroke of 0 give no full scales: "---", refused edits, no NaN.
TEST(ChenHsongCdc2000, NoFullScalesRefuseEditsThatNeedThem) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SCREW_DIAMETER, 0.0);
    r.SetMachineData(MI_MAX_RAM_POSITION, 0.0);
    r.SetMachineData(MI_PACKING_TIME, 0.0);
    const Session s = OpenPanel<Frame>(r, [] {
        Click(kToTimes);
        EXPECT_EQ(Text(kSpeed[0]), "---");
        for (int id : {kSpeed[0], kPosition[1], kHoldTime[0]}) Enter(id, "50");
        OK();
    });
    EXPECT_EQ(s.messages.size(), 3u);
    EXPECT_TRUE(KRNAllFinite(s.record));
}
