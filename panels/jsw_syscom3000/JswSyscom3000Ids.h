#pragma once

// Template and control numbers of the JSW Syscom3000 screens in the resource module.

namespace JswSyscom3000 {

constexpr int IDD_FRAME = 31143;
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

// The stage fields of a page, stage 1 first.
struct StageFields {
    int speed[6];
    int pressure[6];
    int position[5];
    int holdPressure[6];
    int holdTime[6];
};

// Injection and hold page. 1379 sits where a sixth position would be and
// is left to the template.
constexpr StageFields kInjectionFields{
    {1378, 1376, 1374, 1372, 1370, 1368},
    {1377, 1375, 1373, 1371, 1369, 1367},
    {1384, 1383, 1382, 1381, 1380},
    {1397, 1396, 1395, 1394, 1393, 1392},
    {1403, 1402, 1401, 1400, 1399, 1398},
};
constexpr int IDC_VP_POSITION = 1365;
constexpr int IDC_SUCK_BACK = 1419;

// Injection-compression and hold page; 1430 is left to the template like 1379.
constexpr StageFields kCompressionPageFields{
    {1428, 1427, 1424, 1423, 1429, 1422},
    {1418, 1411, 1410, 1409, 1421, 1408},
    {1434, 1433, 1432, 1431, 1435},
    {1467, 1466, 1465, 1464, 1468, 1450},
    {1447, 1446, 1445, 1444, 1449, 1443},
};
constexpr int kCompressionForce[6] = {1368, 1370, 1372, 1374, 1376, 1378};
constexpr int kCompressionTime[6] = {1379, 1380, 1381, 1382, 1383, 1384};
constexpr int IDC_IC_VP_POSITION = 1385;
constexpr int kICValues[4] = {1386, 1387, 1388, 1389};  // MI_VALUE_20 to MI_VALUE_23

// PI_PROCESS_VALUE of an injection-compression process.
constexpr int kInjectionCompression = 5;

}  // namespace JswSyscom3000
