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
#include "RecordingSurface.h"
#include "RunFolder.h"
#include "SyntheticStore.h"
#include "TestServices.h"

#include <benchmark/benchmark.h>

#include <QApplication>
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
const QColor kPicture(90, 140, 200);  // of every airport's picture

// The store, the folder the program runs in (log/ and Images/), and the loaded main window.
class Station : public bench::SharedSetUp<Station> {
    friend class bench::SharedSetUp<Station>;

public:
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
        for (int a = 1; a <= kAirports; ++a)
            test::SavePicture(QStringLiteral("Images/LF%1.BMP").arg(a, 2, 10, QLatin1Char('0')), kPicture);

        forms_.Provide<Form1>(&Form1::Load);
        // The airport list and the date list, found by their names once: the form stays loaded.
        Form1& f = form();
        list1_ = test::Named<ListBox>(f, QStringLiteral("List1"));
        choixDate_ = test::Named<ComboBox>(f, QStringLiteral("ChoixDate"));
    }

    QTemporaryDir store_;
    test::RunFolder run_{test::RunFolder::LogAndImages, kPicture};
    // The clock stands still at the start of the run, on the system's day: nothing measured here
    // depends on the time moving.
    test::TestServices seams_{QDateTime::currentDateTime(), store_.path()};
    Forms forms_{seams_.services};
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
    bench::OverSelections(state, station, [&] {
        recording.Clear();
        form.TracerCourbe();
        if (recording.Boxes().size() != kPerDay) state.SkipWithError("the day isn't whole");
    });
    form.DrawOn(form);
}

void BM_TracerCourbeOnTheForm(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    form.DrawOn(form);
    bench::OverSelections(state, station, [&] { form.TracerCourbe(); });
}

// The same, followed by the window's repaint: the drawing, the grid above it and every control.
void BM_TracerCourbeOnTheFormShown(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    form.DrawOn(form);
    form.show();
    bench::OverSelections(state, station, [&] {
        form.TracerCourbe();
        form.repaint();
    });
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
