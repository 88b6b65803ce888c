// The acquisition machinery of the main window: the poll cycle that fetches one airport's latest
// report every 11 seconds, the exchange with the observation server, and the ingestion of its
// reply. These are the handlers of Form1's timers and socket; all their state lives in Form1.
//
// Everything runs on the user-interface thread, by events. Only Connect and W_Error let pending
// events run, once each.
#pragma once

#include <QString>
#include <QtGlobal>

namespace skelda {

class Form1;
class Forms;

// ---- The scheduler

// One tick of T (every second): the two clocks, the countdown in the window's caption, the
// refresh of the date list after more than 3600 ticks, and a poll of the next airport after more
// than 10 ticks. Unprotected, except that a tick that finds the window just shown ("VISIBLE")
// turns it into "VU" and skips any failing statement for the rest of that tick; otherwise a
// failure (a missing database at the hourly refresh, say) reaches the caller.
void T_Timer(Form1& f);

// Starts one poll of the entry selected in List1: empties the last observation's labels and
// ReponseBrute, abandons any exchange still running, and asks W to connect to the observation
// server from a random local port from 91 to 100. The request itself goes out from W_Connect.
// Network failures are silent and come later, as events.
void Connect(Form1& f);

// The time-out of an unanswered request: stops itself and closes W. Nothing else, no word.
void TimerWinsock_Timer(Form1& f);

// ---- The exchange

// The socket has connected: with an entry selected, starts the time-out, disables List1 and
// sends the HTTP/1.0 GET of that entry's station file. With nothing selected, does nothing (the
// connection stays open until the next poll). An entry beyond the 101 station codes is a
// "Subscript out of range" (9), which reaches the caller.
void W_Connect(Form1& f);

// The connection failed or broke: closes W and lets pending events run once. No word, no log.
void W_Error(Form1& f);

// ---- The ingestion

// Bytes have arrived on W: reads them and ingests them as the reply (IngererReponse). The count
// is not looked at.
void W_DataArrival(Form1& f, qint64 bytesTotal);

// Ingests Recu, the text of what arrived on W, as the observation server's reply: cuts out the
// METAF text behind the head and the 17 characters of the stamp line, decodes it, shows it on
// the labels and the wind dial, adds a row to table Zefir, logs the outcome, redraws the chart
// after a new row, puts the airport and the wind into the caption of FrmIcone for the tray tip,
// and ends the exchange. A text without a complete head is only logged. Never fails: every
// failing statement is skipped, and the last failure decides what is logged.
void IngererReponse(Form1& f, const QString& Recu);

// ---- Wiring

// Connects the poll cycle to Form1's events: T and TimerWinsock ticks, W's connection, arrival
// and error, and a double click in List1 (an immediate poll).
void InstallPollCycle(Form1& f);

// The way the program loads Form1: the form built and loaded (Form_Load), with its poll cycle
// wired. Failures of Form_Load reach the caller, as with Form1::Load.
Form1* LoadForm1WithPollCycle(Forms& forms);

}  // namespace skelda
