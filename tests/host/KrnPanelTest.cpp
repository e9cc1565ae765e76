// krn-panel as a user runs it: scripts, record files, exit codes.

#include "KRNPanelRun.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <csignal>
#include <sys/resource.h>

namespace {

// A copy of krn-panel in `dir` with `module` beside it as KRNPANEL.rcc (none
// when empty), run from that folder so no other module is found.
std::function<void(QProcess&)> BesideModule(const QTemporaryDir& dir, const QByteArray& module) {
    const QString exe = dir.filePath("krn-panel");
    if (!QFile::exists(exe)) QFile::copy(QStringLiteral(KRN_PANEL_EXE), exe);
    QFile::remove(dir.filePath("KRNPANEL.rcc"));
    if (!module.isNull()) KRNWriteFile(dir, "KRNPANEL.rcc", module);
    return [exe, path = dir.path()](QProcess& p) {
        p.setProgram(exe);
        p.setWorkingDirectory(path);
    };
}

}  // namespace

// Standard error holds the panel's messages and Qt's own lines apart: with
// every Qt debug category on, each line is marked, and the warning about a
// missing XDG_RUNTIME_DIR (harmless for the panels) is left out.
TEST(KrnPanel, KeypadReachesEveryOutcomeAndItsMessagesStandApartFromQts) {
    KRNPanelRun ten = KRNRunPanel({"keypad", "2", "10"}, "expect 1366 2\nclick 1367\nclick 1377\nexpect 1366 10\nclick 1387\n");
    EXPECT_EQ(ten.code, 0) << qPrintable(ten.err);
    EXPECT_EQ(ten.out.trimmed(), "10");

    KRNPanelRun over = KRNRunPanel({"keypad", "2", "5"}, "click 1367\nclick 1377\nclick 1387\ncancel\n", [](QProcess& p) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove("XDG_RUNTIME_DIR");
        env.insert("QT_LOGGING_RULES", "*.debug=true");
        p.setProcessEnvironment(env);
    });
    EXPECT_EQ(over.code, 0);
    EXPECT_TRUE(over.out.isEmpty());
    EXPECT_FALSE(over.err.contains("XDG_RUNTIME_DIR")) << qPrintable(over.err);
    EXPECT_TRUE(over.err.contains("qt: ")) << "no Qt output seen; the check below would prove nothing";
    QStringList messages;
    for (const QString& line : over.err.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        EXPECT_TRUE(line.startsWith("qt: ") || line.startsWith("message: ")) << qPrintable(line);
        if (line.startsWith("message: ")) messages << line;
    }
    EXPECT_EQ(messages, QStringList{"message: Machine Panel: Can't more than 5"});

    // Zero refused, then the script ends without ok: it cancels, nothing is printed.
    KRNPanelRun zero = KRNRunPanel({"keypad", "2", "5"}, "click 1370\nclick 1387\n");
    EXPECT_EQ(zero.code, 0) << qPrintable(zero.err);
    EXPECT_TRUE(zero.out.isEmpty());
}

TEST(KrnPanel, ControllersWithoutPanelAndUnknownNames) {
    KRNPanelRun panelless = KRNRunPanel({"FANUC-B"});
    EXPECT_EQ(panelless.code, 0) << qPrintable(panelless.err);
    EXPECT_TRUE(panelless.out.contains("\"MC_SCREW_DIAMETER\": 40")) << qPrintable(panelless.out);

    KRNPanelRun unknown = KRNRunPanel({"fanuc-a"});
    EXPECT_EQ(unknown.code, 2);
    EXPECT_TRUE(unknown.err.contains("\"FANUC-A\"")) << qPrintable(unknown.err);
    EXPECT_TRUE(unknown.err.contains("\"CHEN HSONG-CDC2000\""));

    KRNPanelRun help = KRNRunPanel({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.out.contains("expect ID TEXT") && help.out.contains("31145:1454")) << qPrintable(help.out);

    KRNPanelRun version = KRNRunPanel({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(QRegularExpression("^krn-panel \\d+\\.\\d+\\.\\d+\n$").match(version.out).hasMatch())
        << qPrintable(version.out);
}

// The JSW screens use 1454 twice: the frame's temperature key (31147) and
// the machine's shot volume on the temperature and injection pages.
TEST(KrnPanel, ANumberMeansTheControlThatFitsTheActionAndTemplateIdNamesOne) {
    KRNPanelRun r = KRNRunPanel({"JSW-Series"}, R"(expect 1454 251.00 cm^3  # the page's field, not the key
expect 31147:1454 TEMPERATURE
expect 31144:1454 251.00 cm^3
click 1455                # the injection page
expect 31145:1454 251.00 cm^3
click 1454                # a click means the frame's key: back to temperatures
expect 31144:1397 260.00
type 1397 250             # an edit: the page's melt temperature
expect 31144:1397 250
click 31147:IDOK
)");
    EXPECT_EQ(r.code, 0) << qPrintable(r.err);
    EXPECT_TRUE(r.out.contains("\"MI_MELT_TEMPERATURE\": 250")) << qPrintable(r.out);
}

// Whatever goes wrong in a script, the message starts with its file and line;
// an expectation that fails exits 1, a script that cannot run exits 2.
TEST(KrnPanel, ScriptErrorsNameTheFileAndLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"click 1455\nexpect 31144:1397 260.00\n", "script.txt:2: page 31144 is not the page shown"},
        {"# comment\n\nexpect 31999:1 x\n",
         "script.txt:3: template 31999 is not open (the open dialog holds 31147, 31144, 31145, 31146)"},
        {"type 31147:1454 5\n", "script.txt:1: template 31147 has no visible edit field 1454"},
        {"expect 31147:1397 x\n", "script.txt:1: template 31147 has no visible control 1397"},
        {"click 1397\n", "script.txt:1: no visible button 1397 on the open dialog"},
        {"click 4242\n", "script.txt:1: no visible button 4242 on the open dialog"},
        {"expect 1454 TEMPERATURE\n", "script.txt:1: control 1454 shows \"251.00 cm^3\", expected \"TEMPERATURE\""},
        {"ok\nexpect 31145: 1\n", "script.txt:2: 'expect' needs a control number or TEMPLATE:ID, not '31145:'"},
        {"# a comment\npush 1367\n", "script.txt:2: unknown action 'push'"},
        {"key space\n", "script.txt:1: key takes enter, escape, tab or shift-tab, not 'space'"},
    };
    for (const auto& [script, said] : cases) {
        KRNPanelRun r = KRNRunPanel({"JSW-Series"}, script);
        EXPECT_EQ(r.code, QByteArray(said).contains("expected \"") ? 1 : 2) << script;
        EXPECT_TRUE(r.err.contains(said)) << script << " -> " << qPrintable(r.err);
        EXPECT_TRUE(r.out.isEmpty()) << script;
    }
}

// CLF stage positions are checked when the field is left. Tab and Shift+Tab
// leave it as on a desktop: 42 mm (not above stage 2's position) is refused
// and the field restored; 50 mm is taken, as 50 / 120 mm = 41.67 % of the
// stroke. OK pressed straight after typing leaves the field too, as a click
// on the button does.
TEST(KrnPanel, TabAndShiftTabLeaveTheFieldAsOnADesktop) {
    const QString record = QStringLiteral(KRN_SOURCE_DIR "/examples/records/housing-40mm.json");
    for (const char* leaving : {"key shift-tab\n", "key tab\n", ""}) {
        const QByteArray script = QByteArray("click 1336\nkeys 1382 42\nkey tab\nexpect 1382 72.00\nkeys 1382 50\n") +
                                  leaving + "ok\n";
        KRNPanelRun r = KRNRunPanel({"CLF-Series", "--record", record}, script);
        EXPECT_EQ(r.code, 0) << qPrintable(r.err);
        EXPECT_EQ(r.err.count("message: "), 1) << qPrintable(r.err);
        EXPECT_TRUE(r.err.contains("message: Machine Panel: Please enter a value not above 102.00 and not below 42.00."))
            << qPrintable(r.err);
        EXPECT_NEAR(QJsonDocument::fromJson(r.out.toUtf8())["MI_FP_PROFILE"][2][0].toDouble(), 100.0 * 50 / 120, 1e-9)
            << leaving;
    }
}

// Records of the wrong shape or type per key are refused in RecordSchemaTest.
TEST(KrnPanel, ARecordFileComesBackWhole) {
    QTemporaryDir dir;
    const QString good = KRNWriteFile(dir, "good.json",
                                      R"({"MC_SCREW_DIAMETER": 22, "MI_FP_PROFILE": [[100, 30], [0, 30]],
                                          "PI_PROCESS_VALUE": 5, "MI_READ_ONLY": true, "language": "zh-TW"})");
    KRNPanelRun back = KRNRunPanel({"TACT", "--record", good});
    EXPECT_EQ(back.code, 0) << qPrintable(back.err);
    for (const char* kept : {"\"MC_SCREW_DIAMETER\": 22", "\"PI_PROCESS_VALUE\": 5", "\"language\": \"zh-TW\"", "\"MI_READ_ONLY\": true"})
        EXPECT_TRUE(back.out.contains(kept)) << kept << " -> " << qPrintable(back.out);
}

// A copy of krn-panel beside a module that is missing, cut short in copying
// (damaged, not missing), altered, or holds only the keypad's template.
TEST(KrnPanel, AMissingOrDamagedResourceModuleOrTemplateIsNamedAndExitsTwo) {
    QTemporaryDir dir;
    const QByteArray module = KRNReadFile(QStringLiteral(KRN_TEST_RESOURCE_MODULE));
    const QByteArray keypadOnly = KRNReadFile(QStringLiteral(KRN_TEST_MODULE_DIR "/keypad-only.rcc"));
    ASSERT_FALSE(module.isEmpty());
    ASSERT_FALSE(keypadOnly.isEmpty());

    QByteArray flipped = module;
    flipped[100] = char(flipped[100] ^ 0x10);
    const std::pair<QByteArray, QString> broken[] = {
        {QByteArray(), "resource module \"KRNPANEL.rcc\" was not found"},
        {module.left(module.size() / 2), QFileInfo(dir.path()).canonicalFilePath() + "/KRNPANEL.rcc\" is damaged: "},
        {flipped, "is damaged: its contents do not match their SHA-256 checksum"},
    };
    for (const auto& [bytes, said] : broken) {
        KRNPanelRun r = KRNRunPanel({"keypad", "2", "5"}, {}, BesideModule(dir, bytes));
        EXPECT_EQ(r.code, 2);
        EXPECT_TRUE(r.err.contains(said)) << qPrintable(r.err);
        EXPECT_TRUE(r.out.isEmpty());
    }

    KRNPanelRun keypad = KRNRunPanel({"keypad", "2", "5"}, "expect 1366 2\n", BesideModule(dir, keypadOnly));
    EXPECT_EQ(keypad.code, 0) << qPrintable(keypad.err);
    KRNPanelRun panel = KRNRunPanel({"FANUC-A", "--out", dir.filePath("record.json")}, {}, BesideModule(dir, keypadOnly));
    EXPECT_EQ(panel.code, 2);
    EXPECT_TRUE(panel.err.contains("The dialog template 31157 is missing")) << qPrintable(panel.err);
    EXPECT_TRUE(panel.err.contains("krn-panel: the panel of \"FANUC-A\" could not open")) << qPrintable(panel.err);
    EXPECT_FALSE(QFile::exists(dir.filePath("record.json")));
}

// An out file is either complete or as it was; every place that cannot be
// written is named.
TEST(KrnPanel, OutputThatCannotBeWrittenIsAnErrorAndLeavesTheOldRecord) {
    QTemporaryDir dir;
    const QString nowhere = dir.filePath("no-such-folder/record.json");
    const QString shotNowhere = dir.filePath("no-such-folder/k.png");
    const struct {
        QStringList args;
        QByteArray script;
        QString said;
    } cases[] = {
        {{"FANUC-B", "--out", "/dev/full"}, {}, "cannot write /dev/full: "},
        {{"FANUC-B", "--out", nowhere}, {}, "cannot write " + nowhere},
        {{"FANUC-B", "--out", dir.path()}, {}, "it is a folder"},
        {{"CLF-Series", "--dump-json", nowhere}, {}, "cannot write " + nowhere},
        {{"keypad", "2", "5"}, "shot /dev/full\n", "script.txt:1: cannot write /dev/full"},
        {{"keypad", "2", "5"}, "shot " + shotNowhere.toUtf8() + "\n", "cannot write " + shotNowhere},
    };
    for (const auto& c : cases) {
        KRNPanelRun r = KRNRunPanel(c.args, c.script);
        EXPECT_EQ(r.code, 2) << qPrintable(c.args.join(' '));
        EXPECT_TRUE(r.err.contains(c.said)) << qPrintable(r.err);
    }
    EXPECT_FALSE(QFile::exists(dir.filePath("no-such-folder")));
    KRNPanelRun toStdout = KRNRunPanel({"FANUC-B"}, {}, [](QProcess& p) { p.setStandardOutputFile("/dev/full"); });
    EXPECT_EQ(toStdout.code, 2);
    EXPECT_TRUE(toStdout.err.contains("cannot write to standard output")) << qPrintable(toStdout.err);

    // A disk that takes no more than 64 bytes per file: the old record survives.
    const QString out = KRNWriteFile(dir, "record.json", "the old record\n");
    KRNPanelRun full = KRNRunPanel({"FANUC-B", "--out", out}, {}, [](QProcess& p) {
        p.setChildProcessModifier([] {
            const rlimit small{64, 64};
            setrlimit(RLIMIT_FSIZE, &small);
            signal(SIGXFSZ, SIG_IGN);
        });
    });
    EXPECT_EQ(full.code, 2);
    EXPECT_TRUE(full.err.contains("cannot write " + out)) << qPrintable(full.err);
    EXPECT_EQ(KRNReadFile(out), "the old record\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"record.json"});  // no half-written leftovers

    KRNPanelRun done = KRNRunPanel({"FANUC-B", "--out", out});
    EXPECT_EQ(done.code, 0) << qPrintable(done.err);
    EXPECT_EQ(QJsonDocument::fromJson(KRNReadFile(out))["MC_SCREW_DIAMETER"].toDouble(), 40.0);
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
        const KRNPanelRun r = KRNRunPanel({controller, "--record", QStringLiteral(KRN_SOURCE_DIR "/") + record, "--script",
                                     file.fileName(), "--out", out.filePath("back.json")});
        EXPECT_EQ(r.code, 0) << qPrintable(name) << "\n" << qPrintable(r.err);
        EXPECT_TRUE(QFileInfo::exists(out.filePath("back.json"))) << qPrintable(name);
    }
}
