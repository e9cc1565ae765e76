// docs/record.schema.json against what krn-panel really reads and writes: a
// host developer who validates records with the schema must get the same
// answer as krn-panel gives, and what krn-panel writes must pass the schema.
// The schema's verdicts need Python's jsonschema; without it only krn-panel's
// side is checked and the tests report themselves skipped.

#include "KRNPanelRun.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <map>
#include <optional>

namespace {

const QString kSchema = QStringLiteral(KRN_SOURCE_DIR "/docs/record.schema.json");
const char* const kNoJsonSchema =
    "python3 with the jsonschema module is missing (Debian: python3-jsonschema); docs/record.schema.json is not checked";

// Checks the schema itself, then prints one "ok" or "invalid: why" line per
// file named after it, in order; exits 77 without jsonschema.
const char* const kValidator = R"(
import json, sys
try:
    import jsonschema
except ImportError:
    sys.exit(77)
schema = json.load(open(sys.argv[1], encoding="utf-8"))
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
for name in sys.argv[2:]:
    errors = sorted(validator.iter_errors(json.load(open(name, encoding="utf-8"))), key=str)
    print("ok" if not errors else "invalid: " + errors[0].message)
)";

// The schema's verdict on each file, from the first python3 that has
// jsonschema (the one on PATH, then the system's); none without one.
std::optional<std::vector<std::string>> Validate(const QStringList& files) {
    for (const QString& python : {QStandardPaths::findExecutable("python3"), QStringLiteral("/usr/bin/python3")}) {
        QProcess p;
        if (!python.isEmpty()) p.start(python, QStringList{"-c", kValidator, kSchema} + files);
        if (python.isEmpty() || !p.waitForFinished(60000) || p.exitCode() == 77) continue;
        EXPECT_EQ(p.exitCode(), 0) << "the schema is no valid JSON Schema: " << p.readAllStandardError().toStdString();
        std::vector<std::string> verdicts;
        for (const QByteArray& line : p.readAllStandardOutput().split('\n'))
            if (!line.isEmpty()) verdicts.push_back(line.toStdString());
        EXPECT_EQ(verdicts.size(), static_cast<size_t>(files.size()));
        verdicts.resize(static_cast<size_t>(files.size()), "no verdict");
        return verdicts;
    }
    return std::nullopt;
}

}  // namespace

TEST(RecordSchema, ExampleRecordsAndEveryRecordKrnPanelWritesFollowIt) {
    QTemporaryDir dir;
    const QDir folder(QStringLiteral(KRN_SOURCE_DIR "/examples/records"));
    QStringList examples;
    for (const QString& name : folder.entryList({"*.json"}, QDir::Files, QDir::Name)) examples << folder.filePath(name);
    ASSERT_FALSE(examples.isEmpty());

    // Each example through a stage panel and back after OK, and the sample
    // record krn-panel uses when it is given none; the lens record is an
    // injection-compression process, which the JSW panel converts both ways.
    QStringList written;
    const QStringList panels = {"JSW-Series", "SELOGICA", "Polypax-Series", "FANUC-A"};
    for (int i = 0; i <= examples.size(); ++i) {
        written << dir.filePath(QStringLiteral("out-%1.json").arg(i));
        QStringList args{panels[i % panels.size()], "--out", written.last()};
        if (i < examples.size()) args << "--record" << examples[i];
        const KRNPanelRun run = KRNRunPanel(args, "ok\n");
        ASSERT_EQ(run.code, 0) << args.join(' ').toStdString() << ": " << run.err.toStdString();
    }

    // What krn-panel writes has every key the schema names and no other, so
    // a key added to either side alone shows here.
    const QStringList schemaKeys = QJsonDocument::fromJson(KRNReadFile(kSchema))["properties"].toObject().keys();
    EXPECT_EQ(QJsonDocument::fromJson(KRNReadFile(written.first())).object().keys().join(' ').toStdString(),
              schemaKeys.join(' ').toStdString());

    const QStringList all = examples + written;
    const auto verdicts = Validate(all);
    if (!verdicts) GTEST_SKIP() << kNoJsonSchema;
    for (int i = 0; i < all.size(); ++i) EXPECT_EQ((*verdicts)[i], "ok") << all[i].toStdString();
}

TEST(RecordSchema, RefusesWhatKrnPanelRefusesAndTakesWhatItTakes) {
    QTemporaryDir dir;
    // record text | what krn-panel names, empty when it takes the record
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
        {R"([1, 2])", "one JSON object"},
        // Taken: a whole number written with a fraction of zero, the 32-bit
        // bounds, an empty profile, an empty object.
        {R"({"pressureUnit": 2.0, "customMode": 2147483647, "MI_P_PROFILE": []})", ""},
        {R"({"PI_PROCESS_VALUE": -2147483647, "MI_READ_ONLY": true, "language": "zh-TW"})", ""},
        {R"({})", ""},
    };
    QStringList files;
    for (const auto& [text, key] : cases) {
        files << KRNWriteFile(dir, QStringLiteral("case-%1.json").arg(files.size()), text);
        const KRNPanelRun run = KRNRunPanel({"FANUC-A", "--record", files.last()}, "cancel\n");
        EXPECT_EQ(run.code, key.isEmpty() ? 0 : 2) << text.toStdString() << ": " << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(key)) << text.toStdString() << ": " << run.err.toStdString();
    }

    const auto verdicts = Validate(files);
    if (!verdicts) GTEST_SKIP() << kNoJsonSchema;
    size_t i = 0;
    for (const auto& [text, key] : cases) {
        EXPECT_EQ((*verdicts)[i] == "ok", key.isEmpty()) << text.toStdString() << ": " << (*verdicts)[i];
        ++i;
    }
}
