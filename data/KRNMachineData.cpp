#include "KRNMachineData.h"

#include <algorithm>
#include <cmath>

namespace {
// A quarter of pi as the record has always used it; screens must agree to the digit.
constexpr double kQuarterPi = 0.7853975;
// The same with the factor from mm3 to cm3 folded in.
constexpr double kQuarterPiCm3 = 0.0007853975;
}  // namespace

CKRNMachineData::CKRNMachineData()
    : m_bReadOnly(false), m_eCustomMode(MACHINE_CUSTOM_MODE_NONE) {
    Initialize();
}

CKRNMachineData::CKRNMachineData(const CKRNMachineData& other) = default;
CKRNMachineData& CKRNMachineData::operator=(const CKRNMachineData& other) = default;
CKRNMachineData::~CKRNMachineData() = default;

void CKRNMachineData::Initialize() {
    m_dFillingTime = m_dInjectionTime = m_dPackingTime = m_dCoolingTime = 0.0;
    m_dCalcStrokeTime = m_dPackingPressure = m_dInjectionPressure = 0.0;
    m_dMeltTemperature = m_dMoldTemperature = 0.0;
    m_dMachineSpec6 = 0.0;
    m_strProcessName.clear();
    m_strMaterialName.clear();
    m_strProcessText.clear();
    for (double& v : m_dMachine) v = 0.0;
    m_dVPSwitchPercent = 98.0;
    m_dMaxRamPosition = m_dVPRamPosition = m_dValue19 = 0.0;
    m_nVPSwitchCtrl = 0;
    m_dSuckBackValue = m_dMaxFillingTime = 0.0;
    for (double& v : m_dValue20To23) v = 0.0;
    m_nProcessValue = 0;
    for (double& v : m_dInjectionVolume) v = 0.0;
    m_nPressureUnit = 0;
}

// ---- item access ---------------------------------------------------------

CKRNMachineData::Profile* CKRNMachineData::ProfileOf(KRNMACHINEITEM item) {
    switch (item) {
    case MI_FP_PROFILE: return &m_FPProfile;
    case MI_P_PROFILE: return &m_PProfile;
    case MI_PP_PROFILE: return &m_PPProfile;
    case MI_ICMF_PROFILE: return &m_ICMFProfile;
    default: return nullptr;
    }
}

const CKRNMachineData::Profile* CKRNMachineData::ProfileOf(KRNMACHINEITEM item) const {
    return const_cast<CKRNMachineData*>(this)->ProfileOf(item);
}

double* CKRNMachineData::DoubleOf(KRNMACHINEITEM item) {
    switch (item) {
    case MI_FILLING_TIME: return &m_dFillingTime;
    case MI_INJECTION_TIME: return &m_dInjectionTime;
    case MI_CALC_STROKE_TIME: return &m_dCalcStrokeTime;
    case MI_PACKING_TIME: return &m_dPackingTime;
    case MI_COOLING_TIME: return &m_dCoolingTime;
    case MI_PACKING_PRESSURE: return &m_dPackingPressure;
    case MI_INJECTION_PRESSURE: return &m_dInjectionPressure;
    case MI_MELT_TEMPERATURE: return &m_dMeltTemperature;
    case MI_MOLD_TEMPERATURE: return &m_dMoldTemperature;
    case MI_MAX_FILLING_TIME: return &m_dMaxFillingTime;
    case MI_SUCK_BACK_VALUE: return &m_dSuckBackValue;
    case MI_VP_RAM_POSITION: return &m_dVPRamPosition;
    case MI_VP_SWITCH_PERCENT: return &m_dVPSwitchPercent;
    case MI_MAX_RAM_POSITION: return &m_dMaxRamPosition;
    case MI_VALUE_19: return &m_dValue19;
    case MI_VALUE_20:
    case MI_VALUE_21:
    case MI_VALUE_22:
    case MI_VALUE_23: return &m_dValue20To23[item - MI_VALUE_20];
    case MI_INJECTION_VOLUME_1:
    case MI_INJECTION_VOLUME_2:
    case MI_INJECTION_VOLUME_3: return &m_dInjectionVolume[item - MI_INJECTION_VOLUME_1];
    default: return nullptr;
    }
}

void CKRNMachineData::SetMachineData(KRNMACHINEITEM item, double value) {
    if (double* p = DoubleOf(item)) *p = value;
}

void CKRNMachineData::SetMachineData(KRNMACHINEITEM item, int value) {
    if (item == MI_VP_SWITCH_CTRL) m_nVPSwitchCtrl = value;
}

void CKRNMachineData::SetMachineData(KRNMACHINEITEM item, bool value) {
    if (item == MI_READ_ONLY) m_bReadOnly = value;
}

void CKRNMachineData::SetMachineData(KRNMACHINEITEM, const std::string&) {
    // Hosts call this; no item of the record takes a text through it.
}

void CKRNMachineData::SetMachineData(KRNMACHINEITEM item, int index, double x, double y) {
    if (Profile* p = ProfileOf(item)) SetPoint(*p, index, x, y);
}

void CKRNMachineData::GetMachineData(KRNMACHINEITEM item, double& value) const {
    const double* p = const_cast<CKRNMachineData*>(this)->DoubleOf(item);
    value = p ? *p : 0.0;
}

void CKRNMachineData::GetMachineData(KRNMACHINEITEM item, int& value) const {
    value = item == MI_VP_SWITCH_CTRL ? m_nVPSwitchCtrl : 0;
}

void CKRNMachineData::GetProfileData(KRNMACHINEITEM item, int index, double& x, double& y) const {
    if (const Profile* p = ProfileOf(item)) GetPoint(*p, index, x, y);
}

int CKRNMachineData::GetProfileDataCount(KRNMACHINEITEM item) const {
    const Profile* p = ProfileOf(item);
    return p ? static_cast<int>(p->size()) : 0;
}

void CKRNMachineData::RemoveProfileData(KRNMACHINEITEM item, int index) {
    if (Profile* p = ProfileOf(item)) RemoveData(*p, index);
}

void CKRNMachineData::SetMachine(KRNMACHINE item, double value) {
    if (item >= MC_SCREW_DIAMETER && item <= MC_SPEC_5)
        m_dMachine[item] = value;
    else if (item == MC_SPEC_6)
        m_dMachineSpec6 = value;
}

double CKRNMachineData::GetMachine(KRNMACHINE item) const {
    if (item >= MC_SCREW_DIAMETER && item <= MC_SPEC_5) return m_dMachine[item];
    if (item == MC_SPEC_6) return m_dMachineSpec6;
    return 0.0;
}

void CKRNMachineData::SetProcessInfo(KRNPROCESSITEM item, const std::string& value) {
    switch (item) {
    case PI_PROCESS_NAME: m_strProcessName = value; break;
    case PI_MATERIAL_NAME: m_strMaterialName = value; break;
    case PI_PROCESS_TEXT: m_strProcessText = value; break;
    default: break;
    }
}

void CKRNMachineData::GetProcessInfo(KRNPROCESSITEM item, std::string& value) const {
    switch (item) {
    case PI_PROCESS_NAME: value = m_strProcessName; break;
    case PI_MATERIAL_NAME: value = m_strMaterialName; break;
    case PI_PROCESS_TEXT: value = m_strProcessText; break;
    default: break;
    }
}

void CKRNMachineData::SetProcessInfo(KRNPROCESSITEM item, int value) {
    if (item == PI_PROCESS_VALUE) m_nProcessValue = value;
}

void CKRNMachineData::GetProcessInfo(KRNPROCESSITEM item, int& value) const {
    if (item == PI_PROCESS_VALUE) value = m_nProcessValue;
}

// ---- profiles ------------------------------------------------------------

void CKRNMachineData::SetFPData(int i, double x, double y) { SetPoint(m_FPProfile, i, x, y); }
void CKRNMachineData::GetFPData(int i, double& x, double& y) const { GetPoint(m_FPProfile, i, x, y); }
void CKRNMachineData::SetPData(int i, double x, double y) { SetPoint(m_PProfile, i, x, y); }
void CKRNMachineData::GetPData(int i, double& x, double& y) const { GetPoint(m_PProfile, i, x, y); }
void CKRNMachineData::SetPPData(int i, double x, double y) { SetPoint(m_PPProfile, i, x, y); }
void CKRNMachineData::GetPPData(int i, double& x, double& y) const { GetPoint(m_PPProfile, i, x, y); }
void CKRNMachineData::SetICMFData(int i, double x, double y) { SetPoint(m_ICMFProfile, i, x, y); }
void CKRNMachineData::GetICMFData(int i, double& x, double& y) const { GetPoint(m_ICMFProfile, i, x, y); }

void CKRNMachineData::CheckXYProfileSize(Profile& profile, int index, double x, double y) {
    if (index < static_cast<int>(profile.size())) return;
    // Grow by half the capacity, as the record always has, rather than doubling.
    if (profile.size() == profile.capacity()) {
        const std::size_t cap = profile.capacity();
        profile.reserve(std::max(cap + cap / 2, profile.size() + 1));
    }
    profile.push_back({x, y});
}

// Callers fill profiles in index order from 0. An index beyond the end appends
// the point once and nothing more; a negative index changes nothing.
void CKRNMachineData::SetPoint(Profile& profile, int index, double x, double y) {
    if (index < 0) return;
    CheckXYProfileSize(profile, index, x, y);
    if (IsDataExists(index, profile)) profile[static_cast<std::size_t>(index)] = {x, y};
}

void CKRNMachineData::GetPoint(const Profile& profile, int index, double& x, double& y) {
    if (IsDataExists(index, profile)) {
        x = profile[static_cast<std::size_t>(index)].x;
        y = profile[static_cast<std::size_t>(index)].y;
    } else {
        x = 0.0;
        y = 0.0;
    }
}

bool CKRNMachineData::IsDataExists(int index, const Profile& profile) {
    return index >= 0 && index < static_cast<int>(profile.size());
}

void CKRNMachineData::RemoveData(Profile& profile, int index) {
    if (IsDataExists(index, profile)) profile.erase(profile.begin() + index);
}

// ---- calculations --------------------------------------------------------

double CKRNMachineData::CalcInjectionVolumeEndRamPosition() {
    double& diameter = m_dMachine[MC_SCREW_DIAMETER];
    // Deliberately repairs the record: a screw without diameter counts as 1 mm.
    if (!(diameter > 0.0)) diameter = 1.0;
    if (!(m_dMaxRamPosition > 0.0)) return 0.0;
    const double volume = m_dInjectionVolume[0] + m_dInjectionVolume[1] + m_dInjectionVolume[2];
    const double end = m_dMaxRamPosition - volume * 1000.0 / (diameter * kQuarterPi * diameter);
    return end < 0.0 ? 0.0 : end;
}

double CKRNMachineData::CalcStrokeTime(int mode) {
    const double d = m_dMachine[MC_SCREW_DIAMETER];
    const double rate = m_dMachine[MC_MAX_INJECTION_RATE];
    const double stroke = m_dMaxRamPosition;
    const double area = d * kQuarterPiCm3 * d;  // taken before the diameter repair below
    const double endPosition = CalcInjectionVolumeEndRamPosition();

    if (m_FPProfile.size() <= 1) return 0.1;

    double total = 0.0;
    for (std::size_t i = 0; i + 1 < m_FPProfile.size(); ++i) {
        const XYProfile& a = m_FPProfile[i];
        const XYProfile& b = m_FPProfile[i + 1];
        double s0 = stroke * a.x * 0.01;
        double s1 = stroke * b.x * 0.01;
        if (mode == 1) {
            if (b.x != 0.0 && b.y == 0.0) s1 = 0.0;
            if (a.x != 0.0 && a.y == 0.0) continue;
        }
        double r = rate * 0.01 * a.y;
        if (r < 0.001) r = 0.01;
        bool last = false;
        if (s0 > endPosition && endPosition > s1) {
            s1 = endPosition;
            last = true;
        }
        total += std::fabs((s0 - s1) * area / r);
        if (last) break;
    }
    return total < 0.1 ? 0.1 : total;
}
