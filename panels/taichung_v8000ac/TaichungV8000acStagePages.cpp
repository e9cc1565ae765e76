#include "TaichungV8000acStagePages.h"

#include "KRNNumberText.h"
#include "TaichungV8000acIds.h"
#include "common/KRNMachineScales.h"

using namespace TaichungV8000ac;

// ---- shared by both stage screens ------------------------------------------------

CKRNOrgzctStagePage::CKRNOrgzctStagePage(int templateId, const CKRNMachineData& data, QWidget* frame,
                                         std::span<const KRNStageFields> table)
    : CKRNStagePage(templateId, data, frame, table, kStageRules) {}

void CKRNOrgzctStagePage::TakeWorkingValues() {
    m_bErrorPending = false;
    m_dMaxStroke = m_MachineData.GetMaxRamPosition();
    m_dMaxPressure = m_MachineData.GetInjectionPressure();
    m_dMaxSpeed = KRNMaxInjectionSpeed(m_MachineData);
    m_nPoints[0] = m_MachineData.GetProfileDataCount(MI_FP_PROFILE);
    m_nPoints[1] = m_MachineData.GetProfileDataCount(MI_P_PROFILE);
    m_nPoints[2] = m_MachineData.GetProfileDataCount(MI_PP_PROFILE);
}

void CKRNOrgzctStagePage::ToRecordForm() {
    ReadBackStages();
    CKRNStagePage::ToRecordForm();
}

void CKRNOrgzctStagePage::OnStageStored(const KRNStageFields& row, int stage) {
    (void)stage;
    m_dMaxStroke = KRNFullStroke(m_MachineData);  // a first position moves it
    if (row.profile != MI_PP_PROFILE) OnStrokeStageStored();
}

// ---- injection -------------------------------------------------------------------

CMACHINE_ORGZCT_V8000AC_INJPAGE::CMACHINE_ORGZCT_V8000AC_INJPAGE(const CKRNMachineData& data, QWidget* frame)
    : CKRNOrgzctStagePage(Templates()[1 + kInjectionPage], data, frame, kInjectionTable) {
    // Taken as typed: text that is no number is 0.
    BindPlainField(IDC_COOLING_TIME, MI_COOLING_TIME, KRNField::Time);
    BindPlainField(IDC_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position);
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position, "%6.2f");
    SetClock(IDC_CLOCK, kClockFormat, KRNDateOrder::MonthDayYear);
}

bool CMACHINE_ORGZCT_V8000AC_INJPAGE::OnInitDialog() {
    TakeWorkingValues();
    LayOutOverlays();
    FillGuard guard(this);
    ShowStages();
    SetDlgItemText(IDC_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
    SetDlgItemText(IDC_SUCK_BACK, FormatNumber(m_MachineData.GetSuckBackValue()));
    ShowNumber(IDC_VP_POSITION, m_MachineData.GetVPRamPosition());
    ShowStrokeTime();
    EnableDlgItem(IDC_STROKE_TIME, false);
    ShowUnfed(kInjectionUnfed);
    EnableDlgItem(IDC_UNFED_DISABLED, false);
    return true;
}

void CMACHINE_ORGZCT_V8000AC_INJPAGE::ShowStrokeTime() {
    SetDlgItemText(IDC_STROKE_TIME, KRNFormatValue("%f", KRNStrokeTime(m_MachineData, 1)));
}

void CMACHINE_ORGZCT_V8000AC_INJPAGE::LayOutOverlays() {
    const auto at = [this](int id) { return GetDlgItem(id); };
    if (QWidget* picture = at(IDC_STROKE_PICTURE)) {
        const QRect r = picture->geometry();
        if (QWidget* left = at(IDC_STROKE_MARK_LEFT)) left->move(r.left(), r.bottom() + 1 - left->height());
        if (QWidget* right = at(IDC_STROKE_MARK_RIGHT))
            right->move(r.right() + 1 - right->width(), r.bottom() + 1 - right->height());
    }
    const auto cover = [&](int overlay, int area) {
        QWidget* o = at(overlay);
        QWidget* a = at(area);
        if (o && a) o->setGeometry(a->geometry());
        return o;
    };
    if (QWidget* legend = cover(IDC_LEGEND, IDC_LEGEND_AREA))
        if (QWidget* above = at(IDC_LEGEND_ABOVE)) legend->stackUnder(above);
    cover(IDC_INJECTION_TITLE, IDC_INJECTION_BOX);
    cover(IDC_HOLD_TITLE, IDC_HOLD_BOX);
}

// ---- settings --------------------------------------------------------------------

CMACHINE_ORGZCT_V8000AC_SETTINGPAGE1::CMACHINE_ORGZCT_V8000AC_SETTINGPAGE1(const CKRNMachineData& data,
                                                                           QWidget* frame)
    : CKRNOrgzctStagePage(Templates()[1 + kSettingPage], data, frame, kSettingTable) {
    BindPlainField(IDC_SET_MELT, MI_MELT_TEMPERATURE, KRNField::Temperature);
    BindPlainField(IDC_SET_INJ_TIME, MI_INJECTION_TIME, KRNField::Time);
    BindPlainField(IDC_SET_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position);
    BindPlainField(IDC_SET_COOLING, MI_COOLING_TIME, KRNField::Time);
    SetClock(IDC_CLOCK, kClockFormat, KRNDateOrder::MonthDayYear);
}

bool CMACHINE_ORGZCT_V8000AC_SETTINGPAGE1::OnInitDialog() {
    TakeWorkingValues();
    FillGuard guard(this);
    ShowStages();
    SetDlgItemText(IDC_SET_MELT, FormatNumber(m_MachineData.GetMeltTemperature()));
    SetDlgItemText(IDC_SET_INJ_TIME, FormatNumber(m_MachineData.GetInjectionTime()));
    SetDlgItemText(IDC_SET_SUCK_BACK, FormatNumber(m_MachineData.GetSuckBackValue()));
    SetDlgItemText(IDC_SET_COOLING, FormatNumber(m_MachineData.GetCoolingTime()));
    return true;
}
