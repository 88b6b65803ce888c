// How long a forecast takes from the fetched page to the filled window: a 40 KB portal page of
// six blocks (a long head of style and script before the text, the picture table, a long foot),
// taken apart into forecastform's labels by the same code that ChargerPrevision runs behind its
// fetch. The window is loaded and shown once; each iteration writes all its labels again. The
// copy of the page into the hidden text field, which the fetch also does, is timed apart.
#include "Forecast.h"
#include "ForecastForm.h"
#include "ForecastParser.h"
#include "Forms.h"
#include "GuiBenchmarks.h"
#include "HiddenTextBox.h"
#include "Named.h"
#include "TestServices.h"

#include <benchmark/benchmark.h>

#include <memory>

using namespace skelda;

namespace {

// A page of about 40 KB whose picture table ends before position 32767, as the parser needs.
QString PageDe40Ko() {
    QString head = QStringLiteral("<html><head><title>Local forecast</title>\n<style>\n");
    for (int i = 0; head.size() < 24000; ++i)
        head += QStringLiteral(".c%1 { font-family: Verdana; color: #33%1; margin: 2px; }\n")
                    .arg(i % 1000, 4, 10, QLatin1Char('0'));
    head += QStringLiteral("</style></head><body>\n");
    const char* const blocs[][2] = {
        {"Today:", " Mostly sunny. High 75F."},       {"Tonight:", " Clear. Low 54F."},
        {"Wednesday:", " Showers likely. High 62F."}, {"Wednesday night:", " Cloudy. Low 48F."},
        {"Thursday:", " Windy with rain. High 59F."}, {"Thursday night:", " Rain. Low 41F."}};
    QString texte = QStringLiteral("<!--TEXT FORECAST-->\n");
    for (const auto& b : blocs)
        texte += QStringLiteral("<b>%1</b>%2<p>\n").arg(QLatin1String(b[0]), QLatin1String(b[1]));
    texte += QStringLiteral("<!--ENDTEXT FORECAST-->\n");
    QString table = QStringLiteral("<table><tr><td>-- FORECAST --</td>");
    for (const char* nom : {"28", "11", "30", "12"})
        table += QStringLiteral("<td><img src=\"/icons/%1.gif\"></td>").arg(QLatin1String(nom));
    table += QStringLiteral("</tr></table><!--ENDFC-->\n");
    QString foot;
    for (int i = 0; head.size() + texte.size() + table.size() + foot.size() < 40960; ++i)
        foot += QStringLiteral("<p class=\"c%1\">Forecast archive line %1</p>\n").arg(i);
    return head + texte + table + foot + QStringLiteral("</body></html>\n");
}

struct Banc {
    test::TestServices seams{QDateTime(QDate(2004, 11, 2), QTime(10, 5)), QString()};
    Forms forms{seams.services};
    Banc() { ProvideForecastForms(forms); }
};

std::unique_ptr<Banc> banc;

void BM_ForecastPageToFilledLabels(benchmark::State& state) {
    if (!banc) banc = std::make_unique<Banc>();
    const QString page = PageDe40Ko();
    const QString code = QStringLiteral("FRXX0076");
    // The last block's text, found by its name once: the form stays loaded between the passes.
    const Label* label6 = test::Named<Label>(banc->forms.Get<ForecastForm>(), QStringLiteral("Label6"));
    for (auto _ : state) {
        AfficherPrevision(page, code, banc->forms);
        benchmark::DoNotOptimize(label6->Caption().size());
    }
    if (label6->Caption() != QStringLiteral(" Rain. Low 41F(5)c.")) state.SkipWithError("the page wasn't read whole");
    state.SetBytesProcessed(int64_t(state.iterations()) * page.size() * 2);
    state.counters["page_chars"] = double(page.size());
}
BENCHMARK(BM_ForecastPageToFilledLabels)->Unit(benchmark::kMicrosecond);

void BM_ForecastPageIntoHiddenField(benchmark::State& state) {
    HiddenTextBox wwwsource;
    const QString page = PageDe40Ko();
    for (auto _ : state) {
        // A page as it comes from the fetch: a text of its own, not one shared with the last.
        wwwsource.SetText(QString(page.constData(), page.size()));
        benchmark::DoNotOptimize(wwwsource.Text().size());
    }
}
BENCHMARK(BM_ForecastPageIntoHiddenField)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunGuiBenchmarks(argc, argv, [] { banc.reset(); });
}
