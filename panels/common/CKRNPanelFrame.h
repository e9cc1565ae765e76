#pragma once

// The frame of a controller panel: its pages shown one at a time over a
// placeholder, the master copy of the record, and the rules that keep pages
// and record in step. Changing page commits the shown page (unless the record
// is read-only) and re-initialises every page from the frame's record, so all
// pages always agree. OK commits and tidies; Cancel discards. A frame can also
// run hosted, without a modal loop, for an entry interface that polls it.

#include "CKRNDialog.h"
#include "KRNClockText.h"
#include "KRNPanelData.h"

#include <vector>

class CKRNPanelPage;
class CKRNProMachineInterface;
class QStackedWidget;

class CKRNPanelFrame : public CKRNDialog {
    Q_OBJECT
public:
    CKRNPanelFrame(int templateId, const CKRNMachineData& data, QWidget* parent = nullptr);

    CKRNMachineData GetMachineData() const { return m_MachineData; }

    // True on screens whose OK takes the shown page even from a read-only
    // record (leaving a page never does there either).
    bool OKCommitsReadOnly() const { return m_bOKCommitsReadOnly; }

    // Hosted use: OK then tells `host` (SetHasUpdate) and closes the window.
    void SetHost(CKRNProMachineInterface* host);
    bool IsHosted() const { return m_bHosted; }

    // Goes to page `index`: nothing when it is shown; otherwise the shown page
    // is committed (unless the record is read-only) and `index` shown.
    void GoToPage(int index);

    void OnOK() override;
    void OnCancel() override;
    bool PreTranslateMessage(QObject* target, QEvent* event) override;

    CKRNPanelData m_MachineData;

protected:
    // Creates the pages from their templates in a page stack over the
    // (then hidden) placeholder control; the frame owns them from here on.
    // When the frame has its pages already (a hosted frame opened again runs
    // OnInitDialog again), it keeps them and deletes the pages given, so a
    // panel reaches its pages through Page(), never through pointers it kept.
    // `creationOrder` lists the page indexes in the order the controller
    // creates (and so first initialises) them; index order when empty.
    bool CreatePages(int placeholderId, const std::vector<CKRNPanelPage*>& pages,
                     const std::vector<int>& creationOrder = {});
    bool PagesCreated() const { return !m_Pages.empty(); }
    CKRNPanelPage* Page(int index) const;
    int PageCount() const { return static_cast<int>(m_Pages.size()); }
    int ShownPage() const { return m_nShownPage; }

    // Shows page `index` without committing anything.
    void ShowPage(int index);
    // Takes the shown page's record into the frame (unless read-only, or
    // `evenIfReadOnly`) and hands the frame's record to every page again.
    void CommitShownPage(bool evenIfReadOnly = false);
    // Screens whose OK takes the shown page even from a read-only record:
    // there only leaving a page is held back.
    bool m_bOKCommitsReadOnly = false;
    // Copies the frame's record into every page, converts it to page form and
    // runs each page's initialisation again.
    void DistributeRecord();
    // Pads the flow-rate, pressure and packing-pressure profiles to the points
    // the screens show, then hands every page the padded record with hold
    // stages in page form, even a read-only record whose pages are never
    // committed.
    void PadAndDistribute(int flowRatePoints, int pressurePoints, int packingPoints);
    // Copies the frame's record into every page as it stands.
    void CopyRecordToPages();

    // A clock in control `controlId` of the frame, written on every message.
    void SetClock(int controlId, const char* format = kKRNClockFormat) { m_Clock = {controlId, format}; }

    // The profiles as the host gets them back on OK.
    virtual void TidyAtOK() {}

private:
    std::vector<CKRNPanelPage*> m_Pages;
    QStackedWidget* m_pStack = nullptr;
    int m_nShownPage = -1;
    CKRNProMachineInterface* m_pHost = nullptr;
    bool m_bHosted = false;
    KRNClock m_Clock;
};
