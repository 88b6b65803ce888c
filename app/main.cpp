// Skelda: a desktop weather station for airports that lives in the notification area.
//
// main builds the production services and the forms' meeting place, loads the start form (which
// loads the main window first), shows it as the start-up screen and runs the event loop. The run
// ends only through the tray menu's Quit, or after a run-time error box.
#include "Application.h"
#include "Artwork.h"
#include "Forms.h"
#include "FrmIcone.h"
#include "NotificationArea.h"
#include "Printer.h"
#include "ProcessEnd.h"
#include "ProvideForms.h"
#include "RunTime.h"
#include "ScreenMessageBoxes.h"
#include "SeedDatabase.h"
#include "Servers.h"
#include "StartUpPicture.h"

#include <QDir>
#include <QStringList>

#include <memory>

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
    // A database made by an earlier version gets this version's indexes, saved query and table of
    // days, rows untouched; a file already up to date is only read. Whatever goes wrong here is
    // left for the main window's load to meet, as a missing database always was. On years of
    // observations the upgrade takes a second or two: the start-up picture stands from its
    // beginning, where the start form shows it next, and goes once the start form stands there.
    std::unique_ptr<StartUpPicture> picture;
    UpgradeDatabase(services.applicationPath + QStringLiteral("/database.mdb"), DatabaseSchema(), nullptr, [&] {
        picture = std::make_unique<StartUpPicture>();
        picture->ShowNow();
    });
    Forms forms(services);
    ProvideForms(forms);

    // The start form: its load loads Form1 (log, database, first chart) and adds the icon. A
    // failure there (a missing database, say) is a run-time error, shown by the box of the
    // event that first touches the forms, so the load runs from the event loop.
    QMetaObject::invokeMethod(
        &app,
        [&] {
            guard.Handle([&] { forms.Widget<FrmIcone>().show(); });
            picture.reset();
        },
        Qt::QueuedConnection);
    return QApplication::exec();
}
