#include "TaichungV8000acPages.h"

#include "CKRNChartVariants.h"
#include "KRNColors.h"
#include "KRNNumberText.h"
#include "TaichungV8000acIds.h"
#include "common/KRNMachineScales.h"
#include "common/KRNPageCharts.h"

using namespace TaichungV8000ac;

// ---- machine ---------------------------------------------------------------------

CMACHINE_ORGZCT_V8000AC_MACHINEPAGE1::CMACHINE_ORGZCT_V8000AC_MACHINEPAGE1(const CKRNMachineData& data,
                                                                           QWidget* frame)
    : CKRNPanelPage(Templates()[1 + kMachinePage], data, frame) {
    SetClock(IDC_CLOCK, kClockFormat, KRNDateOrder::MonthDayYear);
}

bool CMACHINE_ORGZCT_V8000AC_MACHINEPAGE1::OnInitDialog() {
    ShowNumber(IDC_MACHINE_SCREW, m_MachineData.GetMachine(MC_SCREW_DIAMETER));
    ShowNumber(IDC_MACHINE_RATE, m_MachineData.GetMachine(MC_MAX_INJECTION_RATE));
    ShowNumber(IDC_MACHINE_SPEED, KRNMaxInjectionSpeed(m_MachineData));
    ShowNumber(IDC_MACHINE_STROKE, KRNFullStroke(m_MachineData));
    ShowNumber(IDC_MACHINE_PRESSURE, KRNInjectionPressure(m_MachineData) * 10.0);
    ShowNumber(IDC_MACHINE_PACKING, KRNPackingPressure(m_MachineData) * 10.0);
    return true;
}

// ---- menu ------------------------------------------------------------------------

CMACHINE_ORGZCT_V8000AC_MENUPAGE::CMACHINE_ORGZCT_V8000AC_MENUPAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(Templates()[1 + kMenuPage], data, frame) {
    const std::pair<int, int> keys[] = {{IDC_MENU_INJECTION, kInjectionPage},
                                        {IDC_MENU_SETTING, kSettingPage},
                                        {IDC_MENU_TEMPERATURE, kTemperaturePage},
                                        {IDC_MENU_MACHINE, kMachinePage},
                                        {IDC_MENU_CURVE, kPressureCurvePage}};
    for (const auto& [key, page] : keys) OnClicked(key, [this, page] { GoToPage(page); });
}

// ---- pressure curves -------------------------------------------------------------

namespace {
// Both charts alike: no axis titles, neither display option, a range of 100,
// the screen's two colours.
CKRNORGZCTMachineChart* MakeChart(CKRNDialog& page, int areaId) {
    auto* chart = KRNChartOver<CKRNORGZCTMachineChart>(page, areaId);
    if (!chart) return nullptr;
    chart->m_nXReversed = 0;
    chart->m_nCurveMode = 0;
    chart->m_dXMax = chart->m_dDefXMax = kChartRange;
    chart->m_crCurve1 = KRNColorRef(kChartCurve1);
    chart->m_crCurve2 = KRNColorRef(kChartCurve2);
    chart->m_nLocked = 1;  // a picture of the stages; they are set on the stage screens
    return chart;
}
}  // namespace

CMACHINE_ORGZCT_V8000AC_PRESSCORVE::CMACHINE_ORGZCT_V8000AC_PRESSCORVE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(Templates()[1 + kPressureCurvePage], data, frame) {
    SetClock(IDC_CURVE_CLOCK, kClockFormat, KRNDateOrder::MonthDayYear);
}

bool CMACHINE_ORGZCT_V8000AC_PRESSCORVE::OnInitDialog() {
    if (!m_pInjectionChart) {
        m_pInjectionChart = MakeChart(*this, IDC_INJECTION_CHART);
        m_pHoldChart = MakeChart(*this, IDC_HOLD_CHART);
    }
    KRNShowProfiles(m_pInjectionChart, m_MachineData, MI_FP_PROFILE, MI_P_PROFILE);
    KRNShowProfiles(m_pHoldChart, m_MachineData, MI_PP_PROFILE);
    return true;
}

// ---- temperatures ----------------------------------------------------------------

CMACHINE_ORGZCT_V8000AC_TEMP_PAGE::CMACHINE_ORGZCT_V8000AC_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(Templates()[1 + kTemperaturePage], data, frame) {
    OnChange(IDC_MELT, &CMACHINE_ORGZCT_V8000AC_TEMP_PAGE::OnMeltChanged);
    SetClock(IDC_CLOCK, kClockFormat, KRNDateOrder::MonthDayYear);
}

bool CMACHINE_ORGZCT_V8000AC_TEMP_PAGE::OnInitDialog() {
    FillGuard guard(this);
    ShowNumber(IDC_MELT, m_MachineData.GetMeltTemperature());
    SetDlgItemText(IDC_MELT_MIRROR, GetDlgItemText(IDC_MELT));
    ShowUnfed(kTemperatureUnfed);
    return true;
}

// Taken as typed (atof: text that is no number is 0), within the range of
// temperatures; the actual value repeats the text.
void CMACHINE_ORGZCT_V8000AC_TEMP_PAGE::OnMeltChanged() {
    double melt = 0;
    if (!ReadPlainField(IDC_MELT, m_MachineData.GetMeltTemperature(), melt, KRNField::Temperature, "%6.2f")) return;
    m_MachineData.SetMeltTemperature(melt);
    SetDlgItemText(IDC_MELT_MIRROR, GetDlgItemText(IDC_MELT));
}
