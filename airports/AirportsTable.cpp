#include "AirportsTable.h"

#include "Forms.h"

namespace skelda {

const QString TousLesAeroports = QStringLiteral("select * from aéroports  order by ville");

QString CheminBase(const Forms& forms) { return forms.services().applicationPath + QStringLiteral("/database.mdb"); }

}  // namespace skelda
