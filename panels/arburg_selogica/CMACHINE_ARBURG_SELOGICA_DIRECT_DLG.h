#pragma once

// The Selogica panel: seven screens shown one at a time over the frame's
// placeholder, reached by soft keys in three menus (main, measurement and
// program administration), under a date and time line that is written anew
// on every message.

#include "ArburgSelogicaIds.h"
#include "common/CKRNPanelFrame.h"

#include <QPointer>
#include <QString>

#include <ctime>

// The fields of the date and time line, in the order the frame writes them.
enum ArburgDateTimeField { kDay, kMonth, kYear, kHour, kMinute, kSecond, kDateTimeFields };

// One field's text for a local time: the date parts "%d." and the time parts
// "%d"; without a local time the date parts read "0." and the time parts "-1".
QString ArburgDateTimeText(const std::tm* local, int field);

class CMACHINE_ARBURG_SELOGICA_DIRECT_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_ARBURG_SELOGICA_DIRECT_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;
    bool PreTranslateMessage(QObject* target, QEvent* event) override;

    // The menu whose keys are shown (a NavGroup).
    unsigned ShownGroup() const { return m_nGroup; }

private:
    void ShowGroup(unsigned group);
    bool IsNewMessage(QObject* target, const QEvent* event);
    void WriteDateTime();

    unsigned m_nGroup = ArburgSelogica::kInMain;
    // The event last seen and where: Qt passes an event a widget leaves to
    // each parent in turn, the same event every time.
    const QEvent* m_pLastEvent = nullptr;
    QPointer<QObject> m_pLastTarget;
};
