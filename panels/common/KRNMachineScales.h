#pragma once

// Full scales the stage panels show the record's percentages against.

#include "KRNMachineData.h"

#include <cmath>

// A full scale that percentages can be taken of: finite and above 0. A screw
// diameter, stroke, pressure or time of 0 in the machine data gives none.
inline bool KRNHasFullScale(double fullScale) { return std::isfinite(fullScale) && fullScale > 0.0; }

// The screw's top speed in mm/s: the maximum injection rate (cm3/s) over the
// screw's cross-section, with the screens' own 3.14159.
inline double KRNMaxInjectionSpeed(const CKRNMachineData& record) {
    const double d = record.GetMachine(MC_SCREW_DIAMETER) / 10.0;  // cm
    return record.GetMachine(MC_MAX_INJECTION_RATE) * 10.0 / (d * d * 3.14159 * 0.25);
}

// The full scales and limits the stage pages take from the record, in record units.
inline double KRNItemValue(const CKRNMachineData& record, KRNMACHINEITEM item) {
    double value = 0.0;
    record.GetMachineData(item, value);
    return value;
}
inline double KRNFullStroke(const CKRNMachineData& r) { return KRNItemValue(r, MI_MAX_RAM_POSITION); }  // mm
inline double KRNStrokeLimit(const CKRNMachineData& r) { return r.GetMachine(MC_SPEC_2); }  // mm
inline double KRNInjectionPressure(const CKRNMachineData& r) { return KRNItemValue(r, MI_INJECTION_PRESSURE); }  // MPa
inline double KRNPackingPressure(const CKRNMachineData& r) { return KRNItemValue(r, MI_PACKING_PRESSURE); }  // MPa
inline double KRNHundredPercent(const CKRNMachineData&) { return 100.0; }  // screens that show percent

// The seconds the screw needs over the flow-rate profile (CalcStrokeTime,
// mode 1 skipping stages of no flow), worked out on a copy: the record's own
// calculation counts a screw of no diameter as 1 mm and writes that into the
// machine data, which would give speeds a full scale the machine does not have.
inline double KRNStrokeTime(const CKRNMachineData& record, int mode) {
    CKRNMachineData copy = record;
    return copy.CalcStrokeTime(mode);
}
