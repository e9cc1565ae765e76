// The Niigata MD series panel as a process engineer uses it.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "niigata_mdseries/CMACHINE_NIIGATA_MDSERIES_DLG.h"

#include <gtest/gtest.h>

using namespace KRNTest;
using Frame = CMACHINE_NIIGATA_MDSERIES_DLG;

namespace {

constexpr int kKeyInjection = 1593, kKeyTemperature = 1594, kKeyMain = 1504, kKeyCurve = 1509;
constexpr int kSpeed[5] = {1366, 1367, 1368, 1369, 1370};
constexpr int kPosition[5] = {1388, 1371, 1372, 1373, 1374};
constexpr int kHoldPressure[5] = {1376, 1377, 1378, 1379, 1380};
constexpr int kHoldTime[5] = {1381, 1382, 1383, 1384, 1385};
constexpr int kInjectionTime = 1510, kCoolingTime = 1512, kVPPosition = 1364, kInjectionPressure = 1375;
constexpr int kMold = 1363, kMoldMirrors[2] = {1582, 1532};

}  // namespace

// Opens on the main screen; the stages show in machine units, and a speed
// edit shows the stroke time as the injection time. A refused entry leaves
// field and record as they were.
TEST(NiigataMdSeries, StagesInMachineUnitsTheStrokeTimeAndRefusedEntries) {
    const CKRNMachineData r = KRN40mmRecord();
    CKRNMachineData expected = KRN40mmRecord();  // stages 1 and 2 at 63.66 and 100 mm/s of 159.16
    const double top = KRN40mmTopSpeed();
    KRNSetProfile(expected, MI_FP_PROFILE,
                  {{100, 63.66 / top * 100.0}, {85, 100.0 / top * 100.0}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
    const double strokeTime = KRNExpectedStrokeTime(expected, 1);
    Session s = OpenPanel<Frame>(r, [strokeTime] {
        EXPECT_EQ(Text(2037), "---");  // the main screen, fed by nothing
        Click(kKeyInjection);
        // y × 159.16 mm/s and x × 120 mm; the sixth point ends the fifth stage.
        const char* speeds[5] = {"63.66", "111.41", "143.24", "95.49", "55.70"};
        const char* positions[5] = {"120.00", "102.00", "72.00", "42.00", "18.00"};
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(Text(kSpeed[i]), speeds[i]);
            EXPECT_EQ(Text(kPosition[i]), positions[i]);
        }
        EXPECT_EQ(Text(kInjectionPressure), "112");  // 70 % of 160 MPa
        EXPECT_EQ(Text(kVPPosition), "18");
        Type(kSpeed[1], "100");
        Keys(kSpeed[0], "200");  // crosses 159.16 at the third keystroke
        EXPECT_EQ(Text(kSpeed[0]), "20.00");
        Type(kSpeed[0], "63.66");
        EXPECT_EQ(Text(kInjectionTime), Fixed(strokeTime, 6));  // "%f"
        // Hold stages in seconds of the 6 s packing time, pressures of 80 MPa.
        Type(kHoldPressure[0], "170");  // above the 160 MPa injection pressure
        EXPECT_EQ(Text(kHoldPressure[0]), "48.00");
        Type(kHoldTime[1], "abc");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        Type(kPosition[2], "-5");  // no machine has a position below 0
        EXPECT_EQ(Text(kPosition[2]), "72.00");
        OK();
    });
    EXPECT_EQ(s.messages, (std::vector<std::string>{"Please enter a value not greater than 159.16.",
                                                    "Please enter a value not greater than 160.00.",
                                                    "Please enter a number.",
                                                    "Please enter a value not above 9999.00 and not below 0.00."}));
    EXPECT_NEAR(KRNItem(s.record, MI_INJECTION_TIME), strokeTime, 1e-6);
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    EXPECT_NEAR(fp[0].second, 63.66 / top * 100.0, 1e-9);
    // OK reads the shown "%6.2f" texts back: 143.24 mm/s is 90 % within rounding.
    EXPECT_EQ(fp[2].first, 60.0);
    EXPECT_NEAR(fp[2].second, 90.0, 0.005);
}

TEST(NiigataMdSeries, StrokeHoldStagesPressureCoolingAndMouldGoBackOnOk) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_MOLD_TEMPERATURE, 45.0);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        Type(kPosition[0], "150");       // the first position is the full stroke
        Type(kInjectionPressure, "80");  // half of 160 MPa, on every pressure point
        Type(kHoldPressure[0], "60");    // 75 % of 80 MPa
        Type(kHoldTime[0], "2");
        Type(kHoldTime[1], "2");
        Type(kCoolingTime, "12.5");
        // Leaving the page takes its edits and reads every position back
        // against the new stroke; the mould temperature is mirrored on the picture.
        Click(kKeyTemperature);
        for (int id : kMoldMirrors) EXPECT_EQ(Text(id), "45");
        Type(kMold, "52.5");
        for (int id : kMoldMirrors) EXPECT_EQ(Text(id), "52.5");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    // The same millimetres are now shares of 150 mm; the pressure stages keep their positions.
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[1].first, 102.0 / 150.0 * 100.0, 1e-9);
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{100, 50}, {60, 50}, {15, 50}, {0, 50}}));
    // Stages of 2, 2 and 1.5 s: 5.5 s of packing.
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 5.5);
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 40}, {4.0 / 5.5 * 100, 50}, {2.0 / 5.5 * 100, 75}, {0, 75}});
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 12.5);
    EXPECT_EQ(KRNItem(s.record, MI_MOLD_TEMPERATURE), 52.5);
}

// A read-only record. The curve axes in MPa and mm/s repeat their 0.4 label
// where 0.2 belongs, as on the controller. Nothing typed is taken, not even
// on leaving a page. Profiles too short to pad are left alone: no pressure
// profile shows 0 and stays empty, and an end point alone ends at (0, 0) at
// OK, the controller taking "the point before it" from nothing. Neither
// Enter nor Escape closes the panel; Cancel hands nothing back.
TEST(NiigataMdSeries, CurveAxesShortProfilesAndAReadOnlyRecord) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_P_PROFILE, {});
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 50}});  // one point: nothing to pad, no stage
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyCurve);
        // 160 MPa and 159.16 mm/s.
        const int pressure[6] = {1398, 1399, 1400, 1401, 1961, 1403}, speed[6] = {1392, 1393, 1394, 1395, 1960, 1397};
        const char* pressureText[6] = {"160", "128", "96", "64", "32", "0"};
        const char* speedText[6] = {"159.2", "127.3", "95.5", "63.7", "63.7", "0.0"};
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(Text(pressure[i]), pressureText[i]);
            EXPECT_EQ(Text(speed[i]), speedText[i]);
        }
        Click(kKeyInjection);
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        EXPECT_EQ(Text(kInjectionPressure), "0");
        EXPECT_EQ(Text(kSpeed[0]), "79.58");
        for (int i = 1; i < 5; ++i) EXPECT_EQ(Text(kSpeed[i]), "0") << i;
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");  // in seconds, though the page was never committed
        Type(kHoldTime[0], "2");
        Click(kKeyMain);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    EXPECT_TRUE(KRNProfile(s.record, MI_P_PROFILE).empty());
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{0, 0}}));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);

    CKRNProMachineInterface panels;
    WhileOpen([&] { panels.KRNDoModal(KRN40mmRecord(), "NIIGATA-Series"); }, [] { Cancel(); });
    EXPECT_FALSE(panels.IsOK());
}

TEST(NiigataMdSeries, AMachineWithoutScrewDiameterShowsAndWritesNoSpeed) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SCREW_DIAMETER, 0.0);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        EXPECT_EQ(Text(kSpeed[0]), "---");
        Type(kSpeed[0], "50");
        Click(kKeyCurve);
        EXPECT_EQ(Text(1392), "---");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_NE(s.messages[0].find("no full scale"), std::string::npos);
    EXPECT_TRUE(KRNAllFinite(s.record));
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
}
