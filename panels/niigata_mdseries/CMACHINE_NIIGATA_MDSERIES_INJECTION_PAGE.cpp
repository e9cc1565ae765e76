#include "CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE.h"

#include "KRNNumberText.h"
#include "NiigataMdSeriesIds.h"
#include "common/KRNMachineScales.h"
#include "common/KRNStageRoutines.h"

#include <algorithm>
#include <iterator>

using namespace NiigataMdSeries;

CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE(const CKRNMachineData& data,
                                                                                   QWidget* frame)
    : CKRNStagePage(IDD_INJECTION, data, frame, kInjectionTable) {
    OnChange(IDC_INJECTION_PRESSURE, &CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::OnInjectionPressureChanged);
    BindPlainField(IDC_INJECTION_TIME, MI_INJECTION_TIME, KRNField::Time);
    BindPlainField(IDC_COOLING_TIME, MI_COOLING_TIME, KRNField::Time);
    BindPlainField(IDC_VP_POSITION, MI_VP_RAM_POSITION, KRNField::Position);
}

bool CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::OnInitDialog() {
    SetBitmap(IDC_SPEED_PICTURE, IDB_SPEED_PICTURE);
    SetBitmap(IDC_UNIT_PICTURE, IDB_UNIT_PICTURE);
    m_bErrorPending = false;
    FillGuard guard(this);
    SetDlgItemText(IDC_INJECTION_TIME, FormatNumber(m_MachineData.GetInjectionTime()));
    SetDlgItemText(IDC_COOLING_TIME, FormatNumber(m_MachineData.GetCoolingTime()));
    SetDlgItemText(IDC_VP_POSITION, FormatNumber(m_MachineData.GetVPRamPosition()));
    // The level of the first pressure stage stands for the whole profile; 0 without one.
    double x = 0, y = 0;
    m_MachineData.GetPData(0, x, y);
    SetDlgItemText(IDC_INJECTION_PRESSURE, FormatNumber(y * KRNInjectionPressure(m_MachineData) / 100.0));
    ShowStages();
    ShowUnfed(kInjectionUnfed);
    return true;
}

// Every point of the pressure profile takes the typed pressure: the injection
// pressure is one flat limit on this screen.
void CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::OnInjectionPressureChanged() {
    double x = 0, y = 0;
    m_MachineData.GetPData(0, x, y);
    const double fullScale = KRNInjectionPressure(m_MachineData);
    const double stored = y * fullScale / 100.0;
    double pressure = 0;
    if (!ReadPlainField(IDC_INJECTION_PRESSURE, stored, pressure, KRNField::Pressure)) return;
    if (!CheckFullScale(fullScale, IDC_INJECTION_PRESSURE, stored)) return;
    const double percent = pressure / fullScale * 100.0;
    for (int i = 0; i < m_MachineData.GetProfileDataCount(MI_P_PROFILE); ++i) {
        m_MachineData.GetPData(i, x, y);
        m_MachineData.SetMachineData(MI_P_PROFILE, i, x, percent);
    }
}

// A speed or a position moved the screw's profile: the injection time field
// shows the stroke time, and its own handler stores it.
void CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::OnStageStored(const KRNStageFields& row, int) {
    if (row.profile != MI_FP_PROFILE) return;
    SetDlgItemText(IDC_INJECTION_TIME, KRNFormatValue("%f", KRNStrokeTime(m_MachineData, 1)));
}

void CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::ToRecordForm() {
    ReadBackStages();
    CKRNStagePage::ToRecordForm();
}

// What the fields show goes back as a speed or hold edit would store it, but
// without checks or messages: the fields hold what was accepted or restored.
// A value that would give no finite percentage (no full scale) is left out.
void CMACHINE_NIIGATA_MDSERIES_INJECTION_PAGE::ReadBackStages() {
    const int speedStages =
        std::min<int>(static_cast<int>(std::size(kSpeed)), m_MachineData.GetProfileDataCount(MI_FP_PROFILE) - 1);
    const double fullSpeed = KRNMaxInjectionSpeed(m_MachineData);
    for (int i = 0; i < speedStages && KRNHasFullScale(fullSpeed); ++i) {
        const double position = KRNAtof(GetDlgItemText(kPosition[i]));
        const double percent = KRNAtof(GetDlgItemText(kSpeed[i])) / fullSpeed * 100.0;
        StoreStrokePoint(MI_FP_PROFILE, i, position, percent, KRNStages::TailRule);
    }
    const int holdStages =
        std::min<int>(static_cast<int>(std::size(kHoldTime)), m_MachineData.GetProfileDataCount(MI_PP_PROFILE) - 1);
    const double packing = KRNPackingPressure(m_MachineData);
    for (int i = 0; i < holdStages && KRNHasFullScale(packing); ++i) {
        const double time = KRNAtof(GetDlgItemText(kHoldTime[i]));
        const double percent = KRNAtof(GetDlgItemText(kHoldPressure[i])) / packing * 100.0;
        m_MachineData.SetMachineData(MI_PP_PROFILE, i, time, percent);
        KRNStages::EndFlat(m_MachineData, MI_PP_PROFILE);
    }
}
