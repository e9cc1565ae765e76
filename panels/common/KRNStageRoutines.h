#pragma once

// The stage rules every stage panel shares, as plain functions on the record.
//
// A profile of the record is a list of (x, y) points in percent; each point
// but the last ends a stage, and the last point closes the last stage. Panels
// show a fixed number of stages, so profiles are padded when a panel opens and
// tidied again on OK; hold (and compression) stages are shown with each
// stage's own duration in seconds instead of percent of the total time.

#include "KRNMachineData.h"

#include <vector>

namespace KRNStages {

using Points = std::vector<XYProfile>;

Points Read(const CKRNMachineData& record, KRNMACHINEITEM profile);
void Write(CKRNMachineData& record, KRNMACHINEITEM profile, const Points& points);

// ---- tail rules, after a stage point was stored -----------------------------

// The profile ends flat: the last point takes the y of the point before it.
void EndFlat(Points& points);
// A stage that ends at the full stroke (second-to-last x exactly 100) would
// leave no room for the last one: its x becomes 50.
void HalveFullStrokeStage(Points& points);
// Both of the above, in that order.
void TailRule(Points& points);
// After a hold stage was stored: the last point keeps the second-to-last y
// only when that stage ends at 100; otherwise it drops to 0.
void HoldTail(Points& points);
// After a stroke stage was stored on screens whose last stage ends at no
// speed or pressure: a stage ending at the full stroke (second-to-last x
// exactly 100) is halved to 50 and the profile ends flat at its level;
// otherwise the last point drops to 0.
void HalveOrDropTail(Points& points);
// The same rules applied to a profile of the record in place.
void EndFlat(CKRNMachineData& record, KRNMACHINEITEM profile);
void TailRule(CKRNMachineData& record, KRNMACHINEITEM profile);
void HoldTail(CKRNMachineData& record, KRNMACHINEITEM profile);
void HalveOrDropTail(CKRNMachineData& record, KRNMACHINEITEM profile);

// ---- opening and closing a panel ---------------------------------------------

// Inserts `count` (0, 0) stages before the last point of a profile of two or
// more points, then applies the tail rule.
void Pad(CKRNMachineData& record, KRNMACHINEITEM profile, int count);
// Pads a profile of fewer than `points` points up to that many.
void PadTo(CKRNMachineData& record, KRNMACHINEITEM profile, int points);
// Grows a profile of two or more points to `points` points by repeating the
// second-to-last point, then applies the tail rule.
void Grow(CKRNMachineData& record, KRNMACHINEITEM profile, int points);
// Removes second-to-last points until at most `points` remain.
void Shrink(CKRNMachineData& record, KRNMACHINEITEM profile, int points);
// Wanted stage count typed by the user: grows or shrinks to count + 1 points;
// a negative count changes nothing, and one stage always stays (a count of 0
// keeps two points), so a later count can grow the profile again.
void SetStageCount(CKRNMachineData& record, KRNMACHINEITEM profile, int stages);
// A last point with none before it after tidying: left as it is, or made
// (0, 0), as some controllers read "the point before it" from nothing.
enum class LoneEnd { Keep, ToZero };
// On OK: every point but the last whose x is exactly 0 goes (undoing the
// padding), and the last point becomes (0, y of the point before it).
void Tidy(CKRNMachineData& record, KRNMACHINEITEM profile, LoneEnd lone = LoneEnd::Keep);
// On OK on screens that place the V-P switch-over as a flow-rate point of
// no speed: the first flow-rate point with a position and no level gives the
// V-P position back (x / 100 x MI_MAX_RAM_POSITION) and goes to x 0 like the
// padding, and so does the first such point of the pressure profile; then the
// flow-rate, pressure and packing-pressure profiles are tidied with a lone
// end made (0, 0).
void TidyWithSwitchOver(CKRNMachineData& record);

// ---- hold and compression stages -------------------------------------------

// Record form (x in percent of the total time in `timeItem`, from 100 down to
// 0) to page form (x the stage's own duration in seconds, y the stage's
// value, the first stage first). Stages of no duration become (0, 0) and
// leading ones move to the end, so empty stages gather there.
void ToPageForm(CKRNMachineData& record, KRNMACHINEITEM profile, KRNMACHINEITEM timeItem);
// Page form back to record form: stages of no duration (but the last point)
// are dropped, the total of the durations becomes `timeItem`, and each stage
// ends at its running share of the total.
void ToRecordForm(CKRNMachineData& record, KRNMACHINEITEM profile, KRNMACHINEITEM timeItem);

// ---- curves -------------------------------------------------------------------

// A step curve over the share of time: the points' x values summed up as they
// go, each sum in percent of the total, after a first point (0, y of the first
// point). Empty when the x values add up to 0 or to no finite number.
Points Accumulate(const Points& points);

}  // namespace KRNStages
