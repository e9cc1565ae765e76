#include "KRNResources.h"

#include "KRNModuleStamp.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QResource>
#include <QStringList>

#include <memory>
#include <vector>

#if defined(_WIN32)
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#elif defined(__unix__) || defined(__APPLE__)
#include <dlfcn.h>
#endif

namespace {

struct Module {
    QString path;       // canonical file path
    QString root;       // where its items appear, e.g. ":/krnpanel/1"
    QByteArray sealed;  // the file as checked; Qt reads the resources from here
    QHash<int, QString> strings;
    bool stringsRead = false;
    // Bitmaps once read, by number and scale (id * 2, + 1 for the picture at
    // twice the pixels). A module's items never change while it is loaded,
    // and a screen of soft keys asks for the same faces at every opening.
    QHash<qint64, QPixmap> bitmaps;
    QHash<int, QByteArray> forms;  // templates once read, for the same reason
};

std::vector<std::unique_ptr<Module>>& Modules() {
    static std::vector<std::unique_ptr<Module>> modules;
    return modules;
}

Module* g_current = nullptr;
QString g_problem;  // why the last Load gave null
int g_registered = 0;  // roots handed out, never used twice

// No module comes near this; a bigger file is refused unread.
constexpr qint64 kMaxModuleBytes = 64 * 1024 * 1024;

#if defined(_WIN32)
// The folder of the module that holds `address`, or of the program for null.
QString WindowsModuleDir(const void* address) {
    HMODULE module = nullptr;
    if (address && !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                       static_cast<LPCWSTR>(address), &module))
        return {};
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(module, path, DWORD(sizeof path / sizeof path[0]));
    if (length == 0 || length >= sizeof path / sizeof path[0]) return {};
    return QFileInfo(QString::fromWCharArray(path, int(length))).absolutePath();
}
#endif

// The folder of the library itself: the package installs the module beside
// it (beside the DLL in bin/ on Windows).
QString LibraryDir() {
#if defined(_WIN32)
    return WindowsModuleDir(reinterpret_cast<const void*>(&LibraryDir));
#elif defined(__unix__) || defined(__APPLE__)
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&LibraryDir), &info) && info.dli_fname)
        return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).absolutePath();
    return {};
#else
    return {};
#endif
}

// The host program's folder, where a host may keep the module instead.
QString ExecutableDir() {
#if defined(_WIN32)
    return WindowsModuleDir(nullptr);
#elif defined(__linux__)
    QFileInfo exe(QStringLiteral("/proc/self/exe"));
    if (exe.exists()) return QFileInfo(exe.symLinkTarget()).absolutePath();
    return {};
#else
    return {};
#endif
}

QString Locate(const QString& name) {
    if (QFileInfo(name).isAbsolute()) return QFileInfo::exists(name) ? name : QString();
    for (const QString& dir : {LibraryDir(), ExecutableDir()}) {
        if (dir.isEmpty()) continue;
        const QString candidate = dir + QLatin1Char('/') + name;
        if (QFileInfo::exists(candidate)) return candidate;
    }
    return QFileInfo::exists(name) ? QFileInfo(name).absoluteFilePath() : QString();
}

void ReadStrings(Module& m) {
    m.stringsRead = true;
    QFile file(m.root + QStringLiteral("/strings.txt"));
    if (!file.open(QIODevice::ReadOnly)) return;
    // One string a line: number, a tab, the text; "\n" stands for a line break.
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        const qsizetype tab = line.indexOf(QLatin1Char('\t'));
        if (tab <= 0) continue;
        bool ok = false;
        const int id = line.left(tab).toInt(&ok);
        if (!ok) continue;
        QString text = line.mid(tab + 1);
        text.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
        m.strings.insert(id, text);
    }
}

// The items the manifest of the module at `root` names; false when it has none.
bool ReadManifest(const QString& root, QStringList& items) {
    QFile manifest(root + QStringLiteral("/manifest.txt"));
    if (!manifest.open(QIODevice::ReadOnly)) return false;
    const QStringList lines = QString::fromUtf8(manifest.readAll()).split(QLatin1Char('\n'));
    for (const QString& raw : lines) {
        const QString item = raw.trimmed();
        if (!item.isEmpty() && !item.startsWith(QLatin1Char('#'))) items << item;
    }
    return true;
}

// What the panels need of a module whose seal is whole: a manifest, the
// string table, at least one template, and every item the manifest names.
// Empty when all is there.
QString CheckContents(const QString& root) {
    QStringList items;
    if (!ReadManifest(root, items)) return QStringLiteral("it has no manifest");
    bool strings = false;
    int forms = 0;
    for (const QString& item : items) {
        if (QFileInfo(root + QLatin1Char('/') + item).size() <= 0)
            return QStringLiteral("it lacks %1, which its manifest names").arg(item);
        if (item == QLatin1String("strings.txt")) strings = true;
        if (item.startsWith(QLatin1String("forms/"))) ++forms;
    }
    if (!strings) return QStringLiteral("it has no string table");
    if (forms == 0) return QStringLiteral("it holds no dialog templates");
    return {};
}

bool g_dropHooked = false;  // DropBitmaps is due when the application object goes

// Pixmaps belong to the application object's graphics system: none is kept
// past it, and a later application object reads them afresh.
void DropBitmaps() {
    g_dropHooked = false;
    for (const auto& m : Modules()) m->bitmaps.clear();
}

QString ItemPath(const char* folder, int id, const char* suffix) {
    if (!g_current) return {};
    return QStringLiteral("%1/%2/%3%4").arg(g_current->root, QLatin1String(folder)).arg(id).arg(QLatin1String(suffix));
}

}  // namespace

namespace KRNResources {

void* Load(const std::string& name) {
    const QString given = QString::fromStdString(name);
    QString path = Locate(given);
    QString rcc;
    if (path.isEmpty() && given.size() > 4 && given.endsWith(QStringLiteral(".dll"), Qt::CaseInsensitive)) {
        rcc = given.left(given.size() - 4) + QStringLiteral(".rcc");
        path = Locate(rcc);
    }
    if (path.isEmpty()) {
        // A ".dll" name is only the old platform's spelling of the ".rcc" file.
        g_problem = QStringLiteral("the resource module \"%1\" was not found%2")
                        .arg(rcc.isEmpty() ? given : rcc,
                             QFileInfo(given).isAbsolute()
                                 ? QString()
                                 : QStringLiteral(" beside the engine library, beside the program or in the working folder"));
        return nullptr;
    }
    path = QFileInfo(path).canonicalFilePath();

    for (const auto& m : Modules())
        if (m->path == path) {
            g_problem.clear();
            return m.get();
        }

    auto damaged = [&](const QString& what) {
        g_problem = QStringLiteral("the resource module \"%1\" is damaged: %2").arg(path, what);
        return nullptr;
    };
    const QFileInfo info(path);
    if (!info.isFile()) return damaged(QStringLiteral("it is no regular file"));
    if (info.size() > kMaxModuleBytes) return damaged(QStringLiteral("it is %1 bytes long, far more than any module").arg(info.size()));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return damaged(QStringLiteral("it cannot be read (%1)").arg(file.errorString()));
    auto module = std::make_unique<Module>();
    module->path = path;
    module->sealed = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return damaged(QStringLiteral("it cannot be read (%1)").arg(file.errorString()));

    // Qt's reader follows the offsets inside the resources blindly, so it sees
    // only bytes whose checksum matched, and never the file itself (which
    // could change under it).
    qsizetype resources = 0;
    if (const QString broken = KRNModuleStamp::Check(module->sealed, resources); !broken.isEmpty())
        return damaged(broken);
    if (resources < 4 || !module->sealed.startsWith("qres"))
        return damaged(QStringLiteral("its stamp seals no Qt resources"));
    const auto* data = reinterpret_cast<const uchar*>(module->sealed.constData());
    const QString root = QStringLiteral("/krnpanel/%1").arg(++g_registered);
    if (!QResource::registerResource(data, root))
        return damaged(QStringLiteral("Qt does not take its resources"));
    module->root = QLatin1Char(':') + root;
    if (const QString missing = CheckContents(module->root); !missing.isEmpty()) {
        QResource::unregisterResource(data, root);
        return damaged(missing);
    }
    g_problem.clear();
    Modules().push_back(std::move(module));
    return Modules().back().get();
}

QString LastProblem() { return g_problem; }

void* Current() { return g_current; }

void SetCurrent(void* module) {
    for (const auto& m : Modules())
        if (m.get() == module) g_current = m.get();
}

QString String(int id) {
    if (!g_current) return {};
    if (!g_current->stringsRead) ReadStrings(*g_current);
    return g_current->strings.value(id);
}

QByteArray Form(int id) {
    if (!g_current) return {};
    if (const auto it = g_current->forms.constFind(id); it != g_current->forms.cend()) return *it;
    // The template compiled at build time; a module made by hand may hold the Designer form itself.
    QFile file(ItemPath("forms", id, ".krf"));
    if (!file.open(QIODevice::ReadOnly)) file.setFileName(ItemPath("forms", id, ".ui"));
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly)) return {};
    return *g_current->forms.insert(id, file.readAll());
}

QPixmap Bitmap(int id, qreal devicePixelRatio) {
    if (!g_current) return {};
    const bool sharp = devicePixelRatio >= 1.5;
    const qint64 key = qint64(id) * 2 + (sharp ? 1 : 0);
    if (const auto it = g_current->bitmaps.constFind(key); it != g_current->bitmaps.cend()) return *it;
    QPixmap pixmap;
    if (sharp) {
        pixmap = QPixmap(ItemPath("bitmaps", id, "@2x.png"));
        if (!pixmap.isNull()) pixmap.setDevicePixelRatio(2.0);
    }
    if (pixmap.isNull()) pixmap = QPixmap(ItemPath("bitmaps", id, ".png"));
    if (!QCoreApplication::instance()) return pixmap;  // nothing to keep it for
    if (!g_dropHooked) qAddPostRoutine(DropBitmaps), g_dropHooked = true;
    return *g_current->bitmaps.insert(key, pixmap);
}

QCursor Cursor(int id) {
    if (!g_current) return QCursor(Qt::ArrowCursor);
    QImage image(ItemPath("cursors", id, ".png"));
    if (image.isNull()) return QCursor(Qt::ArrowCursor);
    // The hot spot travels inside the picture as a text chunk "x,y".
    const QStringList hot = image.text(QStringLiteral("hotspot")).split(QLatin1Char(','));
    const int hx = hot.size() == 2 ? hot[0].toInt() : 0;
    const int hy = hot.size() == 2 ? hot[1].toInt() : 0;
    return QCursor(QPixmap::fromImage(image), hx, hy);
}

QStringList Items() {
    QStringList items;
    if (g_current) ReadManifest(g_current->root, items);
    return items;
}

QString CurrentPath() { return g_current ? g_current->path : QString(); }

}  // namespace KRNResources

QString LoadResourceString(int id) { return KRNResources::String(id); }
