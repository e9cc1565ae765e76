// krn-panel --dump-json as a tester's script reads it: every page of a panel
// with its visible numbered controls, their state and what they are called.

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Dump {
    int code = -1;
    QJsonArray pages;
    QString err;
};

Dump DumpJson(QStringList args) {
    args << "--dump-json" << "-";
    QProcess p;
    p.start(QStringLiteral(KRN_PANEL_EXE), args);
    p.waitForFinished(60000);
    Dump d{p.exitCode(), {}, QString::fromUtf8(p.readAllStandardError())};
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(p.readAllStandardOutput(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    d.pages = doc.object().value("pages").toArray();
    return d;
}

QJsonObject Page(const Dump& d, int templateId) {
    for (const QJsonValue& page : d.pages)
        if (page["template"].toInt() == templateId) return page.toObject();
    return {};
}

QJsonObject Control(const QJsonObject& page, int id) {
    for (const QJsonValue& c : page["controls"].toArray())
        if (c["id"].toInt() == id) return c.toObject();
    return {};
}

}  // namespace

// The JSW screens: the frame 31147, the temperature page 31144 shown first,
// then injection 31145 and packing 31146. Injection speed stage 1 is 1378.
TEST(KrnPanelDumpJson, EveryPageWithItsFieldsInOrder) {
    QTemporaryDir dir;
    QFile record(dir.filePath("record.json"));
    ASSERT_TRUE(record.open(QIODevice::WriteOnly));
    record.write(R"({"MC_SCREW_DIAMETER": 40})");
    record.close();
    const Dump d = DumpJson({"JSW-Series", "--record", record.fileName()});
    ASSERT_EQ(d.code, 0) << qPrintable(d.err);
    ASSERT_EQ(d.pages.size(), 4);

    const QJsonObject frame = d.pages[0].toObject();
    EXPECT_EQ(frame["template"].toInt(), 31147);
    EXPECT_EQ(frame["class"].toString(), "CMACHINE_JSW_SYSCOM3000_DLG");
    EXPECT_TRUE(frame["frame"].toBool());
    EXPECT_EQ(Control(frame, 1454)["kind"].toString(), "button");  // the frame's temperature key

    const QJsonObject temperature = Page(d, 31144), injection = Page(d, 31145);
    EXPECT_TRUE(temperature["shown"].toBool());
    EXPECT_FALSE(injection["shown"].toBool());
    EXPECT_FALSE(injection["frame"].toBool());
    EXPECT_EQ(injection["class"].toString(), "CMACHINE_JSW_SYSCOM3000_INJ");

    // Controls come sorted by number, page by page.
    for (const QJsonValue& page : d.pages) {
        int last = -1;
        for (const QJsonValue& c : page["controls"].toArray()) {
            EXPECT_LT(last, c["id"].toInt()) << page["template"].toInt();
            last = c["id"].toInt();
        }
    }

    const QJsonObject speed = Control(injection, 1378);
    EXPECT_EQ(speed["kind"].toString(), "edit");
    EXPECT_EQ(speed["accessibleName"].toString().toStdString(), "Injection speed, stage 1");
    EXPECT_TRUE(speed["enabled"].toBool());
    EXPECT_FALSE(speed["readOnly"].toBool());
    EXPECT_FALSE(speed["text"].toString().trimmed().isEmpty());
    // The machine data beside the stages: a value label named after its row.
    const QJsonObject diameter = Control(injection, 1435);
    EXPECT_EQ(diameter["kind"].toString(), "label");
    EXPECT_EQ(diameter["text"].toString().trimmed().toStdString(), "40.00 mm");
    EXPECT_EQ(diameter["accessibleName"].toString().toStdString(), "Screw diameter, Screw A");
}

// The dump is what `--dump` prints, field for field.
TEST(KrnPanelDumpJson, AgreesWithTheTextDump) {
    const Dump d = DumpJson({"FANUC-A"});
    ASSERT_EQ(d.code, 0) << qPrintable(d.err);
    QProcess p;
    p.start(QStringLiteral(KRN_PANEL_EXE), {"FANUC-A", "--dump"});
    p.waitForFinished(60000);
    QStringList fromJson;
    for (const QJsonValue& page : d.pages)
        for (const QJsonValue& c : page["controls"].toArray())
            fromJson << QStringLiteral("%1 %2 %3")
                            .arg(page["template"].toInt())
                            .arg(c["id"].toInt())
                            .arg(c["text"].toString().replace('\n', "\\n"));
    const QStringList lines = QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    EXPECT_EQ(fromJson, lines);
}

// A screen reader can tell every field a user types into from the others.
TEST(KrnPanelDumpJson, EveryEditFieldOfEveryPanelHasANameOfItsOwn) {
    QProcess list;
    list.start(QStringLiteral(KRN_PANEL_EXE), {"--list"});
    list.waitForFinished(60000);
    QStringList panels;
    for (const QString& line : QString::fromUtf8(list.readAllStandardOutput()).split('\n'))
        if (!line.trimmed().isEmpty() && !line.contains("(no panel)")) panels << line.trimmed().remove('"');
    ASSERT_GE(panels.size(), 10);

    QTemporaryDir dir;
    QFile chinese(dir.filePath("zh.json"));
    ASSERT_TRUE(chinese.open(QIODevice::WriteOnly));
    chinese.write(R"({"language": "zh-TW"})");
    chinese.close();
    QList<QStringList> runs;
    for (const QString& name : panels) runs << QStringList{name};
    runs << QStringList{"Taichung machinery-Series", "--record", chinese.fileName()};  // the traditional-Chinese screens

    for (const QStringList& run : runs) {
        const Dump d = DumpJson(run);
        ASSERT_EQ(d.code, 0) << qPrintable(run.join(' ')) << qPrintable(d.err);
        for (const QJsonValue& page : d.pages) {
            QStringList names;
            for (const QJsonValue& c : page["controls"].toArray()) {
                if (c["kind"].toString() != "edit") continue;
                const QString name = c["accessibleName"].toString();
                EXPECT_FALSE(name.isEmpty()) << qPrintable(run[0]) << " " << page["template"].toInt() << ":" << c["id"].toInt();
                EXPECT_FALSE(names.contains(name)) << qPrintable(run[0]) << " " << page["template"].toInt() << ": \""
                                                   << qPrintable(name) << "\" twice";
                names << name;
            }
        }
    }
}

TEST(KrnPanelDumpJson, WrittenToAFileOrRefused) {
    QTemporaryDir dir;
    const QString file = dir.filePath("screen.json");
    QProcess p;
    p.start(QStringLiteral(KRN_PANEL_EXE), {"CLF-Series", "--dump-json", file});
    p.waitForFinished(60000);
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().constData();
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_FALSE(QJsonDocument::fromJson(written.readAll()).object().value("pages").toArray().isEmpty());

    QProcess nowhere;
    nowhere.start(QStringLiteral(KRN_PANEL_EXE), {"CLF-Series", "--dump-json", dir.filePath("no/such/folder/x.json")});
    nowhere.waitForFinished(60000);
    EXPECT_EQ(nowhere.exitCode(), 2);
    EXPECT_TRUE(nowhere.readAllStandardError().contains("cannot write"));

    QProcess keypad;
    keypad.start(QStringLiteral(KRN_PANEL_EXE), {"keypad", "2", "5", "--dump-json", "-"});
    keypad.waitForFinished(60000);
    EXPECT_EQ(keypad.exitCode(), 2);
}
