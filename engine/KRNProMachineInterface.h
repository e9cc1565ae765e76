#pragma once

/// \file
/// Entry class of the controller panel module.

#include "KRNExport.h"
#include "KRNMachineData.h"

#include <cstdint>
#include <string>

class CMachineDialogHolder;

/// Entry class of the controller panel module. A host creates one, loads the
/// resource module with Initialize, and opens the panel of a named controller:
/// \code
/// CKRNProMachineInterface panels;
/// panels.Initialize("");                         // KRNPANEL.rcc beside the library
/// if (panels.KRNDoModal(record, "FANUC-A") && panels.IsOK())
///     record = panels.GetMachineData();
/// \endcode
/// Every call comes from the host's user-interface thread. No exception leaves
/// this class; failures are told by return values.
class KRN_API CKRNProMachineInterface {
public:
    CKRNProMachineInterface();
    ///@{
    /// A copy gets a holder of its own: two interfaces never share a hosted panel.
    CKRNProMachineInterface(const CKRNProMachineInterface& other);
    CKRNProMachineInterface& operator=(const CKRNProMachineInterface& other);
    ///@}
    virtual ~CKRNProMachineInterface();

    /// Loads the resource module and makes it current: an empty name means
    /// KRNPANEL.rcc beside the library; a name ending in ".dll" that is not found
    /// is tried with ".rcc". Returns 1 on success, 0 when the module is missing
    /// or damaged (cut short, failing its checksum or format version, lacking
    /// templates or strings); the current module is then left as it was.
    int Initialize(const std::string& moduleName);

    /// Shows the panel of controllerName modally on a copy of data. Returns 1
    /// when the name is a known controller (whatever the user did), 0 when not.
    virtual std::int64_t KRNDoModal(CKRNMachineData data, std::string controllerName);

    /// Opens the panel without a modal loop (Polypax, Fanuc S2000i and Universal
    /// Multishot controllers); other names only store the record and type.
    void CreateMachineDialog(CKRNMachineData data, std::string controllerName);

    /// The record as the last panel left it: after OK, the user's edits.
    CKRNMachineData GetMachineData() const;
    /// 1 when the last modal panel was closed with OK, else 0.
    int IsOK() const;
    /// Takes the hosted panel's record into GetMachineData and sets CanUpdate;
    /// a hosted panel calls it with true on its OK.
    void SetHasUpdate(bool value);
    /// True once a hosted panel was closed with OK: GetMachineData holds its record.
    bool CanUpdate() const;
    /// Controller type of the last name given (its number in the controller table), -1 for an unknown name.
    int GetControllerType() const;
    /// 1 when panels exist for machines of this maker (exact, case-sensitive).
    int IsSupportMachieInterface(const std::string& makerName) const;

private:
    bool CheckController(const std::string& name);
    std::int64_t CallMachineDLg(CKRNMachineData data);

    void* m_hSavedResource;
    int m_nInitResult;
    int m_nControllerType;
    CKRNMachineData m_MachineData;
    CMachineDialogHolder* m_pHolder;
    bool m_bResult;
    bool m_bHasUpdate;
};
