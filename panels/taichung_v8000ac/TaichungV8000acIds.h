#pragma once

// Template, control, bitmap, string and colour numbers of the Taichung
// V8000AC screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"
#include "common/KRNStageRoutines.h"

#include <array>
#include <cstdint>
#include <string>

namespace TaichungV8000ac {

// ---- templates by language ------------------------------------------------------

// A template set: the frame, then pages 0 to 5.
using TemplateSet = std::array<int, 7>;
constexpr TemplateSet kEnglishTemplates = {818, 31156, 31160, 31158, 31159, 31153, 31154};
constexpr TemplateSet kZhTwTemplates = {31192, 31191, 31190, 31189, 31188, 31187, 31186};

// The set the next frame is built from. It is one table for the whole
// module: it starts with the English set and keeps whatever the last
// language chosen put there, also for a frame built without a choice.
const TemplateSet& Templates();
// The controller's language selector: a language of exactly "zh-TW" (no
// prefix of it, nothing longer) puts the traditional-Chinese set into the
// table, any other language the English set.
void SelectLanguage(const std::string& language);
// The same for the record a panel is about to open.
void SelectLanguageOf(const CKRNMachineData& record);

// Pages in the order the frame creates them; the menu page is shown first.
enum Page {
    kInjectionPage = 0,
    kMachinePage = 1,
    kMenuPage = 2,
    kPressureCurvePage = 3,
    kSettingPage = 4,
    kTemperaturePage = 5,
};

// ---- frame ------------------------------------------------------------------------

constexpr int IDC_PAGE_AREA = 1739;

// The column of menu keys, top to bottom, and the caption beside each.
constexpr int IDC_KEY_MENU = 1899;
constexpr int IDC_KEY_2 = 1743;  // machine page (menu 0)
constexpr int IDC_KEY_3 = 1745;  // temperature page (menu 0)
constexpr int IDC_KEY_4 = 1747;  // no page in either menu
constexpr int IDC_KEY_5 = 1749;  // injection page (menu 0), setting page (menu 1)
constexpr int IDC_KEY_6 = 1751;  // pressure-curve page (menu 1)
constexpr int IDC_KEY_7 = 1753;  // no page; hidden in menu 1
constexpr int IDC_KEY_NEXT = 1755;  // turns to the other menu
constexpr int kKeys[8] = {IDC_KEY_MENU, IDC_KEY_2, IDC_KEY_3, IDC_KEY_4, IDC_KEY_5, IDC_KEY_6, IDC_KEY_7, IDC_KEY_NEXT};
constexpr int IDC_CAPTION_7 = 1754;  // hidden in menu 1
constexpr int kCaptions[8] = {1742, 1744, 1746, 1748, 1750, 1752, IDC_CAPTION_7, 1756};
// The captions repainted after a change of page.
constexpr int kRepaintedCaptions[5] = {1744, 1742, 1746, 1750, 1752};

// Key faces per menu, one bitmap for every state, in kKeys order; 0: the key is hidden.
constexpr int kMenu0Bitmaps[8] = {991, 990, 1000, 996, 992, 987, 998, 1020};
constexpr int kMenu1Bitmaps[8] = {991, 986, 1014, 1008, 995, 993, 0, 1020};

// Captions by string number: menu 0 fills all eight, menu 1 six of them and
// leaves the menu key's caption as it stands.
constexpr int kMenu0CaptionStatics[8] = {1742, 1744, 1746, 1748, 1750, 1752, 1754, 1756};
constexpr int kMenu0Strings[8] = {655, 656, 657, 658, 659, 660, 661, 662};
constexpr int kMenu1CaptionStatics[6] = {1744, 1746, 1748, 1750, 1752, 1756};
constexpr int kMenu1Strings[6] = {663, 664, 665, 666, 667, 668};

// What a key does in each menu: a page, or nothing.
constexpr int kNoPage = -1;
constexpr int kMenu0Targets[8] = {kMenuPage, kMachinePage, kTemperaturePage, kNoPage, kInjectionPage, kNoPage, kNoPage, kNoPage};
constexpr int kMenu1Targets[8] = {kMenuPage, kNoPage, kNoPage, kNoPage, kSettingPage, kPressureCurvePage, kNoPage, kNoPage};

// Colour references (0x00BBGGRR): the screen's cream field labels and dark
// blue title strip.
constexpr std::uint32_t kTitleText = 0xFFFFFF, kTitleBack = 0x6E2A10;
constexpr std::uint32_t kCaptionText = 0x000000, kCaptionBack = 0xC8D8D8;
constexpr std::uint32_t kFrameText = 0x000000, kFrameBack = 0xB8C4C4;

// ---- all clock pages ----------------------------------------------------------------

// Month, day and year, a tab, then hour, minute and second.
constexpr const char* kClockFormat = "%d/%d/%d\t%d : %d : %d";
constexpr int IDC_CLOCK = 1778;        // injection, machine, setting and temperature pages
constexpr int IDC_CURVE_CLOCK = 1862;  // pressure-curve page

// ---- injection page, stage 1 first -------------------------------------------------

constexpr int kSpeed[5] = {1393, 1392, 1391, 1390, 1389};     // % of the top speed
constexpr int kPressure[5] = {1398, 1397, 1396, 1395, 1394};  // bar
constexpr int kPosition[5] = {1407, 1406, 1405, 1404, 1403};  // mm; stage 1 starts at the full stroke
constexpr int kHoldPressure[4] = {1399, 1384, 1383, 1382};    // bar
constexpr int kHoldTime[4] = {1388, 1387, 1386, 1385};        // s
constexpr int IDC_COOLING_TIME = 1401;                        // s, "%lg"
constexpr int IDC_SUCK_BACK = 1425;                           // mm, "%lg"
constexpr int IDC_VP_POSITION = 1376;                         // mm, "%6.2f"
constexpr int IDC_STROKE_TIME = 1375;                         // s, calculated, disabled
// Actual values and the charge section of the real screen; 1400 is disabled too.
constexpr int kInjectionUnfed[26] = {1377, 1381, 1380, 1379, 1378, 1402, 1408, 1409, 1410, 1411, 1412, 1413, 1414,
                                     1415, 1416, 1417, 1418, 1419, 1420, 1421, 1422, 1423, 1424, 1426, 1427, 1400};
constexpr int IDC_UNFED_DISABLED = 1400;
// Overlays laid out when the page initialises: the stroke scale's end marks
// at the corners of the stroke picture, the speed legend over its frame, the
// two section titles over their boxes.
constexpr int IDC_STROKE_PICTURE = 1768;
constexpr int IDC_STROKE_MARK_LEFT = 2140;
constexpr int IDC_STROKE_MARK_RIGHT = 2142;
constexpr int IDC_LEGEND_AREA = 1812;
constexpr int IDC_LEGEND = 2141;
constexpr int IDC_LEGEND_ABOVE = 1781;  // the legend goes just under it
constexpr int IDC_INJECTION_BOX = 2136;
constexpr int IDC_INJECTION_TITLE = 2143;
constexpr int IDC_HOLD_BOX = 2137;
constexpr int IDC_HOLD_TITLE = 2144;

// Speeds in percent as they stand, refused only above the top speed in mm/s:
// the controller compares the percentage with mm/s, a bound that is far too
// loose for a percentage; kept as the controller has it. Pressures in bar of
// the injection pressure. Positions against the full stroke, moving the
// speed and the pressure stage alike. Hold pressures in bar of the packing
// pressure up to the injection pressure, hold times in seconds. Stages the
// profile has no point for show "0".
// fields | profile | kind | full scale | limit | unit | rule after a stored edit | stages shown as "0"
constexpr KRNStageFields kInjectionTable[] = {
    {kSpeed, MI_FP_PROFILE, KRNField::Speed, nullptr, KRNMaxInjectionSpeed, 1.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kPressure, MI_P_PROFILE, KRNField::Pressure, KRNInjectionPressure, KRNInjectionPressure, 10.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kHoldPressure, MI_PP_PROFILE, KRNField::Pressure, KRNPackingPressure, KRNInjectionPressure, 10.0, KRNStages::HoldTail, KRNStageFields::FromCount},
    {kHoldTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, KRNStages::HoldTail, KRNStageFields::FromCount},
};
constexpr KRNStageRules kStageRules{0, true};

// ---- setting page ---------------------------------------------------------------------

constexpr int IDC_SET_MELT = 1980;       // melt temperature, "%lg"
constexpr int IDC_SET_INJ_TIME = 1934;   // injection time, s, "%lg"
constexpr int IDC_SET_SUCK_BACK = 1963;  // mm, "%lg"
constexpr int IDC_SET_COOLING = 1920;    // s, "%lg"
constexpr int kSetSpeed[5] = {1928, 1927, 1926, 1925, 1924};        // % of the top speed
constexpr int kSetPosition[5] = {1933, 1932, 1931, 1930, 1929};     // mm
constexpr int kSetHoldPressure[4] = {1905, 1904, 1903, 1902};       // bar
constexpr int kSetHoldTime[4] = {1909, 1908, 1907, 1906};           // s
// The same meanings as the injection page's fields.
constexpr KRNStageFields kSettingTable[] = {
    {kSetSpeed, MI_FP_PROFILE, KRNField::Speed, nullptr, KRNMaxInjectionSpeed, 1.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kSetPosition, MI_FP_PROFILE, KRNField::Position, KRNFullStroke, nullptr, 1.0, KRNStages::HalveOrDropTail, KRNStageFields::FromCount},
    {kSetHoldPressure, MI_PP_PROFILE, KRNField::Pressure, KRNPackingPressure, KRNInjectionPressure, 10.0, KRNStages::HoldTail, KRNStageFields::FromCount},
    {kSetHoldTime, MI_PP_PROFILE, KRNField::Time, nullptr, nullptr, 1.0, KRNStages::HoldTail, KRNStageFields::FromCount},
};

// ---- temperature page -------------------------------------------------------------------

constexpr int IDC_MELT = 1851;         // "%6.2f"
constexpr int IDC_MELT_MIRROR = 1839;  // the nozzle zone's actual value
// Barrel zones, oil and mould temperatures of the real screen.
constexpr int kTemperatureUnfed[15] = {1755, 1756, 1761, 1762, 1765, 1766, 1767, 1772,
                                       1773, 1800, 1801, 1803, 1805, 1820, 1861};

// ---- pressure-curve page -------------------------------------------------------------------

constexpr int IDC_INJECTION_CHART = 1894;  // speed and pressure stages over the stroke
constexpr int IDC_HOLD_CHART = 1895;       // hold pressure over the packing time
constexpr double kChartRange = 100.0;
constexpr std::uint32_t kChartCurve1 = 0x80A0A0;
constexpr std::uint32_t kChartCurve2 = 3634204;  // 0x37741C

// ---- machine page -----------------------------------------------------------------------------

constexpr int IDC_MACHINE_SCREW = 1960;      // screw diameter, mm
constexpr int IDC_MACHINE_RATE = 1961;       // maximum injection rate, cm3/s
constexpr int IDC_MACHINE_SPEED = 1962;      // top speed, mm/s
constexpr int IDC_MACHINE_STROKE = 1964;     // full stroke, mm
constexpr int IDC_MACHINE_PRESSURE = 1965;   // injection pressure, bar
constexpr int IDC_MACHINE_PACKING = 1966;    // packing pressure, bar

// ---- menu page ---------------------------------------------------------------------------------

// Page keys of the menu screen.
constexpr int IDC_MENU_INJECTION = 1970;
constexpr int IDC_MENU_SETTING = 1971;
constexpr int IDC_MENU_TEMPERATURE = 1972;
constexpr int IDC_MENU_MACHINE = 1973;
constexpr int IDC_MENU_CURVE = 1974;

}  // namespace TaichungV8000ac
