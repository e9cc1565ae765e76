// The hydraulic Mitsubishi panel as a process engineer uses it: the melt
// temperature on the oil temperature page, the suck-back on the oil settings
// page, six injection stages in percent and mm on the oil speed page, and the
// three page keys of which only the shown page's is lit.

#include "KRNColors.h"
#include "KRNNumberText.h"
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

namespace {

constexpr int kKeyTemp = 1767, kKeySet = 1768, kKeySpeed = 1769;
constexpr int kMelt = 1707, kMeltMirror = 1713, kSuckBack = 1563;
constexpr int kPosition[6] = {1517, 1518, 1519, 1520, 1521, 1522};
constexpr int kSpeed[6] = {1523, 1524, 1525, 1526, 1527, 1528};
constexpr int kPressure[6] = {1529, 1530, 1531, 1532, 1533, 1534};
constexpr int kHold[6] = {1546, 1547, 1548, 1552, 1553, 1554};
constexpr int kInjectionTime = 1487, kVP = 1539, kCooling = 1657;

Session OpenHydraulic(const CKRNMachineData& record, const std::function<void(CMACHINE_MITSU_DLG&)>& steps) {
    return OpenPanel<CMACHINE_MITSU_DLG>(record, steps);
}

// Which of the three keys are lit, by their state and by the colour drawn
// inside their edge.
std::vector<bool> LitKeys(CMACHINE_MITSU_DLG& frame) {
    std::vector<bool> lit;
    for (int page = 0; page < 3; ++page) {
        CKRNMachineMITSUBISH_ColorButton* key = frame.PageKey(page);
        const QImage face = key->grab().toImage();
        const bool yellow = face.pixelColor(4, 4) == QColor(255, 255, 0);
        EXPECT_EQ(yellow, key->m_bSelected) << page;
        if (!yellow) {
            EXPECT_EQ(face.pixelColor(4, 4), QColor(255, 255, 255)) << page;
        }
        lit.push_back(yellow);
    }
    return lit;
}

}  // namespace

TEST(MitsubishiHydraulic, OpensOnTheOilTemperatureWhereOnlyNumbersReachTheMeltTemperature) {
    Session s = OpenHydraulic(KRN40mmRecord(), [](CMACHINE_MITSU_DLG& frame) {
        EXPECT_EQ(LitKeys(frame), (std::vector<bool>{true, false, false}));
        EXPECT_EQ(Text(kMelt), "260");
        EXPECT_EQ(Text(kMeltMirror), "260");
        for (int id = 1714; id <= 1730; ++id) EXPECT_EQ(Text(id), "---") << id;
        Type(kMelt, "235.5");
        EXPECT_EQ(Text(kMeltMirror), "235.5");
        // Text that is no number is left as typed, without a word, and changes nothing.
        Type(kMelt, "abc");
        EXPECT_EQ(Text(kMelt), "abc");
        EXPECT_EQ(Text(kMeltMirror), "235.5");
        Type(kMelt, "nan");
        Type(kMelt, "");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    EXPECT_TRUE(s.messages.empty());
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 235.5);
}

TEST(MitsubishiHydraulic, ANumberNoBarrelTakesIsRefused) {
    Session s = OpenHydraulic(KRN40mmRecord(), [](CMACHINE_MITSU_DLG&) {
        Type(kMelt, "1000");
        EXPECT_EQ(Text(kMelt), "260");
        EXPECT_EQ(Text(kMeltMirror), "260");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Please enter a value not above 999.00 and not below -100.00.");
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
}

TEST(MitsubishiHydraulic, TheSuckBackIsReadAsTyped) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_SUCK_BACK_VALUE, 5.0);
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG& frame) {
        Click(kKeySet);
        EXPECT_EQ(LitKeys(frame), (std::vector<bool>{false, true, false}));
        EXPECT_EQ(Text(kSuckBack), "5");
        for (int id : {1478, 1489, 1497, 1536, 1541, 1547, 1632, 1634, 1644}) EXPECT_EQ(Text(id), "---") << id;
        Type(kSuckBack, "7.5");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 7.5);

    // No number reads as 0, as the controller's atof reads it.
    s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG&) {
        Click(kKeySet);
        Type(kSuckBack, "abc");
        OK();
    });
    EXPECT_TRUE(s.messages.empty());
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 0.0);
}

TEST(MitsubishiHydraulic, TheOilSpeedPageShowsPercentagesAndMillimetres) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_INJECTION_TIME, 1.25);
    OpenHydraulic(r, [](CMACHINE_MITSU_DLG& frame) {
        Click(kKeySpeed);
        EXPECT_EQ(LitKeys(frame), (std::vector<bool>{false, false, true}));
        // Positions: x of 120 mm; speeds, pressures, hold pressures: y as they stand.
        const char* positions[6] = {"120.00", "102.00", "72.00", "42.00", "18.00", "0.00"};
        const char* speeds[6] = {"40.00", "70.00", "90.00", "60.00", "35.00", "35.00"};
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(Text(kPosition[i]), positions[i]);
            EXPECT_EQ(Text(kSpeed[i]), speeds[i]);
        }
        EXPECT_EQ(Text(kPressure[1]), "85.00");
        EXPECT_EQ(Text(kPressure[3]), "60.00");
        EXPECT_EQ(Text(kHold[2]), "60.00");
        // Stages beyond a profile's points stay empty and take nothing.
        for (int id : {kPressure[4], kPressure[5], kHold[4], kHold[5]}) {
            EXPECT_EQ(Text(id), "") << id;
            EXPECT_FALSE(Enabled(id)) << id;
        }
        EXPECT_EQ(Text(kInjectionTime), "1.25");
        EXPECT_EQ(Text(kVP), "18");
        EXPECT_EQ(Text(kCooling), "15");
        for (int id : {1484, 1549, 1550, 1551, 1488}) EXPECT_EQ(Text(id), "---") << id;
        // 100 % of speed: 200 cm3/s over a 40 mm screw.
        EXPECT_EQ(Text(1556), KRNFormat("%.1f mm/s", 200.0 * 10.0 / (4.0 * 4.0 * 3.14159 * 0.25)).toStdString());
        EXPECT_EQ(Text(1557), "160 MPa");

        auto* page = frame.findChild<CMACHINE_MITSU_OIL_SPEED_PAGE*>();
        ASSERT_TRUE(page && page->m_pSpeedChart && page->m_pPressureChart);
        EXPECT_EQ(page->m_pSpeedChart->m_dYMax, 100.0);
        EXPECT_EQ(page->m_pSpeedChart->m_crCurve1, KRNColorRef(15391129));
        EXPECT_EQ(page->m_pPressureChart->m_crCurve1, QColor(0, 255, 0));
        EXPECT_EQ(page->m_pSpeedChart->m_vecY1, (std::vector<double>{40, 70, 90, 60, 35, 35}));
        EXPECT_EQ(page->m_pPressureChart->m_vecX1, (std::vector<double>{100, 60, 15, 0}));
        OK();
    });
}

TEST(MitsubishiHydraulic, AHundredPercentIsTheMostAndEveryEditIsChecked) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG& frame) {
        Click(kKeySpeed);
        Type(kSpeed[1], "100");
        Type(kPressure[0], "100.01");
        EXPECT_EQ(Text(kPressure[0]), "70.00");
        Type(kHold[1], "abc");
        EXPECT_EQ(Text(kHold[1]), "50.00");
        Type(kHold[0], "-1");
        Type(kCooling, "1e400");
        EXPECT_EQ(Text(kCooling), "15.00");
        Type(kHold[2], "55.5");
        Type(kInjectionTime, "2.5");
        Type(kVP, "22");
        auto* page = frame.findChild<CMACHINE_MITSU_OIL_SPEED_PAGE*>();
        EXPECT_EQ(page->m_pSpeedChart->m_vecY1[1], 100.0);  // the chart follows the fields
        OK();
    });
    ASSERT_EQ(s.messages.size(), 4u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 100.00.");
    EXPECT_EQ(s.messages[1], "Please enter a number.");
    EXPECT_EQ(s.messages[2], "Please enter a value not above 100.00 and not below 0.00.");
    EXPECT_EQ(s.messages[3], "Please enter a number.");
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[1], (std::pair<double, double>(85.0, 100.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), KRNProfile(r, MI_P_PROFILE));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE)[2], (std::pair<double, double>(25.0, 55.5)));
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE)[0], KRNProfile(r, MI_PP_PROFILE)[0]);
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 15.0);
    EXPECT_EQ(KRNItem(s.record, MI_INJECTION_TIME), 2.5);
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 22.0);
    EXPECT_TRUE(KRNAllFinite(s.record));
}

TEST(MitsubishiHydraulic, TheFirstScrewPositionIsTheFullStroke) {
    Session s = OpenHydraulic(KRN40mmRecord(), [](CMACHINE_MITSU_DLG&) {
        Click(kKeySpeed);
        Type(kPosition[0], "150");
        EXPECT_EQ(Text(1555), "150 mm");
        EXPECT_EQ(Text(kPosition[1]), "102.00");  // seen against the new stroke only from the next showing
        Click(kKeyTemp);
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[1]), "127.50");  // 85 % of 150 mm
        // 60 mm of 150 mm for stage 3: x 40; the pressure stages keep theirs.
        Type(kPosition[2], "60");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    EXPECT_EQ(fp[0], (std::pair<double, double>(100.0, 40.0)));
    EXPECT_EQ(fp[2], (std::pair<double, double>(60.0 / 150.0 * 100.0, 90.0)));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), KRNProfile(KRN40mmRecord(), MI_P_PROFILE));
}

TEST(MitsubishiHydraulic, ALastButOneStageAtTheFullStrokeIsHalvedAndTheProfileEndsFlat) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 70}, {0, 10}});
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG&) {
        Click(kKeySpeed);
        Type(kPosition[1], "120");  // 100 % of the stroke
        OK();
    });
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {50, 70}, {0, 70}}));
}

TEST(MitsubishiHydraulic, WithoutAStrokeThereAreNoPositions) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_MAX_RAM_POSITION, 0.0);
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG&) {
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[1]), "---");
        Type(kPosition[1], "50");
        Type(kPosition[0], "0");
        Type(kSpeed[0], "45");  // a speed needs no stroke
        OK();
    });
    EXPECT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 0.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[0], (std::pair<double, double>(100.0, 45.0)));
    EXPECT_TRUE(KRNAllFinite(s.record));
}

TEST(MitsubishiHydraulic, TheShownPagesKeyDoesNothingAndAnotherCommits) {
    Session s = OpenHydraulic(KRN40mmRecord(), [](CMACHINE_MITSU_DLG& frame) {
        Click(kKeySpeed);
        Keys(kPosition[1], "90");
        // A commit would show every page afresh: "90.00".
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[1]), "90");
        EXPECT_EQ(LitKeys(frame), (std::vector<bool>{false, false, true}));
        Type(kCooling, "20");
        Click(kKeyTemp);
        EXPECT_EQ(LitKeys(frame), (std::vector<bool>{true, false, false}));
        Type(kMelt, "240");
        Click(kKeySpeed);
        EXPECT_EQ(Text(kPosition[1]), "90.00");
        EXPECT_EQ(Text(kCooling), "20");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 20.0);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 240.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[1], (std::pair<double, double>(75.0, 70.0)));
}

TEST(MitsubishiHydraulic, AReadOnlyRecordKeepsOnlyThePageShownAtOK) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG& frame) {
        Type(kMelt, "200");  // lost: the page is left
        Click(kKeySpeed);
        EXPECT_EQ(LitKeys(frame), (std::vector<bool>{false, false, true}));
        Type(kSpeed[0], "55");  // kept: the page is shown at OK
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE)[0].second, 55.0);
}

TEST(MitsubishiHydraulic, OKDropsPaddingStagesAndClosesEachProfileFlat) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 0}, {50, 60}, {0, 20}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}});
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG&) { OK(); });
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), (KRNPointList{{100, 40}, {50, 60}, {0, 60}}));
    EXPECT_EQ(KRNProfile(s.record, MI_P_PROFILE), (KRNPointList{{100, 70}}));  // alone, kept
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
}

TEST(MitsubishiHydraulic, CancelAndTheInterface) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenHydraulic(r, [](CMACHINE_MITSU_DLG&) {
        Type(kMelt, "200");
        Cancel();
    });
    EXPECT_EQ(s.result, IDCANCEL);

    CKRNProMachineInterface panels;
    WhileOpen([&] { EXPECT_EQ(panels.KRNDoModal(r, "MITSUBISHI-Hydraulic"), 1); },
              [] {
                  Click(kKeySpeed);
                  Type(kSpeed[0], "55");
                  PressKey(Qt::Key_Return);  // neither key closes the panel
                  PressKey(Qt::Key_Escape);
                  Cancel();
              });
    EXPECT_FALSE(panels.IsOK());

    WhileOpen([&] { panels.KRNDoModal(r, "MITSUBISHI-Hydraulic"); },
              [] {
                  Click(kKeySpeed);
                  Type(kSpeed[0], "55");
                  OK();
              });
    EXPECT_TRUE(panels.IsOK());
    EXPECT_EQ(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE)[0].second, 55.0);
}
