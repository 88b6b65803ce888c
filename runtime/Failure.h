// Run-time failures of Skelda: a number and a description, as the run time reports them.
//
// Two shapes carry the same failure. RuntimeError is thrown where a failure must travel up to a
// caller or to the run-time error box. Fallible<T> carries it as a value on the hot paths (the
// decoder fails a conversion on most real reports), so that a failed step costs what a
// successful one does.
#pragma once

#include <QString>

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace skelda {

// The run time's own numbers for the failures that the program meets.
enum ErrorNumber : int {
    NoError = 0,
    InvalidProcedureCall = 5,  // "Invalid procedure call or argument", a Mid from position 0
    Overflow = 6,              // a result beyond the 16-bit (or 32-bit) range
    SubscriptOutOfRange = 9,   // an index outside a fixed array or a list
    TypeMismatch = 13,         // a text that is no number
    ObjectNotSet = 91,         // a recordset used after its Close
    InvalidUseOfNull = 94,     // a Null where a value is needed
    InternalError = 51,        // a failure of the C++ library underneath
    FileNotFound = 53,
    PermissionDenied = 70,
    PathNotFound = 76,
    InvalidPropertyValue = 380,  // a property set to a value it can't take
    ObjectDoesntSupport = 438,   // "Object doesn't support this property or method"
    InvalidPicture = 481,        // a picture file that can't be read
    PrinterError = 482,          // the printer refused the job
    InvalidKey = 35603,          // a key that a keyed list doesn't hold
};

// The words of a failure number: those of the run time, of the database engine, of the socket and
// of the page fetch, from one catalogue, so that every failure reads the same wherever it was
// raised. "Application-defined or object-defined error" for a number it doesn't know.
QString ErrorDescription(int number);

// A failure thrown to the caller: what a statement raises when nothing in it handles the failure.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(int number, QString description = {});
    int Number() const { return number_; }
    const QString& Description() const { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    QString description_;
    std::string what_;
};

// A value, or the number of the failure that kept it from being made. Reading the value of a
// failed one throws the failure.
template <class T>
class Fallible {
public:
    Fallible(T value) : value_(std::move(value)) {}  // NOLINT: a value converts implicitly
    static Fallible Failed(int number) { return Fallible(number, 0); }

    bool Ok() const { return error_ == NoError; }
    int Error() const { return error_; }
    const T& Value() const {
        if (error_ != NoError) throw RuntimeError(error_);
        return value_;
    }
    T ValueOr(T other) const { return Ok() ? value_ : std::move(other); }

    // The next computation on the value, skipped when this one has already failed.
    template <class F>
    auto Then(F&& next) const -> decltype(next(std::declval<const T&>())) {
        using R = decltype(next(std::declval<const T&>()));
        if (error_ != NoError) return R::Failed(error_);
        return next(value_);
    }

private:
    Fallible(int error, int) : value_{}, error_(error) {}
    T value_;
    int error_ = NoError;
};

}  // namespace skelda
