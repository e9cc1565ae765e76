#pragma once

// Template and control numbers of the Fanuc S2000i screens in the resource module.

namespace FanucS2000i {

// Templates.
constexpr int IDD_FRAME = 31157;
constexpr int IDD_PACKING = 825;
constexpr int IDD_PRESSURE = 136;
constexpr int IDD_MENU = 129;
constexpr int IDD_COOLING = 827;
constexpr int IDD_INJECTION_PRE = 826;
constexpr int IDD_RETREAT = 824;
constexpr int IDD_TEMPERATURE = 132;

// Page numbers as the screens count them.
enum Page { kPacking = 1, kPressure, kMenu, kCooling, kInjectionPre, kRetreat, kTemperature };

// Frame.
constexpr int IDC_PAGE_AREA = 1091;
constexpr int IDC_KEY_MENU = 1829;
constexpr int IDC_KEY_PACKING = 1747;
constexpr int IDC_KEY_INJECTION_PRE = 1748;
constexpr int kMenuKeys[12] = {1829, 1746, 1747, 1078, 1748, 1080, 1830, 1831, 1832, 1833, 1085, 1086};
constexpr int kMenuKeyBitmaps[12] = {860, 861, 862, 863, 859, 864, 865, 866, 867, 868, 869, 870};

// Packing page.
constexpr int IDC_INJECTION_PRESSURE_LIMIT = 1195;
constexpr int IDC_VP_POSITION = 1134;
constexpr int IDC_VP_POSITION_COPY = 1164;
constexpr int IDC_SPEED_STAGES = 1125;
constexpr int IDC_HOLD_STAGES = 1140;
constexpr int kSpeedFields[5] = {1123, 1124, 1208, 1219, 1221};
constexpr int kPositionFields[4] = {1128, 1222, 1223, 1233};
constexpr int kHoldPressureFields[3] = {1139, 1225, 1228};
constexpr int kHoldTimeFields[3] = {1143, 1226, 1229};
constexpr int kPackingUnfed[] = {1183, 1184, 1186, 1193, 1196, 1197, 1198, 1199, 1132, 1133};
constexpr int kPackingBitmapStatics[3] = {1211, 1218, 1130};
constexpr int kPackingBitmaps[3] = {888, 878, 894};
constexpr int kPackingRestricted[] = {1213, 1214, 1215, 1216, 1217, 1195};

// Cooling, retreat and temperature pages.
constexpr int IDC_COOLING_TIME = 1369;
constexpr int IDC_COOLING_VP_POSITION = 1804;
constexpr int kCoolingUnfed[] = {1363, 1364, 1365, 1366, 1367, 1368};
constexpr int IDC_SUCK_BACK = 1245;
constexpr int IDC_RETREAT_VP_POSITION = 1269;
constexpr int kRetreatUnfed[] = {1268, 1295, 1244};
constexpr int IDC_MELT_TEMPERATURE = 1309;
constexpr int IDC_MELT_TEMPERATURE_COPY = 1251;
constexpr int kTemperatureUnfed[] = {1219, 1220, 1221, 1222, 1227, 1228, 1229, 1230, 1297, 1298, 1299, 1300, 1301,
                                     1302, 1303, 1304, 1288, 1289, 1290, 1291, 1292, 1293, 1271, 1294, 1295, 1296};

// Menu page.
constexpr int kMenuRestricted[] = {1139, 1140, 1151, 1143, 1146, 1110};

// Chart pages.
constexpr int IDC_PRESSURE_CHART_AREA = 1305;
constexpr int kPressureAxisLabels[5] = {1306, 1307, 1308, 1309, 1310};
constexpr int kPressurePageUnfed[] = {1304, 1313, 1314, 1363, 1364, 1365, 1373};
constexpr int IDC_INJECTION_CHART_AREA = 1083;
constexpr int kInjectionPressureLabels[5] = {1398, 1399, 1400, 1401, 1403};
constexpr int kInjectionSpeedLabels[5] = {1392, 1393, 1394, 1395, 1397};
constexpr int kInjectionPreUnfed[] = {1408, 1419, 1420, 1421, 1422, 1423, 1424, 1425};

// Bitmaps of the chart pages: the scale picture and the legend.
constexpr int IDB_CHART_SCALE = 895;
constexpr int IDB_CHART_LEGEND = 886;

}  // namespace FanucS2000i
