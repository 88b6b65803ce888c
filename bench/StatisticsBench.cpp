// How long the monthly window takes over a store of ten years of observations (10 airports, 48 a
// day each, about 1.75 million rows of Zefir): AfficherMois of a full month, as each click on an
// airport, a month or a check box runs it, and the printed report of a full month.
//
// AfficherMois is timed on a recording surface (the query and the text of the days alone) and on
// Picture1 itself, with and without the window's repaint. The report is timed on a recording page
// and on a real PDF printer, the file written by EndDoc included. Each iteration takes another
// airport, and the month moves through the three years of the window's list.
#include "Forms.h"
#include "GuiBenchmarks.h"
#include "Named.h"
#include "PrinterSurface.h"
#include "RecordingSurface.h"
#include "StatistiqueMensuelle.h"
#include "SyntheticStore.h"
#include "TestServices.h"

#include <benchmark/benchmark.h>

#include <QSignalBlocker>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

using namespace skelda;

namespace {

constexpr int kAirports = bench::kStoreAirports;
const QDate kFirstDay(1996, 1, 1);
constexpr int kDays = 3652;

class Station : public bench::SharedSetUp<Station> {
    friend class bench::SharedSetUp<Station>;

public:
    StatistiqueMensuelle& form() { return forms_.Get<StatistiqueMensuelle>(); }
    QString Folder() const { return store_.path(); }
    // Whether any box but the report's question came: the boxes answer Yes to that one.
    bool Failed() const {
        const std::vector<int>& styles = seams_.boxes.styles;
        return std::any_of(styles.begin(), styles.end(), [](int style) { return style != vbYesNo; });
    }
    test::TestPrinter& printer() { return seams_.printer; }

    // Selects the airport, month and year of iteration N without raising the lists' clicks: the
    // 36 months of 2003 to 2005 in turn, every month with 28 to 31 days of observations.
    void Select(int n) {
        const QSignalBlocker airports(aeroports_);
        const QSignalBlocker months(mois_);
        const QSignalBlocker years(annee_);
        aeroports_->setCurrentRow(n % kAirports);
        mois_->setCurrentRow(n % 12);
        annee_->setCurrentRow((n / 12) % 3);
    }

private:
    Station() {
        bench::CreateSyntheticStore(store_.filePath(QStringLiteral("database.mdb")), kFirstDay, kDays);
        forms_.Provide<StatistiqueMensuelle>(&StatistiqueMensuelle::Load);
        // The three lists, found by their names once: the form stays loaded.
        StatistiqueMensuelle& f = form();
        aeroports_ = test::Named<ListBox>(f, QStringLiteral("Aeroports"));
        mois_ = test::Named<ListBox>(f, QStringLiteral("Mois"));
        annee_ = test::Named<ListBox>(f, QStringLiteral("Année"));
    }

    QTemporaryDir store_;
    test::TestServices seams_{QDateTime(QDate(2004, 3, 20), QTime(12, 0)), store_.path()};
    Forms forms_{seams_.services};
    ListBox* aeroports_ = nullptr;
    ListBox* mois_ = nullptr;
    ListBox* annee_ = nullptr;
};

void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(&Station::Instance());
}

void BM_AfficherMoisOnRecording(benchmark::State& state) {
    Station& station = Station::Instance();
    StatistiqueMensuelle& form = station.form();
    RecordingSurface recording;
    form.DrawOn(recording);
    bench::OverSelections(state, station, [&] {
        recording.Clear();
        form.AfficherMois();
        if (recording.Boxes().size() < std::size_t{2} * 28) state.SkipWithError("the month isn't whole");
    });
    form.DrawOn(*test::Named<PlotPicture>(form, QStringLiteral("Picture1")));
}

void BM_AfficherMoisOnPicture1(benchmark::State& state) {
    Station& station = Station::Instance();
    StatistiqueMensuelle& form = station.form();
    bench::OverSelections(state, station, [&] { form.AfficherMois(); });
}

void BM_AfficherMoisOnPicture1Shown(benchmark::State& state) {
    Station& station = Station::Instance();
    StatistiqueMensuelle& form = station.form();
    form.show();
    bench::OverSelections(state, station, [&] {
        form.AfficherMois();
        form.repaint();
    });
    form.hide();
}

void BM_ReportOnRecording(benchmark::State& state) {
    Station& station = Station::Instance();
    StatistiqueMensuelle& form = station.form();
    auto page = std::make_shared<RecordingSurface>();
    station.printer().pages = [page] {
        page->Clear();
        return page;
    };
    bench::OverSelections(state, station, [&] {
        form.MenuStatImprimer_Click();
        if (page->Count(DrawOp::EndDoc) != 1 || station.Failed()) state.SkipWithError("the report failed");
    });
}

void BM_ReportToPdf(benchmark::State& state) {
    Station& station = Station::Instance();
    StatistiqueMensuelle& form = station.form();
    const QString pdf = station.Folder() + QStringLiteral("/report.pdf");
    station.printer().pages = [pdf] { return std::make_shared<PrinterSurface>(pdf); };
    bench::OverSelections(state, station, [&] {
        form.MenuStatImprimer_Click();
        if (station.Failed()) state.SkipWithError("the report failed");
    });
}

}  // namespace

BENCHMARK(BM_MakeStore)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_AfficherMoisOnRecording)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AfficherMoisOnPicture1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AfficherMoisOnPicture1Shown)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReportOnRecording)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReportToPdf)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return skelda::bench::RunGuiBenchmarks(argc, argv, [] { Station::Close(); });
}
