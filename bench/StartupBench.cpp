// How long Skelda takes from its start to the notification icon once the store holds ten years of
// observations (10 airports, 48 a day each, about 1.75 million rows of Zefir), against the floor
// of any Qt program: the same executable that only opens a window.
//
// Each start is a process of its own, as a user's start is: this program runs itself again with
// "--start-skelda <folder>" (the start path of the program: the upgrade check of the database,
// the start form's load, which loads the main window whole with its lists and first chart, and
// adds the icon) or with "--start-bare" (a QApplication and one window shown), and the time runs
// from the spawn to the child's exit, which it takes as soon as the icon is there. The ratio of the
// two means of this very run is reported beside Skelda's figure, so that a slow machine or a busy
// one shows in both.
//
// The list of days under the chart, which the start runs and the poll cycle runs again every hour,
// is timed in this process too: RemplirDates on the loaded main window, and its query alone.
#include "Dao.h"
#include "Form1.h"
#include "Forms.h"
#include "FrmIcone.h"
#include "GuiBenchmarks.h"
#include "Named.h"
#include "NotificationArea.h"
#include "Printer.h"
#include "RunTime.h"
#include "Seams.h"
#include "SeedDatabase.h"
#include "SyntheticStore.h"

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QWidget>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

extern char** environ;

using namespace skelda;

namespace {

constexpr int kDays = 3652;
const QDate kFirstDay(1996, 1, 1);
const char kStartSkelda[] = "--start-skelda";
const char kStartBare[] = "--start-bare";

// --- The children ------------------------------------------------------------------------------

// Skelda's start as main does it, up to the icon; then the process ends at once.
int StartSkelda(int argc, char** argv, const QString& folder) {
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
    UpgradeDatabase(folder + QStringLiteral("/database.mdb"), DatabaseSchema());
    Forms forms(services);
    ProvideMainWindow(forms);
    forms.Provide<FrmIcone>(&FrmIcone::Load);
    forms.ProvideAs<TrayForm, FrmIcone>();
    QMetaObject::invokeMethod(
        &app,
        [&] {
            guard.Handle([&] { forms.Widget<FrmIcone>().show(); });
            // The icon is added by the start form's load; a start that failed says so.
            std::_Exit(forms.Get<FrmIcone>().IconeNotif.uID == 1 ? 0 : 4);
        },
        Qt::QueuedConnection);
    return QApplication::exec();
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

// The store and the folder the children run in (log/ and Images/), made once.
class Station {
public:
    static Station& Instance() {
        if (!instance) instance.reset(new Station);
        return *instance;
    }
    static void Close() { instance.reset(); }
    QString Folder() const { return store_.path(); }
    Form1& form() { return forms_.Get<Form1>(); }

private:
    Station() {
        bench::CreateSyntheticStore(store_.filePath(QStringLiteral("database.mdb")), kFirstDay, kDays);
        QDir::setCurrent(run_.path());
        QDir().mkpath(QStringLiteral("log"));
        QDir().mkpath(QStringLiteral("Images"));
        QImage picture(150, 100, QImage::Format_RGB888);
        picture.fill(QColor(90, 140, 200));
        picture.save(QStringLiteral("Images/METEO2.BMP"), "BMP");
        forms_.Provide<Form1>(&Form1::Load);
    }

    static inline std::unique_ptr<Station> instance;

    QTemporaryDir store_;
    QTemporaryDir run_;
    SystemClock clock_;
    SystemRandom random_;
    test::RecordingBoxes boxes_;
    RunTimeGuard guard_{boxes_, [](int) {}};
    test::TestPrinter printer_;
    test::CountingProcessEnd processEnd_;
    DesktopNotificationArea notificationArea_;
    Services services_{clock_,        random_,  boxes_,      guard_,           {}, {}, {},
                       store_.path(), printer_, processEnd_, notificationArea_};
    Forms forms_{services_};
};

QByteArray self;  // this program's path, for the children

// Runs this program again with Arguments; gives the seconds from the spawn to its exit, or a
// negative number when it failed.
double TimeChild(const std::vector<QByteArray>& arguments) {
    std::vector<char*> argv{self.data()};
    for (const QByteArray& a : arguments) argv.push_back(const_cast<char*>(a.constData()));
    argv.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawn(&child, self.constData(), nullptr, nullptr, argv.data(), environ) != 0) return -1;
    int status = 0;
    waitpid(child, &status, 0);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? elapsed.count() : -1;
}

double bareMean = 0;  // seconds, from BM_BareQtToWindow of this run

void TimeStarts(benchmark::State& state, const std::vector<QByteArray>& arguments, double* mean) {
    double total = 0;
    for (auto _ : state) {
        const double seconds = TimeChild(arguments);
        if (seconds < 0) {
            state.SkipWithError("the child didn't start");
            return;
        }
        state.SetIterationTime(seconds);
        total += seconds;
    }
    if (mean && state.iterations() > 0) *mean = total / double(state.iterations());
}

void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(&Station::Instance());
}

void BM_BareQtToWindow(benchmark::State& state) { TimeStarts(state, {kStartBare}, &bareMean); }

void BM_StartToIcon(benchmark::State& state) {
    double mean = 0;
    TimeStarts(state, {kStartSkelda, Station::Instance().Folder().toLocal8Bit()}, &mean);
    if (bareMean > 0) state.counters["times_bare"] = mean / bareMean;
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
BENCHMARK(BM_BareQtToWindow)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StartToIcon)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc >= 3 && std::strcmp(argv[1], kStartSkelda) == 0)
        return StartSkelda(argc, argv, QString::fromLocal8Bit(argv[2]));
    if (argc >= 2 && std::strcmp(argv[1], kStartBare) == 0) return StartBare(argc, argv);
    self = QFileInfo(QString::fromLocal8Bit(argv[0])).absoluteFilePath().toLocal8Bit();
    return skelda::bench::RunGuiBenchmarks(argc, argv, [] { Station::Close(); });
}
