#pragma once

// Template and control numbers of the JSW Syscom3000 screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

#include <array>
#include <span>

namespace JswSyscom3000 {

// The frame template has a number of its own; 31143 is the CLF temperature page.
constexpr int IDD_FRAME = 31147;
constexpr int IDD_TEMP = 31144;
constexpr int IDD_INJ = 31145;
constexpr int IDD_PACK = 31146;

enum Page { kTemperaturePage = 0, kInjectionPage = 1, kCompressionPage = 2 };

// Frame.
constexpr int IDC_PAGE_AREA = 1371;
constexpr int IDC_KEY_TEMPERATURE = 1454;
constexpr int IDC_KEY_INJECTION = 1455;
constexpr int IDC_KEY_COMPRESSION = 1451;
constexpr int IDC_PICTURE = 1500;
constexpr int IDB_PICTURE = 750;

// Every page.
constexpr int IDC_CLOCK = 1440;

// Machine data, three times each for diameter, MC_SPEC_3 and MC_SPEC_4.
constexpr int kDiameterFieldsInj[3] = {1435, 1456, 1460};
constexpr int kDiameterFieldsTemp[3] = {1452, 1456, 1460};
constexpr int kSpec3Fields[3] = {1453, 1457, 1461};
constexpr int kSpec4Fields[3] = {1454, 1458, 1462};
constexpr int IDC_SPEC5 = 1470;

// Temperature page.
constexpr int IDC_MOLD_TEMPERATURE = 1396;
constexpr int IDC_MELT_TEMPERATURE = 1397;
constexpr int IDC_MOLD_MIRROR = 1395;
constexpr int kMeltMirrors[2] = {1379, 1501};
constexpr int IDC_MACHINE_PICTURE = 1502;
constexpr int IDB_MACHINE_PICTURE = 753;

// ---- the stage fields of a page, stage 1 first --------------------------------

// Injection and hold page. 1379 sits where a sixth position would be and
// is left to the template.
constexpr int kSpeed[6] = {1378, 1376, 1374, 1372, 1370, 1368};
constexpr int kPressure[6] = {1377, 1375, 1373, 1371, 1369, 1367};
constexpr int kPosition[5] = {1384, 1383, 1382, 1381, 1380};
constexpr int kHoldPressure[6] = {1397, 1396, 1395, 1394, 1393, 1392};
constexpr int kHoldTime[6] = {1403, 1402, 1401, 1400, 1399, 1398};
constexpr int IDC_VP_POSITION = 1365;
constexpr int IDC_SUCK_BACK = 1419;

// Injection-compression and hold page; 1430 is left to the template like 1379.
constexpr int kICSpeed[6] = {1428, 1427, 1424, 1423, 1429, 1422};
constexpr int kICPressure[6] = {1418, 1411, 1410, 1409, 1421, 1408};
constexpr int kICPosition[5] = {1434, 1433, 1432, 1431, 1435};
constexpr int kICHoldPressure[6] = {1467, 1466, 1465, 1464, 1468, 1450};
constexpr int kICHoldTime[6] = {1447, 1446, 1445, 1444, 1449, 1443};

// Both pages show the same stages: speeds up to the screw's top speed,
// pressures up to the injection pressure, positions within the machine's
// stroke (MC_SPEC_2), hold pressures of the packing pressure up to the
// injection pressure, hold times in seconds. The injection-compression page
// shows "0" for hold stages from the profile's count on, not its last point.
constexpr std::array<KRNStageFields, 5> StageTable(std::span<const int> speed, std::span<const int> pressure,
                                                   std::span<const int> position, std::span<const int> holdPressure,
                                                   std::span<const int> holdTime, KRNStageFields::Blank holdBlank) {
    using F = KRNStageFields;
    // fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
    return {{
        {speed, MI_FP_PROFILE, KRNField::Speed, KRNMaxInjectionSpeed, KRNMaxInjectionSpeed, 1.0, KRNStages::TailRule, F::FromLastPoint},
        {pressure, MI_P_PROFILE, KRNField::Pressure, KRNInjectionPressure, KRNInjectionPressure, 1.0, KRNStages::TailRule, F::FromLastPoint},
        {position, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, KRNStrokeLimit, 1.0, KRNStages::TailRule, F::FromLastPoint},
        {holdPressure, MI_PP_PROFILE, KRNField::Pressure, KRNPackingPressure, KRNInjectionPressure, 1.0, KRNStages::EndFlat, holdBlank},
        {holdTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, KRNStages::EndFlat, holdBlank},
    }};
}
constexpr auto kInjectionTable =
    StageTable(kSpeed, kPressure, kPosition, kHoldPressure, kHoldTime, KRNStageFields::FromLastPoint);
constexpr auto kCompressionPageTable =
    StageTable(kICSpeed, kICPressure, kICPosition, kICHoldPressure, kICHoldTime, KRNStageFields::FromCount);
// The field of stage k shows where stage k + 1 begins; what is typed there
// is taken as the position of stage k, so the first field sets the full
// stroke. Speed and pressure stages share their switching positions.
constexpr KRNStageRules kStageRules{1, true};

constexpr int kCompressionForce[6] = {1368, 1370, 1372, 1374, 1376, 1378};
constexpr int kCompressionTime[6] = {1379, 1380, 1381, 1382, 1383, 1384};
constexpr int IDC_IC_VP_POSITION = 1385;
constexpr int kICValues[4] = {1386, 1387, 1388, 1389};  // MI_VALUE_20 to MI_VALUE_23

// PI_PROCESS_VALUE of an injection-compression process.
constexpr int kInjectionCompression = 5;

}  // namespace JswSyscom3000
