// The Polypax series panel as a process engineer uses it, and as a host embeds it.

#include "CKRNDialog.h"
#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "KRNResources.h"
#include "common/CKRNPanelPage.h"
#include "polypax_series/CMACHINE_POLYPAX_SERIES_DLG.h"
#include "polypax_series/PolypaxSeriesIds.h"

#include <QLabel>

#include <gtest/gtest.h>

#include <iomanip>
#include <locale>
#include <sstream>

using namespace KRNTest;
using namespace PolypaxSeries;

namespace {

constexpr int kKeyStatus = 1616, kKeyCurve = 1617, kKeyTemperature = 1618, kKeyInjection = 1622, kKeyChart = 1637;

Session OpenPolypax(const CKRNMachineData& record, const std::function<void()>& steps) {
    return OpenPanel<CMACHINE_POLYPAX_SERIES_DLG>(record, steps);
}

// The 40 mm machine with a second diameter of 100 mm: pressures are shown
// over (100 / 40)² = 6.25. Speed and pressure stages share their positions.
CKRNMachineData PolypaxRecord() {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SPEC_6, 100.0);
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}, {85, 80}, {60, 90}, {35, 75}, {15, 60}, {0, 60}});
    return r;
}

constexpr double kRatio = 100.0 * 100.0 / (40.0 * 40.0);
// A percentage of 160 MPa injection or 80 MPa packing pressure as shown: ×10 over the ratio.
double ShownInjection(double percent) { return percent * 160.0 * 0.01 * 10.0 / kRatio; }
double ShownPacking(double percent) { return percent * 80.0 * 0.01 * 10.0 / kRatio; }
// And back: the percentage a typed pressure becomes.
double InjectionPercent(double shown) { return shown * kRatio / 160.0 * 100.0 / 10.0; }
double PackingPercent(double shown) { return shown * kRatio / 80.0 * 100.0 / 10.0; }
}  // namespace

// ---- what the screens show ----------------------------------------------------------

TEST(PolypaxSeries, OpensOnTheMachineStatusAndShowsTheStagesInMachineUnits) {
    OpenPolypax(PolypaxRecord(), [] {
        EXPECT_EQ(Text(IDC_STATUS_MELT_TEMPERATURE), "260");
        EXPECT_EQ(Text(IDC_STATUS_INJECTION_PRESSURE), "160");
        EXPECT_EQ(Text(IDC_STATUS_COOLING_TIME), "15");
        EXPECT_EQ(Text(1729), "---");
        EXPECT_EQ(Text(IDC_STATUS_CLOCK).rfind("DATE: ", 0), 0u);
        Click(kKeyCurve);  // without the pressure-curve flag its key leads nowhere
        EXPECT_EQ(Text(IDC_STATUS_MELT_TEMPERATURE), "260");

        Click(kKeyInjection);
        const double fp[5][2] = {{100, 40}, {85, 70}, {60, 90}, {35, 60}, {15, 35}};
        const double p[5] = {70, 80, 90, 75, 60};
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(Text(kSpeed[i]), Fixed(fp[i][1] * KRN40mmTopSpeed() * 0.01, 2)) << i;
            EXPECT_EQ(Text(kPosition[i]), Fixed(fp[i][0] * 120.0 * 0.01, 2)) << i;
            EXPECT_EQ(Text(kPressure[i]), Fixed(ShownInjection(p[i]), 2)) << i;
        }
        EXPECT_EQ(Text(kPressure[0]), "179.20");
        // Hold stages of 1.5, 3 and 1.5 s at 60, 50 and 40 % of 80 MPa; the padded fourth is empty.
        EXPECT_EQ(Text(kHoldPressure[0]), Fixed(ShownPacking(60), 2));
        EXPECT_EQ(Text(kHoldTime[0]), "1.50");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        EXPECT_EQ(Text(kHoldPressure[2]), Fixed(ShownPacking(40), 2));
        EXPECT_EQ(Text(kHoldTime[3]), "0.00");
        EXPECT_EQ(Text(IDC_SUCK_BACK), "0");
        EXPECT_FALSE(Enabled(IDC_STROKE_TIME));
        EXPECT_EQ(Text(1405), "---");

        Click(kKeyChart);
        EXPECT_EQ(Text(IDC_MAX_SPEED), "159.155");
        EXPECT_EQ(Text(IDC_MAX_PRESSURE), "1600");
        EXPECT_EQ(Text(1740), "---");
        OK();
    });
}

TEST(PolypaxSeries, OkWithoutEditsGivesTheRecordBackAsItCame) {
    const CKRNMachineData r = PolypaxRecord();
    Session s = OpenPolypax(r, [] {
        Click(kKeyTemperature);
        Click(kKeyStatus);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);
}

// The second picture set is for exactly "zh-TW": not for a longer tag that
// begins with it, nor for a prefix of it.
TEST(PolypaxSeries, OnlyALanguageOfExactlyZhTwSelectsTheSecondPictures) {
    for (const char* language : {"zh-TW", "zh-TW-x", "zh-T", ""}) {
        CKRNMachineData r = PolypaxRecord();
        r.SetLanguage(language);
        const bool second = std::string(language) == "zh-TW";
        OpenPolypax(r, [&] {
            Click(kKeyInjection);
            for (int i = 0; i < 4; ++i)
                EXPECT_TRUE(ShowsBitmap(kPictureStatics[i], second ? kPicturesZhTw[i] : kPictures[i])) << language;
            EXPECT_TRUE(ShowsBitmap(kFixedPictureStatics[0], kFixedPictures[0]));
            Click(kKeyChart);
            EXPECT_TRUE(ShowsBitmap(IDC_CHART_PICTURE, second ? IDB_CHART_PICTURE_ZH_TW : IDB_CHART_PICTURE)) << language;
            OK();
        });
    }
}

// ---- the pressure ratio -----------------------------------------------------------------

TEST(PolypaxSeries, PressuresAreTypedAtTheSecondDiameterAndStoredAtTheScrew) {
    Session s = OpenPolypax(PolypaxRecord(), [] {
        Click(kKeyInjection);
        // The bound is the injection pressure at the second diameter: 1600 bar / 6.25.
        Type(kPressure[1], "260");
        EXPECT_EQ(Text(kPressure[1]), "204.80");
        Type(kPressure[1], "220");
        Type(kHoldPressure[0], "260");
        EXPECT_EQ(Text(kHoldPressure[0]), "76.80");
        Type(kHoldPressure[0], "100");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 256.00.");
    EXPECT_EQ(s.messages[1], "Please enter a value not greater than 256.00.");
    const KRNPointList p = KRNProfile(s.record, MI_P_PROFILE);
    EXPECT_NEAR(p[1].second, InjectionPercent(220), 1e-9);  // 85.9375 %
    EXPECT_NEAR(p[0].second, 70.0, 0.005);                 // 179.20 read back as shown
    // Stages of 1.5, 3 and 1.5 s; the first now at 100 bar shown.
    const KRNPointList pp = KRNProfile(s.record, MI_PP_PROFILE);
    ASSERT_EQ(pp.size(), 4u);
    EXPECT_NEAR(pp[2].second, PackingPercent(100), 1e-9);  // 78.125 %
    EXPECT_NEAR(pp[2].first, 25.0, 1e-9);
}

// Without a second diameter (or without a screw diameter) there is no ratio:
// the pressures show "---", entries in them are refused, and nothing that is
// no number reaches the record.
TEST(PolypaxSeries, WithoutARatioPressuresShowDashesAndNothingBecomesNaN) {
    CKRNMachineData noSecond = PolypaxRecord();
    noSecond.SetMachine(MC_SPEC_6, 0.0);
    CKRNMachineData noScrew = PolypaxRecord();
    noScrew.SetMachine(MC_SCREW_DIAMETER, 0.0);
    for (const CKRNMachineData& r : {noSecond, noScrew}) {
        Session s = OpenPolypax(r, [] {
            Click(kKeyInjection);
            EXPECT_EQ(Text(kPressure[0]), "---");
            EXPECT_EQ(Text(kHoldPressure[0]), "---");
            Type(kPressure[0], "100");
            EXPECT_EQ(Text(kPressure[0]), "---");
            Type(kHoldPressure[0], "50");
            Type(kHoldTime[0], "2");
            Type(kPosition[1], "90");
            Click(kKeyStatus);  // reads every field back
            Click(kKeyInjection);
            EXPECT_EQ(Text(kPressure[1]), "---");
            OK();
        });
        EXPECT_TRUE(KRNAllFinite(s.record));
        ASSERT_EQ(s.messages.size(), 2u);
        for (const std::string& m : s.messages) EXPECT_NE(m.find("no full scale"), std::string::npos) << m;
        // The levels stay; the second stage moved to 90 of 120 mm in both profiles.
        const KRNPointList p = KRNProfile(s.record, MI_P_PROFILE);
        ASSERT_EQ(p.size(), 6u);
        for (int i = 0; i < 6; ++i) EXPECT_EQ(p[i].second, KRNProfile(r, MI_P_PROFILE)[i].second) << i;
        EXPECT_NEAR(p[1].first, 75.0, 1e-9);
        EXPECT_NEAR(KRNProfile(s.record, MI_PP_PROFILE)[2].second, 60.0, 1e-9);
        EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.5);
    }
}

// ---- the injection page's own rules ------------------------------------------------------

TEST(PolypaxSeries, AnInjectionPressureIsStoredOnlyWhenThePageIsLeft) {
    // Abandoned by Cancel: never in the record.
    CKRNProMachineInterface panels;
    WhileOpen([&] { panels.KRNDoModal(PolypaxRecord(), "Polypax-Series"); },
              [] {
                  Click(kKeyInjection);
                  Type(kPressure[2], "128");
                  Cancel();
              });
    EXPECT_EQ(panels.IsOK(), 0);
    EXPECT_EQ(KRNProfile(panels.GetMachineData(), MI_P_PROFILE), KRNProfile(PolypaxRecord(), MI_P_PROFILE));

    // While the page is shown the record still has the old pressure: a
    // refusal restores that one. A page switch stores the typed one.
    Session s = OpenPolypax(PolypaxRecord(), [] {
        Click(kKeyInjection);
        Type(kPressure[2], "128");
        Type(kPressure[2], "x");
        EXPECT_EQ(Text(kPressure[2]), "230.40");
        Type(kPressure[2], "128");
        Click(kKeyTemperature);
        Click(kKeyInjection);
        Type(kPressure[2], "x");
        EXPECT_EQ(Text(kPressure[2]), "128.00");
        Type(kPressure[3], "64");  // followed by OK alone
        OK();
    });
    const KRNPointList p = KRNProfile(s.record, MI_P_PROFILE);
    EXPECT_NEAR(p[2].second, InjectionPercent(128), 1e-9);  // 50 %
    EXPECT_NEAR(p[3].second, InjectionPercent(64), 1e-9);   // 25 %
    ASSERT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(s.messages[0], "Please enter a number.");
}

TEST(PolypaxSeries, AFirstPositionOfZeroOrLessIsRefusedAndLaterOnesAreNotCheckedForSign) {
    Session s = OpenPolypax(PolypaxRecord(), [] {
        Click(kKeyInjection);
        for (const char* text : {"0", "-5", "abc"}) {
            Type(kPosition[0], text);
            EXPECT_EQ(Text(kPosition[0]), "120.00") << text;
        }
        Type(kPosition[3], "0");  // a later stage may end at 0
        Type(kPosition[2], "-5");  // below what any machine takes, not a sign rule
        EXPECT_EQ(Text(kPosition[2]), "72.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 4u);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(s.messages[i], "Please enter a value greater than 0.00.") << i;
    EXPECT_EQ(s.messages[3], "Please enter a value not above 9999.00 and not below 0.00.");
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0);
}

// A position moves the speed and the pressure stage; the first one is the
// full stroke. Each accepted edit shows the stroke time of the new profile.
TEST(PolypaxSeries, PositionsMoveBothProfilesAndTheStrokeTimeFollows) {
    Session s = OpenPolypax(PolypaxRecord(), [] {
        Click(kKeyInjection);
        Type(kPosition[1], "90");
        CKRNMachineData expected = PolypaxRecord();
        KRNSetProfile(expected, MI_FP_PROFILE, {{100, 40}, {75, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 0}});
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 6));
        Type(kSpeed[2], "100");
        KRNSetProfile(expected, MI_FP_PROFILE, {{100, 40}, {75, 70}, {60, 100.0 / KRN40mmTopSpeed() * 100.0}, {35, 60}, {15, 35}, {0, 0}});
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 6));
        Type(kPosition[0], "150");
        OK();
    });
    EXPECT_TRUE(s.messages.empty());
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    // Read back against 150 mm: 90 mm is 60 %, 18 mm is 12 %.
    const KRNPointList fp = KRNProfile(s.record, MI_FP_PROFILE);
    const KRNPointList p = KRNProfile(s.record, MI_P_PROFILE);
    EXPECT_NEAR(fp[1].first, 60.0, 1e-9);
    EXPECT_NEAR(p[1].first, 60.0, 1e-9);
    EXPECT_NEAR(fp[4].first, 12.0, 1e-9);
    EXPECT_NEAR(fp[2].second, 100.0 / KRN40mmTopSpeed() * 100.0, 0.005);
}

// The V-P field is an entry line showing 0.00; the stage table shows the
// switch-over as the free stage after the last one, and OK takes the V-P
// position back from there.
TEST(PolypaxSeries, TheSwitchOverSitsInTheFreeStageAndTheVPFieldShowsZero) {
    CKRNMachineData r = PolypaxRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 80}, {0, 80}});
    Session s = OpenPolypax(r, [] {
        Click(kKeyInjection);
        EXPECT_EQ(Text(IDC_VP_POSITION), "0.00");
        EXPECT_EQ(Text(kPosition[2]), "18.00");  // the record's V-P position
        EXPECT_EQ(Text(kSpeed[2]), "0.00");
        Type(kPosition[2], "30");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 30.0);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {60, 80}, {0, 80}}, 0.005);

    // Without a free stage the V-P line itself stores what is typed; 0 is no entry.
    s = OpenPolypax(PolypaxRecord(), [] {
        Click(kKeyInjection);
        EXPECT_EQ(Text(IDC_VP_POSITION), "0.00");
        Type(IDC_VP_POSITION, "22.5");
        Type(IDC_VP_POSITION, "0");
        Type(IDC_SUCK_BACK, "4");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 22.5);
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 4.0);
}

TEST(PolypaxSeries, HoldStagesGoBackAsShareOfThePackingTime) {
    Session s = OpenPolypax(PolypaxRecord(), [] {
        Click(kKeyInjection);
        // 60 %, 50 % and 40 % of 80 MPa as shown, for 1, 2 and 1 s.
        Type(kHoldPressure[0], QString::fromStdString(Fixed(ShownPacking(60), 2)));
        Type(kHoldPressure[1], QString::fromStdString(Fixed(ShownPacking(50), 2)));
        Type(kHoldPressure[2], QString::fromStdString(Fixed(ShownPacking(40), 2)));
        Type(kHoldTime[0], "1");
        Type(kHoldTime[1], "2");
        Type(kHoldTime[2], "1");
        OK();
    });
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 40}, {75, 50}, {25, 60}, {0, 60}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 4.0);
}

TEST(PolypaxSeries, RefusedEntriesLeaveFieldAndRecordAsTheyWere) {
    const CKRNMachineData r = PolypaxRecord();
    Session s = OpenPolypax(r, [] {
        Click(kKeyInjection);
        Keys(kSpeed[0], "200");  // crosses 159.16 at the third keystroke
        EXPECT_EQ(Text(kSpeed[0]), "20.00");
        Type(kSpeed[0], "63.66");
        for (const char* text : {"nan", "inf", "1e400"}) Type(kSpeed[1], text);
        EXPECT_EQ(Text(kSpeed[1]), "111.41");
        Type(kHoldTime[1], "-1");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        Type(kPressure[0], "-1");
        EXPECT_EQ(Text(kPressure[0]), "179.20");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 6u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 159.16.");
    EXPECT_EQ(s.messages[1], "Please enter a number.");
    EXPECT_EQ(s.messages[4], "Please enter a value not above 9999.00 and not below 0.00.");
    EXPECT_TRUE(KRNAllFinite(s.record));
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[0].second, 63.66 / KRN40mmTopSpeed() * 100.0, 1e-9);
}

// ---- the other pages ------------------------------------------------------------------

// The temperature page repeats the melt temperature as the nozzle's actual
// value only after an edit; neither clock page lets Enter or Escape close the panel.
TEST(PolypaxSeries, TheClockPagesKeepEnterAndEscapeAndTheMeltTemperatureIsRepeatedAfterAnEdit) {
    Session s = OpenPolypax(PolypaxRecord(), [] {
        for (int key : {kKeyStatus, kKeyTemperature}) {
            Click(key);
            PressKey(Qt::Key_Return);
            PressKey(Qt::Key_Escape);
            EXPECT_NE(KRNDriver::TopDialog(), nullptr) << key;
        }
        EXPECT_EQ(Text(IDC_MELT_TEMPERATURE), "260.00");
        EXPECT_EQ(Text(IDC_MELT_COPY), "---");  // the placeholders come after the copy
        EXPECT_EQ(Text(IDC_TEMPERATURE_CLOCK).rfind("DATE/TIME : ", 0), 0u);
        Type(IDC_MELT_TEMPERATURE, "245");
        EXPECT_EQ(Text(IDC_MELT_COPY), "245");
        PressKey(Qt::Key_Return);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.0);
}

TEST(PolypaxSeries, ReadOnlyRecordsNeverChange) {
    CKRNMachineData r = PolypaxRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 80}, {0, 80}});
    Session s = OpenPolypax(r, [] {
        Click(kKeyInjection);
        Type(kSpeed[0], "100");
        Type(kPressure[0], "100");
        Click(kKeyTemperature);
        Type(IDC_MELT_TEMPERATURE, "200");
        Click(kKeyInjection);
        OK();
    });
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 18.0);
}

// A table and its template agree: a field missing from the form would be silently unwired.
TEST(PolypaxSeries, EveryTableFieldIsOnItsTemplate) {
    CKRNDialog page(IDD_INJECTION);
    ASSERT_TRUE(page.Create(nullptr, false));
    for (const KRNStageFields& row : kInjectionTable)
        for (int id : row.ids) EXPECT_TRUE(page.Controls().contains(id)) << id;
    for (int id : kPressure) EXPECT_TRUE(page.Controls().contains(id)) << id;
}

// ---- hosted -------------------------------------------------------------------------

TEST(PolypaxSeries, HostedWithoutAModalLoopAndOpenedAgain) {
    CKRNProMachineInterface panels;
    panels.CreateMachineDialog(PolypaxRecord(), "Polypax-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_EQ(KRNDriver::TopDialog()->TemplateId(), IDD_FRAME);
    EXPECT_FALSE(panels.CanUpdate());
    Click(kKeyInjection);
    Type(kPressure[1], "128");
    OK();
    EXPECT_TRUE(panels.CanUpdate());
    EXPECT_NEAR(KRNProfile(panels.GetMachineData(), MI_P_PROFILE)[1].second, 50.0, 1e-9);
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);  // the window closed

    // Opened again on the same interface: the same five pages, the new record,
    // the machine status first; Cancel leaves no update.
    panels.SetHasUpdate(false);
    CKRNMachineData other = PolypaxRecord();
    other.SetMachineData(MI_MELT_TEMPERATURE, 230.0);
    panels.CreateMachineDialog(other, "Polypax-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_EQ(KRNDriver::TopDialog()->findChildren<CKRNPanelPage*>().size(), 5);
    EXPECT_EQ(Text(IDC_STATUS_MELT_TEMPERATURE), "230");
    Click(kKeyInjection);
    EXPECT_EQ(Text(kPressure[1]), "204.80");
    Cancel();
    EXPECT_FALSE(panels.CanUpdate());
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);
}
