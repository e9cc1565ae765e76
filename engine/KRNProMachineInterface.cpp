#include "KRNProMachineInterface.h"

#include "CMachineDialogHolder.h"
#include "KRNPanelTable.h"
#include "KRNProcessMachineEngineApp.h"
#include "KRNResources.h"

#include <string_view>


CKRNProMachineInterface::CKRNProMachineInterface()
    : m_hSavedResource(nullptr),
      m_nInitResult(0),
      m_nControllerType(-1),
      m_pHolder(new CMachineDialogHolder),
      m_bResult(false),
      m_bHasUpdate(false) {}

CKRNProMachineInterface::CKRNProMachineInterface(const CKRNProMachineInterface& other)
    : m_hSavedResource(other.m_hSavedResource),
      m_nInitResult(other.m_nInitResult),
      m_nControllerType(other.m_nControllerType),
      m_MachineData(other.m_MachineData),
      m_pHolder(new CMachineDialogHolder),
      m_bResult(other.m_bResult),
      m_bHasUpdate(other.m_bHasUpdate) {}

CKRNProMachineInterface& CKRNProMachineInterface::operator=(const CKRNProMachineInterface& other) {
    if (this == &other) return *this;
    m_hSavedResource = other.m_hSavedResource;
    m_nInitResult = other.m_nInitResult;
    m_nControllerType = other.m_nControllerType;
    m_MachineData = other.m_MachineData;
    m_bResult = other.m_bResult;
    m_bHasUpdate = other.m_bHasUpdate;
    // The holder (and any hosted panel in it) stays this interface's own.
    return *this;
}

CKRNProMachineInterface::~CKRNProMachineInterface() {
    if (m_hSavedResource) KRNResources::SetCurrent(m_hSavedResource);
    delete m_pHolder;
}

int CKRNProMachineInterface::Initialize(const std::string& moduleName) {
    try {
        m_hSavedResource = KRNResources::Current();
        void* module = KRNResources::Load(moduleName.empty() ? std::string("KRNPANEL.dll") : moduleName);
        if (module) KRNResources::SetCurrent(module);
        m_nInitResult = module ? 1 : 0;
    } catch (...) {
        m_nInitResult = 0;
    }
    return m_nInitResult;
}

bool CKRNProMachineInterface::CheckController(const std::string& name) {
    for (const KRNControllerName& row : KRNControllerTable()) {
        if (name == row.name) {
            m_nControllerType = row.type;
            return true;
        }
    }
    m_nControllerType = -1;
    return false;
}

std::int64_t CKRNProMachineInterface::KRNDoModal(CKRNMachineData data, std::string controllerName) {
    try {
        if (!CheckController(controllerName)) return 0;
        m_MachineData = data;
        return CallMachineDLg(m_MachineData);
    } catch (...) {
        return 0;
    }
}

std::int64_t CKRNProMachineInterface::CallMachineDLg(CKRNMachineData data) {
    CMachineDialogHolder holder;
    holder.m_nControllerType = m_nControllerType;
    holder.m_MachineData = data;

    std::int64_t dispatched = 0;
    const int type = holder.m_nControllerType;
    if (type >= 0 && type < kKRNFirstPanelType) {
        dispatched = 1;  // known controller without a panel
    } else if (type >= kKRNFirstPanelType && type <= kKRNLastPanelType) {
        const KRNPanelEntry* panel = KRNFindPanel(type);
        if (panel && CKRNProcessMachineEngineApp::Instance().InitInstance()) {
            CKRNMachineData record = holder.m_MachineData;
            if (panel->runModal(record)) {
                holder.m_MachineData = record;
                holder.m_bResult = true;
            }
        }
        dispatched = 1;
    }

    if (dispatched) m_MachineData = holder.m_MachineData;
    m_bResult = holder.m_bResult;
    return dispatched ? 1 : 0;
}

void CKRNProMachineInterface::CreateMachineDialog(CKRNMachineData data, std::string controllerName) {
    try {
        if (!CheckController(controllerName)) return;
        m_MachineData = data;
        m_pHolder->m_nControllerType = m_nControllerType;
        m_pHolder->m_MachineData = data;
        m_pHolder->m_pOwner = this;

        if (!CKRNProcessMachineEngineApp::Instance().InitInstance()) return;
        if (IKRNHostedPanel* panel = m_pHolder->HostedPanel(m_nControllerType)) {
            panel->SetMachineData(m_pHolder->m_MachineData);
            panel->SetHost(this);
            panel->CreateHosted();
        }
    } catch (...) {
    }
}

void CKRNProMachineInterface::SetHasUpdate(bool value) {
    try {
        if (m_pHolder) {
            if (IKRNHostedPanel* panel = m_pHolder->ExistingHostedPanel(m_pHolder->m_nControllerType))
                m_pHolder->m_MachineData = panel->GetMachineData();
            m_MachineData = m_pHolder->m_MachineData;
        }
    } catch (...) {
    }
    m_bHasUpdate = value;
}

bool CKRNProMachineInterface::CanUpdate() const { return m_bHasUpdate; }

CKRNMachineData CKRNProMachineInterface::GetMachineData() const { return m_MachineData; }

int CKRNProMachineInterface::IsOK() const { return m_bResult ? 1 : 0; }

int CKRNProMachineInterface::GetControllerType() const { return m_nControllerType; }

int CKRNProMachineInterface::IsSupportMachieInterface(const std::string& makerName) const {
    const std::string_view makers[] = {
        "ARBURG", "Sodick Plustech", "FANUC", "NISSEI", "CLF Machinery", "FCS",
        "SUMITOMO", "JSW", "POLYPAX", "NIIGATA", "JSW Hiroshima Plant",
    };
    for (std::string_view maker : makers)
        if (makerName == maker) return 1;
    return 0;
}
