// The notification-area icon, as Skelda's tray form sees it: an icon whose mouse events come out
// as the window messages that the icon's window would receive (512 a move, 515 a left double
// click, 517 the right button released, ...).
#pragma once

#include <QPointer>
#include <QSystemTrayIcon>
#include <QWidget>

#include <cstdint>

class QEvent;

namespace skelda {

// The mouse messages of the notification icon, as its window receives them: a move; for each
// of the left, right and middle buttons, its press, release and double click.
enum IconMessage : int32_t {
    MsgMouseMove = 512,
    MsgLeftDown,
    MsgLeftUp,
    MsgLeftDoubleClick,
    MsgRightDown,
    MsgRightUp,
    MsgRightDoubleClick,
    MsgMiddleDown,
    MsgMiddleUp,
    MsgMiddleDoubleClick
};

class NotifyIcon : public QSystemTrayIcon {
    Q_OBJECT
public:
    explicit NotifyIcon(QObject* parent = nullptr);

    // Shows the icon in the notification area. Where the icon has a window of its own on the
    // desktop (the X11 notification area's), its mouse events are then read there, one message
    // each, press and release apart; elsewhere Qt's activations stand for them.
    void Show();

    // Whether the icon's mouse events are read on its own window (see Show).
    bool ReadsItsWindow() const { return !fenetre_.isNull(); }
    // The icon's own window on the desktop, or none.
    QWidget* Window() const { return fenetre_; }

    // The message that stands for one of Qt's activations, or 0 for one that has none.
    static int32_t MessageOf(QSystemTrayIcon::ActivationReason reason);
    // The message of a mouse event of the icon's window, or 0 for an event that isn't one.
    static int32_t MessageOf(const QEvent& event);

signals:
    // One mouse message of the icon.
    void Message(int32_t message);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ReadWindow();
    QPointer<QWidget> fenetre_;
};

}  // namespace skelda
