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
constexpr int IDC_PAGE_AREA = 1302;  // placeholder the pages cover; the frame's further static
constexpr int IDC_TITLE = 1301;      // title strip
constexpr int IDC_MENU_NAME = 1303;  // the menu whose keys are shown (a free number)
// Date and time line: day, month, year ("%d."), hour, minute, second ("%d").
constexpr int IDC_DAY = 1300;
constexpr int IDC_MONTH = 1305;
constexpr int IDC_YEAR = 1306;
constexpr int IDC_HOUR = 1307;
constexpr int IDC_MINUTE = 1308;
constexpr int IDC_SECOND = 1309;
constexpr int IDB_OK = 1212, IDB_OK_PRESSED = 1232;
constexpr int IDB_CANCEL = 1213, IDB_CANCEL_PRESSED = 1233;

// Soft keys. Three rows under the screen hold one group at a time: the main
// menu, the measurement menu or the program-administration menu. The twelve
// keys below lead to this panel's screens; "main menu" sits in both sub-menus.
constexpr int IDC_NAV_MAIN_MENU = 1304;        // back to the main menu, production sequence
constexpr int IDC_NAV_MEASUREMENT_MENU = 1359; // to the measurement menu, measurement chart
constexpr int IDC_NAV_ADMIN_MENU = 1360;       // to the program-administration menu and screen
constexpr int IDC_NAV_PRODUCTION = 1363;
constexpr int IDC_NAV_INJECTION = 1367;
constexpr int IDC_NAV_COOLING = 1368;
constexpr int IDC_NAV_TEMPERATURES = 1369;
constexpr int IDC_NAV_MEASUREMENT = 1386;
constexpr int IDC_NAV_SUB_INJECTION = 1408;
constexpr int IDC_NAV_HOLDING = 1413;
constexpr int IDC_NAV_SUB_HOLDING = 1414;
constexpr int IDC_NAV_SUB_PRODUCTION = 1385;
// The other keys of each menu (numbers 1500-1545, free ones) open the
// controller's screens this panel does not imitate: mould movements, dosing,
// statistics, data carriers and the like. They stay in their places so the
// menus read as the setter knows them, but greyed and disabled: a key that did
// nothing when pressed, or one that opened some other screen, would mislead.
enum NavGroup : unsigned { kInMain = 1, kInMeasurement = 2, kInProgram = 4 };
constexpr int kNoPage = -1;
struct NavKey {
    int id;
    int bitmap;          // at rest
    int pressed;         // held down: 20 on for the keys that lead somewhere
    unsigned groups;     // the menus the key belongs to
    int page;            // the screen it leads to, kNoPage for the greyed ones
};
constexpr NavKey kNavKeys[] = {
    // main menu
    {IDC_NAV_PRODUCTION, 1200, 1220, kInMain, kProductionSequencePage},
    {IDC_NAV_INJECTION, 1201, 1221, kInMain, kInjectionPage},
    {IDC_NAV_HOLDING, 1202, 1222, kInMain, kHoldingPressurePage},
    {IDC_NAV_COOLING, 1203, 1223, kInMain, kCoolingPage},
    {IDC_NAV_TEMPERATURES, 1204, 1224, kInMain, kTemperaturesPage},
    {IDC_NAV_MEASUREMENT_MENU, 1205, 1225, kInMain, kMeasurementChartPage},
    {IDC_NAV_ADMIN_MENU, 1206, 1226, kInMain, kProgramAdministrationPage},
    {1500, 1250, 1250, kInMain, kNoPage}, {1501, 1251, 1251, kInMain, kNoPage},
    {1502, 1252, 1252, kInMain, kNoPage}, {1503, 1253, 1253, kInMain, kNoPage},
    {1504, 1254, 1254, kInMain, kNoPage}, {1505, 1255, 1255, kInMain, kNoPage},
    {1506, 1256, 1256, kInMain, kNoPage}, {1507, 1257, 1257, kInMain, kNoPage},
    {1508, 1258, 1258, kInMain, kNoPage}, {1509, 1259, 1259, kInMain, kNoPage},
    {1510, 1260, 1260, kInMain, kNoPage}, {1511, 1261, 1261, kInMain, kNoPage},
    {1512, 1262, 1262, kInMain, kNoPage}, {1513, 1263, 1263, kInMain, kNoPage},
    // both sub-menus
    {IDC_NAV_MAIN_MENU, 1207, 1227, kInMeasurement | kInProgram, kProductionSequencePage},
    // measurement menu
    {IDC_NAV_MEASUREMENT, 1211, 1231, kInMeasurement, kMeasurementChartPage},
    {IDC_NAV_SUB_INJECTION, 1209, 1229, kInMeasurement, kInjectionPage},
    {IDC_NAV_SUB_HOLDING, 1210, 1230, kInMeasurement, kHoldingPressurePage},
    {1514, 1264, 1264, kInMeasurement, kNoPage}, {1515, 1265, 1265, kInMeasurement, kNoPage},
    {1516, 1266, 1266, kInMeasurement, kNoPage}, {1517, 1267, 1267, kInMeasurement, kNoPage},
    {1518, 1268, 1268, kInMeasurement, kNoPage}, {1519, 1269, 1269, kInMeasurement, kNoPage},
    {1520, 1270, 1270, kInMeasurement, kNoPage}, {1521, 1271, 1271, kInMeasurement, kNoPage},
    {1522, 1272, 1272, kInMeasurement, kNoPage}, {1523, 1273, 1273, kInMeasurement, kNoPage},
    {1524, 1274, 1274, kInMeasurement, kNoPage}, {1525, 1275, 1275, kInMeasurement, kNoPage},
    {1526, 1276, 1276, kInMeasurement, kNoPage}, {1527, 1277, 1277, kInMeasurement, kNoPage},
    {1528, 1278, 1278, kInMeasurement, kNoPage}, {1529, 1279, 1279, kInMeasurement, kNoPage},
    // program-administration menu
    {IDC_NAV_SUB_PRODUCTION, 1208, 1228, kInProgram, kProductionSequencePage},
    {1530, 1280, 1280, kInProgram, kNoPage}, {1531, 1281, 1281, kInProgram, kNoPage},
    {1532, 1282, 1282, kInProgram, kNoPage}, {1533, 1283, 1283, kInProgram, kNoPage},
    {1534, 1284, 1284, kInProgram, kNoPage}, {1535, 1285, 1285, kInProgram, kNoPage},
    {1536, 1286, 1286, kInProgram, kNoPage}, {1537, 1287, 1287, kInProgram, kNoPage},
    {1538, 1288, 1288, kInProgram, kNoPage}, {1539, 1289, 1289, kInProgram, kNoPage},
    {1540, 1290, 1290, kInProgram, kNoPage}, {1541, 1291, 1291, kInProgram, kNoPage},
    {1542, 1292, 1292, kInProgram, kNoPage}, {1543, 1293, 1293, kInProgram, kNoPage},
    {1544, 1294, 1294, kInProgram, kNoPage}, {1545, 1295, 1295, kInProgram, kNoPage},
};
constexpr int kNavKeyCount = sizeof kNavKeys / sizeof kNavKeys[0];
static_assert(kNavKeyCount == 58, "the frame binds fifty-eight soft keys");

// ---- production sequence ---------------------------------------------------------
// Numbers beyond 1306 are free ones of this template.
constexpr int IDC_SEQ_PICTURE_1 = 1304;  // keys that switch the sequence picture
constexpr int IDC_SEQ_PICTURE_2 = 1305;
constexpr int IDC_SEQ_PICTURE_3 = 1306;
constexpr int kSequenceKeys[3] = {IDC_SEQ_PICTURE_1, IDC_SEQ_PICTURE_2, IDC_SEQ_PICTURE_3};
constexpr int IDC_SEQ_PICTURE = 1310;
constexpr int IDB_SEQUENCE[3] = {1240, 1241, 1242};  // whole cycle, injection unit, clamp unit
constexpr int kSequenceSteps[6] = {1390, 1391, 1392, 1393, 1394, 1395};  // a figure under each step
constexpr int IDC_SEQ_PROCESS = 1311;
constexpr int IDC_SEQ_MATERIAL = 1312;
constexpr int IDC_SEQ_COOLING_TIME = 1314;    // s
constexpr int IDC_SEQ_INJECTION_TIME = 1316;  // s
constexpr int IDC_SEQ_HOLDING_TIME = 1317;    // s
constexpr int IDC_SEQ_DOSE_STROKE = 1318;     // mm, the maximum ram position
constexpr int IDC_SEQ_SWITCH_OVER = 1319;     // mm
constexpr int IDC_SEQ_MELT = 1396;            // °C
constexpr int IDC_SEQ_MOULD = 1397;           // °C

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
constexpr int IDC_HOLDING_CHART = 1445;  // chart placeholder, a free number

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
// Numbers beyond 1333 are free ones of this template.
constexpr int IDC_ADMIN_PICTURE = 1330;
constexpr int IDB_ADMIN = 1245;
constexpr int IDC_ADMIN_PROCESS = 1331;
constexpr int IDC_ADMIN_MATERIAL = 1332;
constexpr int IDC_ADMIN_SCREW = 1333;             // mm
constexpr int IDC_ADMIN_RATE = 1334;              // cm3/s, the machine's injection rate
constexpr int IDC_ADMIN_PRESSURE = 1335;          // bar, the injection pressure
constexpr int IDC_ADMIN_INJECTION_STAGES = 1336;
constexpr int IDC_ADMIN_HOLDING_STAGES = 1337;
constexpr int IDC_ADMIN_PROTECTION = 1338;        // whether the program may be changed

// ---- colours (0x00BBGGRR) ---------------------------------------------------------------------
constexpr unsigned kScreenText = 0x000000;
constexpr unsigned kScreenBack = 0xE8E4DC;  // pale grey-blue screen
constexpr unsigned kStripText = 0xFFFFFF;
constexpr unsigned kStripBack = 0x7A4A1E;   // dark blue title strip
constexpr unsigned kFieldText = 0x000000;
constexpr unsigned kFieldBack = 0xFFFFFF;
constexpr unsigned kChartPlot = 12897485;  // the charts' plot area

}  // namespace ArburgSelogica
