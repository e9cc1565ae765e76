#include "JswSyscom3000Pages.h"

#include "KRNNumberText.h"
#include "common/KRNStageRoutines.h"

using namespace JswSyscom3000;

namespace {
// One tonne-force in kN, as the screens take it.
constexpr double kKiloNewtonPerTonne = 9.8;

// The machine data block: diameter, MC_SPEC_3 and MC_SPEC_4 three times each, MC_SPEC_5 once.
void ShowMachineData(CKRNDialog& page, const CKRNMachineData& r, const int (&diameterFields)[3]) {
    for (int i = 0; i < 3; ++i) {
        page.SetDlgItemText(diameterFields[i], KRNFormat("%6.2f mm", r.GetMachine(MC_SCREW_DIAMETER)));
        page.SetDlgItemText(kSpec3Fields[i], KRNFormat("%6.2f MPa", r.GetMachine(MC_SPEC_3)));
        page.SetDlgItemText(kSpec4Fields[i], KRNFormat("%6.2f cm^3", r.GetMachine(MC_SPEC_4)));
    }
    page.SetDlgItemText(IDC_SPEC5, KRNFormat("%6.2f kN", r.GetMachine(MC_SPEC_5)));
}
}  // namespace

// ---- temperatures ---------------------------------------------------------------

CMACHINE_JSW_SYSCOM3000_TEMP::CMACHINE_JSW_SYSCOM3000_TEMP(const CKRNMachineData& data, QWidget* frame)
    : CKRNPanelPage(IDD_TEMP, data, frame) {
    SetClock(IDC_CLOCK);
    BindPlainField(IDC_MOLD_TEMPERATURE, MI_MOLD_TEMPERATURE, KRNField::Temperature, "%6.2f", 1.0,
                   [this](const QString& text) { SetDlgItemText(IDC_MOLD_MIRROR, text); });
    BindPlainField(IDC_MELT_TEMPERATURE, MI_MELT_TEMPERATURE, KRNField::Temperature, "%6.2f", 1.0,
                   [this](const QString& text) {
                       for (int id : kMeltMirrors) SetDlgItemText(id, text);
                   });
}

bool CMACHINE_JSW_SYSCOM3000_TEMP::OnInitDialog() {
    const QString mold = KRNFormat("%6.2f", m_MachineData.GetMoldTemperature());
    const QString melt = KRNFormat("%6.2f", m_MachineData.GetMeltTemperature());
    SetDlgItemText(IDC_MOLD_TEMPERATURE, mold);
    SetDlgItemText(IDC_MOLD_MIRROR, mold);
    SetDlgItemText(IDC_MELT_TEMPERATURE, melt);
    for (int id : kMeltMirrors) SetDlgItemText(id, melt);
    SetBitmap(IDC_MACHINE_PICTURE, IDB_MACHINE_PICTURE);
    ShowMachineData(*this, m_MachineData, kDiameterFieldsTemp);
    return true;
}

// ---- injection and hold -----------------------------------------------------------

CMACHINE_JSW_SYSCOM3000_INJ::CMACHINE_JSW_SYSCOM3000_INJ(const CKRNMachineData& data, QWidget* frame)
    : CKRNStagePage(IDD_INJ, data, frame, kInjectionTable, kStageRules) {
    SetClock(IDC_CLOCK);
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position, "%6.2f");
    BindPlainField(IDC_SUCK_BACK, MI_SUCK_BACK_VALUE, KRNField::Position, "%6.2f");
}

bool CMACHINE_JSW_SYSCOM3000_INJ::OnInitDialog() {
    ShowStages();
    ShowNumber(IDC_VP_POSITION, m_MachineData.GetVPRamPosition());
    ShowNumber(IDC_SUCK_BACK, m_MachineData.GetSuckBackValue());
    ShowMachineData(*this, m_MachineData, kDiameterFieldsInj);
    return true;
}

// ---- injection-compression and hold ----------------------------------------------

CMACHINE_JSW_SYSCOM3000_PACK::CMACHINE_JSW_SYSCOM3000_PACK(const CKRNMachineData& data, QWidget* frame)
    : CKRNStagePage(IDD_PACK, data, frame, kCompressionPageTable, kStageRules) {
    SetClock(IDC_CLOCK);
    for (int i = 0; i < 6; ++i) {
        OnChange(kCompressionForce[i], [this, i] { OnForceChanged(i); });
        OnChange(kCompressionTime[i], [this, i] { OnCompressionTimeChanged(i); });
    }
}

bool CMACHINE_JSW_SYSCOM3000_PACK::IsCompressionProcess() const {
    int process = 0;
    m_MachineData.GetProcessInfo(PI_PROCESS_VALUE, process);
    return process == kInjectionCompression;
}

double CMACHINE_JSW_SYSCOM3000_PACK::Force(int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetICMFData(stage, x, y);
    return y * m_dValue23 * 0.01 * kKiloNewtonPerTonne;
}

bool CMACHINE_JSW_SYSCOM3000_PACK::OnInitDialog() {
    ShowStages();
    m_MachineData.GetMachineData(MI_VALUE_21, m_dValue21);
    m_MachineData.GetMachineData(MI_VALUE_23, m_dValue23);
    m_nICMFCount = m_MachineData.GetProfileDataCount(MI_ICMF_PROFILE);

    ShowNumber(IDC_IC_VP_POSITION, m_MachineData.GetVPRamPosition());
    for (int i = 0; i < 4; ++i) {
        double value = 0;
        m_MachineData.GetMachineData(static_cast<KRNMACHINEITEM>(MI_VALUE_20 + i), value);
        ShowNumber(kICValues[i], value);
    }
    // Compression stages in page form, blanked from the profile's count on;
    // a process without compression feeds none of them.
    const int fed = IsCompressionProcess() ? m_nICMFCount : 0;
    for (int i = 0; i < 6; ++i) {
        double x = 0, y = 0;
        m_MachineData.GetICMFData(i, x, y);
        SetDlgItemText(kCompressionForce[i], i < fed ? KRNFormatValue("%6.2f", Force(i)) : QStringLiteral("0"));
        SetDlgItemText(kCompressionTime[i], i < fed ? KRNFormatValue("%6.2f", x) : QStringLiteral("0"));
    }
    return true;
}

// Compression stages change form with the hold stages, and take their share
// of MI_VALUE_21, the compression time, as hold stages do of the packing time.
void CMACHINE_JSW_SYSCOM3000_PACK::ToPageForm() {
    CKRNStagePage::ToPageForm();
    if (IsCompressionProcess()) KRNStages::ToPageForm(m_MachineData, MI_ICMF_PROFILE, MI_VALUE_21);
}

void CMACHINE_JSW_SYSCOM3000_PACK::ToRecordForm() {
    CKRNStagePage::ToRecordForm();
    if (IsCompressionProcess()) KRNStages::ToRecordForm(m_MachineData, MI_ICMF_PROFILE, MI_VALUE_21);
}

void CMACHINE_JSW_SYSCOM3000_PACK::OnForceChanged(int stage) {
    if (!IsCompressionProcess()) return;
    m_bErrorPending = !EditStageValue(kCompressionForce[stage], MI_ICMF_PROFILE, stage, m_dValue23,
                                      m_dValue23 * kKiloNewtonPerTonne, KRNField::Force, kKiloNewtonPerTonne);
    if (!m_bErrorPending) KRNStages::EndFlat(m_MachineData, MI_ICMF_PROFILE);
}

void CMACHINE_JSW_SYSCOM3000_PACK::OnCompressionTimeChanged(int stage) {
    if (!IsCompressionProcess()) return;
    m_bErrorPending = !EditStageTime(kCompressionTime[stage], MI_ICMF_PROFILE, stage);
}
