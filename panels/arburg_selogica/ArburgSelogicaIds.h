#pragma once

// Control, template and bitmap numbers of the Selogica panel, and the pages
// in the order the frame keeps them.

#include "KRNControlIds.h"

namespace ArburgSelogica {

// ---- templates ------------------------------------------------------------------
constexpr int IDD_FRAME = 482;
constexpr int IDD_PRODUCTION_SEQUENCE = 483;
constexpr int IDD_INJECTION = 31133;
constexpr int IDD_HOLDING_PRESSURE = 31134;
constexpr int IDD_PROGRAM_ADMINISTRATION = 31135;
constexpr int IDD_MEASUREMENT_CHART = 31136;
constexpr int IDD_TEMPERATURES = 31137;
constexpr int IDD_COOLING = 31139;

// ---- pages, by the frame's index ------------------------------------------------
constexpr int kProductionSequencePage = 0;
constexpr int kInjectionPage = 1;
constexpr int kMeasurementChartPage = 2;
constexpr int kCoolingPage = 3;
constexpr int kHoldingPressurePage = 4;
constexpr int kProgramAdministrationPage = 5;
constexpr int kTemperaturesPage = 6;
constexpr int kPageCount = 7;

// ---- frame ------------------------------------------------------------------------
constexpr int IDC_PAGE_AREA = 1302;  // placeholder the pages cover
constexpr int IDC_TITLE = 1301;      // title strip
// Date and time line: day, month, year ("%d."), hour, minute, second ("%d").
constexpr int IDC_DAY = 1300;
constexpr int IDC_MONTH = 1305;
constexpr int IDC_YEAR = 1306;
constexpr int IDC_HOUR = 1307;
constexpr int IDC_MINUTE = 1308;
constexpr int IDC_SECOND = 1309;
// Navigation keys. The main group leads to the screens; the sub-menu group
// (measurement and program administration) has its own keys and a key back.
constexpr int IDC_NAV_MAIN_MENU = 1304;        // back to the main group, production sequence
constexpr int IDC_NAV_MEASUREMENT_MENU = 1359; // to the sub-menu, measurement chart
constexpr int IDC_NAV_ADMIN_MENU = 1360;       // to the sub-menu, program administration
constexpr int IDC_NAV_PRODUCTION = 1363;
constexpr int IDC_NAV_INJECTION = 1367;
constexpr int IDC_NAV_COOLING = 1368;
constexpr int IDC_NAV_TEMPERATURES = 1369;
constexpr int IDC_NAV_MEASUREMENT = 1386;
constexpr int IDC_NAV_SUB_INJECTION = 1408;
constexpr int IDC_NAV_HOLDING = 1413;
constexpr int IDC_NAV_SUB_HOLDING = 1414;
constexpr int IDC_NAV_SUB_PRODUCTION = 1385;
constexpr int kMainGroup[] = {IDC_NAV_PRODUCTION, IDC_NAV_INJECTION, IDC_NAV_HOLDING, IDC_NAV_COOLING,
                              IDC_NAV_TEMPERATURES, IDC_NAV_MEASUREMENT_MENU, IDC_NAV_ADMIN_MENU};
constexpr int kSubMenuGroup[] = {IDC_NAV_MAIN_MENU, IDC_NAV_SUB_PRODUCTION, IDC_NAV_SUB_INJECTION,
                                 IDC_NAV_SUB_HOLDING, IDC_NAV_MEASUREMENT};
// Each key's bitmap at rest; the pressed look is the bitmap 20 further on.
struct NavKey {
    int id;
    int bitmap;
};
constexpr NavKey kNavKeys[] = {
    {IDC_NAV_PRODUCTION, 1200},    {IDC_NAV_INJECTION, 1201},     {IDC_NAV_HOLDING, 1202},
    {IDC_NAV_COOLING, 1203},       {IDC_NAV_TEMPERATURES, 1204},  {IDC_NAV_MEASUREMENT_MENU, 1205},
    {IDC_NAV_ADMIN_MENU, 1206},    {IDC_NAV_MAIN_MENU, 1207},     {IDC_NAV_SUB_PRODUCTION, 1208},
    {IDC_NAV_SUB_INJECTION, 1209}, {IDC_NAV_SUB_HOLDING, 1210},   {IDC_NAV_MEASUREMENT, 1211}};

// ---- production sequence ---------------------------------------------------------
constexpr int IDC_SEQ_PICTURE_1 = 1304;  // keys that switch the sequence picture
constexpr int IDC_SEQ_PICTURE_2 = 1305;
constexpr int IDC_SEQ_PICTURE_3 = 1306;
constexpr int IDC_SEQ_PICTURE = 1310;
constexpr int IDC_SEQ_PROCESS = 1311;
constexpr int IDC_SEQ_MATERIAL = 1312;
constexpr int IDC_SEQ_CYCLE = 1314;  // cooling time, s
constexpr int IDB_SEQUENCE[3] = {1240, 1241, 1242};  // whole cycle, injection unit, clamp unit

// ---- injection -----------------------------------------------------------------------
constexpr int kSpeed[5] = {1340, 1341, 1342, 1343, 1344};    // cm3/s, stage 1 first
constexpr int kVolume[4] = {1345, 1346, 1347, 1348};         // cm3, each stage's own volume
constexpr int kPressure[5] = {1350, 1351, 1352, 1353, 1354}; // bar
constexpr int IDC_SWITCH_OVER_VOLUME = 1372;                 // cm3
constexpr int IDC_INJECTION_CHART = 1378;                    // chart placeholder
constexpr int IDC_INJECTION_STAGES = 1380;                   // the stage count shown
constexpr int kInjectionStageKeys[5] = {1383, 1384, 1385, 1386, 1387};
constexpr int kInjectionStageBound = 5;

// ---- holding pressure -----------------------------------------------------------------
constexpr int kHoldPressure[10] = {1433, 1432, 1431, 1430, 1429, 1428, 1427, 1426, 1425, 1424};  // bar
constexpr int kHoldTime[10] = {1423, 1422, 1421, 1420, 1419, 1418, 1389, 1388, 1382, 1377};      // s
constexpr int IDC_HOLDING_STAGES = 1444;
constexpr int kHoldingStageKeys[10] = {1434, 1435, 1436, 1437, 1438, 1439, 1440, 1441, 1442, 1443};
constexpr int kHoldingStageBound = 10;

// ---- cooling ----------------------------------------------------------------------------
constexpr int IDC_COOLING_TIME = 1313;  // s, "%.2lg"
constexpr int kCoolingPictures[6] = {1320, 1321, 1322, 1323, 1324, 1325};
constexpr int IDB_COOLING[6] = {736, 714, 715, 703, 713, 716};

// ---- temperatures -------------------------------------------------------------------------
constexpr int IDC_MELT_TEMPERATURE = 1363;  // °C, "%6.1f"
constexpr int IDC_BAND_SET = 1414;          // the set value as typed
constexpr int IDC_BAND_UPPER = 1411;        // set + 100
constexpr int IDC_BAND_LOWER = 1413;        // set - 30
constexpr int IDC_BAND_FLOOR = 1415;        // set - 100, not below 0

// ---- measurement chart ---------------------------------------------------------------------
constexpr int IDC_SPECIFIC_RATE = 1476;      // injection rate per screw area
constexpr int IDC_MEAS_INJECTION_PRESSURE = 1481;
constexpr int IDC_MEAS_PACKING_PRESSURE = 1486;
constexpr int IDC_MEASUREMENT_CHART = 1470;  // chart placeholder
constexpr int IDC_SHOW_SPEED = 1461;         // the chart shows the injection speed profile
constexpr int IDC_SHOW_PRESSURE = 1462;      // the injection pressure profile
constexpr int IDC_SHOW_HOLDING = 1463;       // the holding pressure profile

// ---- program administration ------------------------------------------------------------------
constexpr int IDC_ADMIN_PICTURE = 1330;
constexpr int IDC_ADMIN_PROCESS = 1331;
constexpr int IDC_ADMIN_MATERIAL = 1332;
constexpr int IDC_ADMIN_SCREW = 1333;  // mm
constexpr int IDB_ADMIN = 1245;

// ---- colours (0x00BBGGRR) ---------------------------------------------------------------------
constexpr unsigned kScreenText = 0x000000;
constexpr unsigned kScreenBack = 0xE8E4DC;  // pale grey-blue screen
constexpr unsigned kStripText = 0xFFFFFF;
constexpr unsigned kStripBack = 0x7A4A1E;   // dark blue title strip
constexpr unsigned kFieldText = 0x000000;
constexpr unsigned kFieldBack = 0xFFFFFF;

}  // namespace ArburgSelogica
