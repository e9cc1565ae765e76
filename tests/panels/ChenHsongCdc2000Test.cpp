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

#include <cmath>

using namespace KRNTest;
namespace Cdc = ChenHsongCdc2000;

namespace {

constexpr int kClock = 2130, kMelt = 1030, kToTimes = 1260, kToTemps = 1244, kInjectionTime = 1056;
constexpr int kSpeed[4] = {1040, 1041, 1042, 1043};
constexpr int kPressure[4] = {1044, 1045, 1046, 1047};
constexpr int kPosition[5] = {1048, 1049, 1050, 1051, 1052};
constexpr int kHoldPressure[3] = {1084, 1085, 1086};
constexpr int kHoldTime[3] = {1087, 1088, 1089};
const std::string kAllPositionsZero = "Error:\nAll screw position field cannot be zero.";
const std::string kAllHoldTimesZero = "Error:\nAll pack time field cannot be zero.";

Session OpenCdc(const CKRNMachineData& record, const std::function<void(CMACHINE_CHENSONG_CDC2000_DLG&)>& steps) {
    return OpenPanel<CMACHINE_CHENSONG_CDC2000_DLG>(record, steps);
}

// Sunday 3 March 2024, 08:05 local time.
std::time_t SundayFivePastEight() {
    std::tm t{};
    t.tm_year = 124;
    t.tm_mon = 2;
    t.tm_mday = 3;
    t.tm_hour = 8;
    t.tm_min = 5;
    t.tm_isdst = -1;
    return std::mktime(&t);
}

// The clock reads a fixed time while a test runs.
struct FixedClock {
    explicit FixedClock(KRNTimeSource source) : previous(KRNSetTimeSource(source)) {}
    ~FixedClock() { KRNSetTimeSource(previous); }
    KRNTimeSource previous;
};


// The 40 mm record: top speed 200 cm3/s over a 4 cm screw.
const double kTopSpeed = 200.0 * 10.0 / (4.0 * 4.0 * 3.14159 * 0.25);

}  // namespace

TEST(ChenHsongCdc2000, OpensOnTemperaturesUnderTheClockLineOfASunday) {
    FixedClock clock(&SundayFivePastEight);
    OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG& frame) {
        EXPECT_EQ(Text(kClock), "2024/03/03 (\u65e5) 8:5");
        EXPECT_EQ(Text(kMelt), "260");
        for (int id : Cdc::kTempUnfed) EXPECT_EQ(Text(id), "---") << id;
        for (int key : {1765, 1766, 1767}) EXPECT_FALSE(frame.GetDlgItem(key)->isVisible()) << key;
        Cancel();
    });
}

// The controller writes its weekdays in Big5; the screen must show the same characters.
TEST(ChenHsongCdc2000, WeekdaysAreTheControllersBig5Characters) {
    const char* big5[7] = {"\xA4\xE9", "\xA4\x40", "\xA4\x47", "\xA4\x54", "\xA5\x7C", "\xA4\xAD", "\xA4\xBB"};
    const QString shown[7] = {QString::fromUtf8("日"), QString::fromUtf8("一"), QString::fromUtf8("二"), QString::fromUtf8("三"), QString::fromUtf8("四"), QString::fromUtf8("五"), QString::fromUtf8("六")};
    QStringEncoder toBig5("Big5");
    ASSERT_TRUE(toBig5.isValid());
    for (int day = 0; day < 7; ++day) {
        EXPECT_EQ(ChenHsongWeekday(day), shown[day]) << day;
        EXPECT_EQ(QByteArray(toBig5.encode(shown[day])), QByteArray(big5[day])) << day;
    }
    EXPECT_EQ(ChenHsongWeekday(7), "?");
    std::tm t{};
    t.tm_year = 99;
    t.tm_mon = 11;
    t.tm_mday = 31;
    t.tm_wday = 5;
    t.tm_hour = 23;
    t.tm_min = 59;
    EXPECT_EQ(ChenHsongClockLine(t), QString::fromUtf8("1999/12/31 (五) 23:59"));
}

TEST(ChenHsongCdc2000, AThreePointProfileShowsFourSpeedStagesAndFivePositionsAndComesBackOnOK) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}, {40, 80}, {0, 80}});
    const Session s = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG& frame) {
        EXPECT_EQ(frame.m_nPointCounts[0], 3);
        Click(kToTimes);
        EXPECT_EQ(Text(kSpeed[0]), Fixed(50 * kTopSpeed * 0.01, 2));
        EXPECT_EQ(Text(kSpeed[1]), Fixed(80 * kTopSpeed * 0.01, 2));
        EXPECT_EQ(Text(kSpeed[2]), "0.00");
        EXPECT_EQ(Text(kSpeed[3]), "0.00");
        const char* positions[5] = {"120.00", "48.00", "0.00", "0.00", "0.00"};  // 100 % and 40 % of 120 mm
        for (int k = 0; k < 5; ++k) EXPECT_EQ(Text(kPosition[k]), positions[k]) << k;
        // Pressure profile 100/70, 60/85, 15/60, 0/60 of 160 MPa, padded to four stages.
        EXPECT_EQ(Text(kPressure[0]), "112.00");
        EXPECT_EQ(Text(kPressure[2]), "96.00");
        EXPECT_EQ(Text(kPressure[3]), "0.00");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    // The padded stages go again at OK.
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 50}, {40, 80}, {0, 80}}));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{100, 70}, {60, 85}, {15, 60}, {0, 60}}));
}

// Six points are five on this screen: the point before the last goes.
TEST(ChenHsongCdc2000, LongProfilesAreCutToTheScreensStages) {
    const Session s = OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG&) { OK(); });
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {85, 70}, {60, 90}, {35, 60}, {0, 60}}));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(KRN40mmRecord(), MI_PP_PROFILE));
}

TEST(ChenHsongCdc2000, ScrewPositionZeroIsTheFullStroke) {
    const Session s = OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Click(kToTimes);
        Type(kPosition[0], "150");
        Leave(kPosition[0]);
        EXPECT_EQ(Text(kPosition[0]), "150.00");
        EXPECT_EQ(Text(kPosition[1]), "102.00");  // the other positions keep their millimetres
        Type(kPosition[2], "66");
        Leave(kPosition[2]);
        OK();
    });
    EXPECT_TRUE(s.messages.empty());
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    ASSERT_EQ(fp.size(), 5u);
    // 120 mm stroke: 102, 72, 42 mm; now against 150 mm, with 66 mm typed for point 2.
    EXPECT_DOUBLE_EQ(fp[0].first, 100.0);
    EXPECT_DOUBLE_EQ(fp[1].first, 102.0 / 150.0 * 100.0);
    EXPECT_DOUBLE_EQ(fp[2].first, 66.0 / 150.0 * 100.0);
    EXPECT_DOUBLE_EQ(fp[3].first, 42.0 / 150.0 * 100.0);
    EXPECT_EQ(fp[2].second, 90.0);
}

TEST(ChenHsongCdc2000, ScrewPositionsRefusedWithTheFieldRestored) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 40}});
    const Session s = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Click(kToTimes);
        Type(kPosition[0], "0");  // the only position that is not 0
        Leave(kPosition[0]);
        EXPECT_EQ(Text(kPosition[0]), "120.00");
        Type(kPosition[1], "abc");  // no number
        Leave(kPosition[1]);
        EXPECT_EQ(Text(kPosition[1]), "0.00");
        Type(kPosition[1], "130");  // beyond the 120 mm stroke
        Leave(kPosition[1]);
        Type(kPosition[0], "1e400");
        Leave(kPosition[0]);
        EXPECT_EQ(Text(kPosition[0]), "120.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 4u);
    EXPECT_EQ(s.messages[0], kAllPositionsZero);
    EXPECT_EQ(s.messages[2], "Please enter a value not greater than 120.00.");
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {0, 40}}));
    EXPECT_TRUE(KRNAllFinite(s.record));
}

// Packing pressure 80 MPa over 6 s; the profile 100/40, 75/50, 25/60, 0/60
// read from the last-but-one point: 60 % for 25 % of 6 s, 50 % for 50 %, 40 % for 25 %.
TEST(ChenHsongCdc2000, HoldingStagesShownFromTheEndAndRebuiltFromTheirTimes) {
    const Session s = OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Click(kToTimes);
        const char* pressures[3] = {"48.00", "40.00", "32.00"};
        const char* times[3] = {"1.50", "3.00", "1.50"};
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(Text(kHoldPressure[k]), pressures[k]) << k;
            EXPECT_EQ(Text(kHoldTime[k]), times[k]) << k;
        }
        Type(kHoldTime[1], "2");
        Leave(kHoldTime[1]);
        EXPECT_EQ(Text(kHoldTime[1]), "2.00");
        EXPECT_EQ(Text(kHoldTime[2]), "1.50");
        Type(kHoldPressure[2], "36");
        Leave(kHoldPressure[2]);
        Type(kHoldPressure[0], "81");  // above the packing pressure
        Leave(kHoldPressure[0]);
        EXPECT_EQ(Text(kHoldPressure[0]), "48.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 80.00.");
    // Stage times 1.5, 2, 1.5 s added up from the end: 25 %, 58.33 %, 83.33 % of 6 s.
    const KRNPointList pp = KRNProfile(s.record, MI_PP_PROFILE);
    ASSERT_EQ(pp.size(), 4u);
    EXPECT_DOUBLE_EQ(pp[2].first, 1.5 / 6.0 * 100.0);
    EXPECT_DOUBLE_EQ(pp[1].first, (1.5 + 2.0) / 6.0 * 100.0);
    EXPECT_DOUBLE_EQ(pp[0].first, (1.5 + 2.0 + 1.5) / 6.0 * 100.0);
    EXPECT_DOUBLE_EQ(pp[0].second, 36.0 / 80.0 * 100.0);
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);
}

TEST(ChenHsongCdc2000, AllHoldingTimesZeroIsRefused) {
    const Session s = OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Click(kToTimes);
        for (int k : {0, 1, 2}) {
            Type(kHoldTime[k], "0");
            Leave(kHoldTime[k]);
        }
        EXPECT_EQ(Text(kHoldTime[2]), "1.50");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], kAllHoldTimesZero);
    // The first two stages took no time; the third is what is left.
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), (KRNPointList{{25, 40}, {0, 40}}));
}

TEST(ChenHsongCdc2000, MeltTemperatureTakenAtEveryChangeAndPagesCommit) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_INJECTION_TIME, 1.25);
    const Session s = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Keys(kMelt, "245");
        Click(kToTimes);
        EXPECT_EQ(Text(kInjectionTime), "1.25");
        Type(kInjectionTime, "x");  // no number: refused, shown as it was
        Leave(kInjectionTime);
        EXPECT_EQ(Text(kInjectionTime), "1.25");
        Type(kInjectionTime, "2.5");
        Leave(kInjectionTime);
        Click(kToTemps);
        EXPECT_EQ(Text(kMelt), "245");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.0);
    EXPECT_EQ(KRNItem(s.record, MI_INJECTION_TIME), 2.5);

    const Session t = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Type(kMelt, "hot");  // reads as 0
        OK();
    });
    EXPECT_EQ(KRNItem(t.record, MI_MELT_TEMPERATURE), 0.0);
}

TEST(ChenHsongCdc2000, ModelPageShowsTheInjectionUnit) {
    OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG& frame) {
        frame.GetDlgItem(1766)->setVisible(true);  // the key the controller keeps hidden
        Click(1766);
        EXPECT_EQ(Text(Cdc::IDC_SCREW_DIAMETER), "40");
        EXPECT_EQ(Text(Cdc::IDC_MAX_INJECTION_RATE), "200");
        EXPECT_EQ(Text(Cdc::IDC_STROKE_LIMIT), "180");
        EXPECT_EQ(Text(Cdc::IDC_MAX_SPEED), Fixed(kTopSpeed, 2));
        Cancel();
    });
}

TEST(ChenHsongCdc2000, ReadOnlyCancelAndTheInterface) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    const Session s = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Type(kMelt, "245");
        Click(kToTimes);  // leaving the page keeps nothing of it
        OK();             // OK takes the page shown, whatever the flag
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    // The five points the screen shows, closed flat at the end.
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {85, 70}, {60, 90}, {35, 60}, {0, 60}}));
    const Session shown = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Type(kMelt, "245");
        OK();
    });
    EXPECT_EQ(KRNItem(shown.record, MI_MELT_TEMPERATURE), 245.0);

    const Session c = OpenCdc(KRN40mmRecord(), [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Type(kMelt, "245");
        Cancel();
    });
    EXPECT_EQ(c.result, IDCANCEL);

    CKRNProMachineInterface panels;
    WhileOpen([&] { panels.KRNDoModal(KRN40mmRecord(), "CHEN HSONG-CDC2000"); },
              [] {
                  Type(kMelt, "230");
                  PressKey(Qt::Key_Return);  // neither key closes the panel
                  PressKey(Qt::Key_Escape);
                  Click(kToTimes);
                  Type(kSpeed[0], "100");
                  Leave(kSpeed[0]);
                  OK();
              });
    EXPECT_TRUE(panels.IsOK());
    EXPECT_EQ(KRNItem(panels.GetMachineData(), MI_MELT_TEMPERATURE), 230.0);
    EXPECT_DOUBLE_EQ(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE)[0].second, 100.0 / kTopSpeed * 100.0);
}

// A screw of no diameter and a stroke of 0 give no full scales: "---", refused edits, no NaN.
TEST(ChenHsongCdc2000, NoFullScalesRefuseEditsThatNeedThem) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SCREW_DIAMETER, 0.0);
    r.SetMachineData(MI_MAX_RAM_POSITION, 0.0);
    r.SetMachineData(MI_PACKING_TIME, 0.0);
    const Session s = OpenCdc(r, [](CMACHINE_CHENSONG_CDC2000_DLG&) {
        Click(kToTimes);
        EXPECT_EQ(Text(kSpeed[0]), "---");
        Type(kSpeed[0], "50");
        Leave(kSpeed[0]);
        Type(kPosition[1], "50");
        Leave(kPosition[1]);
        Type(kHoldTime[0], "2");
        Leave(kHoldTime[0]);
        OK();
    });
    EXPECT_EQ(s.messages.size(), 3u);
    EXPECT_TRUE(KRNAllFinite(s.record));
}
