#include "KRNResources.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QResource>
#include <QStringList>

#include <memory>
#include <vector>

#if defined(__unix__) || defined(__APPLE__)
#include <dlfcn.h>
#endif

namespace {

struct Module {
    QString path;  // canonical file path
    QString root;  // where its items appear, e.g. ":/krnpanel/1"
    QHash<int, QString> strings;
    bool stringsRead = false;
};

std::vector<std::unique_ptr<Module>>& Modules() {
    static std::vector<std::unique_ptr<Module>> modules;
    return modules;
}

Module* g_current = nullptr;

QString LibraryDir() {
#if defined(__unix__) || defined(__APPLE__)
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&LibraryDir), &info) && info.dli_fname)
        return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).absolutePath();
#endif
    return {};
}

QString ExecutableDir() {
#if defined(__linux__)
    QFileInfo exe(QStringLiteral("/proc/self/exe"));
    if (exe.exists()) return QFileInfo(exe.symLinkTarget()).absolutePath();
#endif
    return {};
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

QString ItemPath(const char* folder, int id, const char* suffix) {
    if (!g_current) return {};
    return QStringLiteral("%1/%2/%3%4").arg(g_current->root, QLatin1String(folder)).arg(id).arg(QLatin1String(suffix));
}

}  // namespace

namespace KRNResources {

void* Load(const std::string& name) {
    QString path = Locate(QString::fromStdString(name));
    if (path.isEmpty() && name.size() > 4 &&
        QString::fromStdString(name.substr(name.size() - 4)).compare(QStringLiteral(".dll"), Qt::CaseInsensitive) == 0)
        path = Locate(QString::fromStdString(name.substr(0, name.size() - 4) + ".rcc"));
    if (path.isEmpty()) return nullptr;
    path = QFileInfo(path).canonicalFilePath();

    for (const auto& m : Modules())
        if (m->path == path) return m.get();

    auto module = std::make_unique<Module>();
    module->path = path;
    module->root = QStringLiteral("/krnpanel/%1").arg(Modules().size() + 1);
    if (!QResource::registerResource(path, module->root)) return nullptr;
    module->root.prepend(QLatin1Char(':'));
    Modules().push_back(std::move(module));
    return Modules().back().get();
}

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
    QFile file(ItemPath("forms", id, ".ui"));
    if (!g_current || !file.open(QIODevice::ReadOnly)) return {};
    return file.readAll();
}

QPixmap Bitmap(int id) {
    if (!g_current) return {};
    return QPixmap(ItemPath("bitmaps", id, ".png"));
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

QString CurrentPath() { return g_current ? g_current->path : QString(); }

}  // namespace KRNResources

QString LoadResourceString(int id) { return KRNResources::String(id); }
