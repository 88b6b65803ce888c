// The notification icon's messages: each mouse event of the icon's window is one message, and
// each of Qt's activations stands for the message it comes from.
#include <gtest/gtest.h>

#include <QMouseEvent>

#include "GuiApplication.h"
#include "NotifyIcon.h"

using namespace skelda;

namespace {

int32_t Of(QEvent::Type type, Qt::MouseButton button) {
    const QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), button,
                            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button),
                            Qt::NoModifier);
    return NotifyIcon::MessageOf(event);
}

TEST(NotifyIconMessages, EachMouseEventOfTheIconsWindowIsOneMessage) {
    EnsureGuiApplication();
    EXPECT_EQ(Of(QEvent::MouseMove, Qt::NoButton), 512);
    EXPECT_EQ(Of(QEvent::MouseButtonPress, Qt::LeftButton), 513);
    EXPECT_EQ(Of(QEvent::MouseButtonRelease, Qt::LeftButton), 514);
    EXPECT_EQ(Of(QEvent::MouseButtonDblClick, Qt::LeftButton), 515);
    EXPECT_EQ(Of(QEvent::MouseButtonPress, Qt::RightButton), 516);
    EXPECT_EQ(Of(QEvent::MouseButtonRelease, Qt::RightButton), 517);
    EXPECT_EQ(Of(QEvent::MouseButtonDblClick, Qt::RightButton), 518);
    EXPECT_EQ(Of(QEvent::MouseButtonPress, Qt::MiddleButton), 519);
    EXPECT_EQ(Of(QEvent::MouseButtonRelease, Qt::MiddleButton), 520);
    EXPECT_EQ(Of(QEvent::MouseButtonDblClick, Qt::MiddleButton), 521);
    // Other buttons, and events that aren't the mouse's, are no message.
    EXPECT_EQ(Of(QEvent::MouseButtonPress, Qt::BackButton), 0);
    const QEvent paint(QEvent::Paint);
    EXPECT_EQ(NotifyIcon::MessageOf(paint), 0);
}

TEST(NotifyIconMessages, QtsActivationsStandForTheReleaseOrDoubleClickTheyComeFrom) {
    EXPECT_EQ(NotifyIcon::MessageOf(QSystemTrayIcon::DoubleClick), 515);
    EXPECT_EQ(NotifyIcon::MessageOf(QSystemTrayIcon::Context), 517);
    EXPECT_EQ(NotifyIcon::MessageOf(QSystemTrayIcon::Trigger), 514);
    EXPECT_EQ(NotifyIcon::MessageOf(QSystemTrayIcon::MiddleClick), 520);
    EXPECT_EQ(NotifyIcon::MessageOf(QSystemTrayIcon::Unknown), 0);
}

TEST(NotifyIconMessages, AnIconNeverShownReadsNoWindow) {
    EnsureGuiApplication();
    NotifyIcon icon;
    EXPECT_FALSE(icon.ReadsItsWindow());
    EXPECT_EQ(icon.Window(), nullptr);
}

}  // namespace
