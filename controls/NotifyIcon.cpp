#include "NotifyIcon.h"

namespace skelda {

NotifyIcon::NotifyIcon(QObject* parent) : QSystemTrayIcon(parent) {
    connect(this, &QSystemTrayIcon::activated, this, [this](ActivationReason reason) {
        if (const int32_t message = MessageOf(reason); message != 0) emit Message(message);
    });
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

}  // namespace skelda
