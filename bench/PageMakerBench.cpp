// The forecast page maker's function on a whole source reply (Paris in summer, nine days of
// steps, 40 KB of JSON), from the reply's text to the page: the target is under 5 ms, the time
// the gateway adds to a right click whose page isn't cached yet.
#include <benchmark/benchmark.h>

#include <QFile>

#include "PageMaker.h"
#include "Places.h"

using namespace skelda;

static void MakeForecastPageOfAWholeReply(benchmark::State& state) {
    QFile file(QStringLiteral(SKELDA_REPLIES_DIR "/paris-summer.json"));
    if (!file.open(QIODevice::ReadOnly)) {
        state.SkipWithError("no reply to read");
        return;
    }
    const QByteArray reply = file.readAll();
    const QDateTime now = QDateTime::fromString(QStringLiteral("2024-07-10T10:20:00Z"), Qt::ISODate);
    const PagePlace place = PagePlaceOf(*FindPlace(u"LFPG"));
    for (auto _ : state) {
        const ForecastPage page = MakeForecastPage(reply, now, place);
        if (page.kind != PageKind::Forecast) state.SkipWithError("the reply gave no forecast");
        benchmark::DoNotOptimize(page.text.constData());
    }
}
BENCHMARK(MakeForecastPageOfAWholeReply)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
