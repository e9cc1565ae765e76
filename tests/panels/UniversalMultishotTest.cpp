// The Universal Multishot panel as a process engineer uses it, and as a host embeds it.

#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "common/CKRNPanelPage.h"
#include "universal_multishot/CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG.h"
#include "universal_multishot/UniversalMultishotIds.h"

#include <QLineEdit>

#include <gtest/gtest.h>

using namespace KRNTest;
using namespace UniversalMultishot;

namespace {

using Frame = CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG;

// The process page's own record while the panel is open.
const CKRNMachineData& PageRecord(Frame& frame) { return frame.findChildren<CKRNPanelPage*>().front()->m_MachineData; }

double TopSpeedShare(double mmPerS) { return mmPerS / KRN40mmTopSpeed() * 100; }

}  // namespace

TEST(UniversalMultishot, OpensInMachineUnitsAndStageEditsMoveTheProfileTheFullStrokeAndTheStrokeTime) {
    const CKRNMachineData r = KRN40mmRecord();
    Session s = OpenPanel<Frame>(r, [&r](Frame& frame) {
        // 5 and 0 as the controller writes them, one 64-bit 5 over both.
        EXPECT_EQ(std::vector<int>(frame.m_nStageCounts, frame.m_nStageCounts + 3), (std::vector<int>{5, 0, 3}));
        EXPECT_EQ(Text(kSpeed[0]), Fixed(40 * KRN40mmTopSpeed() * 0.01, 2));
        EXPECT_EQ(Text(kPosition[3]), "42.00");  // 35 % of 120 mm
        EXPECT_EQ(Text(IDC_FULL_STROKE), "120.00");
        EXPECT_FALSE(Enabled(IDC_FULL_STROKE));
        EXPECT_EQ(Text(IDC_VP_POSITION), "18");
        EXPECT_EQ(Text(IDC_INJECTION_PRESSURE), "112");  // 70 % of 160 MPa
        EXPECT_EQ(Text(IDC_STROKE_TIME), "0");           // the record's own figure, not worked out
        // 6 s of packing: stages of 1.5, 3 and 1.5 s at 60, 50 and 40 % of 80 MPa.
        EXPECT_EQ(Text(kHoldPressure[0]), "48.00");
        EXPECT_EQ(Text(kHoldTime[1]), "3.00");
        for (int id : kUnfed) EXPECT_EQ(Text(id), "---") << id;
        for (std::size_t i = 0; i < std::size(kPictureStatics); ++i)
            EXPECT_TRUE(ShowsBitmap(kPictureStatics[i], kPictures[i])) << kPictureStatics[i];

        Type(kSpeed[0], "200");  // above the top speed
        EXPECT_EQ(Text(kSpeed[0]), Fixed(40 * KRN40mmTopSpeed() * 0.01, 2));
        EXPECT_EQ(KRNProfile(PageRecord(frame), MI_FP_PROFILE), KRNProfile(r, MI_FP_PROFILE));
        EXPECT_EQ(Text(IDC_STROKE_TIME), "0");  // nothing stored, nothing worked out

        Type(kSpeed[1], "100");
        CKRNMachineData expected = r;
        KRNSetProfile(expected, MI_FP_PROFILE, {{100, 40}, {85, TopSpeedShare(100)}, {60, 90}, {35, 60}, {15, 35}, {0, 35}});
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_FP_PROFILE), KRNProfile(expected, MI_FP_PROFILE));
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 2));

        // Stage 1 sets the full stroke; the full-stroke line follows the text.
        Type(kPosition[0], "100");
        EXPECT_EQ(KRNItem(PageRecord(frame), MI_MAX_RAM_POSITION), 100.0);
        EXPECT_EQ(Text(IDC_FULL_STROKE), "100");
        expected.SetMachineData(MI_MAX_RAM_POSITION, 100.0);
        EXPECT_EQ(Text(IDC_STROKE_TIME), Fixed(KRNExpectedStrokeTime(expected, 1), 2));
        Type(kPosition[0], "x");  // refused: field and line both show the stored position
        EXPECT_EQ(Text(kPosition[0]), "100.00");
        EXPECT_EQ(Text(IDC_FULL_STROKE), "100.00");

        // Stage 5 at the full stroke is halved, and the end takes its level.
        Type(kPosition[4], "100");
        EXPECT_EQ(KRNProfile(PageRecord(frame), MI_FP_PROFILE)[4].first, 50.0);
        Type(kSpeed[4], "10");
        EXPECT_NEAR(KRNProfile(PageRecord(frame), MI_FP_PROFILE)[5].second, TopSpeedShare(10), 1e-9);
        OK();
    });
    EXPECT_EQ(s.messages, (std::vector<std::string>{"Please enter a value not greater than 159.16.", "Please enter a number."}));
    EXPECT_EQ(KRNItem(s.record, MI_MAX_RAM_POSITION), 100.0);
    EXPECT_TRUE(KRNAllFinite(s.record));
}

// A stage with no speed is the switch-over point: at 25 % of 120 mm, 30 mm on
// OK, and the stage goes with the padding.
TEST(UniversalMultishot, AShortFlowRateProfileIsPaddedWhileOpenAndAStageWithNoSpeedIsTheSwitchOver) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 90}, {25, 0}, {0, 80}});
    Session s = OpenPanel<Frame>(r, [](Frame& frame) {
        // Two (0, 0) stages before the last point, whose level drops to 0.
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_FP_PROFILE),
                        {{100, 40}, {60, 90}, {25, 0}, {0, 0}, {0, 0}, {0, 0}});
        EXPECT_EQ(Text(kSpeed[4]), "0.00");  // the padded points are shown, not blanked
        OK();
    });
    EXPECT_EQ(KRNItem(s.record, MI_VP_RAM_POSITION), 30.0);
    KRNExpectPoints(KRNProfile(s.record, MI_FP_PROFILE), {{100, 40}, {60, 90}, {0, 90}});
}

TEST(UniversalMultishot, AnEmptyPressureProfileStaysEmptyUntilAPressureIsTyped) {
    CKRNMachineData r = KRN40mmRecord();
    KRNSetProfile(r, MI_P_PROFILE, {});
    Session s = OpenPanel<Frame>(r, [](Frame& frame) {
        EXPECT_TRUE(KRNProfile(PageRecord(frame), MI_P_PROFILE).empty());
        EXPECT_EQ(Text(IDC_INJECTION_PRESSURE), "0");
        Type(IDC_INJECTION_PRESSURE, "80");
        KRNExpectPoints(KRNProfile(PageRecord(frame), MI_P_PROFILE), {{0, 50}});
        EXPECT_EQ(KRNItem(PageRecord(frame), MI_INJECTION_PRESSURE), 160.0);  // the maximum stays
        Cancel();
    });
    EXPECT_EQ(s.result, IDCANCEL);
    EXPECT_TRUE(KRNProfile(s.record, MI_P_PROFILE).empty());
}

TEST(UniversalMultishot, HoldPressuresAreLimitedByTheInjectionPressure) {
    Session s = OpenPanel<Frame>(KRN40mmRecord(), [](Frame& frame) {
        // Above the 80 MPa packing pressure but within the 160 MPa injection pressure: taken.
        Type(kHoldPressure[0], "120");
        EXPECT_NEAR(KRNProfile(PageRecord(frame), MI_PP_PROFILE)[0].second, 150.0, 1e-9);
        Type(kHoldPressure[1], "170");
        EXPECT_EQ(Text(kHoldPressure[1]), "40.00");
        // A hold time is stored but leaves the stroke time as it stands.
        qobject_cast<QLineEdit*>(Field(IDC_STROKE_TIME))->setText(QString());
        Type(kHoldTime[1], "2");
        EXPECT_EQ(Text(IDC_STROKE_TIME), "");
        OK();
    });
    EXPECT_EQ(s.messages, std::vector<std::string>{"Please enter a value not greater than 160.00."});
    EXPECT_DOUBLE_EQ(KRNItem(s.record, MI_PACKING_TIME), 5.0);  // 1.5 + 2 + 1.5 s
    // The last stage first, in record form.
    KRNExpectPoints(KRNProfile(s.record, MI_PP_PROFILE), {{100, 40}, {70, 50}, {30, 150}, {0, 150}});
}

// Hosted on a read-only record: OK still returns the page's edits.
TEST(UniversalMultishot, HostedWithoutAModalLoopOKReturnsEditsEvenFromAReadOnlyRecordAndOpenedAgain) {
    CKRNMachineData r = KRN40mmRecord();
    r.SetMachineData(MI_READ_ONLY, true);
    CKRNProMachineInterface panels;
    panels.CreateMachineDialog(r, "UMS-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_FALSE(panels.CanUpdate());
    Type(kSpeed[1], "100");
    Type(IDC_VP_POSITION, "30");
    Type(IDC_INJECTION_PRESSURE, "120");
    Click(IDC_KEY_PROCESS);  // the page already shown: changes nothing
    OK();
    EXPECT_TRUE(panels.CanUpdate());
    const CKRNMachineData back = panels.GetMachineData();
    EXPECT_NEAR(KRNProfile(back, MI_FP_PROFILE)[1].second, TopSpeedShare(100), 1e-9);
    EXPECT_EQ(KRNItem(back, MI_VP_RAM_POSITION), 30.0);  // taken as typed
    // On an existing pressure profile only the first level changes.
    KRNExpectPoints(KRNProfile(back, MI_P_PROFILE), {{100, 75}, {60, 85}, {15, 60}, {0, 60}});

    // Opened again on the same interface (one set of pages: PanelLifetimeTest):
    // the new record; Cancel leaves no update.
    panels.SetHasUpdate(false);
    CKRNMachineData other = KRN40mmRecord();
    other.SetMachineData(MI_VP_RAM_POSITION, 25.0);
    panels.CreateMachineDialog(other, "UMS-Series");
    ASSERT_NE(KRNDriver::TopDialog(), nullptr);
    EXPECT_EQ(Text(IDC_VP_POSITION), "25");
    Type(kSpeed[1], "50");
    Cancel();
    EXPECT_FALSE(panels.CanUpdate());
    EXPECT_EQ(KRNDriver::TopDialog(), nullptr);
}
