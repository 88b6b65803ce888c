#include "SyntheticStore.h"

#include "SeedDatabase.h"

#include <sqlite3.h>

#include <QTime>

#include <memory>
#include <stdexcept>

namespace skelda::bench {

namespace {

void Check(int code, sqlite3* db) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(db));
}

void BindText(sqlite3_stmt* statement, int index, const QByteArray& text) {
    sqlite3_bind_text(statement, index, text.constData(), int(text.size()), SQLITE_TRANSIENT);
}

QList<SeedAirport> Airports() {
    QList<SeedAirport> airports;
    for (int a = 1; a <= kStoreAirports; ++a)
        airports.append({QStringLiteral("LF%1").arg(a, 2, 10, QLatin1Char('0')), QStringLiteral("Airport %1").arg(a),
                         QStringLiteral("City %1").arg(a, 2, 10, QLatin1Char('0')), QStringLiteral("1"), true, a == 1,
                         std::nullopt});
    return airports;
}

// A plausible weather: winds of 0 to 29 knots with gusts above 20, rain now and then, a
// temperature and a pressure that wander slowly.
void FillZefir(const QString& path, QDate firstDay, int days) {
    sqlite3* raw = nullptr;
    Check(sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE, nullptr), raw);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> db(raw, sqlite3_close_v2);
    Check(sqlite3_exec(raw, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN", nullptr, nullptr, nullptr),
          raw);
    sqlite3_stmt* insert = nullptr;
    Check(sqlite3_prepare_v2(raw,
                             "INSERT INTO Zefir (NumAéroport, daterelevé, heurerelevé, forcenoeuds, orientationdegré, "
                             "forcerafale, zefirvariable, secteur1, secteur2, visibilité, temps, nuage, température, "
                             "pression, METAF) VALUES (?1, ?2, ?3, ?4, ?5, ?6, 0, 0, 0, "
                             "'Visibility greater then 10 Km', ?7, ' A few clouds at  1600 feets.', ?8, ?9, ?10)",
                             -1, &insert, nullptr),
          raw);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(insert, sqlite3_finalize);
    for (int d = 0; d < days; ++d) {
        const QByteArray day = firstDay.addDays(d).toString(QStringLiteral("yyyy-MM-dd")).toUtf8();
        for (int slot = 0; slot < kStorePerDay; ++slot) {
            const QByteArray time = QTime(slot / 2, slot % 2 * 30).toString(QStringLiteral("HH:mm:ss")).toUtf8();
            for (int a = 1; a <= kStoreAirports; ++a) {
                const int knots = (d * 3 + slot * 7 + a * 5) % 30;
                const QByteArray direction =
                    QByteArray::number((d * 10 + slot * 15 + a * 30) % 360).rightJustified(3, '0');
                const QByteArray metaf = "LF" + QByteArray::number(a).rightJustified(2, '0') + ' ' + day.right(2) +
                                         time.left(2) + time.mid(3, 2) + "Z " + direction +
                                         QByteArray::number(knots).rightJustified(2, '0') +
                                         "KT 9999 FEW016 12/08 Q1015";
                sqlite3_bind_int(insert, 1, a);
                BindText(insert, 2, day);
                BindText(insert, 3, time);
                sqlite3_bind_int(insert, 4, knots);
                BindText(insert, 5, direction);
                sqlite3_bind_int(insert, 6, knots > 20 ? knots + 10 : 0);
                sqlite3_bind_text(insert, 7, (d + slot) % 9 == 0 ? " pluie" : "", -1, SQLITE_STATIC);
                sqlite3_bind_int(insert, 8, (d / 30 + slot / 4) % 30 - 5);
                sqlite3_bind_int(insert, 9, 990 + (d + slot / 6 + a) % 40);
                BindText(insert, 10, metaf);
                Check(sqlite3_step(insert), raw);
                sqlite3_reset(insert);
            }
        }
    }
    Check(sqlite3_exec(raw, "COMMIT", nullptr, nullptr, nullptr), raw);
}

}  // namespace

void CreateSyntheticStore(const QString& path, QDate firstDay, int days) {
    CreateSyntheticStore(path, firstDay, days, DatabaseSchema());
}

void CreateSyntheticStore(const QString& path, QDate firstDay, int days, const QString& schemaSql) {
    QString error;
    if (!CreateDatabase(path, schemaSql, Airports(), &error)) throw std::runtime_error(error.toStdString());
    FillZefir(path, firstDay, days);
}

}  // namespace skelda::bench
