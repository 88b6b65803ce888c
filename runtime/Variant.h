// Untyped values: what a database column, a Tag or an untyped local holds.
//
// A Variant is Empty (never given a value), Null (a database's missing value), or holds a
// boolean, a 16-bit or 32-bit integer, a double, a date-and-time or a text. Conversions follow
// the run time: reading a Null as a text or a number is "Invalid use of Null" (94), a text that
// isn't a number is a "Type mismatch" (13), a number out of range an "Overflow" (6). Joining with
// "&" (Concat) takes a Null as the empty text. Empty reads as 0 and as the empty text.
#pragma once

#include "Failure.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <cstdint>
#include <variant>

namespace skelda {

class Variant {
public:
    enum class Kind { Empty, Null, Boolean, Integer, Long, Double, Date, String };

    Variant() = default;                                       // Empty
    Variant(bool b) : v_(b) {}                                 // NOLINT: values convert implicitly, as in the run time
    Variant(int16_t i) : v_(i) {}                              // NOLINT
    Variant(int32_t l) : v_(l) {}                              // NOLINT
    Variant(double d) : v_(d) {}                               // NOLINT
    Variant(const QString& s) : v_(s) {}                       // NOLINT
    Variant(const char16_t* s) : v_(QString::fromUtf16(s)) {}  // NOLINT
    static Variant Null();
    static Variant FromDate(QDate date);  // a date at midnight
    static Variant FromTime(QTime time);  // a time on day 0 (30/12/1899)
    static Variant FromDateTime(const QDateTime& moment);
    static Variant FromSerial(double serial);  // days since 30/12/1899, time as fraction

    Kind kind() const;
    bool IsEmpty() const { return kind() == Kind::Empty; }
    bool IsNull() const { return kind() == Kind::Null; }
    bool IsNumeric() const;  // a number, a boolean, Empty, or a text that holds a number

    // Conversions that throw RuntimeError as the run time does.
    QString ToText() const;        // CStr
    double ToDouble() const;       // CDbl
    int16_t ToInt16() const;       // CInt
    int32_t ToInt32() const;       // CLng
    bool ToBool() const;           // CBool
    QDateTime ToDateTime() const;  // CDate
    double DateSerial() const;     // the date-and-time as days since 30/12/1899

    // The same, as a Fallible: the cheap way for a skipped statement.
    Fallible<int16_t> Int16Of() const;
    Fallible<double> DoubleOf() const;

    // The text of the value for joining with "&": Null and Empty give "".
    QString Concat() const;

private:
    struct NullTag {
        bool operator==(const NullTag&) const = default;
    };
    struct DateTag {
        double serial;
        bool operator==(const DateTag&) const = default;
    };
    std::variant<std::monostate, NullTag, bool, int16_t, int32_t, double, DateTag, QString> v_;

public:
    bool operator==(const Variant& other) const = default;  // same kind and same value
};

// Days since 30/12/1899 and back.
double ToSerial(const QDateTime& moment);
QDateTime FromSerialDate(double serial);

}  // namespace skelda
