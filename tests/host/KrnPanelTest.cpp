// krn-panel as a user runs it: scripts, record files, exit codes.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct PanelRun {
    int code = -1;
    QString out, err;
};

PanelRun KrnPanel(const QStringList& args, const QByteArray& script = {}) {
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
    p.start(QStringLiteral(KRN_PANEL_EXE), all);
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
