// The shared stage rules on records, with the worked numbers a process
// engineer would check by hand.

#include "KRNRecordBuilder.h"
#include "common/KRNStageRoutines.h"

#include <gtest/gtest.h>

namespace {

CKRNMachineData With(KRNMACHINEITEM item, const KRNPointList& points) {
    CKRNMachineData r;
    KRNSetProfile(r, item, points);
    return r;
}

void ExpectProfile(const CKRNMachineData& r, KRNMACHINEITEM item, const KRNPointList& expected) {
    KRNExpectPoints(KRNProfile(r, item), expected);
}

}  // namespace

TEST(Padding, InsertsZeroStagesBeforeTheLastPointAndTidyAtOkUndoesIt) {
    CKRNMachineData r = With(MI_P_PROFILE, {{100, 70}, {60, 85}, {0, 60}});
    KRNStages::PadTo(r, MI_P_PROFILE, 7);
    // The profile ends flat on the last inserted stage.
    ExpectProfile(r, MI_P_PROFILE, {{100, 70}, {60, 85}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}});
    KRNStages::Tidy(r, MI_P_PROFILE);
    // The closing point takes the level of the last real stage.
    ExpectProfile(r, MI_P_PROFILE, {{100, 70}, {60, 85}, {0, 85}});
    // An end point alone is kept (made (0, 0) by the switch-over tidy below).
    r = With(MI_P_PROFILE, {{0, 0}, {0, 0}, {100, 70}});
    KRNStages::Tidy(r, MI_P_PROFILE);
    ExpectProfile(r, MI_P_PROFILE, {{100, 70}});

    // One inserted point before a stage ending at 100 %: that stage is halved.
    r = With(MI_FP_PROFILE, {{30, 20}, {100, 40}, {0, 60}});
    KRNStages::Grow(r, MI_FP_PROFILE, 4);
    ExpectProfile(r, MI_FP_PROFILE, {{30, 20}, {100, 40}, {50, 40}, {0, 40}});
    // A profile with the points already is left as it is.
    const KRNPointList seven = {{100, 1}, {90, 2}, {80, 3}, {70, 4}, {60, 5}, {50, 6}, {0, 6}};
    r = With(MI_FP_PROFILE, seven);
    KRNStages::PadTo(r, MI_FP_PROFILE, 6);
    ExpectProfile(r, MI_FP_PROFILE, seven);
}

TEST(Padding, LeavesProfilesWithoutAStageAlone) {
    for (const KRNPointList& points : {KRNPointList{}, KRNPointList{{100, 50}}}) {
        CKRNMachineData r = With(MI_PP_PROFILE, points);
        KRNStages::PadTo(r, MI_PP_PROFILE, 7);
        KRNStages::Grow(r, MI_PP_PROFILE, 7);
        KRNStages::Tidy(r, MI_PP_PROFILE);
        ExpectProfile(r, MI_PP_PROFILE, points);
    }
}

TEST(Padding, TidyWithSwitchOverGivesTheVPPositionBack) {
    // Speed stages at 100 % and 60 % of a 120 mm stroke, the switch-over
    // placed at 25 % (no speed), padding after it.
    CKRNMachineData r;
    r.SetMachineData(MI_MAX_RAM_POSITION, 120.0);
    r.SetMachineData(MI_VP_RAM_POSITION, 7.0);
    KRNSetProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 55}, {25, 0}, {0, 0}, {0, 0}, {0, 30}});
    KRNSetProfile(r, MI_P_PROFILE, {{100, 80}, {25, 0}, {0, 0}, {0, 70}});
    KRNSetProfile(r, MI_PP_PROFILE, {{0, 0}, {0, 0}, {100, 45}});
    KRNStages::TidyWithSwitchOver(r);
    EXPECT_DOUBLE_EQ(KRNItem(r, MI_VP_RAM_POSITION), 25.0 / 100.0 * 120.0);  // 30 mm
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 55}, {0, 55}});
    ExpectProfile(r, MI_P_PROFILE, {{100, 80}, {0, 80}});
    // A lone end point becomes (0, 0).
    ExpectProfile(r, MI_PP_PROFILE, {{0, 0}});

    // No switch-over point: the V-P position stays, the padding still goes.
    CKRNMachineData plain;
    plain.SetMachineData(MI_VP_RAM_POSITION, 7.0);
    KRNSetProfile(plain, MI_FP_PROFILE, {{100, 40}, {0, 0}, {0, 0}, {0, 40}});
    KRNStages::TidyWithSwitchOver(plain);
    EXPECT_DOUBLE_EQ(KRNItem(plain, MI_VP_RAM_POSITION), 7.0);
    ExpectProfile(plain, MI_FP_PROFILE, {{100, 40}, {0, 40}});
}

TEST(StageCount, GrowsWithCopiesAndShrinksFromTheEnd) {
    CKRNMachineData r = With(MI_FP_PROFILE, {{100, 40}, {60, 80}, {0, 20}});
    KRNStages::SetStageCount(r, MI_FP_PROFILE, 4);
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 80}, {60, 80}, {60, 80}, {0, 80}});
    KRNStages::SetStageCount(r, MI_FP_PROFILE, 1);
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 80}});
    KRNStages::SetStageCount(r, MI_FP_PROFILE, -2);  // ignored
    EXPECT_EQ(KRNProfile(r, MI_FP_PROFILE).size(), 2u);
    KRNStages::SetStageCount(r, MI_FP_PROFILE, 0);  // one stage always stays, to grow from again
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {0, 80}});
    KRNStages::SetStageCount(r, MI_FP_PROFILE, 2);
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {50, 40}, {0, 40}});
}

// The plain tail rule (halve a full-stroke stage, end flat) is checked with
// Grow above. After a hold stage the end keeps its level only when that stage
// ends at 100, which stays; halving as well drops it or ends flat, on the
// record's last two points only.
TEST(TailRules, HoldTailAndHalveOrDropEndFlatOnlyAfterAFullStrokeStage) {
    KRNStages::Points hold{{2.0, 60}, {0, 30}}, full{{100.0, 60}, {0, 30}};
    KRNStages::HoldTail(hold);
    KRNStages::HoldTail(full);
    EXPECT_EQ(hold[1].y, 0.0);
    EXPECT_EQ(full[0].x, 100.0);
    EXPECT_EQ(full[1].y, 60.0);

    CKRNMachineData r = With(MI_FP_PROFILE, {{100, 40}, {100, 70}, {0, 10}});
    KRNStages::HalveOrDropTail(r, MI_FP_PROFILE);
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {50, 70}, {0, 70}});
    r = With(MI_FP_PROFILE, {{100, 40}, {60, 70}, {0, 70}});
    KRNStages::HalveOrDropTail(r, MI_FP_PROFILE);
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}, {60, 70}, {0, 0}});
    r = With(MI_FP_PROFILE, {{100, 40}});  // no stage: nothing to do
    KRNStages::HalveOrDropTail(r, MI_FP_PROFILE);
    ExpectProfile(r, MI_FP_PROFILE, {{100, 40}});
}

TEST(HoldStages, StagesInSecondsAndBackOverTheirOwnTime) {
    // Page form: 1 s at 60 %, 2 s at 50 %, 1 s at 40 %, then the closing point.
    CKRNMachineData r = With(MI_PP_PROFILE, {{1, 60}, {2, 50}, {1, 40}, {0, 0}});
    KRNStages::ToRecordForm(r, MI_PP_PROFILE, MI_PACKING_TIME);
    ExpectProfile(r, MI_PP_PROFILE, {{100, 40}, {75, 50}, {25, 60}, {0, 60}});
    EXPECT_EQ(KRNItem(r, MI_PACKING_TIME), 4.0);
    KRNStages::ToPageForm(r, MI_PP_PROFILE, MI_PACKING_TIME);
    ExpectProfile(r, MI_PP_PROFILE, {{1, 60}, {2, 50}, {1, 40}, {0, 0}});

    // Compression stages over their own 5 s; the packing time stays.
    r = With(MI_ICMF_PROFILE, {{100, 20}, {40, 80}, {0, 80}});
    r.SetMachineData(MI_VALUE_21, 5.0);
    r.SetMachineData(MI_PACKING_TIME, 9.0);
    KRNStages::ToPageForm(r, MI_ICMF_PROFILE, MI_VALUE_21);
    ExpectProfile(r, MI_ICMF_PROFILE, {{2, 80}, {3, 20}, {0, 0}});
    KRNStages::ToRecordForm(r, MI_ICMF_PROFILE, MI_VALUE_21);
    ExpectProfile(r, MI_ICMF_PROFILE, {{100, 20}, {40, 80}, {0, 80}});
    EXPECT_EQ(KRNItem(r, MI_PACKING_TIME), 9.0);
}

TEST(HoldStages, StagesWithoutTimeGoToTheEndOrAreDroppedAndNoTimeIsNoNumber) {
    // Repeated x values: the padded hold profile of a panel.
    CKRNMachineData r = With(MI_PP_PROFILE, {{100, 40}, {50, 60}, {0, 0}, {0, 0}, {0, 0}});
    r.SetMachineData(MI_PACKING_TIME, 4.0);
    KRNStages::ToPageForm(r, MI_PP_PROFILE, MI_PACKING_TIME);
    ExpectProfile(r, MI_PP_PROFILE, {{2, 60}, {2, 40}, {0, 0}, {0, 0}, {0, 0}});

    // A zero time in a middle stage disappears on the way back.
    CKRNMachineData middle = With(MI_PP_PROFILE, {{1, 70}, {0, 50}, {3, 30}, {0, 0}});
    KRNStages::ToRecordForm(middle, MI_PP_PROFILE, MI_PACKING_TIME);
    ExpectProfile(middle, MI_PP_PROFILE, {{100, 30}, {25, 70}, {0, 70}});
    EXPECT_EQ(KRNItem(middle, MI_PACKING_TIME), 4.0);

    // Durations that cancel out: no time, and no number that is none.
    r = With(MI_PP_PROFILE, {{2, 50}, {-2, 40}, {0, 0}});
    KRNStages::ToRecordForm(r, MI_PP_PROFILE, MI_PACKING_TIME);
    EXPECT_TRUE(KRNAllFinite(r));
    EXPECT_EQ(KRNItem(r, MI_PACKING_TIME), 0.0);

    CKRNMachineData empty;
    KRNStages::ToRecordForm(empty, MI_PP_PROFILE, MI_PACKING_TIME);
    KRNStages::ToPageForm(empty, MI_PP_PROFILE, MI_PACKING_TIME);
    EXPECT_EQ(empty.GetProfileDataCount(MI_PP_PROFILE), 0);
}

TEST(LongProfiles, StayLinear) {
    KRNPointList many;
    for (int i = 0; i < 200000; ++i) many.emplace_back(100.0 - i * 0.0005, 50.0);
    CKRNMachineData r = With(MI_FP_PROFILE, many);
    KRNStages::Tidy(r, MI_FP_PROFILE);
    KRNStages::SetStageCount(r, MI_FP_PROFILE, 3);
    EXPECT_EQ(r.GetProfileDataCount(MI_FP_PROFILE), 4);
}

TEST(Curves, StepsOverTheShareOfTime) {
    // 30 + 50 + 20 = 100: the running sums are the shares.
    CKRNMachineData r;
    KRNStages::Write(r, MI_FP_PROFILE, KRNStages::Accumulate({{30, 70}, {50, 85}, {20, 60}}));
    ExpectProfile(r, MI_FP_PROFILE, {{0, 70}, {30, 70}, {80, 85}, {100, 60}});
    // Nothing to share: no curve rather than points that are no number.
    EXPECT_TRUE(KRNStages::Accumulate({{0, 50}, {0, 60}}).empty());
    EXPECT_TRUE(KRNStages::Accumulate({{1e308, 50}, {1e308, 60}}).empty());
    EXPECT_TRUE(KRNStages::Accumulate({}).empty());
}
