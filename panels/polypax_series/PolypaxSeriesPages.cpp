#include "PolypaxSeriesPages.h"

#include "CKRNChartVariants.h"
#include "KRNNumberText.h"
#include "PolypaxSeriesIds.h"
#include "common/KRNMachineScales.h"
#include "common/KRNPageCharts.h"
#include "common/KRNStageRoutines.h"

using namespace PolypaxSeries;

namespace {

// Both chart pages draw alike: 0 at the left, the stages as steps, a range of
// 100. The screen's plot is blue with the trace in yellow, so the first of
// its two colours is the plot's ground and the second the curve's (the step
// drawing shades its stages on its own; the curve colour stays for the bars).
template <class Chart>
Chart* MakeChart(CKRNDialog& page, int areaId) {
    auto* chart = KRNChartOver<Chart>(page, areaId);
    if (!chart) return nullptr;
    chart->m_nXReversed = 0;
    chart->m_nCurveMode = 1;
    chart->m_dXMax = chart->m_dDefXMax = 100.0;
    chart->m_crBackground = KRNColorRef(kChartColors[0]);
    chart->m_crCurve1 = KRNColorRef(kChartColors[1]);
    chart->m_nLocked = 1;  // a picture of the profile, not a place to edit it
    return chart;
}

// The injection charts share the screen's width: smaller figures, so that
// eleven of them fit under each plot.
CMachinePolyPaxInjectionChart* MakeInjectionChart(CKRNDialog& page, int areaId) {
    auto* chart = MakeChart<CMachinePolyPaxInjectionChart>(page, areaId);
    if (chart) chart->m_fontLabel.setPixelSize(10);
    return chart;
}

// A profile as steps over the share of its x values.
void ShowSteps(CKRNMachineChart* chart, const CKRNMachineData& record, KRNMACHINEITEM profile) {
    if (!chart) return;
    chart->ClearCurves();
    KRNSetCurve(*chart, 0, KRNStages::Accumulate(KRNStages::Read(record, profile)));
    chart->update();
}

}  // namespace

// ---- injection charts -------------------------------------------------------------

CMACHINE_POLYPAX_SERIES_INJCHRG_PAGE::CMACHINE_POLYPAX_SERIES_INJCHRG_PAGE(const CKRNMachineData& data,
                                                                           QWidget* frame)
    : CKRNPanelPage(IDD_INJECTION_CHART, data, frame) {}

bool CMACHINE_POLYPAX_SERIES_INJCHRG_PAGE::OnInitDialog() {
    if (!m_pSpeedChart) m_pSpeedChart = MakeInjectionChart(*this, IDC_SPEED_CHART);
    if (!m_pPressureChart) m_pPressureChart = MakeInjectionChart(*this, IDC_PRESSURE_CHART);
    ShowSteps(m_pSpeedChart, m_MachineData, MI_FP_PROFILE);
    ShowSteps(m_pPressureChart, m_MachineData, MI_P_PROFILE);
    SetDlgItemText(IDC_MAX_SPEED, FormatNumber(KRNMaxInjectionSpeed(m_MachineData)));
    SetDlgItemText(IDC_MAX_PRESSURE, FormatNumber(m_MachineData.GetInjectionPressure() * 10.0));
    SetBitmap(IDC_CHART_PICTURE, UsesZhTwPictures(m_MachineData) ? IDB_CHART_PICTURE_ZH_TW : IDB_CHART_PICTURE);
    ShowUnfed(kInjectionChartUnfed);
    return true;
}

// ---- machine status -----------------------------------------------------------------

CMACHINE_POLYPAX_SERIES_MACHINE_STATUS_PAGE::CMACHINE_POLYPAX_SERIES_MACHINE_STATUS_PAGE(const CKRNMachineData& data,
                                                                                         QWidget* frame)
    : CKRNPanelPage(IDD_MACHINE_STATUS, data, frame) {
    SetClock(IDC_STATUS_CLOCK, kStatusClockFormat);
}

bool CMACHINE_POLYPAX_SERIES_MACHINE_STATUS_PAGE::OnInitDialog() {
    SetDlgItemText(IDC_STATUS_MELT_TEMPERATURE, FormatNumber(m_MachineData.GetMeltTemperature()));
    SetDlgItemText(IDC_STATUS_INJECTION_PRESSURE, FormatNumber(m_MachineData.GetInjectionPressure()));
    SetDlgItemText(IDC_STATUS_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
    SetDlgItemText(IDC_STATUS_STROKE_TIME, FormatNumber(m_MachineData.GetCalcStrokeTime()));
    ShowUnfed(kMachineStatusUnfed);
    for (int i = 0; i < 2; ++i) SetBitmap(kStatusPictureStatics[i], kStatusPictures[i]);
    return true;
}

// ---- pressure curve -------------------------------------------------------------------

CMACHINE_POLYPAX_SERIES_PRESSCORVE_PAGE::CMACHINE_POLYPAX_SERIES_PRESSCORVE_PAGE(const CKRNMachineData& data,
                                                                                 QWidget* frame)
    : CKRNPanelPage(IDD_PRESSURE_CURVE, data, frame) {}

bool CMACHINE_POLYPAX_SERIES_PRESSCORVE_PAGE::OnInitDialog() {
    if (!m_pChart) m_pChart = MakeChart<CKRNPolyPaxPressChart>(*this, IDC_PRESS_CHART);
    ShowSteps(m_pChart, m_MachineData, MI_P_PROFILE);
    SetDlgItemText(IDC_CURVE_STROKE_TIME, FormatNumber(m_MachineData.GetCalcStrokeTime()));
    EnableDlgItem(IDC_CURVE_STROKE_TIME, false);
    ShowUnfed(kPressureCurveUnfed);
    SetBitmap(IDC_CURVE_PICTURE, UsesZhTwPictures(m_MachineData) ? IDB_CURVE_PICTURE_ZH_TW : IDB_CURVE_PICTURE);
    return true;
}

// ---- temperatures -----------------------------------------------------------------------

CMACHINE_POLYPAX_SERIES_TEMP_PAGE::CMACHINE_POLYPAX_SERIES_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_TEMPERATURE, data, frame) {
    BindPlainField(IDC_MELT_TEMPERATURE, MI_MELT_TEMPERATURE, KRNField::Temperature, "%6.2f", 1.0,
                   [this](const QString& text) { SetDlgItemText(IDC_MELT_COPY, text); });
    SetClock(IDC_TEMPERATURE_CLOCK, kTemperatureClockFormat);
}

bool CMACHINE_POLYPAX_SERIES_TEMP_PAGE::OnInitDialog() {
    const QString melt = KRNFormatValue("%6.2f", m_MachineData.GetMeltTemperature());
    SetDlgItemText(IDC_MELT_TEMPERATURE, melt);
    SetDlgItemText(IDC_MELT_COPY, melt);
    // The placeholders come after the copy, so the actual value shows "---"
    // until the first edit: the screen's own order.
    ShowUnfed(kTemperatureUnfed);
    return true;
}
