#pragma once

// Template, control and bitmap numbers of the Niigata MD series screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

namespace NiigataMdSeries {

// Templates.
constexpr int IDD_FRAME = 756;
constexpr int IDD_INJECTION = 757;
constexpr int IDD_TEMP = 758;
constexpr int IDD_MAIN = 31161;
constexpr int IDD_CURVE = 31162;

enum Page { kInjectionPage = 0, kTemperaturePage = 1, kMainPage = 2, kCurvePage = 3 };

// Frame.
constexpr int IDC_PAGE_AREA = 1502;
constexpr int IDC_TITLE_STRIP = 1503;
constexpr int IDC_MESSAGE_LINE = 1505;
constexpr int IDC_KEY_INJECTION = 1593;
constexpr int IDC_KEY_TEMPERATURE = 1594;
constexpr int IDC_KEY_MAIN = 1504;
constexpr int IDC_KEY_CURVE = 1509;
constexpr int IDC_PICTURE = 1501;
constexpr int IDB_FRAME = 759;

// Frame colours (0x00BBGGRR): the page area, the title strip, the message
// line, and the frame with every other control.
constexpr unsigned kPageAreaColor = 0xA3A3A3;
constexpr unsigned kTitleStripColor = 0xCACACA;
constexpr unsigned kMessageLineColor = 0xB7BA28;
constexpr unsigned kFrameColor = 0xAEAEAE;

// Injection and hold page, stage 1 first.
constexpr int kSpeed[5] = {1366, 1367, 1368, 1369, 1370};         // mm/s
constexpr int kPosition[5] = {1388, 1371, 1372, 1373, 1374};      // mm; stage 1 starts at the full stroke
constexpr int kHoldPressure[5] = {1376, 1377, 1378, 1379, 1380};  // MPa
constexpr int kHoldTime[5] = {1381, 1382, 1383, 1384, 1385};      // s
constexpr int IDC_INJECTION_TIME = 1510;                          // s
constexpr int IDC_COOLING_TIME = 1512;                            // s
constexpr int IDC_VP_POSITION = 1364;                             // mm
constexpr int IDC_INJECTION_PRESSURE = 1375;                      // MPa, one limit for the whole injection
// Speeds up to the screw's top speed, shown "0" from the profile's count on;
// positions of the flow-rate profile only, no limit but what any machine
// takes; hold pressures of the packing pressure up to the injection pressure;
// hold times in seconds.
// fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
constexpr KRNStageFields kInjectionTable[] = {
    {kSpeed, MI_FP_PROFILE, KRNField::Speed, KRNMaxInjectionSpeed, KRNMaxInjectionSpeed, 1.0, KRNStages::TailRule, KRNStageFields::FromCount},
    {kPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::TailRule, KRNStageFields::Never},
    {kHoldPressure, MI_PP_PROFILE, KRNField::Pressure, KRNPackingPressure, KRNInjectionPressure, 1.0, KRNStages::EndFlat, KRNStageFields::Never},
    {kHoldTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, KRNStages::EndFlat, KRNStageFields::Never},
};
// Speed profile over the stage columns and the injection unit with its switch-over point.
constexpr int IDC_SPEED_PICTURE = 1520;
constexpr int IDC_UNIT_PICTURE = 1521;
constexpr int IDB_SPEED_PICTURE = 760;
constexpr int IDB_UNIT_PICTURE = 761;
// What the machine reports or sets beyond the record: charge stages (1389 to
// 1397), suck-back (1398 to 1400), delays and interval, switch-over by
// pressure or time, hold speed, and the monitor of the last shot.
constexpr int kInjectionUnfed[] = {1514, 1363, 1365, 1386, 1387, 1571, 1574, 1573, 1577, 1602, 1389, 1390,
                                   1391, 1392, 1393, 1394, 1395, 1396, 1397, 1603, 1398, 1399, 1400, 1588};

// Temperature page.
constexpr int IDC_MOLD_TEMPERATURE = 1363;  // °C
constexpr int kMoldMirrors[2] = {1582, 1532};  // the fixed and the moving mould half of the machine picture
// Machine picture: barrel, mould, feed throat, oil tank.
constexpr int kTemperaturePictures[4] = {1522, 1523, 1524, 1525};
constexpr int kTemperatureBitmaps[4] = {762, 764, 1068, 1069};
// Six zones to a row: nozzle, then H1 to H5 towards the feed throat. The
// output and low-temperature hold rows take every other number, zone by zone.
constexpr int kTemperatureUnfed[] = {
    1559, 1560, 1561, 1562, 1563, 1564,  // from 1559, 6: set temperature
    1533, 1534,                          // from 1533, 2: mould actual, fixed and moving half
    1539, 1540, 1541, 1542, 1543, 1544,  // from 1539, 6: actual temperature
    1364, 1365, 1366, 1367, 1368, 1369,  // from 1364, 6: upper limit
    1571, 1572,                          // from 1571, 2: feed throat set and actual
    1574, 1575,                          // from 1574, 2: oil upper and lower limit
    1584, 1585, 1586, 1587, 1588, 1589,  // from 1584, 6: lower limit
    1379, 1381, 1383, 1385, 1387, 1389,  // from 1379, 6: heater output
    1380, 1382, 1384, 1386, 1388, 1390,  // from 1380, 6: low-temperature hold
    1607,                                // soak time
    1580};                               // oil actual

// Main screen: status, production, cycle monitor, actual values, temperatures.
constexpr int kMainUnfed[] = {
    2037, 2034, 2032, 2031, 2030, 1981, 1979, 1978, 1977, 1976, 1975, 1973,
    2029,                                                        // from 2029, 1: lot size (2030 follows on its own)
    2026, 2027, 2028,                                            // from 2026, 3: shot counter, good parts, rejects
    2014, 2015, 2016, 2017, 2018, 2019, 2020, 2021, 2022, 2023,  // from 2014, 12: cycle monitor, the current
    2024, 2025,                                                  // shot's six items, then the previous shot's
    1988, 1989, 1990, 1991, 1992, 1993,                          // from 1988, 6: zone temperatures
    1982, 1983, 1984, 1985, 1986, 1987,                          // from 1982, 6: actual positions, force, speed
    1980};  // from 1980, 1: oil temperature (1979 and 1981 are fields of their own)

// Curve page.
constexpr int IDC_CHART = 1954;
constexpr int kPressureLabels[6] = {1398, 1399, 1400, 1401, 1961, 1403};  // top to bottom, left of the chart
constexpr int kSpeedLabels[6] = {1392, 1393, 1394, 1395, 1960, 1397};     // top to bottom, right of the chart
constexpr int IDC_CURVE_UNFED = 1947;  // measured injection time

}  // namespace NiigataMdSeries
