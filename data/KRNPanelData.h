#pragma once

// The panels' view of the record: the same object, with the named accessors
// that hosts do not see. Not installed; only the module's own code includes it.

#include "KRNMachineData.h"

class CKRNPanelData : public CKRNMachineData {
public:
    CKRNPanelData() = default;
    CKRNPanelData(const CKRNMachineData& data) : CKRNMachineData(data) {}  // NOLINT: implicit on purpose
    CKRNPanelData& operator=(const CKRNMachineData& data) {
        CKRNMachineData::operator=(data);
        return *this;
    }

    using CKRNMachineData::GetCalcStrokeTime;
    using CKRNMachineData::GetCoolingTime;
    using CKRNMachineData::GetFillingTime;
    using CKRNMachineData::GetInjectionPressure;
    using CKRNMachineData::GetInjectionTime;
    using CKRNMachineData::GetMaterialName;
    using CKRNMachineData::GetMaxFillingTime;
    using CKRNMachineData::GetMaxRamPosition;
    using CKRNMachineData::GetMeltTemperature;
    using CKRNMachineData::GetMoldTemperature;
    using CKRNMachineData::GetPackingPressure;
    using CKRNMachineData::GetPackingTime;
    using CKRNMachineData::GetProcessName;
    using CKRNMachineData::GetSuckBackValue;
    using CKRNMachineData::GetVPRamPosition;
    using CKRNMachineData::GetVPSwitchCtrl;

    using CKRNMachineData::SetCalcStrokeTime;
    using CKRNMachineData::SetCoolingTime;
    using CKRNMachineData::SetFillingTime;
    using CKRNMachineData::SetInjectionPressure;
    using CKRNMachineData::SetInjectionTime;
    using CKRNMachineData::SetMaterialName;
    using CKRNMachineData::SetMeltTemperature;
    using CKRNMachineData::SetMoldTemperature;
    using CKRNMachineData::SetPackingPressure;
    using CKRNMachineData::SetPackingTime;
    using CKRNMachineData::SetProcessName;

    using CKRNMachineData::GetFPData;
    using CKRNMachineData::GetICMFData;
    using CKRNMachineData::GetPData;
    using CKRNMachineData::GetPPData;
    using CKRNMachineData::SetFPData;
    using CKRNMachineData::SetICMFData;
    using CKRNMachineData::SetPData;
    using CKRNMachineData::SetPPData;

    using CKRNMachineData::CalcInjectionVolumeEndRamPosition;
    using CKRNMachineData::IsDataExists;
    using CKRNMachineData::RemoveData;

    // The whole profile of an item, for the stage routines; null for other items.
    using CKRNMachineData::ProfileOf;
};

static_assert(sizeof(CKRNPanelData) == sizeof(CKRNMachineData), "a view adds no data");
