#include "Failure.h"

#include "ResumeNext.h"

namespace skelda {

namespace {

struct Words {
    int number;
    const char16_t* text;
};

// The catalogue, by number. The database engine's words for a failure that names a file, a table
// or a field are made where it is raised; those here carry no name.
constexpr Words Catalogue[] = {
    // The run time's own.
    {InvalidProcedureCall, u"Invalid procedure call or argument"},
    {Overflow, u"Overflow"},
    {SubscriptOutOfRange, u"Subscript out of range"},
    {TypeMismatch, u"Type mismatch"},
    {InternalError, u"Internal error"},
    {FileNotFound, u"File not found"},
    {PermissionDenied, u"Permission denied"},
    {PathNotFound, u"Path not found"},
    {ObjectNotSet, u"Object variable or With block variable not set"},
    {InvalidUseOfNull, u"Invalid use of Null"},
    {InvalidPropertyValue, u"Invalid property value"},
    {ObjectDoesntSupport, u"Object doesn't support this property or method"},
    {InvalidPicture, u"Invalid picture"},
    {PrinterError, u"Printer error"},
    {InvalidKey, u"Invalid key"},
    // The database engine's.
    {3001, u"Invalid argument."},
    {3020, u"Update or CancelUpdate without AddNew or Edit."},
    {3021, u"No current record."},
    {3022,
     u"The changes you requested to the table were not successful because they would create duplicate values in "
     u"the index, primary key, or relationship. Change the data in the field or fields that contain duplicate "
     u"data, remove the index, or redefine the index to permit duplicate entries and try again."},
    {3027, u"Cannot update. Database or object is read-only."},
    {3061, u"Too few parameters. Expected 1."},
    {3164, u"Field cannot be updated."},
    {3219, u"Invalid operation."},
    {3260, u"Couldn't update; currently locked."},
    {3265, u"Item not found in this collection."},
    {3420, u"Object invalid or no longer set."},
    {3464, u"Data type mismatch in criteria expression."},
    // The socket's.
    {10048, u"Address in use"},
    {10049, u"Address not available from the local machine"},
    {10051, u"The network cannot be reached from this host at this time"},
    {10053, u"Connection is aborted due to timeout or other failure"},
    {10060, u"Attempt to connect timed out without establishing a connection"},
    {10061, u"Connection is forcefully rejected"},
    {11001, u"Authoritative answer: Host not found"},
    {40006, u"Wrong protocol or connection state for the requested transaction or request"},
    {40020, u"Invalid operation at current state"},
    // The page fetch's.
    {35751, u"Unable to open URL"},
    {35752, u"URL is malformed"},
    {35753, u"Protocol not supported for this method"},
    {35754, u"Unable to connect to remote host"},
    {35756, u"Request to remote computer failed"},
    {35761, u"Request timed out"},
};

}  // namespace

QString ErrorDescription(int number) {
    if (number == NoError) return {};
    for (const Words& words : Catalogue)
        if (words.number == number) return QString::fromUtf16(words.text);
    return QStringLiteral("Application-defined or object-defined error");
}

RuntimeError::RuntimeError(int number, QString description)
    : number_(number), description_(description.isEmpty() ? ErrorDescription(number) : std::move(description)) {
    what_ = QStringLiteral("Run-time error '%1': %2").arg(number_).arg(description_).toStdString();
}

QString ResumeNext::Description() const {
    if (number_ == NoError) return {};
    return description_.isEmpty() ? ErrorDescription(number_) : description_;
}

}  // namespace skelda
