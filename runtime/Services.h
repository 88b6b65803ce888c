// The platform services that Skelda's forms are built with. The program passes the production
// defaults; tests pass their own clock, boxes, loopback servers, printer and so on.
#pragma once

#include "Clock.h"
#include "MessageBoxes.h"
#include "ProcessEnd.h"
#include "Random.h"
#include "RunTime.h"

#include <QString>

namespace skelda {

// Seams whose interfaces stand with what they drive: the printer with the drawing surfaces, the
// notification area with the controls.
class Printer;
class NotificationArea;

// Where one kind of server is reached: a host name and a TCP port.
struct ServerAddress {
    QString host;
    quint16 port = 80;
};

struct Services {
    Clock& clock;
    Random& random;
    MessageBoxes& boxes;
    RunTimeGuard& guard;                 // where every event of the forms enters
    ServerAddress observationServer;     // the METAR station files
    ServerAddress forecastPortal;        // the forecast pages
    ServerAddress newsServer;            // the news page
    QString applicationPath;             // the folder of database.mdb (App.Path)
    Printer& printer;                    // the pages of printed reports
    ProcessEnd& processEnd;              // how the run ends at Quit
    NotificationArea& notificationArea;  // the start form's icon
};

}  // namespace skelda
