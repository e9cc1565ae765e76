// The JSW Syscom3000 panel as a process engineer uses it.

#include "KRNPanelTest.h"
#include "KRNRecordBuilder.h"
#include "jsw_syscom3000/CMACHINE_JSW_SYSCOM3000_DLG.h"

#include <gtest/gtest.h>

using namespace KRNTest;
using Frame = CMACHINE_JSW_SYSCOM3000_DLG;

namespace {

constexpr int kKeyTemperature = 1454, kKeyInjection = 1455, kKeyCompression = 1451;
constexpr int kSpeed[6] = {1378, 1376, 1374, 1372, 1370, 1368};
constexpr int kPressure[6] = {1377, 1375, 1373, 1371, 1369, 1367};
constexpr int kPosition[5] = {1384, 1383, 1382, 1381, 1380};
constexpr int kHoldPressure[6] = {1397, 1396, 1395, 1394, 1393, 1392};
constexpr int kHoldTime[6] = {1403, 1402, 1401, 1400, 1399, 1398};
constexpr int kForce[6] = {1368, 1370, 1372, 1374, 1376, 1378};
constexpr int kCompressionTime[6] = {1379, 1380, 1381, 1382, 1383, 1384};

CKRNMachineData CompressionRecord(int processValue) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetProcessInfo(PI_PROCESS_VALUE, processValue);
    r.SetMachineData(MI_VALUE_21, 3.0);
    r.SetMachineData(MI_VALUE_23, 100.0);  // tonnes
    KRNSetProfile(r, MI_ICMF_PROFILE, {{100, 40}, {60, 80}, {20, 60}, {0, 60}});
    return r;
}

}  // namespace

// Opens on the temperatures; every profile of two points or more is padded
// to six stages on screen and cleaned again at OK; a new stroke rescales
// every later position. Entries that are no number, or that need a packing
// pressure the record lacks, never reach the record.
TEST(JswSyscom3000, OpensOnTemperaturesPadsRescalesOnANewStrokeAndRefusesBadEntries) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SPEC_5, 1500.0);
    r.SetMachineData(MI_PACKING_PRESSURE, 0.0);
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}});  // one point: no stage to pad
    Session s = OpenPanel<Frame>(r, [] {
        EXPECT_FALSE(Enabled(kKeyCompression));  // no injection compression process
        EXPECT_EQ(Text(1501), "260.00");          // the melt temperature's mirror
        EXPECT_EQ(Text(1452), "40.00 mm");
        EXPECT_EQ(Text(1470), "1500.00 kN");
        EXPECT_FALSE(Text(1440).empty());  // the clock
        Type(1396, "65.5");
        EXPECT_EQ(Text(1395), "65.5");
        Type(1397, "255");
        EXPECT_EQ(Text(1379), "255");
        Click(kKeyInjection);
        EXPECT_EQ(Text(kSpeed[0]), "63.66");
        EXPECT_EQ(Text(kSpeed[5]), "0.00");   // a padded stage
        EXPECT_EQ(Text(kPressure[0]), "0");   // nothing but the closing point
        EXPECT_EQ(Text(kPosition[0]), "102.00");  // where stage 2 begins
        Type(kSpeed[0], "fast");
        Type(kPressure[0], "1e400");
        Type(kHoldPressure[0], "10");  // no packing pressure to take percent of
        Type(1365, "nan");             // read as 0, like the C library's atof of no number
        Type(kPosition[0], "60");      // a new stroke: every later position rescales
        Click(kKeyTemperature);
        Click(kKeyInjection);
        EXPECT_EQ(Text(kPosition[0]), "51.00");  // 85 % of the new 60 mm
        OK();
    });
    ASSERT_EQ(s.messages.size(), 3u);
    EXPECT_EQ(s.messages[0], "Please enter a number.");
    EXPECT_EQ(s.messages[1], "Please enter a number.");
    EXPECT_NE(s.messages[2].find("no full scale"), std::string::npos);
    EXPECT_TRUE(KRNAllFinite(s.record));
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 0.0);
    EXPECT_EQ(KRNItem(s.record, MI_MOLD_TEMPERATURE), 65.5);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 255.0);
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 60.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(KRN40mmRecord(), MI_FP_PROFILE));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{100, 70}}));
}

// Speeds up to the full scale, positions within the machine's stroke limit;
// hold stages in seconds, a stage without time moved to the end when the
// page is left. A process other than injection compression (value 3) works
// the compression page's stages but neither pads nor changes compression.
TEST(JswSyscom3000, StagesInMachineUnitsAndTheCompressionPageWithoutCompression) {
    CKRNMachineData r = CompressionRecord(3);
    // 100 -> 60 -> 60: the middle stage has no time.
    KRNSetProfile(r, MI_PP_PROFILE, {{100, 40}, {60, 60}, {60, 50}, {0, 50}});
    r.SetMachineData(MI_PACKING_TIME, 5.0);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        Type(kSpeed[1], "159.16");  // the full scale as shown is just above it
        Keys(kSpeed[4], "159.15");
        Type(kPosition[2], "180");     // the machine's stroke limit: taken
        Type(kPosition[3], "180.5");   // beyond it: refused
        EXPECT_EQ(Text(kPosition[3]), "18.00");
        Type(kPosition[1], "-1");
        EXPECT_EQ(Text(kHoldTime[0]), "3.00");
        EXPECT_EQ(Text(kHoldPressure[0]), "40.00");  // 50 % of 80 MPa
        EXPECT_EQ(Text(kHoldTime[1]), "0.00");
        EXPECT_EQ(Text(kHoldTime[2]), "2.00");
        Click(kKeyTemperature);
        Click(kKeyInjection);
        // Left once, the empty stage is gone and the unused stages show 0.
        EXPECT_EQ(Text(kHoldTime[1]), "2.00");
        EXPECT_EQ(Text(kHoldTime[2]), "0");
        Type(kHoldPressure[1], "48");
        Type(kHoldTime[1], "2.5");
        Click(kKeyCompression);
        EXPECT_EQ(Text(kForce[0]), "0");
        Type(kForce[0], "500");
        Type(1428, "100");  // the speed of stage 1 on this page
        OK();
    });
    ASSERT_EQ(s.messages.size(), 3u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 159.16.");
    EXPECT_EQ(s.messages[1], "Please enter a value not above 180.00 and not below 0.00.");
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    EXPECT_NEAR(fp[0].second, 100.0 / KRN40mmTopSpeed() * 100.0, 1e-9);
    EXPECT_EQ(fp[1].second, 70.0);
    EXPECT_EQ(fp[2], (std::pair<double, double>(150.0, 90.0)));  // 180 of 120 mm, speed kept
    EXPECT_NEAR(fp[4].second, 159.15 / KRN40mmTopSpeed() * 100.0, 1e-9);
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE)[2].first, 150.0);  // pressure stages share it
    // 48 of 80 MPa (60 %) for 2.5 s, then 3 s at 50 %.
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 60}, {3.0 / 5.5 * 100.0, 50}, {0, 50}});
    EXPECT_NEAR(KRNItem(s.record, MI_PACKING_TIME), 5.5, 1e-12);
    EXPECT_EQ(KRNProfile(s.record, MI_ICMF_PROFILE), KRNProfile(CompressionRecord(3), MI_ICMF_PROFILE));
}

// Injection compression (process value 5): forces in kN from tonnes, times in
// seconds of MI_VALUE_21.
TEST(JswSyscom3000, CompressionStagesForAnInjectionCompressionProcess) {
    Session ic = OpenPanel<Frame>(CompressionRecord(5), [](Frame& frame) {
        EXPECT_EQ(frame.m_MachineData.GetProfileDataCount(MI_ICMF_PROFILE), 7);
        Click(kKeyCompression);
        EXPECT_EQ(Text(kForce[0]), "588.00");  // 60 % of 100 t
        EXPECT_EQ(Text(kCompressionTime[0]), "0.60");
        Type(kForce[1], "1000");  // above 980 kN
        EXPECT_EQ(Text(kForce[1]), "784.00");
        Type(kForce[2], "490");
        Type(kCompressionTime[0], "1.2");
        OK();
    });
    EXPECT_EQ(ic.messages, std::vector<std::string>{"Please enter a value not greater than 980.00."});
    // Stages of 1.2 s at 60 %, 80 % and 50 % (490 kN of 980), the last first; the padding goes again.
    KRNExpectPoints(KRNProfile(ic.record, MI_ICMF_PROFILE),
                    {{100, 50}, {2.4 / 3.6 * 100.0, 80}, {1.2 / 3.6 * 100.0, 60}, {0, 60}});
    EXPECT_NEAR(KRNItem(ic.record, MI_VALUE_21), 3.6, 1e-12);
    EXPECT_EQ(KRNItem(ic.record, MI_PACKING_TIME), 6.0);
}

// A read-only record of an injection compression process whose six points
// already make the five compression stages: nothing is padded, nothing taken.
TEST(JswSyscom3000, ReadOnlyAndTheKeysThatNeverClose) {
    CKRNMachineData r = CompressionRecord(5);
    KRNSetProfile(r, MI_ICMF_PROFILE, {{100, 10}, {80, 20}, {60, 30}, {40, 40}, {20, 50}, {0, 50}});
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Frame>(r, [](Frame& frame) {
        EXPECT_EQ(frame.m_MachineData.GetProfileDataCount(MI_ICMF_PROFILE), 6);
        Click(kKeyInjection);
        EXPECT_EQ(Text(kHoldTime[0]), "1.50");  // page form even without a commit
        Type(kSpeed[0], "100");
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        Click(kKeyTemperature);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
}
