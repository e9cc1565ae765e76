// Builds the contents of the resource module KRNPANEL at build time: renders
// the bitmaps and cursors described in the manifests (so captions stay
// editable text) and writes the .qrc that packs them with the dialog
// templates (compiled by krn-formcompile, packed as they are), the string
// table and a manifest naming every item. Every bitmap is drawn twice:
// ID.png at its own size and ID@2x.png from the same steps at twice the
// pixels, for screens scaled by 2, so captions and markers stay sharp there.
//
//   krn-bitmapgen OUTDIR --strings FILE --forms TEMPLATE.krf... --manifests FILE...
//
// Manifest lines (one item per "bitmap" or "cursor" line, drawing steps below
// it, indented; "# " starts a comment; colours as #rrggbb or Qt colour names):
//   bitmap ID WxH BACKGROUND
//     key "CAPTION" TEXTCOLOR [SIZE]        raised machine key with its caption
//     fill X Y W H COLOR
//     rect X Y W H PEN [FILL]
//     line X1 Y1 X2 Y2 COLOR [WIDTH]
//     ellipse X Y W H PEN [FILL]
//     polygon COLOR FILL X1 Y1 X2 Y2 ...
//     text X Y W H COLOR SIZE "TEXT" [bold] [left|center|right]
//     bevel X Y W H raised|sunken
//   cursor ID WxH HOTX HOTY arrow|drag

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>
#include <QStringList>
#include <QTextStream>

#include <cstdio>

namespace {

[[noreturn]] void Fail(const QString& where, const QString& what) {
    std::fprintf(stderr, "krn-bitmapgen: %s: %s\n", qPrintable(where), qPrintable(what));
    std::exit(1);
}

QStringList Tokens(const QString& line) {
    QStringList out;
    QString cur;
    bool quoted = false, any = false;
    for (qsizetype at = 0; at < line.size(); ++at) {
        const QChar c = line[at];
        if (c == QLatin1Char('"')) { quoted = !quoted; any = true; continue; }
        // '#' starts a comment at the start of a line, or at the start of a
        // word when a blank follows; "#rrggbb" is a colour.
        if (!quoted && !any && c == QLatin1Char('#')) {
            if (out.isEmpty() || at + 1 >= line.size() || line[at + 1].isSpace()) break;
        }
        if (!quoted && c.isSpace()) {
            if (any) out << cur;
            cur.clear();
            any = false;
            continue;
        }
        cur += c;
        any = true;
    }
    if (any) out << cur;
    return out;
}

struct Reader {
    QString where;
    QStringList t;
    int Int(int i) const {
        bool ok = false;
        const int v = i < t.size() ? t[i].toInt(&ok) : 0;
        if (!ok) Fail(where, QStringLiteral("a whole number expected at word %1").arg(i + 1));
        return v;
    }
    QColor Color(int i) const {
        const QColor c = i < t.size() ? QColor::fromString(t[i]) : QColor();
        if (!c.isValid()) Fail(where, QStringLiteral("a colour expected at word %1").arg(i + 1));
        return c;
    }
    QString Str(int i) const { return i < t.size() ? t[i] : QString(); }
    bool Has(int i) const { return i < t.size(); }
    QSize Size(int i) const {
        const QStringList wh = Str(i).split(QLatin1Char('x'));
        if (wh.size() != 2) Fail(where, QStringLiteral("a size WxH expected"));
        return {wh[0].toInt(), wh[1].toInt()};
    }
};

// The edges are filled, not stroked, so they cover the same pixels at either
// scale: one bitmap pixel wide, the top and left drawn first.
void Bevel(QPainter& p, const QRect& r, bool raised) {
    const QColor light(247, 246, 248), dark(44, 39, 47);
    const QColor topLeft = raised ? light : dark, bottomRight = raised ? dark : light;
    p.fillRect(QRect(r.left(), r.top(), r.width(), 1), topLeft);
    p.fillRect(QRect(r.left(), r.top(), 1, r.height()), topLeft);
    p.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), bottomRight);
    p.fillRect(QRect(r.right(), r.top(), 1, r.height()), bottomRight);
}

// Qt strokes a line of odd width at a whole coordinate on the pixel to its
// right and below it. On a bitmap drawn at twice the pixels the stroke is of
// even width and would straddle the coordinate, half a bitmap pixel up and to
// the left of where the plain bitmap has it; this moves it back.
void AlignStroke(QPainter& p, int width) {
    p.resetTransform();
    if (p.device()->devicePixelRatioF() > 1.0 && width % 2 == 1) p.translate(0.5, 0.5);
}

// One drawing step in the bitmap's own coordinates; `all` is the whole bitmap.
// The painter carries the scale of the image it draws on.
void Step(QPainter& p, const QRect& all, const Reader& r) {
    const QString op = r.Str(0);
    p.setBrush(Qt::NoBrush);
    p.resetTransform();
    if (op == QLatin1String("key")) {
        Bevel(p, all, true);
        Bevel(p, all.adjusted(1, 1, -1, -1), true);
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPixelSize(r.Has(3) ? r.Int(3) : 12);
        f.setBold(true);
        p.setFont(f);
        p.setPen(r.Color(2));
        p.drawText(all.adjusted(3, 3, -3, -3), Qt::AlignCenter | Qt::TextWordWrap, r.Str(1));
    } else if (op == QLatin1String("fill")) {
        p.fillRect(QRect(r.Int(1), r.Int(2), r.Int(3), r.Int(4)), r.Color(5));
    } else if (op == QLatin1String("rect") || op == QLatin1String("ellipse")) {
        // Square corners: the default bevelled join of a stroke two pixels
        // wide would leave out the outer corner pixel of a frame at twice the pixels.
        QPen pen(r.Color(5), 1);
        pen.setJoinStyle(Qt::MiterJoin);
        p.setPen(pen);
        if (r.Has(6)) p.setBrush(r.Color(6));
        AlignStroke(p, 1);
        const QRect rect(r.Int(1), r.Int(2), r.Int(3), r.Int(4));
        if (op == QLatin1String("rect")) p.drawRect(rect); else p.drawEllipse(rect);
    } else if (op == QLatin1String("line")) {
        const int width = r.Has(6) ? r.Int(6) : 1;
        p.setPen(QPen(r.Color(5), width));
        AlignStroke(p, width);
        p.drawLine(r.Int(1), r.Int(2), r.Int(3), r.Int(4));
    } else if (op == QLatin1String("polygon")) {
        QPolygon poly;
        for (int i = 3; i + 1 < r.t.size(); i += 2) poly << QPoint(r.Int(i), r.Int(i + 1));
        p.setPen(r.Color(1));
        p.setBrush(r.Color(2));
        AlignStroke(p, 1);
        p.drawPolygon(poly);
    } else if (op == QLatin1String("text")) {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPixelSize(r.Int(6));
        int align = Qt::AlignVCenter | Qt::AlignHCenter;
        for (int i = 8; i < r.t.size(); ++i) {
            if (r.Str(i) == QLatin1String("bold")) f.setBold(true);
            if (r.Str(i) == QLatin1String("left")) align = Qt::AlignVCenter | Qt::AlignLeft;
            if (r.Str(i) == QLatin1String("right")) align = Qt::AlignVCenter | Qt::AlignRight;
        }
        p.setFont(f);
        p.setPen(r.Color(5));
        p.drawText(QRect(r.Int(1), r.Int(2), r.Int(3), r.Int(4)), align | Qt::TextWordWrap, r.Str(7));
    } else if (op == QLatin1String("bevel")) {
        Bevel(p, QRect(r.Int(1), r.Int(2), r.Int(3), r.Int(4)), r.Str(5) != QLatin1String("sunken"));
    } else {
        Fail(r.where, QStringLiteral("unknown drawing step '%1'").arg(op));
    }
}

QImage Cursor(const Reader& r) {
    const QSize size = r.Size(2);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Qt::black, 1));
    p.setBrush(Qt::white);
    if (r.Str(5) == QLatin1String("arrow")) {
        p.drawPolygon(QPolygon({{0, 0}, {0, 16}, {4, 12}, {7, 19}, {10, 18}, {7, 11}, {12, 11}}));
    } else if (r.Str(5) == QLatin1String("drag")) {
        // A hand holding a point: a cross of four arrows around the hot spot.
        const int cx = r.Int(3), cy = r.Int(4);
        QPainterPath path;
        path.addPolygon(QPolygonF({QPointF(cx, cy - 10), QPointF(cx + 4, cy - 6), QPointF(cx + 1, cy - 6),
                                   QPointF(cx + 1, cy - 1), QPointF(cx + 6, cy - 1), QPointF(cx + 6, cy - 4),
                                   QPointF(cx + 10, cy), QPointF(cx + 6, cy + 4), QPointF(cx + 6, cy + 1),
                                   QPointF(cx + 1, cy + 1), QPointF(cx + 1, cy + 6), QPointF(cx + 4, cy + 6),
                                   QPointF(cx, cy + 10), QPointF(cx - 4, cy + 6), QPointF(cx - 1, cy + 6),
                                   QPointF(cx - 1, cy + 1), QPointF(cx - 6, cy + 1), QPointF(cx - 6, cy + 4),
                                   QPointF(cx - 10, cy), QPointF(cx - 6, cy - 4), QPointF(cx - 6, cy - 1),
                                   QPointF(cx - 1, cy - 1), QPointF(cx - 1, cy - 6), QPointF(cx - 4, cy - 6)}));
        path.closeSubpath();
        p.drawPath(path);
    } else {
        Fail(r.where, QStringLiteral("cursor shape must be arrow or drag"));
    }
    p.end();
    image.setText(QStringLiteral("hotspot"), QStringLiteral("%1,%2").arg(r.Int(3)).arg(r.Int(4)));
    return image;
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty()) Fail(QStringLiteral("usage"), QStringLiteral("krn-bitmapgen OUTDIR --strings F --forms F... --manifests F..."));
    const QString out = args.takeFirst();
    QString strings, mode;
    QStringList forms, manifests;
    for (const QString& a : args) {
        if (a.startsWith(QLatin1String("--"))) { mode = a; continue; }
        if (mode == QLatin1String("--strings")) strings = a;
        else if (mode == QLatin1String("--forms")) forms << a;
        else if (mode == QLatin1String("--manifests")) manifests << a;
    }
    QDir().mkpath(out + QStringLiteral("/bitmaps"));
    QDir().mkpath(out + QStringLiteral("/cursors"));

    QStringList entries;  // alias -> file
    QStringList aliases;  // what the module holds, for its manifest
    auto add = [&](const QString& alias, const QString& file) {
        entries << QStringLiteral("  <file alias=\"%1\">%2</file>").arg(alias, QFileInfo(file).absoluteFilePath());
        aliases << alias;
    };
    if (!strings.isEmpty()) add(QStringLiteral("strings.txt"), strings);
    for (const QString& f : forms) add(QStringLiteral("forms/") + QFileInfo(f).fileName(), f);

    QSet<QString> seen;
    for (const QString& manifest : manifests) {
        QFile file(manifest);
        if (!file.open(QIODevice::ReadOnly)) Fail(manifest, QStringLiteral("cannot be read"));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        QImage image;    // the item at its own size
        QImage image2x;  // a bitmap again at twice the pixels; null for a cursor
        QString itemName;
        // Saved at the strongest PNG compression: the pictures at twice the
        // pixels more than double the module; this keeps it some 6 % smaller.
        auto save = [&](const QImage& picture, const QString& alias) {
            if (!picture.save(out + QLatin1Char('/') + alias, nullptr, 0)) Fail(alias, QStringLiteral("cannot be written"));
            add(alias, out + QLatin1Char('/') + alias);
        };
        auto finish = [&]() {
            if (image.isNull()) return;
            save(image, itemName);
            if (!image2x.isNull()) {
                QString alias = itemName;
                save(image2x, alias.insert(alias.size() - 4, QStringLiteral("@2x")));
            }
            image = image2x = QImage();
        };
        for (int n = 0; n < lines.size(); ++n) {
            Reader r{QStringLiteral("%1:%2").arg(manifest).arg(n + 1), Tokens(lines[n])};
            if (r.t.isEmpty()) continue;
            const bool step = lines[n].front().isSpace();
            if (step) {
                if (image.isNull()) Fail(r.where, QStringLiteral("a drawing step outside a bitmap"));
                for (QImage* target : {&image, &image2x}) {
                    if (target->isNull()) continue;
                    QPainter p(target);
                    Step(p, image.rect(), r);
                }
                continue;
            }
            finish();
            if (r.Str(0) == QLatin1String("bitmap")) {
                itemName = QStringLiteral("bitmaps/%1.png").arg(r.Int(1));
                image = QImage(r.Size(2), QImage::Format_RGB32);
                image.fill(r.Color(3));
                // Drawn, not enlarged: the painter scales the steps' coordinates
                // and renders text and lines at the finer resolution.
                image2x = QImage(r.Size(2) * 2, QImage::Format_RGB32);
                image2x.setDevicePixelRatio(2.0);
                image2x.fill(r.Color(3));
            } else if (r.Str(0) == QLatin1String("cursor")) {
                itemName = QStringLiteral("cursors/%1.png").arg(r.Int(1));
                image = Cursor(r);
            } else {
                Fail(r.where, QStringLiteral("expected 'bitmap' or 'cursor'"));
            }
            if (seen.contains(itemName)) Fail(r.where, itemName + QStringLiteral(" is described twice"));
            seen.insert(itemName);
        }
        finish();
    }

    // The engine refuses a module that lacks an item its manifest names.
    QFile manifest(out + QStringLiteral("/manifest.txt"));
    if (!manifest.open(QIODevice::WriteOnly | QIODevice::Truncate)) Fail(manifest.fileName(), QStringLiteral("cannot be written"));
    manifest.write("# Every item of this resource module, one a line.\n");
    manifest.write(aliases.join(QLatin1Char('\n')).toUtf8() + '\n');
    manifest.close();
    add(QStringLiteral("manifest.txt"), manifest.fileName());

    QFile qrc(out + QStringLiteral("/KRNPANEL.qrc"));
    if (!qrc.open(QIODevice::WriteOnly | QIODevice::Truncate)) Fail(qrc.fileName(), QStringLiteral("cannot be written"));
    QTextStream s(&qrc);
    s << "<RCC>\n <qresource prefix=\"/\">\n" << entries.join(QLatin1Char('\n')) << "\n </qresource>\n</RCC>\n";
    return 0;
}
