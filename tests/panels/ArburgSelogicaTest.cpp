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
#include "KRNMessageBox.h"
#include "KRNNumberText.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <cstring>

using namespace KRNTest;
using namespace ArburgSelogica;

namespace {

constexpr int kNavProduction = 1363, kNavInjection = 1367, kNavCooling = 1368, kNavTemperatures = 1369,
              kNavHolding = 1413, kNavMeasurementMenu = 1359, kNavMainMenu = 1304;
constexpr int kKeypadConfirm = 1387, kKeypadCancel = 1386, kKeypadValue = 1366;
constexpr int kKeypadDigit[10] = {1377, 1367, 1368, 1369, 1371, 1372, 1373, 1374, 1375, 1376};

// The 40 mm screw's cross-section and the shot of its 120 mm stroke.
const double kArea = 4.0 * 4.0 * 3.14159 * 0.25;
const double kShot = 100.0 * kArea * 0.01 * 120.0 * 0.1;

Session OpenSelogica(const CKRNMachineData& record, const std::function<void()>& steps) {
    return OpenPanel<CMACHINE_ARBURG_SELOGICA_DIRECT_DLG>(record, steps);
}

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
    t.tm_year = 124;
    t.tm_mon = 2;
    t.tm_mday = 3;
    t.tm_hour = 8;
    t.tm_min = 5;
    t.tm_isdst = -1;
    return std::mktime(&t);
}

struct FixedClock {
    explicit FixedClock(KRNTimeSource source) : previous(KRNSetTimeSource(source)) {}
    ~FixedClock() { KRNSetTimeSource(previous); }
    KRNTimeSource previous;
};

// Three injection stages and three holding stages.
CKRNMachineData ThreeStages() {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 90}, {30, 60}, {0, 60}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}, {60, 85}, {30, 60}, {0, 60}});
    return r;
}

// Stage volumes back to stroke percentages: the stroke still ahead of each point.
KRNPointList ToStroke(const std::vector<double>& volumes, const std::vector<double>& levels, double& stroke) {
    double total = 0;
    for (std::size_t i = 0; i + 1 < volumes.size(); ++i) total += volumes[i];
    stroke = total / kArea * 10.0;
    KRNPointList points(volumes.size());
    double ahead = 0;
    for (std::size_t i = volumes.size(); i-- > 0;) {
        points[i] = {ahead / total * 100.0, levels[i]};
        if (i > 0) ahead += volumes[i - 1];
    }
    return points;
}

}  // namespace

TEST(ArburgSelogica, DateLineAndKeysThatNeverClose) {
    FixedClock clock(&SundayFivePastEight);
    const Session s = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavCooling);  // the production-sequence page has keys of the same numbers
        EXPECT_EQ(Text(IDC_DAY), "3.");
        EXPECT_EQ(Text(IDC_MONTH), "3.");
        EXPECT_EQ(Text(IDC_YEAR), "2024.");
        EXPECT_EQ(Text(IDC_HOUR), "8");
        EXPECT_EQ(Text(IDC_MINUTE), "5");
        EXPECT_EQ(Text(IDC_SECOND), "0");
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        EXPECT_NE(KRNDriver::TopDialog(), nullptr);
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    QString texts[6];
    ArburgDateTimeTexts(nullptr, texts);
    EXPECT_EQ(texts[0], "0.");
    EXPECT_EQ(texts[2], "0.");
    EXPECT_EQ(texts[3], "-1");
    EXPECT_EQ(texts[5], "-1");
}

TEST(ArburgSelogica, InjectionStagesInVolumesAndTheirRoundTrip) {
    const Session s = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavInjection);  // leaving the first page turns the shot into stage volumes
        const double shares[4] = {15, 25, 25, 20};
        for (int k = 0; k < 4; ++k) EXPECT_EQ(Text(kVolume[k]), Fixed(shares[k] * kShot * 0.01, 2)) << k;
        const double speeds[5] = {40, 70, 90, 60, 35};
        for (int k = 0; k < 5; ++k) EXPECT_EQ(Text(kSpeed[k]), Fixed(speeds[k] * 200.0 * 0.01, 2)) << k;
        EXPECT_EQ(Text(kPressure[0]), Fixed(70 * 160.0 * 0.01 * 10.0, 2));
        EXPECT_EQ(Text(kPressure[2]), Fixed(60 * 160.0 * 0.01 * 10.0, 2));
        EXPECT_EQ(Text(IDC_SWITCH_OVER_VOLUME), Fixed(18.0 / 10.0 * kArea, 2));
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "5");
        OK();
    });
    // Untouched, the stroke and its percentages come back.
    EXPECT_NEAR(KRNItem(s.record, MI_MAX_RAM_POSITION), 120.0, 1e-9);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {85, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
    // Both profiles share the stroke; the pressure profile keeps its levels.
    KRNExpectPoints(KRNProfile(s.record, MI_P_PROFILE), {{100, 70}, {85, 85}, {60, 60}, {35, 60}, {15, 60}, {0, 60}});

    // A second stage of 50 cm3 lengthens the stroke.
    const Session edited = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavInjection);
        Type(kVolume[1], "50");
        Leave(kVolume[1]);
        OK();
    });
    std::vector<double> volumes = {15 * kShot * 0.01, 50.0, 25 * kShot * 0.01, 20 * kShot * 0.01, 15 * kShot * 0.01, 0};
    double stroke = 0;
    const KRNPointList expected = ToStroke(volumes, {40, 70, 90, 60, 35, 35}, stroke);
    EXPECT_NEAR(KRNItem(edited.record, MI_MAX_RAM_POSITION), stroke, 1e-9);
    KRNExpectPoints(KRNProfile(edited.record, MI_FP_PROFILE), expected, 1e-9);
}

TEST(ArburgSelogica, SpeedsAndPressuresUpToTheMachinesLimits) {
    const Session s = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavInjection);
        Type(kSpeed[0], "200");  // the machine's injection rate itself
        Leave(kSpeed[0]);
        Type(kSpeed[1], "200.5");
        Leave(kSpeed[1]);
        EXPECT_EQ(Text(kSpeed[1]), "140.00");
        Type(kSpeed[2], "fast");
        Leave(kSpeed[2]);
        EXPECT_EQ(Text(kSpeed[2]), "180.00");
        Type(kPressure[0], "1600");  // the injection pressure in bar
        Leave(kPressure[0]);
        Type(kPressure[1], "1601");
        Leave(kPressure[1]);
        EXPECT_EQ(Text(kPressure[1]), "1360.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 3u);
    EXPECT_EQ(s.messages[0], KRNResourceMessage(352, {200.0}).toStdString());
    EXPECT_EQ(s.messages[1], KRNResourceMessage(61713).toStdString());
    EXPECT_EQ(s.messages[2], KRNResourceMessage(352, {1600.0}).toStdString());
    const KRNPointList flow = KRNProfile(s.record, MI_FP_PROFILE);
    EXPECT_DOUBLE_EQ(flow[0].second, 100.0);
    EXPECT_DOUBLE_EQ(flow[1].second, 70.0);
    EXPECT_DOUBLE_EQ(flow[2].second, 90.0);
    EXPECT_DOUBLE_EQ(KRNProfile(s.record, MI_P_PROFILE)[0].second, 1600.0 / 160.0 * 100.0 / 10.0);
    EXPECT_TRUE(KRNAllFinite(s.record));
}

TEST(ArburgSelogica, TheLastStageEndingAtAHundredIsHalvedAndTheEndFollows) {
    const Session s = OpenSelogica(ThreeStages(), [] {
        Click(kNavInjection);
        Type(kVolume[2], "100.0");
        Leave(kVolume[2]);
        EXPECT_EQ(Text(kVolume[2]), "50.00");
        Type(kSpeed[2], "100");
        Leave(kSpeed[2]);
        EXPECT_EQ(Text(kVolume[3]), "-------");  // the end point has no stage
        OK();
    });
    const double shot = 100.0 * kArea * 0.01 * 120.0 * 0.1;
    double stroke = 0;
    const KRNPointList expected = ToStroke({40 * shot * 0.01, 30 * shot * 0.01, 50.0, 0}, {40, 90, 50, 50}, stroke);
    EXPECT_NEAR(KRNItem(s.record, MI_MAX_RAM_POSITION), stroke, 1e-9);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), expected, 1e-9);
}

TEST(ArburgSelogica, SwitchOverVolumeWithinTheShot) {
    const Session s = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavInjection);
        Type(IDC_SWITCH_OVER_VOLUME, "999");
        Leave(IDC_SWITCH_OVER_VOLUME);
        EXPECT_EQ(Text(IDC_SWITCH_OVER_VOLUME), Fixed(18.0 / 10.0 * kArea, 2));
        Type(IDC_SWITCH_OVER_VOLUME, "-1");
        Leave(IDC_SWITCH_OVER_VOLUME);
        Type(IDC_SWITCH_OVER_VOLUME, "30");
        Leave(IDC_SWITCH_OVER_VOLUME);
        EXPECT_EQ(Text(IDC_SWITCH_OVER_VOLUME), "30");  // kept as typed
        OK();
    });
    // The controller puts the typed text where the number belongs.
    char bytes[sizeof(double)] = {'9', '9', '9', 0, 0, 0, 0, 0};
    double figure = 0;
    std::memcpy(&figure, bytes, sizeof figure);
    ASSERT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(s.messages[0], KRNFormat("Can't more than injection volume: %lg", figure).toStdString());
    EXPECT_EQ(s.messages[0].rfind("Can't more than injection volume: ", 0), 0u);
    EXPECT_NEAR(KRNItem(s.record, MI_VP_RAM_POSITION), 30.0 / kArea * 10.0, 1e-9);
}

TEST(ArburgSelogica, StageCountsThroughTheKeypad) {
    const Session s = OpenSelogica(ThreeStages(), [] {
        Click(kNavInjection);
        std::string shown;
        OnKeypad(kInjectionStageKeys[0], "7c", &shown);  // refused: the keypad stays open, then is cancelled
        EXPECT_EQ(shown, "3");
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "3");
        OnKeypad(kInjectionStageKeys[2], "4c");
        EXPECT_EQ(Text(IDC_INJECTION_STAGES), "4");
        EXPECT_NE(Text(kSpeed[3]), "-------");
        Click(kNavHolding);
        OnKeypad(kHoldingStageKeys[0], "10c", &shown);
        EXPECT_EQ(shown, "3");
        EXPECT_EQ(Text(IDC_HOLDING_STAGES), "10");
        EXPECT_NE(Text(kHoldPressure[9]), "-------");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Can't more than 5");
    EXPECT_EQ(s.record.GetProfileDataCount(MI_FP_PROFILE), 5);
    EXPECT_EQ(s.record.GetProfileDataCount(MI_P_PROFILE), 5);
    EXPECT_EQ(s.record.GetProfileDataCount(MI_PP_PROFILE), 11);
    EXPECT_TRUE(KRNAllFinite(s.record));

    // Shrinking drops the points before the end, which stays.
    const Session shrunk = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavHolding);
        OnKeypad(kHoldingStageKeys[4], "1c");
        EXPECT_EQ(Text(kHoldPressure[1]), "-------");
        OnKeypad(kHoldingStageKeys[0], "");  // cancelled: nothing changes
        OK();
    });
    KRNExpectPoints(KRNProfile(shrunk.record, MI_PP_PROFILE), {{100, 40}, {0, 60}});
}

TEST(ArburgSelogica, HoldingStagesUpToTheInjectionPressure) {
    const Session s = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavHolding);
        EXPECT_EQ(Text(kHoldPressure[0]), Fixed(40 * 80.0 * 0.01 * 10.0, 2));
        EXPECT_EQ(Text(kHoldTime[1]), "75.00");
        EXPECT_EQ(Text(kHoldPressure[3]), "-------");
        Type(kHoldPressure[0], "1600");
        Leave(kHoldPressure[0]);
        Type(kHoldPressure[1], "1601");
        Leave(kHoldPressure[1]);
        EXPECT_EQ(Text(kHoldPressure[1]), Fixed(50 * 80.0 * 0.01 * 10.0, 2));
        Type(kHoldPressure[4], "-------");  // beyond the count: ignored
        Leave(kHoldPressure[4]);
        Type(kHoldTime[2], "12.5");
        Leave(kHoldTime[2]);
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], KRNResourceMessage(352, {1600.0}).toStdString());
    const KRNPointList hold = KRNProfile(s.record, MI_PP_PROFILE);
    ASSERT_EQ(hold.size(), 4u);
    EXPECT_DOUBLE_EQ(hold[0].second, 1600.0 / 80.0 * 100.0 / 10.0);
    EXPECT_DOUBLE_EQ(hold[1].second, 50.0);
    EXPECT_DOUBLE_EQ(hold[2].first, 12.5);
}

TEST(ArburgSelogica, CoolingTemperaturesAndMeasurementFigures) {
    const Session s = OpenSelogica(KRN40mmRecord(), [] {
        Click(kNavTemperatures);
        EXPECT_EQ(Text(IDC_MELT_TEMPERATURE), "260.0");
        Type(IDC_MELT_TEMPERATURE, "50");
        Leave(IDC_MELT_TEMPERATURE);
        EXPECT_EQ(Text(IDC_BAND_SET), "50");
        EXPECT_EQ(Text(IDC_BAND_UPPER), "150");
        EXPECT_EQ(Text(IDC_BAND_LOWER), "20");
        EXPECT_EQ(Text(IDC_BAND_FLOOR), "0");
        Click(kNavCooling);
        EXPECT_EQ(Text(IDC_COOLING_TIME), "15");
        for (int k = 0; k < 6; ++k) EXPECT_TRUE(ShowsBitmap(kCoolingPictures[k], IDB_COOLING[k])) << k;
        Type(IDC_COOLING_TIME, "");
        Leave(IDC_COOLING_TIME);
        EXPECT_EQ(Text(IDC_COOLING_TIME), "15");  // refilled
        Type(IDC_COOLING_TIME, "12.5");
        Leave(IDC_COOLING_TIME);
        Click(kNavMeasurementMenu);
        EXPECT_EQ(Text(IDC_SPECIFIC_RATE), Fixed(200.0 * 10.0 / (40.0 * 40.0 * 3.14159 * 0.25), 0));
        EXPECT_EQ(Text(IDC_MEAS_INJECTION_PRESSURE), "160");
        EXPECT_EQ(Text(IDC_MEAS_PACKING_PRESSURE), "80");
        for (int key : {IDC_SHOW_PRESSURE, IDC_SHOW_HOLDING, IDC_SHOW_SPEED}) Click(key);
        Click(kNavMainMenu);
        EXPECT_TRUE(ShowsBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[0]));
        Click(IDC_SEQ_PICTURE_3);
        EXPECT_TRUE(ShowsBitmap(IDC_SEQ_PICTURE, IDB_SEQUENCE[2]));
        EXPECT_EQ(Text(IDC_SEQ_PROCESS), "");
        OK();  // edits of pages left earlier survive
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 50.0);
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 12.5);

    CKRNMachineData hot = KRN40mmRecord();
    hot.SetMachineData(MI_MELT_TEMPERATURE, 350.0);
    OpenSelogica(hot, [] {
        Click(kNavTemperatures);
        EXPECT_EQ(Text(IDC_BAND_FLOOR), "250");
        Cancel();
    });
}

TEST(ArburgSelogica, ReadOnlyKeepsOnlyThePageShownAtOK) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    const Session s = OpenSelogica(r, [] {
        Click(kNavCooling);
        Type(IDC_COOLING_TIME, "9");
        Leave(IDC_COOLING_TIME);
        Click(kNavInjection);  // no commit: the page shows the record's stroke percentages
        const double xs[4] = {100, 85, 60, 35};
        for (int k = 0; k < 4; ++k) EXPECT_EQ(Text(kVolume[k]), Fixed(xs[k], 2)) << k;
        Click(kNavTemperatures);
        Type(IDC_MELT_TEMPERATURE, "240");
        Leave(IDC_MELT_TEMPERATURE);
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 15.0);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 240.0);

    // Cancel discards everything; the interface opens the panel by its name.
    CKRNProMachineInterface panels;
    WhileOpen([&] { panels.KRNDoModal(KRN40mmRecord(), "SELOGICA"); },
              [] {
                  Click(kNavCooling);
                  Type(IDC_COOLING_TIME, "9");
                  Leave(IDC_COOLING_TIME);
                  Click(kNavProduction);
                  Cancel();
              });
    EXPECT_FALSE(panels.IsOK());
    WhileOpen([&] { panels.KRNDoModal(KRN40mmRecord(), "SELOGICA"); },
              [] {
                  Click(kNavCooling);
                  Type(IDC_COOLING_TIME, "9");
                  Leave(IDC_COOLING_TIME);
                  OK();
              });
    EXPECT_TRUE(panels.IsOK());
    EXPECT_EQ(KRNItem(panels.GetMachineData(), MI_COOLING_TIME), 9.0);
}
