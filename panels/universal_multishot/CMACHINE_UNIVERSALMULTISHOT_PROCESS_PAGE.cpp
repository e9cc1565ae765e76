#include "CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE.h"

#include "KRNNumberText.h"
#include "UniversalMultishotIds.h"
#include "common/KRNMachineScales.h"

#include <iterator>

using namespace UniversalMultishot;

CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE(const CKRNMachineData& data,
                                                                                   QWidget* frame)
    : CKRNStagePage(IDD_PROCESS, data, frame, kProcessTable) {
    // The full-stroke line repeats whatever the stage-1 position shows after
    // its edit, taken or put back.
    OnChange(kPosition[0], [this] { SetDlgItemText(IDC_FULL_STROKE, GetDlgItemText(kPosition[0])); });
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position);
    OnChange(IDC_INJECTION_PRESSURE, &CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::OnInjectionPressureChanged);
    // The stroke time is the machine's own figure: typing there does nothing.
    OnChange(IDC_STROKE_TIME, [] {});
    for (const ColorGroup& group : kColors) SetCtlColor(group.ids, group.text, group.background);
    SetDialogColor(0, 0);
}

bool CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::OnInitDialog() {
    for (std::size_t i = 0; i < std::size(kPictureStatics); ++i) SetBitmap(kPictureStatics[i], kPictures[i]);
    m_bErrorPending = false;

    FillGuard guard(this);
    SetDlgItemText(IDC_VP_POSITION, KRNFormatValue("%lg", m_MachineData.GetVPRamPosition()));
    SetDlgItemText(IDC_INJECTION_PRESSURE, KRNFormatValue("%lg", ShownInjectionPressure()));
    SetDlgItemText(IDC_STROKE_TIME, KRNFormatValue("%7.2lg", m_MachineData.GetCalcStrokeTime()));
    EnableDlgItem(IDC_STROKE_TIME, false);
    ShowStages();
    SetDlgItemText(IDC_FULL_STROKE, GetDlgItemText(kPosition[0]));
    EnableDlgItem(IDC_FULL_STROKE, false);
    ShowUnfed(kUnfed, true);
    return true;
}

double CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::ShownInjectionPressure() const {
    double x = 0, y = 0;
    if (m_MachineData.GetProfileDataCount(MI_P_PROFILE) > 0) m_MachineData.GetPData(0, x, y);
    return y * KRNInjectionPressure(m_MachineData) / 100.0;
}

void CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::OnInjectionPressureChanged() {
    const double stored = ShownInjectionPressure();
    const double fullScale = KRNInjectionPressure(m_MachineData);
    double pressure = 0, percent = 0;
    if (!ReadPlainField(IDC_INJECTION_PRESSURE, stored, pressure, KRNField::Pressure) ||
        !ToPercent(pressure, fullScale, percent, IDC_INJECTION_PRESSURE, stored)) {
        m_bErrorPending = true;
        return;
    }
    double x = 0, y = 0;
    if (m_MachineData.GetProfileDataCount(MI_P_PROFILE) > 0) m_MachineData.GetPData(0, x, y);
    m_MachineData.SetPData(0, x, percent);
    m_bErrorPending = false;
}

void CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::OnStageStored(const KRNStageFields& row, int) {
    if (row.kind != KRNField::Time) ShowStrokeTime();
}

void CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE::ShowStrokeTime() {
    SetDlgItemText(IDC_STROKE_TIME, KRNFormatValue("%7.2f", KRNStrokeTime(m_MachineData, 1)));
}
