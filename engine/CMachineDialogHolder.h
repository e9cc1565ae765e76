#pragma once

// The record a panel works on, the panel to run, and the panels a host can
// keep open without a modal loop. The interface owns one holder for hosted
// panels; each modal request builds one of its own on the stack.

#include "KRNPanelData.h"

#include <map>
#include <memory>

class CKRNProMachineInterface;

// What the holder needs of a panel that runs hosted (without a modal loop).
class IKRNHostedPanel {
public:
    virtual ~IKRNHostedPanel() = default;
    virtual void SetMachineData(const CKRNMachineData& data) = 0;
    virtual CKRNMachineData GetMachineData() const = 0;
    // The panel calls owner->SetHasUpdate(true) on OK and closes itself.
    virtual void SetHost(CKRNProMachineInterface* owner) = 0;
    // Creates (or re-uses) the window without a parent and shows it.
    virtual bool CreateHosted() = 0;
};

class CMachineDialogHolder {
public:
    CMachineDialogHolder();
    ~CMachineDialogHolder();
    CMachineDialogHolder(const CMachineDialogHolder&) = delete;
    CMachineDialogHolder& operator=(const CMachineDialogHolder&) = delete;

    // The embedded panel of a controller type, constructed on first use (so a
    // holder built for a modal request costs nothing); null when the type has
    // no hosted panel.
    IKRNHostedPanel* HostedPanel(int controllerType);
    // The embedded panel if it exists already.
    IKRNHostedPanel* ExistingHostedPanel(int controllerType) const;

    CKRNPanelData m_MachineData;
    int m_nControllerType = -1;
    bool m_bResult = false;
    CKRNProMachineInterface* m_pOwner = nullptr;

private:
    std::map<int, std::unique_ptr<IKRNHostedPanel>> m_HostedPanels;
};
