#include "MessageBoxes.h"

namespace skelda {

QString RuntimeErrorText(int number, const QString& description) {
    return QStringLiteral("Run-time error '%1':\n\n%2").arg(number).arg(description);
}

}  // namespace skelda
