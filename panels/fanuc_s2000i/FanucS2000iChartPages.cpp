#include "FanucS2000iChartPages.h"

#include "CKRNChartVariants.h"
#include "KRNNumberText.h"
#include "common/KRNMachineScales.h"
#include "common/KRNPageCharts.h"
#include "common/KRNStageRoutines.h"

#include <algorithm>

using namespace FanucS2000i;

namespace {
constexpr unsigned kCurveGreen = 0x37751C;  // RGB(28, 117, 55)
constexpr unsigned kCurveRed = 255;
const double kAxisShares[5] = {1.0, 0.8, 0.6, 0.4, 0.0};

// The chart sits where the form's placeholder control is, and looks the same on both pages.
CKRNFanucTypeAPressChart* MakeChart(CKRNDialog* page, int areaId) {
    auto* chart = KRNChartOver<CKRNFanucTypeAPressChart>(*page, areaId);
    if (!chart) return nullptr;
    chart->m_nXReversed = 1;
    chart->m_nCurveMode = 0;
    chart->m_dXMax = 100.0;
    chart->m_crCurve1 = KRNColorRef(kCurveGreen);
    return chart;
}
}  // namespace

// ---- injection-pre ------------------------------------------------------------

CMACHINE_FANUC_S2000I_INJECTION_PRE_PAGE::CMACHINE_FANUC_S2000I_INJECTION_PRE_PAGE(const CKRNMachineData& data,
                                                                                   CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_INJECTION_PRE, data, frame) {
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_INJECTION_PRE_PAGE::OnInitDialog() {
    if (!m_pChart && (m_pChart = MakeChart(this, IDC_INJECTION_CHART_AREA))) m_pChart->m_crCurve2 = KRNColorRef(kCurveRed);
    KRNShowProfiles(m_pChart, m_MachineData, MI_FP_PROFILE, MI_P_PROFILE);
    const double bar = m_MachineData.GetInjectionPressure() * 10.0;
    const double speed = KRNMaxInjectionSpeed(m_MachineData);
    for (int i = 0; i < 5; ++i) {
        SetDlgItemText(kInjectionPressureLabels[i], FormatNumber(bar * kAxisShares[i]));
        SetDlgItemText(kInjectionSpeedLabels[i], KRNFormatValue("%.1f", speed * kAxisShares[i]));
    }
    SetBitmap(1430, IDB_CHART_SCALE);
    SetBitmap(1377, IDB_CHART_LEGEND);
    ShowUnfed(kInjectionPreUnfed, true);
    return true;
}

// ---- pressure -------------------------------------------------------------------

CMACHINE_FANUC_S2000I_PRESSURE_PAGE::CMACHINE_FANUC_S2000I_PRESSURE_PAGE(const CKRNMachineData& data,
                                                                         CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_PRESSURE, data, frame) {
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_PRESSURE_PAGE::OnInitDialog() {
    if (!m_pChart) m_pChart = MakeChart(this, IDC_PRESSURE_CHART_AREA);
    if (m_pChart) {
        // A step curve over the share of time: the pressure profile's x values,
        // taken over as many points as the hold profile has, summed up.
        m_pChart->ClearCurves();
        KRNStages::Points p = KRNStages::Read(m_MachineData, MI_P_PROFILE);
        p.resize(static_cast<std::size_t>(std::max(0, m_MachineData.GetProfileDataCount(MI_PP_PROFILE))));
        KRNSetCurve(*m_pChart, 0, KRNStages::Accumulate(p));
        m_pChart->update();
    }
    const double bar = m_MachineData.GetInjectionPressure() * 10.0;
    for (int i = 0; i < 5; ++i) SetDlgItemText(kPressureAxisLabels[i], FormatNumber(bar * kAxisShares[i]));
    SetBitmap(1366, IDB_CHART_SCALE);
    SetBitmap(1374, IDB_CHART_LEGEND);
    ShowUnfed(kPressurePageUnfed, true);
    return true;
}
