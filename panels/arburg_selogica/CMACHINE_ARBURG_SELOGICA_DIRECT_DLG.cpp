#include "CMACHINE_ARBURG_SELOGICA_DIRECT_DLG.h"

#include "ArburgSelogicaPages.h"
#include "common/KRNClockText.h"
#include "common/KRNPanelKeys.h"

using namespace ArburgSelogica;

// Whole numbers written plainly, as "%d." and "%d" would; the line is
// written on every message, so it is built without a format parser.
QString ArburgDateTimeText(const std::tm* local, int field) {
    const bool date = field < kHour;
    if (!local) return date ? QStringLiteral("0.") : QStringLiteral("-1");
    int value = 0;
    switch (field) {
    case kDay: value = local->tm_mday; break;
    case kMonth: value = local->tm_mon + 1; break;
    case kYear: value = local->tm_year + 1900; break;
    case kHour: value = local->tm_hour; break;
    case kMinute: value = local->tm_min; break;
    default: value = local->tm_sec; break;
    }
    QString text = QString::number(value);
    if (date) text += QLatin1Char('.');
    return text;
}

CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::CMACHINE_ARBURG_SELOGICA_DIRECT_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    // The controller's OK takes the shown page whatever the read-only flag;
    // only leaving a page is held back.
    m_bOKCommitsReadOnly = true;
    // 1304, 1359 and 1360 change the menu, then the screen.
    for (const NavKey& key : kNavKeys) {
        if (key.page == kNoPage) continue;
        const unsigned group = key.id == IDC_NAV_MAIN_MENU          ? kInMain
                               : key.id == IDC_NAV_MEASUREMENT_MENU ? kInMeasurement
                               : key.id == IDC_NAV_ADMIN_MENU       ? kInProgram
                                                                    : 0u;
        OnClicked(key.id, [this, group, page = key.page] {
            if (group) ShowGroup(group);
            GoToPage(page);
        });
    }
    SetDialogColor(kScreenText, kScreenBack);
    SetCtlColor({IDC_TITLE, IDC_MENU_NAME}, kStripText, kStripBack);
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
    for (const NavKey& key : kNavKeys) {
        SetBitmapButton(key.id, key.bitmap, key.pressed, key.bitmap);
        EnableDlgItem(key.id, key.page != kNoPage);
    }
    SetBitmapButton(IDOK, IDB_OK, IDB_OK_PRESSED, IDB_OK);
    SetBitmapButton(IDCANCEL, IDB_CANCEL, IDB_CANCEL_PRESSED, IDB_CANCEL);
    ShowGroup(kInMain);
    return true;
}

void CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::ShowGroup(unsigned group) {
    m_nGroup = group;
    for (const NavKey& key : kNavKeys) ShowDlgItem(key.id, (key.groups & group) != 0);
    SetDlgItemText(IDC_MENU_NAME, group == kInMain          ? QStringLiteral("Main menu")
                                  : group == kInMeasurement ? QStringLiteral("Measurement")
                                                            : QStringLiteral("Program administration"));
}

// Each field reads the clock afresh, as the controller does, and formats
// only its own part of it.
void CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::WriteDateTime() {
    static constexpr int ids[kDateTimeFields] = {IDC_DAY, IDC_MONTH, IDC_YEAR, IDC_HOUR, IDC_MINUTE, IDC_SECOND};
    for (int field = 0; field < kDateTimeFields; ++field) {
        std::tm local{};
        SetDlgItemText(ids[field], ArburgDateTimeText(KRNLocalTimeNow(local) ? &local : nullptr, field));
    }
}

// One message of the controller's loop is one event at its first delivery.
// The same event passed on to a parent of the widget that left it, and
// Qt's shortcut check that runs ahead of every key, are no new messages.
bool CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::IsNewMessage(QObject* target, const QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) return false;
    bool passedOn = false;
    if (event == m_pLastEvent && m_pLastTarget && target != m_pLastTarget)
        for (QObject* o = m_pLastTarget->parent(); o && !passedOn; o = o->parent()) passedOn = o == target;
    m_pLastEvent = event;
    m_pLastTarget = target;
    return !passedOn;
}

bool CMACHINE_ARBURG_SELOGICA_DIRECT_DLG::PreTranslateMessage(QObject* target, QEvent* event) {
    if (KRNIsClosingKey(event)) return true;  // the clock stays as it was for these
    if (IsNewMessage(target, event)) WriteDateTime();
    return CKRNPanelFrame::PreTranslateMessage(target, event);
}
