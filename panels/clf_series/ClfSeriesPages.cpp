#include "ClfSeriesPages.h"

#include "CKRNChartVariants.h"
#include "KRNNumberText.h"
#include "common/KRNMachineScales.h"
#include "common/KRNPageCharts.h"

using namespace ClfSeries;

// ---- the stage pages ------------------------------------------------------------------

CClfStagePage::CClfStagePage(int templateId, const CKRNMachineData& data, QWidget* frame,
                             std::span<const KRNStageFields> table, int totalTimeId)
    : CKRNStagePage(templateId, data, frame, table, kStageRules), m_nTotalTimeId(totalTimeId) {}

bool CClfStagePage::OnInitDialog() {
    m_bErrorPending = false;
    ShowStages();
    ShowTotalTime();
    return true;
}

void CClfStagePage::ShowTotalTime() {
    // The stroke time in its mode 0: every stage counts, flow or none.
    double total = KRNStrokeTime(m_MachineData, 0);
    for (const XYProfile& p : KRNStages::Read(m_MachineData, MI_PP_PROFILE)) total += p.x;
    SetDlgItemText(m_nTotalTimeId, KRNFormatValue("%f", total));
}

// Speeds, positions and hold times change the time the screw and the hold take.
void CClfStagePage::OnStageStored(const KRNStageFields& row, int) {
    if (row.profile == MI_FP_PROFILE || row.kind == KRNField::Time) ShowTotalTime();
}

// ---- main screen ---------------------------------------------------------------------

CMACHINE_CLF_SERIES_MAIN_PAGE::CMACHINE_CLF_SERIES_MAIN_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_MAIN, data, frame) {}

bool CMACHINE_CLF_SERIES_MAIN_PAGE::OnInitDialog() {
    SetBitmap(IDC_MACHINE_PICTURE, IDB_MACHINE_PICTURE);
    SetDlgItemText(IDC_MAIN_MELT_TEMPERATURE, KRNFormatValue("%6.2f", m_MachineData.GetMeltTemperature()));
    SetDlgItemText(IDC_MAIN_INJECTION_TIME, KRNFormatValue("%6.2fs", m_MachineData.GetInjectionTime()));
    SetDlgItemText(IDC_MAIN_COOLING_TIME, KRNFormatValue("%6.2fs", m_MachineData.GetCoolingTime()));
    SetDlgItemText(IDC_MAIN_VP_POSITION, FormatNumber(m_MachineData.GetVPRamPosition()) + QStringLiteral(" mm"));
    ShowUnfed(kMainUnfed);
    return true;
}

// ---- injection and hold ----------------------------------------------------------------

CMACHINE_CLF_SERIES_INJECTION_PAGE::CMACHINE_CLF_SERIES_INJECTION_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CClfStagePage(IDD_INJECTION, data, frame, kInjectionTable, IDC_TOTAL_TIME) {
    BindPlainField(IDC_COOLING_TIME, MI_COOLING_TIME, KRNField::Time, "%lg", 1.0,
                   [this](const QString& text) { SetDlgItemText(IDC_COOLING_SHOWN, text + QStringLiteral(" s")); });
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position, "%lg", 1.0,
                   [this](const QString& text) { SetDlgItemText(IDC_VP_SHOWN, text + QStringLiteral(" mm")); });
    BindPlainField(IDC_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position);
}

bool CMACHINE_CLF_SERIES_INJECTION_PAGE::OnInitDialog() {
    SetBitmap(IDC_SPEED_PICTURE, IDB_SPEED_PICTURE);
    SetBitmap(IDC_UNIT_PICTURE, IDB_UNIT_PICTURE);
    {
        FillGuard guard(this);
        SetDlgItemText(IDC_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
        SetDlgItemText(IDC_VP_POSITION, FormatNumber(m_MachineData.GetVPRamPosition()));
        SetDlgItemText(IDC_SUCK_BACK, FormatNumber(m_MachineData.GetSuckBackValue()));
    }
    SetDlgItemText(IDC_COOLING_SHOWN, FormatNumber(m_MachineData.GetCoolingTime()) + QStringLiteral(" s"));
    SetDlgItemText(IDC_VP_SHOWN, FormatNumber(m_MachineData.GetVPRamPosition()) + QStringLiteral(" mm"));
    ShowUnfed(kInjectionUnfed);
    return CClfStagePage::OnInitDialog();
}

// ---- full data set -----------------------------------------------------------------------

CMACHINE_CLF_SERIES_FULL_DATESET_PAGE::CMACHINE_CLF_SERIES_FULL_DATESET_PAGE(const CKRNMachineData& data,
                                                                             QWidget* frame)
    : CClfStagePage(IDD_FULL_DATA_SET, data, frame, kFullDataSetTable, IDC_FULL_TOTAL_TIME) {}

bool CMACHINE_CLF_SERIES_FULL_DATESET_PAGE::OnInitDialog() {
    ShowUnfed(kFullDataSetUnfed);
    return CClfStagePage::OnInitDialog();
}

// ---- temperatures -------------------------------------------------------------------------

CMACHINE_CLF_SERIES_TEMPERATUREE_PAGE::CMACHINE_CLF_SERIES_TEMPERATUREE_PAGE(const CKRNMachineData& data,
                                                                             QWidget* frame)
    : CKRNPanelPage(IDD_TEMPERATURE, data, frame) {
    BindPlainField(IDC_MELT_TEMPERATURE, MI_MELT_TEMPERATURE, KRNField::Temperature, "%6.2f", 1.0,
                   [this](const QString& text) {
                       for (int id : kMeltMirrors) SetDlgItemText(id, text);
                   });
}

bool CMACHINE_CLF_SERIES_TEMPERATUREE_PAGE::OnInitDialog() {
    SetBitmap(IDC_BARREL_PICTURE, IDB_BARREL_PICTURE);
    const QString melt = KRNFormatValue("%6.2f", m_MachineData.GetMeltTemperature());
    {
        FillGuard guard(this);
        SetDlgItemText(IDC_MELT_TEMPERATURE, melt);
    }
    for (int id : kMeltMirrors) SetDlgItemText(id, melt);
    ShowUnfed(kTemperatureUnfed);
    return true;
}

// ---- curve -------------------------------------------------------------------------------------

CMACHINE_CLF_SERIES_CURVE_PAGE::CMACHINE_CLF_SERIES_CURVE_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_CURVE, data, frame) {}

bool CMACHINE_CLF_SERIES_CURVE_PAGE::OnInitDialog() {
    if (!m_pChart && (m_pChart = KRNChartOver<CKRNMachineChartCLF>(*this, IDC_CHART))) {
        m_pChart->m_nXReversed = 1;  // the screw moves towards the nozzle, left to right
        m_pChart->m_nCurveMode = 0;
        m_pChart->m_nLocked = 1;     // a picture of the stages; they are edited on the injection page
        m_pChart->m_crBackground = KRNColorRef(kChartPlotColor);
        m_pChart->m_crCurve1 = KRNColorRef(kChartSpeedColor);
        m_pChart->m_crCurve2 = KRNColorRef(kChartPressureColor);
    }
    ShowUnfed(kCurveUnfed);
    KRNShowProfiles(m_pChart, m_MachineData, MI_FP_PROFILE, MI_P_PROFILE);
    return true;
}
