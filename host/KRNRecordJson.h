#pragma once

// Records as JSON for krn-panel: one object whose keys are the record's item
// names (MI_FILLING_TIME, MI_FP_PROFILE as [[x, y], ...], MC_SCREW_DIAMETER,
// PI_PROCESS_NAME, ...) plus language, pressureUnit and customMode.

#include "KRNMachineData.h"

#include <QByteArray>
#include <QString>

// Fills `record` from JSON text. Keys not given keep the record's value. On
// an unknown key, a wrong type or text that is no JSON object, returns false
// with a message naming the key; `record` is then unchanged.
bool KRNReadRecordJson(const QByteArray& json, CKRNMachineData& record, QString& error);

// Every item of the record, in item order.
QByteArray KRNWriteRecordJson(const CKRNMachineData& record);
