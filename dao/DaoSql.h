// The program's query texts in SQLite's dialect, and the FindFirst criteria read by hand.
//
// Skelda's queries are written for the desktop engine: [bracketed names], #month/day/year# dates,
// true and false, Format(time, 'Short Time'). Translate() rewrites those pieces outside string
// literals and leaves the rest of the text as it stands. Internal to the access layer.
#pragma once

#include <QString>
#include <QStringView>
#include <functional>
#include <optional>

namespace skelda::dao {

// True when a recordset source is an SQL text rather than the name of a table or a query.
bool IsSqlText(const QString& source);

// A name in SQLite's quotes: "name", with a quote inside written twice.
QString QuotedIdentifier(QStringView name);

// The text in SQLite's dialect. Throws RuntimeError 3075 for a text that can't be read: a string,
// bracketed name or date left open, or a #date# that isn't one. When IsTextColumn is given, each
// ORDER BY term that is a plain column for which it says true sorts by the collation
// kFrenchCollation, as a reader of French expects ("Évreux" before "Zurich").
QString Translate(const QString& sql, const std::function<bool(QStringView)>& isTextColumn = {});

// The name under which the access layer registers its French collation on every connection.
inline constexpr char kFrenchCollation[] = "FRANCAIS";

// A query of the shape "SELECT c FROM t GROUP BY c ORDER BY c": every distinct value of one
// column, in order. Table and Column are the names as written (brackets taken off), Name the
// select's own spelling of the column, which names the result.
struct DistinctValues {
    QString table;
    QString column;
    QString name;
};
std::optional<DistinctValues> DistinctValuesOf(const QString& sql);

// The name of the table that, when the file has it, holds every distinct value of Column of Table
// once, kept by the database: "Zefir.daterelevé". Its one column "valeur" holds x'' for Null.
QString DistinctValuesTable(const QString& table, const QString& column);

// The SQLite text that reads such a query's values from that table in order, with the Null day
// still as x'', last: the reader puts it first, as grouping does, as a Null.
QString DistinctValuesFromTable(const DistinctValues& query, const QString& valuesTable);

// The SQLite text that gives what such a query gives, NULL first when the column holds one, by
// jumping through an index of the column from one value to the next: as many index searches as
// there are distinct values, instead of a walk over every row. Only worth it when an index leads
// with the column; without one, each jump would read the whole table.
QString DistinctValuesByJumps(const DistinctValues& query);

// The table of a query of the plain shape "SELECT ... FROM table [WHERE ...] [ORDER BY ...]",
// whose rows are rows of that one table and can be written back; empty for any other query.
QString SingleTableOf(const QString& sql);

// The SQLite text with one more column first in its select list.
QString WithLeadingColumn(const QString& translated, const QString& column);

// A FindFirst criterion: one column compared with a number or a text.
struct Criterion {
    QString column;
    bool isText = false;
    QString text;
    double number = 0;
};

// Reads "column = number" or "column = 'text'" (also "text", and [column]); a quote inside the
// text is written twice. Throws RuntimeError 3077 for any other shape.
Criterion ParseCriterion(const QString& criteria);

}  // namespace skelda::dao
