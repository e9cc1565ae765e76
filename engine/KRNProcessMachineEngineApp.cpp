#include "KRNProcessMachineEngineApp.h"

#include <QApplication>

#include <clocale>
#include <cstdlib>
#include <string>

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
    // QApplication sets the process locale from the environment. The host's C
    // library must go on printing and reading numbers as it did (a German
    // LC_NUMERIC would make its "%.2f" write a comma and atof("12.5") read
    // 12), so the host's locale, every category, comes back afterwards. The
    // panels themselves format and read numbers with the classic rules.
    const char* hostLocale = std::setlocale(LC_ALL, nullptr);
    const std::string savedLocale = hostLocale ? hostLocale : "";
    m_pOwnApplication = new QApplication(argc, argv);  // kept until the process ends
    if (!savedLocale.empty()) std::setlocale(LC_ALL, savedLocale.c_str());
    return true;
}
