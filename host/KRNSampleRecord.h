#pragma once

#include "KRNMachineData.h"

// The record krn-panel opens when none is given: a 40 mm screw at 200 cm3/s
// with 120 mm of stroke, five speed stages and three hold stages.
CKRNMachineData KRNSampleRecord();
