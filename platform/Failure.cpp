#include "Failure.h"

#include "ResumeNext.h"

namespace skelda {

QString ErrorDescription(int number) {
    switch (number) {
        case NoError:
            return {};
        case InvalidProcedureCall:
            return QStringLiteral("Invalid procedure call or argument");
        case Overflow:
            return QStringLiteral("Overflow");
        case SubscriptOutOfRange:
            return QStringLiteral("Subscript out of range");
        case TypeMismatch:
            return QStringLiteral("Type mismatch");
        case FileNotFound:
            return QStringLiteral("File not found");
        case PermissionDenied:
            return QStringLiteral("Permission denied");
        case PathNotFound:
            return QStringLiteral("Path not found");
        case ObjectNotSet:
            return QStringLiteral("Object variable or With block variable not set");
        case InvalidUseOfNull:
            return QStringLiteral("Invalid use of Null");
        default:
            return QStringLiteral("Application-defined or object-defined error");
    }
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
