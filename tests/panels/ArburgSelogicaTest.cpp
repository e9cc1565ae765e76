// The Selogica panel as a setter uses it: seven screens behind the navigation
// keys, injection stages in cm3/s, cm3 and bar with the shot moved between
// stroke percentages and stage volumes, holding stages, the stage-count
// keypad, and the date and time line.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "arburg_selogica/ArburgSelogicaIds.h"
#include "arburg_selogica/CKRNMachineArburgCalc.h"
#include "arburg_selogica/CMACHINE_ARBURG_SELOGICA_DIRECT_DLG.h"
#include "common/KRNClockText.h"
#include "CKRNChartVariants.h"
#include "KRNMessageBox.h"
#include "KRNNumberText.h"
#include "KRNResources.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

#include <gtest/gtest.h>

#include <cstring>
#include <set>

using namespace KRNTest;
using namespace ArburgSelogica;
using Selogica = CMACHINE_ARBURG_SELOGICA_DIRECT_DLG;

namespace {

constexpr int kNavProduction = 1363, kNavInjection = 1367, kNavCooling = 1368, kNavTemperatures = 1369,
              kNavHolding = 1413, kNavMeasurementMenu = 1359, kNavMainMenu = 1304;
constexpr int kKeypadConfirm = 1387, kKeypadCancel = 1386, kKeypadValue = 1366;
constexpr int kKeypadDigit[10] = {1377, 1367, 1368, 1369, 1371, 1372, 1373, 1374, 1375, 1376};

// The curve of the holding page's chart as (s, bar) points.
KRNPointList HoldingCurve() {
    KRNPointList points;
    if (const auto* chart = Field(kHoldPressure[0])->parentWidget()->findChild<CMachineChartArburg*>())
        for (std::size_t i = 0; i < chart->m_vecX1.size(); ++i) points.push_back({chart->m_vecX1[i], chart->m_vecY1[i]});
    return points;
}

// The 40 mm screw's cross-section (cm2 x 10 per mm) and the shot of its 120 mm stroke.
const double kArea = 4.0 * 4.0 * 3.14159 * 0.25;
const double kShot = 100.0 * kArea * 0.01 * 120.0 * 0.1;

// Clicks stage key `key` and taps `keys` on the keypad it opens ('c' for
// confirm); a keypad still open afterwards is cancelled, as a user would.
void OnKeypad(int key, const std::string& keys, std::string* shown = nullptr) {
    QObject context;
    QTimer::singleShot(0, &context, [&] {
        if (!dynamic_cast<CKRNMachineArburgCalc*>(KRNDriver::TopDialog())) return;
        if (shown) *shown = Text(kKeypadValue);
        for (char k : keys) Click(k == 'c' ? kKeypadConfirm : kKeypadDigit[k - '0']);
        if (dynamic_cast<CKRNMachineArburgCalc*>(KRNDriver::TopDialog())) Click(kKeypadCancel);
    });
    Click(key);
}

// Sunday 3 March 2024, 08:05:00 local time.
std::time_t SundayFivePastEight() {
    std::tm t{};
    t.tm_year = 124, t.tm_mon = 2, t.tm_mday = 3, t.tm_hour = 8, t.tm_min = 5, t.tm_isdst = -1;
    return std::mktime(&t);
}

// Three injection stages and three holding stages.
CKRNMachineData ThreeStages() {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 90}, {30, 60}, {0, 60}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}, {60, 85}, {30, 60}, {0, 60}});
    return r;
}

}  // namespace

TEST(ArburgSelogica, DateLineAndKeysThatNeverClose) {
    const KRNTimeSource previous = KRNSetTimeSource(&SundayFivePastEight);
    const Session s = OpenPanel<Selogica>(KRN40mmRecord(), [] {
        Click(kNavCooling);  // the production-sequence page has keys of the same numbers
        EXPECT_EQ(Text(IDC_DAY) + Text(IDC_MONTH) + Text(IDC_YEAR), "3.3.2024.");
        EXPECT_EQ(Text(IDC_HOUR) + ":" + Text(IDC_MINUTE) + ":" + Text(IDC_SECOND), "8:5:0");
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        EXPECT_NE(KRNDriver::TopDialog(), nullptr);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);

    // Every message reads the clock once per field; a key-down of Enter or
    // Escape reads it not at all.
    static int reads = 0;
    KRNSetTimeSource([] { return SundayFivePastEight() + reads++; });
    OpenPanel<Selogica>(KRN40mmRecord(), [] {
        QWidget* field = Field(IDC_SEQ_PROCESS);
        auto send = [&](int key) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            const int before = reads;
            QCoreApplication::sendEvent(field, &press);
            return reads - before;
        };
        EXPECT_EQ(send(Qt::Key_Return), 0);
        EXPECT_EQ(send(Qt::Key_Escape), 0);
        EXPECT_EQ(send(Qt::Key_A), 6);
        // Each field took its own reading, a second after the one before.
        EXPECT_EQ(std::stoi(Text(IDC_SECOND)), (reads - 1) % 60);
        OK();
    });
    KRNSetTimeSource(previous);

    QString none;  // no clock at all
    for (int field = 0; field < kDateTimeFields; ++field) none += ArburgDateTimeText(nullptr, field);
    EXPECT_EQ(none, "0.0.0.-1-1-1");
    std::tm leap{};
    leap.tm_year = 100, leap.tm_mon = 11, leap.tm_mday = 31, leap.tm_hour = 23, leap.tm_min = 59, leap.tm_sec = 60;
    QString all;
    for (int field = 0; field < kDateTimeFields; ++field) all += ArburgDateTimeText(&leap, field) + " ";
    EXPECT_EQ(all, "31. 12. 2000. 23 59 60 ");
}

TEST(ArburgSelogica, SoftKeysInThreeMenusWithTheOtherScreensGreyed) {
    std::set<int> ids;
    for (const NavKey& key : kNavKeys) {
        ids.insert(key.id);
        EXPECT_FALSE(KRNResources::Bitmap(key.bitmap).isNull()) << key.id;
        EXPECT_FALSE(KRNResources::Bitmap(key.pressed).isNull()) << key.id;
    }
    EXPECT_EQ(ids.size(), 58u);
    OpenPanel<Selogica>(KRN40mmRecord(), [](Selogica& frame) {
        // Only the keys of the menu shown stand; those that lead nowhere here are greyed.
        auto expectMenu = [&](unsigned group, const char* name) {
            EXPECT_EQ(frame.ShownGroup(), group);
            EXPECT_EQ(Text(IDC_MENU_NAME), name);
            for (const NavKey& key : kNavKeys) {
                const QWidget* w = frame.GetDlgItem(key.id);
                ASSERT_NE(w, nullptr) << key.id;
                EXPECT_EQ(w->isVisible(), (key.groups & group) != 0) << key.id;
                EXPECT_EQ(w->isEnabled(), key.page != kNoPage) << key.id;
            }
        };
        expectMenu(kInMain, "Main menu");
        Click(kNavMeasurementMenu);
        expectMenu(kInMeasurement, "Measurement");
        EXPECT_EQ(Text(IDC_MEAS_INJECTION_PRESSURE), "160");  // the measurement chart
        Click(IDC_NAV_SUB_HOLDING);
        EXPECT_EQ(Text(IDC_HOLDING_STAGES), "3");
        Click(IDC_NAV_SUB_INJECTION);
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "5");
        Click(kNavMainMenu);  // main menu and production sequence
        expectMenu(kInMain, "Main menu");
        EXPECT_EQ(Text(IDC_SEQ_DOSE_STROKE), "120.0");
        Click(IDC_NAV_ADMIN_MENU);
        expectMenu(kInProgram, "Program administration");
        EXPECT_EQ(Text(IDC_ADMIN_SCREW), "40");
        Click(IDC_NAV_SUB_PRODUCTION);
        expectMenu(kInProgram, "Program administration");
        EXPECT_EQ(Text(IDC_SEQ_COOLING_TIME), "15.00");  // the production sequence
        OK();
    });
}

TEST(ArburgSelogica, ProductionAndProgramScreensShowTheRecordAndNeverChangeIt) {
    CKRNPanelData r = KRN40mmRecord();
    r.SetProcessName("Housing lid");
    r.SetMaterialName("PA6 GF30");
    r.SetMachineData(MI_INJECTION_TIME, 1.25);
    r.SetMachineData(MI_SUCK_BACK_VALUE, 4.0);
    r.SetMachineData(MI_MOLD_TEMPERATURE, 80.0);
    const Session s = OpenPanel<Selogica>(r, [] {
        EXPECT_EQ(Text(IDC_SEQ_PROCESS) + " / " + Text(IDC_SEQ_MATERIAL), "Housing lid / PA6 GF30");
        EXPECT_EQ(Text(IDC_SEQ_INJECTION_TIME) + " " + Text(IDC_SEQ_HOLDING_TIME) + " " + Text(IDC_SEQ_COOLING_TIME),
                  "1.25 6.00 15.00");
        EXPECT_EQ(Text(IDC_SEQ_SWITCH_OVER) + " " + Text(IDC_SEQ_MELT) + " " + Text(IDC_SEQ_MOULD), "18.0 260 80");
        // Each picture with the figures under its steps.
        EXPECT_TRUE(ShowsBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[0]));
        EXPECT_EQ(Text(kSequenceSteps[1]) + "|" + Text(kSequenceSteps[3]) + "|" + Text(kSequenceSteps[4]),
                  "1.25 s|15.00 s|");
        Click(IDC_SEQ_PICTURE_2);
        EXPECT_TRUE(ShowsBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[1]));
        EXPECT_EQ(Text(kSequenceSteps[3]) + "|" + Text(kSequenceSteps[4]), "120.0 mm|4.0 mm");
        Click(IDC_SEQ_PICTURE_3);
        EXPECT_EQ(Text(kSequenceSteps[1]) + "|" + Text(kSequenceSteps[2]), "|15.00 s");
        Click(IDC_NAV_INJECTION);
        OnKeypad(kInjectionStageKeys[0], "3c");
        Click(IDC_NAV_ADMIN_MENU);  // the program takes the new stage count with it
        EXPECT_EQ(Text(IDC_ADMIN_PROCESS) + " / " + Text(IDC_ADMIN_MATERIAL), "Housing lid / PA6 GF30");
        EXPECT_EQ(Text(IDC_ADMIN_RATE) + " " + Text(IDC_ADMIN_PRESSURE), "200 1600");
        EXPECT_EQ(Text(IDC_ADMIN_INJECTION_STAGES) + " " + Text(IDC_ADMIN_HOLDING_STAGES), "3 3");
        EXPECT_EQ(Text(IDC_ADMIN_PROTECTION), "Open for changes");
        Click(kNavMainMenu);
        EXPECT_TRUE(ShowsBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[2]));  // the setter's picture stays
        OK();
    });
    // Only the injection stages changed; both screens left the rest as it was.
    EXPECT_EQ(CKRNPanelData(s.record).GetProcessName(), "Housing lid");
    EXPECT_EQ(KRNItem(s.record, MI_INJECTION_TIME), 1.25);
    EXPECT_EQ(KRNItem(s.record, MI_SUCK_BACK_VALUE), 4.0);
    EXPECT_EQ(s.record.GetProfileDataCount(MI_FP_PROFILE), 4);
    EXPECT_EQ(KRNProfile(s.record, MI_PP_PROFILE), KRNProfile(r, MI_PP_PROFILE));
}

TEST(ArburgSelogica, InjectionStagesInVolumesAndTheirRoundTrip) {
    const Session s = OpenPanel<Selogica>(KRN40mmRecord(), [] {
        Click(kNavInjection);  // leaving the first page turns the shot into stage volumes
        const double shares[4] = {15, 25, 25, 20};
        for (int k = 0; k < 4; ++k) EXPECT_EQ(Text(kVolume[k]), Fixed(shares[k] * kShot * 0.01, 2)) << k;
        EXPECT_EQ(Text(kSpeed[1]), "140.00");     // 70 % of 200 cm3/s
        EXPECT_EQ(Text(kPressure[0]), "1120.00");  // 70 % of 160 bar x 10
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "5");
        OK();
    });
    // Untouched, the stroke and its percentages come back. The pressure profile
    // takes the flow-rate profile's x values point by point, appended where it
    // had none (carrying its last level): on OK from this page it leaves with the
    // flow-rate profile's points even when nothing was edited.
    EXPECT_NEAR(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0, 1e-9);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {85, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
    KRNExpectPoints(KRNProfile(s.record, MI_P_PROFILE), {{100, 70}, {85, 85}, {60, 60}, {35, 60}, {15, 60}, {0, 60}});

    // A pressure profile longer than the flow-rate profile keeps its points past
    // the flow-rate profile's end as they stand: the x values are only written,
    // never points removed.
    CKRNMachineData longer = KRN40mmRecord();
    KRNSetProfile(longer, MI_FP_PROFILE, {{100, 40}, {50, 80}, {0, 80}});
    KRNSetProfile(longer, MI_P_PROFILE, {{100, 70}, {70, 80}, {40, 90}, {20, 60}, {0, 60}});
    const Session kept = OpenPanel<Selogica>(longer, [] {
        Click(kNavInjection);
        OK();
    });
    KRNExpectPoints(KRNProfile(kept.record, MI_P_PROFILE), {{100, 70}, {50, 80}, {0, 90}, {20, 60}, {0, 60}});

    // A second stage of 50 cm3 instead of 30 mm lengthens the stroke: stages of 18, v, 30, 24 and 18 mm.
    const Session edited = OpenPanel<Selogica>(KRN40mmRecord(), [] {
        Click(kNavInjection);
        Type(kVolume[1], "50");
        Leave(kVolume[1]);
        OK();
    });
    const double v = 50.0 / kArea * 10.0, stroke = 120.0 - 30.0 + v;
    EXPECT_NEAR(KRNItem(edited.record, MI_MAX_RAM_POSITION), stroke, 1e-9);
    KRNExpectPoints(KRNProfile(edited.record, MI_FP_PROFILE),
                    {{100, 40}, {100 * (stroke - 18) / stroke, 70}, {100 * 72 / stroke, 90}, {100 * 42 / stroke, 60},
                     {100 * 18 / stroke, 35}, {0, 35}});
}

TEST(ArburgSelogica, TheLastStageEndingAtAHundredIsHalvedAndTheEndFollows) {
    const Session s = OpenPanel<Selogica>(ThreeStages(), [] {
        Click(kNavInjection);
        Type(kVolume[2], "100.0");
        Leave(kVolume[2]);
        EXPECT_EQ(Text(kVolume[2]), "50.00");
        Type(kSpeed[2], "100");
        Leave(kSpeed[2]);
        EXPECT_EQ(Text(kVolume[3]), "-------");  // the end point has no stage
        OK();
    });
    // Stages of 48, 36 and v mm; the end point takes the last stage's speed.
    const double v = 50.0 / kArea * 10.0, stroke = 84.0 + v;
    EXPECT_NEAR(KRNItem(s.record, MI_MAX_RAM_POSITION), stroke, 1e-9);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE),
                    {{100, 40}, {100 * (36 + v) / stroke, 90}, {100 * v / stroke, 50}, {0, 50}});
}

TEST(ArburgSelogica, RefusalsOnTheInjectionAndHoldingPages) {
    const Session s = OpenPanel<Selogica>(KRN40mmRecord(), [] {
        Click(kNavInjection);
        Type(kSpeed[0], "200");  // the machine's injection rate itself
        Leave(kSpeed[0]);
        Type(kSpeed[1], "200.5");
        Leave(kSpeed[1]);
        Type(kSpeed[2], "fast");
        Leave(kSpeed[2]);
        Type(kPressure[0], "1600");  // the injection pressure in bar
        Leave(kPressure[0]);
        Type(kPressure[1], "1601");
        Leave(kPressure[1]);
        EXPECT_EQ(Text(kPressure[1]), "1360.00");
        Type(IDC_SWITCH_OVER_VOLUME, "999");
        Leave(IDC_SWITCH_OVER_VOLUME);
        EXPECT_EQ(Text(IDC_SWITCH_OVER_VOLUME), Fixed(18.0 / 10.0 * kArea, 2));
        Type(IDC_SWITCH_OVER_VOLUME, "30");
        Leave(IDC_SWITCH_OVER_VOLUME);
        EXPECT_EQ(Text(IDC_SWITCH_OVER_VOLUME), "30");  // kept as typed

        Click(kNavHolding);  // holding pressures go up to the injection pressure
        Type(kHoldPressure[0], "1600");
        Leave(kHoldPressure[0]);
        Type(kHoldPressure[1], "1601");
        Leave(kHoldPressure[1]);
        EXPECT_EQ(Text(kHoldPressure[1]), "400.00");
        Type(kHoldPressure[4], "-------");  // beyond the count: ignored
        Leave(kHoldPressure[4]);
        Type(kHoldTime[2], "12.5");
        Leave(kHoldTime[2]);
        // The chart follows every stored stage: 1600, 400 and 480 bar for 100, 75 and 12.5 s.
        KRNExpectPoints(HoldingCurve(), {{0, 0}, {0, 1600}, {100, 1600}, {100, 400}, {175, 400}, {175, 480},
                                         {187.5, 480}, {187.5, 0}});
        OK();
    });
    // The controller puts the typed text where the switch-over figure belongs.
    const char bytes[sizeof(double)] = {'9', '9', '9', 0, 0, 0, 0, 0};
    double figure = 0;
    std::memcpy(&figure, bytes, sizeof figure);
    const std::vector<std::string> expected = {
        KRNResourceMessage(352, {200.0}).toStdString(), KRNResourceMessage(61713).toStdString(),
        KRNResourceMessage(352, {1600.0}).toStdString(),
        KRNFormat("Can't more than injection volume: %lg", figure).toStdString(),
        KRNResourceMessage(352, {1600.0}).toStdString()};
    EXPECT_EQ(s.messages, expected);
    EXPECT_DOUBLE_EQ(KRNProfile(s.record, MI_FP_PROFILE)[0].second, 100.0);
    EXPECT_DOUBLE_EQ(KRNProfile(s.record, MI_P_PROFILE)[0].second, 100.0);
    EXPECT_NEAR(KRNItem(s.record, MI_VP_RAM_POSITION), 30.0 / kArea * 10.0, 1e-9);
    const KRNPointList hold = KRNProfile(s.record, MI_PP_PROFILE);
    ASSERT_EQ(hold.size(), 4u);
    EXPECT_DOUBLE_EQ(hold[0].second, 200.0);  // 1600 bar on the 80 bar x 10 scale
    EXPECT_DOUBLE_EQ(hold[1].second, 50.0);
    EXPECT_DOUBLE_EQ(hold[2].first, 12.5);
}

TEST(ArburgSelogica, StageCountsThroughTheKeypad) {
    const Session s = OpenPanel<Selogica>(ThreeStages(), [] {
        Click(kNavInjection);
        std::string shown;
        OnKeypad(kInjectionStageKeys[0], "7c", &shown);  // refused: the keypad stays open, then is cancelled
        EXPECT_EQ(shown, "3");
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "3");
        OnKeypad(kInjectionStageKeys[2], "4c");
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "4");
        Click(kNavHolding);
        OnKeypad(kHoldingStageKeys[0], "10c", &shown);
        EXPECT_EQ(shown, "3");
        EXPECT_EQ(Text(IDC_HOLDING_STAGES), "10");
        EXPECT_EQ(HoldingCurve().size(), 2u + 2u * 10u);  // the chart draws every stage
        OK();
    });
    EXPECT_EQ(s.messages, std::vector<std::string>{"Can't more than 5"});
    EXPECT_EQ(s.record.GetProfileDataCount(MI_FP_PROFILE), 5);
    EXPECT_EQ(s.record.GetProfileDataCount(MI_PP_PROFILE), 11);
    EXPECT_TRUE(KRNAllFinite(s.record));

    // Shrinking drops the points before the end, which stays; a cancelled keypad changes nothing.
    const Session shrunk = OpenPanel<Selogica>(KRN40mmRecord(), [] {
        Click(kNavHolding);
        OnKeypad(kHoldingStageKeys[4], "1c");
        EXPECT_EQ(Text(kHoldPressure[1]), "-------");
        KRNExpectPoints(HoldingCurve(), {{0, 0}, {0, 320}, {100, 320}, {100, 0}});
        OnKeypad(kHoldingStageKeys[0], "");
        OK();
    });
    KRNExpectPoints(KRNProfile(shrunk.record, MI_PP_PROFILE), {{100, 40}, {0, 60}});
}

TEST(ArburgSelogica, EditsOnPagesLeftEarlierSurviveOK) {
    const Session s = OpenPanel<Selogica>(KRN40mmRecord(), [] {
        Click(kNavTemperatures);
        EXPECT_EQ(Text(IDC_MELT_TEMPERATURE), "260.0");
        Type(IDC_MELT_TEMPERATURE, "50");
        Leave(IDC_MELT_TEMPERATURE);
        EXPECT_EQ(Text(IDC_BAND_SET) + " " + Text(IDC_BAND_UPPER) + " " + Text(IDC_BAND_LOWER) + " " +
                      Text(IDC_BAND_FLOOR),
                  "50 150 20 0");
        Click(kNavCooling);
        Type(IDC_COOLING_TIME, "");
        Leave(IDC_COOLING_TIME);
        EXPECT_EQ(Text(IDC_COOLING_TIME), "15");  // refilled
        Type(IDC_COOLING_TIME, "12.5");
        Leave(IDC_COOLING_TIME);
        Click(kNavMeasurementMenu);
        EXPECT_EQ(Text(IDC_MEAS_INJECTION_PRESSURE) + " " + Text(IDC_MEAS_PACKING_PRESSURE), "160 80");
        for (int key : {IDC_SHOW_PRESSURE, IDC_SHOW_HOLDING, IDC_SHOW_SPEED}) Click(key);
        Click(kNavMainMenu);
        Click(IDC_SEQ_PICTURE_3);
        EXPECT_TRUE(ShowsBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[2]));
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 50.0);
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 12.5);

    CKRNMachineData hot = KRN40mmRecord();
    hot.SetMachineData(MI_MELT_TEMPERATURE, 350.0);
    OpenPanel<Selogica>(hot, [] {
        Click(kNavTemperatures);
        EXPECT_EQ(Text(IDC_BAND_FLOOR), "250");
    });
}

TEST(ArburgSelogica, ReadOnlyKeepsOnlyThePageShownAtOKAndCancelKeepsNothing) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    const Session s = OpenPanel<Selogica>(r, [] {
        Click(kNavCooling);
        Type(IDC_COOLING_TIME, "9");
        Leave(IDC_COOLING_TIME);
        Click(kNavInjection);  // no commit: the page shows the record's stroke percentages
        EXPECT_EQ(Text(kVolume[1]), "85.00");
        Click(kNavTemperatures);
        Type(IDC_MELT_TEMPERATURE, "240");
        Leave(IDC_MELT_TEMPERATURE);
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 15.0);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 240.0);

    // OK takes the injection page through its save step even so, and the
    // page, never rebuilt, holds percentages where the step expects cm3.
    const Session injection = OpenPanel<Selogica>(r, [] {
        Click(kNavInjection);
        OK();
    });
    EXPECT_NEAR(KRNItem(injection.record, MI_MAX_RAM_POSITION), (100 + 85 + 60 + 35 + 15) / kArea * 10.0, 1e-9);

    // The interface opens the panel by its name.
    CKRNProMachineInterface panels;
    for (bool ok : {false, true}) {
        WhileOpen([&] { panels.KRNDoModal(KRN40mmRecord(), "SELOGICA"); }, [ok] {
            Click(kNavCooling);
            Type(IDC_COOLING_TIME, "9");
            Leave(IDC_COOLING_TIME);
            Click(kNavProduction);
            ok ? OK() : Cancel();
        });
        EXPECT_EQ(panels.IsOK(), ok);
    }
    EXPECT_EQ(KRNItem(panels.GetMachineData(), MI_COOLING_TIME), 9.0);
}
