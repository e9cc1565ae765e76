// The entry class as a host uses it: controller names, modal requests without
// panels, makers, resource modules, copies.

#include "KRNPanelDriver.h"
#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "KRNResources.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace {

// The 40 mm record is known by its 6 s of packing.
double Packing(const CKRNMachineData& r) { return KRNItem(r, MI_PACKING_TIME); }

// Restores the process-wide current resource module after a test changed it.
class ResourceModuleGuard {
public:
    ResourceModuleGuard() : m_module(KRNResources::Current()) {}
    ~ResourceModuleGuard() { KRNResources::SetCurrent(m_module); }

private:
    void* m_module;
};

}  // namespace

// A name with a panel opens it (cancelled at once); the others answer without one.
TEST(ControllerTable, EveryNameHasItsType) {
    const std::pair<const char*, int> table[] = {
        {"TACT", 0}, {"NC9300T", 1}, {"FCS-3000", 2}, {"FANUC-Series", 3}, {"Sodick-TRD6", 4}, {"SUMITOMO-450HD", 5},
        {"SELOGICA", 6}, {"CLF-Series", 7}, {"JSW-Series", 8}, {"NIIGATA-Series", 9}, {"Polypax-Series", 10},
        {"FANUC-A", 11}, {"FANUC-B", 4}, {"Taichung machinery-Series", 12}, {"MITSUBISHI-Electric", 13},
        {"MITSUBISHI-Hydraulic", 14}, {"UMS-Series", 15}, {"CHEN HSONG-CDC2000", 16}};
    KRNMessageCapture messages;
    for (const auto& [name, type] : table) {
        CKRNProMachineInterface panels;
        bool opened = false;
        KRNTest::WhileOpen([&] { EXPECT_EQ(panels.KRNDoModal(KRN40mmRecord(), name), 1) << name; },
                           [&] { opened = KRNDriver::TopDialog() != nullptr; });
        EXPECT_EQ(opened, type >= 6) << name;
        EXPECT_EQ(panels.GetControllerType(), type) << name;
        EXPECT_EQ(panels.IsOK(), 0) << name;
        EXPECT_EQ(Packing(panels.GetMachineData()), 6.0) << name;
    }
}

// An unknown name takes neither the record nor the type of the name before.
TEST(ControllerTable, NamesMatchExactly) {
    CKRNProMachineInterface panels;
    ASSERT_EQ(panels.KRNDoModal(KRN40mmRecord(), "TACT"), 1);
    CKRNMachineData other;
    other.SetMachineData(MI_PACKING_TIME, 9.0);
    for (const char* name : {"fanuc-a", "FANUC-A ", " FANUC-A", "FANUC-AB", "FANUC", "", "Taichung machinery-series",
                             "CHEN HSONG-CDC2000\n", "NO-SUCH-MACHINE"}) {
        EXPECT_EQ(panels.KRNDoModal(other, name), 0) << '"' << name << '"';
        EXPECT_EQ(panels.GetControllerType(), -1);
        EXPECT_EQ(Packing(panels.GetMachineData()), 6.0);
    }
}

TEST(ControllerTable, HostedRequestForAPanellessControllerStoresTheRecordOnly) {
    CKRNProMachineInterface panels;
    panels.CreateMachineDialog(KRN40mmRecord(), "SELOGICA");
    EXPECT_EQ(panels.GetControllerType(), 6);
    EXPECT_EQ(Packing(panels.GetMachineData()), 6.0);
    EXPECT_FALSE(panels.CanUpdate());
    panels.SetHasUpdate(false);  // no hosted panel: the stored record stays
    EXPECT_EQ(Packing(panels.GetMachineData()), 6.0);
    panels.SetHasUpdate(true);
    EXPECT_TRUE(panels.CanUpdate());
}

TEST(Makers, ListedMakersOnlyExactly) {
    CKRNProMachineInterface panels;
    for (const char* maker : {"ARBURG", "Sodick Plustech", "FANUC", "NISSEI", "CLF Machinery", "FCS", "SUMITOMO",
                              "JSW", "POLYPAX", "NIIGATA", "JSW Hiroshima Plant"})
        EXPECT_EQ(panels.IsSupportMachieInterface(maker), 1) << maker;
    for (const char* maker : {"Jsw", "jsw", "JSW ", "", "CHEN HSONG", "MITSUBISHI", "Arburg"})
        EXPECT_EQ(panels.IsSupportMachieInterface(maker), 0) << maker;
}

TEST(Copies, CopyKeepsRecordAndTypeWithAHolderOfItsOwn) {
    CKRNProMachineInterface a;
    a.KRNDoModal(KRN40mmRecord(), "FCS-3000");
    CKRNProMachineInterface b(a);
    EXPECT_EQ(b.GetControllerType(), 2);
    EXPECT_EQ(Packing(b.GetMachineData()), 6.0);
    CKRNProMachineInterface c;
    c = a;
    c = c;
    EXPECT_EQ(c.GetControllerType(), 2);
    b.KRNDoModal(CKRNMachineData(), "TACT");
    EXPECT_EQ(Packing(a.GetMachineData()), 6.0);  // independent records
}

// An empty name and the library's own name both find the module beside the library.
TEST(ResourceModule, EmptyOrDllNameLoadsTheModuleBesideTheLibrary) {
    ResourceModuleGuard guard;
    for (const char* name : {"", "KRNPANEL.dll"}) {
        KRNResources::SetCurrent(nullptr);
        CKRNProMachineInterface panels;
        EXPECT_EQ(panels.Initialize(name), 1) << name;
        EXPECT_TRUE(KRNResources::CurrentPath().endsWith("KRNPANEL.rcc")) << name;
        EXPECT_FALSE(LoadResourceString(61713).isEmpty());
        EXPECT_FALSE(LoadResourceString(327).isEmpty());
        EXPECT_TRUE(LoadResourceString(4).isEmpty());
    }
}

// Damaged modules are refused in tests/toolkit/ResourceModuleTest.cpp.
TEST(ResourceModule, AMissingModuleOrAFolderKeepsTheCurrentOne) {
    ResourceModuleGuard guard;
    void* before = KRNResources::Current();
    QTemporaryDir dir;
    for (const std::string& name : {std::string("NOSUCH.rcc"), std::string("NOSUCH.dll"), dir.path().toStdString()}) {
        CKRNProMachineInterface panels;
        EXPECT_EQ(panels.Initialize(name), 0) << name;
        EXPECT_EQ(KRNResources::Current(), before) << name;
    }
    EXPECT_FALSE(LoadResourceString(61713).isEmpty());
}

TEST(ResourceModule, DestructionRestoresTheModuleThatWasCurrent) {
    ResourceModuleGuard guard;
    void* before = KRNResources::Current();
    QTemporaryDir dir;
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(KRN_TEST_RESOURCE_MODULE), dir.filePath("OTHER.rcc")));
    {
        CKRNProMachineInterface panels;
        EXPECT_EQ(panels.Initialize(dir.filePath("OTHER.rcc").toStdString()), 1);
        EXPECT_NE(KRNResources::Current(), before);
    }
    EXPECT_EQ(KRNResources::Current(), before);
}
