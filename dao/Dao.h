// Database access under the names of the desktop engine's object library: OpenDatabase, Database,
// Recordset, with their fields, moves, searches and writes.
//
// Skelda's procedures talk to database.mdb the way they always have: open the file, open a table
// or a query as a recordset, walk it or add to it, close both. The file is an SQLite database;
// this layer reads the program's own query texts (brackets around names, #month/day/year# dates,
// true and false, Format(..., 'Short Time')) and translates them, and it coerces the values that
// the program assigns to the column's declared type, as the engine did.
//
// Failures are RuntimeError with the engine's numbers and words: 3022 for a row that repeats an
// index key, 3021 "No current record.", 3265 for an unknown field, 3077 for a search criterion
// it cannot read, and so on (see DaoError). Database and Recordset are cheap handles: copies share
// one object, a default-constructed handle is Nothing (using it is error 91), and a closed object
// answers 3420 "Object invalid or no longer set.".
#pragma once

#include <QString>
#include <QStringList>
#include <memory>

#include "Variant.h"

namespace skelda {

// Recordset types, by their engine values.
enum { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4 };

// The engine's numbers for the failures that the program can meet.
enum DaoError : int {
    DaoReservedError = 3000,  // an engine failure without a number of its own
    DaoInvalidArgument = 3001,
    DaoUpdateWithoutEdit = 3020,  // "Update or CancelUpdate without AddNew or Edit."
    DaoNoCurrentRecord = 3021,
    DaoDuplicateKey = 3022,  // a row that repeats a unique index
    DaoFileNotFound = 3024,
    DaoReadOnly = 3027,  // writing a snapshot or a query that can't be written
    DaoDiskError = 3043,
    DaoCannotOpen = 3051,
    DaoTooFewParameters = 3061,  // SQL naming a column that doesn't exist
    DaoUnknownName = 3070,       // a search criterion naming a column that doesn't exist
    DaoSyntaxInQuery = 3075,
    DaoSyntaxInCriteria = 3077,  // "Syntax error (missing operator) in expression."
    DaoTableNotFound = 3078,
    DaoUndefinedFunction = 3085,
    DaoFieldNotUpdatable = 3164,
    DaoInvalidOperation = 3219,
    DaoLocked = 3260,
    DaoItemNotFound = 3265,  // a field name that isn't in the recordset
    DaoNullNotAllowed = 3314,
    DaoUnrecognizedFormat = 3343,  // a file that isn't a database
    DaoNumericOverflow = 3349,
    DaoObjectInvalid = 3420,    // a closed database or recordset
    DaoConversionError = 3421,  // "Data type conversion error."
    DaoCriteriaTypeMismatch = 3464,
};

namespace dao {
struct Connection;
struct RecordsetState;
}  // namespace dao

class Recordset;

// An open database file.
class Database {
public:
    Database() = default;  // Nothing

    // Opens a table or a saved query by name (any case), or runs an SQL text in the program's
    // dialect. Type dbOpenSnapshot gives a read-only copy of the result; dbOpenDynaset (and
    // dbOpenTable, for a table) can be written when the source is one table.
    Recordset OpenRecordset(const QString& source, int type = dbOpenDynaset) const;

    // Closes the file and every recordset still open on it.
    void Close();

    bool IsNothing() const { return !connection_; }

private:
    friend Database OpenDatabase(const QString& path);
    explicit Database(std::shared_ptr<dao::Connection> connection) : connection_(std::move(connection)) {}
    dao::Connection& Open() const;

    std::shared_ptr<dao::Connection> connection_;
};

// Opens an existing database file for reading and writing, shared with other users of it. A
// missing file is error 3024 "Could not find file '<path>'."; the file is never created.
Database OpenDatabase(const QString& path);

// The rows of a table or a query, with one current row.
//
// Reading is forward, row by row, with a step back allowed: after the last row Eof() is true, and
// MovePrevious() from there returns to the last row. RecordCount() counts the rows reached so far,
// as the engine does: 1 right after opening a recordset that has rows, the whole count once the
// end has been reached, and 0 for an empty one.
class Recordset {
public:
    Recordset() = default;  // Nothing

    // Before the first row, and after the last. They aren't called BOF and EOF because the C
    // library defines EOF as a macro. Both are true on an empty recordset.
    bool Bof() const;
    bool Eof() const;

    void MoveNext();      // 3021 when already after the last row
    void MovePrevious();  // 3021 when already before the first row
    void MoveFirst();     // 3021 on an empty recordset
    void MoveLast();      // 3021 on an empty recordset
    long RecordCount() const;

    // The value of a field of the current row: Null for a missing value, dates and times as date
    // values, booleans, 16-bit and 32-bit integers, doubles and texts by the column's declared
    // type. The name is matched without regard to case; an unknown one is 3265, and no current
    // row is 3021. During AddNew or Edit it reads the row being written.
    Variant Fields(const QString& name) const;
    QStringList FieldNames() const;

    // Makes the first row that fits the criterion current, reading it as "column = number" or
    // "column = 'text'" (text compared without regard to case). When no row fits, NoMatch()
    // becomes true and the current row stays where it was. A criterion of any other shape is
    // 3077; it never reaches the database as SQL.
    void FindFirst(const QString& criteria);
    bool NoMatch() const;

    // Writing: AddNew (a new row) or Edit (the current row), SetField for each column, then
    // Update, which stores the row in one transaction of its own. SetField coerces the value to
    // the column's type at once: a day-first date text into a date column, "10:00" into a time
    // column, a number text into a number column; 3421 when it can't be converted and 3349 when a
    // number doesn't fit. A snapshot, or a query over more than one table, is read-only (3027).
    // Update of a row that repeats a unique index is 3022, and the row stays pending.
    void AddNew();
    void Edit();
    void SetField(const QString& name, const Variant& value);
    void Update();
    void CancelUpdate();

    void Close();
    bool IsNothing() const { return !state_; }

private:
    friend class Database;
    explicit Recordset(std::shared_ptr<dao::RecordsetState> state) : state_(std::move(state)) {}
    dao::RecordsetState& Open() const;

    std::shared_ptr<dao::RecordsetState> state_;
};

}  // namespace skelda
