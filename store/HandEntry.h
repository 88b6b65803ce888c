// Storing a METAF text typed by hand: the work behind the "Lire" button of the hand-entry form.
#pragma once

#include "Clock.h"

#include <QString>

namespace skelda {

// Decodes Texte, finds its station in table Aéroports and adds one row to table Zefir with the
// place ("city - airport name", in column lieu, with no airport number), the decoded fields and
// Texte itself in METAF. An empty Texte stores the decoder's built-in sample.
//
// Gives an empty text when the row was stored. When the station isn't known, gives
// "Erreur : Pas d'aéroport correspondant" and writes nothing. When any database step failed (a
// repeated observation, a missing file...), gives "Error : " and the last failure's description,
// and writes the same words to the log. Never throws: each step that fails is skipped and the
// next one runs. databasePath is the database file itself; the clock gives the month and year of
// the stored date and the log's stamp.
QString EnregistrerMetaf(const QString& Texte, const QString& databasePath, const Clock& clock);

}  // namespace skelda
