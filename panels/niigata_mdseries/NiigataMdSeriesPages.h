#pragma once

// The smaller pages of the Niigata MD series panel: temperatures, the main
// screen and the pressure curve.

#include "common/CKRNPanelPage.h"

class CKRNNIIGATA;

// Temperatures: the mould temperature, repeated twice on the screen's
// picture of the mould; the barrel zones the record does not feed.
class CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_NIIGATA_MDSERIES_TEMP_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

private:
    void ShowMold(const QString& text);
};

// The main screen: the machine's overview, none of it fed by the record.
class CMACHINE_NIIGATA_MAINPAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_NIIGATA_MAINPAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// The pressure curve: the pressure profile as steps over the share of time,
// with the pressure axis on the left and the speed axis on the right.
class CMACHINE_NIIGATA_COUVEPAGE : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_NIIGATA_COUVEPAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

    CKRNNIIGATA* m_pChart = nullptr;  // made once, at the first initialisation

private:
    void CreateChart();
};
