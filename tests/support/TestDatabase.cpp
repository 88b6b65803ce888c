#include "TestDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>

namespace skelda::test {

namespace {

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

Handle OpenFile(const QString& path) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
        ADD_FAILURE() << "can't open " << path.toStdString() << ": " << sqlite3_errmsg(db);
    sqlite3_busy_timeout(db, 2000);
    return Handle(db);
}

Statement Prepare(sqlite3* db, const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    const QByteArray text = sql.toUtf8();
    if (sqlite3_prepare_v2(db, text.constData(), int(text.size()), &statement, nullptr) != SQLITE_OK)
        ADD_FAILURE() << sql.toStdString() << ": " << sqlite3_errmsg(db);
    return Statement(statement);
}

void BindText(sqlite3_stmt* statement, int index, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement, index, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

void BindNumber(sqlite3_stmt* statement, int index, std::optional<int> number) {
    if (number)
        sqlite3_bind_int(statement, index, *number);
    else
        sqlite3_bind_null(statement, index);
}

}  // namespace

QList<SeedAirport> Aeroports() {
    return {Airport(QStringLiteral("LFPB"), QStringLiteral("Paris"), QStringLiteral("Le Bourget"), true, true),
            Airport(QStringLiteral("EGLL"), QStringLiteral("London"), QStringLiteral("Heathrow")),
            Airport(QStringLiteral("LFPG"), QStringLiteral("Roissy"), QStringLiteral("Charles de Gaulle"))};
}

SeedAirport Airport(const QString& ida, const QString& ville, const QString& aeroport, bool active, bool preferred,
                    std::optional<QString> codeforecast) {
    SeedAirport airport;
    airport.ida = ida;
    airport.ville = ville;
    airport.aeroport = aeroport;
    airport.timezone = QStringLiteral("1");
    airport.active = active;
    airport.preferred = preferred;
    airport.codeforecast = std::move(codeforecast);
    return airport;
}

QString CreateTestDatabase(const QString& folder, const QList<SeedAirport>& airports) {
    QString path = folder + QStringLiteral("/database.mdb");
    QString error;
    if (!CreateDatabase(path, DatabaseSchema(), airports, &error)) {
        ADD_FAILURE() << "can't make a test database: " << error.toStdString();
        return {};
    }
    return path;
}

TestDatabase::TestDatabase(const QList<SeedAirport>& airports) {
    if (!dir_.isValid()) {
        ADD_FAILURE() << "can't make a temporary folder";
        return;
    }
    path_ = CreateTestDatabase(dir_.path(), airports);
}

bool TestDatabase::Exec(const QString& sql) const {
    const Handle db = OpenFile(path_);
    char* message = nullptr;
    if (sqlite3_exec(db.get(), sql.toUtf8().constData(), nullptr, nullptr, &message) == SQLITE_OK) return true;
    ADD_FAILURE() << sql.toStdString() << ": " << message;
    sqlite3_free(message);
    return false;
}

QVariant TestDatabase::Value(const QString& sql) const {
    const Handle db = OpenFile(path_);
    const Statement statement = Prepare(db.get(), sql);
    if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return {};
    switch (sqlite3_column_type(statement.get(), 0)) {
        case SQLITE_INTEGER:
            return QVariant(qlonglong(sqlite3_column_int64(statement.get(), 0)));
        case SQLITE_FLOAT:
            return QVariant(sqlite3_column_double(statement.get(), 0));
        case SQLITE_TEXT:
            return QVariant(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0))));
        default:
            return {};
    }
}

int TestDatabase::Count(const QString& table) const {
    return Value(QStringLiteral("SELECT count(*) FROM \"%1\"").arg(table)).toInt();
}

void TestDatabase::AddObservation(const TestObservation& row) const {
    const Handle db = OpenFile(path_);
    const Statement insert = Prepare(
        db.get(),
        QStringLiteral(
            "INSERT INTO \"Zefir\" (\"NumAéroport\", \"lieu\", \"daterelevé\", \"heurerelevé\", \"forcenoeuds\", "
            "\"orientationdegré\", \"forcerafale\", \"zefirvariable\", \"secteur1\", \"secteur2\", \"visibilité\", "
            "\"temps\", \"nuage\", \"température\", \"pression\", \"METAF\") "
            "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16)"));
    if (!insert) return;
    sqlite3_stmt* s = insert.get();
    BindNumber(s, 1, row.numAeroport);
    if (row.lieu) BindText(s, 2, *row.lieu);
    BindText(s, 3, row.day.toString(QStringLiteral("yyyy-MM-dd")));
    BindText(s, 4, row.time.toString(QStringLiteral("HH:mm:ss")));
    sqlite3_bind_int(s, 5, row.forcenoeuds);
    BindText(s, 6, row.orientation);
    sqlite3_bind_int(s, 7, row.forcerafale);
    sqlite3_bind_int(s, 8, row.variable ? 1 : 0);
    sqlite3_bind_int(s, 9, row.secteur1);
    sqlite3_bind_int(s, 10, row.secteur2);
    BindText(s, 11, row.visibilite);
    BindText(s, 12, row.temps);
    BindText(s, 13, row.nuage);
    BindNumber(s, 14, row.temperature);
    BindNumber(s, 15, row.pression);
    BindText(s, 16, row.metaf);
    if (sqlite3_step(s) != SQLITE_DONE) ADD_FAILURE() << "can't add an observation: " << sqlite3_errmsg(db.get());
}

}  // namespace skelda::test
