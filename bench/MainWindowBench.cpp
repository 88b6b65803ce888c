// How long the main window takes to redraw the day chart of one airport once the store holds ten
// years of observations: 10 airports, 48 a day each, about 1.75 million rows of Zefir.
//
// TracerCourbe is timed whole, as the program calls it on every click and every reception: the
// database opened, the day's 48 rows read and drawn (bars, arrows, both curves, the hour
// pictures), the bulletin composed, the airport's picture looked up and loaded. Once on a
// recording surface, to see the cost of the reading and composing alone, and once on the form
// itself, with and without the window's repaint. Each iteration draws another airport's day.
#include "Form1.h"
#include "Forms.h"
#include "GuiBenchmarks.h"
#include "Named.h"
#include "NotificationArea.h"
#include "RecordingSurface.h"
#include "RunTime.h"
#include "Seams.h"
#include "SyntheticStore.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QSignalBlocker>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using namespace skelda;

namespace {

constexpr int kAirports = bench::kStoreAirports;
constexpr int kPerDay = bench::kStorePerDay;
constexpr int kDays = 3652;
const QDate kFirstDay(1996, 1, 1);

// The store, the folder the program runs in (log/ and Images/), and the loaded main window.
class Station {
public:
    static Station& Instance() {
        if (!instance) instance.reset(new Station);
        return *instance;
    }
    // The window goes before the application does.
    static void Close() { instance.reset(); }
    Form1& form() { return forms_.Get<Form1>(); }

    // Selects the airport and day of iteration N without raising the lists' clicks.
    void Select(int n) {
        const QSignalBlocker listBlock(list1_);
        const QSignalBlocker dateBlock(choixDate_);
        list1_->setCurrentRow(n % kAirports);
        choixDate_->setCurrentIndex((n * 37) % choixDate_->ListCount());
    }

private:
    Station() {
        const QString path = store_.filePath(QStringLiteral("database.mdb"));
        bench::CreateSyntheticStore(path, kFirstDay, kDays);

        QDir::setCurrent(run_.path());
        QDir().mkpath(QStringLiteral("log"));
        QDir().mkpath(QStringLiteral("Images"));
        QImage picture(150, 100, QImage::Format_RGB888);
        picture.fill(QColor(90, 140, 200));
        picture.save(QStringLiteral("Images/METEO2.BMP"), "BMP");
        for (int a = 1; a <= kAirports; ++a)
            picture.save(QStringLiteral("Images/LF%1.BMP").arg(a, 2, 10, QLatin1Char('0')), "BMP");

        forms_.Provide<Form1>(&Form1::Load);
        // The airport list and the date list, found by their names once: the form stays loaded.
        Form1& f = form();
        list1_ = test::Named<ListBox>(f, QStringLiteral("List1"));
        choixDate_ = test::Named<ComboBox>(f, QStringLiteral("ChoixDate"));
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
    ListBox* list1_ = nullptr;
    ComboBox* choixDate_ = nullptr;
};

void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(&Station::Instance());
}

void BM_TracerCourbeOnRecording(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    RecordingSurface recording;
    form.DrawOn(recording);
    int n = 0;
    for (auto _ : state) {
        station.Select(n++);
        recording.Clear();
        form.TracerCourbe();
        if (recording.Boxes().size() != kPerDay) state.SkipWithError("the day isn't whole");
    }
    form.DrawOn(form);
}

void BM_TracerCourbeOnTheForm(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    form.DrawOn(form);
    int n = 0;
    for (auto _ : state) {
        station.Select(n++);
        form.TracerCourbe();
    }
}

// The same, followed by the window's repaint: the drawing, the grid above it and every control.
void BM_TracerCourbeOnTheFormShown(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    form.DrawOn(form);
    form.show();
    int n = 0;
    for (auto _ : state) {
        station.Select(n++);
        form.TracerCourbe();
        form.repaint();
    }
    form.hide();
}

}  // namespace

BENCHMARK(BM_MakeStore)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_TracerCourbeOnRecording)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TracerCourbeOnTheForm)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TracerCourbeOnTheFormShown)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return skelda::bench::RunGuiBenchmarks(argc, argv, [] { Station::Close(); });
}
