#include "CMACHINE_CHENSONG_CDC2000_DLG.h"

#include "ChenHsongCdc2000Pages.h"
#include "common/KRNClockText.h"
#include "common/KRNStageRoutines.h"

#include <QLabel>
#include <QStringDecoder>

using namespace ChenHsongCdc2000;

namespace {
// The weekdays as the controller stores them: two Big5 bytes each, Sunday first
// (日 一 二 三 四 五 六).
constexpr char kWeekdayBig5[7][3] = {"\xA4\xE9", "\xA4\x40", "\xA4\x47", "\xA4\x54",
                                     "\xA5\x7C", "\xA4\xAD", "\xA4\xBB"};

constexpr KRNMACHINEITEM kProfiles[3] = {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE};
constexpr int kScreenPoints[3] = {kSpeedPoints, kPressurePoints, kHoldPoints};
}  // namespace

QString ChenHsongWeekday(int weekday) {
    if (weekday < 0 || weekday > 6) return QStringLiteral("?");
    QStringDecoder big5("Big5");
    if (!big5.isValid()) return QStringLiteral("?");
    return big5.decode(QByteArrayView(kWeekdayBig5[weekday], 2));
}

QString ChenHsongClockLine(const std::tm& local) {
    char date[80] = {};
    std::strftime(date, sizeof date, "%Y/%m/%d", &local);
    // Hour and minute unpadded: nine past eight reads 8:9 on the controller.
    return QString::asprintf("%s (%s) %d:%d", date, ChenHsongWeekday(local.tm_wday).toUtf8().constData(),
                             local.tm_hour, local.tm_min);
}

CMACHINE_CHENSONG_CDC2000_DLG::CMACHINE_CHENSONG_CDC2000_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(IDD_FRAME, data, parent) {
    // The controller's OK takes the shown page whatever the read-only flag;
    // only leaving a page is held back.
    m_bOKCommitsReadOnly = true;
    OnClicked(IDC_KEY_TEMP, [this] { GoToPage(kTempPage); });
    OnClicked(IDC_KEY_MODEL, [this] { GoToPage(kModelPage); });
    OnClicked(IDC_KEY_TIME, [this] { GoToPage(kTimePage); });
    // Qt palettes own their brushes: each control keeps its one colour pair.
    SetDialogColor(kOtherText, kOtherBack);
    SetCtlColor({IDC_TITLE, IDC_STATUS}, kStripText, kStripBack);
    SetCtlColor({IDC_KEY_TEMP, IDC_KEY_MODEL, IDC_KEY_TIME}, kKeyText, kKeyBack);
}

bool CMACHINE_CHENSONG_CDC2000_DLG::OnInitDialog() {
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_CHENSONG_CDC2000_TEMP_PAGE(m_MachineData, this),
                                new CMACHINE_CHENSONG_CDC2000_MODEL_PAGE(m_MachineData, this),
                                new CMACHINE_CHENSONG_CDC2000_TIME_PAGE(m_MachineData, this)});
    ShowPage(kTempPage);

    // The screens' stage counts, reached by padding with empty stages before
    // the last point or by dropping points before it.
    for (int i = 0; i < 3; ++i) {
        m_nPointCounts[i] = m_MachineData.GetProfileDataCount(kProfiles[i]);
        KRNStages::PadTo(m_MachineData, kProfiles[i], kScreenPoints[i]);
        KRNStages::Shrink(m_MachineData, kProfiles[i], kScreenPoints[i]);
    }
    // Every page starts from the record with those counts, even a read-only
    // one whose pages are never committed.
    DistributeRecord();

    m_pLogo = GetDlgItemAs<QLabel>(IDC_LOGO);
    m_pMachine = GetDlgItemAs<QLabel>(IDC_MACHINE);
    SetBitmap(IDC_LOGO, IDB_LOGO);
    SetBitmap(IDC_MACHINE, IDB_MACHINE);
    for (int key : {IDC_KEY_TEMP, IDC_KEY_MODEL, IDC_KEY_TIME}) ShowDlgItem(key, false);

    // Written once: the controller's line does not tick. An unreadable clock
    // leaves the line empty.
    std::tm local{};
    if (KRNLocalTimeNow(local)) SetDlgItemText(IDC_CLOCK, ChenHsongClockLine(local));
    return true;
}

// Stages padded in at opening (x of 0) go again; the record keeps the stages
// the screens show.
void CMACHINE_CHENSONG_CDC2000_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : kProfiles) KRNStages::Tidy(m_MachineData, profile);
}
