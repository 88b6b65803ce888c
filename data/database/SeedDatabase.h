// Making a fresh database.mdb: the schema of schema.sql and a first table of airports.
//
// The program never creates its database; the build makes the delivered one with this code
// (makedb), and the tests make their own in temporary folders.
#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <optional>

namespace skelda {

// One row of table Aéroports as it is seeded. The database numbers the rows (idx) in this order.
struct SeedAirport {
    QString ida;
    QString aeroport;
    QString ville;
    QString timezone;
    bool active = true;
    bool preferred = false;
    std::optional<QString> codeforecast;  // nullopt is stored as Null
};

// The text of schema.sql, built into the library.
QString DatabaseSchema();

// Reads the seed file: UTF-8 text, a header line that names the columns IDA, aéroport, ville,
// timezone, activé, préféré and codeforecast (in any order, any case), then one airport per line
// with its fields separated by ';'. activé and préféré hold 1 or 0; an empty codeforecast is
// stored as Null, meaning "no forecast page". Blank lines are skipped. Gives false, with a message
// that names the line, for a text it can't read.
bool ParseAirports(const QString& csv, QList<SeedAirport>& airports, QString* error);

// Makes a database file at Path with the schema and the airports, replacing any file there. The
// file is built under another name and renamed at the end, so that a failure leaves no half-made
// database behind. Gives false, with a message, on failure.
bool CreateDatabase(const QString& path, const QString& schemaSql, const QList<SeedAirport>& airports, QString* error);

// The same from the text of a seed file.
bool CreateDatabase(const QString& path, const QString& schemaSql, const QString& airportsCsv, QString* error);

// The layout version that SchemaSql sets (its "PRAGMA user_version = N"), or 0 when it sets none.
int SchemaVersion(const QString& schemaSql);

// What UpgradeDatabase did to a file.
enum class Upgrade {
    UpToDate,        // the file was already at the schema's version: nothing was touched
    Upgraded,        // indexes and saved queries are now those of the schema
    KeptOldRepeats,  // as Upgraded, except a unique index that rows already in the file repeat:
                     // those rows are all kept, and the file keeps its older indexes instead
    Failed,          // the file couldn't be opened or written: it stands as it was
};

// Brings the database file at Path, made under an older layout, up to the schema: the schema's
// text is run again on it (it makes only what is missing, and its saved queries and triggers
// afresh), and the indexes that the schema no longer has are dropped. No row of the file's own
// tables is changed or lost, and all of it is one transaction. A file already at the schema's version is only read, so
// that this costs next to nothing when there is nothing to do. A missing file is Failed, and is not created.
// BeforeUpgrading, when given, is called once the file is known to need the upgrade and before
// anything is written: an upgrade of years of observations builds indexes over every row and
// takes seconds, and the caller may want to show something meanwhile.
Upgrade UpgradeDatabase(const QString& path, const QString& schemaSql, QString* error = nullptr,
                        const std::function<void()>& beforeUpgrading = {});

}  // namespace skelda
