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
#include "RecordingSurface.h"
#include "SeedDatabase.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QSignalBlocker>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using namespace skelda;

namespace {

constexpr int kAirports = 10;
constexpr int kPerDay = 48;
constexpr int kDays = 3652;
const QDate kFirstDay(1996, 1, 1);

void Check(int code, sqlite3* db) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(db));
}

// Ten years of a plausible weather, written straight with SQLite in one transaction.
void FillZefir(const QString& path) {
    sqlite3* db = nullptr;
    Check(sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr), db);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner(db, sqlite3_close_v2);
    Check(sqlite3_exec(db, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN", nullptr, nullptr, nullptr),
          db);
    sqlite3_stmt* insert = nullptr;
    Check(sqlite3_prepare_v2(db,
                             "INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé, forcenoeuds, orientationdegré, "
                             "forcerafale, zefirvariable, secteur1, secteur2, visibilité, temps, nuage, température, "
                             "pression, METAF) VALUES (?1, ?2, ?3, ?4, ?5, ?6, 0, 0, 0, "
                             "'Visibility greater then 10 Km', ?7, ' A few clouds at  1600 feets.', ?8, ?9, ?10)",
                             -1, &insert, nullptr),
          db);
    for (int d = 0; d < kDays; ++d) {
        const QByteArray day = kFirstDay.addDays(d).toString(QStringLiteral("yyyy-MM-dd")).toUtf8();
        for (int slot = 0; slot < kPerDay; ++slot) {
            const QByteArray time = QTime(slot / 2, slot % 2 * 30).toString(QStringLiteral("HH:mm:ss")).toUtf8();
            for (int a = 1; a <= kAirports; ++a) {
                const int knots = (d * 3 + slot * 7 + a * 5) % 30;
                const QByteArray direction =
                    QByteArray::number((d * 10 + slot * 15 + a * 30) % 360).rightJustified(3, '0');
                const QByteArray metaf = "LF" + QByteArray::number(a).rightJustified(2, '0') + ' ' + day.right(2) +
                                         time.left(2) + time.mid(3, 2) + "Z " + direction +
                                         QByteArray::number(knots).rightJustified(2, '0') +
                                         "KT 9999 FEW016 12/08 Q1015";
                sqlite3_bind_int(insert, 1, a);
                sqlite3_bind_text(insert, 2, day.constData(), int(day.size()), SQLITE_TRANSIENT);
                sqlite3_bind_text(insert, 3, time.constData(), int(time.size()), SQLITE_TRANSIENT);
                sqlite3_bind_int(insert, 4, knots);
                sqlite3_bind_text(insert, 5, direction.constData(), int(direction.size()), SQLITE_TRANSIENT);
                sqlite3_bind_int(insert, 6, knots > 20 ? knots + 10 : 0);
                sqlite3_bind_text(insert, 7, (d + slot) % 9 == 0 ? " pluie" : "", -1, SQLITE_STATIC);
                sqlite3_bind_int(insert, 8, (d / 30 + slot / 4) % 30 - 5);
                sqlite3_bind_int(insert, 9, 990 + (d + slot / 6 + a) % 40);
                sqlite3_bind_text(insert, 10, metaf.constData(), int(metaf.size()), SQLITE_TRANSIENT);
                Check(sqlite3_step(insert), db);
                sqlite3_reset(insert);
            }
        }
    }
    sqlite3_finalize(insert);
    Check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db);
}

class NoBoxes : public MessageBoxes {
public:
    int MsgBox(const QString&, int, const QString&) override { return vbOK; }
    void RuntimeErrorBox(int, const QString&) override {}
};

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
        Form1& f = form();
        const QSignalBlocker listBlock(f.List1);
        const QSignalBlocker dateBlock(f.ChoixDate);
        f.List1->setCurrentRow(n % kAirports);
        f.ChoixDate->setCurrentIndex((n * 37) % f.ChoixDate->ListCount());
    }

private:
    Station() {
        QList<SeedAirport> airports;
        for (int a = 1; a <= kAirports; ++a) {
            airports.append({QStringLiteral("LF%1").arg(a, 2, 10, QLatin1Char('0')),
                             QStringLiteral("Airport %1").arg(a),
                             QStringLiteral("City %1").arg(a, 2, 10, QLatin1Char('0')), QStringLiteral("1"), true,
                             a == 1, std::nullopt});
        }
        QString error;
        const QString path = store_.filePath(QStringLiteral("database.mdb"));
        if (!CreateDatabase(path, DatabaseSchema(), airports, &error)) throw std::runtime_error(error.toStdString());
        FillZefir(path);

        QDir::setCurrent(run_.path());
        QDir().mkpath(QStringLiteral("log"));
        QDir().mkpath(QStringLiteral("Images"));
        QImage picture(150, 100, QImage::Format_RGB888);
        picture.fill(QColor(90, 140, 200));
        picture.save(QStringLiteral("Images/METEO2.BMP"), "BMP");
        for (const SeedAirport& a : airports) picture.save(QStringLiteral("Images/%1.BMP").arg(a.ida), "BMP");

        forms_.Provide<Form1>(&Form1::Load);
        form();
    }

    static inline std::unique_ptr<Station> instance;

    QTemporaryDir store_;
    QTemporaryDir run_;
    SystemClock clock_;
    SystemRandom random_;
    NoBoxes boxes_;
    Services services_{clock_, random_, boxes_, {}, {}, {}, store_.path()};
    Forms forms_{services_};
};

void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(&Station::Instance());
}

void BM_TracerCourbeOnRecording(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    RecordingSurface recording;
    form.drawingSurface = &recording;
    int n = 0;
    for (auto _ : state) {
        station.Select(n++);
        recording.Clear();
        form.TracerCourbe();
        if (recording.Boxes().size() != kPerDay) state.SkipWithError("the day isn't whole");
    }
    form.drawingSurface = &form;
}

void BM_TracerCourbeOnTheForm(benchmark::State& state) {
    Station& station = Station::Instance();
    Form1& form = station.form();
    form.drawingSurface = &form;
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
    form.drawingSurface = &form;
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
    // The window needs a display; without one it is drawn off the screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    Station::Close();
    return 0;
}
