#pragma once

// A krn-panel script: actions run one after the other inside the panel's
// modal loop, each on the topmost dialog, so that a keypad opened by a click
// takes the actions that follow until it closes.

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class KRNScript : public QObject {
public:
    bool Load(const QString& path, QString& problem);
    // Pictures of every page (DIR/<template>.png) and the field dump, taken as
    // the panel opens. With either and no actions, the panel closes after them.
    void SetOpening(const QString& shotsDir, bool dump);

    // Runs `open` (which starts the modal loop) with the actions fed into it.
    void Run(const std::function<void()>& open);
    // 0 all went well, 1 an expectation failed, 2 the script named a control
    // that isn't there or a picture couldn't be written.
    int ExitCode() const { return m_nExitCode; }

private:
    struct Action {
        int line;
        QString verb;
        QString id;
        QString text;
    };
    void Step();
    void Execute(const Action& action);
    void Opening();
    void Fail(int code, const QString& message);
    // "FILE:LINE: ", the start of every message about a line of the script.
    QString Where(int line) const;

    QString m_strPath;
    QList<Action> m_Actions;
    int m_nNext = 0;
    int m_nExitCode = 0;
    bool m_bStopped = false;
    bool m_bHasActions = false;
    QString m_strShots;
    bool m_bDump = false;
};
