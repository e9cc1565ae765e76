// The hydraulic Mitsubishi panel as a process engineer uses it: the melt
// temperature on the oil temperature page, the suck-back on the oil settings
// page, six injection stages in percent and mm on the oil speed page, and the
// three page keys of which only the shown page's is lit.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "CKRNChartVariants.h"
#include "mitsubishi_hydraulic/CKRNMachineMITSUBISH_ColorButton.h"
#include "mitsubishi_hydraulic/CMACHINE_MITSU_DLG.h"
#include "mitsubishi_hydraulic/MitsubishiHydraulicPages.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace KRNTest;
using Frame = CMACHINE_MITSU_DLG;

namespace {

constexpr int kKeyTemp = 1767, kKeySet = 1768, kKeySpeed = 1769;
constexpr int kMelt = 1707, kMeltMirror = 1713, kSuckBack = 1563;
constexpr int kPosition[6] = {1517, 1518, 1519, 1520, 1521, 1522};
constexpr int kSpeed[6] = {1523, 1524, 1525, 1526, 1527, 1528};
constexpr int kPressure[6] = {1529, 1530, 1531, 1532, 1533, 1534};
constexpr int kHold[6] = {1546, 1547, 1548, 1552, 1553, 1554};
constexpr int kVP = 1539, kCooling = 1657;

// The one key drawn lit (yellow inside its edge, as its state says); -2 when
// more than one is.
int LitKey(Frame& frame) {
    int lit = -1;
    for (int page = 0; page < 3; ++page) {
        CKRNMachineMITSUBISH_ColorButton* key = frame.PageKey(page);
        const bool yellow = key->grab().toImage().pixelColor(4, 4) == QColor(255, 255, 0);
        EXPECT_EQ(yellow, key->m_bSelected) << page;
        if (yellow) lit = lit == -1 ? page : -2;
    }
    return lit;
}

}  // namespace

// Every page of the 40 mm record: its numbers shown and taken, a hundred
// percent the most a stage takes, every edit checked, the first position the
// full stroke; only the shown page's key lit.
TEST(MitsubishiHydraulic, EachPageShowsAndTakesItsNumbersAndOnlyTheShownPagesKeyIsLit) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_SUCK_BACK_VALUE, 5.0);
    Session s = OpenPanel<Frame>(r, [](Frame& frame) {
        EXPECT_EQ(LitKey(frame), 0);
        EXPECT_EQ(Text(kMeltMirror), "260");
        Type(kMelt, "1000");
        EXPECT_EQ(Text(kMelt), "260");
        Type(kMelt, "235.5");
        EXPECT_EQ(Text(kMeltMirror), "235.5");
        // Text that is no number is left as typed, without a word, and changes nothing.
        for (const char* text : {"abc", "nan", ""}) Type(kMelt, text);
        EXPECT_EQ(Text(kMeltMirror), "235.5");
        Click(kKeySet);
        EXPECT_EQ(LitKey(frame), 1);
        EXPECT_EQ(Text(kSuckBack), "5");
        Type(kSuckBack, "abc");  // the suck-back reads it as 0, as the controller's atof does

        Click(kKeySpeed);
        EXPECT_EQ(LitKey(frame), 2);
        // Positions: x of 120 mm; speeds, pressures, hold pressures: y as they stand.
        const char* positions[6] = {"120.00", "102.00", "72.00", "42.00", "18.00", "0.00"};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(Text(kPosition[i]), positions[i]);
        EXPECT_EQ(Text(kSpeed[2]), "90.00");
        EXPECT_EQ(Text(kPressure[3]), "60.00");
        EXPECT_EQ(Text(kHold[2]), "60.00");
        // Stages beyond a profile's points stay empty and take nothing.
        EXPECT_EQ(Text(kPressure[4]), "");
        EXPECT_FALSE(Enabled(kHold[5]));
        EXPECT_EQ(Text(kVP), "18");
        EXPECT_EQ(Text(1556), "159.2 mm/s");  // 100 %: 200 cm3/s over a 40 mm screw
        EXPECT_EQ(Text(1557), "160 MPa");

        Type(kSpeed[1], "100");
        Type(kPressure[0], "100.01");
        EXPECT_EQ(Text(kPressure[0]), "70.00");
        Type(kHold[1], "abc");
        EXPECT_EQ(Text(kHold[1]), "50.00");
        Type(kHold[0], "-1");
        Type(kCooling, "1e400");
        EXPECT_EQ(Text(kCooling), "15.00");
        Type(kHold[2], "55.5");
        EXPECT_EQ(frame.findChild<CMACHINE_MITSU_OIL_SPEED_PAGE*>()->m_pSpeedChart->m_vecY1[1], 100.0);
        Type(kPosition[0], "150");  // the first screw position is the full stroke
        EXPECT_EQ(Text(1555), "150 mm");
        EXPECT_EQ(Text(kPosition[1]), "102.00");  // seen against the new stroke only from the next showing
        Click(kKeyTemp);
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[1]), "127.50");  // 85 % of 150 mm

        // The shown page's key does nothing; another commits and shows every page afresh.
        Keys(kPosition[2], "60");  // x 40; the pressure stages keep theirs
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[2]), "60");
        Click(kKeyTemp);
        EXPECT_EQ(LitKey(frame), 0);
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[2]), "60.00");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    EXPECT_EQ(s.messages, (std::vector<std::string>{"Please enter a value not above 999.00 and not below -100.00.",
                                                    "Please enter a value not greater than 100.00.", "Please enter a number.",
                                                    "Please enter a value not above 100.00 and not below 0.00.",
                                                    "Please enter a number."}));
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 235.5);
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 0.0);
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[1], (std::pair<double, double>(85.0, 100.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[2], (std::pair<double, double>(60.0 / 150.0 * 100.0, 90.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), KRNProfile(r, MI_P_PROFILE));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE)[2], (std::pair<double, double>(25.0, 55.5)));
    EXPECT_TRUE(KRNAllFinite(s.record));
}

// Without a stroke there are no positions; a speed needs none.
TEST(MitsubishiHydraulic, NoStrokeNoPositions) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_MAX_RAM_POSITION, 0.0);
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[1]), "---");
        Type(kPosition[1], "50");
        Type(kPosition[0], "0");
        Type(kSpeed[0], "45");
        OK();
    });
    const std::string noFullScale = "The machine data give this value no full scale (a screw diameter, stroke, "
                                    "pressure or time of 0): the entry can't be stored.";
    EXPECT_EQ(s.messages, std::vector<std::string>(2, noFullScale));
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[0], (std::pair<double, double>(100.0, 45.0)));
}

TEST(MitsubishiHydraulic, OKHalvesALastButOneStageAtTheFullStrokeDropsPaddingAndEndsFlat) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 70}, {0, 10}});
    Session s = OpenPanel<Frame>(r, [] {
        Click(kKeySpeed);
        Type(kPosition[1], "120");
        OK();
    });
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {50, 70}, {0, 70}}));

    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 0}, {50, 60}, {0, 20}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}});
    s = OpenPanel<Frame>(r, [] { OK(); });
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {50, 60}, {0, 60}}));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{100, 70}}));  // alone, kept
}

TEST(MitsubishiHydraulic, ReadOnlyCancelAndTheInterface) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenPanel<Frame>(r, [] {
        Type(kMelt, "200");  // lost: the page is left
        Click(kKeySpeed);
        Type(kSpeed[0], "55");  // kept: the page is shown at OK
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[0].second, 55.0);

    CKRNProMachineInterface panels;
    WhileOpen([&] { EXPECT_EQ(panels.KRNDoModal(KRN40mmRecord(), "MITSUBISHI-Hydraulic"), 1); },
              [] {
                  Type(kMelt, "200");
                  PressKey(Qt::Key_Return);  // neither key closes the panel
                  PressKey(Qt::Key_Escape);
                  Cancel();
              });
    EXPECT_FALSE(panels.IsOK());
    EXPECT_EQ(KRNItem(panels.GetMachineData(), MI_MELT_TEMPERATURE), 260.0);
}
