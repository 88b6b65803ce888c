// Column types of the database access layer: how a declared SQLite type reads back as an untyped
// value, how an assigned value is coerced to it, and how it is stored.
//
// Dates and times are stored as ISO texts ('2004-11-02', '10:00:00', '2004-11-02 10:00:00') so
// that they sort and index in time order and stay readable with any SQLite tool; booleans as 1
// and 0. Internal to the access layer.
#pragma once

#include <QString>

#include "Variant.h"

struct sqlite3_stmt;

namespace skelda::dao {

enum class ColumnKind {
    Untyped,  // no declared type (an expression): the value's own storage class decides
    Boolean,
    Int16,  // SMALLINT
    Long,   // INTEGER: the engine's 32-bit long integer
    Double,
    Text,
    Date,      // DATE: a day, with a time only if one was given
    Time,      // TIME: a time of day, with a day only if one was given
    DateTime,  // DATETIME
};

// The kind of a declared column type, as sqlite3_column_decltype gives it (null for none).
ColumnKind KindOfDeclaredType(const char* declared);

// The value assigned to a column of that kind, converted as the engine converts it: Null and
// Empty give Null. Throws RuntimeError 3421 for a value that can't be converted and 3349 for a
// number out of the column's range.
Variant CoerceToColumn(const Variant& value, ColumnKind kind);

// Binds a value (already coerced) as parameter Index of a statement, in the stored form.
void BindValue(sqlite3_stmt* statement, int index, const Variant& value, ColumnKind kind);

// Reads result column Index of the current step as an untyped value.
Variant ReadValue(sqlite3_stmt* statement, int index, ColumnKind kind);

// The stored text of a date-and-time value (days since 30/12/1899) in a column of that kind.
QString StoredDateText(double serial, ColumnKind kind);

// The date-and-time value of a stored ISO text, or false when the text isn't one.
bool ParseStoredDate(QStringView text, double& serial);

}  // namespace skelda::dao
