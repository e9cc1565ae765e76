#include "CMACHINE_NIIGATA_MDSERIES_DLG.h"

#include "CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE.h"
#include "NiigataMdSeriesIds.h"
#include "NiigataMdSeriesPages.h"
#include "common/KRNStageRoutines.h"

using namespace NiigataMdSeries;

CMACHINE_NIIGATA_MDSERIES_DLG::CMACHINE_NIIGATA_MDSERIES_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    OnClicked(IDC_KEY_INJECTION, [this] { GoToPage(kInjectionPage); });
    OnClicked(IDC_KEY_TEMPERATURE, [this] { GoToPage(kTemperaturePage); });
    OnClicked(IDC_KEY_MAIN, [this] { GoToPage(kMainPage); });
    OnClicked(IDC_KEY_CURVE, [this] { GoToPage(kCurvePage); });
    SetCtlColor(IDC_PAGE_AREA, 0x000000, kPageAreaColor);
    SetCtlColor(IDC_TITLE_STRIP, 0x000000, kTitleStripColor);
    SetCtlColor(IDC_MESSAGE_LINE, 0x000000, kMessageLineColor);
    SetDialogColor(0x000000, kFrameColor);
}

bool CMACHINE_NIIGATA_MDSERIES_DLG::OnInitDialog() {
    // Each page initialises itself on the record as it came, unpadded.
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE(m_MachineData, this),
                                new CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE(m_MachineData, this),
                                new CMACHINE_NIIGATA_MAINPAGE(m_MachineData, this),
                                new CMACHINE_NIIGATA_COUVEPAGE(m_MachineData, this)});
    ShowPage(kMainPage);

    // Five speed and five hold stages: six points. The pressure profile is one
    // flat limit; the padding routine is handed 1 - n points for it, which it
    // leaves alone (it only extends profiles of two points or more).
    KRNStages::PadTo(m_MachineData, MI_FP_PROFILE, 6);
    const int pressurePoints = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    if (pressurePoints < 1) KRNStages::Pad(m_MachineData, MI_P_PROFILE, 1 - pressurePoints);
    KRNStages::PadTo(m_MachineData, MI_PP_PROFILE, 6);
    // The controller writes the first two counts as one 64-bit 5: the
    // flow-rate count becomes 5 and the pressure count 0. Kept as it does.
    m_nStageCounts[0] = 5;
    m_nStageCounts[1] = 0;
    m_nStageCounts[2] = 5;
    // Every page shows the padded record from the start, hold stages in
    // seconds, even a read-only record whose pages are never committed.
    DistributeRecord();

    SetBitmap(IDC_PICTURE, IDB_FRAME);
    return true;
}

// A profile left with its end point alone ends at (0, 0): the controller
// takes "the point before it" from nothing.
void CMACHINE_NIIGATA_MDSERIES_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE})
        KRNStages::Tidy(m_MachineData, profile, KRNStages::LoneEnd::ToZero);
}
