#pragma once

/// \file
/// The process-and-machine record that a host hands to the controller panels
/// and gets back after OK. Plain C++: a host needs nothing but the standard
/// library to fill one. The member order is shared with hosts and is binding.

#include "KRNExport.h"

#include <string>
#include <vector>

/// One profile point. In the record's four profiles x and y are percentages
/// (see CKRNMachineData).
struct XYProfile {
    double x = 0.0;  ///< stroke or time, % (see CKRNMachineData)
    double y = 0.0;  ///< flow rate, pressure or force, %
};

/// Items addressed by GetMachineData / SetMachineData / the profile calls.
enum KRNMACHINEITEM : int {
    MI_FILLING_TIME = 0,
    MI_INJECTION_TIME = 1,
    MI_CALC_STROKE_TIME = 2,
    MI_PACKING_TIME = 3,
    MI_COOLING_TIME = 4,
    MI_PACKING_PRESSURE = 5,
    MI_INJECTION_PRESSURE = 6,
    MI_MELT_TEMPERATURE = 7,
    MI_MOLD_TEMPERATURE = 8,
    MI_FP_PROFILE = 9,
    MI_P_PROFILE = 10,
    MI_PP_PROFILE = 11,
    MI_MAX_FILLING_TIME = 12,
    MI_SUCK_BACK_VALUE = 13,
    MI_VP_SWITCH_CTRL = 14,
    MI_VP_RAM_POSITION = 15,
    MI_VP_SWITCH_PERCENT = 16,
    MI_MAX_RAM_POSITION = 17,
    MI_READ_ONLY = 18,
    MI_VALUE_19 = 19,
    MI_VALUE_20 = 20,
    MI_VALUE_21 = 21,
    MI_VALUE_22 = 22,
    MI_VALUE_23 = 23,
    MI_ICMF_PROFILE = 24,
    MI_INJECTION_VOLUME_1 = 25,
    MI_INJECTION_VOLUME_2 = 26,
    MI_INJECTION_VOLUME_3 = 27,
};

/// Texts and the process kind.
enum KRNPROCESSITEM : int {
    PI_PROCESS_NAME = 0,
    PI_MATERIAL_NAME = 1,
    PI_PROCESS_TEXT = 2,
    PI_PROCESS_VALUE = 3,  ///< 5 marks an injection-compression process
};

/// Machine values (GetMachine / SetMachine).
enum KRNMACHINE : int {
    MC_SCREW_DIAMETER = 0,  ///< mm
    MC_MAX_INJECTION_RATE = 1,  ///< cm3/s
    MC_SPEC_2 = 2,  ///< stroke limit of the machine, mm
    MC_SPEC_3 = 3,
    MC_SPEC_4 = 4,
    MC_SPEC_5 = 5,
    MC_SPEC_6 = 6,
};

/// The host's custom mode; the record only stores it. Values are the host's.
enum MACHINE_CUSTOM_MODE : int {
    MACHINE_CUSTOM_MODE_NONE = 0,
};

class CKRNPanelData;  // the panels' view of the record (not part of the public API)

/// One process-and-machine record: times in s, temperatures in °C, lengths in
/// mm, volumes in cm³; profiles are lists of percentage points. A value type:
/// copies share nothing, and no call reports failure.
class KRN_API CKRNMachineData {
public:
    using Profile = std::vector<XYProfile>;  ///< the points of one profile, first point first

    /// A record with every value 0, no texts, empty profiles, MI_VP_SWITCH_PERCENT 98.
    CKRNMachineData();
    ///@{
    /// Copies every value, text and profile point.
    CKRNMachineData(const CKRNMachineData& other);
    CKRNMachineData& operator=(const CKRNMachineData& other);
    ///@}
    ~CKRNMachineData();

    ///@{
    /// Item access. Setters ignore items of another kind or unknown values;
    /// getters yield 0 for them.
    void SetMachineData(KRNMACHINEITEM item, double value);
    void SetMachineData(KRNMACHINEITEM item, int value);
    void SetMachineData(KRNMACHINEITEM item, bool value);
    void GetMachineData(KRNMACHINEITEM item, double& value) const;
    void GetMachineData(KRNMACHINEITEM item, int& value) const;
    ///@}
    /// Accepted for every item and stores nothing: no item takes a text here.
    void SetMachineData(KRNMACHINEITEM item, const std::string& value);
    /// Sets point `index` of a profile item; an index equal to the count appends.
    void SetMachineData(KRNMACHINEITEM item, int index, double x, double y);
    /// (0, 0) for an index outside the profile; outputs untouched for a non-profile item.
    void GetProfileData(KRNMACHINEITEM item, int index, double& x, double& y) const;
    /// Points of a profile item; 0 for any other item.
    int GetProfileDataCount(KRNMACHINEITEM item) const;
    /// Removes point `index` of a profile item; nothing for an index outside it.
    void RemoveProfileData(KRNMACHINEITEM item, int index);

    ///@{
    /// The machine values; an unknown value reads 0 and stores nothing.
    void SetMachine(KRNMACHINE item, double value);
    double GetMachine(KRNMACHINE item) const;
    ///@}

    ///@{
    /// The three texts and PI_PROCESS_VALUE; an item of the other kind
    /// stores nothing and leaves `value` as it was.
    void SetProcessInfo(KRNPROCESSITEM item, const std::string& value);
    void GetProcessInfo(KRNPROCESSITEM item, std::string& value) const;
    void SetProcessInfo(KRNPROCESSITEM item, int value);
    void GetProcessInfo(KRNPROCESSITEM item, int& value) const;
    ///@}

    /// True when the panel must let the user change nothing (MI_READ_ONLY).
    bool IsReadOnly() const { return m_bReadOnly; }
    ///@{
    /// Code of the unit the host's pressures are given in; the host's own codes.
    int GetPressureUnit() const { return m_nPressureUnit; }
    void SetPressureUnit(int unit) { m_nPressureUnit = unit; }
    ///@}
    ///@{
    /// The host's custom mode, only stored.
    MACHINE_CUSTOM_MODE GetCustomMode() const { return m_eCustomMode; }
    void SetCustomMode(MACHINE_CUSTOM_MODE mode) { m_eCustomMode = mode; }
    ///@}
    ///@{
    /// Language of the panel texts ("zh-TW" picks traditional-Chinese screens where a panel has them).
    std::string GetLanguage() const { return m_strLanguage; }
    void SetLanguage(const std::string& language) { m_strLanguage = language; }
    ///@}

    /// Seconds the screw needs to travel the filling profile, stopping where the
    /// injection volume is delivered. Mode 1 skips stages of zero flow; never below 0.1.
    double CalcStrokeTime(int mode);

private:
    friend class CKRNPanelData;

    double GetFillingTime() const { return m_dFillingTime; }
    double GetInjectionTime() const { return m_dInjectionTime; }
    double GetPackingTime() const { return m_dPackingTime; }
    double GetCoolingTime() const { return m_dCoolingTime; }
    double GetCalcStrokeTime() const { return m_dCalcStrokeTime; }
    double GetPackingPressure() const { return m_dPackingPressure; }
    double GetInjectionPressure() const { return m_dInjectionPressure; }
    double GetMeltTemperature() const { return m_dMeltTemperature; }
    double GetMoldTemperature() const { return m_dMoldTemperature; }
    std::string GetProcessName() const { return m_strProcessName; }
    std::string GetMaterialName() const { return m_strMaterialName; }
    double GetMaxFillingTime() const { return m_dMaxFillingTime; }
    double GetSuckBackValue() const { return m_dSuckBackValue; }
    int GetVPSwitchCtrl() const { return m_nVPSwitchCtrl; }
    double GetVPRamPosition() const { return m_dVPRamPosition; }
    double GetMaxRamPosition() const { return m_dMaxRamPosition; }

    void SetFillingTime(double v) { m_dFillingTime = v; }
    void SetInjectionTime(double v) { m_dInjectionTime = v; }
    void SetPackingTime(double v) { m_dPackingTime = v; }
    void SetCoolingTime(double v) { m_dCoolingTime = v; }
    void SetCalcStrokeTime(double v) { m_dCalcStrokeTime = v; }
    void SetPackingPressure(double v) { m_dPackingPressure = v; }
    void SetInjectionPressure(double v) { m_dInjectionPressure = v; }
    void SetMeltTemperature(double v) { m_dMeltTemperature = v; }
    void SetMoldTemperature(double v) { m_dMoldTemperature = v; }
    void SetProcessName(const std::string& v) { m_strProcessName = v; }
    void SetMaterialName(const std::string& v) { m_strMaterialName = v; }

    void SetFPData(int index, double x, double y);
    void GetFPData(int index, double& x, double& y) const;
    void SetPData(int index, double x, double y);
    void GetPData(int index, double& x, double& y) const;
    void SetPPData(int index, double x, double y);
    void GetPPData(int index, double& x, double& y) const;
    void SetICMFData(int index, double x, double y);
    void GetICMFData(int index, double& x, double& y) const;

    static void CheckXYProfileSize(Profile& profile, int index, double x, double y);
    static bool IsDataExists(int index, const Profile& profile);
    static void RemoveData(Profile& profile, int index);
    static void SetPoint(Profile& profile, int index, double x, double y);
    static void GetPoint(const Profile& profile, int index, double& x, double& y);

    void Initialize();
    double CalcInjectionVolumeEndRamPosition();

    Profile* ProfileOf(KRNMACHINEITEM item);
    const Profile* ProfileOf(KRNMACHINEITEM item) const;
    double* DoubleOf(KRNMACHINEITEM item);

    // Layout shared with hosts: keep the order.
    double m_dFillingTime;
    double m_dInjectionTime;
    double m_dPackingTime;
    double m_dCoolingTime;
    double m_dCalcStrokeTime;
    double m_dPackingPressure;
    double m_dInjectionPressure;
    double m_dMeltTemperature;
    double m_dMoldTemperature;
    double m_dMachineSpec6;
    std::string m_strProcessName;
    std::string m_strMaterialName;
    std::string m_strProcessText;
    Profile m_FPProfile;
    Profile m_PProfile;
    Profile m_PPProfile;
    Profile m_ICMFProfile;
    double m_dMachine[6];  // MC_SCREW_DIAMETER .. MC_SPEC_5
    double m_dMaxRamPosition;
    double m_dVPRamPosition;
    double m_dValue19;
    int m_nVPSwitchCtrl;
    double m_dSuckBackValue;
    double m_dMaxFillingTime;
    bool m_bReadOnly;
    double m_dVPSwitchPercent;
    double m_dValue20To23[4];
    int m_nProcessValue;
    double m_dInjectionVolume[3];
    int m_nPressureUnit;
    std::string m_strLanguage;
    MACHINE_CUSTOM_MODE m_eCustomMode;
};
