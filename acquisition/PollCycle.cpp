// The wiring of the poll cycle into Form1's events.
#include "Acquisition.h"
#include "Form1.h"
#include "Forms.h"
#include "RunTime.h"

namespace skelda {

void InstallPollCycle(Form1& f) {
    // Each handler runs inside the program's guard, so a failure that it doesn't handle ends in
    // the run-time error box right here, not inside the timer's or the socket's dispatch.
    RunTimeGuard& guard = f.forms().services().guard;
    On(guard, &f.T, &Timer::Tick, &f, [&f] { T_Timer(f); });
    On(guard, &f.TimerWinsock, &Timer::Tick, &f, [&f] { TimerWinsock_Timer(f); });
    On(guard, &f.W, &Winsock::connected, &f, [&f] { W_Connect(f); });
    On(guard, &f.W, &Winsock::DataArrival, &f, [&f](qint64 bytesTotal) { W_DataArrival(f, bytesTotal); });
    On(guard, &f.W, &Winsock::Error, &f, [&f] { W_Error(f); });
    // A double click polls the selected airport at once; its Click, which comes first, has
    // already drawn the chart.
    On(guard, f.List1, &ListBox::DblClick, &f, [&f] { Connect(f); });
}

Form1* LoadForm1WithPollCycle(Forms& forms) {
    Form1* form = Form1::Load(forms);
    InstallPollCycle(*form);
    return form;
}

}  // namespace skelda
