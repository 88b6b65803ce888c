#include "GuiApplication.h"

#include <QApplication>
#include <stdexcept>

namespace skelda {

void EnsureGuiApplication() {
    if (QCoreApplication::instance()) {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
            throw std::logic_error("a QCoreApplication without widgets exists already");
        return;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Made once and kept for the whole run: Qt wants argc and argv to outlive the application.
    static int argc = 1;
    static char name[] = "skelda-tests";
    static char* argv[] = {name, nullptr};
    static QApplication* application = new QApplication(argc, argv);
    (void)application;
}

}  // namespace skelda

// Fontconfig, which Qt's fonts stand on, keeps some of its caches to the end of the process on
// purpose; under LeakSanitizer they would fail every test program that measures text. This
// function is read by the sanitizer only, in a sanitizer build.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the sanitizer's
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
