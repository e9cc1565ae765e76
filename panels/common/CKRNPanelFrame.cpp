#include "CKRNPanelFrame.h"

#include "CKRNPanelPage.h"
#include "KRNPanelKeys.h"
#include "KRNStageRoutines.h"
#include "KRNProMachineInterface.h"

#include <QStackedWidget>

#include <algorithm>

CKRNPanelFrame::CKRNPanelFrame(int templateId, const CKRNMachineData& data, QWidget* parent)
    : CKRNDialog(templateId, parent), m_MachineData(data) {}

void CKRNPanelFrame::SetHost(CKRNProMachineInterface* host) {
    m_pHost = host;
    m_bHosted = true;
}

bool CKRNPanelFrame::CreatePages(int placeholderId, const std::vector<CKRNPanelPage*>& pages,
                                 const std::vector<int>& creationOrder) {
    if (PagesCreated()) {
        // A hosted frame opened again runs its initialisation again and hands
        // over a fresh set of pages: the frame keeps the set it shows, so the
        // new one, never loaded from its templates, goes now rather than
        // piling up under the frame at every opening.
        for (CKRNPanelPage* page : pages)
            if (std::find(m_Pages.begin(), m_Pages.end(), page) == m_Pages.end()) delete page;
        return true;
    }
    QWidget* placeholder = GetDlgItem(placeholderId);
    if (!placeholder) return false;
    m_pStack = new QStackedWidget(placeholder->parentWidget());
    m_pStack->setObjectName(QStringLiteral("KRNPages"));  // where krn-panel finds the pages
    m_pStack->setGeometry(placeholder->geometry());
    placeholder->hide();
    m_Pages = pages;
    std::vector<int> order = creationOrder;
    if (order.size() != pages.size()) {
        order.resize(pages.size());
        for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<int>(i);
    }
    for (int index : order) Page(index)->Create(m_pStack, true);
    for (CKRNPanelPage* page : pages) m_pStack->addWidget(page);
    m_pStack->show();
    return true;
}

CKRNPanelPage* CKRNPanelFrame::Page(int index) const {
    return index >= 0 && index < PageCount() ? m_Pages[static_cast<std::size_t>(index)] : nullptr;
}

void CKRNPanelFrame::ShowPage(int index) {
    CKRNPanelPage* page = Page(index);
    if (!page || !m_pStack) return;
    m_pStack->setCurrentWidget(page);
    m_nShownPage = index;
}

void CKRNPanelFrame::GoToPage(int index) {
    if (index == m_nShownPage || !Page(index)) return;
    CommitShownPage();
    ShowPage(index);
}

void CKRNPanelFrame::CommitShownPage(bool evenIfReadOnly) {
    if (m_MachineData.IsReadOnly() && !evenIfReadOnly) return;
    if (CKRNPanelPage* page = Page(m_nShownPage)) {
        page->ToRecordForm();
        m_MachineData = page->m_MachineData;
    }
    DistributeRecord();
}

void CKRNPanelFrame::PadAndDistribute(int flowRatePoints, int pressurePoints, int packingPoints) {
    KRNStages::PadTo(m_MachineData, MI_FP_PROFILE, flowRatePoints);
    KRNStages::PadTo(m_MachineData, MI_P_PROFILE, pressurePoints);
    KRNStages::PadTo(m_MachineData, MI_PP_PROFILE, packingPoints);
    DistributeRecord();
}

void CKRNPanelFrame::CopyRecordToPages() {
    for (CKRNPanelPage* page : m_Pages) page->m_MachineData = m_MachineData;
}

void CKRNPanelFrame::DistributeRecord() {
    CopyRecordToPages();
    for (CKRNPanelPage* page : m_Pages) {
        page->ToPageForm();
        page->InitDialogAgain();
    }
}

void CKRNPanelFrame::OnOK() {
    CommitShownPage(m_bOKCommitsReadOnly);
    TidyAtOK();
    if (m_bHosted) {
        if (m_pHost) m_pHost->SetHasUpdate(true);
        if (QWidget* parent = parentWidget()) parent->close();
    }
    EndDialog(IDOK);
}

void CKRNPanelFrame::OnCancel() {
    EndDialog(IDCANCEL);
    if (m_bHosted)
        if (QWidget* parent = parentWidget()) parent->close();
}

bool CKRNPanelFrame::PreTranslateMessage(QObject* target, QEvent* event) {
    if (KRNIsClosingKey(event)) return true;
    m_Clock.Refresh(*this);
    return CKRNDialog::PreTranslateMessage(target, event);
}
