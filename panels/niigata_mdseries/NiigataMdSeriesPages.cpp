#include "NiigataMdSeriesPages.h"

#include "CKRNChartVariants.h"
#include "KRNNumberText.h"
#include "NiigataMdSeriesIds.h"
#include "common/KRNMachineScales.h"
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

// Steps over the share of time from a stroke profile's x values.
void FillSteps(std::vector<double>& xs, std::vector<double>& ys, const CKRNMachineData& record,
               KRNMACHINEITEM profile) {
    xs.clear();
    ys.clear();
    for (const XYProfile& p : KRNStages::Accumulate(KRNStages::Read(record, profile))) {
        xs.push_back(p.x);
        ys.push_back(p.y);
    }
}
}  // namespace

CMACHINE_NIIGATA_COUVEPAGE::CMACHINE_NIIGATA_COUVEPAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_CURVE, data, frame) {}

void CMACHINE_NIIGATA_COUVEPAGE::CreateChart() {
    QWidget* area = GetDlgItem(IDC_CHART);
    if (!area) return;
    m_pChart = new CKRNNIIGATA(area->parentWidget());
    m_pChart->CreateChart(area->geometry(), area->parentWidget());
    area->hide();
    m_pChart->m_strXTitle.clear();
    m_pChart->m_strYTitle.clear();
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
        m_pChart->ClearCurves();
        FillSteps(m_pChart->m_vecX1, m_pChart->m_vecY1, m_MachineData, MI_P_PROFILE);
        m_pChart->update();
    }
    ShowUnfed({&IDC_CURVE_UNFED, 1});
    return true;
}
