#include "DaoColumns.h"

#include <sqlite3.h>

#include <QByteArray>
#include <QDate>
#include <cmath>
#include <cstdint>
#include <limits>

#include "Convert.h"
#include "Dao.h"

namespace skelda::dao {

namespace {

const QDate kEpoch(1899, 12, 30);

[[noreturn]] void ConversionFails() {
    throw RuntimeError(DaoConversionError, QStringLiteral("Data type conversion error."));
}

bool Has(const QByteArray& type, const char* part) { return type.contains(part); }

// The number an assigned value stands for; a text must hold a number.
double NumberOf(const Variant& value) {
    if (value.kind() == Variant::Kind::String) {
        const QString text = value.ToText();
        if (!IsNumeric(text)) ConversionFails();
        return CDbl(text);
    }
    const Fallible<double> number = value.DoubleOf();
    if (!number.Ok()) ConversionFails();
    return number.Value();
}

// A number for a whole-number column: rounded to the nearest, halves to even, and range-checked.
double WholeNumberOf(const Variant& value, double lowest, double highest) {
    const double rounded = RoundHalfEven(NumberOf(value));
    if (rounded < lowest || rounded > highest)
        throw RuntimeError(DaoNumericOverflow, QStringLiteral("Numeric field overflow."));
    return rounded;
}

bool BooleanOf(const Variant& value) {
    if (value.kind() == Variant::Kind::String) {
        const QString text = value.ToText().trimmed();
        for (const char* yes : {"True", "Yes", "On"})
            if (text.compare(QLatin1String(yes), Qt::CaseInsensitive) == 0) return true;
        for (const char* no : {"False", "No", "Off"})
            if (text.compare(QLatin1String(no), Qt::CaseInsensitive) == 0) return false;
    }
    return NumberOf(value) != 0;
}

double DateSerialOf(const Variant& value) {
    if (value.kind() == Variant::Kind::String) {
        // The engine reads a date text with the program's regional settings: day first.
        try {
            return value.DateSerial();
        } catch (const RuntimeError&) {
            ConversionFails();
        }
    }
    return NumberOf(value);
}

// Digits of a text at a place, as a number; -1 when they aren't all digits.
int DigitsAt(QStringView text, qsizetype at, qsizetype count) {
    int number = 0;
    for (qsizetype i = at; i < at + count; ++i) {
        const char16_t c = text[i].unicode();
        if (c < u'0' || c > u'9') return -1;
        number = number * 10 + (c - u'0');
    }
    return number;
}

bool ParseIsoDay(QStringView text, QDate& day) {
    if (text.size() != 10 || text[4] != u'-' || text[7] != u'-') return false;
    day = QDate(DigitsAt(text, 0, 4), DigitsAt(text, 5, 2), DigitsAt(text, 8, 2));
    return day.isValid();
}

// Seconds since midnight of "HH:MM" or "HH:MM:SS", or -1.
int ParseIsoTime(QStringView text) {
    if ((text.size() != 5 && text.size() != 8) || text[2] != u':') return -1;
    const int hour = DigitsAt(text, 0, 2);
    const int minute = DigitsAt(text, 3, 2);
    int second = 0;
    if (text.size() == 8) {
        if (text[5] != u':') return -1;
        second = DigitsAt(text, 6, 2);
    }
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return -1;
    return hour * 3600 + minute * 60 + second;
}

QString TextOf(sqlite3_stmt* statement, int index) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, index));
}

// A value by its storage class alone, for a column whose declared type says nothing.
Variant StoredValue(sqlite3_stmt* statement, int index) {
    switch (sqlite3_column_type(statement, index)) {
        case SQLITE_NULL:
            return Variant::Null();
        case SQLITE_INTEGER: {
            const sqlite3_int64 n = sqlite3_column_int64(statement, index);
            if (n >= std::numeric_limits<int32_t>::min() && n <= std::numeric_limits<int32_t>::max())
                return Variant(int32_t(n));
            return Variant(double(n));
        }
        case SQLITE_FLOAT:
            return Variant(sqlite3_column_double(statement, index));
        default:
            return Variant(TextOf(statement, index));
    }
}

bool IsNumber(int storage) { return storage == SQLITE_INTEGER || storage == SQLITE_FLOAT; }

// ParseStoredDate of a stored text, read without making a QString of it: the list of days reads a
// date for every day of the store. A date or time text is ASCII and at most 19 characters; any
// other byte, widened as it stands, fails the parse as the decoded text would.
bool ParseStoredDateAt(sqlite3_stmt* statement, int index, double& serial) {
    const unsigned char* bytes = sqlite3_column_text(statement, index);
    const int size = sqlite3_column_bytes(statement, index);
    constexpr int kLongest = 19;  // "YYYY-MM-DD HH:MM:SS"
    if (!bytes || size > kLongest) return false;
    char16_t wide[kLongest];
    for (int i = 0; i < size; ++i) wide[i] = char16_t(bytes[i]);
    return ParseStoredDate(QStringView(wide, size), serial);
}

}  // namespace

ColumnKind KindOfDeclaredType(const char* declared) {
    if (!declared || !*declared) return ColumnKind::Untyped;
    const QByteArray type = QByteArray(declared).toUpper();
    if (Has(type, "BOOL") || type == "BIT" || Has(type, "YESNO")) return ColumnKind::Boolean;
    if (Has(type, "DATETIME") || Has(type, "TIMESTAMP")) return ColumnKind::DateTime;
    if (Has(type, "DATE")) return ColumnKind::Date;
    if (Has(type, "TIME")) return ColumnKind::Time;
    if (Has(type, "CHAR") || Has(type, "TEXT") || Has(type, "CLOB") || Has(type, "MEMO")) return ColumnKind::Text;
    if (Has(type, "SMALLINT") || Has(type, "TINYINT") || Has(type, "SHORT")) return ColumnKind::Int16;
    if (Has(type, "INT") || Has(type, "LONG")) return ColumnKind::Long;
    if (Has(type, "REAL") || Has(type, "FLOA") || Has(type, "DOUB") || Has(type, "NUMERIC") || Has(type, "DECIMAL") ||
        Has(type, "SINGLE") || Has(type, "CURRENCY"))
        return ColumnKind::Double;
    return ColumnKind::Untyped;
}

Variant CoerceToColumn(const Variant& value, ColumnKind kind) {
    if (value.IsNull() || value.IsEmpty()) return Variant::Null();
    switch (kind) {
        case ColumnKind::Untyped:
            return value;
        case ColumnKind::Boolean:
            return Variant(BooleanOf(value));
        case ColumnKind::Int16:
            return Variant(int16_t(
                WholeNumberOf(value, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max())));
        case ColumnKind::Long:
            return Variant(int32_t(
                WholeNumberOf(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max())));
        case ColumnKind::Double:
            return Variant(NumberOf(value));
        case ColumnKind::Text:
            return Variant(value.ToText());
        case ColumnKind::Date:
        case ColumnKind::Time:
        case ColumnKind::DateTime:
            return Variant::FromSerial(DateSerialOf(value));
    }
    return value;
}

void BindValue(sqlite3_stmt* statement, int index, const Variant& value, ColumnKind kind) {
    switch (value.kind()) {
        case Variant::Kind::Empty:
        case Variant::Kind::Null:
            sqlite3_bind_null(statement, index);
            return;
        case Variant::Kind::Boolean:
            sqlite3_bind_int(statement, index, value.ToBool() ? 1 : 0);
            return;
        case Variant::Kind::Integer:
        case Variant::Kind::Long:
            sqlite3_bind_int64(statement, index, value.ToInt32());
            return;
        case Variant::Kind::Double:
            sqlite3_bind_double(statement, index, value.ToDouble());
            return;
        case Variant::Kind::Date: {
            const QByteArray text = StoredDateText(value.DateSerial(), kind).toUtf8();
            sqlite3_bind_text(statement, index, text.constData(), int(text.size()), SQLITE_TRANSIENT);
            return;
        }
        case Variant::Kind::String: {
            const QByteArray text = value.ToText().toUtf8();
            sqlite3_bind_text(statement, index, text.constData(), int(text.size()), SQLITE_TRANSIENT);
            return;
        }
    }
}

Variant ReadValue(sqlite3_stmt* statement, int index, ColumnKind kind) {
    const int storage = sqlite3_column_type(statement, index);
    if (storage == SQLITE_NULL) return Variant::Null();
    switch (kind) {
        case ColumnKind::Boolean:
            if (IsNumber(storage)) return Variant(sqlite3_column_double(statement, index) != 0);
            break;
        case ColumnKind::Int16:
            if (storage == SQLITE_INTEGER) {
                const sqlite3_int64 n = sqlite3_column_int64(statement, index);
                if (n >= std::numeric_limits<int16_t>::min() && n <= std::numeric_limits<int16_t>::max())
                    return Variant(int16_t(n));
            }
            break;
        case ColumnKind::Double:
            if (IsNumber(storage)) return Variant(sqlite3_column_double(statement, index));
            break;
        case ColumnKind::Text:
            return Variant(TextOf(statement, index));
        case ColumnKind::Date:
        case ColumnKind::Time:
        case ColumnKind::DateTime: {
            if (IsNumber(storage)) return Variant::FromSerial(sqlite3_column_double(statement, index));
            double serial = 0;
            if (ParseStoredDateAt(statement, index, serial)) return Variant::FromSerial(serial);
            break;
        }
        case ColumnKind::Long:
        case ColumnKind::Untyped:
            break;
    }
    // A value that doesn't fit its column's type comes back as what it is.
    return StoredValue(statement, index);
}

QString StoredDateText(double serial, ColumnKind kind) {
    // The engine keeps dates to the second.
    double days = std::floor(serial);
    qint64 seconds = std::llround((serial - days) * 86400.0);
    if (seconds >= 86400) {
        days += 1;
        seconds -= 86400;
    }
    const QDate day = kEpoch.addDays(qint64(days));
    QString dayText = QString::asprintf("%04d-%02d-%02d", day.year(), day.month(), day.day());
    QString timeText =
        QString::asprintf("%02d:%02d:%02d", int(seconds / 3600), int(seconds / 60 % 60), int(seconds % 60));
    if (kind == ColumnKind::Date && seconds == 0) return dayText;
    if (kind == ColumnKind::Time && days == 0) return timeText;
    return dayText + u' ' + timeText;
}

bool ParseStoredDate(QStringView text, double& serial) {
    QDate day;
    if (text.size() == 10) {
        if (!ParseIsoDay(text, day)) return false;
        serial = double(kEpoch.daysTo(day));
        return true;
    }
    if (text.size() == 5 || text.size() == 8) {
        const int seconds = ParseIsoTime(text);
        if (seconds < 0) return false;
        serial = seconds / 86400.0;
        return true;
    }
    if (text.size() == 16 || text.size() == 19) {
        if (text[10] != u' ' && text[10] != u'T') return false;
        const int seconds = ParseIsoTime(text.sliced(11));
        if (!ParseIsoDay(text.first(10), day) || seconds < 0) return false;
        serial = double(kEpoch.daysTo(day)) + seconds / 86400.0;
        return true;
    }
    return false;
}

}  // namespace skelda::dao
