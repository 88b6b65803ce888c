// The end of the desktop session as a program sees it: before logging out or shutting down, the
// session manager asks each program to commit its data, and a program that may still talk to the
// user may refuse the end. On X11 this is the session management protocol (XSMP) of the desktop;
// Qt's Wayland platform and a session without a manager never ask.
#pragma once

#include <QMetaObject>
#include <QObject>

#include <functional>

namespace skelda {

// One request of the session manager, for as long as the handler of OnSessionEnd runs.
class SessionEnd {
public:
    virtual ~SessionEnd() = default;
    // Whether the program may interact with the user now, which it must before refusing; the
    // manager may say no (a forced logout), and then the end can't be refused.
    virtual bool AllowsInteraction() = 0;
    // Refuses the end of the session: the desktop stays, and so does the program.
    virtual void Cancel() = 0;
};

// Calls Handler each time the session manager of the running application asks the program to
// commit its data before the session ends. Context ends the connection when it goes. Does
// nothing without a GUI application.
QMetaObject::Connection OnSessionEnd(const QObject* context, std::function<void(SessionEnd&)> handler);

}  // namespace skelda
