#pragma once

// Template, control, bitmap and colour numbers of the hydraulic Mitsubishi
// screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

#include <cstdint>

namespace MitsubishiHydraulic {

// Templates.
constexpr int IDD_FRAME = 904;
constexpr int IDD_OIL_TEMP = 907;
constexpr int IDD_OIL_SET = 905;
constexpr int IDD_OIL_SPEED = 906;

// Pages in the order of the page keys, which is also the order the frame creates them.
enum Page { kOilTempPage = 0, kOilSetPage = 1, kOilSpeedPage = 2 };

// ---- frame --------------------------------------------------------------------

// The screen area is the frame's first unnumbered static.
constexpr int IDC_PAGE_AREA = -1;
// Page keys, one per page, in page order.
constexpr int IDC_KEY_OIL_TEMP = 1767;
constexpr int IDC_KEY_OIL_SET = 1768;
constexpr int IDC_KEY_OIL_SPEED = 1769;
constexpr int kPageKeys[3] = {IDC_KEY_OIL_TEMP, IDC_KEY_OIL_SET, IDC_KEY_OIL_SPEED};
// The strips of the frame: machine name, operating mode, screen title.
constexpr int IDC_MACHINE_STRIP = 1835;
constexpr int IDC_MODE_STRIP = 1836;
constexpr int IDC_TITLE_STRIP = 1837;

// Colour references (0x00BBGGRR).
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kYellow = 65535;       // 0x00FFFF: a selected page key
constexpr std::uint32_t kKeyLight = 0xF8F6F7;  // the light edge of a key
constexpr std::uint32_t kKeyDark = 3090220;    // 0x2F272C, the dark edge
// Frame colours: text on background.
constexpr std::uint32_t kKeyText = 0xFFFF00, kKeyBack = 0xFF00FF;
constexpr std::uint32_t kMachineText = 0xFFFF00, kMachineBack = 0x000000;
constexpr std::uint32_t kModeText = 0xFFFFFF, kModeBack = 0x5050FF;
constexpr std::uint32_t kTitleText = 0xFFFFFF, kTitleBack = 0xFFFF00;
constexpr std::uint32_t kRestText = 0x000000, kRestBack = 0x000000;

// ---- oil temperature page -------------------------------------------------------

// The nozzle's set value is the melt temperature ("%lg"), repeated as its actual value.
constexpr int IDC_MELT_TEMPERATURE = 1707;
constexpr int IDC_MELT_MIRROR = 1713;
// Barrel zones H1 to H5 (set 1714-1718, actual 1719-1723), the upper
// deviations of the nozzle and the zones (1724-1729) and the oil temperature
// (1730): the record has none of them.
constexpr int kOilTempUnfed[17] = {1714, 1715, 1716, 1717, 1718, 1719, 1720, 1721, 1722,
                                   1723, 1724, 1725, 1726, 1727, 1728, 1729, 1730};

// ---- oil settings page ----------------------------------------------------------

constexpr int IDC_SUCK_BACK = 1563;  // mm, "%lg"
// Pictures: the screw with its charge stages and the ejector.
constexpr int IDC_SCREW_PICTURE = 1760;
constexpr int IDB_SCREW_PICTURE = 918;
constexpr int IDC_EJECTOR_PICTURE = 1761;
constexpr int IDB_EJECTOR_PICTURE = 923;
// Charge stages 1-3 (screw speed 1478-1480, back pressure 1487-1489), charge
// end positions 1496 and 1497, suck-back speed and pressure 1536 and 1537,
// ejector forward 1538-1541 and back 1543-1546, ejector count 1547, ejector
// delay 1632, mould open and close 1634-1644: nothing of it in the record.
constexpr int kOilSetUnfed[31] = {1478, 1479, 1480, 1487, 1488, 1489, 1496, 1497, 1536, 1537, 1538,
                                  1539, 1540, 1541, 1543, 1544, 1545, 1546, 1547, 1632, 1634, 1635,
                                  1636, 1637, 1638, 1639, 1640, 1641, 1642, 1643, 1644};

// ---- oil speed page -------------------------------------------------------------

// Times in s and the V/P switch-over position in mm, "%lg".
constexpr int IDC_INJECTION_TIME = 1487;
constexpr int IDC_VP_POSITION = 1539;
constexpr int IDC_COOLING_TIME = 1657;
// Six stages, stage 1 first: the screw position where each stage begins (mm)
// and the speed, pressure and holding pressure of each, in percent.
constexpr int kPosition[6] = {1517, 1518, 1519, 1520, 1521, 1522};
constexpr int kSpeed[6] = {1523, 1524, 1525, 1526, 1527, 1528};
constexpr int kPressure[6] = {1529, 1530, 1531, 1532, 1533, 1534};
constexpr int kHoldPressure[6] = {1546, 1547, 1548, 1552, 1553, 1554};
// What 100 % stands for: the stroke ("%lg mm"), the screw's top speed and the
// injection pressure.
constexpr int IDC_STROKE_SCALE = 1555;
constexpr int IDC_SPEED_SCALE = 1556;
constexpr int IDC_PRESSURE_SCALE = 1557;
// Chart areas: speed stages over the stroke (1634), pressure stages (1633).
constexpr int IDC_SPEED_CHART = 1634;
constexpr int IDC_PRESSURE_CHART = 1633;
constexpr std::uint32_t kSpeedCurve = 15391129;  // 0xEAD999, light blue
constexpr std::uint32_t kPressureCurve = 65280;  // green
constexpr double kChartRange = 100.0;            // the charts' percent axis
// Injection limit time 1484, cushion 1488, hold times 1549-1551: not in the record.
constexpr int kOilSpeedUnfed[5] = {1484, 1549, 1550, 1551, 1488};

// Positions in mm of the full stroke, each stored at its own stage of the
// flow-rate profile only (the pressure stages keep theirs), then the tail
// rule; no limit but the range of positions.
// fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
constexpr KRNStageFields kOilSpeedTable[] = {
    {kPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::TailRule, KRNStageFields::Never},
};

// Speeds, pressures and holding pressures: the record's own percentages, up
// to 100 as the hydraulic controller sets them, stored as they stand with the
// point's x untouched (the profiles are tidied on OK).
struct KRNLevelRow {
    const int* ids;
    KRNMACHINEITEM profile;
};
constexpr KRNLevelRow kLevelRows[3] = {
    {kSpeed, MI_FP_PROFILE}, {kPressure, MI_P_PROFILE}, {kHoldPressure, MI_PP_PROFILE}};
constexpr int kStages = 6;

}  // namespace MitsubishiHydraulic
