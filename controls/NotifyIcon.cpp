#include "NotifyIcon.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace skelda {

namespace {

// The class of the window that Qt gives an icon of the X11 notification area, and the mark that
// a NotifyIcon has taken one as its own.
constexpr char FenetreDIcone[] = "QSystemTrayIconSys";
constexpr char Proprietaire[] = "skeldaNotifyIcon";

int32_t Bouton(Qt::MouseButton button, int32_t left, int32_t right, int32_t middle) {
    switch (button) {
        case Qt::LeftButton:
            return left;
        case Qt::RightButton:
            return right;
        case Qt::MiddleButton:
            return middle;
        default:
            return 0;
    }
}

}  // namespace

NotifyIcon::NotifyIcon(QObject* parent) : QSystemTrayIcon(parent) {
    connect(this, &QSystemTrayIcon::activated, this, [this](ActivationReason reason) {
        // Qt's activation comes when it hasn't its window to read (a notification area that came
        // after the icon): look for it again for the next events, and let this one stand.
        if (fenetre_.isNull()) ReadWindow();
        if (const int32_t message = MessageOf(reason); message != 0) emit Message(message);
    });
}

void NotifyIcon::Show() {
    show();
    ReadWindow();
}

void NotifyIcon::ReadWindow() {
    if (!fenetre_.isNull()) return;
    // Qt's X11 icon is a small top-level window of its own, made when the icon is shown and
    // deleted when it hides. The one that no icon has taken yet is this icon's.
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->inherits(FenetreDIcone) || w->property(Proprietaire).isValid()) continue;
        w->setProperty(Proprietaire, QVariant::fromValue(static_cast<QObject*>(this)));
        // The icon's window reports the pointer over it, as the desktop's icon does, not only
        // while a button is down.
        w->setMouseTracking(true);
        w->installEventFilter(this);
        fenetre_ = w;
        return;
    }
}

int32_t NotifyIcon::MessageOf(QSystemTrayIcon::ActivationReason reason) {
    // Qt reports the icon's clicks as activations; each stands for the message the icon would
    // send. The context request is the right button's.
    switch (reason) {
        case QSystemTrayIcon::DoubleClick:
            return MsgLeftDoubleClick;
        case QSystemTrayIcon::Context:
            return MsgRightUp;
        case QSystemTrayIcon::Trigger:
            return MsgLeftUp;
        case QSystemTrayIcon::MiddleClick:
            return MsgMiddleUp;
        default:
            return 0;
    }
}

int32_t NotifyIcon::MessageOf(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseMove:
            return MsgMouseMove;
        case QEvent::MouseButtonPress:
            return Bouton(static_cast<const QMouseEvent&>(event).button(), MsgLeftDown, MsgRightDown, MsgMiddleDown);
        case QEvent::MouseButtonRelease:
            return Bouton(static_cast<const QMouseEvent&>(event).button(), MsgLeftUp, MsgRightUp, MsgMiddleUp);
        case QEvent::MouseButtonDblClick:
            return Bouton(static_cast<const QMouseEvent&>(event).button(), MsgLeftDoubleClick, MsgRightDoubleClick,
                          MsgMiddleDoubleClick);
        default:
            return 0;
    }
}

bool NotifyIcon::eventFilter(QObject* watched, QEvent* event) {
    if (watched != fenetre_.data()) return QSystemTrayIcon::eventFilter(watched, event);
    const int32_t message = MessageOf(*event);
    if (message == 0) return false;
    // Qt's own handling of the icon's window would answer the right button's press as a
    // request for the menu; here each event is one message and nothing more, so that the menu
    // waits for the release, as on the desktop the icon was made for. The message comes through
    // the event queue, as the desktop's messages do: what it starts (a menu that waits, a Quit
    // that takes the icon and its window away) then runs outside this window's own event.
    QMetaObject::invokeMethod(
        this, [this, message] { emit Message(message); }, Qt::QueuedConnection);
    return event->type() != QEvent::MouseMove;
}

}  // namespace skelda
