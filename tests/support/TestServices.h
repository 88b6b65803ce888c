// The services that a test builds its forms with: a clock that stands still at a moment of the
// test's choosing, a random draw that gives what the test tells it, message boxes that remember
// what they showed and answer as the test queued, the guard where events enter, whose end of the
// program is noted instead of ending the test program, a printer of recorded pages, an end of the
// process that only counts, and the desktop's notification area under the test's watch.
//
//     class MainWindow : public ::testing::Test, protected TestStation {
//     protected:
//         MainWindow() : TestStation(Aeroports(), QDateTime(QDate(2004, 11, 20), QTime(15, 7, 9))) {}
//         Forms forms{services};
//     };
#pragma once

#include "Clock.h"
#include "RunTime.h"
#include "Seams.h"
#include "Services.h"
#include "TestDatabase.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <vector>

namespace skelda::test {

class TestServices {
public:
    // Now is the clock's moment; ApplicationPath the folder where the program finds database.mdb.
    // The servers are left unset, for the test to point at its own.
    TestServices(const QDateTime& now, const QString& applicationPath);
    TestServices(const TestServices&) = delete;
    TestServices& operator=(const TestServices&) = delete;

    FixedClock clock;
    ScriptedRandom random;
    RecordingBoxes boxes;
    // The number of each failure that no handler caught, in order: the program would have ended
    // after the box of the first.
    std::vector<int> runTimeEnds;
    RunTimeGuard guard;
    TestPrinter printer;
    CountingProcessEnd processEnd;
    WatchedNotificationArea notificationArea;
    Services services;
};

// The database of a test's station, made before the services that name its folder.
struct StationDatabase {
    explicit StationDatabase(const QList<SeedAirport>& airports) : db(airports) {}
    TestDatabase db;
};

// A test's station: database.mdb with these airports in a temporary folder of its own, and the
// services of a test with that folder as the program's own.
class TestStation : public StationDatabase, public TestServices {
public:
    TestStation(const QList<SeedAirport>& airports, const QDateTime& now)
        : StationDatabase(airports), TestServices(now, db.Folder()) {}
};

}  // namespace skelda::test
