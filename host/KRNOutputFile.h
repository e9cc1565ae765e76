#pragma once

// What krn-panel writes (records, pictures) is written whole or not at all, and
// a write that fails is an error, never a silent exit 0.

#include <QByteArray>
#include <QString>

class QImage;

// Writes `data` to `path`. A regular file, or a new one, is written to a
// temporary file beside it and renamed over it, so after a failed write the
// old content is still there; a device or pipe (/dev/stdout, a fifo,
// /dev/full) is written straight, every write and the close checked. False,
// with `problem` saying "cannot write PATH: reason", when anything failed.
bool KRNWriteOutput(const QString& path, const QByteArray& data, QString& problem);

// `image` as a PNG file, the same way.
bool KRNWritePng(const QString& path, const QImage& image, QString& problem);

// Flushes standard output; false, with `problem`, when any write to it failed
// (a full disk, /dev/full).
bool KRNFlushStandardOutput(QString& problem);
