#pragma once

// Template, control and bitmap numbers of the Mitsubishi electric screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

namespace MitsubishiElectric {

// Templates.
constexpr int IDD_FRAME = 908;
constexpr int IDD_TIME = 911;
constexpr int IDD_INJECTION = 909;

// Pages in the order the frame creates them.
enum Page { kTimePage = 0, kInjectionPage = 1 };

// Frame. The screen area is the frame's first unnumbered static.
constexpr int IDC_PAGE_AREA = -1;
constexpr int IDC_KEY_TIME = 1768;
constexpr int IDC_KEY_INJECTION = 1771;
// Soft keys for screens the record holds nothing for: they do nothing here.
constexpr int IDC_KEY_MOLD = 1767;
constexpr int IDC_KEY_EJECT = 1769;
constexpr int IDC_KEY_MONITOR = 1770;

// Key faces. A page key looks pressed, lamp lit, while selected or focused.
constexpr int IDB_KEY_MOLD = 1034;
constexpr int IDB_KEY_INJECTION = 1038;
constexpr int IDB_KEY_INJECTION_DOWN = 1055;
constexpr int IDB_KEY_EJECT = 1035;
constexpr int IDB_KEY_MONITOR = 1036;
constexpr int IDB_KEY_TIME = 1037;
constexpr int IDB_KEY_TIME_DOWN = 1049;

// The soft keys left to right under the screen.
// control | normal | selected | focused
constexpr int kSoftKeys[5][4] = {
    {IDC_KEY_MOLD, IDB_KEY_MOLD, IDB_KEY_MOLD, IDB_KEY_MOLD},
    {IDC_KEY_INJECTION, IDB_KEY_INJECTION, IDB_KEY_INJECTION_DOWN, IDB_KEY_INJECTION_DOWN},
    {IDC_KEY_EJECT, IDB_KEY_EJECT, IDB_KEY_EJECT, IDB_KEY_EJECT},
    {IDC_KEY_MONITOR, IDB_KEY_MONITOR, IDB_KEY_MONITOR, IDB_KEY_MONITOR},
    {IDC_KEY_TIME, IDB_KEY_TIME, IDB_KEY_TIME_DOWN, IDB_KEY_TIME_DOWN},
};

// ---- injection and hold page, stage 1 first ------------------------------------

// Speeds and pressures in percent of the machine's full scale, positions in mm.
constexpr int kSpeed[6] = {1432, 1430, 1428, 1426, 1433, 1434};
constexpr int kPressure[6] = {1371, 1369, 1367, 1365, 1435, 1436};
constexpr int kPosition[6] = {1382, 1380, 1378, 1376, 1437, 1438};
// Hold pressures in percent of the packing pressure, hold times in seconds.
constexpr int kHoldPressure[3] = {1395, 1393, 1391};
constexpr int kHoldTime[3] = {1401, 1399, 1397};
constexpr int IDC_COOLING_TIME = 1386;
constexpr int IDC_VP_POSITION = 1416;
// Where stage 1 starts, "%lg mm": the shot stroke beside the table and the
// full stroke in the status line.
constexpr int kFirstPositionMirrors[2] = {1327, 1332};
// The injection pressure in MPa, 100 % of the pressure scale.
constexpr int IDC_INJECTION_PRESSURE_STATIC = 1329;
// Chart areas: speed and pressure stages over the stroke.
constexpr int IDC_SPEED_CHART = 1440;
constexpr int IDC_PRESSURE_CHART = 1441;
// Values the record has none for, shown as "---": the suck-back 1309; from
// 1336 the charge stages 1 and 2 (screw speed, back pressure, end position);
// from 1410 the monitor (injection time, V-P pressure, cushion, charge time,
// peak pressure, cycle time).
constexpr int kInjectionUnfed[13] = {1309, 1336, 1337, 1338, 1339, 1340, 1341,
                                     1410, 1411, 1412, 1413, 1414, 1415};

// Speeds, pressures and hold pressures are the record's own percentages, up
// to 100; positions in mm of the full stroke, unchecked, move both stroke
// profiles; a hold time keeps its stage's pressure and no tail rule follows.
// fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
constexpr KRNStageFields kInjectionTable[] = {
    {kSpeed, MI_FP_PROFILE, KRNField::Percent, nullptr, KRNHundredPercent, 1.0, KRNStages::TailRule, KRNStageFields::Never},
    {kPressure, MI_P_PROFILE, KRNField::Percent, nullptr, KRNHundredPercent, 1.0, KRNStages::TailRule, KRNStageFields::Never},
    {kPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::TailRule, KRNStageFields::Never},
    {kHoldPressure, MI_PP_PROFILE, KRNField::Percent, nullptr, KRNHundredPercent, 1.0, KRNStages::TailRule, KRNStageFields::Never},
    {kHoldTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, nullptr, KRNStageFields::Never},
};
// A position moves the speed and the pressure stage alike.
constexpr KRNStageRules kStageRules{0, true};

// ---- times and temperature page -----------------------------------------------

// The nozzle set value is the melt temperature ("%lg"). Its actual value
// shows the same text, the overheat limit twice the value, the deviation "0".
constexpr int IDC_MELT_TEMPERATURE = 1308;
constexpr int IDC_MELT_COPY = 1315;
constexpr int IDC_MELT_DOUBLE = 1313;
constexpr int IDC_MELT_ZERO = 1316;
// Barrel zones H1 to H4, set and actual, shown as "---" (groups from 1295 and 1309).
constexpr int kZoneSetUnfed[4] = {1295, 1296, 1297, 1298};
constexpr int kZoneActualUnfed[4] = {1309, 1310, 1311, 1312};
// Cycle timers, set and actual, shown as "---" (groups from 1334 and 1346):
// injection limit, charge delay, charge limit, eject delay, interval.
constexpr int kTimerSetUnfed[5] = {1334, 1335, 1336, 1337, 1338};
constexpr int kTimerActualUnfed[5] = {1346, 1347, 1348, 1349, 1350};
// Pictures in centred bitmap statics: the barrel with its heater zones, the moulding cycle.
constexpr int IDC_BARREL_PICTURE = 1300;
constexpr int IDB_BARREL_PICTURE = 1052;
constexpr int IDC_CYCLE_PICTURE = 1301;
constexpr int IDB_CYCLE_PICTURE = 1053;

}  // namespace MitsubishiElectric
