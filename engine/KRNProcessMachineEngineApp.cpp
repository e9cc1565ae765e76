#include "KRNProcessMachineEngineApp.h"

#include <QApplication>

#include <cstdlib>

CKRNProcessMachineEngineApp& CKRNProcessMachineEngineApp::Instance() {
    static CKRNProcessMachineEngineApp app;
    return app;
}

bool CKRNProcessMachineEngineApp::InitInstance() {
    if (QCoreApplication* existing = QCoreApplication::instance())
        return qobject_cast<QApplication*>(existing) != nullptr;

#if defined(__linux__)
    // With no display, Qt would abort the host while looking for one; panels
    // then run on the offscreen platform instead (no window, still drivable).
    const bool noDisplay = !std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY");
    if (noDisplay && !std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    // QApplication keeps references to argc and argv: they must live as long as it.
    static int argc = 1;
    static char name[] = "KRNProcessMachineEngine";
    static char* argv[] = {name, nullptr};
    m_pOwnApplication = new QApplication(argc, argv);  // kept until the process ends
    return true;
}
