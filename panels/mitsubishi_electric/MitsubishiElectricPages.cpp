#include "MitsubishiElectricPages.h"

#include "CKRNChartVariants.h"
#include "KRNNumberText.h"
#include "common/KRNPageCharts.h"

using namespace MitsubishiElectric;

// ---- times and temperature -----------------------------------------------------------

CMACHINE_MITSUBISHI_TIME_PAGE::CMACHINE_MITSUBISHI_TIME_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_TIME, data, frame) {
    OnChange(IDC_MELT_TEMPERATURE, &CMACHINE_MITSUBISHI_TIME_PAGE::OnMeltChanged);
}

void CMACHINE_MITSUBISHI_TIME_PAGE::ShowMeltMirrors(const QString& text, double value) {
    SetDlgItemText(IDC_MELT_COPY, text);
    SetDlgItemText(IDC_MELT_DOUBLE, FormatNumber(value * 2.0));
    SetDlgItemText(IDC_MELT_ZERO, QStringLiteral("0"));
}

bool CMACHINE_MITSUBISHI_TIME_PAGE::OnInitDialog() {
    SetBitmap(IDC_BARREL_PICTURE, IDB_BARREL_PICTURE);
    SetBitmap(IDC_CYCLE_PICTURE, IDB_CYCLE_PICTURE);
    const double melt = m_MachineData.GetMeltTemperature();
    SetDlgItemText(IDC_MELT_TEMPERATURE, FormatNumber(melt));
    ShowMeltMirrors(FormatNumber(melt), melt);
    for (std::span<const int> group : {std::span<const int>(kZoneSetUnfed), std::span<const int>(kZoneActualUnfed),
                                       std::span<const int>(kTimerSetUnfed), std::span<const int>(kTimerActualUnfed)})
        ShowUnfed(group);
    return true;
}

void CMACHINE_MITSUBISHI_TIME_PAGE::OnMeltChanged() {
    double melt = 0;
    if (!ReadNumberField(IDC_MELT_TEMPERATURE, m_MachineData.GetMeltTemperature(), melt, KRNField::Temperature)) {
        m_bErrorPending = true;
        return;
    }
    m_MachineData.SetMeltTemperature(melt);
    ShowMeltMirrors(GetDlgItemText(IDC_MELT_TEMPERATURE), melt);
    m_bErrorPending = false;
}

// ---- injection and hold -----------------------------------------------------------

namespace {
// The chart over a placeholder of the form: stages over the stroke, as percent.
CKRNMITSUBISHChart* MakeChart(CKRNDialog* page, int areaId, unsigned colour) {
    auto* chart = KRNChartOver<CKRNMITSUBISHChart>(*page, areaId);
    if (!chart) return nullptr;
    chart->m_nXReversed = 1;  // the screw moves towards the nozzle, left to right
    chart->m_nCurveMode = 0;
    chart->m_nLocked = 1;     // a picture of the stages; they are edited in the fields
    chart->m_crCurve1 = KRNColorRef(colour);
    // The screen's charts are small: narrower margins and smaller scale
    // numbers keep all eleven of each axis apart.
    const KRNChartRect& w = chart->m_rcWindow;
    chart->m_rcPlot = {w.left + 45, w.top + 8, w.right - 12, w.bottom - 20};
    chart->m_fontLabel.setPixelSize(9);
    return chart;
}

constexpr unsigned kSpeedColour = 0x00C0FF;     // amber, as the screen draws speeds
constexpr unsigned kPressureColour = 0xFFC000;  // light blue for pressures
}  // namespace

CMACHINE_MITSUBISHI_INJECTION_PAGE::CMACHINE_MITSUBISHI_INJECTION_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNStagePage(IDD_INJECTION, data, frame, kInjectionTable, kStageRules) {
    BindPlainField(IDC_COOLING_TIME, MI_COOLING_TIME, KRNField::Time);
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position);
    // A position field takes the screens' own "%6.2f" form of what it stored.
    // The controller rewrites it at once; here it happens when the field is
    // left, so that a position can still be typed a digit at a time.
    for (const KRNStageFields& row : kInjectionTable) {
        if (row.kind != KRNField::Position) continue;
        for (std::size_t k = 0; k < row.ids.size(); ++k)
            OnKillFocus(row.ids[k], [this, &row, k] {
                if (!m_bErrorPending) RestoreNumber(row.ids[k], ShownValue(row, static_cast<int>(k)));
            });
    }
}

void CMACHINE_MITSUBISHI_INJECTION_PAGE::CreateCharts() {
    m_pSpeedChart = MakeChart(this, IDC_SPEED_CHART, kSpeedColour);
    m_pPressureChart = MakeChart(this, IDC_PRESSURE_CHART, kPressureColour);
}

void CMACHINE_MITSUBISHI_INJECTION_PAGE::DrawCharts() {
    KRNShowProfiles(m_pSpeedChart, m_MachineData, MI_FP_PROFILE);
    KRNShowProfiles(m_pPressureChart, m_MachineData, MI_P_PROFILE);
}

// The first stage starts at the full stroke: shown beside the table and in
// the status line.
void CMACHINE_MITSUBISHI_INJECTION_PAGE::ShowFullStroke() {
    for (int id : kFirstPositionMirrors) SetDlgItemText(id, KRNFormatValue("%lg mm", KRNFullStroke(m_MachineData)));
}

bool CMACHINE_MITSUBISHI_INJECTION_PAGE::OnInitDialog() {
    if (!m_pSpeedChart) CreateCharts();
    m_bErrorPending = false;
    SetDlgItemText(IDC_INJECTION_PRESSURE_STATIC, FormatNumber(m_MachineData.GetInjectionPressure()));
    {
        FillGuard guard(this);
        SetDlgItemText(IDC_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
        SetDlgItemText(IDC_VP_POSITION, FormatNumber(m_MachineData.GetVPRamPosition()));
    }
    ShowStages();
    ShowFullStroke();
    ShowUnfed(kInjectionUnfed);
    DrawCharts();
    return true;
}

void CMACHINE_MITSUBISHI_INJECTION_PAGE::OnStageStored(const KRNStageFields& row, int stage) {
    if (row.kind == KRNField::Position && stage == 0) ShowFullStroke();
    DrawCharts();
}
