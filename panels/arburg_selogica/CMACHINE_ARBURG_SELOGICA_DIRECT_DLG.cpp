#include "CMACHINE_ARBURG_SELOGICA_DIRECT_DLG.h"

#include "ArburgSelogicaPages.h"
#include "KRNNumberText.h"
#include "common/KRNClockText.h"
#include "common/KRNPanelKeys.h"

using namespace ArburgSelogica;

void ArburgDateTimeTexts(const std::tm* local, QString (&texts)[6]) {
    if (!local) {
        for (int k = 0; k < 3; ++k) texts[k] = QStringLiteral("0.");
        for (int k = 3; k < 6; ++k) texts[k] = QStringLiteral("-1");
        return;
    }
    texts[0] = KRNFormat("%d.", local->tm_mday);
    texts[1] = KRNFormat("%d.", local->tm_mon + 1);
    texts[2] = KRNFormat("%d.", local->tm_year + 1900);
    texts[3] = KRNFormat("%d", local->tm_hour);
    texts[4] = KRNFormat("%d", local->tm_min);
    texts[5] = KRNFormat("%d", local->tm_sec);
}

CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::CMACHINE_ARBURG_SELOGICA_DIRECT_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    // The controller's OK takes the shown page whatever the read-only flag;
    // only leaving a page is held back.
    m_bOKCommitsReadOnly = true;
    OnClicked(IDC_NAV_MAIN_MENU, [this] {
        ShowMainGroup(true);
        GoToPage(kProductionSequencePage);
    });
    OnClicked(IDC_NAV_MEASUREMENT_MENU, [this] {
        ShowMainGroup(false);
        GoToPage(kMeasurementChartPage);
    });
    OnClicked(IDC_NAV_ADMIN_MENU, [this] {
        ShowMainGroup(false);
        GoToPage(kProgramAdministrationPage);
    });
    const std::pair<int, int> keys[] = {
        {IDC_NAV_PRODUCTION, kProductionSequencePage}, {IDC_NAV_INJECTION, kInjectionPage},
        {IDC_NAV_COOLING, kCoolingPage},               {IDC_NAV_TEMPERATURES, kTemperaturesPage},
        {IDC_NAV_MEASUREMENT, kMeasurementChartPage},  {IDC_NAV_SUB_INJECTION, kInjectionPage},
        {IDC_NAV_HOLDING, kHoldingPressurePage},       {IDC_NAV_SUB_HOLDING, kHoldingPressurePage},
        {IDC_NAV_SUB_PRODUCTION, kProductionSequencePage}};
    for (auto [key, page] : keys) OnClicked(key, [this, page] { GoToPage(page); });
    SetDialogColor(kScreenText, kScreenBack);
    SetCtlColor(IDC_TITLE, kStripText, kStripBack);
    SetCtlColor({IDC_DAY, IDC_MONTH, IDC_YEAR, IDC_HOUR, IDC_MINUTE, IDC_SECOND}, kStripText, kStripBack);
}

bool CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::OnInitDialog() {
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_ARBURG_SELOGICA_DIRECT_MACHINEPRODUCTIONSEQUENCE_PAGE(m_MachineData, this),
                                new CMACHINE_ARBURG_SELOGICA_DIRECT_INJECTION_PAGE(m_MachineData, this),
                                new CMACHINE_ARBURG_SELOGICA_MEASUREMENTCHART_PAGE(m_MachineData, this),
                                new CMACHINE_ARBURG_SELOGICA_COOLING_PAGE(m_MachineData, this),
                                new CMACHINE_ARBURG_SELOGICA_HOLDINGPRESSURE_PAGE(m_MachineData, this),
                                new CMACHINE_ARBURG_SELOGICA_PROGRAMADMINISTRATION_PAGE(m_MachineData, this),
                                new CMACHINE_ARBURG_SELOGICA_TEMPERATURES_PAGE(m_MachineData, this)});
    ShowPage(kProductionSequencePage);
    ShowMainGroup(true);
    for (const NavKey& key : kNavKeys) SetBitmapButton(key.id, key.bitmap, key.bitmap + 20, key.bitmap);
    return true;
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::ShowMainGroup(bool main) {
    for (int key : kMainGroup) ShowDlgItem(key, main);
    for (int key : kSubMenuGroup) ShowDlgItem(key, !main);
}

// Each field reads the clock afresh, as the controller does.
void CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::WriteDateTime() {
    const int ids[6] = {IDC_DAY, IDC_MONTH, IDC_YEAR, IDC_HOUR, IDC_MINUTE, IDC_SECOND};
    for (int k = 0; k < 6; ++k) {
        std::tm local{};
        QString texts[6];
        ArburgDateTimeTexts(KRNLocalTimeNow(local) ? &local : nullptr, texts);
        SetDlgItemText(ids[k], texts[k]);
    }
}

bool CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::PreTranslateMessage(QObject* target, QEvent* event) {
    if (KRNIsClosingKey(event)) return true;  // the clock stays as it was for these
    WriteDateTime();
    return CKRNPanelFrame::PreTranslateMessage(target, event);
}
