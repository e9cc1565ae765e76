// The Taichung V8000AC panel as a process engineer uses it: the two menus of
// the key column, injection stages in percent, bar and mm, hold stages in
// bar and seconds, the settings screen, and the template set that follows
// the record's language.

#include "KRNNumberText.h"
#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "taichung_v8000ac/CMACHINE_ORGZCT_V8000AC_DLG.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <ctime>

using namespace KRNTest;
namespace Tc = TaichungV8000ac;

namespace {

constexpr int kKeyMenu = 1899, kKeyMachine = 1743, kKeyTemp = 1745, kKeyInjection = 1749, kKeyCurve = 1751,
              kKeyNext = 1755;
constexpr int kStrokeTime = 1375, kVP = 1376, kCooling = 1401, kClock = 1778;
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

const double kTopSpeed = 200.0 * 10.0 / (4.0 * 4.0 * 3.14159 * 0.25);

std::string StrokeTimeText(const CKRNMachineData& r) { return KRNFormat("%f", KRNExpectedStrokeTime(r, 1)).toStdString(); }

void ExpectProfile(const CKRNMachineData& r, KRNMACHINEITEM item, const KRNPointList& want) {
    const KRNPointList got = KRNProfile(r, item);
    ASSERT_EQ(got.size(), want.size()) << item;
    for (std::size_t i = 0; i < want.size(); ++i) {
        EXPECT_NEAR(got[i].first, want[i].first, 1e-9) << item << " point " << i;
        EXPECT_NEAR(got[i].second, want[i].second, 1e-9) << item << " point " << i;
    }
}

int ShownTemplate() {
    auto* stack = KRNDriver::TopDialog()->findChild<QWidget*>(QStringLiteral("KRNPages"));
    for (QObject* o : stack->children())
        if (auto* page = qobject_cast<CKRNDialog*>(o); page && page->isVisible()) return page->TemplateId();
    return 0;
}

}  // namespace

TEST(TaichungV8000ac, OpensOnTheMenuWithTheFirstMenuInTheKeyColumn) {
    OpenV8000ac(KRN40mmRecord(), [](CMACHINE_ORGZCT_V8000AC_DLG& frame) {
        EXPECT_EQ(ShownTemplate(), 31158);
        EXPECT_EQ(frame.MenuMode(), 0);
        const char* captions[8] = {"Menu", "Machine", "Temperature", "Mould", "Injection", "Charge", "Ejector", "Next menu"};
        for (int i = 0; i < 8; ++i) EXPECT_EQ(Text(Tc::kCaptions[i]), captions[i]);
        // Every key is as big as its face.
        for (int key : Tc::kKeys) EXPECT_EQ(frame.GetDlgItem(key)->size(), QSize(64, 44)) << key;
        Click(kKeyTemp);
        EXPECT_EQ(ShownTemplate(), 31154);
        Click(kKeyMachine);
        EXPECT_EQ(ShownTemplate(), 31160);
        EXPECT_EQ(Text(1962), "159.16");  // 200 cm3/s through a 4 cm screw
        Click(kKeyCurve);                 // no page behind it in the first menu
        EXPECT_EQ(ShownTemplate(), 31160);
        Click(kKeyInjection);
        EXPECT_EQ(ShownTemplate(), 31156);
        Cancel();
    });
}

TEST(TaichungV8000ac, TheSecondMenuLeadsToSettingsAndCurvesOnly) {
    OpenV8000ac(KRN40mmRecord(), [](CMACHINE_ORGZCT_V8000AC_DLG& frame) {
        Click(kKeyNext);
        EXPECT_EQ(frame.MenuMode(), 1);
        EXPECT_FALSE(frame.GetDlgItem(1753)->isVisible());
        EXPECT_FALSE(frame.GetDlgItem(Tc::IDC_CAPTION_7)->isVisible());
        const char* captions[6] = {"Clamp", "Core pull", "Production", "Settings", "Pressure curve", "Back"};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(Text(Tc::kMenu1CaptionStatics[i]), captions[i]);
        EXPECT_EQ(Text(1742), "Menu");  // the menu key's caption stays
        Click(kKeyTemp);
        Click(kKeyMachine);
        EXPECT_EQ(ShownTemplate(), 31158);
        Click(kKeyInjection);
        EXPECT_EQ(ShownTemplate(), 31153);
        Click(kKeyCurve);
        EXPECT_EQ(ShownTemplate(), 31159);
        Click(kKeyMenu);
        EXPECT_EQ(ShownTemplate(), 31158);
        // Back to the first menu: the seventh key and its caption return.
        Click(kKeyNext);
        EXPECT_EQ(frame.MenuMode(), 0);
        EXPECT_TRUE(frame.GetDlgItem(1753)->isVisible());
        EXPECT_EQ(Text(1754), "Ejector");
        Click(kKeyInjection);
        EXPECT_EQ(ShownTemplate(), 31156);
        Cancel();
    });
}

TEST(TaichungV8000ac, TheInjectionPageShowsPercentBarAndMillimetres) {
    OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        const char* speeds[5] = {"40.00", "70.00", "90.00", "60.00", "35.00"};
        const char* pressures[5] = {"1120.00", "1360.00", "960.00", "800.00", "640.00"};  // y% of 160 MPa, in bar
        const char* positions[5] = {"120.00", "102.00", "72.00", "42.00", "18.00"};
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(Text(Tc::kSpeed[i]), speeds[i]);
            EXPECT_EQ(Text(Tc::kPressure[i]), pressures[i]);
            EXPECT_EQ(Text(Tc::kPosition[i]), positions[i]);
        }
        // Hold: 6 s at 40/50/60 % of 80 MPa, last stage first in the record.
        const char* holds[4] = {"480.00", "400.00", "320.00", "0"};
        const char* times[4] = {"1.50", "3.00", "1.50", "0"};
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Text(Tc::kHoldPressure[i]), holds[i]);
            EXPECT_EQ(Text(Tc::kHoldTime[i]), times[i]);
        }
        EXPECT_EQ(Text(Tc::kHoldPressure[3]), "0.00");  // the padding stage: a point, at 0
        EXPECT_EQ(Text(kCooling), "15");
        EXPECT_EQ(Text(kVP), "18.00");
        EXPECT_EQ(Text(kStrokeTime), StrokeTimeText(SharedPositions()));
        EXPECT_FALSE(Enabled(kStrokeTime));
        for (int id : Tc::kInjectionUnfed) EXPECT_EQ(Text(id), "---") << id;
        EXPECT_FALSE(Enabled(Tc::IDC_UNFED_DISABLED));
        Cancel();
    });
}

TEST(TaichungV8000ac, OverlaysSitOnTheControlsTheyBelongTo) {
    OpenV8000ac(KRN40mmRecord(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        const QRect picture = Field(Tc::IDC_STROKE_PICTURE)->geometry();
        const QRect left = Field(Tc::IDC_STROKE_MARK_LEFT)->geometry(), right = Field(Tc::IDC_STROKE_MARK_RIGHT)->geometry();
        EXPECT_EQ(left.bottomLeft(), picture.bottomLeft());
        EXPECT_EQ(right.bottomRight(), picture.bottomRight());
        EXPECT_EQ(Field(Tc::IDC_LEGEND)->geometry(), Field(Tc::IDC_LEGEND_AREA)->geometry());
        EXPECT_EQ(Field(Tc::IDC_INJECTION_TITLE)->geometry(), Field(Tc::IDC_INJECTION_BOX)->geometry());
        EXPECT_EQ(Field(Tc::IDC_HOLD_TITLE)->geometry(), Field(Tc::IDC_HOLD_BOX)->geometry());
        // The legend lies just under its caption.
        const QObjectList& z = Field(Tc::IDC_LEGEND)->parentWidget()->children();
        EXPECT_EQ(z.indexOf(Field(Tc::IDC_LEGEND)) + 1, z.indexOf(Field(Tc::IDC_LEGEND_ABOVE)));
        Cancel();
    });
}

// The bound is the top speed in mm/s, though the field is in percent: 120 %
// passes on a machine of 159.16 mm/s, as on the controller.
TEST(TaichungV8000ac, ASpeedInPercentIsBoundedOnlyByTheTopSpeedInMillimetresPerSecond) {
    CKRNMachineData before = SharedPositions();
    Session s = OpenV8000ac(before, [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kSpeed[0], "120");
        EXPECT_EQ(Text(Tc::kSpeed[0]), "120");
        Type(Tc::kSpeed[1], "160");  // above 159.16
        EXPECT_EQ(Text(Tc::kSpeed[1]), "70.00");
        Type(Tc::kSpeed[2], "9o");
        EXPECT_EQ(Text(Tc::kSpeed[2]), "90.00");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(s.messages[0], KRNFormat("Please enter a value not greater than %.2f.", kTopSpeed).toStdString());
    EXPECT_EQ(s.messages[1], "Please enter a number.");
    // The last stage drops to 0: the stage before it does not end at the full stroke.
    ExpectProfile(s.record, MI_FP_PROFILE, {{100, 120}, {85, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 0}});
}

TEST(TaichungV8000ac, ASwitchPositionMovesSpeedAndPressureStageAndTheStrokeTime) {
    Session s = OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kPosition[2], "60");  // 60 of 120 mm: 50 %
        CKRNMachineData moved = SharedPositions();
        moved.SetMachineData(MI_FP_PROFILE, 2, 50.0, 90.0);
        moved.SetMachineData(MI_FP_PROFILE, 5, 0.0, 0.0);
        EXPECT_EQ(Text(kStrokeTime), StrokeTimeText(moved));
        Type(Tc::kPressure[1], "1200");  // 75 % of 1600 bar
        OK();
    });
    EXPECT_TRUE(s.messages.empty());
    ExpectProfile(s.record, MI_FP_PROFILE, {{100, 40}, {85, 70}, {50, 90}, {35, 60}, {15, 35}, {0, 0}});
    // The pressure profile is tidied on OK: it closes at the level of its last stage.
    ExpectProfile(s.record, MI_P_PROFILE, {{100, 70}, {85, 75}, {50, 60}, {35, 50}, {15, 40}, {0, 40}});
}

TEST(TaichungV8000ac, TheFirstPositionIsTheFullStroke) {
    Session s = OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kPosition[0], "150");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 150.0);
    // The later stages keep their mm, now against 150 mm (102 mm is 68 %).
    ExpectProfile(s.record, MI_FP_PROFILE, {{100, 40}, {68, 70}, {48, 90}, {28, 60}, {12, 35}, {0, 0}});
}

TEST(TaichungV8000ac, HoldStagesGoBackAsShareOfTheNewPackingTime) {
    Session s = OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kHoldTime[1], "1");        // 1.5 + 1 + 1.5 = 4 s
        Type(Tc::kHoldPressure[0], "1700");  // above 160 MPa = 1600 bar
        EXPECT_EQ(Text(Tc::kHoldPressure[0]), "480.00");
        Type(Tc::kHoldPressure[2], "400");   // 50 % of 80 MPa
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 1600.00.");
    EXPECT_EQ(KRNItem(s.record, MI_PACKING_TIME), 4.0);
    // Stages of 1.5 s (60 %), 1 s (50 %), 1.5 s (50 %): ends at 37.5, 62.5 and 100 %.
    ExpectProfile(s.record, MI_PP_PROFILE, {{100, 50}, {62.5, 50}, {37.5, 60}, {0, 60}});
}

TEST(TaichungV8000ac, TheSettingPageSharesTheStagesAndTakesTimesAsTyped) {
    Session s = OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyNext);
        Click(kKeyInjection);
        EXPECT_EQ(Text(Tc::kSetSpeed[2]), "90.00");
        EXPECT_EQ(Text(Tc::kSetPosition[1]), "102.00");
        EXPECT_EQ(Text(Tc::kSetHoldPressure[0]), "480.00");
        EXPECT_EQ(Text(Tc::kSetHoldTime[1]), "3.00");
        EXPECT_EQ(Text(kSetMelt), "260");
        Type(Tc::kSetSpeed[2], "95");
        Type(Tc::kSetPosition[1], "96");  // 80 %, moving the pressure stage too
        Type(kSetCooling, "abc");          // no number: 0, as typed
        Type(kSetMelt, "1000");            // no barrel takes it
        EXPECT_EQ(Text(kSetMelt), "260");
        // The injection page shows what the settings took.
        Click(kKeyNext);
        Click(kKeyInjection);
        EXPECT_EQ(Text(Tc::kSpeed[2]), "95.00");
        EXPECT_EQ(Text(Tc::kPosition[1]), "96.00");
        EXPECT_EQ(Text(kCooling), "0");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Please enter a value not above 999.00 and not below -100.00.");
    ExpectProfile(s.record, MI_FP_PROFILE, {{100, 40}, {80, 70}, {60, 95}, {35, 60}, {15, 35}, {0, 0}});
    ExpectProfile(s.record, MI_P_PROFILE, {{100, 70}, {80, 85}, {60, 60}, {35, 50}, {15, 40}, {0, 40}});
    EXPECT_EQ(KRNItem(s.record, MI_COOLING_TIME), 0.0);
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 260.0);
}

TEST(TaichungV8000ac, TheMeltTemperatureIsRepeatedAsItsActualValue) {
    Session s = OpenV8000ac(KRN40mmRecord(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyTemp);
        EXPECT_EQ(Text(kMelt), "260.00");
        EXPECT_EQ(Text(kMeltMirror), "260.00");
        for (int id : Tc::kTemperatureUnfed) EXPECT_EQ(Text(id), "---") << id;
        Type(kMelt, "245.5");
        EXPECT_EQ(Text(kMeltMirror), "245.5");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MELT_TEMPERATURE), 245.5);
}

// Only the pressure and packing-pressure profiles are tidied; the flow-rate
// profile keeps the stages it was padded with.
TEST(TaichungV8000ac, OKTidiesPressuresButNotSpeeds) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {50, 70}, {0, 70}});
    Session s = OpenV8000ac(r, [](CMACHINE_ORGZCT_V8000AC_DLG&) { OK(); });
    ExpectProfile(s.record, MI_FP_PROFILE, {{100, 40}, {50, 70}, {0, 0}, {0, 0}, {0, 0}, {0, 0}});
    ExpectProfile(s.record, MI_P_PROFILE, KRNProfile(r, MI_P_PROFILE));
    ExpectProfile(s.record, MI_PP_PROFILE, KRNProfile(r, MI_PP_PROFILE));
}

TEST(TaichungV8000ac, AReadOnlyRecordIsNeverTakenFromThePages) {
    CKRNMachineData r = SharedPositions();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenV8000ac(r, [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kSpeed[0], "50");
        Click(kKeyTemp);
        Click(kKeyInjection);
        EXPECT_EQ(Text(Tc::kSpeed[0]), "50");  // nothing was taken, nothing handed back
        Type(Tc::kSpeed[0], "60");
        OK();
    });
    EXPECT_EQ(s.result, IDOK);
    ExpectProfile(s.record, MI_FP_PROFILE, KRNProfile(r, MI_FP_PROFILE));
    ExpectProfile(s.record, MI_P_PROFILE, KRNProfile(r, MI_P_PROFILE));
}

TEST(TaichungV8000ac, CancelLeavesTheRecord) {
    Session s = OpenV8000ac(SharedPositions(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        Click(kKeyInjection);
        Type(Tc::kSpeed[0], "50");
        Cancel();
    });
    EXPECT_EQ(s.result, IDCANCEL);
}

namespace {
std::time_t NewYearsEve() {
    std::tm t{};
    t.tm_year = 2023 - 1900;
    t.tm_mon = 11;
    t.tm_mday = 31;
    t.tm_hour = 23;
    t.tm_min = 5;
    t.tm_sec = 9;
    t.tm_isdst = -1;
    return std::mktime(&t);
}
std::time_t Unreadable() { return static_cast<std::time_t>(-1); }
}  // namespace

TEST(TaichungV8000ac, ClockPagesShowMonthDayYearAndKeepEnterAndEscape) {
    const KRNTimeSource previous = KRNSetTimeSource(&NewYearsEve);
    Session s = OpenV8000ac(KRN40mmRecord(), [](CMACHINE_ORGZCT_V8000AC_DLG&) {
        for (int key : {kKeyInjection, kKeyTemp, kKeyMachine}) {
            Click(key);
            PressKey(Qt::Key_Return);
            PressKey(Qt::Key_Escape);
            EXPECT_EQ(Field(kClock)->property("text").toString().toStdString(), "12/31/2023\t23 : 5 : 9") << key;
        }
        Click(kKeyMenu);
        PressKey(Qt::Key_Escape);  // the menu page has no clock; the frame still keeps the key
        Click(kKeyNext);
        Click(kKeyCurve);
        PressKey(Qt::Key_Enter);
        EXPECT_EQ(Field(1862)->property("text").toString().toStdString(), "12/31/2023\t23 : 5 : 9");
        KRNSetTimeSource(&Unreadable);
        Click(kKeyMenu);
        Click(kKeyCurve);
        EXPECT_EQ(Field(1862)->property("text").toString().toStdString(), "0/0/0\t-1 : -1 : -1");
        OK();
    });
    KRNSetTimeSource(previous);
    EXPECT_EQ(s.result, IDOK);
}

// Through the interface: the language picks the template set before the
// frame is built, and the module keeps the choice for the next frame.
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
                      Cancel();
                  });
        EXPECT_EQ(panels.GetControllerType(), 12);
        return std::pair<int, int>{frame, page};
    };
    EXPECT_EQ(frameTemplate("zh-TW"), (std::pair<int, int>{31192, 31191}));
    // A frame built without a choice takes the set chosen last.
    EXPECT_EQ(CMACHINE_ORGZCT_V8000AC_DLG(KRN40mmRecord()).TemplateId(), 31192);
    EXPECT_EQ(Tc::Templates(), Tc::kZhTwTemplates);
    for (const char* other : {"zh-TW-x", "zh-T", "ZH-TW", "en", ""}) {
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
        ASSERT_EQ(en.Controls().keys().size(), zh.Controls().keys().size()) << i;
        for (auto it = en.Controls().begin(); it != en.Controls().end(); ++it) {
            ASSERT_TRUE(zh.Controls().contains(it.key())) << it.key();
            EXPECT_EQ(it.value()->geometry(), zh.Controls()[it.key()]->geometry()) << it.key();
        }
    }
}
