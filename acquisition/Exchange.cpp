// The exchange with the observation server: one hand-made HTTP/1.0 GET per poll on the raw
// socket W. No HTTP library is involved and the reply's status and headers are never read; the
// connection is ended from this side by closing W.
#include <QCoreApplication>

#include "Failure.h"
#include "Forms.h"
#include "PollCycle.h"

namespace skelda {

namespace {

// The request for the station file of Code. The full URL stands in the request line, with the
// same host as the socket's RemoteHost; there is no Host, User-Agent or Connection header, the
// two Accept lines keep this order, and the text ends with the empty line, nothing behind it.
// The code goes out as the database holds it: no change of case, no trimming.
QString RequeteStation(const QString& Serveur, const QString& Code) {
    return QStringLiteral("GET http://") + Serveur + QStringLiteral("/pub/data/observations/metar/stations/") + Code +
           QStringLiteral(".TXT HTTP/1.0\r\nAccept: */*\r\nAccept: text/html\r\n\r\n");
}

}  // namespace

void PollCycle::W_Connect() {
    // Read the selected entry. Nothing selected: nothing goes out and no time-out runs; the
    // connection stays open until the next poll closes it. The entry is read now, when the
    // connection is made, so a click in List1 since Connect changes the station asked for.
    const int index = f_.ListeAeroports().ListIndex();
    if (index < 0) return;
    // Start the time-out. It counts from the connection being made, not from Connect.
    TimerWinsock.SetEnabled(true);
    // Disable the list: the user can't change the selection while a reply is out; only a reply
    // enables it again.
    f_.ListeAeroports().setEnabled(false);
    // Build the request for the entry's code. TableIDA holds 101 codes: a line beyond it is a
    // fault that isn't caught.
    const TableIDAType& TableIDA = forms_.module1().TableIDA;
    if (index >= int(TableIDA.size())) throw RuntimeError(SubscriptOutOfRange);
    const QString requete = RequeteStation(forms_.services().observationServer.host, TableIDA[index].Concat());
    // Send it.
    W.SendData(requete);
}

void PollCycle::W_Error() {
    // The number and description are ignored: a network failure is silent, and the airport waits
    // for its next turn. If the request was out, TimerWinsock runs on and closes the closed socket.
    W.Close();
    QCoreApplication::processEvents();
}

}  // namespace skelda
