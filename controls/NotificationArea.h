// The notification area seam: the one call through which the start form adds, changes and
// removes its icon. The icon's mouse messages come back to the window the record names, as the
// desktop posts them to an icon's window. The program uses the desktop's notification area;
// tests note each call before passing it on.
#pragma once

#include <QEvent>
#include <QIcon>
#include <QString>

#include <cstdint>

namespace skelda {

// The notification area's calls.
enum NotifyIconCall : int { NIM_ADD = 0, NIM_MODIFY = 1, NIM_DELETE = 2 };

// What the notification area is told about the icon, field by field.
struct NotifyIconData {
    uint32_t cbSize = 0;
    uintptr_t hWnd = 0;  // the window of the icon's messages (its winId)
    uint32_t uID = 0;
    uint32_t uFlags = 0;            // 7: message, icon and tip are valid
    uint32_t uCallbackMessage = 0;  // 512: the icon's messages come as mouse moves
    QIcon hIcon;
    QString szTip;  // always 64 characters: the text from the left, blanks behind it
};

// The tip the notification area shows for Data: its text up to its end (a NUL, or the blanks
// that fill the field and the line end before them). Qt's tip is a text, not a fixed field.
QString TipText(const NotifyIconData& Data);

// One mouse message of a notification icon (see IconMessage in NotifyIcon.h), delivered to the
// icon's window as an event of its own.
class IconMessageEvent : public QEvent {
public:
    explicit IconMessageEvent(int32_t message) : QEvent(EventType()), message_(message) {}
    int32_t Message() const { return message_; }
    static QEvent::Type EventType();

private:
    int32_t message_;
};

class NotificationArea {
public:
    virtual ~NotificationArea() = default;
    // Adds (NIM_ADD), modifies (NIM_MODIFY) or deletes (NIM_DELETE) the icon that Data describes.
    // Its answer isn't looked at, so it gives none.
    virtual void Shell_NotifyIconA(int dwMessage, const NotifyIconData& Data) = 0;
};

// The desktop's notification area. The icon is a NotifyIcon named "IconeNotif", a child of the
// window whose winId is Data.hWnd, made at the first add and kept (hidden) after a delete; each
// of its messages is sent to that window as an IconMessageEvent. A desktop without a
// notification area gets no icon, and a window that doesn't exist none either.
class DesktopNotificationArea : public NotificationArea {
public:
    void Shell_NotifyIconA(int dwMessage, const NotifyIconData& Data) override;
};

}  // namespace skelda
