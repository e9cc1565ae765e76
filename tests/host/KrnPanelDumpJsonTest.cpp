// krn-panel --dump-json as a tester's script reads it: every page of a panel
// with its visible numbered controls, their state and what they are called.

#include "KRNPanelRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct Dump {
    int code = -1;
    QJsonArray pages;
    QString err;
};

Dump DumpJson(const QStringList& args) {
    const KRNPanelRun r = KRNRunPanel(args + QStringList{"--dump-json", "-"});
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(r.out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    return {r.code, doc["pages"].toArray(), r.err};
}

// The page of a template, or the control of a number on a page.
QJsonObject Find(const QJsonArray& list, const char* key, int value) {
    for (const QJsonValue& item : list)
        if (item[key].toInt() == value) return item.toObject();
    return {};
}

}  // namespace

// The JSW screens: the frame 31147, the temperature page 31144 shown first,
// then injection 31145 and packing 31146. Injection speed stage 1 is 1378.
TEST(KrnPanelDumpJson, EveryPageWithItsFieldsAndWhatTheyAreCalled) {
    QTemporaryDir dir;
    const Dump d = DumpJson({"JSW-Series", "--record", KRNWriteFile(dir, "record.json", R"({"MC_SCREW_DIAMETER": 40})")});
    ASSERT_EQ(d.code, 0) << qPrintable(d.err);
    ASSERT_EQ(d.pages.size(), 4);

    const QJsonObject frame = d.pages[0].toObject();
    EXPECT_EQ(frame["template"].toInt(), 31147);
    EXPECT_EQ(frame["class"].toString(), "CMACHINE_JSW_SYSCOM3000_DLG");
    EXPECT_TRUE(frame["frame"].toBool());
    EXPECT_EQ(Find(frame["controls"].toArray(), "id", 1454)["kind"].toString(), "button");  // the frame's temperature key

    const QJsonObject injection = Find(d.pages, "template", 31145);
    EXPECT_TRUE(Find(d.pages, "template", 31144)["shown"].toBool());
    EXPECT_FALSE(injection["shown"].toBool());
    EXPECT_FALSE(injection["frame"].toBool());
    EXPECT_EQ(injection["class"].toString(), "CMACHINE_JSW_SYSCOM3000_INJ");

    const QJsonObject speed = Find(injection["controls"].toArray(), "id", 1378);
    EXPECT_EQ(speed["kind"].toString(), "edit");
    EXPECT_EQ(speed["accessibleName"].toString().toStdString(), "Injection speed, stage 1");
    EXPECT_TRUE(speed["enabled"].toBool());
    EXPECT_FALSE(speed["readOnly"].toBool());
    // The machine data beside the stages: a value label named after its row.
    const QJsonObject diameter = Find(injection["controls"].toArray(), "id", 1435);
    EXPECT_EQ(diameter["kind"].toString(), "label");
    EXPECT_EQ(diameter["text"].toString().trimmed().toStdString(), "40.00 mm");
    EXPECT_EQ(diameter["accessibleName"].toString().toStdString(), "Screw diameter, Screw A");
}

// Frame first, then the pages in the order of their keys, controls sorted by
// number: each as `--dump` prints it.
TEST(KrnPanelDumpJson, AgreesWithTheTextDump) {
    const Dump d = DumpJson({"FANUC-A"});
    ASSERT_EQ(d.code, 0) << qPrintable(d.err);
    QStringList fromJson;
    for (const QJsonValue& page : d.pages)
        for (const QJsonValue& c : page["controls"].toArray())
            fromJson << QStringLiteral("%1 %2 %3").arg(page["template"].toInt()).arg(c["id"].toInt()).arg(c["text"].toString().replace('\n', "\\n"));
    EXPECT_EQ((fromJson.join('\n') + '\n').toStdString(), KRNRunPanel({"FANUC-A", "--dump"}).out.toStdString());

    // Pages not shown read as they would show: the JSW pages' clock line too.
    const Dump jsw = DumpJson({"JSW-Series"});
    int clocks = 0;
    for (const QJsonValue& page : jsw.pages)
        for (const QJsonValue& c : page["controls"].toArray())
            if (c["id"].toInt() == 1440) {
                ++clocks;
                EXPECT_FALSE(c["text"].toString().isEmpty()) << page["template"].toInt();
            }
    EXPECT_EQ(clocks, 3);
}

// A screen reader can tell every field a user types into from the others.
TEST(KrnPanelDumpJson, EveryEditFieldOfEveryPanelHasANameOfItsOwn) {
    QList<QStringList> runs;
    for (const QString& line : KRNRunPanel({"--list"}).out.split('\n'))
        if (!line.trimmed().isEmpty() && !line.contains("(no panel)")) runs << QStringList{line.trimmed().remove('"')};
    ASSERT_GE(runs.size(), 10);
    QTemporaryDir dir;  // and the traditional-Chinese screens
    runs << QStringList{"Taichung machinery-Series", "--record", KRNWriteFile(dir, "zh.json", R"({"language": "zh-TW"})")};

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

// A file it cannot write is refused among the other outputs (KrnPanelTest).
TEST(KrnPanelDumpJson, WrittenToAFileButNotForTheKeypad) {
    QTemporaryDir dir;
    const KRNPanelRun written = KRNRunPanel({"CLF-Series", "--dump-json", dir.filePath("screen.json")});
    EXPECT_EQ(written.code, 0) << qPrintable(written.err);
    EXPECT_FALSE(QJsonDocument::fromJson(KRNReadFile(dir.filePath("screen.json")))["pages"].toArray().isEmpty());

    const KRNPanelRun keypad = KRNRunPanel({"keypad", "2", "5", "--dump-json", "-"});
    EXPECT_EQ(keypad.code, 2);
    EXPECT_TRUE(keypad.err.contains("the keypad has no --dump-json")) << qPrintable(keypad.err);
}
