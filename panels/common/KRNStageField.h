#pragma once

// One row of a stage page's table: a group of fields, one per stage, that
// show one quantity of one profile. A stage panel's page lists its rows the
// way its screen lists its fields.

#include "KRNFieldRanges.h"
#include "KRNMachineData.h"

#include <span>

// A full scale or limit of a stage field, in record units, from the record.
using KRNScale = double (*)(const CKRNMachineData& record);
// A rule applied to a profile after one of its stages was stored.
using KRNTail = void (*)(CKRNMachineData& record, KRNMACHINEITEM profile);

struct KRNStageFields {
    // Stages the screen shows as "0": those from the profile's last point on
    // (the last point closes the last stage), from its count on, or none.
    enum Blank { FromLastPoint, FromCount, Never };
    // When an entry is taken: at every change of the text, or when the field
    // loses the focus.
    enum Trigger { OnChange, OnKillFocus };

    std::span<const int> ids;  // stage 1 first
    KRNMACHINEITEM profile;
    // Speed, Pressure, Force, Percent: the stage's level (y). Position: where
    // the stage begins (x, of the stroke). Time: the stage's own duration (x,
    // in seconds, on pages that hold time profiles in page form).
    KRNField kind;
    KRNScale fullScale;  // 100 % of y, or of x for positions; none for times
    KRNScale limit;      // levels: refused above it (352); positions: outside 0..it (353); none: the kind's range
    double unit;         // machine units per record unit: 10 for bar from MPa, 9.8 for kN from tonnes
    KRNTail tail;        // after a stored edit; none: nothing
    Blank blank;
    Trigger trigger = OnChange;
};

// How a page's switching positions behave.
struct KRNStageRules {
    // A position field shows where the stage after its own begins (1), or its
    // own stage (0). What is typed always goes to the field's own stage.
    int positionShownAhead = 0;
    // A position moves the pressure profile's stage too: speed and pressure
    // stages share their switching positions.
    bool positionsMovePressure = false;
    // Above 0: positions fall from stage to stage. A position must lie between
    // the next stage's (below) and the one before's (above; for the first
    // stage the row's limit), at least this far from both, or it is refused
    // with 353 and those two limits. A 0 typed where the next stage is at 0
    // too passes: the stages from there on are unused.
    double positionSpacing = 0.0;
};
