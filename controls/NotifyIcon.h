// The notification-area icon, as Skelda's tray form sees it: an icon whose mouse events come out
// as the window messages that the icon's window would receive (512 a move, 515 a left double
// click, 517 the right button released, ...).
#pragma once

#include <QSystemTrayIcon>

#include <cstdint>

namespace skelda {

// The mouse messages of the notification icon, as its window receives them: a move; the left
// button's press, release and double click; the right button's press and release; the middle
// button's release.
enum IconMessage : int32_t {
    MsgMouseMove = 512,
    MsgLeftDown,
    MsgLeftUp,
    MsgLeftDoubleClick,
    MsgRightDown,
    MsgRightUp,
    MsgMiddleUp = 520
};

class NotifyIcon : public QSystemTrayIcon {
    Q_OBJECT
public:
    explicit NotifyIcon(QObject* parent = nullptr);

    // The message that stands for one of Qt's activations, or 0 for one that has none.
    static int32_t MessageOf(QSystemTrayIcon::ActivationReason reason);

signals:
    // One mouse message of the icon.
    void Message(int32_t message);
};

}  // namespace skelda
