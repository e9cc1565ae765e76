// The Taichung V8000AC panel as a process engineer uses it: the two menus of
// the key column, injection stages in percent, bar and mm, hold stages in
// bar and seconds, the settings screen, and the template set that follows
// the record's language.

#include "KRNNumberText.h"
#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "taichung_v8000ac/CMACHINE_ORGZCT_V8000AC_DLG.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <ctime>

using namespace KRNTest;
namespace Tc = TaichungV8000ac;

namespace {

constexpr int kKeyMachine = 1743, kKeyTemp = 1745, kKeyInjection = 1749, kKeyCurve = 1751, kKeyNext = 1755;
constexpr int kStrokeTime = 1375, kCooling = 1401, kClock = 1778;
constexpr int kSetMelt = 1980, kSetCooling = 1920, kMelt = 1851, kMeltMirror = 1839;

Session OpenV8000ac(const CKRNMachineData& record, const std::function<void(CMACHINE_ORGZCT_V8000AC_DLG&)>& steps) {
    Tc::SelectLanguageOf(record);
    return OpenPanel<CMACHINE_ORGZCT_V8000AC_DLG>(record, steps);
}

// Speed and pressure stages that switch at the same positions, as this
// controller keeps them: 120 mm of stroke, top speed 159.16 mm/s.
CKRNMachineData SharedPositions() {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_P_PROFILE, {{100, 70}, {85, 85}, {60, 60}, {35, 50}, {15, 40}, {0, 40}});
    return r;
}

std::string StrokeTimeText(const CKRNMachineData& r) { return KRNFormat("%f", KRNExpectedStrokeTime(r, 1)).toStdString(); }

std::time_t NewYearsEve() {
    std::tm t{};
    t.tm_year = 2023 - 1900, t.tm_mon = 11, t.tm_mday = 31, t.tm_hour = 23, t.tm_min = 5, t.tm_sec = 9;
    t.tm_isdst = -1;
    return std::mktime(&t);
}
std::time_t Unreadable() { return static_cast<std::time_t>(-1); }
std::string Clock(int id) { return Field(id)->property("text").toString().toStdString(); }

int ShownTemplate() {
    auto* stack = KRNDriver::TopDialog()->findChild<QWidget*>(QStringLiteral("KRNPages"));
    for (QObject* o : stack->children())
        if (auto* page = qobject_cast<CKRNDialog*>(o); page && page->isVisible()) return page->TemplateId();
    return 0;
}

}  // namespace

// One walk through the screens. The second menu of the key column has no
// seventh key, its temperature and machine keys lead nowhere and its
// injection key leads to the setting page. Speeds are in percent, pressures
// in bar, positions in mm: a switch position moves the speed and the pressure
// stage on either stage page, and the stroke time follows. The speed bound is
// the top speed in mm/s, though the field is in percent: 120 % passes on a
// machine of 159.16 mm/s, as on the controller. The clock pages show
// month/day/year; no page closes on Enter or Escape.
TEST(TaichungV8000ac, BothMenusAndTheStagePagesInOneSession) {
    const KRNTimeSource previous = KRNSetTimeSource(&NewYearsEve);
    Session s = OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG& frame) {
        EXPECT_EQ(ShownTemplate(), 31158);
        PressKey(Qt::Key_Enter);  // the menu page, which has no clock
        PressKey(Qt::Key_Escape);
        Click(kKeyMachine);
        EXPECT_EQ(Text(1962), "159.16");  // 200 cm3/s through a 4 cm screw
        Click(kKeyInjection);
        PressKey(Qt::Key_Return);
        PressKey(Qt::Key_Escape);
        EXPECT_EQ(Clock(kClock), "12/31/2023\t23 : 5 : 9");
        EXPECT_EQ(Text(Tc::kPressure[1]), "1360.00");  // 85 % of 160 MPa
        EXPECT_EQ(Text(Tc::kPosition[1]), "102.00");
        // Hold: 6 s at 40/50/60 % of 80 MPa, last stage first; the padding stage is a point at 0.
        EXPECT_EQ(Text(Tc::kHoldTime[1]), "3.00");
        EXPECT_EQ(Text(Tc::kHoldPressure[3]), "0.00");
        EXPECT_EQ(Text(kStrokeTime), StrokeTimeText(SharedPositions()));
        EXPECT_FALSE(Enabled(kStrokeTime));
        Type(Tc::kPosition[2], "60");  // 60 of 120 mm: 50 %
        CKRNMachineData moved = SharedPositions();
        moved.SetMachineData(MI_FP_PROFILE, 2, 50.0, 90.0);
        moved.SetMachineData(MI_FP_PROFILE, 5, 0.0, 0.0);
        EXPECT_EQ(Text(kStrokeTime), StrokeTimeText(moved));
        Type(Tc::kPressure[1], "1200");  // 75 % of 1600 bar
        Click(kKeyNext);
        EXPECT_FALSE(frame.GetDlgItem(1753)->isVisible());
        Click(kKeyTemp);
        Click(kKeyMachine);
        EXPECT_EQ(ShownTemplate(), 31156);
        Click(kKeyInjection);
        EXPECT_EQ(ShownTemplate(), 31153);
        EXPECT_EQ(Text(Tc::kSetPosition[1]), "102.00");
        Type(Tc::kSetSpeed[2], "95");
        Type(Tc::kSetPosition[1], "96");  // 80 %, moving the pressure stage too
        Type(kSetCooling, "abc");         // no number: 0, as typed
        Type(kSetMelt, "1000");           // no barrel takes it
        EXPECT_EQ(Text(kSetMelt), "260");
        // Back to the first menu: the injection page shows what the settings took.
        Click(kKeyNext);
        EXPECT_TRUE(frame.GetDlgItem(1753)->isVisible());
        Click(kKeyInjection);
        EXPECT_EQ(Text(Tc::kPosition[1]), "96.00");
        EXPECT_EQ(Text(kCooling), "0");
        Type(Tc::kSpeed[0], "120");
        Type(Tc::kSpeed[1], "160");  // above 159.16
        EXPECT_EQ(Text(Tc::kSpeed[1]), "70.00");
        Type(Tc::kSpeed[2], "9o");
        EXPECT_EQ(Text(Tc::kSpeed[2]), "95.00");
        Type(Tc::kPosition[0], "150");       // the first position is the full stroke
        Type(Tc::kHoldTime[1], "1");         // 1.5 + 1 + 1.5 = 4 s
        Type(Tc::kHoldPressure[0], "1700");  // above 160 MPa = 1600 bar
        EXPECT_EQ(Text(Tc::kHoldPressure[0]), "480.00");
        Type(Tc::kHoldPressure[2], "400");  // 50 % of 80 MPa
        // The melt temperature is repeated as its actual value.
        Click(kKeyTemp);
        Type(kMelt, "245.5");
        EXPECT_EQ(Text(kMeltMirror), "245.5");
        KRNSetTimeSource(&Unreadable);
        Click(kKeyNext);
        Click(kKeyCurve);  // the curve page's own clock, set by the first message it sees
        QApplication::processEvents();
        EXPECT_EQ(Clock(1862), "0/0/0\t-1 : -1 : -1");
        OK();
    });
    KRNSetTimeSource(previous);
    EXPECT_EQ(s.result, IDOK);
    EXPECT_EQ(s.messages, (std::vector<std::string>{"Please enter a value not above 999.00 and not below -100.00.",
                                                    "Please enter a value not greater than 159.16.",
                                                    "Please enter a number.",
                                                    "Please enter a value not greater than 1600.00."}));
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    // The later stages keep their mm, now against 150 mm (96 mm is 64 %); the last
    // drops to 0, as the stage before it does not end at the full stroke.
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 120}, {64, 70}, {40, 95}, {28, 60}, {12, 35}, {0, 0}});
    // The pressure profile is tidied on OK: it closes at the level of its last stage.
    KRNExpectPoints(KRNProfile(s.record, MI_P_PROFILE), {{100, 70}, {64, 75}, {40, 60}, {28, 50}, {12, 40}, {0, 40}});
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 4.0);
    // Stages of 1.5 s (60 %), 1 s (50 %), 1.5 s (50 %): ends at 37.5, 62.5 and 100 %.
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 50}, {62.5, 50}, {37.5, 60}, {0, 60}});
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 0.0);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.5);
}

// A read-only record is never taken. Only the pressure profiles are tidied
// at OK: the flow-rate profile keeps the stages it was padded with.
TEST(TaichungV8000ac, AReadOnlyRecordIsNeverTakenAndSpeedsAreNotTidied) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {50, 70}, {0, 70}});
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenV8000ac(r, [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kSpeed[0], "50");
        Click(kKeyTemp);
        Click(kKeyInjection);
        EXPECT_EQ(Text(Tc::kSpeed[0]), "50");  // nothing was taken, nothing handed back
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {50, 70}, {0, 0}, {0, 0}, {0, 0}, {0, 0}});
}

// Through the interface: the language picks the template set before the
// frame is built, and the module keeps the choice for the next frame. Cancel
// hands nothing back.
TEST(TaichungV8000ac, TheLanguageChoosesTheTemplateSetAndTheTableKeepsIt) {
    const auto frameTemplate = [](const char* language) {
        CKRNMachineData r = KRN40mmRecord();
        r.SetLanguage(language);
        CKRNProMachineInterface panels;
        int frame = 0, page = 0;
        WhileOpen([&] { panels.KRNDoModal(r, "Taichung machinery-Series"); },
                  [&] {
                      frame = KRNDriver::TopDialog()->TemplateId();
                      Click(kKeyInjection);
                      page = ShownTemplate();
                      Type(Tc::kSpeed[0], "50");
                      Cancel();
                  });
        EXPECT_FALSE(panels.IsOK());
        EXPECT_EQ(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
        return std::pair<int, int>{frame, page};
    };
    EXPECT_EQ(frameTemplate("zh-TW"), (std::pair<int, int>{31192, 31191}));
    // A frame built without a choice takes the set chosen last.
    EXPECT_EQ(CMACHINE_ORGZCT_V8000AC_DLG(KRN40mmRecord()).TemplateId(), 31192);
    for (const char* other : {"zh-TW-x", "ZH-TW", ""}) {
        EXPECT_EQ(frameTemplate(other), (std::pair<int, int>{818, 31156})) << other;
        Tc::SelectLanguage("zh-TW");
    }
    Tc::SelectLanguage("");
}

// Both sets carry the same controls at the same places, captions apart.
TEST(TaichungV8000ac, BothTemplateSetsCarryTheSameControls) {
    for (std::size_t i = 0; i < Tc::kEnglishTemplates.size(); ++i) {
        CKRNDialog en(Tc::kEnglishTemplates[i]), zh(Tc::kZhTwTemplates[i]);
        ASSERT_TRUE(en.Create(nullptr, false));
        ASSERT_TRUE(zh.Create(nullptr, false));
        ASSERT_EQ(en.Controls().size(), zh.Controls().size()) << i;
        for (auto it = en.Controls().begin(); it != en.Controls().end(); ++it) {
            ASSERT_TRUE(zh.Controls().contains(it.key())) << it.key();
            EXPECT_EQ(it.value()->geometry(), zh.Controls()[it.key()]->geometry()) << it.key();
        }
    }
}
