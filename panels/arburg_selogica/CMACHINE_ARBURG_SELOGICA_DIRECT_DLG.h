#pragma once

// The Selogica panel: seven screens shown one at a time over the frame's
// placeholder, reached by bitmap keys in a main group and a sub-menu group,
// under a date and time line that is written anew on every message.

#include "ArburgSelogicaIds.h"
#include "common/CKRNPanelFrame.h"

#include <QString>

#include <ctime>

// The six texts of the date and time line (day, month, year, hour, minute,
// second) for a local time; without one the date parts read "0." and the
// time parts "-1".
void ArburgDateTimeTexts(const std::tm* local, QString (&texts)[6]);

class CMACHINE_ARBURG_SELOGICA_DIRECT_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_ARBURG_SELOGICA_DIRECT_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;
    bool PreTranslateMessage(QObject* target, QEvent* event) override;

private:
    void ShowMainGroup(bool main);
    void WriteDateTime();
};
