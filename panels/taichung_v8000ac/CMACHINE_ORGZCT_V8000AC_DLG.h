#pragma once

// The Taichung V8000AC panel: a column of eight bitmap keys beside the
// screen that works as two menus, the second reached by the last key, and
// six screens behind them, one shown at a time. Speeds are set in percent of
// the top speed, pressures in bar. The screens come in two template sets,
// English and traditional Chinese, chosen by the record's language before
// the frame is built.

#include "TaichungV8000acIds.h"
#include "common/CKRNPanelFrame.h"

#include <QFont>

class CMACHINE_ORGZCT_V8000AC_DLG : public CKRNPanelFrame {
    Q_OBJECT
public:
    // Built from the frame template of the set the language selector left
    // in the module's table.
    explicit CMACHINE_ORGZCT_V8000AC_DLG(const CKRNMachineData& data, QWidget* parent = nullptr);

    bool OnInitDialog() override;

    // 0: the first menu (injection, machine, temperature); 1: the second
    // (settings, pressure curve).
    int MenuMode() const { return static_cast<int>(m_nMenuMode); }

protected:
    // Only the pressure and packing-pressure profiles lose their padding;
    // the flow-rate profile goes back with its (0, 0) stages, as the
    // controller returns it.
    void TidyAtOK() override;

private:
    void OnKey(int key);
    // Key faces, sizes and captions of the menu in m_nMenuMode.
    void ShowMenu();

    QFont m_Font;                  // the key captions
    int m_nStageCounts[3] = {0, 0, 0};  // flow-rate, pressure, packing-pressure stages after padding
    std::int32_t m_nMenuMode = 0;
};
