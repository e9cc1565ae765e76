// The tests run like a host: one QApplication (offscreen under CTest), the
// resource module of this build made current, and messages captured instead
// of shown (see KRNTestSupport.h).

#include "KRNResources.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (!std::getenv("DISPLAY") && !std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a desktop session (CI, a container, test discovery at build
    // time) Qt warns on every start that it has no runtime folder; a private
    // one for the run keeps the test output to what the tests say.
    QTemporaryDir runtime;
    if (!std::getenv("XDG_RUNTIME_DIR") && runtime.isValid()) qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    void* module = KRNResources::Load(KRN_TEST_RESOURCE_MODULE);
    if (!module) {
        std::fprintf(stderr, "the resource module %s is missing: build the KRNPANEL target\n", KRN_TEST_RESOURCE_MODULE);
        return 2;
    }
    KRNResources::SetCurrent(module);
    return RUN_ALL_TESTS();
}
