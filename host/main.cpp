// krn-panel: a host of the controller panel module, and the way to use the
// panels with no one at the screen (scripts, pictures, field dumps).

#include "arburg_selogica/CKRNMachineArburgCalc.h"
#include "CKRNDialog.h"
#include "ChartGallery.h"
#include "KRNDumpJson.h"
#include "KRNOutputFile.h"
#include "KRNPanelDriver.h"
#include "KRNPanelMessages.h"
#include "KRNPanelTable.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordJson.h"
#include "KRNResources.h"
#include "KRNSampleRecord.h"
#include "KRNScript.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

const char kHelp[] = R"(krn-panel: opens a controller panel of the KRNProcessMachineEngine module.

Usage:
  krn-panel CONTROLLER [--record FILE.json] [--readonly] [--out FILE.json]
                       [--script FILE] [--shots DIR] [--dump] [--dump-json FILE|-]
  krn-panel keypad VALUE MAX [--script FILE] [--shots DIR] [--dump]
  krn-panel charts DIR
  krn-panel --list
  krn-panel --help
  krn-panel --version

CONTROLLER is a controller name exactly as a host passes it (e.g. "FANUC-A",
"JSW-Series"; --list shows them all). The panel opens modally on the record of
--record (a sample record when none is given; --readonly marks it read-only).
After OK the returned record is written as JSON to --out, or to standard output;
after Cancel nothing is written. A controller that has no panel writes the
record back unchanged, as the module returns it.

Record JSON: one object whose keys are the record's item names:
  MI_FILLING_TIME ... MI_INJECTION_VOLUME_3 (numbers; MI_VP_SWITCH_CTRL a whole
  number; MI_READ_ONLY true/false; MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE,
  MI_ICMF_PROFILE as [[x, y], ...]), MC_SCREW_DIAMETER ... MC_SPEC_6 (numbers),
  PI_PROCESS_NAME, PI_MATERIAL_NAME, PI_PROCESS_TEXT (texts), PI_PROCESS_VALUE
  (whole number), language (text), pressureUnit and customMode (whole numbers).
  Keys left out keep the sample record's values.

--script FILE drives the panel, one action a line ('#' starts a comment):
  type ID TEXT     the control's whole text becomes TEXT in one change
  keys ID TEXT     the text is selected, then TEXT is typed a character at a time
  leave ID         the control loses the focus
  click ID         presses a button (ID may be IDOK or IDCANCEL)
  key enter|escape presses Enter or Escape
  key tab|shift-tab  moves the focus to the next or previous field; the field
                   left takes its kill focus, as on a desktop
  expect ID TEXT   the control shows TEXT (blanks at both ends ignored), else exit 1
  shot FILE.png    a picture of the topmost dialog
  ok | cancel      presses the panel's OK or Cancel button as a click does (the
                   field being edited takes its kill focus first); the command
                   itself where no such button shows
Actions go to the topmost dialog (a keypad opened by the panel while it is
open). type and keys first put the focus in the field, as a click into it
does. ID names a visible control in one of two ways:
  1454             the control of that number that fits the action (a button
                   for click, an edit field for type and keys, any control for
                   expect and leave), on the page shown first, then on the
                   frame: where a screen uses one number for a frame key and a
                   page field, "click 1454" presses the key and "expect 1454"
                   reads the field
  31145:1454       control 1454 of template 31145: the page shown, or the frame
--dump lists the templates and numbers. An error in a script (a line that
cannot be read, a control that is not there, an expectation that fails) is
reported as "FILE:LINE: what". Messages the panel shows are printed to
standard error as "message: CAPTION: TEXT"; Qt's own warnings there start
with "qt: ". A script that ends without ok or cancel cancels.

--shots DIR writes a PNG of every page (DIR/<template>.png) as the panel holds
it when it opens, without the commit a page key runs (a screen that converts
the record when its key is pressed, such as the Selogica injection screen, is
pictured after that key with a script: click 1367, shot FILE.png);
--dump prints every visible numbered field of every page as
"<page template> <id> <text>". --dump-json FILE writes the same as JSON to FILE
(- for standard output): {"pages": [...]}, the frame first, then its pages in
the order of its keys, each with "template", "class", "frame", "shown" and its
"controls" sorted by id: "id", "kind" (edit, label, picture, button, check,
radio, chart, other), "text", "enabled", "readOnly" and "accessibleName" (what
the control holds, e.g. "Speed, stage 1"). With --shots, --dump or --dump-json
and no --script the panel closes after them; with no display Qt's offscreen
platform is used.

keypad VALUE MAX opens the stage-count keypad alone and prints the chosen value
after confirm. charts DIR draws every profile chart look into DIR/<class>.png.

Exit codes: 0 done, 1 a script expectation failed, 2 bad usage or bad input:
a record or script that cannot be read, a resource module KRNPANEL.rcc that is
missing or damaged, a panel that cannot open, or output (record, picture,
standard output) that cannot be written. A file written is complete or left as
it was.
)";

// Qt's own output on standard error, told apart from the panel's "message:"
// lines. Without a session (a CI job, a container) Qt warns that
// XDG_RUNTIME_DIR is not set; the panels never use that folder, so it is dropped.
void QtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set"))) return;
    // Every line is marked, so a message over several lines stays Qt's.
    QString shown = qFormatLogMessage(type, context, text);
    shown.replace(QLatin1Char('\n'), QStringLiteral("\nqt: "));
    std::fprintf(stderr, "qt: %s\n", qPrintable(shown));
    if (type == QtFatalMsg) std::abort();
}

int Usage(const QString& problem) {
    std::fprintf(stderr, "krn-panel: %s\n(krn-panel --help explains the usage)\n", qPrintable(problem));
    return 2;
}

void PrintControllers(FILE* out) {
    for (const KRNControllerName& row : KRNControllerTable())
        std::fprintf(out, "  \"%.*s\"%s\n", static_cast<int>(row.name.size()), row.name.data(),
                     KRNFindPanel(row.type) ? "" : "  (no panel)");
}

struct Options {
    QString controller;
    QString record, out, script, shots;
    QString dumpJson;  // file of the JSON dump, "-" for standard output
    bool readOnly = false, dump = false;
    QStringList positional;
};

std::optional<Options> Parse(const QStringList& args, QString& problem) {
    Options o;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        auto value = [&](QString& target) {
            if (i + 1 >= args.size()) {
                problem = a + QStringLiteral(" needs a value");
                return false;
            }
            target = args[++i];
            return true;
        };
        if (a == QLatin1String("--record")) { if (!value(o.record)) return std::nullopt; }
        else if (a == QLatin1String("--out")) { if (!value(o.out)) return std::nullopt; }
        else if (a == QLatin1String("--script")) { if (!value(o.script)) return std::nullopt; }
        else if (a == QLatin1String("--shots")) { if (!value(o.shots)) return std::nullopt; }
        else if (a == QLatin1String("--readonly")) o.readOnly = true;
        else if (a == QLatin1String("--dump")) o.dump = true;
        else if (a == QLatin1String("--dump-json")) { if (!value(o.dumpJson)) return std::nullopt; }
        else if (a.startsWith(QLatin1String("--"))) { problem = QStringLiteral("unknown option ") + a; return std::nullopt; }
        else o.positional << a;
    }
    if (o.positional.isEmpty()) {
        problem = QStringLiteral("name a controller");
        return std::nullopt;
    }
    o.controller = o.positional.takeFirst();
    return o;
}

// Loads the script and prepares the pictures and dump taken as the panel opens.
bool PrepareScript(const Options& o, KRNScript& script, QString& problem) {
    if (!o.script.isEmpty() && !script.Load(o.script, problem)) return false;
    if (!o.shots.isEmpty() && !QDir().mkpath(o.shots)) {
        problem = QStringLiteral("cannot create the folder %1").arg(o.shots);
        return false;
    }
    script.SetOpening(o.shots, o.dump);
    return true;
}

// Standard output is checked once, as the program ends.
bool WriteRecord(const CKRNMachineData& record, const QString& out) {
    const QByteArray json = KRNWriteRecordJson(record);
    if (out.isEmpty()) {
        std::fwrite(json.constData(), 1, static_cast<std::size_t>(json.size()), stdout);
        return true;
    }
    QString problem;
    if (!KRNWriteOutput(out, json, problem)) {
        std::fprintf(stderr, "krn-panel: %s\n", qPrintable(problem));
        return false;
    }
    return true;
}

// Notes whether a panel dialog was ever shown: a panel whose template cannot
// be loaded comes back from its modal call without showing anything.
class PanelShownWatch : public QObject {
public:
    PanelShownWatch() { QCoreApplication::instance()->installEventFilter(this); }
    bool Shown() const { return m_bShown; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<CKRNDialog*>(watched)) m_bShown = true;
        return false;
    }

private:
    bool m_bShown = false;
};

// The resource module beside the library, made current; false with a message
// naming the file and what is wrong with it when it is missing or damaged.
bool LoadResourceModule(CKRNProMachineInterface& module) {
    if (module.Initialize("")) return true;
    // Installed, krn-panel sits in bin/ and the module beside the library.
    const QString installed = QCoreApplication::applicationDirPath() + QLatin1String("/" KRN_MODULE_FROM_PROGRAM);
    if (QFile::exists(installed)) {
        if (module.Initialize(installed.toStdString())) return true;
    }
    std::fprintf(stderr, "krn-panel: %s\n", qPrintable(KRNResources::LastProblem()));
    return false;
}

int RunKeypad(const Options& o) {
    if (o.positional.size() != 2) return Usage(QStringLiteral("keypad takes VALUE and MAX"));
    bool okValue = false, okMax = false;
    const int value = o.positional[0].toInt(&okValue);
    const int max = o.positional[1].toInt(&okMax);
    if (!okValue || !okMax) return Usage(QStringLiteral("keypad VALUE and MAX must be whole numbers"));
    if (!o.dumpJson.isEmpty()) return Usage(QStringLiteral("the keypad has no --dump-json; --dump shows its fields"));
    QString problem;
    KRNScript script;
    if (!PrepareScript(o, script, problem)) return Usage(problem);

    CKRNMachineArburgCalc keypad;
    keypad.m_nValue = value;
    keypad.m_nMaxValue = max;
    keypad.m_bTenPending = 0;
    int result = IDCANCEL;
    script.Run([&] { result = keypad.DoModal(); });
    if (result == -1) {
        std::fprintf(stderr, "krn-panel: the keypad could not open\n");
        return 2;
    }
    if (result == IDOK) std::printf("%d\n", keypad.m_nValue);
    return script.ExitCode();
}

int RunPanel(const Options& o) {
    CKRNMachineData record = KRNSampleRecord();
    if (!o.record.isEmpty()) {
        QFile file(o.record);
        if (!file.open(QIODevice::ReadOnly)) return Usage(QStringLiteral("cannot read %1").arg(o.record));
        QString problem;
        if (!KRNReadRecordJson(file.readAll(), record, problem))
            return Usage(QStringLiteral("%1: %2").arg(o.record, problem));
    }
    if (o.readOnly) record.SetMachineData(MI_READ_ONLY, true);

    QString problem;
    KRNScript script;
    if (!PrepareScript(o, script, problem)) return Usage(problem);

    CKRNProMachineInterface panels;
    if (!LoadResourceModule(panels)) return 2;
    std::int64_t known = 0;
    PanelShownWatch watch;
    // The JSON dump is taken as the panel opens, before any scripted action.
    bool dumped = false, dumpFailed = false;
    auto writeDump = [&](const QByteArray& json) {
        dumped = true;
        if (o.dumpJson == QLatin1String("-")) {
            std::fwrite(json.constData(), 1, static_cast<std::size_t>(json.size()), stdout);
            return;
        }
        QString problem;
        if (KRNWriteOutput(o.dumpJson, json, problem)) return;
        std::fprintf(stderr, "krn-panel: %s\n", qPrintable(problem));
        dumpFailed = true;
    };
    QObject dumpTimer;  // a dump still pending dies with this call
    if (!o.dumpJson.isEmpty()) {
        QTimer::singleShot(0, &dumpTimer, [&] {
            if (CKRNDialog* panel = KRNDriver::TopDialog()) writeDump(KRNDumpJson(panel));
            if (dumpFailed || (o.script.isEmpty() && o.shots.isEmpty() && !o.dump)) KRNDriver::CancelAll();
        });
    }
    script.Run([&] { known = panels.KRNDoModal(record, o.controller.toStdString()); });
    if (!known) {
        std::fprintf(stderr, "krn-panel: \"%s\" is no controller name; the names are:\n", qPrintable(o.controller));
        PrintControllers(stderr);
        return 2;
    }
    const bool hasPanel = KRNFindPanel(panels.GetControllerType()) != nullptr;
    if (hasPanel && !watch.Shown()) {
        std::fprintf(stderr, "krn-panel: the panel of \"%s\" could not open\n", qPrintable(o.controller));
        return 2;
    }
    if (!o.dumpJson.isEmpty() && !dumped) writeDump(KRNDumpJson(nullptr));  // no panel: no pages
    if (dumpFailed) return 2;
    if ((panels.IsOK() || !hasPanel) && !WriteRecord(panels.GetMachineData(), o.out)) return 2;
    return script.ExitCode();
}

int Run(const QStringList& args) {
    if (args.isEmpty()) return Usage(QStringLiteral("name a controller"));
    if (args.contains(QStringLiteral("--help")) || args.contains(QStringLiteral("-h"))) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (args.first() == QLatin1String("--version")) {
        std::printf("krn-panel %s\n", KRN_VERSION);
        return 0;
    }
    if (args.first() == QLatin1String("--list")) {
        PrintControllers(stdout);
        return 0;
    }

    KRNSetMessageHandler([](const std::string& caption, const std::string& text) {
        QString shown = QString::fromStdString(text);
        shown.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
        std::fprintf(stderr, "message: %s: %s\n", caption.c_str(), qPrintable(shown));
    });

    if (args.first() == QLatin1String("charts")) {
        if (args.size() != 2) return Usage(QStringLiteral("charts takes one folder"));
        return KRNChartGallery(args[1]);
    }

    QString problem;
    const std::optional<Options> options = Parse(args, problem);
    if (!options) return Usage(problem);
    if (options->controller == QLatin1String("keypad")) {
        // The keypad's template comes from the resource module like any panel's.
        CKRNProMachineInterface module;
        if (!LoadResourceModule(module)) return 2;
        return RunKeypad(*options);
    }
    return RunPanel(*options);
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(QtMessage);
    // Without a display the panels still open, on Qt's offscreen platform.
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") && !std::getenv("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int code = Run(app.arguments().mid(1));
    // A record or dump that did not reach standard output is a failure too.
    QString problem;
    if (!KRNFlushStandardOutput(problem)) {
        std::fprintf(stderr, "krn-panel: %s\n", qPrintable(problem));
        return 2;
    }
    return code;
}
