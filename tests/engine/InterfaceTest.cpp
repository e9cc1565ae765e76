// The entry class as a host uses it: controller names, modal requests without
// panels, makers, resource modules, copies.

#include "KRNProMachineInterface.h"
#include "KRNResources.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace {

CKRNMachineData Sample() {
    CKRNMachineData r;
    r.SetMachine(MC_SCREW_DIAMETER, 22.0);
    r.SetMachineData(MI_PACKING_TIME, 3.5);
    r.SetMachineData(MI_FP_PROFILE, 0, 100.0, 40.0);
    r.SetMachineData(MI_FP_PROFILE, 1, 0.0, 40.0);
    r.SetProcessInfo(PI_MATERIAL_NAME, std::string("PP"));
    return r;
}

double Packing(const CKRNMachineData& r) {
    double v = 0;
    r.GetMachineData(MI_PACKING_TIME, v);
    return v;
}

// Restores the process-wide current resource module after a test changed it.
class ResourceModuleGuard {
public:
    ResourceModuleGuard() : m_module(KRNResources::Current()) {}
    ~ResourceModuleGuard() { KRNResources::SetCurrent(m_module); }

private:
    void* m_module;
};

}  // namespace

TEST(ControllerTable, EveryNameHasItsType) {
    const std::pair<const char*, int> table[] = {
        {"TACT", 0}, {"NC9300T", 1}, {"FCS-3000", 2}, {"FANUC-Series", 3}, {"Sodick-TRD6", 4},
        {"SUMITOMO-450HD", 5}, {"FANUC-B", 4}};
    for (const auto& [name, type] : table) {
        CKRNProMachineInterface panels;
        EXPECT_EQ(panels.KRNDoModal(Sample(), name), 1) << name;
        EXPECT_EQ(panels.GetControllerType(), type) << name;
        EXPECT_EQ(panels.IsOK(), 0) << name;
        EXPECT_EQ(Packing(panels.GetMachineData()), 3.5) << name;
    }
}

TEST(ControllerTable, NamesMatchExactly) {
    for (const char* name : {"fanuc-a", "FANUC-A ", " FANUC-A", "FANUC-AB", "FANUC", "", "Taichung machinery-series",
                             "CHEN HSONG-CDC2000\n"}) {
        CKRNProMachineInterface panels;
        EXPECT_EQ(panels.KRNDoModal(Sample(), name), 0) << '"' << name << '"';
        EXPECT_EQ(panels.GetControllerType(), -1);
        EXPECT_EQ(Packing(panels.GetMachineData()), 0.0);  // the record was not taken
    }
}

TEST(ControllerTable, UnknownNameLeavesRecordAndResult) {
    CKRNProMachineInterface panels;
    ASSERT_EQ(panels.KRNDoModal(Sample(), "TACT"), 1);
    CKRNMachineData other;
    other.SetMachineData(MI_PACKING_TIME, 9.0);
    EXPECT_EQ(panels.KRNDoModal(other, "NO-SUCH-MACHINE"), 0);
    EXPECT_EQ(Packing(panels.GetMachineData()), 3.5);
    EXPECT_EQ(panels.GetControllerType(), -1);
}

TEST(ControllerTable, HostedRequestForAPanellessControllerStoresTheRecordOnly) {
    CKRNProMachineInterface panels;
    panels.CreateMachineDialog(Sample(), "SELOGICA");
    EXPECT_EQ(panels.GetControllerType(), 6);
    EXPECT_EQ(Packing(panels.GetMachineData()), 3.5);
    EXPECT_FALSE(panels.CanUpdate());
    panels.SetHasUpdate(false);  // no hosted panel: the stored record stays
    EXPECT_EQ(Packing(panels.GetMachineData()), 3.5);
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
    a.KRNDoModal(Sample(), "FCS-3000");
    CKRNProMachineInterface b(a);
    EXPECT_EQ(b.GetControllerType(), 2);
    EXPECT_EQ(Packing(b.GetMachineData()), 3.5);
    CKRNProMachineInterface c;
    c = a;
    c = c;
    EXPECT_EQ(c.GetControllerType(), 2);
    b.KRNDoModal(CKRNMachineData(), "TACT");
    EXPECT_EQ(Packing(a.GetMachineData()), 3.5);  // independent records
}

TEST(ResourceModule, EmptyNameLoadsTheDefaultModuleBesideTheLibrary) {
    ResourceModuleGuard guard;
    KRNResources::SetCurrent(nullptr);
    CKRNProMachineInterface panels;
    EXPECT_EQ(panels.Initialize(""), 1);
    EXPECT_TRUE(KRNResources::CurrentPath().endsWith("KRNPANEL.rcc"));
    EXPECT_FALSE(LoadResourceString(61713).isEmpty());
    EXPECT_FALSE(LoadResourceString(327).isEmpty());
    EXPECT_TRUE(LoadResourceString(4).isEmpty());
}

TEST(ResourceModule, DllNameFallsBackToTheResourceFile) {
    ResourceModuleGuard guard;
    CKRNProMachineInterface panels;
    EXPECT_EQ(panels.Initialize("KRNPANEL.dll"), 1);
    EXPECT_TRUE(KRNResources::CurrentPath().endsWith("KRNPANEL.rcc"));
}

TEST(ResourceModule, MissingOrCorruptModuleKeepsTheCurrentOne) {
    ResourceModuleGuard guard;
    void* before = KRNResources::Current();
    QTemporaryDir dir;
    const QString corrupt = dir.filePath("broken.rcc");
    QFile file(corrupt);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is not a resource module, only some text that looks nothing like one");
    file.close();
    for (const std::string& name : {std::string("NOSUCH.rcc"), std::string("NOSUCH.dll"),
                                    corrupt.toStdString(), dir.path().toStdString()}) {
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
