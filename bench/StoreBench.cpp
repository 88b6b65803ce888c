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
#include "SeedDatabase.h"

using namespace skelda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kAirports = 10;
constexpr int kPerDay = 48;
constexpr int kDays = 3652;
const QDate kFirstDay(1995, 1, 1);

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

void Check(int code, sqlite3* db) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(db));
}

void BindText(sqlite3_stmt* statement, int index, const QByteArray& text) {
    sqlite3_bind_text(statement, index, text.constData(), int(text.size()), SQLITE_TRANSIENT);
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
        QList<SeedAirport> airports;
        for (int a = 1; a <= kAirports; ++a)
            airports << SeedAirport{u"LF%1"_s.arg(a, 2, 10, QChar(u'0')),
                                    u"Airport %1"_s.arg(a),
                                    u"City %1"_s.arg(a),
                                    u"1"_s,
                                    true,
                                    a == 1,
                                    std::nullopt};
        QString error;
        if (!CreateDatabase(path_, DatabaseSchema(), airports, &error)) throw std::runtime_error(error.toStdString());
        Fill();
        PrintPlans();
    }

    void Fill() const {
        sqlite3* raw = nullptr;
        sqlite3_open_v2(path_.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
        const std::unique_ptr<sqlite3, CloseDatabase> db(raw);
        Check(
            sqlite3_exec(raw, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN", nullptr, nullptr, nullptr),
            raw);
        sqlite3_stmt* insert = nullptr;
        Check(sqlite3_prepare_v2(
                  raw,
                  "INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé, forcenoeuds, orientationdegré, "
                  "forcerafale, zefirvariable, secteur1, secteur2, visibilité, temps, nuage, température, "
                  "pression, METAF) VALUES (?1, ?2, ?3, ?4, ?5, 0, 0, 0, 0, '10 km or more', '', "
                  "'Few clouds at 1600 feet', ?6, ?7, ?8)",
                  -1, &insert, nullptr),
              raw);
        const std::unique_ptr<sqlite3_stmt, FinalizeStatement> statement(insert);
        for (int d = 0; d < kDays; ++d) {
            const QByteArray day = kFirstDay.addDays(d).toString(u"yyyy-MM-dd"_s).toUtf8();
            for (int slot = 0; slot < kPerDay; ++slot) {
                const QByteArray time = QTime(slot / 2, slot % 2 * 30).toString(u"HH:mm:ss"_s).toUtf8();
                for (int a = 1; a <= kAirports; ++a) {
                    const int knots = (d * 7 + slot * 13 + a * 5) % 35;
                    const int direction = (d * 10 + slot * 20 + a * 30) % 360;
                    sqlite3_bind_int(insert, 1, a);
                    BindText(insert, 2, day);
                    BindText(insert, 3, time);
                    sqlite3_bind_int(insert, 4, knots);
                    BindText(insert, 5, QByteArray::number(direction).rightJustified(3, '0'));
                    sqlite3_bind_int(insert, 6, (d + slot) % 30 - 5);
                    sqlite3_bind_int(insert, 7, 990 + (d + slot + a) % 40);
                    BindText(insert, 8,
                             "LF" + QByteArray::number(a) + " 021000Z " + QByteArray::number(direction) +
                                 QByteArray::number(knots) + "KT 9999 FEW016 SCT230 22/06 Q1016 NOSIG=");
                    Check(sqlite3_step(insert), raw);
                    sqlite3_reset(insert);
                }
            }
        }
        Check(sqlite3_exec(raw, "COMMIT", nullptr, nullptr, nullptr), raw);
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

// One observation as ingestion writes it; each call a moment after the stored ten years.
void StoreObservation(Recordset& zefir, int serial) {
    zefir.AddNew();
    zefir.SetField(u"NumAéroport"_s, int32_t(1 + serial % kAirports));
    zefir.SetField(u"daterelevé"_s, Variant::FromDate(kFirstDay.addDays(kDays + serial / 1440)));
    zefir.SetField(u"heurerelevé"_s, QTime(0, 0).addSecs(serial % 1440 * 60).toString(u"HH:mm"_s));
    zefir.SetField(u"forcenoeuds"_s, int16_t(12));
    zefir.SetField(u"orientationdegré"_s, u"240"_s);
    zefir.SetField(u"forcerafale"_s, int16_t(0));
    zefir.SetField(u"zefirvariable"_s, false);
    zefir.SetField(u"secteur1"_s, int16_t(0));
    zefir.SetField(u"secteur2"_s, int16_t(0));
    zefir.SetField(u"visibilité"_s, u"10 km or more"_s);
    zefir.SetField(u"temps"_s, u""_s);
    zefir.SetField(u"nuage"_s, u"Few clouds at 1600 feet"_s);
    zefir.SetField(u"température"_s, int16_t(12));
    zefir.SetField(u"pression"_s, int16_t(1015));
    zefir.SetField(u"METAF"_s, u"LFPB 021000Z 24012KT 9999 FEW016 22/06 Q1016="_s);
    zefir.Update();
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
