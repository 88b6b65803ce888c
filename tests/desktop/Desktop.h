// The desktop of the desktop tests: a window manager and a notification area on the test's own X
// display, started once for the whole program and stopped at its end. Where there is no display
// (or a platform other than X11 was chosen), every test skips.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QString>
#include <memory>

namespace skelda::test {

class Desktop : public ::testing::Environment {
public:
    void SetUp() override;
    void TearDown() override;

    // Whether a window manager that frames windows runs, and whether the notification area does.
    static bool HasWindowManager() { return windowManager_; }
    static bool HasNotificationArea() { return notificationArea_; }

private:
    // Starts Program with Arguments; false if it isn't installed or doesn't start.
    static bool Start(std::unique_ptr<QProcess>& process, const QString& program, const QStringList& arguments);

    std::unique_ptr<QProcess> openbox_;
    std::unique_ptr<QProcess> trayer_;
    static inline bool windowManager_ = false;
    static inline bool notificationArea_ = false;
};

}  // namespace skelda::test
