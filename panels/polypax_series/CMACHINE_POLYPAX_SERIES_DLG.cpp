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
    m_nStageCounts[0] = 5;
    m_nStageCounts[1] = 5;
    m_nStageCounts[2] = 4;
    PadAndDistribute(6, 6, 5);

    for (const auto& [control, up, down, focus] : kKeys) {
        if (control == IDC_KEY_PRESSURE_CURVE && !m_bPressureCurve)
            SetBitmapButton(control, IDB_KEY_PRESSURE_CURVE_INERT, IDB_KEY_PRESSURE_CURVE_INERT,
                            IDB_KEY_PRESSURE_CURVE_INERT);
        else
            SetBitmapButton(control, up, down, focus);
    }
    return true;
}

// The switch-over point gives the V-P position back; a profile left with its
// end point alone ends at (0, 0): the controller takes "the point before it"
// from nothing.
void CMACHINE_POLYPAX_SERIES_DLG::TidyAtOK() { KRNStages::TidyWithSwitchOver(m_MachineData); }
