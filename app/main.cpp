// Skelda: a desktop weather station for airports that lives in the notification area.
//
// main builds the production services and runs Skelda's start (Start.h): the database brought up
// to date, the forms' meeting place, the start form (which loads the main window first) shown as
// the start-up screen, and the event loop. The run
// ends only through the tray menu's Quit, or after a run-time error box.
#include "Application.h"
#include "Artwork.h"
#include "NotificationArea.h"
#include "Printer.h"
#include "ProcessEnd.h"
#include "RunTime.h"
#include "ScreenMessageBoxes.h"
#include "Servers.h"
#include "Start.h"

#include <QDir>
#include <QStringList>

namespace {

// The folder that stands for the program's own, where database.mdb is. Installed, the program's
// own folder is shared and read-only, so the launcher gives each user a station folder and names
// it with "--station-folder <folder>"; run from the build, the program's own folder serves. No
// other option exists: anything else on the command line is left to Qt, as before.
QString ApplicationPath(const QStringList& arguments) {
    const qsizetype at = arguments.indexOf(QStringLiteral("--station-folder"));
    if (at > 0 && at + 1 < arguments.size()) return QDir(arguments.at(at + 1)).absolutePath();
    return QCoreApplication::applicationDirPath();
}

}  // namespace

int main(int argc, char* argv[]) {
    using namespace skelda;
    ScreenMessageBoxes boxes;
    SystemProcessEnd processEnd;
    // After the run-time error box the program ends at once, as the run time ends it: no form
    // unloads.
    RunTimeGuard guard(boxes, [&processEnd](int) { processEnd.End(1); });
    Application app(argc, argv, guard);
    QApplication::setApplicationName(QStringLiteral("Skelda"));
    // Closing the main window only hides it, and the start form hides itself: the program lives
    // on with no window at all.
    QApplication::setQuitOnLastWindowClosed(false);
    InitArtwork();

    SystemClock clock;
    SystemRandom random;
    SystemPrinter printer;
    DesktopNotificationArea notificationArea;
    Services services{clock,
                      random,
                      boxes,
                      guard,
                      ObservationServer(),
                      ForecastPortal(),
                      NewsServer(),
                      ApplicationPath(QCoreApplication::arguments()),
                      printer,
                      processEnd,
                      notificationArea};
    return RunStart(services);
}
