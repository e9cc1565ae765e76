// The Universal Multishot panel as a process engineer uses it, and as a host embeds it.

#include "CKRNDialog.h"
#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "KRNColors.h"
#include "KRNResources.h"
#include "common/CKRNPanelPage.h"
#include "universal_multishot/CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG.h"
#include "universal_multishot/UniversalMultishotIds.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <iomanip>
#include <locale>
#include <sstream>

using namespace KRNTest;
using namespace UniversalMultishot;

namespace {

Session OpenUms(const CKRNMachineData& record, const std::function<void(CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&)>& steps) {
    return OpenPanel<CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG>(record, steps);
}

// The process page's own record while the panel is open.
const CKRNMachineData& PageRecord(CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG& frame) {
    return frame.findChildren<CKRNPanelPage*>().front()->m_MachineData;
}

}  // namespace

// ---- opening --------------------------------------------------------------------------

TEST(UniversalMultishot, OpensWithEveryFieldInMachineUnits) {
    int counts[3] = {};
    Session s = OpenUms(KRN40mmRecord(), [&counts](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG& frame) {
        for (int i = 0; i < 3; ++i) counts[i] = frame.m_nStageCounts[i];
        EXPECT_EQ(Text(kSpeed[0]), Fixed(40 * KRN40mmTopSpeed() * 0.01, 2));
        EXPECT_EQ(Text(kSpeed[4]), Fixed(35 * KRN40mmTopSpeed() * 0.01, 2));
        EXPECT_EQ(Text(kPosition[0]), "120.00");
        EXPECT_EQ(Text(kPosition[3]), "42.00");  // 35 % of 120 mm
        EXPECT_EQ(Text(IDC_FULL_STROKE), "120.00");
        EXPECT_FALSE(Enabled(IDC_FULL_STROKE));
        EXPECT_EQ(Text(IDC_VP_POSITION), "18");
        EXPECT_EQ(Text(IDC_INJECTION_PRESSURE), "112");  // 70 % of 160 MPa
        EXPECT_EQ(Text(IDC_STROKE_TIME), "0");           // the record's own figure, not worked out
        EXPECT_FALSE(Enabled(IDC_STROKE_TIME));
        // 6 s of packing: stages of 1.5, 3 and 1.5 s at 60, 50 and 40 % of 80 MPa.
        EXPECT_EQ(Text(kHoldPressure[0]), "48.00");
        EXPECT_EQ(Text(kHoldTime[0]), "1.50");
        EXPECT_EQ(Text(kHoldPressure[1]), "40.00");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        EXPECT_EQ(Text(kHoldPressure[2]), "32.00");
        for (int id : kUnfed) {
            EXPECT_EQ(Text(id), "---") << id;
            EXPECT_FALSE(Enabled(id)) << id;
        }
        for (std::size_t i = 0; i < std::size(kPictureStatics); ++i)
            EXPECT_TRUE(ShowsBitmap(kPictureStatics[i], kPictures[i])) << kPictureStatics[i];
        // Pale figures on black.
        const QPalette edit = Field(kSpeed[0])->palette();
        EXPECT_EQ(edit.color(QPalette::Text), KRNColorRef(12905711));
        EXPECT_EQ(edit.color(QPalette::Base), QColor(Qt::black));
        Cancel();
    });
    EXPECT_EQ(s.result, IDCANCEL);
    // 5 and 0 as the controller writes them, one 64-bit 5 over both.
    EXPECT_EQ(counts[0], 5);
    EXPECT_EQ(counts[1], 0);
    EXPECT_EQ(counts[2], 3);
}

TEST(UniversalMultishot, ShortProfilesArePaddedAndLongOnesKept) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {50, 80}, {0, 80}});
    Session s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG& frame) {
        // Three (0, 0) stages before the last point, whose level drops to 0.
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_FP_PROFILE),
                     {{100, 40}, {50, 80}, {0, 0}, {0, 0}, {0, 0}, {0, 0}});
        EXPECT_EQ(Text(kSpeed[1]), Fixed(80 * KRN40mmTopSpeed() * 0.01, 2));
        EXPECT_EQ(Text(kPosition[1]), "60.00");
        // The padded points have fields of their own: shown, not blanked.
        EXPECT_EQ(Text(kSpeed[4]), "0.00");
        EXPECT_EQ(Text(kPosition[4]), "0.00");
        OK();
    });
    // Tidied on OK: the padding goes again.
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {50, 80}, {0, 80}});

    // A seventh point has no field but stays in the record.
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 10}, {90, 20}, {80, 30}, {70, 40}, {60, 50}, {50, 60}, {0, 60}});
    s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        EXPECT_EQ(Text(kPosition[4]), "72.00");
        OK();
    });
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));

    // A hold profile of two points: the stages it has no point for show "0".
    KRNSetProfile(r, MI_PP_PROFILE, {{100, 50}, {0, 50}});
    OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        EXPECT_EQ(Text(kHoldPressure[0]), "40.00");
        EXPECT_EQ(Text(kHoldTime[0]), "6.00");
        EXPECT_EQ(Text(kHoldPressure[1]), "0.00");  // padded to 4 points
        Cancel();
    });
}

// ---- injection pressure -----------------------------------------------------------------

TEST(UniversalMultishot, AnEmptyPressureProfileStaysEmptyUntilAPressureIsTyped) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_P_PROFILE, {});
    Session s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG& frame) {
        EXPECT_TRUE(KRNProfile(PageRecord(frame), MI_P_PROFILE).empty());
        EXPECT_EQ(Text(IDC_INJECTION_PRESSURE), "0");
        Type(IDC_INJECTION_PRESSURE, "80");
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_P_PROFILE), {{0, 50}});
        EXPECT_EQ(KRNItem(PageRecord(frame), MI_INJECTION_PRESSURE), 160.0);  // the maximum stays
        Cancel();
    });
    EXPECT_TRUE(KRNProfile(s.record, MI_P_PROFILE).empty());

    // On an existing profile only the first level changes.
    s = OpenUms(KRN40mmRecord(), [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        Type(IDC_INJECTION_PRESSURE, "120");
        OK();
    });
    KRNExpectPoints(KRNProfile(s.record, MI_P_PROFILE), {{100, 75}, {60, 85}, {15, 60}, {0, 60}});
}

// ---- injection stages ---------------------------------------------------------------------

TEST(UniversalMultishot, ASpeedAboveTheTopSpeedIsRefused) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        Type(kSpeed[0], "200");
        EXPECT_EQ(Text(kSpeed[0]), Fixed(40 * KRN40mmTopSpeed() * 0.01, 2));
        Type(kSpeed[1], "fast");
        EXPECT_EQ(Text(kSpeed[1]), Fixed(70 * KRN40mmTopSpeed() * 0.01, 2));
        EXPECT_EQ(Text(IDC_STROKE_TIME), "0");  // nothing stored, nothing worked out
        OK();
    });
    ASSERT_EQ(s.messages.size(), 2u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 159.16.");
    EXPECT_EQ(s.messages[1], "Please enter a number.");
    EXPECT_EQ(KRNProfile(s.record, MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
}

TEST(UniversalMultishot, SpeedsAndPositionsMoveTheirStageAndTheStrokeTime) {
    Session s = OpenUms(KRN40mmRecord(), [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG& frame) {
        Type(kSpeed[1], "100");
        CKRNMachineData expected = KRN40mmRecord();
        KRNSetProfile(expected, MI_FP_PROFILE,
                      {{100, 40}, {85, 100 / KRN40mmTopSpeed() * 100}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_FP_PROFILE), KRNProfile(expected, MI_FP_PROFILE));
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 2));

        // Stage 1 sets the full stroke; the full-stroke line follows the text.
        Type(kPosition[0], "100");
        EXPECT_EQ(KRNItem(PageRecord(frame), MI_MAX_RAM_POSITION), 100.0);
        EXPECT_EQ(Text(IDC_FULL_STROKE), "100");
        expected.SetMachineData(MI_MAX_RAM_POSITION, 100.0);
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 2));
        // Refused, the field and the line both show the stored position.
        Type(kPosition[0], "x");
        EXPECT_EQ(Text(kPosition[0]), "100.00");
        EXPECT_EQ(Text(IDC_FULL_STROKE), "100.00");

        // Stage 5 at the full stroke is halved, and the end takes its level.
        Type(kPosition[4], "100");
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_FP_PROFILE),
                     {{100, 40}, {85, 100 / KRN40mmTopSpeed() * 100}, {60, 90}, {35, 60}, {50, 35}, {0, 35}});
        Type(kSpeed[4], "10");
        EXPECT_NEAR(KRNProfile(PageRecord(frame), MI_FP_PROFILE)[5].second, 10 / KRN40mmTopSpeed() * 100, 1e-9);
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 100.0);
    EXPECT_TRUE(KRNAllFinite(s.record));
}

TEST(UniversalMultishot, TheVPPositionIsTakenAsTypedAndTheSwitchOverPointGivesItBack) {
    Session s = OpenUms(KRN40mmRecord(), [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        Type(IDC_VP_POSITION, "30");
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 30.0);

    // A stage with no speed at 25 % of 120 mm is the switch-over: 30 mm on OK.
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 90}, {25, 0}, {0, 0}});
    s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) { OK(); });
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 30.0);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {60, 90}, {0, 90}});
}

// ---- hold stages --------------------------------------------------------------------------

TEST(UniversalMultishot, HoldPressuresAreLimitedByTheInjectionPressure) {
    Session s = OpenUms(KRN40mmRecord(), [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG& frame) {
        // Above the 80 MPa packing pressure but within the 160 MPa injection pressure: taken.
        Type(kHoldPressure[0], "120");
        EXPECT_NEAR(KRNProfile(PageRecord(frame), MI_PP_PROFILE)[0].second, 150.0, 1e-9);
        const std::string strokeTime = Text(IDC_STROKE_TIME);
        EXPECT_EQ(strokeTime, Fixed(KRNExpectedStrokeTime(KRN40mmRecord(), 1), 2));
        Type(kHoldPressure[1], "170");
        EXPECT_EQ(Text(kHoldPressure[1]), "40.00");
        // A hold time is stored but leaves the stroke time as it stands.
        qobject_cast<QLineEdit*>(Field(IDC_STROKE_TIME))->setText(QString());
        Type(kHoldTime[1], "2");
        EXPECT_EQ(Text(IDC_STROKE_TIME), "");
        OK();
    });
    ASSERT_EQ(s.messages.size(), 1u);
    EXPECT_EQ(s.messages[0], "Please enter a value not greater than 160.00.");
    // 1.5 + 2 + 1.5 s of packing, the first stage at 150 %.
    EXPECT_DOUBLE_EQ(KRNItem(s.record, MI_PACKING_TIME), 5.0);
    const KRNPointList pp = KRNProfile(s.record, MI_PP_PROFILE);
    ASSERT_FALSE(pp.empty());
    EXPECT_NEAR(pp.front().second, 40.0, 1e-9);  // the last stage first, in record form
    EXPECT_NEAR(pp[pp.size() - 2].second, 150.0, 1e-9);
}

// ---- read-only, through the interface, hosted -------------------------------------------

TEST(UniversalMultishot, OKReturnsThePagesEditsEvenFromAReadOnlyRecord) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    Session s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        Type(kSpeed[1], "100");
        OK();
    });
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[1].second, 100 / KRN40mmTopSpeed() * 100, 1e-9);

    // The process key on the page already shown changes nothing.
    s = OpenUms(r, [](CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG&) {
        Type(kSpeed[1], "100");
        Click(IDC_KEY_PROCESS);
        OK();
    });
    EXPECT_NEAR(KRNProfile(s.record, MI_FP_PROFILE)[1].second, 100 / KRN40mmTopSpeed() * 100, 1e-9);
}

TEST(UniversalMultishot, OpensThroughTheControllerName) {
    CKRNProMachineInterface panels;
    WhileOpen([&] { EXPECT_EQ(panels.KRNDoModal(KRN40mmRecord(), "UMS-Series"), 1); },
              [] {
                  ASSERT_NE(KRNDriver::TopDialog(), nullptr);
                  EXPECT_EQ(KRNDriver::TopDialog()->TemplateId(), IDD_FRAME);
                  Type(kSpeed[1], "100");
                  OK();
              });
    EXPECT_NEAR(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE)[1].second, 100 / KRN40mmTopSpeed() * 100, 1e-9);
}

TEST(UniversalMultishot, HostedWithoutAModalLoopAndOpenedAgain) {
    CKRNProMachineInterface panels;
    panels.CreateMachineDialog(KRN40mmRecord(), "UMS-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_EQ(KRNDriver::TopDialog()->TemplateId(), IDD_FRAME);
    EXPECT_FALSE(panels.CanUpdate());
    Type(kSpeed[1], "100");
    OK();
    EXPECT_TRUE(panels.CanUpdate());
    EXPECT_NEAR(KRNProfile(panels.GetMachineData(), MI_FP_PROFILE)[1].second, 100 / KRN40mmTopSpeed() * 100, 1e-9);
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);

    // Opened again on the same interface: one page, the new record; Cancel
    // leaves no update.
    panels.SetHasUpdate(false);
    CKRNMachineData other = KRN40mmRecord();
    other.SetMachineData(MI_VP_RAM_POSITION, 25.0);
    panels.CreateMachineDialog(other, "UMS-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_EQ(KRNDriver::TopDialog()->findChildren<CKRNPanelPage*>().size(), 1);
    EXPECT_EQ(Text(IDC_VP_POSITION), "25");
    EXPECT_EQ(Text(kSpeed[1]), Fixed(70 * KRN40mmTopSpeed() * 0.01, 2));
    Type(kSpeed[1], "50");
    Cancel();
    EXPECT_FALSE(panels.CanUpdate());
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);
}

// A table and its template agree: a field missing from the form would be silently unwired.
TEST(UniversalMultishot, EveryFieldIsOnItsTemplate) {
    CKRNDialog page(IDD_PROCESS);
    ASSERT_TRUE(page.Create(nullptr, false));
    for (const KRNStageFields& row : kProcessTable)
        for (int id : row.ids) EXPECT_TRUE(page.Controls().contains(id)) << id;
    for (int id : {IDC_VP_POSITION, IDC_INJECTION_PRESSURE, IDC_STROKE_TIME, IDC_FULL_STROKE})
        EXPECT_TRUE(page.Controls().contains(id)) << id;
    for (int id : kPictureStatics) EXPECT_TRUE(page.Controls().contains(id)) << id;
    for (int id : kUnfed) EXPECT_TRUE(page.Controls().contains(id)) << id;
}
