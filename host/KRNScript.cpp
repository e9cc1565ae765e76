#include "KRNScript.h"

#include "CKRNDialog.h"
#include "KRNOutputFile.h"
#include "KRNPanelDriver.h"

#include <QFile>
#include <QRegularExpression>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

bool ParseId(const QString& word, int& id) {
    if (word == QLatin1String("IDOK")) return id = IDOK, true;
    if (word == QLatin1String("IDCANCEL")) return id = IDCANCEL, true;
    bool ok = false;
    id = word.toInt(&ok);
    return ok;
}

QString OneLine(QString text) { return text.replace(QLatin1Char('\n'), QStringLiteral("\\n")); }

}  // namespace

bool KRNScript::Load(const QString& path, QString& problem) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("cannot read the script %1").arg(path);
        return false;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    static const QRegularExpression comment(QStringLiteral("(^|\\s)#.*$"));
    for (int n = 0; n < lines.size(); ++n) {
        QString line = lines[n];
        line.remove(comment);
        line = line.trimmed();
        if (line.isEmpty()) continue;
        const QString where = QStringLiteral("%1:%2: ").arg(path).arg(n + 1);
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        const QString id = line.section(QLatin1Char(' '), 1, 1, QString::SectionSkipEmpty);
        const QString text = line.section(QLatin1Char(' '), 2, -1, QString::SectionSkipEmpty);
        int number = 0;
        const bool needsId = verb == QLatin1String("type") || verb == QLatin1String("keys") ||
                             verb == QLatin1String("leave") || verb == QLatin1String("click") ||
                             verb == QLatin1String("expect");
        if (needsId && !ParseId(id, number)) {
            problem = where + QStringLiteral("'%1' needs a control number, not '%2'").arg(verb, id);
            return false;
        }
        if (verb == QLatin1String("key") && id != QLatin1String("enter") && id != QLatin1String("escape")) {
            problem = where + QStringLiteral("key takes enter or escape");
            return false;
        }
        if (verb == QLatin1String("shot") && id.isEmpty()) {
            problem = where + QStringLiteral("shot needs a file name");
            return false;
        }
        static const QStringList verbs = {"type", "keys", "leave", "click", "key", "expect", "shot", "ok", "cancel"};
        if (!verbs.contains(verb)) {
            problem = where + QStringLiteral("unknown action '%1'").arg(verb);
            return false;
        }
        // For shot the file name is the second word; keep any blanks in it.
        m_Actions.push_back({n + 1, verb, id, verb == QLatin1String("shot") ? line.section(QLatin1Char(' '), 1) : text});
    }
    m_bHasActions = true;
    return true;
}

void KRNScript::SetOpening(const QString& shotsDir, bool dump) {
    m_strShots = shotsDir;
    m_bDump = dump;
}

void KRNScript::Run(const std::function<void()>& open) {
    const bool closesItself = m_bHasActions || !m_strShots.isEmpty() || m_bDump ||
                              qgetenv("QT_QPA_PLATFORM") == "offscreen";
    if (closesItself) {
        QTimer::singleShot(0, this, [this] {
            Opening();
            Step();
        });
    }
    open();
    m_bStopped = true;
}

void KRNScript::Opening() {
    CKRNDialog* panel = KRNDriver::TopDialog();
    if (!panel) return;
    auto dump = [](CKRNDialog* dialog) {
        QList<int> ids = dialog->Controls().keys();
        std::sort(ids.begin(), ids.end());
        for (int id : ids) {
            QWidget* w = dialog->GetDlgItem(id);
            if (id != IDC_STATIC && w->isVisibleTo(dialog))
                std::printf("%d %d %s\n", dialog->TemplateId(), id, qPrintable(OneLine(KRNDriver::Text(w))));
        }
    };
    const QList<QWidget*> pages = KRNDriver::Pages(panel);
    if (m_bDump && pages.value(0) != panel) dump(panel);  // the frame's own fields
    for (QWidget* page : pages) {
        QWidget* before = KRNDriver::ShowPageForPicture(panel, page);
        if (!m_strShots.isEmpty()) {
            const QString file = QStringLiteral("%1/%2.png").arg(m_strShots).arg(KRNDriver::TemplateOf(page));
            QString problem;
            if (!KRNWritePng(file, panel->grab().toImage(), problem)) Fail(2, problem);
        }
        if (m_bDump)
            if (auto* dialog = qobject_cast<CKRNDialog*>(page)) dump(dialog);
        KRNDriver::ShowPageForPicture(panel, before);
    }
    std::fflush(stdout);
}

void KRNScript::Fail(int code, const QString& message) {
    std::fprintf(stderr, "krn-panel: %s\n", qPrintable(message));
    m_nExitCode = std::max(m_nExitCode, code);
    m_bStopped = true;
    KRNDriver::CancelAll();
}

void KRNScript::Step() {
    if (m_bStopped) return;
    if (m_nNext >= m_Actions.size()) {
        m_bStopped = true;
        KRNDriver::CancelAll();  // a script that ends without ok or cancel cancels
        return;
    }
    const Action action = m_Actions[m_nNext++];
    // The next step is due before this one runs: a click that opens a keypad
    // returns only when the keypad closes, and the steps in between go to it.
    QTimer::singleShot(0, this, &KRNScript::Step);
    Execute(action);
}

void KRNScript::Execute(const Action& a) {
    CKRNDialog* top = KRNDriver::TopDialog();
    const QString where = QStringLiteral("script line %1: ").arg(a.line);
    if (!top) return Fail(2, where + QStringLiteral("no panel is open"));

    if (a.verb == QLatin1String("ok")) return top->OnOK();
    if (a.verb == QLatin1String("cancel")) return top->OnCancel();
    if (a.verb == QLatin1String("key"))
        return KRNDriver::PressKey(top, a.id == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Escape);
    if (a.verb == QLatin1String("shot")) {
        QString problem;
        if (!KRNWritePng(a.text, top->grab().toImage(), problem)) Fail(2, where + problem);
        return;
    }

    int id = 0;
    ParseId(a.id, id);
    // A button for a click, an edit for typing, any control to read or leave.
    const KRNDriver::Want want = a.verb == QLatin1String("click")                                  ? KRNDriver::Want::Button
                                 : a.verb == QLatin1String("type") || a.verb == QLatin1String("keys") ? KRNDriver::Want::Edit
                                                                                                      : KRNDriver::Want::Any;
    QWidget* control = KRNDriver::VisibleControl(top, id, want);
    if (!control) return Fail(2, where + QStringLiteral("no visible control %1 on the open dialog").arg(a.id));
    if (a.verb == QLatin1String("type")) KRNDriver::Type(control, a.text);
    else if (a.verb == QLatin1String("keys")) KRNDriver::Keys(control, a.text);
    else if (a.verb == QLatin1String("leave")) KRNDriver::Leave(control);
    else if (a.verb == QLatin1String("click")) KRNDriver::Click(control);
    else if (a.verb == QLatin1String("expect")) {
        const QString shown = KRNDriver::Text(control).trimmed();
        if (shown != a.text.trimmed())
            Fail(1, where + QStringLiteral("control %1 shows \"%2\", expected \"%3\"").arg(a.id, OneLine(shown), a.text.trimmed()));
    }
}
