#pragma once

// The CDC2000 panel: temperatures, the machine model and the injection and
// holding times, one page at a time in the frame, under a title strip whose
// clock line gives the date with the weekday in Chinese. The frame keeps the
// screens' stage counts: four injection stages and three holding stages.

#include "common/CKRNPanelFrame.h"

#include <QString>

#include <ctime>

class QLabel;

// The clock line of the frame: "2024/03/03 (日) 8:5", the date zero-padded,
// the weekday as one Chinese character, hour and minute as plain numbers.
QString ChenHsongClockLine(const std::tm& local);
// The weekday's character, Sunday (0) first, read from the controller's Big5
// codes; "?" for a weekday outside 0..6.
QString ChenHsongWeekday(int weekday);

class CMACHINE_CHENSONG_CDC2000_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    explicit CMACHINE_CHENSONG_CDC2000_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // Points of the flow-rate, pressure and packing-pressure profiles as the
    // record came, before the screens' stage counts were applied.
    int m_nPointCounts[3] = {0, 0, 0};

protected:
    void TidyAtOK() override;

private:
    QLabel* m_pLogo = nullptr;     // 2129
    QLabel* m_pMachine = nullptr;  // 2132
};
