// What the two airport forms share about table Aéroports: where the file is, and the one query
// both of them open, every airport by city.
#pragma once

#include <QString>

namespace skelda {

class Forms;

// "select * from aéroports  order by ville", two blanks and all: the text the forms have always
// sent, read as a snapshot to show the table and as a dynaset to write it.
extern const QString TousLesAeroports;

// The path of database.mdb in the program's folder.
QString CheminBase(const Forms& forms);

}  // namespace skelda
