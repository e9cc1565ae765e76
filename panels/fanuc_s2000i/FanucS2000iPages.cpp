#include "FanucS2000iPages.h"

#include "KRNNumberText.h"

using namespace FanucS2000i;

// ---- menu ----------------------------------------------------------------------

CMACHINE_FANUC_S2000I_MENU_PAGE::CMACHINE_FANUC_S2000I_MENU_PAGE(const CKRNMachineData& data,
                                                                 CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_MENU, data, frame) {
    NavigationKeys({{1138, kPacking}, {1139, kCooling}, {1140, kTemperature}, {1143, kRetreat},
                    {1150, kInjectionPre}, {1151, kInjectionPre}},
                   kMenu);
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_MENU_PAGE::OnInitDialog() {
    if (IsRestricted())
        for (int id : kMenuRestricted) EnableDlgItem(id, false);
    return true;
}

// ---- cooling ---------------------------------------------------------------------

CMACHINE_FANUC_S2000I_COOLING_PAGE::CMACHINE_FANUC_S2000I_COOLING_PAGE(const CKRNMachineData& data,
                                                                       CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_COOLING, data, frame) {
    NavigationKeys({{1753, kPacking}, {1754, kCooling}, {1755, kTemperature}, {1758, kRetreat}}, kCooling);
    BindPlainField(IDC_COOLING_TIME, MI_COOLING_TIME, KRNField::Time);
    SetCtlColor(IDC_COOLING_TIME, kEditText, kEditBack);
    SetCtlColor(IDC_COOLING_VP_POSITION, kValueText, kValueBack);
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_COOLING_PAGE::OnInitDialog() {
    SetDlgItemText(IDC_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
    ShowNumber(IDC_COOLING_VP_POSITION, m_MachineData.GetVPRamPosition());
    ShowUnfed(kCoolingUnfed);
    return true;
}

// ---- retreat -----------------------------------------------------------------------

CMACHINE_FANUC_S2000I_RETREAT_PAGE::CMACHINE_FANUC_S2000I_RETREAT_PAGE(const CKRNMachineData& data,
                                                                       CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_RETREAT, data, frame) {
    NavigationKeys({{1288, kPacking}, {1289, kCooling}, {1290, kTemperature}, {1293, kRetreat}}, kRetreat);
    BindPlainField(IDC_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position);
    SetCtlColor(IDC_SUCK_BACK, kEditText, kEditBack);
    SetCtlColor(IDC_RETREAT_VP_POSITION, kValueText, kValueBack);
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_RETREAT_PAGE::OnInitDialog() {
    SetDlgItemText(IDC_SUCK_BACK, FormatNumber(m_MachineData.GetSuckBackValue()));
    ShowNumber(IDC_RETREAT_VP_POSITION, m_MachineData.GetVPRamPosition());
    ShowUnfed(kRetreatUnfed);
    return true;
}

// ---- temperature -----------------------------------------------------------------

CMACHINE_FANUC_S2000I_TEMPERATURE_PAGE::CMACHINE_FANUC_S2000I_TEMPERATURE_PAGE(const CKRNMachineData& data,
                                                                               CMACHINE_FANUC_S2000I_DLG* frame)
    : CFanucS2000iPage(IDD_TEMPERATURE, data, frame) {
    NavigationKeys({{1242, kPacking}, {1244, kCooling}, {1245, kTemperature}, {1248, kRetreat}}, kTemperature);
    BindPlainField(IDC_MELT_TEMPERATURE, MI_MELT_TEMPERATURE, KRNField::Temperature, "%lg", 1.0,
                   [this](const QString& text) { SetDlgItemText(IDC_MELT_TEMPERATURE_COPY, text); });
    SetCtlColor(IDC_MELT_TEMPERATURE, kEditText, kEditBack);
    SetCtlColor(IDC_MELT_TEMPERATURE_COPY, kValueText, kValueBack);
    SetCtlColor(IDC_STATIC, kTitleText, kTitleBack);
}

bool CMACHINE_FANUC_S2000I_TEMPERATURE_PAGE::OnInitDialog() {
    const QString melt = FormatNumber(m_MachineData.GetMeltTemperature());
    SetDlgItemText(IDC_MELT_TEMPERATURE, melt);
    SetDlgItemText(IDC_MELT_TEMPERATURE_COPY, melt);
    ShowUnfed(kTemperatureUnfed);
    return true;
}
