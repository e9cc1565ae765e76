// docs/record.schema.json against what krn-panel really reads and writes: a
// host developer who validates records with the schema must get the same
// answer as krn-panel gives, and what krn-panel writes must pass the schema.
// The schema is checked with Python's jsonschema; without it these tests skip.

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

namespace {

const QString kSchema = QStringLiteral(KRN_SOURCE_DIR "/docs/record.schema.json");

// Checks the schema itself, then every file named after it; prints one
// "ok" or "invalid: why" line per file, in order.
const char* const kValidator = R"(
import json, sys, jsonschema
schema = json.load(open(sys.argv[1], encoding="utf-8"))
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
for name in sys.argv[2:]:
    errors = sorted(validator.iter_errors(json.load(open(name, encoding="utf-8"))), key=str)
    print("ok" if not errors else "invalid: " + errors[0].message)
)";

// The first python3 that has jsonschema: the one on PATH, then the system's.
QString PythonWithJsonSchema() {
    QStringList candidates;
    const QString onPath = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (!onPath.isEmpty()) candidates << onPath;
    candidates << QStringLiteral("/usr/bin/python3");
    for (const QString& python : candidates) {
        QProcess p;
        p.start(python, {"-c", "import jsonschema"});
        if (p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0) return python;
    }
    return {};
}

#define REQUIRE_JSONSCHEMA(python)                                                                     \
    const QString python = PythonWithJsonSchema();                                                     \
    if (python.isEmpty())                                                                              \
        GTEST_SKIP() << "python3 with the jsonschema module is missing (Debian: python3-jsonschema); " \
                        "docs/record.schema.json is not checked";

// Verdict of the schema on each file: "ok" or "invalid: why".
std::vector<std::string> Validate(const QString& python, const QStringList& files) {
    QProcess p;
    p.start(python, QStringList{"-c", kValidator, kSchema} + files);
    p.waitForFinished(60000);
    EXPECT_EQ(p.exitCode(), 0) << "the schema is no valid JSON Schema: " << p.readAllStandardError().toStdString();
    std::vector<std::string> verdicts;
    for (const QByteArray& line : p.readAllStandardOutput().split('\n'))
        if (!line.isEmpty()) verdicts.push_back(line.toStdString());
    EXPECT_EQ(verdicts.size(), static_cast<size_t>(files.size()));
    return verdicts;
}

struct PanelExit {
    int code = -1;
    QString err;
};

PanelExit KrnPanel(const QStringList& args, const QTemporaryDir& dir, const QByteArray& script) {
    QFile file(dir.filePath("script.txt"));
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(script);
    file.close();
    QProcess p;
    p.start(QStringLiteral(KRN_PANEL_EXE), args + QStringList{"--script", file.fileName()});
    p.waitForFinished(60000);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardError())};
}

QString WriteFile(const QTemporaryDir& dir, const QString& name, const QByteArray& text) {
    QFile file(dir.filePath(name));
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(text);
    return file.fileName();
}

QStringList ExampleRecords() {
    QStringList files;
    const QDir dir(QStringLiteral(KRN_SOURCE_DIR "/examples/records"));
    for (const QString& name : dir.entryList({"*.json"}, QDir::Files, QDir::Name)) files << dir.filePath(name);
    return files;
}

}  // namespace

TEST(RecordSchema, ExampleRecordsAndEveryRecordKrnPanelWritesFollowIt) {
    REQUIRE_JSONSCHEMA(python);
    QTemporaryDir dir;
    const QStringList examples = ExampleRecords();
    ASSERT_FALSE(examples.isEmpty());

    // Each example through a stage panel and back after OK, and the sample
    // record krn-panel uses when it is given none; the lens record is an
    // injection-compression process, which the JSW panel converts both ways.
    QStringList written;
    const QStringList panels = {"JSW-Series", "SELOGICA", "Polypax-Series", "FANUC-A"};
    for (int i = 0; i <= examples.size(); ++i) {
        const QString out = dir.filePath(QStringLiteral("out-%1.json").arg(i));
        QStringList args{panels[i % panels.size()], "--out", out};
        if (i < examples.size()) args << "--record" << examples[i];
        const PanelExit run = KrnPanel(args, dir, "ok\n");
        ASSERT_EQ(run.code, 0) << args.join(' ').toStdString() << ": " << run.err.toStdString();
        written << out;
    }

    const QStringList all = examples + written;
    const std::vector<std::string> verdicts = Validate(python, all);
    for (size_t i = 0; i < verdicts.size(); ++i) EXPECT_EQ(verdicts[i], "ok") << all[static_cast<int>(i)].toStdString();

    // What krn-panel writes has every key the schema names and no other, so
    // a key added to either side alone shows here.
    QFile schemaFile(kSchema), outFile(written.first());
    ASSERT_TRUE(schemaFile.open(QIODevice::ReadOnly) && outFile.open(QIODevice::ReadOnly));
    const QStringList schemaKeys =
        QJsonDocument::fromJson(schemaFile.readAll()).object().value("properties").toObject().keys();
    EXPECT_EQ(QJsonDocument::fromJson(outFile.readAll()).object().keys().join(' ').toStdString(),
              schemaKeys.join(' ').toStdString());
}

TEST(RecordSchema, RefusesWhatKrnPanelRefusesAndTakesWhatItTakes) {
    REQUIRE_JSONSCHEMA(python);
    QTemporaryDir dir;
    // record text | the key krn-panel names, empty when it takes the record
    const std::map<QByteArray, QString> cases = {
        {R"({"MI_FILLING_TYME": 1.2})", "MI_FILLING_TYME"},
        {R"({"MI_FILLING_TIME": "1.2"})", "MI_FILLING_TIME"},
        {R"({"MI_FP_PROFILE": [[100, 40, 3]]})", "MI_FP_PROFILE"},
        {R"({"MI_FP_PROFILE": [[100, "40"]]})", "MI_FP_PROFILE"},
        {R"({"MI_FP_PROFILE": [100, 40]})", "MI_FP_PROFILE"},
        {R"({"MI_READ_ONLY": 1})", "MI_READ_ONLY"},
        {R"({"pressureUnit": 1.5})", "pressureUnit"},
        {R"({"MI_VP_SWITCH_CTRL": 3000000000})", "MI_VP_SWITCH_CTRL"},
        {R"({"PI_PROCESS_VALUE": -2147483648})", "PI_PROCESS_VALUE"},
        {R"({"language": 7})", "language"},
        {R"({"PI_PROCESS_NAME": null})", "PI_PROCESS_NAME"},
        // Taken: a whole number written with a fraction of zero, the 32-bit
        // bounds, an empty profile, an empty object.
        {R"({"pressureUnit": 2.0, "customMode": 2147483647, "MI_P_PROFILE": []})", ""},
        {R"({"PI_PROCESS_VALUE": -2147483647, "MI_READ_ONLY": true, "language": "zh-TW"})", ""},
        {R"({})", ""},
    };
    QStringList files;
    for (const auto& [text, key] : cases) files << WriteFile(dir, QStringLiteral("case-%1.json").arg(files.size()), text);
    const std::vector<std::string> verdicts = Validate(python, files);
    ASSERT_EQ(verdicts.size(), cases.size());

    size_t i = 0;
    for (const auto& [text, key] : cases) {
        const PanelExit run = KrnPanel({"FANUC-A", "--record", files[static_cast<int>(i)]}, dir, "cancel\n");
        if (key.isEmpty()) {
            EXPECT_EQ(verdicts[i], "ok") << text.toStdString();
            EXPECT_EQ(run.code, 0) << text.toStdString() << ": " << run.err.toStdString();
        } else {
            EXPECT_NE(verdicts[i], "ok") << text.toStdString();
            EXPECT_EQ(run.code, 2) << text.toStdString();
            EXPECT_TRUE(run.err.contains(key)) << text.toStdString() << ": " << run.err.toStdString();
        }
        ++i;
    }
}
