#include "CKRNFormLoader.h"

#include "CKRNColorButton.h"
#include "CKRNDrawStatic.h"
#include "CNonNagtiveDigitEdit.h"
#include "KRNCompiledForm.h"

#include <QHash>
#include <QIODevice>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>

#include <cstring>
#include <vector>

namespace {
QStyle* PanelStyle() {
    static QStyle* style = QStyleFactory::create(QStringLiteral("Fusion"));
    return style;
}

QHash<QString, CKRNFormLoader::Factory>& PanelClasses() {
    static QHash<QString, CKRNFormLoader::Factory> classes;
    return classes;
}

using namespace KRNCompiledForm;

// Reads a compiled template front to back; any read past its end marks it
// damaged, and the caller gives up.
class Reader {
public:
    explicit Reader(const QByteArray& bytes)
        : m_p(reinterpret_cast<const uchar*>(bytes.constData())), m_end(m_p + bytes.size()) {}
    bool Ok() const { return m_ok; }
    bool Take(qsizetype n) {
        if (!m_ok || m_end - m_p < n) return m_ok = false;
        return true;
    }
    quint8 U8() { return Take(1) ? *m_p++ : 0; }
    quint16 U16() {
        if (!Take(2)) return 0;
        const quint16 v = static_cast<quint16>(m_p[0] | (m_p[1] << 8));
        m_p += 2;
        return v;
    }
    quint32 U32() {
        const quint32 low = U16();
        return low | (static_cast<quint32>(U16()) << 16);
    }
    qint32 I32() { return static_cast<qint32>(U32()); }
    QString Utf16(int units) {
        if (!Take(2 * qsizetype(units))) return {};
        QString s(units, Qt::Uninitialized);
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
        std::memcpy(s.data(), m_p, 2 * std::size_t(units));
        m_p += 2 * units;
#else
        for (int i = 0; i < units; ++i) s[i] = QChar(U16());
#endif
        return s;
    }
    const uchar* Here() const { return m_p; }

private:
    const uchar* m_p;
    const uchar* m_end;
    bool m_ok = true;
};

// A screen repeats a handful of colour pairs: each palette is built once per
// process, keyed by its compiled entries.
QPalette PaletteOf(Reader& in) {
    static QHash<QByteArray, QPalette> built;
    const int count = in.U8();
    const uchar* start = in.Here();
    if (!in.Take(6 * qsizetype(count))) return {};
    const QByteArray key = QByteArray::fromRawData(reinterpret_cast<const char*>(start), 6 * count);
    if (auto it = built.constFind(key); it != built.constEnd()) {
        for (int i = 0; i < 6 * count; ++i) in.U8();
        return *it;
    }
    // Only the roles named are the control's own; the rest come from its parent.
    QPalette palette;
    for (int i = 0; i < count; ++i) {
        const quint8 group = in.U8();
        const auto role = static_cast<QPalette::ColorRole>(in.U8());
        const QColor colour = QColor::fromRgba(in.U32());
        if (group == AllGroups) palette.setColor(role, colour);
        else palette.setColor(QPalette::Disabled, role, colour);
    }
    built.insert(QByteArray(key.constData(), key.size()), palette);
    return palette;
}

QFont FontOf(Reader& in, const std::vector<QString>& strings) {
    const quint16 family = in.U16();
    const auto points = static_cast<qint16>(in.U16());
    const quint8 bold = in.U8(), italic = in.U8(), underline = in.U8();
    // As Designer's loader builds it: only what the form names is resolved.
    QFont font;
    if (family < strings.size()) font.setFamily(strings[family]);
    if (points > 0) font.setPointSize(points);
    if (bold) font.setBold(bold == 2);
    if (italic) font.setItalic(italic == 2);
    if (underline) font.setUnderline(underline == 2);
    return font;
}

// What one template refers to by index.
struct Tables {
    std::vector<QString> strings;
    std::vector<QPalette> palettes;
    std::vector<QFont> fonts;
    const QString& String(quint16 i) const {
        static const QString none;
        return i < strings.size() ? strings[i] : none;
    }
};

}  // namespace

// Why compiled templates, in figures (bench_krn, Release, offscreen; median
// of 10, ms from KRNDoModal to the first paint, the same tree in plain Qt in
// brackets):
//                    Designer forms    compiled
//   Fanuc S2000i      9.2  (2.2)       3.0  (2.1)
//   CLF series       15.5  (3.6)       4.5  (3.5)
//   Niigata MD       10.5  (2.7)       3.0  (2.4)
//   UMS series        2.4  (0.7)       1.3  (0.7)
// Reading the XML was most of an opening (QXmlStreamReader, QString and the
// generic property setters: over half of the samples), and it is paid at the
// first opening too, which no cache between openings would help; Qt's loader
// has nothing to cache short of keeping whole widget trees alive, and a kept
// tree would no longer start from the state that OnInitDialog expects.

void CKRNFormLoader::RegisterControlClass(const QString& className, Factory make) {
    PanelClasses().insert(className, make);
}

QWidget* CKRNFormLoader::createWidget(const QString& className, QWidget* parent, const QString& name) {
    QWidget* w = nullptr;
    if (className == QLatin1String("CKRNColorButton")) w = new CKRNColorButton(parent);
    else if (className == QLatin1String("CKRNDrawStatic")) w = new CKRNDrawStatic(parent);
    else if (className == QLatin1String("CNonNagtiveDigitEdit")) w = new CNonNagtiveDigitEdit(parent);
    else if (Factory make = PanelClasses().value(className)) w = make(parent);
    else w = QUiLoader::createWidget(className, parent, name);
    if (!w) return nullptr;
    w->setObjectName(name);
    if (PanelStyle()) w->setStyle(PanelStyle());
    return w;
}

QWidget* CKRNFormLoader::load(QIODevice* device, QWidget* parentWidget) {
    m_error.clear();
    const QByteArray head = device ? device->peek(sizeof kMagic) : QByteArray();
    if (head.size() == sizeof kMagic && std::memcmp(head.constData(), kMagic, sizeof kMagic) == 0)
        return LoadCompiled(device->readAll(), parentWidget);
    return QUiLoader::load(device, parentWidget);
}

QString CKRNFormLoader::errorString() const { return m_error.isEmpty() ? QUiLoader::errorString() : m_error; }

QWidget* CKRNFormLoader::LoadCompiled(const QByteArray& bytes, QWidget* parentWidget) {
    Reader in(bytes);
    for (std::size_t i = 0; i < sizeof kMagic; ++i) in.U8();
    if (const quint16 version = in.U16(); version != kVersion) {
        m_error = QStringLiteral("the compiled template has format %1, this engine reads %2").arg(version).arg(kVersion);
        return nullptr;
    }
    Tables t;
    t.strings.resize(in.U16());
    for (QString& s : t.strings) s = in.Utf16(in.U16());
    t.palettes.resize(in.U16());
    for (QPalette& p : t.palettes) p = PaletteOf(in);
    t.fonts.resize(in.U16());
    for (QFont& f : t.fonts) f = FontOf(in, t.strings);

    QWidget* root = nullptr;
    // Builds one widget and, depth first, its children; false when the
    // template is damaged or names a class no one registered.
    auto build = [&](auto& self, QWidget* parent) -> QWidget* {
        const quint8 kind = in.U8();
        quint8 base = kind;
        QString className;
        if (kind == Custom) {
            className = t.String(in.U16());
            base = in.U8();
        }
        const QString& name = t.String(in.U16());
        if (!in.Ok()) return nullptr;
        QWidget* w = nullptr;
        switch (kind) {
        case Widget: w = new QWidget(parent); break;
        case Label: w = new QLabel(parent); break;
        case LineEdit: w = new QLineEdit(parent); break;
        case PushButton: w = new QPushButton(parent); break;
        case Custom: {
            w = createWidget(className, parent, name);
            if (!w) {
                m_error = QStringLiteral("the template names the control class %1, which this engine does not know")
                              .arg(className);
                return nullptr;
            }
            break;
        }
        default: m_error = QStringLiteral("the compiled template is damaged"); return nullptr;
        }
        if (!root) root = w;
        if (kind != Custom) {
            w->setObjectName(name);
            if (PanelStyle()) w->setStyle(PanelStyle());
        }
        auto* label = base == Label ? static_cast<QLabel*>(w) : nullptr;
        auto* edit = base == LineEdit ? static_cast<QLineEdit*>(w) : nullptr;
        auto* button = base == PushButton ? static_cast<QPushButton*>(w) : nullptr;
        for (int n = in.U8(); n > 0 && in.Ok(); --n) {
            switch (in.U8()) {
            case Geometry: {
                const int x = in.I32(), y = in.I32(), width = in.I32(), height = in.I32();
                // The form's own place is the dialog's business: the root takes the size only.
                if (w == root) w->resize(width, height);
                else w->setGeometry(x, y, width, height);
                break;
            }
            case Text: {
                const QString& text = t.String(in.U16());
                if (label) label->setText(text);
                else if (edit) edit->setText(text);
                else if (button) button->setText(text);
                break;
            }
            case WindowTitle: w->setWindowTitle(t.String(in.U16())); break;
            case ToolTip: w->setToolTip(t.String(in.U16())); break;
            case AccessibleName: w->setAccessibleName(t.String(in.U16())); break;
            case AccessibleDescription: w->setAccessibleDescription(t.String(in.U16())); break;
            case Font: {
                const quint16 i = in.U16();
                if (i < t.fonts.size()) w->setFont(t.fonts[i]);
                break;
            }
            case Palette: {
                const quint16 i = in.U16();
                if (i < t.palettes.size()) w->setPalette(t.palettes[i]);
                break;
            }
            case Alignment: {
                const auto a = Qt::Alignment(static_cast<int>(in.U32()));
                if (label) label->setAlignment(a);
                else if (edit) edit->setAlignment(a);
                break;
            }
            case FrameShape: {
                const auto shape = static_cast<QFrame::Shape>(in.U32());
                if (label) label->setFrameShape(shape);
                break;
            }
            case FrameShadow: {
                const auto shadow = static_cast<QFrame::Shadow>(in.U32());
                if (label) label->setFrameShadow(shadow);
                break;
            }
            case Indent: if (const int v = in.I32(); label) label->setIndent(v); break;
            case LineWidth: if (const int v = in.I32(); label) label->setLineWidth(v); break;
            case Margin: if (const int v = in.I32(); label) label->setMargin(v); break;
            case MaxLength: if (const int v = in.I32(); edit) edit->setMaxLength(v); break;
            case AutoFillBackground: w->setAutoFillBackground(in.U8()); break;
            case Enabled: w->setEnabled(in.U8()); break;
            case WordWrap: if (const bool v = in.U8(); label) label->setWordWrap(v); break;
            case ReadOnly: if (const bool v = in.U8(); edit) edit->setReadOnly(v); break;
            case Frame: if (const bool v = in.U8(); edit) edit->setFrame(v); break;
            case Flat: if (const bool v = in.U8(); button) button->setFlat(v); break;
            case AutoDefault: if (const bool v = in.U8(); button) button->setAutoDefault(v); break;
            case Default: if (const bool v = in.U8(); button) button->setDefault(v); break;
            case Checkable: if (const bool v = in.U8(); button) button->setCheckable(v); break;
            case Checked: if (const bool v = in.U8(); button) button->setChecked(v); break;
            default: m_error = QStringLiteral("the compiled template is damaged"); return nullptr;
            }
        }
        std::vector<quint16> raised(in.U8());
        for (quint16& r : raised) r = in.U16();
        for (int n = in.U16(); n > 0; --n)
            if (!self(self, w)) return nullptr;
        for (quint16 r : raised)
            if (QWidget* child = w->findChild<QWidget*>(t.String(r), Qt::FindDirectChildrenOnly)) child->raise();
        return in.Ok() ? w : nullptr;
    };
    // Built apart and joined to its dialog whole: creating the controls sends
    // the dialogs around them nothing (as the old framework's dialog creation
    // did not), and a damaged template leaves nothing behind.
    QWidget* made = build(build, nullptr);
    QWidget* before = nullptr;
    for (int n = made ? in.U16() : 0; n > 0; --n) {
        QWidget* next = made->findChild<QWidget*>(t.String(in.U16()));
        if (before && next) QWidget::setTabOrder(before, next);
        if (next) before = next;
    }
    if (!made || !in.Ok()) {
        if (m_error.isEmpty()) m_error = QStringLiteral("the compiled template is damaged");
        delete root;
        return nullptr;
    }
    if (parentWidget) made->setParent(parentWidget);
    return made;
}

void CKRNFormLoader::ApplyPalette(QWidget* widget) {
    const QVariant value = widget->property("krnPalette");
    if (!value.isValid()) return;
    // A screen repeats a handful of colour pairs: each is read once.
    static QHash<QString, QPalette> read;
    const QString text = value.toString();
    if (auto it = read.constFind(text); it != read.constEnd()) {
        widget->setPalette(*it);
        return;
    }
    static const QMetaEnum roles = QMetaEnum::fromType<QPalette::ColorRole>();
    // Only the roles named are the control's own; the rest come from its parent.
    QPalette palette;
    const QStringList groups = text.split(QLatin1Char('|'));
    for (int g = 0; g < groups.size() && g < 2; ++g) {
        for (const QString& entry : groups[g].split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const qsizetype eq = entry.indexOf(QLatin1Char('='));
            bool known = false;
            const int role = roles.keyToValue(entry.left(eq).toLatin1().constData(), &known);
            const QColor colour = QColor::fromString(entry.mid(eq + 1));
            if (eq <= 0 || !known || !colour.isValid()) continue;
            if (g == 0)
                palette.setColor(static_cast<QPalette::ColorRole>(role), colour);
            else
                palette.setColor(QPalette::Disabled, static_cast<QPalette::ColorRole>(role), colour);
        }
    }
    read.insert(text, palette);
    widget->setPalette(palette);
}
