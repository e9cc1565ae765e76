#pragma once

// Template, control and bitmap numbers of the Polypax series screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

#include <cmath>
#include <string>

namespace PolypaxSeries {

// The screens show pressures over the area of the diameter MC_SPEC_6 rather
// than over the screw's: the same force, so the record's MPa at the screw are
// divided by (MC_SPEC_6)² / (MC_SCREW_DIAMETER)².
inline double PressureRatio(const CKRNMachineData& r) {
    const double d6 = r.GetMachine(MC_SPEC_6), screw = r.GetMachine(MC_SCREW_DIAMETER);
    return d6 * d6 / (screw * screw);
}
// The shown pressures' 100 %, in MPa before the screens' ×10: the injection or
// packing pressure over the ratio. Without a ratio (no MC_SPEC_6 or no screw
// diameter: 0, infinite or no number) there is none, so those fields show
// "---" and entries in them are refused as having no full scale.
inline double OverRatio(const CKRNMachineData& r, double pressure) {
    const double ratio = PressureRatio(r);
    return KRNHasFullScale(ratio) ? pressure / ratio : NAN;
}
inline double InjectionPressureScale(const CKRNMachineData& r) { return OverRatio(r, KRNInjectionPressure(r)); }
inline double PackingPressureScale(const CKRNMachineData& r) { return OverRatio(r, KRNPackingPressure(r)); }

// The second picture set is for a language of exactly "zh-TW", no prefix of it
// and nothing longer.
inline bool UsesZhTwPictures(const CKRNMachineData& r) { return r.GetLanguage() == "zh-TW"; }

// Templates.
constexpr int IDD_FRAME = 771;
constexpr int IDD_INJECTION = 772;
constexpr int IDD_INJECTION_CHART = 31150;
constexpr int IDD_MACHINE_STATUS = 806;
constexpr int IDD_PRESSURE_CURVE = 805;
constexpr int IDD_TEMPERATURE = 811;

// Pages in the order the frame creates them; the machine-status page is shown first.
enum Page { kInjectionPage = 0, kInjectionChartPage = 1, kMachineStatusPage = 2, kPressureCurvePage = 3, kTemperaturePage = 4 };

// ---- frame ------------------------------------------------------------------------

constexpr int IDC_PAGE_AREA = 1615;

// Soft keys, two rows of six under the screen. Four lead to pages; the others
// stand for screens the record holds nothing for and do nothing here.
constexpr int IDC_KEY_MACHINE_STATUS = 1616;
constexpr int IDC_KEY_PRESSURE_CURVE = 1617;
constexpr int IDC_KEY_TEMPERATURE = 1618;
constexpr int IDC_KEY_CLAMP = 1619;
constexpr int IDC_KEY_EJECTOR = 1620;
constexpr int IDC_KEY_CORE = 1621;
constexpr int IDC_KEY_INJECTION = 1622;
constexpr int IDC_KEY_CHARGE = 1623;
constexpr int IDC_KEY_PRODUCTION = 1632;
constexpr int IDC_KEY_ALARM = 1633;
constexpr int IDC_KEY_MOLD_DATA = 1634;
constexpr int IDC_KEY_SYSTEM = 1635;

// Key faces. A page key looks pressed, lamp lit, while held or focused.
constexpr int IDB_KEY_MACHINE_STATUS = 775;
constexpr int IDB_KEY_MACHINE_STATUS_DOWN = 814;
constexpr int IDB_KEY_PRESSURE_CURVE = 776;
constexpr int IDB_KEY_PRESSURE_CURVE_DOWN = 815;
constexpr int IDB_KEY_TEMPERATURE = 777;
constexpr int IDB_KEY_TEMPERATURE_DOWN = 816;
constexpr int IDB_KEY_CLAMP = 778;
constexpr int IDB_KEY_EJECTOR = 779;
constexpr int IDB_KEY_CORE = 780;
constexpr int IDB_KEY_INJECTION = 781;
constexpr int IDB_KEY_INJECTION_DOWN = 817;
constexpr int IDB_KEY_CHARGE = 782;
constexpr int IDB_KEY_PRODUCTION = 783;
constexpr int IDB_KEY_ALARM = 784;
constexpr int IDB_KEY_MOLD_DATA = 785;
constexpr int IDB_KEY_SYSTEM = 786;
// The pressure-curve key while the pressure-curve flag is clear: greyed out,
// the same face up, down and focused.
constexpr int IDB_KEY_PRESSURE_CURVE_INERT = 1124;

// The keys as the frame loads them, top row then bottom row, left to right;
// the pressure-curve key with its faces for a set flag.
// control | up | down | focus
constexpr int kKeys[12][4] = {
    {IDC_KEY_MACHINE_STATUS, IDB_KEY_MACHINE_STATUS, IDB_KEY_MACHINE_STATUS_DOWN, IDB_KEY_MACHINE_STATUS_DOWN},
    {IDC_KEY_PRESSURE_CURVE, IDB_KEY_PRESSURE_CURVE, IDB_KEY_PRESSURE_CURVE_DOWN, IDB_KEY_PRESSURE_CURVE_DOWN},
    {IDC_KEY_TEMPERATURE, IDB_KEY_TEMPERATURE, IDB_KEY_TEMPERATURE_DOWN, IDB_KEY_TEMPERATURE_DOWN},
    {IDC_KEY_CLAMP, IDB_KEY_CLAMP, IDB_KEY_CLAMP, IDB_KEY_CLAMP},
    {IDC_KEY_EJECTOR, IDB_KEY_EJECTOR, IDB_KEY_EJECTOR, IDB_KEY_EJECTOR},
    {IDC_KEY_CORE, IDB_KEY_CORE, IDB_KEY_CORE, IDB_KEY_CORE},
    {IDC_KEY_INJECTION, IDB_KEY_INJECTION, IDB_KEY_INJECTION_DOWN, IDB_KEY_INJECTION_DOWN},
    {IDC_KEY_CHARGE, IDB_KEY_CHARGE, IDB_KEY_CHARGE, IDB_KEY_CHARGE},
    {IDC_KEY_PRODUCTION, IDB_KEY_PRODUCTION, IDB_KEY_PRODUCTION, IDB_KEY_PRODUCTION},
    {IDC_KEY_ALARM, IDB_KEY_ALARM, IDB_KEY_ALARM, IDB_KEY_ALARM},
    {IDC_KEY_MOLD_DATA, IDB_KEY_MOLD_DATA, IDB_KEY_MOLD_DATA, IDB_KEY_MOLD_DATA},
    {IDC_KEY_SYSTEM, IDB_KEY_SYSTEM, IDB_KEY_SYSTEM, IDB_KEY_SYSTEM},
};

// ---- injection and hold page, stage 1 first -----------------------------------------

constexpr int kSpeed[5] = {1375, 1378, 1379, 1381, 1384};     // mm/s
constexpr int kPressure[5] = {1376, 1377, 1380, 1382, 1383};  // shown pressure: MPa x 10 / pressure ratio
constexpr int kPosition[5] = {1374, 1373, 1372, 1371, 1370};  // mm; stage 1 starts at the full stroke
constexpr int kHoldPressure[4] = {1396, 1393, 1392, 1390};    // shown pressure, as the injection pressures
constexpr int kHoldTime[4] = {1388, 1387, 1386, 1385};        // s
constexpr int IDC_SUCK_BACK = 1403;                           // mm
constexpr int IDC_VP_POSITION = 1397;                         // mm
constexpr int IDC_STROKE_TIME = 1369;                         // s, calculated, disabled
constexpr int IDC_KEY_CHART = 1637;                           // to the injection-chart page

// Speeds up to the screw's top speed; positions against the full stroke,
// moving the pressure stage too; hold pressures as shown pressures up to the
// shown injection pressure, and hold times in seconds. Stages the profile has
// no point for show "0". The injection pressures are the page's own: checked
// as typed, stored only when the page is left.
// fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
constexpr KRNStageFields kInjectionTable[] = {
    {kSpeed, MI_FP_PROFILE, KRNField::Speed, KRNMaxInjectionSpeed, KRNMaxInjectionSpeed, 1.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kHoldPressure, MI_PP_PROFILE, KRNField::Pressure, PackingPressureScale, InjectionPressureScale, 10.0, KRNStages::HoldTail, KRNStageFields::FromCount},
    {kHoldTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, KRNStages::HoldTail, KRNStageFields::FromCount},
};
constexpr KRNStageRules kStageRules{0, true};

// Caption plates by language: injection, hold pressure, switch-over and
// suck-back, monitor. The zh-TW set is chosen only for a language of exactly "zh-TW".
constexpr int kPictureStatics[4] = {1619, 1638, 1639, 1640};
constexpr int kPictures[4] = {787, 788, 789, 790};
constexpr int kPicturesZhTw[4] = {1125, 1126, 1127, 1128};
// Pictures for every language: the speed profile over the stage columns, the
// hold profile over the hold columns, the injection unit.
constexpr int kFixedPictureStatics[3] = {1646, 1645, 1644};
constexpr int kFixedPictures[3] = {791, 792, 793};

// Values the record has none for, shown as "---": the monitor's injection time
// (1364) and cushion (1624); the hold speeds of stages 1 to 4 (1395, 1394,
// 1391, 1389); the measured speed of stages 1 to 5 (1405, 1406, 1408, 1410,
// 1412) and their measured pressure (1404, 1407, 1409, 1411, 1413); the
// switch-over time and pressure (1399, 1400); the suck-back speed and
// pressure (1401, 1402).
constexpr int kInjectionUnfed[20] = {1364, 1624, 1395, 1394, 1391, 1389, 1405, 1406, 1408, 1410,
                                     1412, 1404, 1407, 1409, 1411, 1413, 1399, 1400, 1401, 1402};

// ---- injection-chart page --------------------------------------------------------

constexpr int IDC_SPEED_CHART = 1726;     // flow-rate profile
constexpr int IDC_PRESSURE_CHART = 1727;  // pressure profile
constexpr int IDC_MAX_SPEED = 1703;       // mm/s, full scale of the speed chart
constexpr int IDC_MAX_PRESSURE = 1702;    // injection pressure x 10, full scale of the pressure chart
constexpr int IDC_CHART_PICTURE = 1694;
constexpr int IDB_CHART_PICTURE = 787;
constexpr int IDB_CHART_PICTURE_ZH_TW = 1125;
// Colours both chart pages give their charts (0x00BBGGRR, in the order the
// charts take them): the screen's blue and yellow.
constexpr unsigned kChartColors[2] = {12925978, 65535};
// The monitor of the last shot, "---": injection time, peak speed, V-P
// position, cushion (1698 to 1701); peak, V-P and end pressure, hold time
// (1712 to 1714, 1716); cycle time (1740); charge time, charge end, screw
// speed, back pressure (1722 to 1725).
constexpr int kInjectionChartUnfed[13] = {1698, 1699, 1700, 1701, 1712, 1713, 1714,
                                          1716, 1740, 1722, 1723, 1724, 1725};

// ---- pressure-curve page ---------------------------------------------------------

constexpr int IDC_PRESS_CHART = 1688;           // pressure profile
constexpr int IDC_CURVE_STROKE_TIME = 1363;     // s, calculated, disabled
constexpr int IDC_CURVE_PICTURE = 1663;
constexpr int IDB_CURVE_PICTURE = 794;
constexpr int IDB_CURVE_PICTURE_ZH_TW = 1129;
// "---": injection time (1364), peak pressure (1673), V-P and end pressure
// (1365, 1366), cushion (1367), cycle time (1687).
constexpr int kPressureCurveUnfed[6] = {1364, 1673, 1365, 1366, 1367, 1687};

// ---- machine-status page ---------------------------------------------------------

constexpr int IDC_STATUS_MELT_TEMPERATURE = 1750;     // °C
constexpr int IDC_STATUS_INJECTION_PRESSURE = 1787;   // MPa
constexpr int IDC_STATUS_COOLING_TIME = 1807;         // s
constexpr int IDC_STATUS_STROKE_TIME = 1800;          // s, calculated
// "---": mould number, shot count, cycle time.
constexpr int kMachineStatusUnfed[3] = {1729, 1730, 1731};
// The machine, and its lamps (motor, heater, cycle, gate, alarm, oil).
constexpr int kStatusPictureStatics[2] = {1736, 1737};
constexpr int kStatusPictures[2] = {795, 796};
constexpr int IDC_STATUS_CLOCK = 1733;
inline constexpr const char* kStatusClockFormat = "DATE: %d/%d/%d %d:%d:%d";

// ---- temperature page ------------------------------------------------------------

constexpr int IDC_MELT_TEMPERATURE = 1363;  // °C, the nozzle's set value
constexpr int IDC_MELT_COPY = 1837;         // the nozzle's actual value
// Filled with "---" after the melt temperature, 1837 among them. The barrel
// table has eight columns, nozzle, H1 to H6, feed throat:
//   set      1363 1743 1746 1749 1755 1756 1757 1758
//   actual   1837 1848 1849 1850 1851 1852 1870 1871
//   upper    1840 to 1847
//   lower    1862 to 1869
//   output   1769 1778 1787 1796 1805 1814 1823 1832 (%)
// and below it the mould, fixed 1874 and moving 1875, the soak time 1839,
// the oil temperature 1872 and its limit 1873.
constexpr int kTemperatureUnfed[44] = {
    1743, 1746, 1749, 1755, 1756, 1757, 1758, 1769, 1778, 1787, 1796, 1805, 1814, 1823, 1832,
    1837, 1839, 1840, 1841, 1842, 1843, 1844, 1845, 1846, 1847, 1848, 1849, 1850, 1851, 1852,
    1862, 1863, 1864, 1865, 1866, 1867, 1868, 1869, 1870, 1871, 1872, 1873, 1874, 1875};
constexpr int IDC_TEMPERATURE_CLOCK = 1877;
inline constexpr const char* kTemperatureClockFormat = "DATE/TIME : %d/%d/%d %d:%d:%d";

}  // namespace PolypaxSeries
