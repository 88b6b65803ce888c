// The wiring of the poll cycle into Form1's events.
#include "Acquisition.h"
#include "Form1.h"

namespace skelda {

void InstallPollCycle(Form1& f) {
    QObject::connect(&f.T, &Timer::Tick, &f, [&f] { T_Timer(f); });
    QObject::connect(&f.TimerWinsock, &Timer::Tick, &f, [&f] { TimerWinsock_Timer(f); });
    QObject::connect(&f.W, &Winsock::connected, &f, [&f] { W_Connect(f); });
    QObject::connect(&f.W, &Winsock::DataArrival, &f, [&f](qint64 bytesTotal) { W_DataArrival(f, bytesTotal); });
    QObject::connect(&f.W, &Winsock::Error, &f, [&f](int, const QString&) { W_Error(f); });
    // A double click polls the selected airport at once; its Click, which comes first, has
    // already drawn the chart.
    QObject::connect(f.List1, &ListBox::DblClick, &f, [&f] { Connect(f); });
}

Form1* LoadForm1WithPollCycle(Forms& forms) {
    Form1* form = Form1::Load(forms);
    InstallPollCycle(*form);
    return form;
}

}  // namespace skelda
