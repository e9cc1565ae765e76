// krn-panel as a user runs it: scripts, record files, exit codes.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

#include <csignal>
#include <sys/resource.h>

namespace {

struct PanelRun {
    int code = -1;
    QString out, err;
};

// Runs krn-panel; `setUp` may change the process before it starts (another
// copy of the program, its folder, where its output goes).
PanelRun KrnPanel(const QStringList& args, const QByteArray& script = {},
                  const std::function<void(QProcess&)>& setUp = {}) {
    static QTemporaryDir dir;
    QStringList all = args;
    if (!script.isEmpty()) {
        QFile file(dir.filePath("script.txt"));
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(script);
        file.close();
        all << "--script" << file.fileName();
    }
    QProcess p;
    p.setProgram(QStringLiteral(KRN_PANEL_EXE));
    p.setArguments(all);
    if (setUp) setUp(p);
    p.start();
    p.waitForFinished(60000);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

QString WriteFile(const QTemporaryDir& dir, const char* name, const QByteArray& text) {
    QFile file(dir.filePath(name));
    file.open(QIODevice::WriteOnly);
    file.write(text);
    return file.fileName();
}

}  // namespace

TEST(KrnPanel, KeypadReachesEveryOutcome) {
    PanelRun ten = KrnPanel({"keypad", "2", "10"}, "expect 1366 2\nclick 1367\nclick 1377\nexpect 1366 10\nclick 1387\n");
    EXPECT_EQ(ten.code, 0) << qPrintable(ten.err);
    EXPECT_EQ(ten.out.trimmed(), "10");

    PanelRun over = KrnPanel({"keypad", "2", "5"}, "click 1367\nclick 1377\nclick 1387\ncancel\n");
    EXPECT_EQ(over.code, 0);
    EXPECT_TRUE(over.err.contains("message: Machine Panel: Can't more than 5")) << qPrintable(over.err);
    EXPECT_TRUE(over.out.isEmpty());

    PanelRun zero = KrnPanel({"keypad", "2", "5"}, "click 1370\nclick 1387\n");  // ends without ok: cancels
    EXPECT_TRUE(zero.err.contains("Can't smaller than 0"));
    EXPECT_TRUE(zero.out.isEmpty());
}

TEST(KrnPanel, ExpectationsAndBadScripts) {
    PanelRun wrong = KrnPanel({"keypad", "3", "5"}, "expect 1366 4\n");
    EXPECT_EQ(wrong.code, 1);
    EXPECT_TRUE(wrong.err.contains("shows \"3\", expected \"4\"")) << qPrintable(wrong.err);

    PanelRun missing = KrnPanel({"keypad", "3", "5"}, "click 4242\n");
    EXPECT_EQ(missing.code, 2);
    EXPECT_TRUE(missing.err.contains("4242"));

    PanelRun unknownAction = KrnPanel({"keypad", "3", "5"}, "# a comment\npush 1367\n");
    EXPECT_EQ(unknownAction.code, 2);
    EXPECT_TRUE(unknownAction.err.contains(":2: unknown action 'push'")) << qPrintable(unknownAction.err);
}

TEST(KrnPanel, ControllersWithoutPanelAndUnknownNames) {
    PanelRun panelless = KrnPanel({"FANUC-B"});
    EXPECT_EQ(panelless.code, 0) << qPrintable(panelless.err);
    EXPECT_TRUE(panelless.out.contains("\"MC_SCREW_DIAMETER\": 40")) << qPrintable(panelless.out);

    PanelRun unknown = KrnPanel({"fanuc-a"});
    EXPECT_EQ(unknown.code, 2);
    EXPECT_TRUE(unknown.err.contains("\"FANUC-A\"")) << qPrintable(unknown.err);
    EXPECT_TRUE(unknown.err.contains("\"CHEN HSONG-CDC2000\""));

    PanelRun help = KrnPanel({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.out.contains("expect ID TEXT"));
}

TEST(KrnPanel, RecordFilesRoundTripAndBadOnesAreNamed) {
    QTemporaryDir dir;
    const QString good = WriteFile(dir, "good.json",
                                   R"({"MC_SCREW_DIAMETER": 22, "MI_FP_PROFILE": [[100, 30], [0, 30]],
                                       "PI_PROCESS_VALUE": 5, "MI_READ_ONLY": true, "language": "zh-TW"})");
    PanelRun back = KrnPanel({"TACT", "--record", good});
    EXPECT_EQ(back.code, 0) << qPrintable(back.err);
    EXPECT_TRUE(back.out.contains("\"MC_SCREW_DIAMETER\": 22"));
    EXPECT_TRUE(back.out.contains("\"PI_PROCESS_VALUE\": 5"));
    EXPECT_TRUE(back.out.contains("\"language\": \"zh-TW\""));
    EXPECT_TRUE(back.out.contains("\"MI_READ_ONLY\": true"));

    const struct {
        const char* json;
        const char* named;
    } bad[] = {
        {R"({"MI_NOTHING": 1})", "MI_NOTHING"},
        {R"({"MI_FILLING_TIME": "fast"})", "MI_FILLING_TIME"},
        {R"({"MI_FP_PROFILE": [[1, 2, 3]]})", "MI_FP_PROFILE"},
        {R"({"MI_VP_SWITCH_CTRL": 1.5})", "MI_VP_SWITCH_CTRL"},
        {R"([1, 2])", "one JSON object"},
        {R"({"MI_READ_ONLY": 1})", "MI_READ_ONLY"},
    };
    for (const auto& b : bad) {
        PanelRun r = KrnPanel({"TACT", "--record", WriteFile(dir, "bad.json", b.json)});
        EXPECT_EQ(r.code, 2) << b.json;
        EXPECT_TRUE(r.err.contains(b.named)) << b.json << " -> " << qPrintable(r.err);
        EXPECT_TRUE(r.out.isEmpty());
    }
}

namespace {

// A copy of krn-panel in `dir` with `module` beside it as KRNPANEL.rcc (none
// when empty), run from that folder so no other module is found.
std::function<void(QProcess&)> BesideModule(const QTemporaryDir& dir, const QByteArray& module) {
    const QString exe = dir.filePath("krn-panel");
    if (!QFile::exists(exe)) QFile::copy(QStringLiteral(KRN_PANEL_EXE), exe);
    QFile::remove(dir.filePath("KRNPANEL.rcc"));
    if (!module.isNull()) WriteFile(dir, "KRNPANEL.rcc", module);
    return [exe, path = dir.path()](QProcess& p) {
        p.setProgram(exe);
        p.setWorkingDirectory(path);
    };
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

TEST(KrnPanel, AMissingOrDamagedResourceModuleIsNamedAndExitsTwo) {
    QTemporaryDir dir;
    const QByteArray module = ReadAll(QStringLiteral(KRN_TEST_RESOURCE_MODULE));
    ASSERT_FALSE(module.isEmpty());

    PanelRun whole = KrnPanel({"keypad", "2", "5"}, "expect 1366 2\n", BesideModule(dir, module));
    EXPECT_EQ(whole.code, 0) << qPrintable(whole.err);

    PanelRun missing = KrnPanel({"FANUC-A"}, {}, BesideModule(dir, QByteArray()));
    EXPECT_EQ(missing.code, 2);
    EXPECT_TRUE(missing.err.contains("resource module \"KRNPANEL.rcc\" was not found")) << qPrintable(missing.err);

    // A module cut short in copying exists: it is damaged, not missing.
    PanelRun cut = KrnPanel({"FANUC-A"}, {}, BesideModule(dir, module.left(module.size() / 2)));
    EXPECT_EQ(cut.code, 2);
    const QString shown = QFileInfo(dir.filePath("KRNPANEL.rcc")).canonicalFilePath();
    EXPECT_TRUE(cut.err.contains(shown + "\" is damaged: ")) << qPrintable(cut.err);
    EXPECT_FALSE(cut.err.contains("not found"));

    QByteArray flipped = module;
    flipped[100] = char(flipped[100] ^ 0x10);
    PanelRun bad = KrnPanel({"keypad", "2", "5"}, {}, BesideModule(dir, flipped));
    EXPECT_EQ(bad.code, 2);
    EXPECT_TRUE(bad.err.contains("is damaged: its contents do not match their SHA-256 checksum")) << qPrintable(bad.err);
    EXPECT_TRUE(bad.out.isEmpty());
}

TEST(KrnPanel, APanelWhoseTemplateIsMissingExitsTwo) {
    // A whole module that holds only the keypad: the keypad opens, the
    // S2000i frame cannot.
    QTemporaryDir dir;
    const QByteArray keypadOnly = ReadAll(QStringLiteral(KRN_TEST_MODULE_DIR "/keypad-only.rcc"));
    ASSERT_FALSE(keypadOnly.isEmpty());
    PanelRun keypad = KrnPanel({"keypad", "2", "5"}, "expect 1366 2\n", BesideModule(dir, keypadOnly));
    EXPECT_EQ(keypad.code, 0) << qPrintable(keypad.err);

    PanelRun panel = KrnPanel({"FANUC-A", "--out", dir.filePath("record.json")}, {}, BesideModule(dir, keypadOnly));
    EXPECT_EQ(panel.code, 2);
    EXPECT_TRUE(panel.err.contains("The dialog template 31157 is missing")) << qPrintable(panel.err);
    EXPECT_TRUE(panel.err.contains("krn-panel: the panel of \"FANUC-A\" could not open")) << qPrintable(panel.err);
    EXPECT_FALSE(QFile::exists(dir.filePath("record.json")));
}

TEST(KrnPanel, OutputThatCannotBeWrittenIsAnError) {
    PanelRun full = KrnPanel({"FANUC-B", "--out", "/dev/full"});
    EXPECT_EQ(full.code, 2);
    EXPECT_TRUE(full.err.contains("cannot write /dev/full: ")) << qPrintable(full.err);

    QTemporaryDir dir;
    const QString nowhere = dir.filePath("no-such-folder/record.json");
    PanelRun lost = KrnPanel({"FANUC-B", "--out", nowhere});
    EXPECT_EQ(lost.code, 2);
    EXPECT_TRUE(lost.err.contains("cannot write " + nowhere)) << qPrintable(lost.err);
    EXPECT_FALSE(QFile::exists(dir.filePath("no-such-folder")));

    PanelRun folder = KrnPanel({"FANUC-B", "--out", dir.path()});
    EXPECT_EQ(folder.code, 2);
    EXPECT_TRUE(folder.err.contains("it is a folder")) << qPrintable(folder.err);

    PanelRun toStdout = KrnPanel({"FANUC-B"}, {}, [](QProcess& p) { p.setStandardOutputFile("/dev/full"); });
    EXPECT_EQ(toStdout.code, 2);
    EXPECT_TRUE(toStdout.err.contains("cannot write to standard output")) << qPrintable(toStdout.err);

    PanelRun shot = KrnPanel({"keypad", "2", "5"}, "shot /dev/full\n");
    EXPECT_EQ(shot.code, 2);
    EXPECT_TRUE(shot.err.contains("script line 1: cannot write /dev/full")) << qPrintable(shot.err);

    PanelRun shotNowhere = KrnPanel({"keypad", "2", "5"}, "shot " + nowhere.toUtf8().replace("record.json", "k.png") + "\n");
    EXPECT_EQ(shotNowhere.code, 2);
    EXPECT_TRUE(shotNowhere.err.contains("cannot write")) << qPrintable(shotNowhere.err);
}

TEST(KrnPanel, AnOutFileIsEitherCompleteOrAsItWas) {
    QTemporaryDir dir;
    const QString out = WriteFile(dir, "record.json", "the old record\n");

    // A disk that takes no more than 64 bytes per file: the new record cannot
    // be written, and the old one must survive.
    PanelRun full = KrnPanel({"FANUC-B", "--out", out}, {}, [](QProcess& p) {
        p.setChildProcessModifier([] {
            const rlimit small{64, 64};
            setrlimit(RLIMIT_FSIZE, &small);
            signal(SIGXFSZ, SIG_IGN);
        });
    });
    EXPECT_EQ(full.code, 2);
    EXPECT_TRUE(full.err.contains("cannot write " + out)) << qPrintable(full.err);
    EXPECT_EQ(ReadAll(out), "the old record\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"record.json"});  // no half-written leftovers

    PanelRun done = KrnPanel({"FANUC-B", "--out", out});
    EXPECT_EQ(done.code, 0) << qPrintable(done.err);
    QJsonParseError error{};
    const QJsonDocument record = QJsonDocument::fromJson(ReadAll(out), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError);
    EXPECT_EQ(record["MC_SCREW_DIAMETER"].toDouble(), 40.0);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"record.json"});
}

// The example scripts run as their first line says and end with exit 0: every
// expectation in them holds for the panel as built.
TEST(KrnPanel, TheExampleScriptsRunAsWritten) {
    const QDir scripts(QStringLiteral(KRN_SOURCE_DIR "/examples/scripts"));
    const QStringList files = scripts.entryList({QStringLiteral("*.txt")}, QDir::Files);
    ASSERT_FALSE(files.isEmpty());
    for (const QString& name : files) {
        QFile file(scripts.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
        // "# run: CONTROLLER RECORD"; a controller name may hold blanks.
        QStringList run = QString::fromUtf8(file.readLine()).trimmed().split(QLatin1Char(' '));
        ASSERT_GE(run.size(), 4) << qPrintable(name) << ": the first line is '# run: CONTROLLER RECORD'";
        const QString record = run.takeLast();
        const QString controller = run.mid(2).join(QLatin1Char(' '));
        QTemporaryDir out;
        const PanelRun r = KrnPanel({controller, "--record", QStringLiteral(KRN_SOURCE_DIR "/") + record, "--script",
                                     file.fileName(), "--out", out.filePath("back.json")});
        EXPECT_EQ(r.code, 0) << qPrintable(name) << "\n" << qPrintable(r.err);
        EXPECT_TRUE(QFileInfo::exists(out.filePath("back.json"))) << qPrintable(name);
    }
}
