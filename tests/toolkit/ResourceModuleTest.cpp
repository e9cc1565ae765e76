// The resource module as a host meets it on disk: whole, missing, cut short,
// damaged at random, of another format version, or lacking what the panels
// need. A module that exists and fails its checks is reported damaged, gives 0
// from Initialize and leaves the current module as it was; nothing crashes.

#include "KRNModuleStamp.h"
#include "KRNProMachineInterface.h"
#include "KRNResources.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString WriteModule(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size()) return {};
    return file.fileName();
}

QByteArray BuiltModule() { return ReadAll(QString::fromUtf8(KRN_TEST_RESOURCE_MODULE)); }

QString FixtureModule(const char* name) {
    return QStringLiteral(KRN_TEST_MODULE_DIR "/%1.rcc").arg(QLatin1String(name));
}

// Initializes from `path` as a host would; the current module must not move.
struct Attempt {
    int result;
    QString problem;
    bool currentKept;
};
Attempt Initialize(const QString& path) {
    void* before = KRNResources::Current();
    int result = 0;
    {
        CKRNProMachineInterface panels;
        result = panels.Initialize(path.toStdString());
        if (result) KRNResources::SetCurrent(before);
    }
    return {result, KRNResources::LastProblem(), KRNResources::Current() == before};
}

QString Damaged(const QString& path) {
    return QStringLiteral("the resource module \"%1\" is damaged: ").arg(QFileInfo(path).canonicalFilePath());
}

}  // namespace

TEST(ResourceModule, TheBuiltModuleIsSealedAndWhole) {
    const QByteArray module = BuiltModule();
    qsizetype resources = 0;
    EXPECT_EQ(KRNModuleStamp::Check(module, resources), QString());
    EXPECT_EQ(resources, module.size() - KRNModuleStamp::kSize);
    EXPECT_TRUE(module.startsWith("qres"));
}

// Seeded so that a failure names a case that can be run again. Every byte
// of the file is covered: the resources by the checksum, the stamp field by field.
TEST(ResourceModule, RandomDamageIsRefusedAsDamaged) {
    const QByteArray good = BuiltModule();
    ASSERT_GT(good.size(), KRNModuleStamp::kSize);
    std::mt19937 random(20240611);
    auto anywhere = [&](qsizetype below) { return std::uniform_int_distribution<qsizetype>(0, below - 1)(random); };
    QTemporaryDir dir;
    const char* kinds[] = {"flipped bytes", "cut short", "zeroed range"};
    for (int n = 0; n < 90; ++n) {
        QByteArray bad = good;
        const int kind = n % 3;
        while (bad == good) {
            if (kind == 0) {
                for (int k = 1 + n % 4; k > 0; --k) bad[anywhere(bad.size())] ^= char(1 + anywhere(255));
            } else if (kind == 1) {
                bad.truncate(anywhere(good.size()));
            } else {
                const qsizetype at = anywhere(bad.size());
                const qsizetype length = std::min<qsizetype>(1 + anywhere(512), bad.size() - at);
                std::fill_n(bad.data() + at, length, '\0');
            }
        }
        const QString path = WriteModule(dir, QStringLiteral("damaged-%1.rcc").arg(n), bad);
        const Attempt a = Initialize(path);
        EXPECT_EQ(a.result, 0) << "case " << n << ", " << kinds[kind];
        EXPECT_TRUE(a.problem.startsWith(Damaged(path))) << "case " << n << ", " << kinds[kind] << ": " << qPrintable(a.problem);
        EXPECT_TRUE(a.currentKept) << "case " << n;
    }
    EXPECT_FALSE(LoadResourceString(327).isEmpty());  // the module in use still answers
}

TEST(ResourceModule, AFileCutShortIsDamagedNotMissing) {
    const QByteArray good = BuiltModule();
    QTemporaryDir dir;
    for (qsizetype length : {qsizetype(0), qsizetype(3), good.size() / 2, good.size() - 1}) {
        const QString path = WriteModule(dir, QStringLiteral("cut-%1.rcc").arg(length), good.left(length));
        const Attempt a = Initialize(path);
        EXPECT_EQ(a.result, 0) << length;
        EXPECT_TRUE(a.problem.startsWith(Damaged(path))) << qPrintable(a.problem);
        EXPECT_TRUE(a.currentKept);
    }
    const Attempt missing = Initialize(dir.filePath("NOSUCH.rcc"));
    EXPECT_EQ(missing.problem, QStringLiteral("the resource module \"%1\" was not found").arg(dir.filePath("NOSUCH.rcc")));
    const Attempt dll = Initialize(QStringLiteral("NOSUCH.dll"));
    EXPECT_TRUE(dll.problem.startsWith("the resource module \"NOSUCH.rcc\" was not found beside the engine library"))
        << qPrintable(dll.problem);
}

TEST(ResourceModule, TheStampSaysWhatIsWrong) {
    const QByteArray good = BuiltModule();
    const qsizetype stamp = good.size() - KRNModuleStamp::kSize;
    QTemporaryDir dir;
    auto problemOf = [&](const char* name, const QByteArray& bytes) {
        const QString path = WriteModule(dir, QString::fromLatin1(name), bytes);
        const Attempt a = Initialize(path);
        EXPECT_EQ(a.result, 0) << name;
        EXPECT_TRUE(a.problem.startsWith(Damaged(path))) << qPrintable(a.problem);
        return a.problem.mid(Damaged(path).size());
    };

    QByteArray newer = good;  // a module of a later build
    qToBigEndian<quint32>(2, newer.data() + stamp + 8);
    EXPECT_EQ(problemOf("newer.rcc", newer), "its stamp says format version 2; this engine reads version 1");

    QByteArray grown = good;
    grown.insert(100, "extra");
    EXPECT_EQ(problemOf("grown.rcc", grown), QStringLiteral("it holds %1 bytes of resources where its stamp says %2")
                                                 .arg(stamp + 5)
                                                 .arg(stamp));

    EXPECT_EQ(problemOf("unsealed.rcc", good.left(stamp)), "it does not end in a KRNPANEL stamp (cut short, or no resource module)");
    EXPECT_EQ(problemOf("text.rcc", KRNModuleStamp::Seal("some text, sealed but no resources")),
              "its stamp seals no Qt resources");

    const Attempt folder = Initialize(dir.path());
    EXPECT_TRUE(folder.problem.endsWith("is damaged: it is no regular file")) << qPrintable(folder.problem);
}

// Small sealed modules made by the build from tests/toolkit/modules.
TEST(ResourceModule, AModuleLackingWhatThePanelsNeedIsRefused) {
    const struct {
        const char* module;
        const char* problem;
    } lacking[] = {
        {"form-missing", "it lacks forms/31157.ui, which its manifest names"},
        {"no-strings", "it has no string table"},
        {"no-manifest", "it has no manifest"},
    };
    for (const auto& l : lacking) {
        const QString path = FixtureModule(l.module);
        ASSERT_TRUE(QFile::exists(path)) << l.module;
        const Attempt a = Initialize(path);
        EXPECT_EQ(a.result, 0) << l.module;
        EXPECT_EQ(a.problem, Damaged(path) + l.problem);
        EXPECT_TRUE(a.currentKept);
    }

    // What a module holds is its own business, as long as its manifest agrees,
    // and what another module held, once read, never shows through it.
    void* before = KRNResources::Current();
    ASSERT_FALSE(KRNResources::Form(31157).isEmpty());
    ASSERT_FALSE(KRNResources::Bitmap(736).isNull());
    void* keypadOnly = KRNResources::Load(FixtureModule("keypad-only").toStdString());
    ASSERT_NE(keypadOnly, nullptr) << qPrintable(KRNResources::LastProblem());
    KRNResources::SetCurrent(keypadOnly);
    EXPECT_FALSE(KRNResources::Form(31138).isEmpty());
    EXPECT_TRUE(KRNResources::Form(31157).isEmpty());
    EXPECT_TRUE(KRNResources::Bitmap(736).isNull());
    KRNResources::SetCurrent(before);
}

// The module is read once and checked; what happens to the file afterwards
// cannot reach the resources in use.
TEST(ResourceModule, ALoadedModuleOutlivesDamageToItsFile) {
    QTemporaryDir dir;
    const QString path = WriteModule(dir, QStringLiteral("KRNPANEL.rcc"), BuiltModule());
    void* before = KRNResources::Current();
    void* module = KRNResources::Load(path.toStdString());
    ASSERT_NE(module, nullptr) << qPrintable(KRNResources::LastProblem());
    KRNResources::SetCurrent(module);
    const QByteArray form = KRNResources::Form(31157);
    ASSERT_FALSE(form.isEmpty());

    QFile file(path);
    ASSERT_TRUE(file.resize(100));
    EXPECT_EQ(KRNResources::Form(31157), form);
    EXPECT_EQ(KRNResources::String(327), "Machine Panel");
    EXPECT_EQ(KRNResources::Load(path.toStdString()), module);  // the same file, the same module
    KRNResources::SetCurrent(before);
}
