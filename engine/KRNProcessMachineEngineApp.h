#pragma once

// The module object. Panels are Qt widgets and need a QApplication; a host
// that has one keeps it, a host that has none gets one, made once and kept
// for the life of the process, without the host's C locale changing.

class QApplication;

class CKRNProcessMachineEngineApp {
public:
    static CKRNProcessMachineEngineApp& Instance();

    // True when panels can be shown: a QApplication exists (the host's or
    // ours). A host running only a QCoreApplication or QGuiApplication gets
    // false and no panel; its own application object is never replaced.
    bool InitInstance();

private:
    CKRNProcessMachineEngineApp() = default;
    QApplication* m_pOwnApplication = nullptr;
};
