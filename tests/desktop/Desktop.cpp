#include "Desktop.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QTest>

#include "GuiApplication.h"

namespace skelda::test {

namespace {
// Registered before main runs: gtest sets the desktop up before the first test.
[[maybe_unused]] ::testing::Environment* const desktop = ::testing::AddGlobalTestEnvironment(new Desktop);
}  // namespace

bool Desktop::Start(std::unique_ptr<QProcess>& process, const QString& program, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty()) return false;
    process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->start(path, arguments);
    return process->waitForStarted(10000);
}

void Desktop::SetUp() {
    // The application needs a display; without one Qt would end the program instead of failing.
    if (qEnvironmentVariableIsEmpty("DISPLAY")) GTEST_SKIP() << "no X display: the desktop tests need xvfb-run";
    if (qEnvironmentVariable("QT_QPA_PLATFORM", QStringLiteral("xcb")) != QStringLiteral("xcb"))
        GTEST_SKIP() << "the desktop tests run on the X11 platform only";
    qputenv("QT_QPA_PLATFORM", "xcb");
    EnsureGuiApplication();

    // The window manager tells that it is ready by running a command of ours once it manages
    // the screen.
    QTemporaryDir marks;
    const QString ready = marks.filePath(QStringLiteral("openbox-ready"));
    if (Start(openbox_, QStringLiteral("openbox"),
              {QStringLiteral("--sm-disable"), QStringLiteral("--startup"), QStringLiteral("touch ") + ready}))
        windowManager_ = QTest::qWaitFor([&] { return QFileInfo::exists(ready); }, 10000);

    if (Start(trayer_, QStringLiteral("trayer"),
              {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"), QStringLiteral("right"),
               QStringLiteral("--widthtype"), QStringLiteral("request"), QStringLiteral("--height"),
               QStringLiteral("32"), QStringLiteral("--SetDockType"), QStringLiteral("true")}))
        notificationArea_ = QTest::qWaitFor([] { return QSystemTrayIcon::isSystemTrayAvailable(); }, 10000);
}

void Desktop::TearDown() {
    for (std::unique_ptr<QProcess>* process : {&trayer_, &openbox_}) {
        if (*process == nullptr) continue;
        (*process)->terminate();
        if (!(*process)->waitForFinished(5000)) (*process)->kill();
        (*process)->waitForFinished(5000);
        process->reset();
    }
}

}  // namespace skelda::test
