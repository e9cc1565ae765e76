#include "CMACHINE_CLF_SERIES_DLG.h"

#include "ClfSeriesPages.h"
#include "common/KRNStageRoutines.h"

using namespace ClfSeries;

// The frame's clock: a tab between date and time, dashes inside the time.
constexpr const char* kClfClockFormat = "%d/%d/%d\t%d-%d-%d";

CMACHINE_CLF_SERIES_DLG::CMACHINE_CLF_SERIES_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    OnClicked(IDC_KEY_MAIN, [this] { GoToPage(kMainPage); });
    OnClicked(IDC_KEY_INJECTION, [this] { GoToPage(kInjectionPage); });
    OnClicked(IDC_KEY_FULL_DATA_SET, [this] { GoToPage(kFullDataSetPage); });
    OnClicked(IDC_KEY_TEMPERATURE, [this] { GoToPage(kTemperaturePage); });
    OnClicked(IDC_KEY_CURVE, [this] { GoToPage(kCurvePage); });
    SetClock(IDC_CLOCK, kClfClockFormat);
}

bool CMACHINE_CLF_SERIES_DLG::OnInitDialog() {
    // The controller creates the curve page first and the temperature page last.
    CreatePages(IDC_PAGE_AREA,
                {new CMACHINE_CLF_SERIES_MAIN_PAGE(m_MachineData, this),
                 new CMACHINE_CLF_SERIES_INJECTION_PAGE(m_MachineData, this),
                 new CMACHINE_CLF_SERIES_FULL_DATESET_PAGE(m_MachineData, this),
                 new CMACHINE_CLF_SERIES_TEMPERATUREE_PAGE(m_MachineData, this),
                 new CMACHINE_CLF_SERIES_CURVE_PAGE(m_MachineData, this)},
                {kCurvePage, kInjectionPage, kFullDataSetPage, kMainPage, kTemperaturePage});
    for (int id : kDisabledAtStart) EnableDlgItem(id, false);
    SetBitmap(IDC_MAKER_PLATE, IDB_MAKER_PLATE);
    ShowPage(kMainPage);

    // Six speed and pressure stages, three hold stages.
    m_nStageCounts[0] = 6;
    m_nStageCounts[1] = 6;
    m_nStageCounts[2] = 3;
    PadAndDistribute(7, 7, 4);
    return true;
}

void CMACHINE_CLF_SERIES_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE}) KRNStages::Tidy(m_MachineData, profile);
}
