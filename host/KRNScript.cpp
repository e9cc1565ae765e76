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

QString OneLine(QString text) { return text.replace(QLatin1Char('\n'), QStringLiteral("\\n")); }

}  // namespace

bool KRNScript::Load(const QString& path, QString& problem) {
    m_strPath = path;
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
        const QString where = Where(n + 1);
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        const QString id = line.section(QLatin1Char(' '), 1, 1, QString::SectionSkipEmpty);
        const QString text = line.section(QLatin1Char(' '), 2, -1, QString::SectionSkipEmpty);
        KRNDriver::Address address;
        const bool needsId = verb == QLatin1String("type") || verb == QLatin1String("keys") ||
                             verb == QLatin1String("leave") || verb == QLatin1String("click") ||
                             verb == QLatin1String("expect");
        if (needsId && !KRNDriver::ParseAddress(id, address)) {
            problem = where + QStringLiteral("'%1' needs a control number or TEMPLATE:ID, not '%2'").arg(verb, id);
            return false;
        }
        static const QStringList keys = {"enter", "escape", "tab", "shift-tab"};
        if (verb == QLatin1String("key") && !keys.contains(id)) {
            problem = where + QStringLiteral("key takes enter, escape, tab or shift-tab, not '%1'").arg(id);
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

QString KRNScript::Where(int line) const { return QStringLiteral("%1:%2: ").arg(m_strPath).arg(line); }

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
    const QString where = Where(a.line);
    if (!top) return Fail(2, where + QStringLiteral("no panel is open"));

    if (a.verb == QLatin1String("ok") || a.verb == QLatin1String("cancel")) {
        // The dialog's own button, pressed as with the mouse, so the field
        // being edited takes its kill focus first; the command itself where
        // the dialog shows no such button.
        const bool ok = a.verb == QLatin1String("ok");
        if (QWidget* button = KRNDriver::VisibleControl(top, ok ? IDOK : IDCANCEL, KRNDriver::Want::Button))
            return KRNDriver::Click(button);
        return ok ? top->OnOK() : top->OnCancel();
    }
    if (a.verb == QLatin1String("key")) {
        if (a.id == QLatin1String("tab")) return KRNDriver::PressKey(top, Qt::Key_Tab);
        // Shift+Tab arrives from a keyboard as Backtab with Shift held.
        if (a.id == QLatin1String("shift-tab")) return KRNDriver::PressKey(top, Qt::Key_Backtab, Qt::ShiftModifier);
        return KRNDriver::PressKey(top, a.id == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Escape);
    }
    if (a.verb == QLatin1String("shot")) {
        QString problem;
        if (!KRNWritePng(a.text, top->grab().toImage(), problem)) Fail(2, where + problem);
        return;
    }

    KRNDriver::Address address;
    KRNDriver::ParseAddress(a.id, address);
    // A button for a click, an edit for typing, any control to read or leave.
    const KRNDriver::Want want = a.verb == QLatin1String("click")                                  ? KRNDriver::Want::Button
                                 : a.verb == QLatin1String("type") || a.verb == QLatin1String("keys") ? KRNDriver::Want::Edit
                                                                                                      : KRNDriver::Want::Any;
    QString problem;
    QWidget* control = KRNDriver::FindControl(top, address, want, problem);
    if (!control) return Fail(2, where + problem);
    // A person clicks into a field before typing, and the field left takes
    // its kill focus then, as it does on a desktop.
    if (want == KRNDriver::Want::Edit) KRNDriver::Focus(control);
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
