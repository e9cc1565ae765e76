#include "KRNOutputFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

bool KRNWriteOutput(const QString& path, const QByteArray& data, QString& problem) {
    auto fail = [&](const QString& why) {
        problem = QStringLiteral("cannot write %1: %2").arg(path, why);
        return false;
    };
    const QFileInfo target(path);
    if (target.isDir()) return fail(QStringLiteral("it is a folder"));
    if (target.exists() && !target.isFile()) {
        // No temporary file can stand in for a device or pipe (and one made
        // in /dev would replace the device when renamed over it).
        QFile device(path);
        if (!device.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return fail(device.errorString());
        if (device.write(data) != data.size()) return fail(device.errorString());
        device.close();
        if (device.error() != QFileDevice::NoError) return fail(device.errorString());
        return true;
    }
    // Unbuffered, so that a failed write shows in write() itself: a buffer
    // flushed only at commit() can fail there unnoticed and still be renamed
    // over the old file. Returning without commit() discards the temporary file.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return fail(file.errorString());
    if (file.write(data) != data.size()) return fail(file.errorString());
    if (!file.commit()) return fail(file.errorString());
    return true;
}

bool KRNWritePng(const QString& path, const QImage& image, QString& problem) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "PNG")) {
        problem = QStringLiteral("cannot write %1: the picture cannot be made").arg(path);
        return false;
    }
    return KRNWriteOutput(path, png, problem);
}

bool KRNFlushStandardOutput(QString& problem) {
    errno = 0;
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return true;
    problem = QStringLiteral("cannot write to standard output: %1")
                  .arg(QString::fromLocal8Bit(std::strerror(errno ? errno : EIO)));
    return false;
}
