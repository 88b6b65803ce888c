// How long the airport selection form takes over the delivered table of airports (345 rows): its
// load, which lists every airport and judges the choice again at each active one, and Validate,
// which writes every row (each in its own transaction, as Update does) and refills the main
// window's list.
#include "AeroportsConfig.h"
#include "Form1.h"
#include "Forms.h"
#include "GuiBenchmarks.h"
#include "Named.h"
#include "RunFolder.h"
#include "SeedDatabase.h"
#include "TestServices.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using namespace skelda;

namespace {

// The delivered database in a temporary folder, the folder the program runs in, and the loaded
// main window.
class Station : public bench::SharedSetUp<Station> {
    friend class bench::SharedSetUp<Station>;

public:
    Forms& forms() { return forms_; }
    int airports = 0;

private:
    Station() {
        QFile seed(QStringLiteral(SKELDA_SEED_AIRPORTS));
        if (!seed.open(QIODevice::ReadOnly)) throw std::runtime_error("can't read the seed of airports");
        const QString csv = QString::fromUtf8(seed.readAll());
        QList<SeedAirport> rows;
        QString error;
        if (!ParseAirports(csv, rows, &error) ||
            !CreateDatabase(store_.filePath(QStringLiteral("database.mdb")), DatabaseSchema(), rows, &error))
            throw std::runtime_error(error.toStdString());
        airports = int(rows.size());

        forms_.Provide<Form1>(&Form1::Load);
        forms_.ProvideAs<PollingForm, Form1>();
        forms_.Provide<AeroportsConfig>(&AeroportsConfig::Load);
        forms_.Get<Form1>();
    }

    QTemporaryDir store_;
    test::RunFolder run_{test::RunFolder::LogAndImages, QColor(90, 140, 200)};
    // The clock stands still at the start of the run, on the system's day: nothing measured here
    // depends on the time moving.
    test::TestServices seams_{QDateTime::currentDateTime(), store_.path()};
    Forms forms_{seams_.services};
};

// The form that unloaded itself goes for good, outside the time measured.
void DropUnloaded() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

void BM_LoadAeroportsConfig(benchmark::State& state) {
    Station& station = Station::Instance();
    for (auto _ : state) {
        AeroportsConfig& form = station.forms().Get<AeroportsConfig>();
        state.PauseTiming();
        if (test::Named<ListBox>(form, QStringLiteral("List1"))->ListCount() != station.airports)
            state.SkipWithError("the list isn't whole");
        station.forms().Unload<AeroportsConfig>();
        state.ResumeTiming();
    }
    state.counters["airports"] = station.airports;
}

void BM_ValidateEveryAirport(benchmark::State& state) {
    Station& station = Station::Instance();
    for (auto _ : state) {
        state.PauseTiming();
        AeroportsConfig& form = station.forms().Get<AeroportsConfig>();
        state.ResumeTiming();
        form.Command1_Click();
        state.PauseTiming();
        if (station.forms().Loaded<AeroportsConfig>()) state.SkipWithError("the form didn't unload");
        DropUnloaded();
        state.ResumeTiming();
    }
    state.counters["rows"] = station.airports;
}

}  // namespace

BENCHMARK(BM_LoadAeroportsConfig)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ValidateEveryAirport)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return skelda::bench::RunGuiBenchmarks(argc, argv, [] { Station::Close(); });
}
