#include "SeedDatabase.h"

#include <sqlite3.h>

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <memory>

namespace skelda {

namespace {

const char16_t* const kColumns[] = {u"IDA", u"aéroport", u"ville", u"timezone", u"activé", u"préféré", u"codeforecast"};
enum Column { Ida, Aeroport, Ville, Timezone, Active, Preferred, CodeForecast, ColumnCount };

bool Failed(QString* error, const QString& message) {
    if (error) *error = message;
    return false;
}

// The fields of one line, separated by ';'. A field may be put in double quotes, with a quote
// inside written twice, to hold a ';' of its own.
bool SplitFields(QStringView line, QStringList& fields) {
    fields.clear();
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (quoted) {
            if (c != u'"')
                field += c;
            else if (i + 1 < line.size() && line[i + 1] == u'"')
                field += line[++i];
            else
                quoted = false;
        } else if (c == u'"') {
            quoted = true;
        } else if (c == u';') {
            fields << field;
            field.clear();
        } else {
            field += c;
        }
    }
    fields << field;
    return !quoted;
}

bool ParseFlag(const QString& text, bool& value) {
    const QString t = text.trimmed().toLower();
    const bool yes = t == u"1" || t == u"-1" || t == u"true" || t == u"yes";
    const bool no = t == u"0" || t.isEmpty() || t == u"false" || t == u"no";
    value = yes;
    return yes || no;
}

// Where each column stands in the header line, or an empty result when one is missing.
QList<int> ColumnPlaces(const QStringList& header) {
    QList<int> places;
    for (const char16_t* name : kColumns) {
        qsizetype at = -1;
        for (qsizetype i = 0; i < header.size() && at < 0; ++i)
            if (header[i].trimmed().compare(QStringView(name), Qt::CaseInsensitive) == 0) at = i;
        if (at < 0) return {};
        places << int(at);
    }
    return places;
}

bool AirportOf(const QStringList& fields, const QList<int>& places, SeedAirport& airport) {
    for (int place : places)
        if (place >= fields.size()) return false;
    const auto field = [&](Column c) { return fields[places[c]].trimmed(); };
    airport.ida = field(Ida);
    airport.aeroport = field(Aeroport);
    airport.ville = field(Ville);
    airport.timezone = field(Timezone);
    if (!field(CodeForecast).isEmpty()) airport.codeforecast = field(CodeForecast);
    return ParseFlag(field(Active), airport.active) && ParseFlag(field(Preferred), airport.preferred);
}

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

bool Run(sqlite3* db, const QString& sql, QString* error) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &message) == SQLITE_OK) return true;
    const QString text = QString::fromUtf8(message);
    sqlite3_free(message);
    return Failed(error, text);
}

void BindText(sqlite3_stmt* statement, int index, const QString& text) {
    if (text.isEmpty()) {
        sqlite3_bind_null(statement, index);
        return;
    }
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement, index, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

bool InsertAirports(sqlite3* db, const QList<SeedAirport>& airports, QString* error) {
    const QByteArray sql =
        QStringLiteral(
            "INSERT INTO \"Aéroports\" (\"IDA\", \"aéroport\", \"ville\", \"timezone\", \"activé\", \"préféré\", "
            "\"codeforecast\") VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)")
            .toUtf8();
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &raw, nullptr) != SQLITE_OK)
        return Failed(error, QString::fromUtf8(sqlite3_errmsg(db)));
    const std::unique_ptr<sqlite3_stmt, FinalizeStatement> insert(raw);
    for (const SeedAirport& airport : airports) {
        BindText(raw, 1, airport.ida);
        BindText(raw, 2, airport.aeroport);
        BindText(raw, 3, airport.ville);
        BindText(raw, 4, airport.timezone);
        sqlite3_bind_int(raw, 5, airport.active ? 1 : 0);
        sqlite3_bind_int(raw, 6, airport.preferred ? 1 : 0);
        if (airport.codeforecast) {
            const QByteArray code = airport.codeforecast->toUtf8();
            sqlite3_bind_text(raw, 7, code.constData(), int(code.size()), SQLITE_TRANSIENT);
        } else {
            sqlite3_bind_null(raw, 7);
        }
        if (sqlite3_step(raw) != SQLITE_DONE) return Failed(error, QString::fromUtf8(sqlite3_errmsg(db)));
        sqlite3_reset(raw);
    }
    return true;
}

bool Build(const QString& path, const QString& schemaSql, const QList<SeedAirport>& airports, QString* error) {
    sqlite3* raw = nullptr;
    const int code =
        sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const Handle db(raw);
    if (code != SQLITE_OK) return Failed(error, QString::fromUtf8(sqlite3_errmsg(raw)));
    return Run(raw, QStringLiteral("BEGIN"), error) && Run(raw, schemaSql, error) &&
           InsertAirports(raw, airports, error) && Run(raw, QStringLiteral("COMMIT"), error);
}

// One object of a schema as sqlite_master lists it.
struct SchemaEntry {
    QString type;  // "index" or "view"
    QString name;
    QString sql;
};

// The indexes and views that have an SQL text of their own (not those made for a UNIQUE column).
bool Entries(sqlite3* db, QList<SchemaEntry>& entries, QString* error) {
    static const char sql[] =
        "SELECT type, name, sql FROM sqlite_master WHERE type IN ('index', 'view') AND sql IS NOT NULL";
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &raw, nullptr) != SQLITE_OK)
        return Failed(error, QString::fromUtf8(sqlite3_errmsg(db)));
    const std::unique_ptr<sqlite3_stmt, FinalizeStatement> list(raw);
    const auto text = [raw](int column) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(raw, column)));
    };
    while (sqlite3_step(raw) == SQLITE_ROW) entries << SchemaEntry{text(0), text(1), text(2)};
    return true;
}

int UserVersion(sqlite3* db) {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA user_version", -1, &raw, nullptr) != SQLITE_OK) return -1;
    const std::unique_ptr<sqlite3_stmt, FinalizeStatement> pragma(raw);
    return sqlite3_step(raw) == SQLITE_ROW ? sqlite3_column_int(raw, 0) : -1;
}

QString Quoted(const QString& name) { return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"'; }

// The schema's own indexes and views, read from a copy of it made in memory.
bool SchemaEntries(const QString& schemaSql, QList<SchemaEntry>& entries, QString* error) {
    sqlite3* raw = nullptr;
    sqlite3_open_v2(":memory:", &raw, SQLITE_OPEN_READWRITE, nullptr);
    const Handle memory(raw);
    return raw && Run(raw, schemaSql, error) && Entries(raw, entries, error);
}

// Runs the statements of Sql one by one. A unique index that rows already in the file repeat can't
// be built: that statement alone is left out, and KeptRepeats tells so.
bool RunEach(sqlite3* db, const QString& sql, bool& keptRepeats, QString* error) {
    const QByteArray text = sql.toUtf8();
    const char* next = text.constData();
    while (*next) {
        sqlite3_stmt* raw = nullptr;
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(db, next, -1, &raw, &tail) != SQLITE_OK)
            return Failed(error, QString::fromUtf8(sqlite3_errmsg(db)));
        next = tail;
        if (!raw) continue;  // blanks and comments
        const std::unique_ptr<sqlite3_stmt, FinalizeStatement> statement(raw);
        int code;
        while ((code = sqlite3_step(raw)) == SQLITE_ROW) {
        }
        if (code == SQLITE_DONE) continue;
        if (code != SQLITE_CONSTRAINT) return Failed(error, QString::fromUtf8(sqlite3_errmsg(db)));
        keptRepeats = true;
    }
    return true;
}

// The steps of an upgrade, inside its transaction: the schema run again, then the indexes that
// it no longer has dropped, unless a new unique index couldn't be built in their place.
bool ApplySchema(sqlite3* db, const QString& schemaSql, bool& keptRepeats, QString* error) {
    QList<SchemaEntry> wanted, present;
    if (!SchemaEntries(schemaSql, wanted, error) || !RunEach(db, schemaSql, keptRepeats, error) ||
        !Entries(db, present, error))
        return false;
    QSet<QString> wantedNames;
    for (const SchemaEntry& entry : wanted) wantedNames << entry.name.toLower();
    for (const SchemaEntry& entry : present)
        if (entry.type == u"index" && !wantedNames.contains(entry.name.toLower()) && !keptRepeats &&
            !Run(db, QStringLiteral("DROP INDEX %1").arg(Quoted(entry.name)), error))
            return false;
    return true;
}

}  // namespace

int SchemaVersion(const QString& schemaSql) {
    static const QRegularExpression pragma(QStringLiteral(R"(PRAGMA\s+user_version\s*=\s*(\d+))"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pragma.match(schemaSql);
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

Upgrade UpgradeDatabase(const QString& path, const QString& schemaSql, QString* error,
                        const std::function<void()>& beforeUpgrading) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    const Handle db(raw);
    if (code != SQLITE_OK) {
        Failed(error, raw ? QString::fromUtf8(sqlite3_errmsg(raw)) : QStringLiteral("can't open %1").arg(path));
        return Upgrade::Failed;
    }
    sqlite3_busy_timeout(raw, 2000);
    const int version = SchemaVersion(schemaSql);
    const int current = UserVersion(raw);
    if (current < 0) {
        Failed(error, QString::fromUtf8(sqlite3_errmsg(raw)));
        return Upgrade::Failed;
    }
    if (current >= version) return Upgrade::UpToDate;
    if (beforeUpgrading) beforeUpgrading();
    bool keptRepeats = false;
    if (!Run(raw, QStringLiteral("BEGIN IMMEDIATE"), error)) return Upgrade::Failed;
    if (!ApplySchema(raw, schemaSql, keptRepeats, error) || !Run(raw, QStringLiteral("COMMIT"), error)) {
        sqlite3_exec(raw, "ROLLBACK", nullptr, nullptr, nullptr);
        return Upgrade::Failed;
    }
    return keptRepeats ? Upgrade::KeptOldRepeats : Upgrade::Upgraded;
}

QString DatabaseSchema() {
    QFile file(QStringLiteral(":/skelda/database/schema.sql"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

bool ParseAirports(const QString& csv, QList<SeedAirport>& airports, QString* error) {
    airports.clear();
    QStringList lines = csv.split(u'\n');
    if (!lines.isEmpty() && lines[0].startsWith(QChar(0xFEFF))) lines[0].remove(0, 1);
    QList<int> places;
    QStringList fields;
    for (qsizetype n = 0; n < lines.size(); ++n) {
        const QString line = lines[n].endsWith(u'\r') ? lines[n].chopped(1) : lines[n];
        if (line.trimmed().isEmpty()) continue;
        const QString where = QStringLiteral("line %1: ").arg(n + 1);
        if (!SplitFields(line, fields)) return Failed(error, where + QStringLiteral("a quote is left open"));
        if (places.isEmpty()) {
            places = ColumnPlaces(fields);
            if (places.isEmpty())
                return Failed(error, where + QStringLiteral("the header must name IDA;aéroport;ville;timezone;activé;"
                                                            "préféré;codeforecast"));
            continue;
        }
        SeedAirport airport;
        if (!AirportOf(fields, places, airport))
            return Failed(
                error,
                where + QStringLiteral("expected %1 fields with activé and préféré as 1 or 0").arg(places.size()));
        airports << airport;
    }
    return true;
}

bool CreateDatabase(const QString& path, const QString& schemaSql, const QList<SeedAirport>& airports, QString* error) {
    const QString building = path + QStringLiteral(".building");
    QFile::remove(building);
    if (!Build(building, schemaSql, airports, error)) {
        QFile::remove(building);
        return false;
    }
    QFile::remove(path);
    if (!QFile::rename(building, path)) return Failed(error, QStringLiteral("can't write %1").arg(path));
    return true;
}

bool CreateDatabase(const QString& path, const QString& schemaSql, const QString& airportsCsv, QString* error) {
    QList<SeedAirport> airports;
    return ParseAirports(airportsCsv, airports, error) && CreateDatabase(path, schemaSql, airports, error);
}

}  // namespace skelda
