// The poll cycle's timers and socket, made as children of the main window, and their wiring.
#include "PollCycle.h"

#include "Forms.h"
#include "RunTime.h"

#include <QWidget>

namespace skelda {

PollCycle::PollCycle(PollWindow& window, Forms& forms)
    : T(1000, false, &window.Fenetre()),
      TimerWinsock(20000, false, &window.Fenetre()),
      W(&window.Fenetre()),
      f_(window),
      forms_(forms) {
    T.setObjectName(QStringLiteral("T"));
    TimerWinsock.setObjectName(QStringLiteral("TimerWinsock"));
    W.setObjectName(QStringLiteral("W"));
    // Each handler runs inside the program's guard, so a failure that it doesn't handle ends in
    // the run-time error box right here, not inside the timer's or the socket's dispatch.
    RunTimeGuard& guard = forms_.services().guard;
    QWidget* fenetre = &window.Fenetre();
    On(guard, &T, &Timer::Tick, fenetre, [this] { T_Timer(); });
    On(guard, &TimerWinsock, &Timer::Tick, fenetre, [this] { TimerWinsock_Timer(); });
    On(guard, &W, &Winsock::connected, fenetre, [this] { W_Connect(); });
    On(guard, &W, &Winsock::DataArrival, fenetre, [this](qint64 bytesTotal) { W_DataArrival(bytesTotal); });
    On(guard, &W, &Winsock::Error, fenetre, [this] { W_Error(); });
    // A double click polls the selected airport at once; its Click, which comes first, has
    // already drawn the chart.
    On(guard, &window.ListeAeroports(), &ListBox::DblClick, fenetre, [this] { Connect(); });
}

}  // namespace skelda
