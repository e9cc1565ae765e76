// krn-formcompile: turns the Designer forms of the resource module into the
// compiled templates the panels open (KRNCompiledForm.h), one OUTDIR/<id>.krf
// per forms/<id>.ui.
//
//   krn-formcompile OUTDIR FORM.ui...
//
// Every element, attribute, property and class of a form must be one the
// template loader knows; anything else stops the build with the form, line
// and what is not handled, so a screen never silently loses a property.

#include "KRNCompiledForm.h"

#include <QColor>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QHash>
#include <QMetaEnum>
#include <QPalette>
#include <QXmlStreamReader>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

using namespace KRNCompiledForm;

struct Element {
    QString name;
    QXmlStreamAttributes attributes;
    QString text;
    qint64 line = 0;
    std::vector<std::unique_ptr<Element>> children;
};

QString g_form;  // the form being compiled, for messages

[[noreturn]] void Fail(qint64 line, const QString& what) {
    std::fprintf(stderr, "%s:%lld: error: %s\n", qPrintable(g_form), static_cast<long long>(line), qPrintable(what));
    std::exit(1);
}

std::unique_ptr<Element> Parse(QFile& file) {
    QXmlStreamReader xml(&file);
    std::unique_ptr<Element> root;
    std::vector<Element*> open;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement: {
            auto e = std::make_unique<Element>();
            e->name = xml.name().toString();
            e->attributes = xml.attributes();
            e->line = xml.lineNumber();
            Element* raw = e.get();
            if (open.empty()) root = std::move(e);
            else open.back()->children.push_back(std::move(e));
            open.push_back(raw);
            break;
        }
        case QXmlStreamReader::EndElement: open.pop_back(); break;
        case QXmlStreamReader::Characters:
            if (!open.empty()) open.back()->text += xml.text();
            break;
        default: break;
        }
    }
    if (xml.hasError()) Fail(xml.lineNumber(), QStringLiteral("not a well-formed form: ") + xml.errorString());
    if (!root) Fail(0, QStringLiteral("empty form"));
    return root;
}

// Attributes that only matter to translators and Designer.
void CheckAttributes(const Element& e, std::initializer_list<const char*> allowed) {
    for (const QXmlStreamAttribute& a : e.attributes) {
        bool known = false;
        for (const char* name : allowed) known = known || a.name() == QLatin1String(name);
        if (!known) Fail(e.line, QStringLiteral("attribute %1 of <%2> is not handled").arg(a.name(), e.name));
    }
}

void CheckNoChildren(const Element& e) {
    if (!e.children.empty())
        Fail(e.children.front()->line, QStringLiteral("<%1> inside <%2> is not handled").arg(e.children.front()->name, e.name));
}

class Writer {
public:
    void U8(unsigned v) { m_bytes.append(static_cast<char>(v)); }
    void U16(unsigned v) { U8(v & 0xff), U8((v >> 8) & 0xff); }
    void U32(quint32 v) { U16(v & 0xffff), U16(v >> 16); }
    void I32(qint32 v) { U32(static_cast<quint32>(v)); }
    QByteArray& Bytes() { return m_bytes; }

private:
    QByteArray m_bytes;
};

class Compiler {
public:
    QByteArray Compile(const Element& ui) {
        if (ui.name != QLatin1String("ui")) Fail(ui.line, QStringLiteral("the root element is not <ui>"));
        CheckAttributes(ui, {"version", "language", "stdsetdef"});
        for (const QXmlStreamAttribute& a : ui.attributes)
            if (a.name() == QLatin1String("stdsetdef") && a.value() != QLatin1String("1"))
                Fail(ui.line, QStringLiteral("stdsetdef other than 1 is not handled"));
        const Element* widget = nullptr;
        const Element* tabStops = nullptr;
        for (const auto& c : ui.children) {
            if (c->name == QLatin1String("widget")) {
                if (widget) Fail(c->line, QStringLiteral("a form holds one top-level widget"));
                widget = c.get();
            } else if (c->name == QLatin1String("tabstops")) {
                tabStops = c.get();
            } else if (c->name == QLatin1String("customwidgets")) {
                ReadCustomWidgets(*c);
            } else if (c->name == QLatin1String("resources") || c->name == QLatin1String("connections")) {
                CheckNoChildren(*c);  // pictures come from the bitmaps, signals from the message maps
            } else if (c->name != QLatin1String("class") && c->name != QLatin1String("author") &&
                       c->name != QLatin1String("comment")) {
                Fail(c->line, QStringLiteral("<%1> is not handled").arg(c->name));
            }
        }
        if (!widget) Fail(ui.line, QStringLiteral("the form has no widget"));
        Writer body;
        WriteWidget(*widget, body);
        const std::size_t stops = tabStops ? tabStops->children.size() : 0;
        body.U16(static_cast<unsigned>(stops));
        for (std::size_t i = 0; i < stops; ++i) {
            const Element& stop = *tabStops->children[i];
            if (stop.name != QLatin1String("tabstop")) Fail(stop.line, QStringLiteral("<%1> inside <tabstops> is not handled").arg(stop.name));
            body.U16(String(stop.text.trimmed()));
        }

        Writer out;
        out.Bytes().append(kMagic, sizeof kMagic);
        out.U16(kVersion);
        out.U16(static_cast<unsigned>(m_strings.size()));
        for (const QString& s : m_strings) {
            out.U16(static_cast<unsigned>(s.size()));
            for (QChar c : s) out.U16(c.unicode());
        }
        out.U16(m_palettes);
        out.Bytes().append(m_paletteBytes.Bytes());
        out.U16(m_fonts);
        out.Bytes().append(m_fontBytes.Bytes());
        out.Bytes().append(body.Bytes());
        return out.Bytes();
    }

private:
    void ReadCustomWidgets(const Element& list) {
        for (const auto& c : list.children) {
            if (c->name != QLatin1String("customwidget")) Fail(c->line, QStringLiteral("<%1> is not handled").arg(c->name));
            QString name, extends;
            for (const auto& f : c->children) {
                if (f->name == QLatin1String("class")) name = f->text.trimmed();
                else if (f->name == QLatin1String("extends")) extends = f->text.trimmed();
                else if (f->name != QLatin1String("header") && f->name != QLatin1String("container"))
                    Fail(f->line, QStringLiteral("<%1> of a custom widget is not handled").arg(f->name));
            }
            const int base = QtClass(extends);
            if (name.isEmpty() || base < 0)
                Fail(c->line, QStringLiteral("custom widget %1 extends %2, which templates cannot hold").arg(name, extends));
            m_custom.insert(name, base);
        }
    }

    static int QtClass(const QString& name) {
        if (name == QLatin1String("QWidget")) return Widget;
        if (name == QLatin1String("QLabel")) return Label;
        if (name == QLatin1String("QLineEdit")) return LineEdit;
        if (name == QLatin1String("QPushButton")) return PushButton;
        return -1;
    }

    // The toolkit's shared controls are known without a declaration.
    int BaseOf(const QString& name, qint64 line) const {
        if (int qt = QtClass(name); qt >= 0) return qt;
        if (auto it = m_custom.constFind(name); it != m_custom.constEnd()) return *it;
        if (name == QLatin1String("CKRNColorButton")) return PushButton;
        if (name == QLatin1String("CKRNDrawStatic")) return Label;
        if (name == QLatin1String("CNonNagtiveDigitEdit")) return LineEdit;
        Fail(line, QStringLiteral("widget class %1 is not handled (declare its base in <customwidgets>)").arg(name));
    }

    unsigned String(const QString& s) {
        auto it = m_stringIndex.constFind(s);
        if (it != m_stringIndex.constEnd()) return *it;
        if (m_strings.size() >= kNone) Fail(0, QStringLiteral("too many strings"));
        m_strings.push_back(s);
        return m_stringIndex[s] = static_cast<unsigned>(m_strings.size() - 1);
    }

    void WriteWidget(const Element& w, Writer& out) {
        CheckAttributes(w, {"class", "name"});
        const QString className = w.attributes.value(QLatin1String("class")).toString();
        const QString name = w.attributes.value(QLatin1String("name")).toString();
        const int base = BaseOf(className, w.line);
        if (QtClass(className) >= 0) {
            out.U8(static_cast<unsigned>(base));
        } else {
            out.U8(Custom);
            out.U16(String(className));
            out.U8(static_cast<unsigned>(base));
        }
        out.U16(String(name));

        std::vector<const Element*> properties, children, raised;
        for (const auto& c : w.children) {
            if (c->name == QLatin1String("property")) properties.push_back(c.get());
            else if (c->name == QLatin1String("widget")) children.push_back(c.get());
            else if (c->name == QLatin1String("zorder")) raised.push_back(c.get());
            else Fail(c->line, QStringLiteral("<%1> inside a widget is not handled (templates use fixed geometry)").arg(c->name));
        }
        Writer props;
        for (const Element* p : properties) WriteProperty(*p, base, props);
        if (properties.size() > 255) Fail(w.line, QStringLiteral("too many properties"));
        out.U8(static_cast<unsigned>(properties.size()));
        out.Bytes().append(props.Bytes());
        if (raised.size() > 255) Fail(w.line, QStringLiteral("too many <zorder> entries"));
        out.U8(static_cast<unsigned>(raised.size()));
        for (const Element* z : raised) out.U16(String(z->text.trimmed()));
        out.U16(static_cast<unsigned>(children.size()));
        for (const Element* c : children) WriteWidget(*c, out);
    }

    void WriteProperty(const Element& p, int base, Writer& out) {
        CheckAttributes(p, {"name", "stdset"});
        const QString name = p.attributes.value(QLatin1String("name")).toString();
        const bool dynamic = p.attributes.value(QLatin1String("stdset")) == QLatin1String("0");
        const Element& v = p.children.size() == 1 ? *p.children.front()
                                                  : (Fail(p.line, QStringLiteral("property %1 has no single value").arg(name)), p);
        auto need = [&](const char* type) {
            if (v.name != QLatin1String(type))
                Fail(p.line, QStringLiteral("property %1 given as <%2>, not handled").arg(name, v.name));
        };
        auto only = [&](std::initializer_list<int> classes) {
            for (int c : classes)
                if (c == base) return;
            Fail(p.line, QStringLiteral("property %1 is not handled for this widget class").arg(name));
        };
        auto code = [&](Property c) { out.U8(c); };
        auto string = [&](Property c) {
            need("string");
            CheckAttributes(v, {"notr", "comment", "extracomment", "id"});
            code(c);
            out.U16(String(v.text));
        };
        auto boolean = [&](Property c) {
            need("bool");
            const QString t = v.text.trimmed();
            if (t != QLatin1String("true") && t != QLatin1String("false"))
                Fail(p.line, QStringLiteral("property %1 is not true or false").arg(name));
            code(c);
            out.U8(t == QLatin1String("true"));
        };
        auto number = [&](Property c) {
            need("number");
            bool ok = false;
            const int n = v.text.trimmed().toInt(&ok);
            if (!ok) Fail(p.line, QStringLiteral("property %1 is not a whole number").arg(name));
            code(c);
            out.I32(n);
        };
        auto enumeration = [&](Property c, const QMetaEnum& meta, const char* type, bool flags) {
            need(type);
            QByteArray keys = v.text.trimmed().toLatin1();
            bool ok = false;
            int value = 0;
            for (const QByteArray& key : keys.split('|')) {
                const QByteArray bare = key.mid(key.lastIndexOf(':') + 1).trimmed();
                const int k = meta.keyToValue(bare.constData(), &ok);
                if (!ok) Fail(p.line, QStringLiteral("%1 is not a value of property %2").arg(QString::fromLatin1(key), name));
                value |= k;
            }
            if (!flags && keys.contains('|')) Fail(p.line, QStringLiteral("property %1 takes one value").arg(name));
            code(c);
            out.U32(static_cast<quint32>(value));
        };
        const std::initializer_list<int> textual = {Label, LineEdit, PushButton};

        if (dynamic) {
            if (name != QLatin1String("krnPalette")) Fail(p.line, QStringLiteral("dynamic property %1 is not handled").arg(name));
            need("string");
            CheckAttributes(v, {"notr", "comment", "extracomment", "id"});
            code(Palette);
            out.U16(PaletteIndex(v.text, p.line));
        } else if (name == QLatin1String("geometry")) {
            need("rect");
            int r[4] = {0, 0, 0, 0};
            const char* parts[4] = {"x", "y", "width", "height"};
            if (v.children.size() != 4) Fail(p.line, QStringLiteral("geometry needs x, y, width and height"));
            for (int i = 0; i < 4; ++i) {
                const Element& part = *v.children[static_cast<std::size_t>(i)];
                bool ok = false;
                r[i] = part.text.trimmed().toInt(&ok);
                if (part.name != QLatin1String(parts[i]) || !ok)
                    Fail(part.line, QStringLiteral("geometry needs x, y, width and height as numbers"));
            }
            code(Geometry);
            for (int n : r) out.I32(n);
        } else if (name == QLatin1String("font")) {
            need("font");
            code(Font);
            out.U16(FontIndex(v));
        } else if (name == QLatin1String("text")) {
            only(textual);
            string(Text);
        } else if (name == QLatin1String("windowTitle")) {
            string(WindowTitle);
        } else if (name == QLatin1String("toolTip")) {
            string(ToolTip);
        } else if (name == QLatin1String("accessibleName")) {
            string(AccessibleName);
        } else if (name == QLatin1String("accessibleDescription")) {
            string(AccessibleDescription);
        } else if (name == QLatin1String("alignment")) {
            only({Label, LineEdit});
            enumeration(Alignment, Qt::staticMetaObject.enumerator(Qt::staticMetaObject.indexOfEnumerator("Alignment")), "set", true);
        } else if (name == QLatin1String("frameShape")) {
            only({Label});
            enumeration(FrameShape, QMetaEnum::fromType<QFrame::Shape>(), "enum", false);
        } else if (name == QLatin1String("frameShadow")) {
            only({Label});
            enumeration(FrameShadow, QMetaEnum::fromType<QFrame::Shadow>(), "enum", false);
        } else if (name == QLatin1String("indent")) {
            only({Label});
            number(Indent);
        } else if (name == QLatin1String("lineWidth")) {
            only({Label});
            number(LineWidth);
        } else if (name == QLatin1String("margin")) {
            only({Label});
            number(Margin);
        } else if (name == QLatin1String("maxLength")) {
            only({LineEdit});
            number(MaxLength);
        } else if (name == QLatin1String("autoFillBackground")) {
            boolean(AutoFillBackground);
        } else if (name == QLatin1String("enabled")) {
            boolean(Enabled);
        } else if (name == QLatin1String("wordWrap")) {
            only({Label});
            boolean(WordWrap);
        } else if (name == QLatin1String("readOnly")) {
            only({LineEdit});
            boolean(ReadOnly);
        } else if (name == QLatin1String("frame")) {
            only({LineEdit});
            boolean(Frame);
        } else if (name == QLatin1String("flat")) {
            only({PushButton});
            boolean(Flat);
        } else if (name == QLatin1String("autoDefault")) {
            only({PushButton});
            boolean(AutoDefault);
        } else if (name == QLatin1String("default")) {
            only({PushButton});
            boolean(Default);
        } else if (name == QLatin1String("checkable")) {
            only({PushButton});
            boolean(Checkable);
        } else if (name == QLatin1String("checked")) {
            only({PushButton});
            boolean(Checked);
        } else {
            Fail(p.line, QStringLiteral("property %1 is not handled").arg(name));
        }
    }

    // "WindowText=#ffc800 Window=#000000 | WindowText=#808080": the roles for
    // every state, then after '|' those that differ when disabled.
    unsigned PaletteIndex(const QString& text, qint64 line) {
        if (auto it = m_paletteIndex.constFind(text); it != m_paletteIndex.constEnd()) return *it;
        static const QMetaEnum roles = QMetaEnum::fromType<QPalette::ColorRole>();
        const QStringList groups = text.split(QLatin1Char('|'));
        if (groups.size() > 2) Fail(line, QStringLiteral("krnPalette has more than two groups"));
        Writer entries;
        unsigned count = 0;
        for (int g = 0; g < groups.size(); ++g) {
            for (const QString& entry : groups[g].split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
                const qsizetype eq = entry.indexOf(QLatin1Char('='));
                bool known = false;
                const int role = eq > 0 ? roles.keyToValue(entry.left(eq).toLatin1().constData(), &known) : -1;
                const QColor colour = QColor::fromString(entry.mid(eq + 1));
                if (!known) Fail(line, QStringLiteral("krnPalette: %1 names no colour role").arg(entry));
                if (!colour.isValid()) Fail(line, QStringLiteral("krnPalette: %1 gives no colour").arg(entry));
                entries.U8(g == 0 ? AllGroups : Disabled);
                entries.U8(static_cast<unsigned>(role));
                entries.U32(colour.rgba());
                ++count;
            }
        }
        if (count > 255) Fail(line, QStringLiteral("krnPalette is too long"));
        m_paletteBytes.U8(count);
        m_paletteBytes.Bytes().append(entries.Bytes());
        m_paletteIndex.insert(text, m_palettes);
        return m_palettes++;
    }

    unsigned FontIndex(const Element& font) {
        unsigned family = kNone;
        int points = -1;
        unsigned flags[3] = {0, 0, 0};  // bold, italic, underline
        for (const auto& part : font.children) {
            const QString t = part->text.trimmed();
            auto flag = [&](int i) {
                if (t != QLatin1String("true") && t != QLatin1String("false"))
                    Fail(part->line, QStringLiteral("font %1 is not true or false").arg(part->name));
                flags[i] = t == QLatin1String("true") ? 2 : 1;
            };
            if (part->name == QLatin1String("family")) {
                family = String(t);
            } else if (part->name == QLatin1String("pointsize")) {
                bool ok = false;
                points = t.toInt(&ok);
                if (!ok || points <= 0) Fail(part->line, QStringLiteral("font point size is not a positive number"));
            } else if (part->name == QLatin1String("bold")) {
                flag(0);
            } else if (part->name == QLatin1String("italic")) {
                flag(1);
            } else if (part->name == QLatin1String("underline")) {
                flag(2);
            } else {
                Fail(part->line, QStringLiteral("font <%1> is not handled").arg(part->name));
            }
        }
        const QString key = QStringLiteral("%1/%2/%3%4%5").arg(family).arg(points).arg(flags[0]).arg(flags[1]).arg(flags[2]);
        if (auto it = m_fontIndex.constFind(key); it != m_fontIndex.constEnd()) return *it;
        m_fontBytes.U16(family);
        m_fontBytes.U16(static_cast<unsigned>(static_cast<qint16>(points)) & 0xffff);
        for (unsigned f : flags) m_fontBytes.U8(f);
        m_fontIndex.insert(key, m_fonts);
        return m_fonts++;
    }

    QHash<QString, int> m_custom;
    std::vector<QString> m_strings;
    QHash<QString, unsigned> m_stringIndex;
    Writer m_paletteBytes;
    QHash<QString, unsigned> m_paletteIndex;
    unsigned m_palettes = 0;
    Writer m_fontBytes;
    QHash<QString, unsigned> m_fontIndex;
    unsigned m_fonts = 0;
};

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: krn-formcompile OUTDIR FORM.ui...\n");
        return 2;
    }
    for (const QString& form : args.mid(1)) {
        g_form = form;
        QFile in(form);
        if (!in.open(QIODevice::ReadOnly)) Fail(0, QStringLiteral("cannot be read"));
        const std::unique_ptr<Element> ui = Parse(in);
        const QByteArray compiled = Compiler().Compile(*ui);
        QFile out(args[0] + QLatin1Char('/') + QFileInfo(form).completeBaseName() + QStringLiteral(".krf"));
        if (!out.open(QIODevice::WriteOnly) || out.write(compiled) != compiled.size())
            Fail(0, QStringLiteral("%1 cannot be written").arg(out.fileName()));
    }
    return 0;
}
