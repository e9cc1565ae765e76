// The CLF series panel as a process engineer uses it: percentages, positions
// that fall from stage to stage, and the running total time.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "clf_series/CMACHINE_CLF_SERIES_DLG.h"
#include "clf_series/ClfSeriesIds.h"

#include <gtest/gtest.h>

using namespace KRNTest;
using Frame = CMACHINE_CLF_SERIES_DLG;

namespace {

constexpr int kKeyMain = 1330, kKeyInjection = 1336, kKeyFullDataSet = 1332, kKeyTemperature = 1335, kKeyCurve = 1342;
constexpr int kSpeed[6] = {1375, 1372, 1369, 1366, 1363, 1360};
constexpr int kPressure[6] = {1374, 1371, 1368, 1365, 1362, 1359};
constexpr int kPosition[6] = {2127, 1383, 1382, 1381, 1380, 1379};
constexpr int kHoldPressure[3] = {1356, 1353, 1349};
constexpr int kHoldTime[3] = {1358, 1355, 1351};
constexpr int kCooling = 1364, kVP = 1378, kSuckBack = 1399, kCoolingShown = 1424, kVPShown = 1413;

}  // namespace

TEST(ClfSeries, PercentagesUpToAHundredAndPositionsThatFallFromStageToStage) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        EXPECT_EQ(Text(kHoldPressure[0]), "60.00");
        Type(kSpeed[1], "100");
        Type(kPressure[0], "100.01");
        EXPECT_EQ(Text(kPressure[0]), "70.00");
        // Stage 3 lies between stage 2 at 102 mm and stage 4 at 42 mm.
        Keys(kPosition[2], "42");
        EXPECT_EQ(Text(kPosition[2]), "42");  // no check while typing: the next stage's 42 mm is refused on leaving
        Leave(kPosition[2]);
        EXPECT_EQ(Text(kPosition[2]), "72.00");
        Type(kPosition[2], "110");
        Leave(kPosition[2]);
        Type(kPosition[2], "42.001");
        Leave(kPosition[2]);
        // The first stage is held by the machine's stroke of 180 mm.
        Type(kPosition[0], "181");
        Leave(kPosition[0]);
        // The last stage in use and the one after it may both be cleared.
        Type(kPosition[4], "0");
        Leave(kPosition[4]);
        Type(kPosition[5], "0");
        Leave(kPosition[5]);
        Click(kKeyFullDataSet);  // the full data set takes the same checks
        Type(ClfSeries::kFullSpeed[0], "100.01");
        OK();
    });
    const std::string hundred = "Please enter a value not greater than 100.00.";
    const std::string between = "Please enter a value not above 102.00 and not below 42.00.";
    EXPECT_EQ(s.messages, (std::vector<std::string>{hundred, between, between,
                                                    "Please enter a value not above 180.00 and not below 102.00.", hundred}));
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[1], (std::pair<double, double>(85.0, 100.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE)[0], KRNProfile(r, MI_P_PROFILE)[0]);
    // 42.001 mm of 120 mm, on both stroke profiles; the cleared stage is gone after OK.
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[2].first, 35.000833, 1e-6);
    EXPECT_NEAR(KRNProfile(s.record, MI_P_PROFILE)[2].first, 35.000833, 1e-6);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE).size(), 5u);
}

TEST(ClfSeries, TheTotalTimeFollowsSpeedsPositionsAndHoldTimes) {
    OpenPanel<Frame>(KRN40mmRecord(), [] {
        Click(kKeyInjection);
        CKRNMachineData expected = KRN40mmRecord();
        // Hold stages of 1.5, 3 and 1.5 s.
        EXPECT_EQ(Text(ClfSeries::IDC_TOTAL_TIME), Fixed(KRNExpectedStrokeTime(expected, 0) + 6.0, 6));
        Type(kHoldTime[0], "2.5");
        EXPECT_EQ(Text(ClfSeries::IDC_TOTAL_TIME), Fixed(KRNExpectedStrokeTime(expected, 0) + 7.0, 6));
        Type(kSpeed[0], "80");
        KRNSetProfile(expected, MI_FP_PROFILE, {{100, 80}, {85, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 0}, {0, 0}});
        EXPECT_EQ(Text(ClfSeries::IDC_TOTAL_TIME), Fixed(KRNExpectedStrokeTime(expected, 0) + 7.0, 6));
        OK();
    });
}

TEST(ClfSeries, TheMainScreenWithItsClockLineAndThePlainFieldsWithTheirMirrors) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_INJECTION_TIME, 1.25);
    Session s = OpenPanel<Frame>(r, [] {
        EXPECT_EQ(Text(1446), "1.25s");
        EXPECT_EQ(Text(1452), "18 mm");
        // "2024/3/7<tab>9-5-2": a tab between date and time, dashes in the time.
        const std::string clock = Text(ClfSeries::IDC_CLOCK);
        EXPECT_NE(clock.find('\t'), std::string::npos) << clock;
        EXPECT_EQ(std::count(clock.begin(), clock.end(), '-'), 2) << clock;
        EXPECT_EQ(Text(1334), "260.00");
        Click(kKeyInjection);
        Type(kCooling, "12.5");
        EXPECT_EQ(Text(kCoolingShown), "12.5 s");
        Type(kVP, "20");
        EXPECT_EQ(Text(kVPShown), "20 mm");
        Type(kSuckBack, "4");
        Click(kKeyTemperature);
        Type(ClfSeries::IDC_MELT_TEMPERATURE, "245.5");
        for (int id : ClfSeries::kMeltMirrors) EXPECT_EQ(Text(id), "245.5");
        Click(kKeyCurve);
        Click(kKeyMain);
        EXPECT_EQ(Text(1334), "245.50");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 12.5);
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 20.0);
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 4.0);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.5);
}

TEST(ClfSeries, ReadOnlyCancelAndTheInterface) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        Type(kSpeed[0], "55");
        Click(kKeyMain);
        OK();
    });
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));

    CKRNProMachineInterface panels;
    WhileOpen([&] { EXPECT_EQ(panels.KRNDoModal(KRN40mmRecord(), "CLF-Series"), 1); },
              [] {
                  Click(kKeyInjection);
                  Type(kSpeed[0], "55");
                  PressKey(Qt::Key_Return);  // neither key closes the panel
                  PressKey(Qt::Key_Escape);
                  Cancel();
              });
    EXPECT_FALSE(panels.IsOK());
}
