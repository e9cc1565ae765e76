// The Polypax series panel as a process engineer uses it, and as a host embeds it.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "KRNResources.h"
#include "common/CKRNPanelPage.h"
#include "polypax_series/CMACHINE_POLYPAX_SERIES_DLG.h"
#include "polypax_series/PolypaxSeriesIds.h"

#include <gtest/gtest.h>

using namespace KRNTest;
using namespace PolypaxSeries;

namespace {

constexpr int kKeyStatus = 1616, kKeyCurve = 1617, kKeyTemperature = 1618, kKeyInjection = 1622, kKeyChart = 1637;

using Polypax = CMACHINE_POLYPAX_SERIES_DLG;

// The 40 mm machine with a second diameter of 100 mm: pressures are shown
// over (100 / 40)² = 6.25. Speed and pressure stages share their positions.
CKRNMachineData PolypaxRecord() {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachine(MC_SPEC_6, 100.0);
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}, {85, 80}, {60, 90}, {35, 75}, {15, 60}, {0, 60}});
    return r;
}
}  // namespace

// A walk over every page without touching the stages: the machine units shown,
// the clock pages keeping Enter and Escape, the melt temperature repeated as the
// nozzle's actual value only after an edit, and the profiles given back as they came.
TEST(PolypaxSeries, PagesShowMachineUnitsKeepEnterAndEscapeAndGiveTheProfilesBack) {
    const CKRNMachineData r = PolypaxRecord();
    Session s = OpenPanel<Polypax>(r, [] {
        EXPECT_EQ(Text(IDC_STATUS_MELT_TEMPERATURE), "260");
        EXPECT_EQ(Text(IDC_STATUS_INJECTION_PRESSURE), "160");
        Click(kKeyCurve);  // without the pressure-curve flag its key leads nowhere
        EXPECT_EQ(Text(IDC_STATUS_MELT_TEMPERATURE), "260");

        Click(kKeyInjection);
        EXPECT_EQ(Text(kSpeed[0]), "63.66");  // 40 % of 159.155 mm/s
        EXPECT_EQ(Text(kPressure[0]), "179.20");  // 70 % of 1600 bar over 6.25
        EXPECT_EQ(Text(kHoldPressure[0]), "76.80");  // 60 % of 800 bar over 6.25
        EXPECT_FALSE(Enabled(IDC_STROKE_TIME));
        Click(kKeyChart);
        EXPECT_EQ(Text(IDC_MAX_PRESSURE), "1600");

        for (int key : {kKeyStatus, kKeyTemperature}) {
            Click(key);
            PressKey(Qt::Key_Return);
            PressKey(Qt::Key_Escape);
            EXPECT_NE(KRNDriver::TopDialog(), nullptr) << key;
        }
        EXPECT_EQ(Text(IDC_MELT_COPY), "---");
        Type(IDC_MELT_TEMPERATURE, "245");
        EXPECT_EQ(Text(IDC_MELT_COPY), "245");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.0);
    for (KRNMACHINEITEM p : {MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    // Speeds are read back from the page as shown, to two places.
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE), 0.005);
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.0);
}

// The second picture set is for exactly "zh-TW": not for a longer tag that
// begins with it, nor for a prefix of it.
TEST(PolypaxSeries, OnlyALanguageOfExactlyZhTwSelectsTheSecondPictures) {
    for (const char* language : {"zh-TW", "zh-TW-x", "zh-T", ""}) {
        CKRNMachineData r = PolypaxRecord();
        r.SetLanguage(language);
        const bool second = std::string(language) == "zh-TW";
        OpenPanel<Polypax>(r, [&] {
            Click(kKeyInjection);
            for (int i = 0; i < 4; ++i)
                EXPECT_TRUE(ShowsBitmap(kPictureStatics[i], second ? kPicturesZhTw[i] : kPictures[i])) << language;
            Click(kKeyChart);
            EXPECT_TRUE(ShowsBitmap(IDC_CHART_PICTURE, second ? IDB_CHART_PICTURE_ZH_TW : IDB_CHART_PICTURE)) << language;
            OK();
        });
    }
}

// Pressures are typed at the second diameter and stored at the screw; hold
// stages go back as shares of the packing time, the first stage last.
TEST(PolypaxSeries, TypedStagesGoThroughTheRatioAndTheStroke) {
    Session s = OpenPanel<Polypax>(PolypaxRecord(), [] {
        Click(kKeyInjection);
        Type(kPressure[1], "260");  // the bound is 1600 bar / 6.25
        EXPECT_EQ(Text(kPressure[1]), "204.80");
        Type(kPressure[1], "220");
        Type(kHoldPressure[0], "260");
        EXPECT_EQ(Text(kHoldPressure[0]), "76.80");
        Type(kHoldPressure[0], "100");
        Type(kHoldTime[0], "1");
        Type(kHoldTime[1], "2");
        Type(kHoldTime[2], "1");
        // A position moves the speed and the pressure stage, and the stroke time follows.
        Type(kPosition[1], "90");
        CKRNMachineData expected = PolypaxRecord();
        KRNSetProfile(expected, MI_FP_PROFILE, {{100, 40}, {75, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 0}});
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 6));
        Type(kPosition[0], "150");  // the full stroke
        OK();
    });
    ASSERT_EQ(s.messages.size(), 2u);
    for (const std::string& m : s.messages) EXPECT_EQ(m, "Please enter a value not greater than 256.00.");
    const KRNPointList p = KRNProfile(s.record, MI_P_PROFILE);
    EXPECT_NEAR(p[1].second, 85.9375, 1e-9);
    EXPECT_NEAR(p[0].second, 70.0, 0.005);  // 179.20 read back as shown
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 40}, {75, 50}, {25, 78.125}, {0, 78.125}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 4.0);
    // Read back against 150 mm: 90 mm is 60 %, 18 mm is 12 %.
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    EXPECT_NEAR(p[1].first, 60.0, 1e-9);
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[1].first, 60.0, 1e-9);
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[4].first, 12.0, 1e-9);
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
        Session s = OpenPanel<Polypax>(r, [] {
            Click(kKeyInjection);
            Type(kPressure[0], "100");
            EXPECT_EQ(Text(kPressure[0]), "---");
            Type(kHoldPressure[0], "50");
            Type(kHoldTime[0], "2");
            Type(kPosition[1], "90");
            Click(kKeyStatus);  // reads every field back
            OK();
        });
        EXPECT_TRUE(KRNAllFinite(s.record));
        ASSERT_EQ(s.messages.size(), 2u);
        for (const std::string& m : s.messages) EXPECT_NE(m.find("no full scale"), std::string::npos) << m;
        // The levels stay; the second stage moved to 90 of 120 mm.
        KRNExpectPoints(KRNProfile(s.record, MI_P_PROFILE), {{100, 70}, {75, 80}, {60, 90}, {35, 75}, {15, 60}, {0, 60}});
        EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 6.5);
    }
}

// Refused entries leave field and record as they were. Only the first
// position is checked for sign; a later one may end at 0. An injection
// pressure reaches the record only when the page is left (page switch or OK);
// one abandoned by Cancel never does (see the hosted test).
TEST(PolypaxSeries, RefusalsRestoreTheFieldAndInjectionPressuresAreStoredOnLeavingThePage) {
    const CKRNMachineData r = PolypaxRecord();
    Session s = OpenPanel<Polypax>(r, [] {
        Click(kKeyInjection);
        for (const char* text : {"0", "-5"}) {
            Type(kPosition[0], text);
            EXPECT_EQ(Text(kPosition[0]), "120.00") << text;
        }
        Type(kPosition[3], "0");
        Type(kPosition[2], "-5");  // below what any machine takes, not a sign rule
        EXPECT_EQ(Text(kPosition[2]), "72.00");
        Keys(kSpeed[0], "200");  // crosses 159.16 at the third keystroke
        EXPECT_EQ(Text(kSpeed[0]), "20.00");
        for (const char* text : {"nan", "1e400"}) Type(kSpeed[1], text);
        EXPECT_EQ(Text(kSpeed[1]), "111.41");
        Type(kHoldTime[1], "-1");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        // While the page is shown the record still has the old pressure, and a refusal restores that one.
        Type(kPressure[2], "128");
        Type(kPressure[2], "x");
        EXPECT_EQ(Text(kPressure[2]), "230.40");
        Type(kPressure[2], "128");
        Click(kKeyTemperature);
        Click(kKeyInjection);
        Type(kPressure[2], "x");
        EXPECT_EQ(Text(kPressure[2]), "128.00");
        Type(kPressure[1], "64");  // followed by OK alone
        OK();
    });
    const std::string positive = "Please enter a value greater than 0.00.", number = "Please enter a number.",
                      range = "Please enter a value not above 9999.00 and not below 0.00.";
    EXPECT_EQ(s.messages, (std::vector<std::string>{positive, positive, range,
                                                    "Please enter a value not greater than 159.16.", number, number, range,
                                                    number, number}));
    EXPECT_TRUE(KRNAllFinite(s.record));
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0);
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
    EXPECT_NEAR(KRNProfile(s.record, MI_P_PROFILE)[2].second, 50.0, 1e-9);
    EXPECT_NEAR(KRNProfile(s.record, MI_P_PROFILE)[1].second, 25.0, 1e-9);
}

// The V-P field is an entry line showing 0.00 whatever the record holds; the
// stage table shows the switch-over as the free stage after the last one, and
// OK takes the V-P position back from there.
TEST(PolypaxSeries, TheSwitchOverSitsInTheFreeStageAndReadOnlyKeepsIt) {
    CKRNMachineData r = PolypaxRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 80}, {0, 80}});
    Session s = OpenPanel<Polypax>(r, [] {
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
    s = OpenPanel<Polypax>(PolypaxRecord(), [] {
        Click(kKeyInjection);
        EXPECT_EQ(Text(IDC_VP_POSITION), "0.00");
        Type(IDC_VP_POSITION, "22.5");
        Type(IDC_VP_POSITION, "0");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 22.5);

    // A read-only record never changes, whatever is typed on any page.
    r.SetMachineData(MI_READ_ONLY, true);
    s = OpenPanel<Polypax>(r, [] {
        Click(kKeyInjection);
        Type(kSpeed[0], "100");
        Type(kPressure[0], "100");
        Type(kPosition[2], "30");
        Click(kKeyTemperature);
        Type(IDC_MELT_TEMPERATURE, "200");
        OK();
    });
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) EXPECT_EQ(KRNProfile(s.record, p), KRNProfile(r, p));
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 18.0);
}

TEST(PolypaxSeries, HostedWithoutAModalLoopAndOpenedAgain) {
    CKRNProMachineInterface panels;
    panels.CreateMachineDialog(PolypaxRecord(), "Polypax-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_FALSE(panels.CanUpdate());
    Click(kKeyInjection);
    Type(kPressure[1], "128");
    OK();
    EXPECT_TRUE(panels.CanUpdate());
    EXPECT_NEAR(KRNProfile(panels.GetMachineData(), MI_P_PROFILE)[1].second, 50.0, 1e-9);
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);  // the window closed

    // Opened again on the same interface: the same five pages, the new record,
    // the machine status first; a pressure abandoned by Cancel leaves no update.
    panels.SetHasUpdate(false);
    CKRNMachineData other = PolypaxRecord();
    other.SetMachineData(MI_MELT_TEMPERATURE, 230.0);
    panels.CreateMachineDialog(other, "Polypax-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_EQ(KRNDriver::TopDialog()->TemplateId(), IDD_FRAME);
    EXPECT_EQ(KRNDriver::TopDialog()->findChildren<CKRNPanelPage*>().size(), 5);
    EXPECT_EQ(Text(IDC_STATUS_MELT_TEMPERATURE), "230");
    Click(kKeyInjection);
    Type(kPressure[2], "128");
    Cancel();
    EXPECT_FALSE(panels.CanUpdate());
    EXPECT_EQ(KRNProfile(panels.GetMachineData(), MI_P_PROFILE)[2].second, 90.0);
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);
}
