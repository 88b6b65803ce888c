#include "Start.h"

#include "Forms.h"
#include "FrmIcone.h"
#include "ProvideForms.h"
#include "SeedDatabase.h"
#include "Services.h"
#include "StartUpPicture.h"

#include <QApplication>

#include <memory>

namespace skelda {

int RunStart(Services& services, const StartStages& stages) {
    // A database made by an earlier version gets this version's indexes, saved query and table of
    // days, rows untouched; a file already up to date is only read. On years of observations the
    // upgrade takes a second or two: the start-up picture stands from its beginning, where the
    // start form shows it next.
    std::unique_ptr<StartUpPicture> picture;
    UpgradeDatabase(services.applicationPath + QStringLiteral("/database.mdb"), DatabaseSchema(), nullptr, [&] {
        picture = std::make_unique<StartUpPicture>();
        picture->ShowNow();
        if (stages.pictureShown) stages.pictureShown();
    });
    if (stages.upToDate) stages.upToDate();
    Forms forms(services);
    ProvideForms(forms);

    // The start form: its load loads Form1 (log, database, first chart) and adds the icon. A
    // failure there (a missing database, say) is a run-time error, shown by the box of the event
    // that first touches the forms, so the load runs from the event loop.
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            services.guard.Handle([&] { forms.Widget<FrmIcone>().show(); });
            picture.reset();
            if (stages.shownForm) stages.shownForm(forms);
        },
        Qt::QueuedConnection);
    return QApplication::exec();
}

}  // namespace skelda
