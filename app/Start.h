// Skelda's start, as main runs it and bench_startup times it: the station's database brought up
// to date, with the start-up picture standing from the upgrade's beginning; the forms, made as
// ProvideForms says; then, from the event loop, the start form's load, which loads the main
// window and adds the icon. The picture goes once the start form stands.
#pragma once

#include <functional>

namespace skelda {

class Forms;
struct Services;

// What a caller is told as the start goes, so that a measure can end the process at a stage.
struct StartStages {
    std::function<void()> pictureShown;     // the upgrade's picture stands, the upgrade not begun
    std::function<void()> upToDate;         // the database is up to date; no form is made yet
    std::function<void(Forms&)> shownForm;  // the start form was asked to show, from the event loop
};

// Runs the start with Services (its applicationPath names the folder of database.mdb), then the
// event loop of the QApplication that the caller made; gives the loop's exit code. Whatever goes
// wrong with the database here is left for the main window's load to meet, as a missing
// database always was; a failure of the start form's load is a run-time error, shown by the box
// of the guard where the event loop's first event enters.
int RunStart(Services& services, const StartStages& stages = {});

}  // namespace skelda
