// The Mitsubishi electric panel as a process engineer uses it: speeds and
// pressures as the record's own percentages, positions in mm.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "mitsubishi_electric/CMACHINE_MITSUBISHI_DLG.h"

#include <gtest/gtest.h>

using namespace KRNTest;

namespace {

constexpr int kKeyTime = 1768, kKeyInjection = 1771, kKeyMold = 1767;
constexpr int kSpeed[6] = {1432, 1430, 1428, 1426, 1433, 1434};
constexpr int kPressure[6] = {1371, 1369, 1367, 1365, 1435, 1436};
constexpr int kPosition[6] = {1382, 1380, 1378, 1376, 1437, 1438};
constexpr int kHoldPressure[3] = {1395, 1393, 1391};
constexpr int kHoldTime[3] = {1401, 1399, 1397};
constexpr int kMelt = 1308, kMeltCopy = 1315, kMeltDouble = 1313;
constexpr int kStrokeMirrors[2] = {1327, 1332};
using Frame = CMACHINE_MITSUBISHI_DLG;

}  // namespace

// Percentages of the record up to 100, positions in mm; the 40 mm record's
// four-point hold profile is three stages of its 6 s. The melt temperature
// typed on the times page is taken when the injection page is shown.
TEST(MitsubishiElectric, NozzleTemperatureRepeatedPercentagesUpToAHundredAndPositionsMoveTheStages) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenPanel<Frame>(r, [] {
        EXPECT_EQ(Text(kMeltCopy), "260");
        EXPECT_EQ(Text(kMeltDouble), "520");  // the overheat limit: twice the value
        Type(kMelt, "230.5");
        EXPECT_EQ(Text(kMeltCopy), "230.5");
        EXPECT_EQ(Text(kMeltDouble), "461");
        Type(kMelt, "abc");
        EXPECT_EQ(Text(kMelt), "230.50");
        Click(kKeyMold);  // a soft key with no screen behind it here

        Click(kKeyInjection);
        const char* speeds[6] = {"40.00", "70.00", "90.00", "60.00", "35.00", "0.00"};
        const char* positions[6] = {"120.00", "102.00", "72.00", "42.00", "18.00", "0.00"};
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(Text(kSpeed[i]), speeds[i]);
            EXPECT_EQ(Text(kPosition[i]), positions[i]);
        }
        EXPECT_EQ(Text(kPressure[1]), "85.00");
        const char* holdPressures[3] = {"60.00", "50.00", "40.00"};
        const char* holdTimes[3] = {"1.50", "3.00", "1.50"};
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(Text(kHoldPressure[k]), holdPressures[k]) << k;
            EXPECT_EQ(Text(kHoldTime[k]), holdTimes[k]) << k;
        }
        Type(kSpeed[1], "100");
        Type(kSpeed[0], "100.01");
        EXPECT_EQ(Text(kSpeed[0]), "40.00");
        Type(kSpeed[2], "-1");

        Keys(kPosition[1], "90");  // typed a digit at a time, rewritten on leaving
        EXPECT_EQ(Text(kPosition[1]), "90");
        Leave(kPosition[1]);
        EXPECT_EQ(Text(kPosition[1]), "90.00");
        Type(kPosition[0], "150");
        for (int id : kStrokeMirrors) EXPECT_EQ(Text(id), "150 mm") << id;
        Click(kKeyTime);
        Click(kKeyInjection);
        EXPECT_EQ(Text(kPosition[1]), "112.50");  // 75 % of the new 150 mm
        OK();
    });
    EXPECT_EQ(s.messages, (std::vector<std::string>{"Please enter a number.", "Please enter a value not greater than 100.00.",
                                                    "Please enter a value not above 100.00 and not below 0.00."}));
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 230.5);
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    // 90 mm of 120 mm, at the stage's own speed (as typed) and pressure.
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    EXPECT_EQ(fp[0].second, 40.0);
    EXPECT_EQ(fp[1], (std::pair<double, double>(75.0, 100.0)));
    EXPECT_EQ(fp[2].second, 90.0);
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE)[1], (std::pair<double, double>(75.0, 85.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
}

// A pressure profile left with its end point alone ends at (0, 0) on OK.
TEST(MitsubishiElectric, ThreeHoldStagesHoweverLongTheProfileAndALoneEndPointEndsAtZero) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_PP_PROFILE, {{100, 40}, {80, 50}, {60, 60}, {40, 70}, {20, 80}, {0, 80}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}});
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        // 6 s in five stages of 1.2 s, the first of them last in the record.
        EXPECT_EQ(Text(kHoldTime[0]), "1.20");
        EXPECT_EQ(Text(kHoldPressure[0]), "80.00");
        EXPECT_EQ(Text(kHoldPressure[2]), "60.00");
        Type(kHoldPressure[0], "75");
        Type(kHoldTime[0], "2.4");
        OK();
    });
    // The hold time grew by 1.2 s: 7.2 s in all, stage 1 a third of it.
    EXPECT_NEAR(KRNItem(s.record, MI_PACKING_TIME), 7.2, 1e-9);
    const KRNPointList pp = KRNProfile(s.record, MI_PP_PROFILE);
    ASSERT_EQ(pp.size(), 6u);
    EXPECT_NEAR(pp[4].first, 2.4 / 7.2 * 100.0, 1e-9);
    EXPECT_EQ(pp[4].second, 75.0);
    EXPECT_EQ(pp[5], (std::pair<double, double>(0.0, 75.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{0, 0}}));
}

TEST(MitsubishiElectric, ReadOnlyCancelAndTheInterface) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeyInjection);
        Type(kSpeed[0], "55");
        Click(kKeyTime);
        OK();
    });
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));

    for (bool ok : {false, true}) {
        CKRNProMachineInterface panels;
        WhileOpen([&] { EXPECT_EQ(panels.KRNDoModal(KRN40mmRecord(), "MITSUBISHI-Electric"), 1); }, [ok] {
            Click(kKeyInjection);
            Type(kSpeed[0], "55");
            PressKey(Qt::Key_Return);  // neither key closes the panel
            PressKey(Qt::Key_Escape);
            ok ? OK() : Cancel();
        });
        EXPECT_EQ(panels.IsOK(), ok);
        EXPECT_EQ(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE)[0].second, ok ? 55.0 : 40.0);
    }
}

