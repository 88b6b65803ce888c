// How long Skelda takes from its start to the notification icon, on the delivered database and
// on a store of ten years of observations (10 airports, 48 a day each, about 1.75 million rows of
// Zefir), against the floor of any Qt program: the same executable that only opens a window. And
// the first start on a ten-year file of the first version, which brings it up to date: how soon
// the start-up picture stands, and how long until the icon.
//
// Each start is a process of its own, as a user's start is: this program runs itself again with
// "--start-skelda <folder>" (the start path of the program: the upgrade check of the database,
// with the start-up picture if it needs the upgrade, the start form's load, which loads the main
// window whole with its lists and first chart, and adds the icon), "--start-skelda-to-picture
// <folder>" (the same, ending as the start-up picture stands) or "--start-bare" (a QApplication
// and one window shown). The child ends as soon as it is there. What is timed is the child's CPU
// time, user and system, from its exec to its end: on a machine shared with other work it varies
// far less than the time on the clock. Each figure is the median of its iterations; the ratios to
// the bare program and to the delivered database are of the medians of this very run, so that a
// slow machine or a busy one shows in both.
//
// The list of days under the chart, which the start runs and the poll cycle runs again every hour,
// is timed in this process too: RemplirDates on the loaded main window, and its query alone.
#include "Dao.h"
#include "EarlierLayout.h"
#include "Form1.h"
#include "Forms.h"
#include "FrmIcone.h"
#include "GuiBenchmarks.h"
#include "Named.h"
#include "NotificationArea.h"
#include "Printer.h"
#include "RunFolder.h"
#include "RunTime.h"
#include "Seams.h"
#include "SeedDatabase.h"
#include "Start.h"
#include "SyntheticStore.h"
#include "TestServices.h"

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

extern char** environ;

using namespace skelda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kDays = 3652;
const QDate kFirstDay(1996, 1, 1);
const char kStartSkelda[] = "--start-skelda";
const char kStartSkeldaToPicture[] = "--start-skelda-to-picture";
const char kStartBare[] = "--start-bare";

// The layout of the first version's database.mdb: the observation's key without Null as a
// value, typed rows unique by their place, no table of days, version 0.
const QString kFirstLayout = QString::fromUtf8(test::EarlierTables) +
                             uR"(
CREATE INDEX "Mois" ON "Zefir" ("NumAéroport", CAST(substr("daterelevé", 1, 4) AS INTEGER),
    CAST(substr("daterelevé", 6, 2) AS INTEGER), "daterelevé");
CREATE VIEW "Heure de pointe selon zefir" AS SELECT "NumAéroport" AS "numaéroport", "daterelevé",
    avg("forcenoeuds") AS "zefirmoyen" FROM "Zefir" GROUP BY "NumAéroport", "daterelevé";
)"_s;

// --- The children ------------------------------------------------------------------------------

// Skelda's start as main does it, up to the icon, or up to the start-up picture of an upgrade;
// then the process ends at once.
int StartSkelda(int argc, char** argv, const QString& folder, bool toPicture) {
    test::RecordingBoxes boxes;
    RunTimeGuard guard(boxes, [](int) { std::_Exit(3); });
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    SystemClock clock;
    SystemRandom random;
    SystemPrinter printer;
    SystemProcessEnd processEnd;
    DesktopNotificationArea notificationArea;
    Services services{clock, random, boxes, guard, {}, {}, {}, folder, printer, processEnd, notificationArea};
    StartStages stages;
    if (toPicture) {
        stages.pictureShown = [] { std::_Exit(0); };
        // Asked for the picture of an upgrade, a file that needed none is a failure.
        stages.upToDate = [] { std::_Exit(5); };
    }
    // The icon is added by the start form's load; a start that failed says so.
    stages.shownForm = [](Forms& forms) { std::_Exit(forms.Get<FrmIcone>().IconeNotif.uID == 1 ? 0 : 4); };
    return RunStart(services, stages);
}

// The floor: a Qt program that shows one window from its event loop, then ends.
int StartBare(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    QMetaObject::invokeMethod(
        &app,
        [&] {
            window.show();
            std::_Exit(0);
        },
        Qt::QueuedConnection);
    return QApplication::exec();
}

// --- The parent --------------------------------------------------------------------------------

// The stores and the folder the children run in (log/ and Images/), made once: ten years of
// observations, the delivered database, and ten years in the first version's layout, of which
// each first start takes a fresh copy.
class Station : public bench::SharedSetUp<Station> {
    friend class bench::SharedSetUp<Station>;

public:
    QString Folder() const { return store_.path(); }
    QString DeliveredFolder() const { return delivered_.path(); }
    // A folder whose database.mdb is a fresh copy of the first version's ten years.
    QString EarlierFolder() {
        const QString copy = upgrading_.filePath(QStringLiteral("database.mdb"));
        QFile::remove(copy);
        if (!QFile::copy(earlier_.filePath(QStringLiteral("database.mdb")), copy)) return {};
        return upgrading_.path();
    }
    Form1& form() { return forms_.Get<Form1>(); }

private:
    Station() {
        bench::CreateSyntheticStore(store_.filePath(QStringLiteral("database.mdb")), kFirstDay, kDays);
        bench::CreateSyntheticStore(earlier_.filePath(QStringLiteral("database.mdb")), kFirstDay, kDays, kFirstLayout);
        QFile seed(QStringLiteral(SKELDA_SEED_AIRPORTS));
        QString error;
        if (!seed.open(QIODevice::ReadOnly) ||
            !CreateDatabase(delivered_.filePath(QStringLiteral("database.mdb")), DatabaseSchema(),
                            QString::fromUtf8(seed.readAll()), &error))
            throw std::runtime_error("the delivered database can't be made: " + error.toStdString());
        forms_.Provide<Form1>(&Form1::Load);
    }

    QTemporaryDir store_;
    QTemporaryDir delivered_;
    QTemporaryDir earlier_;
    QTemporaryDir upgrading_;
    test::RunFolder run_{test::RunFolder::LogAndImages, QColor(90, 140, 200)};
    // The clock stands still at the start of the run, on the system's day: nothing measured here
    // depends on the time moving.
    test::TestServices seams_{QDateTime::currentDateTime(), store_.path()};
    Forms forms_{seams_.services};
};

QByteArray self;  // this program's path, for the children

// Runs this program again with Arguments; gives the CPU seconds that the child spent, user and
// system, or a negative number when it failed.
double TimeChild(const std::vector<QByteArray>& arguments) {
    std::vector<char*> argv{self.data()};
    for (const QByteArray& a : arguments) argv.push_back(const_cast<char*>(a.constData()));
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, self.constData(), nullptr, nullptr, argv.data(), environ) != 0) return -1;
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) / 1e6; };
    const double cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? cpu : -1;
}

// The median CPU time of each kind of start in this run, by name.
std::map<std::string, double> medians;

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Times the starts that Arguments ask for, one an iteration (Prepare, when given, runs first and
// untimed, and gives the arguments); records their median as Name, and reports it with its
// ratios to the medians named in Against.
void TimeStarts(benchmark::State& state, const std::string& name,
                const std::function<std::vector<QByteArray>()>& prepare, const std::vector<std::string>& against = {}) {
    std::vector<double> times;
    for (auto _ : state) {
        state.PauseTiming();
        const std::vector<QByteArray> arguments = prepare();
        state.ResumeTiming();
        const double seconds = TimeChild(arguments);
        if (seconds < 0) {
            state.SkipWithError("the child didn't start");
            return;
        }
        state.SetIterationTime(seconds);
        times.push_back(seconds);
    }
    if (times.empty()) return;
    medians[name] = Median(times);
    state.counters["median_ms"] = medians[name] * 1000;
    for (const std::string& other : against)
        if (medians.count(other) && medians[other] > 0)
            state.counters["times_" + other] = medians[name] / medians[other];
}

void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(&Station::Instance());
}

// The three starts side by side, one of each an iteration, so that the machine's load at any
// moment weighs on all three alike: the bare Qt program, Skelda on the delivered database, and
// Skelda on ten years of observations. The iteration's time is the three together.
void BM_StartToIconSideBySide(benchmark::State& state) {
    Station& station = Station::Instance();
    const std::vector<std::pair<std::string, std::vector<QByteArray>>> starts = {
        {"bare", {kStartBare}},
        {"delivered", {kStartSkelda, station.DeliveredFolder().toLocal8Bit()}},
        {"ten_years", {kStartSkelda, station.Folder().toLocal8Bit()}},
    };
    std::map<std::string, std::vector<double>> times;
    for (auto _ : state) {
        double together = 0;
        for (const auto& [name, arguments] : starts) {
            const double seconds = TimeChild(arguments);
            if (seconds < 0) {
                state.SkipWithError("the child didn't start");
                return;
            }
            times[name].push_back(seconds);
            together += seconds;
        }
        state.SetIterationTime(together);
    }
    for (const auto& [name, values] : times) {
        medians[name] = Median(values);
        state.counters[name + "_ms"] = medians[name] * 1000;
    }
    state.counters["delivered_times_bare"] = medians["delivered"] / medians["bare"];
    state.counters["ten_years_times_bare"] = medians["ten_years"] / medians["bare"];
    state.counters["ten_years_times_delivered"] = medians["ten_years"] / medians["delivered"];
}

// The first start of this version on ten years of the first version: until the start-up picture
// stands, and until the icon, the upgrade included.
void BM_FirstStartOnAnEarlierTenYearFileToPicture(benchmark::State& state) {
    TimeStarts(
        state, "earlier_to_picture",
        [] {
            return std::vector<QByteArray>{kStartSkeldaToPicture, Station::Instance().EarlierFolder().toLocal8Bit()};
        },
        {"bare", "delivered"});
}

void BM_FirstStartOnAnEarlierTenYearFileToIcon(benchmark::State& state) {
    TimeStarts(state, "earlier_to_icon",
               [] {
                   return std::vector<QByteArray>{kStartSkelda, Station::Instance().EarlierFolder().toLocal8Bit()};
               },
               {"bare", "delivered"});
}

// The list of days as the main window fills it: the query, and 3652 lines into the combo box.
void BM_RemplirDates(benchmark::State& state) {
    Form1& form = Station::Instance().form();
    const ComboBox* choixDate = test::Named<ComboBox>(form, QStringLiteral("ChoixDate"));
    for (auto _ : state) {
        form.RemplirDates();
        if (choixDate->ListCount() < kDays) state.SkipWithError("days are missing");
    }
}

// Its query alone, from the opening of the file to its closing.
void BM_ListOfDaysQuery(benchmark::State& state) {
    const QString path = Station::Instance().Folder() + QStringLiteral("/database.mdb");
    for (auto _ : state) {
        Database base = OpenDatabase(path);
        Recordset rs = base.OpenRecordset(
            QStringLiteral("SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé ORDER BY Zefir.DateRelevé;"),
            dbOpenSnapshot);
        rs.MoveLast();
        if (rs.RecordCount() < kDays) state.SkipWithError("days are missing");
        rs.Close();
        base.Close();
    }
}

}  // namespace

BENCHMARK(BM_MakeStore)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_ListOfDaysQuery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RemplirDates)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StartToIconSideBySide)->UseManualTime()->Iterations(31)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FirstStartOnAnEarlierTenYearFileToPicture)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FirstStartOnAnEarlierTenYearFileToIcon)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc >= 3 && std::strcmp(argv[1], kStartSkelda) == 0)
        return StartSkelda(argc, argv, QString::fromLocal8Bit(argv[2]), false);
    if (argc >= 3 && std::strcmp(argv[1], kStartSkeldaToPicture) == 0)
        return StartSkelda(argc, argv, QString::fromLocal8Bit(argv[2]), true);
    if (argc >= 2 && std::strcmp(argv[1], kStartBare) == 0) return StartBare(argc, argv);
    self = QFileInfo(QString::fromLocal8Bit(argv[0])).absoluteFilePath().toLocal8Bit();
    return skelda::bench::RunGuiBenchmarks(argc, argv, [] { Station::Close(); });
}
