#pragma once

// krn-panel run as a host or a tester runs it, for the tests in tests/host
// (whose program knows the built krn-panel as KRN_PANEL_EXE).

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

// A run's exit code (-1 when it crashed or hung) and what it printed.
struct KRNPanelRun {
    int code = -1;
    QString out, err;
};

inline QString KRNWriteFile(const QTemporaryDir& dir, const QString& name, const QByteArray& text) {
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size())
        ADD_FAILURE() << "cannot write " << qPrintable(file.fileName());
    return file.fileName();
}

inline QByteArray KRNReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Runs krn-panel with `args`, and `script` as its --script when given;
// `setUp` may change the process before it starts (another copy of the
// program, its folder, its environment, where its output goes).
inline KRNPanelRun KRNRunPanel(const QStringList& args, const QByteArray& script = {},
                               const std::function<void(QProcess&)>& setUp = {}) {
    static QTemporaryDir dir;
    QProcess p;
    p.setProgram(QStringLiteral(KRN_PANEL_EXE));
    p.setArguments(script.isEmpty() ? args : args + QStringList{"--script", KRNWriteFile(dir, "script.txt", script)});
    if (setUp) setUp(p);
    p.start();
    const bool ended = p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit;
    return {ended ? p.exitCode() : -1, QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}
