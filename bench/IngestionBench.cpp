// How long one reception takes, from the text that arrived on the socket to the committed row,
// once the store holds ten years of observations: 10 airports, 48 a day each, about 1.75 million
// rows of Zefir.
//
// The reception is timed whole, as the socket's DataArrival runs it: the log line, the cut, the
// decoding, the labels and the wind dial, the airport's lookup, the row written and committed,
// the log line of the outcome, the chart redrawn on the form after a new row, and the tray's
// caption. Once with a new observation each time, and once with the same observation again,
// which the store refuses as a duplicate (no redraw).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>

#include "Form1.h"
#include "Forms.h"
#include "FrmIcone.h"
#include "GuiBenchmarks.h"
#include "Named.h"
#include "PollCycle.h"
#include "RunFolder.h"
#include "SyntheticStore.h"
#include "TestServices.h"

using namespace skelda;

namespace {

const QDate kFirstDay(1994, 12, 1);
const QDate kLastDay(2004, 11, 30);

// A station file for airport 1 (LF01) at a minute the store has none of, so that each one is a
// new observation: day 1 to 28 of the clock's month, every hour, minutes 1 to 29 and 31 to 59.
QString StationFile(int n) {
    const int minutes = 1 + n % 58;
    const int minute = minutes < 30 ? minutes : minutes + 1;
    const int hour = (n / 58) % 24;
    const int day = 1 + (n / (58 * 24)) % 28;
    return QStringLiteral(
               "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\n"
               "2004/11/%1 %2:%3\nLF01 %1%2%3Z 24013G25KT 9999 FEW016 SCT030 12/08 Q1015 NOSIG\n")
        .arg(day, 2, 10, QLatin1Char('0'))
        .arg(hour, 2, 10, QLatin1Char('0'))
        .arg(minute, 2, 10, QLatin1Char('0'));
}

// The store, the folder the program runs in (log/ and Images/), and the loaded main window.
class Station : public bench::SharedSetUp<Station> {
    friend class bench::SharedSetUp<Station>;

public:
    Form1& form() { return forms_.Get<Form1>(); }
    QString Database() const { return store_.filePath(QStringLiteral("database.mdb")); }

private:
    Station() {
        bench::CreateSyntheticStore(Database(), kFirstDay, int(kFirstDay.daysTo(kLastDay)) + 1);

        ProvideMainWindow(forms_);
        // Only the tray form's caption is written: it is built, not loaded (no icon).
        forms_.Provide<FrmIcone>([](Forms& forms) { return new FrmIcone(forms); });
        forms_.ProvideAs<TrayForm, FrmIcone>();
        form();
    }

    QTemporaryDir store_;
    test::RunFolder run_{test::RunFolder::LogAndImages, QColor(90, 140, 200)};
    test::TestServices seams_{QDateTime(QDate(2004, 11, 30), QTime(12, 0)), store_.path()};
    Forms forms_{seams_.services};
};

void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(&Station::Instance());
}

// A new observation: decoded, shown, committed, logged, and the chart redrawn on the form.
void BM_IngestionNewRow(benchmark::State& state) {
    Form1& form = Station::Instance().form();
    static int n = 0;
    for (auto _ : state) {
        const QString reply = StationFile(n++);
        form.Cycle().IngererReponse(reply);
    }
    // Every reception must have been a new row, or the figure would be another path's.
    if (test::LogCount(QStringLiteral("New Metaf Recorded ")) != n)
        state.SkipWithError("a reception stored no new row");
    state.counters["rows"] = n;
}

// The same observation again: refused by the store as a duplicate, logged, no redraw.
void BM_IngestionDuplicate(benchmark::State& state) {
    Form1& form = Station::Instance().form();
    const QString reply = StationFile(0);
    form.Cycle().IngererReponse(reply);
    for (auto _ : state) form.Cycle().IngererReponse(reply);
}

}  // namespace

BENCHMARK(BM_MakeStore)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_IngestionNewRow)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IngestionDuplicate)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return skelda::bench::RunGuiBenchmarks(argc, argv, [] { Station::Close(); });
}
