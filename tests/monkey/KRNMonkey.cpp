#include "KRNMonkey.h"

#include "CKRNDialog.h"
#include "KRNPanelDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTimer>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <numeric>

namespace {

// Deeper than this, a dialog opened over a dialog is closed at once.
constexpr int kMaxDepth = 3;

const char* const kTexts[] = {"",  "-",   ".",   "nan",   "inf", "-inf", "1e400", "1e308",
                              "-1e308", "0", "2147483647", "99999999999", "-5", "abc", "1,5", "3.5"};

// A number of varied magnitude written as a person or another program might:
// "12.50", "3.1e+04", "-0.0007", "250000".
std::string Number(KRNDice& dice) {
    double value = std::pow(10.0, dice.Below(19) - 6) * (1.0 + 9.0 * dice.Unit());
    if (dice.Chance(20)) value = -value;
    std::array<char, 64> text{};
    std::to_chars_result r{};
    switch (dice.Below(3)) {
    case 0: r = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, dice.Below(4)); break;
    case 1: r = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 1 + dice.Below(8)); break;
    default: r = std::to_chars(text.data(), text.data() + text.size(), static_cast<long long>(value)); break;
    }
    return std::string(text.data(), r.ptr);
}

// What a person might leave in a field: the texts that have broken number
// readers before, whole numbers a count field could take, and numbers from a
// millionth to a trillion in fixed and exponent form.
std::string Text(KRNDice& dice) {
    switch (dice.Below(3)) {
    case 0: return kTexts[dice.Below(static_cast<int>(std::size(kTexts)))];
    case 1: return std::to_string(dice.Below(21));  // stage counts and small settings
    default: return Number(dice);
    }
}

CKRNDialog* OwnerOf(QWidget* w) {
    for (QWidget* p = w ? w->parentWidget() : nullptr; p; p = p->parentWidget())
        if (auto* dialog = qobject_cast<CKRNDialog*>(p)) return dialog;
    return nullptr;
}

// The control as a script names it: its number, or TEMPLATE:NUMBER when the
// dialog shows another control of that number (a frame key and a page field).
std::string Label(QWidget* w, QWidget* top) {
    const QString name = w->objectName();
    bool numbered = false;
    const int id = KRNControlId(name, &numbered);
    QString label = numbered && name.startsWith(QLatin1String("IDC_")) ? QString::number(id) : name;
    const QList<QWidget*> twins = top->findChildren<QWidget*>(name);
    if (std::count_if(twins.begin(), twins.end(), [top](QWidget* o) { return o->isVisibleTo(top); }) > 1)
        if (CKRNDialog* owner = OwnerOf(w)) label = QString::number(owner->TemplateId()) + QLatin1Char(':') + label;
    return label.isEmpty() ? std::string("(unnamed ") + w->metaObject()->className() + ")" : label.toStdString();
}

template <class T>
QList<T*> UsableControls(QWidget* top, bool closingButtons) {
    QList<T*> found;
    for (T* w : top->findChildren<T*>()) {
        const bool closes = w->objectName() == QLatin1String("IDOK") || w->objectName() == QLatin1String("IDCANCEL");
        if (w->isVisibleTo(top) && w->isEnabled() && (closingButtons || !closes)) found << w;
    }
    return found;
}

template <class T>
T* Any(KRNDice& dice, const QList<T*>& list) {
    return list[dice.Below(static_cast<int>(list.size()))];
}

}  // namespace

std::uint64_t KRNDice::Next() {
    std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

int KRNDice::Below(int n) { return n <= 0 ? 0 : static_cast<int>(Next() % static_cast<std::uint64_t>(n)); }

double KRNDice::Unit() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }

std::uint64_t KRNSessionSeed(std::uint64_t seed, std::uint64_t index) {
    KRNDice mix(seed ^ (index * 0xD1B54A32D192ED03ull));
    return mix.Next();
}


KRNMonkey::KRNMonkey(std::uint64_t seed, std::function<std::size_t()> messageCount,
                     std::function<std::string(std::size_t)> message)
    : m_dice(seed), m_messageCount(std::move(messageCount)), m_message(std::move(message)) {
    m_nMessagesSeen = m_messageCount();
}

void KRNMonkey::Note(const std::string& line) { m_log.push_back(line); }

void KRNMonkey::NoteMessages() {
    for (const std::size_t n = m_messageCount(); m_nMessagesSeen < n; ++m_nMessagesSeen) {
        std::string text = m_message(m_nMessagesSeen);
        for (char& c : text)
            if (c == '\n') c = ' ';
        Note("#   message: " + text);
    }
}

void KRNMonkey::Walk(CKRNDialog* panel, int steps) {
    for (int i = 0; i < steps && m_problems.empty(); ++i) {
        if (CKRNDialog* top = KRNDriver::TopDialog(); top != panel) {
            m_problems.push_back(top ? "a dialog (template " + std::to_string(top->TemplateId()) + ") stayed open over the panel"
                                     : std::string("the panel closed without OK or Cancel"));
            return;
        }
        Step(panel, 0);
    }
}

bool KRNMonkey::Finish() {
    CKRNDialog* top = KRNDriver::TopDialog();
    return top && Close(top, 0, 50);
}

bool KRNMonkey::Close(CKRNDialog* top, int depth, int okPercent) {
    const bool ok = m_dice.Chance(okPercent);
    Note(ok ? "ok" : "cancel");
    MayOpenDialog(top, depth, [top, ok] { ok ? top->OnOK() : top->OnCancel(); });
    NoteMessages();
    return ok;
}

void KRNMonkey::Step(CKRNDialog* top, int depth) {
    enum Action { Enter, Escape, Type, Keys, Leave, Click };
    QList<QLineEdit*> edits = UsableControls<QLineEdit>(top, false);
    edits.removeIf([](const QLineEdit* e) { return e->isReadOnly(); });
    // A dialog over the panel may be closed by its own keys; the panel only by the last step.
    const QList<QAbstractButton*> buttons = UsableControls<QAbstractButton>(top, depth > 0);

    const int canType = edits.isEmpty() ? 0 : 1, canClick = buttons.isEmpty() ? 0 : 1;
    const int weights[] = {7, 8, 28 * canType, 22 * canType, 15 * canType, 20 * canClick};
    int roll = m_dice.Below(std::accumulate(std::begin(weights), std::end(weights), 0));
    int action = Enter;
    while (roll >= weights[action]) roll -= weights[action++];

    QPointer<CKRNDialog> alive(top);
    switch (action) {
    case Type:
    case Keys: {
        QLineEdit* edit = Any(m_dice, edits);
        const std::string text = Text(m_dice);
        const bool typing = action == Keys;
        Note(std::string(typing ? "keys " : "type ") + Label(edit, top) + (text.empty() ? "" : " " + text));
        m_lastEdit = edit;
        MayOpenDialog(top, depth, [edit, text, typing] {
            edit->setFocus();  // the person clicked into the field: the one before loses the focus
            if (typing) KRNDriver::Keys(edit, QString::fromStdString(text));
            else KRNDriver::Type(edit, QString::fromStdString(text));
        });
        break;
    }
    case Leave: {
        // Mostly the field just typed into, as a person tabs on.
        QLineEdit* edit = m_lastEdit && edits.contains(m_lastEdit.data()) && m_dice.Chance(75)
                              ? m_lastEdit.data()
                              : Any(m_dice, edits);
        Note("leave " + Label(edit, top));
        MayOpenDialog(top, depth, [edit] { KRNDriver::Leave(edit); });
        break;
    }
    case Click: {
        QAbstractButton* button = Any(m_dice, buttons);
        Note("click " + Label(button, top));
        MayOpenDialog(top, depth, [button] { KRNDriver::Click(button); });
        break;
    }
    case Enter:
    case Escape: {
        const bool enter = action == Enter;
        Note(enter ? "key enter" : "key escape");
        MayOpenDialog(top, depth, [top, enter] { KRNDriver::PressKey(top, enter ? Qt::Key_Return : Qt::Key_Escape); });
        if (depth == 0 && alive && !alive->isVisible())
            m_problems.push_back(std::string(enter ? "Enter" : "Escape") + " closed the panel");
        break;
    }
    }
    NoteMessages();
}

void KRNMonkey::MayOpenDialog(CKRNDialog* top, int depth, const std::function<void()>& act) {
    // A step that opens a modal dialog returns only when it closes: the walk
    // of that dialog is due before the step runs and happens inside its loop.
    QObject scope;
    QTimer::singleShot(0, &scope, [this, top, depth] { WalkOpened(top, depth + 1); });
    act();
}

void KRNMonkey::WalkOpened(CKRNDialog* below, int depth) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && !qobject_cast<CKRNDialog*>(modal)) {
        // Every message goes through the panels' message routine, which the
        // session captures; a box of its own would wait for a person.
        m_problems.push_back(std::string("a modal ") + modal->metaObject()->className() + " \"" +
                             modal->windowTitle().toStdString() + "\" opened outside the message routine");
        Note("# " + m_problems.back());
        modal->close();
        return;
    }
    CKRNDialog* top = KRNDriver::TopDialog();
    if (!top || top == below) return;
    Note("# dialog " + std::to_string(top->TemplateId()) + " opened");
    const int steps = depth > kMaxDepth ? 0 : m_dice.Below(6);
    for (int i = 0; i < steps && KRNDriver::TopDialog() == top; ++i) Step(top, depth);
    if (KRNDriver::TopDialog() == top) Close(top, depth, 30);
    if (KRNDriver::TopDialog() == top) {
        // Refused its own OK and Cancel: close it as the host would, so the step returns.
        Note("# dialog " + std::to_string(top->TemplateId()) + " closed by force");
        top->EndDialog(IDCANCEL);
    }
}
