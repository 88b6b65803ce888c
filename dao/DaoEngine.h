// The open database file behind a Database handle: the SQLite connection, its tables and views,
// and the translation of SQLite's failures into the engine's numbers and words. Internal to the
// access layer.
#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <vector>

#include "DaoColumns.h"
#include "Failure.h"

struct sqlite3;
struct sqlite3_stmt;

namespace skelda::dao {

struct StatementDeleter {
    void operator()(sqlite3_stmt* statement) const;
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

// Throws the engine's failure Number, with its own words unless others are given.
[[noreturn]] void Fail(int number, const QString& description = {});

// The key under which names are looked up: they are matched without regard to case.
inline QString Key(const QString& name) { return name.toLower(); }

// A column of a table, as writing needs it.
struct TableColumn {
    QString name;
    ColumnKind kind;
    bool assignedByDatabase;  // the row number (INTEGER PRIMARY KEY), which the database gives
};

struct TableInfo {
    QString name;
    std::vector<TableColumn> columns;
    QHash<QString, int> byName;  // Key(name) -> column
};

// A table or a view of the file.
struct SchemaObject {
    QString name;
    bool isView;
};

struct RecordsetState;

struct Connection {
    sqlite3* db = nullptr;
    QString path;
    std::vector<std::weak_ptr<RecordsetState>> recordsets;  // closed with the database
    std::vector<SchemaObject> objects;
    QHash<QString, std::shared_ptr<const TableInfo>> tables;  // by Key(name), read once

    ~Connection() { Close(); }
    // Closes every recordset still open on the file, then the file.
    void Close();

    // Opens the file at Path, read and write, and reads its tables and views.
    void Open(const QString& path);
    // Compiles one statement; a failure is thrown as the engine's, Source naming the query.
    Statement Prepare(const QString& sql, const QString& source = {});
    // Throws the engine's failure for SQLite's (extended) result Code and last message.
    [[noreturn]] void FailWith(int code, const QString& source = {}) const;
    // The table or view of that name, in any case; 3078 when there's none.
    const SchemaObject& Object(const QString& name) const;
    // The same, or nullptr when there's none.
    const SchemaObject* Find(const QString& name) const;
    std::shared_ptr<const TableInfo> Table(const QString& name);
    // True when an index of the table, a whole one, has the column as its first.
    bool HasIndexLeadingWith(const QString& table, const QString& column);

private:
    void LoadObjects();
};

}  // namespace skelda::dao
