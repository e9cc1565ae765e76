#include "NiigataMdSeriesPages.h"

#include "CKRNChartVariants.h"
#include "KRNNumberText.h"
#include "NiigataMdSeriesIds.h"
#include "common/KRNMachineScales.h"
#include "common/KRNPageCharts.h"
#include "common/KRNStageRoutines.h"

using namespace NiigataMdSeries;

// ---- temperatures ---------------------------------------------------------------

CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE::CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_TEMP, data, frame) {
    BindPlainField(IDC_MOLD_TEMPERATURE, MI_MOLD_TEMPERATURE, KRNField::Temperature, "%lg", 1.0,
                   [this](const QString& text) { ShowMold(text); });
}

void CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE::ShowMold(const QString& text) {
    for (int id : kMoldMirrors) SetDlgItemText(id, text);
}

bool CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE::OnInitDialog() {
    for (int i = 0; i < 4; ++i) SetBitmap(kTemperaturePictures[i], kTemperatureBitmaps[i]);
    const QString mold = FormatNumber(m_MachineData.GetMoldTemperature());
    SetDlgItemText(IDC_MOLD_TEMPERATURE, mold);
    ShowMold(mold);
    ShowUnfed(kTemperatureUnfed);
    return true;
}

// ---- main screen --------------------------------------------------------------------

CMACHINE_NIIGATA_MAINPAGE::CMACHINE_NIIGATA_MAINPAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_MAIN, data, frame) {}

bool CMACHINE_NIIGATA_MAINPAGE::OnInitDialog() {
    ShowUnfed(kMainUnfed);
    return true;
}

// ---- pressure curve --------------------------------------------------------------

namespace {
// The curve screen's plot and its pressure steps.
constexpr unsigned kPlotColour = 0xA67F43;
constexpr unsigned kCurveColour = 0x5A377E;
// Shares of the full scale at the axis labels, top to bottom. The speed axis
// repeats 0.4 where 0.2 belongs: the controller's own labels, kept.
constexpr double kPressureShares[6] = {1.0, 0.8, 0.6, 0.4, 0.2, 0.0};
constexpr double kSpeedShares[6] = {1.0, 0.8, 0.6, 0.4, 0.4, 0.0};

}  // namespace

CMACHINE_NIIGATA_COUVEPAGE::CMACHINE_NIIGATA_COUVEPAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_CURVE, data, frame) {}

void CMACHINE_NIIGATA_COUVEPAGE::CreateChart() {
    m_pChart = KRNChartOver<CKRNNIIGATA>(*this, IDC_CHART);
    if (!m_pChart) return;
    m_pChart->m_nXReversed = 0;  // time runs left to right
    m_pChart->m_nCurveMode = 0;  // the pressure as steps
    m_pChart->m_dXMax = m_pChart->m_dDefXMax = 100.0;
    m_pChart->m_dYMax = m_pChart->m_dDefYMax = 100.0;
    m_pChart->m_crBackground = KRNColorRef(kPlotColour);
    m_pChart->m_crCurve1 = KRNColorRef(kCurveColour);
    m_pChart->m_nLocked = 1;  // a picture of the profile, not a place to edit it

    // The axis labels, once: pressure in MPa, speed in mm/s.
    const double pressure = KRNInjectionPressure(m_MachineData);
    const double speed = KRNMaxInjectionSpeed(m_MachineData);
    for (int i = 0; i < 6; ++i) {
        SetDlgItemText(kPressureLabels[i], FormatNumber(pressure * kPressureShares[i]));
        SetDlgItemText(kSpeedLabels[i], KRNFormatValue("%.1f", speed * kSpeedShares[i]));
    }
}

bool CMACHINE_NIIGATA_COUVEPAGE::OnInitDialog() {
    if (!m_pChart) CreateChart();
    if (m_pChart) {
        // The pressure stages as steps over the share of time.
        KRNSetCurve(*m_pChart, 0, KRNStages::Accumulate(KRNStages::Read(m_MachineData, MI_P_PROFILE)));
        m_pChart->update();
    }
    ShowUnfed({&IDC_CURVE_UNFED, 1});
    return true;
}
