#pragma once

// Full scales the stage panels show the record's percentages against.

#include "KRNMachineData.h"

// The screw's top speed in mm/s: the maximum injection rate (cm3/s) over the
// screw's cross-section, with the screens' own 3.14159.
inline double KRNMaxInjectionSpeed(const CKRNMachineData& record) {
    const double d = record.GetMachine(MC_SCREW_DIAMETER) / 10.0;  // cm
    return record.GetMachine(MC_MAX_INJECTION_RATE) * 10.0 / (d * d * 3.14159 * 0.25);
}
