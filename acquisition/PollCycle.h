// The acquisition machinery of the main window: the poll cycle that fetches one airport's latest
// report every 11 seconds, the exchange with the observation server, and the ingestion of its
// reply. The cycle owns the poll timer T, the time-out TimerWinsock and the socket W, which are
// children of the main window under those names, and the counters kept between their events; it
// reaches the window only through PollWindow.
//
// Everything runs on the user-interface thread, by events. Only Connect and W_Error let pending
// events run, once each.
#pragma once

#include "Bulletin.h"
#include "Controls.h"
#include "PollWindow.h"
#include "Winsock.h"

#include <QString>
#include <QtGlobal>

#include <cstdint>

namespace skelda {

class Forms;

class PollCycle {
public:
    // Makes T, TimerWinsock and W as children of the window and connects the cycle to their
    // events and to a double click in List1 (an immediate poll). The window's controls must be
    // built; the window must outlive the cycle.
    PollCycle(PollWindow& window, Forms& forms);
    PollCycle(const PollCycle&) = delete;
    PollCycle& operator=(const PollCycle&) = delete;

    // ---- The timers and the socket.
    Timer T;             // the one-second tick, off until the start ends
    Timer TimerWinsock;  // the 20-second time-out of an unanswered request
    Winsock W;           // the connection to the observation server

    // ---- The values kept between events.
    int16_t IndexReleve = 0;      // the line of List1 polled last
    int16_t SecondesAttente = 0;  // ticks since the last poll
    int16_t SecondesHeure = 0;    // ticks since the last refresh of the dates
    QString ReponseBrute;         // the last packet received
    Bulletin BulletinCourant;     // the last observation decoded
    float AngleZefir = 0;         // its direction in radians, turned by a quarter; nothing reads it

    // ---- The scheduler

    // One tick of T (every second): the two clocks, the countdown in the window's caption, the
    // refresh of the date list after more than 3600 ticks, and a poll of the next airport after
    // more than 10 ticks. Unprotected, except that a tick that finds the window just shown
    // ("VISIBLE") turns it into "VU" and skips any failing statement for the rest of that tick;
    // otherwise a failure (a missing database at the hourly refresh, say) reaches the caller.
    void T_Timer();

    // Starts one poll of the entry selected in List1: empties the last observation's labels and
    // ReponseBrute, abandons any exchange still running, and asks W to connect to the
    // observation server from a random local port from 91 to 100. The request itself goes out
    // from W_Connect. Network failures are silent and come later, as events.
    void Connect();

    // The time-out of an unanswered request: stops itself and closes W. Nothing else, no word.
    void TimerWinsock_Timer();

    // ---- The exchange

    // The socket has connected: with an entry selected, starts the time-out, disables List1 and
    // sends the HTTP/1.0 GET of that entry's station file. With nothing selected, does nothing
    // (the connection stays open until the next poll). An entry beyond the 101 station codes is
    // a "Subscript out of range" (9), which reaches the caller.
    void W_Connect();

    // The connection failed or broke: closes W and lets pending events run once. No word, no log.
    void W_Error();

    // ---- The ingestion

    // Bytes have arrived on W: reads them and ingests them as the reply (IngererReponse). The
    // count is not looked at.
    void W_DataArrival(qint64 bytesTotal);

    // Ingests Recu, the text of what arrived on W, as the observation server's reply: cuts out
    // the METAF text behind the head and the 17 characters of the stamp line, decodes it, shows
    // it on the labels and the wind dial, adds a row to table Zefir, logs the outcome, redraws
    // the chart after a new row, puts the airport and the wind into the tray form's caption for
    // the tray tip, and ends the exchange. A text without a complete head is only logged. Never
    // fails: every failing statement is skipped, and the last failure decides what is logged.
    void IngererReponse(const QString& Recu);

private:
    PollWindow& f_;
    Forms& forms_;
};

}  // namespace skelda
