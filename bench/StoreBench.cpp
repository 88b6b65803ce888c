// How fast the store answers the program's heaviest uses once it holds ten years of observations:
// 10 airports, 48 observations a day each, about 1.75 million rows of Zefir.
//
// Measured through the access layer, as the program does it: storing one observation (AddNew,
// the fifteen columns, Update with its commit), the day chart's query, the list of days and the
// month query against the saved query, each opened and read to the end. The store is made once,
// quickly, straight with SQLite in one transaction, in a temporary folder; the query plans are
// printed first, so that a change of schema that loses an index shows at once.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QDate>
#include <QString>
#include <QTemporaryDir>
#include <QTime>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "Dao.h"
#include "DaoSql.h"
#include "Observation.h"
#include "Regional.h"
#include "SyntheticStore.h"

using namespace skelda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kAirports = bench::kStoreAirports;
constexpr int kPerDay = bench::kStorePerDay;
constexpr int kDays = 3652;
const QDate kFirstDay(1995, 1, 1);

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};

void Check(int code, sqlite3* db) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(db));
}

// The synthetic store, made on first use and removed at the end of the run.
class Store {
public:
    static const Store& Instance() {
        static const Store store;
        return store;
    }
    const QString& Path() const { return path_; }

private:
    Store() : path_(dir_.filePath(u"database.mdb"_s)) {
        bench::CreateSyntheticStore(path_, kFirstDay, kDays);
        PrintPlans();
    }

    void PrintPlans() const;

    QTemporaryDir dir_;
    QString path_;
};

// The texts, as the program builds them.
QString DayQuery(int airport, QDate day) {
    return u"select Zefir.*, Format([HeureRelevé],'Short Time') AS HR from zefir where numaéroport = "_s +
           QString::number(airport) + u" and daterelevé = #"_s + day.toString(u"MM/dd/yy"_s) +
           u"# order by Format([HeureRelevé],'Short Time')"_s;
}

const QString kListOfDays =
    u"SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé ORDER BY Zefir.DateRelevé;"_s;

QString MonthQuery(int airport, int month, int year) {
    return u"select [Heure de pointe selon zefir].* from [Heure de pointe selon zefir] where numaéroport = "_s +
           QString::number(airport) + u" and mois = "_s + QString::number(month) + u" and annee="_s +
           QString::number(year);
}

void Store::PrintPlans() const {
    sqlite3* raw = nullptr;
    sqlite3_open_v2(path_.toUtf8().constData(), &raw, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, CloseDatabase> db(raw);
    for (const QString& sql : {DayQuery(3, QDate(2000, 6, 15)), kListOfDays, MonthQuery(3, 6, 2000)}) {
        const QByteArray plan = ("EXPLAIN QUERY PLAN " + dao::Translate(sql)).toUtf8();
        std::fprintf(stderr, "%s\n", dao::Translate(sql).toUtf8().constData());
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(raw, plan.constData(), -1, &statement, nullptr), raw);
        while (sqlite3_step(statement) == SQLITE_ROW)
            std::fprintf(stderr, "    %s\n", reinterpret_cast<const char*>(sqlite3_column_text(statement, 3)));
        sqlite3_finalize(statement);
    }
}

// Reads every field of every row to the end, as the chart and the month view do.
int ReadAll(Recordset& rs) {
    const QStringList names = rs.FieldNames();
    int rows = 0;
    while (!rs.Eof()) {
        for (const QString& name : names) benchmark::DoNotOptimize(rs.Fields(name));
        ++rows;
        rs.MoveNext();
    }
    return rows;
}

// One observation as ingestion writes it, through the store's writer; each call a moment after
// the stored ten years. A failed statement would show as an error of the benchmark.
void StoreObservation(Recordset& zefir, int serial) {
    Bulletin releve;
    releve.DateReleve = DateText(kFirstDay.addDays(kDays + serial / 1440));
    releve.HeureReleve = QTime(0, 0).addSecs(serial % 1440 * 60).toString(u"HH:mm"_s);
    releve.ForceNoeuds = 12;
    releve.OrientationDegre = u"240"_s;
    releve.Visibilite = u"10 km or more"_s;
    releve.Nuage = u"Few clouds at 1600 feet"_s;
    releve.Temperature = 12;
    releve.Pression = 1015;
    ResumeNext step;
    AjouterReleve(
        zefir, step, u"NumAéroport"_s, [&] { return Variant(int32_t(1 + serial % kAirports)); }, releve,
        u"LFPB 021000Z 24012KT 9999 FEW016 22/06 Q1016="_s);
    if (step.Number() != 0) throw std::runtime_error(step.Description().toStdString());
}

int NextSerial() {
    static int serial = 0;
    return serial++;
}

// AddNew ... Update on an open recordset: the write and its commit.
void BM_StoreObservation(benchmark::State& state) {
    Database base = OpenDatabase(Store::Instance().Path());
    Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
    for (auto _ : state) StoreObservation(zefir, NextSerial());
}

// The whole write of one reception: open, add, update, close both.
void BM_StoreObservationOpenToClose(benchmark::State& state) {
    const QString path = Store::Instance().Path();
    for (auto _ : state) {
        Database base = OpenDatabase(path);
        Recordset zefir = base.OpenRecordset(u"Zefir"_s, dbOpenDynaset);
        StoreObservation(zefir, NextSerial());
        zefir.Close();
        base.Close();
    }
}

// The day chart's query, a different day each time: open, read every field of the 48 rows, step
// back to the last one, close.
void BM_DayQuery(benchmark::State& state) {
    Database base = OpenDatabase(Store::Instance().Path());
    int day = 0;
    for (auto _ : state) {
        Recordset rs =
            base.OpenRecordset(DayQuery(1 + day % kAirports, kFirstDay.addDays(day * 37 % kDays)), dbOpenSnapshot);
        if (ReadAll(rs) != kPerDay) state.SkipWithError("the day isn't whole");
        rs.MovePrevious();
        rs.Close();
        ++day;
    }
}

// The same with the opening and closing of the database, as each redraw of the chart does it.
void BM_DayQueryOpenToClose(benchmark::State& state) {
    const QString path = Store::Instance().Path();
    int day = 0;
    for (auto _ : state) {
        Database base = OpenDatabase(path);
        Recordset rs =
            base.OpenRecordset(DayQuery(1 + day % kAirports, kFirstDay.addDays(day * 37 % kDays)), dbOpenSnapshot);
        ReadAll(rs);
        rs.Close();
        base.Close();
        ++day;
    }
}

// The list of days under the chart: every distinct day of ten years.
void BM_ListOfDays(benchmark::State& state) {
    Database base = OpenDatabase(Store::Instance().Path());
    for (auto _ : state) {
        Recordset rs = base.OpenRecordset(kListOfDays, dbOpenSnapshot);
        if (ReadAll(rs) < kDays) state.SkipWithError("days are missing");
        rs.Close();
    }
}

// The month view's query against the saved query, a different month each time.
void BM_MonthQuery(benchmark::State& state) {
    Database base = OpenDatabase(Store::Instance().Path());
    int month = 0;
    for (auto _ : state) {
        Recordset rs =
            base.OpenRecordset(MonthQuery(1 + month % kAirports, 1 + month % 12, 1995 + month % 10), dbOpenSnapshot);
        if (ReadAll(rs) < 28) state.SkipWithError("the month isn't whole");
        rs.Close();
        ++month;
    }
}

// Prepares the store before any timing starts.
void BM_MakeStore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Store::Instance().Path());
}

}  // namespace

BENCHMARK(BM_MakeStore)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(BM_StoreObservation)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StoreObservationOpenToClose)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DayQuery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DayQueryOpenToClose)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ListOfDays)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MonthQuery)->Unit(benchmark::kMillisecond);
