#pragma once

// Template, control and bitmap numbers of the CLF series screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

#include <array>
#include <span>

namespace ClfSeries {

// Templates.
constexpr int IDD_FRAME = 739;
constexpr int IDD_MAIN = 31140;
constexpr int IDD_INJECTION = 31141;
constexpr int IDD_FULL_DATA_SET = 740;
constexpr int IDD_TEMPERATURE = 31143;
constexpr int IDD_CURVE = 31142;

// Pages in the order of the page keys.
enum Page { kMainPage = 0, kInjectionPage = 1, kFullDataSetPage = 2, kTemperaturePage = 3, kCurvePage = 4 };

// ---- frame ------------------------------------------------------------------------

constexpr int IDC_PAGE_AREA = 1324;
constexpr int IDC_KEY_MAIN = 1330;
constexpr int IDC_KEY_INJECTION = 1336;
constexpr int IDC_KEY_FULL_DATA_SET = 1332;
constexpr int IDC_KEY_TEMPERATURE = 1335;
constexpr int IDC_KEY_CURVE = 1342;
// Date, a tab, then the time with dashes in it: "2024/3/7\t9-5-2".
constexpr int IDC_CLOCK = 1328;
// Maker plate at the left end of the title strip.
constexpr int IDC_MAKER_PLATE = 1346;
constexpr int IDB_MAKER_PLATE = 747;
// Disabled when the frame starts, in this order: the keys of the screens the
// record holds nothing for (mold 1334, ejector 1331, core 1333, air blast
// 1337, production 1338, alarm 1340) and the status lamps (motor 1344,
// heater 1343, manual 1339, semi-auto 1341, auto 1345), which the form
// colours as unlit while disabled.
constexpr int kDisabledAtStart[11] = {1334, 1331, 1333, 1337, 1338, 1340, 1344, 1343, 1339, 1341, 1345};

// ---- main screen (display only) ---------------------------------------------------

constexpr int IDC_MAIN_MELT_TEMPERATURE = 1334;  // "%6.2f", °C beside it
constexpr int IDC_MAIN_INJECTION_TIME = 1446;    // "%6.2fs"
constexpr int IDC_MAIN_COOLING_TIME = 1450;      // "%6.2fs"
constexpr int IDC_MAIN_VP_POSITION = 1452;       // "%lg mm"
// The machine across the top: clamp unit, mold, injection unit.
constexpr int IDC_MACHINE_PICTURE = 1454;
constexpr int IDB_MACHINE_PICTURE = 749;
// Shown as "---": from 1460, 3: charge, mold close and mold open time; from
// 1463, 4: cushion, peak pressure, charge position, cycle time; from 1467, 3:
// nozzle actual, mold and oil temperature; from 1470, 4: shot count, good
// parts, rejects, lot size.
constexpr int kMainUnfed[14] = {1460, 1461, 1462, 1463, 1464, 1465, 1466,
                                1467, 1468, 1469, 1470, 1471, 1472, 1473};

// ---- injection and hold page, stage 1 first ---------------------------------------

constexpr int kSpeed[6] = {1375, 1372, 1369, 1366, 1363, 1360};     // % of full scale
constexpr int kPressure[6] = {1374, 1371, 1368, 1365, 1362, 1359};  // % of full scale
constexpr int kPosition[6] = {2127, 1383, 1382, 1381, 1380, 1379};  // mm, checked when the field is left
constexpr int kHoldPressure[3] = {1356, 1353, 1349};                // %
constexpr int kHoldTime[3] = {1358, 1355, 1351};                    // s
constexpr int IDC_COOLING_TIME = 1364;                              // s
constexpr int IDC_VP_POSITION = 1378;                               // mm
constexpr int IDC_SUCK_BACK = 1399;                                 // mm
// The cooling time as typed followed by " s", the switch-over position as
// typed followed by " mm".
constexpr int IDC_COOLING_SHOWN = 1424;
constexpr int IDC_VP_SHOWN = 1413;
// Injection plus hold time in s, "%f": the stroke time and the hold stages' durations.
constexpr int IDC_TOTAL_TIME = 1426;
// Speed profile over the six stage columns; injection unit with the switch-over mark.
constexpr int IDC_SPEED_PICTURE = 1410;
constexpr int IDB_SPEED_PICTURE = 746;
constexpr int IDC_UNIT_PICTURE = 1411;
constexpr int IDB_UNIT_PICTURE = 748;
// Shown as "---": suck-back speed and delay; from 1384, 9: charge stages 1 to
// 3, row by row (screw speed, back pressure, position); from 1393, 4:
// injection delay, charge delay, cycle interval, injection limit; from 1402,
// 4: the last shot's cushion, peak pressure, fill time and cycle time.
constexpr int kInjectionUnfed[19] = {1400, 1401, 1384, 1385, 1386, 1387, 1388, 1389, 1390, 1391,
                                     1392, 1393, 1394, 1395, 1396, 1402, 1403, 1404, 1405};

// ---- full data set page, stage 1 first --------------------------------------------

constexpr int kFullSpeed[6] = {1601, 1602, 1603, 1604, 1605, 1606};     // % of full scale
constexpr int kFullPressure[6] = {1611, 1612, 1613, 1614, 1615, 1616};  // % of full scale
constexpr int kFullPosition[6] = {1621, 1622, 1623, 1624, 1625, 1626};  // mm, checked when the field is left
constexpr int kFullHoldPressure[3] = {1631, 1632, 1633};                // %
constexpr int kFullHoldTime[3] = {1636, 1637, 1638};                    // s
constexpr int IDC_FULL_TOTAL_TIME = 1640;                               // s, "%f", as on the injection page
// Shown as "---", each group row by row: from 1641, 9: charge stages 1 to 3
// (screw speed, back pressure, position); from 1650, 3: suck-back distance,
// speed, delay; from 1654, 6: injection delay, charge delay, eject delay,
// interval, injection limit, cycle limit; from 1700, 12: barrel set then
// actual, nozzle and H1 to H5; from 1660, 12: mold close, stages 1, 2, low
// and high pressure (speed, pressure, position); from 1672, 12: mold open,
// stages 1 to 4; from 1684, 12: ejector, advance 1 and 2, retract 1 and 2;
// from 1720, 4: core in and out time, clamp force, mold height.
constexpr int kFullDataSetUnfed[70] = {
    1641, 1642, 1643, 1644, 1645, 1646, 1647, 1648, 1649,  // charge
    1650, 1651, 1652,                                      // suck-back
    1654, 1655, 1656, 1657, 1658, 1659,                    // timers
    1700, 1701, 1702, 1703, 1704, 1705,                    // barrel set
    1706, 1707, 1708, 1709, 1710, 1711,                    // barrel actual
    1660, 1661, 1662, 1663, 1664, 1665, 1666, 1667, 1668, 1669, 1670, 1671,  // mold close
    1672, 1673, 1674, 1675, 1676, 1677, 1678, 1679, 1680, 1681, 1682, 1683,  // mold open
    1684, 1685, 1686, 1687, 1688, 1689, 1690, 1691, 1692, 1693, 1694, 1695,  // ejector
    1720, 1721, 1722, 1723};                                                 // core and mold

// ---- temperature page ---------------------------------------------------------------

constexpr int IDC_MELT_TEMPERATURE = 1320;  // °C, "%6.2f"
// The melt temperature's text again: on the nozzle of the barrel picture and
// as the nozzle's set value in the zone table.
constexpr int kMeltMirrors[2] = {1331, 1340};
// Barrel with its heater bands above the zone columns.
constexpr int IDC_BARREL_PICTURE = 1321;
constexpr int IDB_BARREL_PICTURE = 745;
// Shown as "---": soak time and low-temperature hold; from 1802, 35: the zone
// table row by row, nozzle and H1 to H5 (set from H1 on, actual, upper and
// lower deviation, output, heater); from 1837, 7: mold set and actual, feed
// throat, oil actual, upper and lower limit, oil cooler; from 1844, 4: alarm
// band, cold start lock, nozzle output, purge.
constexpr int kTemperatureUnfed[48] = {
    1800, 1801,                                                  // heater
    1802, 1803, 1804, 1805, 1806,                                // set, H1 to H5
    1807, 1808, 1809, 1810, 1811, 1812,                          // actual
    1813, 1814, 1815, 1816, 1817, 1818,                          // upper deviation
    1819, 1820, 1821, 1822, 1823, 1824,                          // lower deviation
    1825, 1826, 1827, 1828, 1829, 1830,                          // output
    1831, 1832, 1833, 1834, 1835, 1836,                          // heater on
    1837, 1838, 1839, 1840, 1841, 1842, 1843,                    // mold and oil
    1844, 1845, 1846, 1847};                                     // temperature alarm

// ---- curve page ---------------------------------------------------------------------

// The chart's placeholder; the axis captions are the form's, outside it.
constexpr int IDC_CHART = 1480;
// Chart colours (0x00BBGGRR) of the screen: the plot area's navy, the speed
// curve blue, the pressure curve amber.
constexpr unsigned kChartPlotColor = 0x140800;
constexpr unsigned kChartSpeedColor = 0xC8742A;
constexpr unsigned kChartPressureColor = 0x8AE0FF;
// Shown as "---": measured injection time, peak pressure, V-P pressure.
constexpr int kCurveUnfed[3] = {1481, 1482, 1483};

// ---- the stage tables ------------------------------------------------------------

// Both stage pages: speeds, pressures and hold pressures as percentages up to
// 100; positions in mm, taken when the field is left and kept between their
// neighbours (the first below the machine's stroke, MC_SPEC_2); hold times in
// seconds, which keep their stage's pressure.
constexpr std::array<KRNStageFields, 5> StageTable(std::span<const int> speed, std::span<const int> pressure,
                                                   std::span<const int> position, std::span<const int> holdPressure,
                                                   std::span<const int> holdTime) {
    using F = KRNStageFields;
    // fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0" | taken
    return {{
        {speed, MI_FP_PROFILE, KRNField::Percent, nullptr, KRNHundredPercent, 1.0, KRNStages::TailRule, F::Never},
        {pressure, MI_P_PROFILE, KRNField::Percent, nullptr, KRNHundredPercent, 1.0, KRNStages::TailRule, F::Never},
        {position, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, KRNStrokeLimit, 1.0, KRNStages::TailRule, F::Never, F::OnKillFocus},
        {holdPressure, MI_PP_PROFILE, KRNField::Percent, nullptr, KRNHundredPercent, 1.0, KRNStages::EndFlat, F::Never},
        {holdTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, nullptr, F::Never},
    }};
}
constexpr auto kInjectionTable = StageTable(kSpeed, kPressure, kPosition, kHoldPressure, kHoldTime);
constexpr auto kFullDataSetTable =
    StageTable(kFullSpeed, kFullPressure, kFullPosition, kFullHoldPressure, kFullHoldTime);
// Positions move both stroke profiles and must differ from their neighbours
// by more than a millionth of a millimetre.
constexpr KRNStageRules kStageRules{0, true, 1e-06};

}  // namespace ClfSeries
