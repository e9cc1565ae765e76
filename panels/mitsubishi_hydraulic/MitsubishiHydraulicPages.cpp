#include "MitsubishiHydraulicPages.h"

#include "CKRNChartVariants.h"
#include "CKRNStringParser.h"
#include "KRNColors.h"
#include "KRNNumberText.h"
#include "common/KRNPageCharts.h"

using namespace MitsubishiHydraulic;

// ---- oil temperature ----------------------------------------------------------------

CMACHINE_MITSU_OIL_TEMP_PAGE::CMACHINE_MITSU_OIL_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_OIL_TEMP, data, frame) {
    OnChange(IDC_MELT_TEMPERATURE, &CMACHINE_MITSU_OIL_TEMP_PAGE::OnMeltChanged);
}

bool CMACHINE_MITSU_OIL_TEMP_PAGE::OnInitDialog() {
    const QString melt = FormatNumber(m_MachineData.GetMeltTemperature());
    SetDlgItemText(IDC_MELT_TEMPERATURE, melt);
    SetDlgItemText(IDC_MELT_MIRROR, melt);
    ShowUnfed(kOilTempUnfed);
    return true;
}

// The controller takes the text only once it reads as a number and says
// nothing meanwhile, so a temperature can be typed over freely.
void CMACHINE_MITSU_OIL_TEMP_PAGE::OnMeltChanged() {
    const QString text = GetDlgItemText(IDC_MELT_TEMPERATURE);
    if (!CKRNStringParser().IsNumber(text.toUtf8().constData())) return;
    double melt = 0;
    if (!ReadPlainField(IDC_MELT_TEMPERATURE, m_MachineData.GetMeltTemperature(), melt, KRNField::Temperature)) return;
    m_MachineData.SetMeltTemperature(melt);
    SetDlgItemText(IDC_MELT_MIRROR, text);
}

// ---- oil settings --------------------------------------------------------------------

CMACHINE_MITSU_OIL_SET_PAGE::CMACHINE_MITSU_OIL_SET_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_OIL_SET, data, frame) {
    // Read as typed: text that is no number is a suck-back of 0.
    BindPlainField(IDC_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position);
}

bool CMACHINE_MITSU_OIL_SET_PAGE::OnInitDialog() {
    SetBitmap(IDC_SCREW_PICTURE, IDB_SCREW_PICTURE);
    SetBitmap(IDC_EJECTOR_PICTURE, IDB_EJECTOR_PICTURE);
    SetDlgItemText(IDC_SUCK_BACK, FormatNumber(m_MachineData.GetSuckBackValue()));
    ShowUnfed(kOilSetUnfed);
    return true;
}

// ---- oil speed -----------------------------------------------------------------------

namespace {
// A chart of the screen's look over a placeholder of the form: one profile's
// stages over the stroke, the level axis up to the range in percent.
CKRNMachineMITSUBISH_HydraulicChart* MakeChart(CKRNDialog* page, int areaId, std::uint32_t colour) {
    auto* chart = KRNChartOver<CKRNMachineMITSUBISH_HydraulicChart>(*page, areaId);
    if (!chart) return nullptr;
    chart->m_dYMax = chart->m_dDefYMax = kChartRange;
    chart->m_crCurve1 = KRNColorRef(colour);
    chart->m_nXReversed = 1;  // the screw moves towards the nozzle, left to right
    chart->m_nLocked = 1;     // a picture of the stages; they are edited in the fields
    const KRNChartRect& w = chart->m_rcWindow;
    chart->m_rcPlot = {w.left + 40, w.top + 8, w.right - 10, w.bottom - 20};
    chart->m_fontLabel.setPixelSize(9);
    return chart;
}
}  // namespace

CMACHINE_MITSU_OIL_SPEED_PAGE::CMACHINE_MITSU_OIL_SPEED_PAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNStagePage(IDD_OIL_SPEED, data, frame, kOilSpeedTable) {
    BindCheckedField(IDC_INJECTION_TIME, MI_INJECTION_TIME, KRNField::Time);
    BindCheckedField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position);
    BindCheckedField(IDC_COOLING_TIME, MI_COOLING_TIME, KRNField::Time);
    for (const KRNLevelRow& row : kLevelRows)
        for (int stage = 0; stage < kStages; ++stage)
            OnChange(row.ids[stage], [this, &row, stage] { OnLevelChanged(row, stage); });
}

// A time or position taken at every change: the number test (61713), then
// the range of its kind (353); refused, the field shows the stored value again.
void CMACHINE_MITSU_OIL_SPEED_PAGE::BindCheckedField(int id, KRNMACHINEITEM item, KRNField kind) {
    OnChange(id, [this, id, item, kind] {
        double value = 0;
        m_bErrorPending = !ReadNumberField(id, KRNItemValue(m_MachineData, item), value, kind);
        if (!m_bErrorPending) m_MachineData.SetMachineData(item, value);
    });
}

bool CMACHINE_MITSU_OIL_SPEED_PAGE::OnInitDialog() {
    if (!m_pSpeedChart) {
        m_pSpeedChart = MakeChart(this, IDC_SPEED_CHART, kSpeedCurve);
        m_pPressureChart = MakeChart(this, IDC_PRESSURE_CHART, kPressureCurve);
    }
    m_bErrorPending = false;
    m_dStrokeScale = m_MachineData.GetMaxRamPosition();
    m_dPressureScale = m_MachineData.GetInjectionPressure();
    m_dSpeedScale = KRNMaxInjectionSpeed(m_MachineData);
    m_nPoints[0] = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPoints[1] = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    m_nPoints[2] = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
    {
        FillGuard guard(this);
        SetDlgItemText(IDC_INJECTION_TIME, FormatNumber(m_MachineData.GetInjectionTime()));
        SetDlgItemText(IDC_VP_POSITION, FormatNumber(m_MachineData.GetVPRamPosition()));
        SetDlgItemText(IDC_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
        // Stages the profiles have no point for stay empty and take nothing.
        for (int stage = 0; stage < kStages; ++stage) {
            const int ids[4] = {kPosition[stage], kSpeed[stage], kPressure[stage], kHoldPressure[stage]};
            const int points[4] = {m_nPoints[0], m_nPoints[0], m_nPoints[1], m_nPoints[2]};
            for (int i = 0; i < 4; ++i) {
                SetDlgItemText(ids[i], QString());
                EnableDlgItem(ids[i], stage < points[i]);
            }
        }
    }
    ShowStages();
    ShowLevels();
    ShowStrokeScale();
    SetDlgItemText(IDC_SPEED_SCALE, KRNFormatValue("%.1f mm/s", m_dSpeedScale));
    SetDlgItemText(IDC_PRESSURE_SCALE, KRNFormatValue("%lg MPa", m_dPressureScale));
    ShowUnfed(kOilSpeedUnfed);
    DrawCharts();
    return true;
}

void CMACHINE_MITSU_OIL_SPEED_PAGE::ShowStrokeScale() {
    SetDlgItemText(IDC_STROKE_SCALE, KRNFormatValue("%lg mm", m_dStrokeScale));
}

void CMACHINE_MITSU_OIL_SPEED_PAGE::ShowLevels() {
    FillGuard guard(this);
    for (const KRNLevelRow& row : kLevelRows) {
        const int count = m_MachineData.GetProfileDataCount(row.profile);
        for (int stage = 0; stage < kStages && stage < count; ++stage) {
            double x = 0, y = 0;
            m_MachineData.GetProfileData(row.profile, stage, x, y);
            ShowNumber(row.ids[stage], y);
        }
    }
}

// A percentage up to 100 (352), not below 0 (353), stored as it stands at
// the point's own x.
void CMACHINE_MITSU_OIL_SPEED_PAGE::OnLevelChanged(const KRNLevelRow& row, int stage) {
    if (stage >= m_MachineData.GetProfileDataCount(row.profile)) return;
    double x = 0, y = 0, value = 0;
    m_MachineData.GetProfileData(row.profile, stage, x, y);
    m_bErrorPending = !ReadNumberField(row.ids[stage], y, value, KRNField::Percent, 100.0);
    if (m_bErrorPending) return;
    m_MachineData.SetMachineData(row.profile, stage, x, value);
    DrawCharts();
}

// The first position is the full stroke: the later stages are seen against it.
void CMACHINE_MITSU_OIL_SPEED_PAGE::OnStageStored(const KRNStageFields& row, int stage) {
    if (row.kind == KRNField::Position && stage == 0) {
        m_dStrokeScale = KRNFullStroke(m_MachineData);
        ShowStrokeScale();
    }
    DrawCharts();
}

void CMACHINE_MITSU_OIL_SPEED_PAGE::DrawCharts() {
    KRNShowProfiles(m_pSpeedChart, m_MachineData, MI_FP_PROFILE);
    KRNShowProfiles(m_pPressureChart, m_MachineData, MI_P_PROFILE);
}
