#include "CMACHINE_POLYPAX_SERIES_DLG.h"

#include "CMACHINE_POLYPAX_SERIES_INJ_PAGE.h"
#include "PolypaxSeriesIds.h"
#include "PolypaxSeriesPages.h"
#include "common/KRNStageRoutines.h"

using namespace PolypaxSeries;

CMACHINE_POLYPAX_SERIES_DLG::CMACHINE_POLYPAX_SERIES_DLG() : CMACHINE_POLYPAX_SERIES_DLG(CKRNMachineData()) {}

CMACHINE_POLYPAX_SERIES_DLG::CMACHINE_POLYPAX_SERIES_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    OnClicked(IDC_KEY_INJECTION, [this] { GoToPage(kInjectionPage); });
    OnClicked(IDC_KEY_MACHINE_STATUS, [this] { GoToPage(kMachineStatusPage); });
    OnClicked(IDC_KEY_PRESSURE_CURVE, [this] {
        if (m_bPressureCurve) GoToPage(kPressureCurvePage);
    });
    OnClicked(IDC_KEY_TEMPERATURE, [this] { GoToPage(kTemperaturePage); });
}

bool CMACHINE_POLYPAX_SERIES_DLG::OnInitDialog() {
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_POLYPAX_SERIES_INJ_PAGE(m_MachineData, this),
                                new CMACHINE_POLYPAX_SERIES_INJCHRG_PAGE(m_MachineData, this),
                                new CMACHINE_POLYPAX_SERIES_MACHINE_STATUS_PAGE(m_MachineData, this),
                                new CMACHINE_POLYPAX_SERIES_PRESSCORVE_PAGE(m_MachineData, this),
                                new CMACHINE_POLYPAX_SERIES_TEMP_PAGE(m_MachineData, this)});
    ShowPage(kMachineStatusPage);

    // Five injection stages with speed, pressure and position, four hold stages.
    KRNStages::PadTo(m_MachineData, MI_FP_PROFILE, 6);
    KRNStages::PadTo(m_MachineData, MI_P_PROFILE, 6);
    KRNStages::PadTo(m_MachineData, MI_PP_PROFILE, 5);
    m_nStageCounts[0] = 5;
    m_nStageCounts[1] = 5;
    m_nStageCounts[2] = 4;
    // Every page shows the padded record from the start, hold stages in
    // seconds, even a read-only record whose pages are never committed.
    DistributeRecord();

    for (const auto& [control, up, down, focus] : kKeys) {
        if (control == IDC_KEY_PRESSURE_CURVE && !m_bPressureCurve)
            SetBitmapButton(control, IDB_KEY_PRESSURE_CURVE_INERT, IDB_KEY_PRESSURE_CURVE_INERT,
                            IDB_KEY_PRESSURE_CURVE_INERT);
        else
            SetBitmapButton(control, up, down, focus);
    }
    return true;
}

namespace {
// The first point of a profile with a position and no level: the switch-over
// the injection page placed there. -1 when there is none.
int SwitchOverPoint(const CKRNMachineData& record, KRNMACHINEITEM profile) {
    for (int i = 0; i < record.GetProfileDataCount(profile); ++i) {
        double x = 0, y = 0;
        record.GetProfileData(profile, i, x, y);
        if (x != 0.0 && y == 0.0) return i;
    }
    return -1;
}
}  // namespace

// The switch-over point gives the V-P position back and goes to 0 like the
// rest of the padding, and so does its twin in the pressure profile. A
// profile left with its end point alone ends at (0, 0): the controller takes
// "the point before it" from nothing.
void CMACHINE_POLYPAX_SERIES_DLG::TidyAtOK() {
    if (const int i = SwitchOverPoint(m_MachineData, MI_FP_PROFILE); i >= 0) {
        double x = 0, y = 0;
        m_MachineData.GetFPData(i, x, y);
        m_MachineData.SetMachineData(MI_VP_RAM_POSITION, x / 100.0 * m_MachineData.GetMaxRamPosition());
        m_MachineData.SetFPData(i, 0.0, y);
    }
    if (const int i = SwitchOverPoint(m_MachineData, MI_P_PROFILE); i >= 0) m_MachineData.SetPData(i, 0.0, 0.0);
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE})
        KRNStages::Tidy(m_MachineData, profile, KRNStages::LoneEnd::ToZero);
}
