// The CDC2000 panel as a process engineer uses it: the melt temperature, the
// four injection stages and three holding stages of the controller's screens
// in mm, mm/s, MPa and s, and the clock line with its Chinese weekday.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "chenhsong_cdc2000/CMACHINE_CHENSONG_CDC2000_DLG.h"
#include "chenhsong_cdc2000/ChenHsongCdc2000Ids.h"
#include "common/KRNClockText.h"

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

// Packing pressure 80 MPa over 6 s; the profile 100/40, 75/50, 25/60, 0/60
// read from the last-but-one point: 60 % for 25 % of 6 s, 50 % for 50 %, 40 % for 25 %.
// Screw positions and holding stages are refused with the field restored.
TEST(ChenHsongCdc2000, HoldingStagesShownFromTheEndAndRefusalsOfTheTimesPage) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 40}});
    const Session s = OpenPanel<Frame>(r, [] {
        Click(kToTimes);
        Enter(kPosition[0], "0");  // the only position that is not 0
        EXPECT_EQ(Text(kPosition[0]), "120.00");
        Enter(kPosition[1], "130");  // beyond the 120 mm stroke
        EXPECT_EQ(Text(kPosition[1]), "0.00");
        EXPECT_EQ(Text(kHoldPressure[2]), "32.00");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        Enter(kHoldTime[1], "2");
        Enter(kHoldPressure[2], "36");
        Enter(kHoldPressure[0], "81");  // above the packing pressure
        EXPECT_EQ(Text(kHoldPressure[0]), "48.00");
        OK();
    });
    EXPECT_EQ(s.messages, (std::vector<std::string>{"Error:\nAll screw position field cannot be zero.",
                                                    "Please enter a value not greater than 120.00.",
                                                    "Please enter a value not greater than 80.00."}));
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {0, 40}}));
    // Stage times 1.5, 2, 1.5 s added up from the end: 25 %, 58.33 %, 83.33 % of 6 s.
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{5.0 / 6.0 * 100.0, 45}, {3.5 / 6.0 * 100.0, 50}, {25, 60}, {0, 60}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);

    const Session zero = OpenPanel<Frame>(KRN40mmRecord(), [] {
        Click(kToTimes);
        for (int k : {0, 1, 2}) Enter(kHoldTime[k], "0");
        EXPECT_EQ(Text(kHoldTime[2]), "1.50");
        OK();
    });
    EXPECT_EQ(zero.messages, std::vector<std::string>{"Error:\nAll pack time field cannot be zero."});
    // The first two stages took no time; the third is what is left.
    EXPECT_EQ(KRNProfile(zero.record, MI_PP_PROFILE), (KRNPointList{{25, 40}, {0, 40}}));
}

// Through the interface, on a Sunday at 08:05: the clock line with the
// controller's weekday; a profile of three points shows four speed stages,
// and screw position 0 sets the full stroke while the others keep their mm;
// every change is taken, pages commit when left, the model page sits behind
// the key the controller keeps hidden, and no key closes the panel.
TEST(ChenHsongCdc2000, ThroughTheInterfaceEveryChangeIsTakenPagesCommitAndNoKeyCloses) {
    const KRNTimeSource previous = KRNSetTimeSource(&SundayFivePastEight);
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_INJECTION_TIME, 1.25);
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}, {40, 80}, {0, 80}});
    KRNMessageCapture messages;
    CKRNProMachineInterface panels;
    WhileOpen([&] { panels.KRNDoModal(r, "CHEN HSONG-CDC2000"); }, [] {
        EXPECT_EQ(Text(kClock), "2024/03/03 (\u65e5) 8:5");
        EXPECT_EQ(Text(kMelt), "260");
        Keys(kMelt, "245");
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        Click(kToTimes);
        EXPECT_EQ(Text(kSpeed[1]), Fixed(0.8 * KRN40mmTopSpeed(), 2));
        EXPECT_EQ(Text(kSpeed[3]), "0.00");       // a padded stage
        EXPECT_EQ(Text(kPosition[1]), "48.00");   // 40 % of 120 mm
        EXPECT_EQ(Text(kPressure[0]), "112.00");  // 70 % of 160 MPa
        Enter(kPosition[0], "150");
        Enter(kInjectionTime, "x");  // no number: refused, shown as it was
        EXPECT_EQ(Text(kInjectionTime), "1.25");
        Enter(kInjectionTime, "2.5");
        Click(kToTemps);
        EXPECT_EQ(Text(kMelt), "245");
        KRNDriver::TopDialog()->GetDlgItem(1766)->setVisible(true);  // the hidden model key
        Click(1766);
        EXPECT_EQ(Text(Cdc::IDC_SCREW_DIAMETER), "40");
        EXPECT_EQ(Text(Cdc::IDC_MAX_SPEED), Fixed(KRN40mmTopSpeed(), 2));
        OK();
    });
    KRNSetTimeSource(previous);
    EXPECT_TRUE(panels.IsOK());
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{"Please enter a number."});
    const CKRNMachineData taken = panels.GetMachineData();
    EXPECT_EQ(KRNItem(taken, MI_MELT_TEMPERATURE), 245.0);
    EXPECT_EQ(KRNItem(taken, MI_INJECTION_TIME), 2.5);
    EXPECT_EQ(KRNItem(taken, MI_MAX_RAM_POSITION), 150.0);
    // The padded stages go again at OK.
    KRNExpectPoints(KRNProfile(taken, MI_FP_PROFILE), {{100, 50}, {48.0 / 150.0 * 100.0, 80}, {0, 80}});
    EXPECT_EQ(KRNProfile(taken, MI_P_PROFILE), (KRNPointList{{100, 70}, {60, 85}, {15, 60}, {0, 60}}));
    const Session hot = OpenPanel<Frame>(r, [] { Type(kMelt, "hot"); OK(); });
    EXPECT_EQ(KRNItem(hot.record, MI_MELT_TEMPERATURE), 0.0);  // reads as 0

    // The weekdays as the controller stores them in Big5, Sunday first.
    QString week;
    for (int day = 0; day < 7; ++day) week += ChenHsongWeekday(day);
    EXPECT_EQ(week, QStringLiteral("\u65e5\u4e00\u4e8c\u4e09\u56db\u4e94\u516d"));
    EXPECT_EQ(ChenHsongWeekday(7), "?");
}

TEST(ChenHsongCdc2000, ReadOnlyAndCancel) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    const Session s = OpenPanel<Frame>(r, [] {
        Type(kMelt, "245");
        Click(kToTimes);  // leaving the page keeps nothing of it
        Enter(kSpeed[0], "100");
        OK();  // OK takes the page shown, whatever the flag
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    // Six points are five on this screen: the point before the last goes.
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE),
                    {{100, 100.0 / KRN40mmTopSpeed() * 100.0}, {85, 70}, {60, 90}, {35, 60}, {0, 60}});
    EXPECT_EQ(OpenPanel<Frame>(KRN40mmRecord(), [] { Cancel(); }).result, IDCANCEL);
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
