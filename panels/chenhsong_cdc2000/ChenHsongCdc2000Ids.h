#pragma once

// Template, control and bitmap numbers of the CDC2000 screens in the resource module.

#include "common/KRNMachineScales.h"
#include "common/KRNStageField.h"

#include <array>

namespace ChenHsongCdc2000 {

// Templates.
constexpr int IDD_FRAME = 901;
constexpr int IDD_TEMP = 914;
constexpr int IDD_MODEL = 912;
constexpr int IDD_TIME = 916;

// Pages in the order of the navigation keys.
enum Page { kTempPage = 0, kModelPage = 1, kTimePage = 2 };

// The controller's screens: four injection stages, three holding stages.
constexpr int kSpeedPoints = 5;
constexpr int kPressurePoints = 5;
constexpr int kHoldPoints = 4;

// ---- frame ------------------------------------------------------------------------

constexpr int IDC_PAGE_AREA = -1;  // the unnumbered static the pages are laid over
constexpr int IDC_TITLE = 2128;    // title strip text
constexpr int IDC_LOGO = 2129;     // maker's plate, bitmap 1095
constexpr int IDC_CLOCK = 2130;    // "2024/03/07 (四) 8:5", written once
constexpr int IDC_STATUS = 2131;   // status strip text
constexpr int IDC_MACHINE = 2132;  // machine picture, bitmap 1096
constexpr int IDB_LOGO = 1095;
constexpr int IDB_MACHINE = 1096;
// Navigation keys to the three pages; hidden while the frame starts.
constexpr int IDC_KEY_TEMP = 1765;
constexpr int IDC_KEY_MODEL = 1766;
constexpr int IDC_KEY_TIME = 1767;

// Colour references (0x00BBGGRR).
constexpr unsigned kStripText = 0x000000;
constexpr unsigned kStripBack = 12702413;  // grey-green strips behind 2128 and 2131
constexpr unsigned kKeyText = 0xFFFF00;
constexpr unsigned kKeyBack = 0xFF00FF;
constexpr unsigned kOtherText = 0x000000;
constexpr unsigned kOtherBack = 0xFFFFFF;

// ---- temperatures ------------------------------------------------------------------

constexpr int IDC_MELT_TEMPERATURE = 1030;  // "%lg", °C, stored at every change
constexpr int IDC_KEY_TO_TIMES = 1260;
// Shown as "---": barrel set (nozzle, zones 1-7) 1022-1029; barrel actual
// 1031-1036, 1039, 1040; upper deviation 1041-1048; lower deviation
// 1049-1056; mould set and actual 1057-1066; oil temperature 1098.
constexpr std::array<int, 43> kTempUnfed = {
    1022, 1023, 1024, 1025, 1026, 1027, 1028, 1029, 1031, 1032, 1033, 1034, 1035, 1036, 1039,
    1040, 1041, 1042, 1043, 1044, 1045, 1046, 1047, 1048, 1049, 1050, 1051, 1052, 1053, 1054,
    1055, 1056, 1057, 1058, 1059, 1060, 1061, 1062, 1063, 1064, 1065, 1066, 1098};

// ---- machine model (display only) --------------------------------------------------

constexpr int IDC_SCREW_DIAMETER = 1070;     // mm, "%lg"
constexpr int IDC_MAX_INJECTION_RATE = 1071;  // cm3/s, "%lg"
constexpr int IDC_STROKE_LIMIT = 1072;       // mm, "%lg"
constexpr int IDC_MAX_SPEED = 1073;          // mm/s, "%6.2f", from the two above

// ---- injection and holding times ---------------------------------------------------

constexpr int IDC_KEY_TO_TEMPS = 1244;
constexpr int IDC_INJECTION_TIME = 1056;  // s, "%lg"
// Stage 1 first; every field is taken when it loses the focus.
constexpr int kSpeed[4] = {1040, 1041, 1042, 1043};             // mm/s
constexpr int kPressure[4] = {1044, 1045, 1046, 1047};          // MPa
constexpr int kPosition[5] = {1048, 1049, 1050, 1051, 1052};    // mm, point 0 the full stroke
constexpr int kHoldPressure[3] = {1084, 1085, 1086};            // MPa
constexpr int kHoldTime[3] = {1087, 1088, 1089};                // s, each stage's own time

// Speeds and pressures of the injection stages: no higher than the machine gives.
constexpr KRNStageFields kInjectionTable[] = {
    {kSpeed, MI_FP_PROFILE, KRNField::Speed, KRNMaxInjectionSpeed, KRNMaxInjectionSpeed, 1.0, nullptr,
     KRNStageFields::Never, KRNStageFields::OnKillFocus},
    {kPressure, MI_P_PROFILE, KRNField::Pressure, KRNInjectionPressure, KRNInjectionPressure, 1.0, nullptr,
     KRNStageFields::Never, KRNStageFields::OnKillFocus},
};

}  // namespace ChenHsongCdc2000
