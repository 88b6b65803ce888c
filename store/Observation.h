// The one writer of an observation: a row of table Zefir, from a decoded Bulletin.
#pragma once

#include "Bulletin.h"
#include "Dao.h"
#include "ResumeNext.h"

#include <QString>
#include <functional>

namespace skelda {

// Adds one row to table Zefir through Jeu, a dynaset on that table: AddNew, the fifteen columns in
// the order that both writers use, then Update. Each of these is one statement of the caller's
// skip-and-continue mode Step: a failing one is skipped, the next one runs, and the failure stays
// in Step for the caller to judge (3022 from Update is a repeated observation).
//
// The first column tells where the observation was made: ColonneLieu is "NumAéroport" (the
// airport's number, for a reply of the observation server) or "lieu" (the place, for a text typed
// by hand). Lieu gives its value and is called inside that column's own statement, so that a
// failure to find it (the airport lookup) is that statement's failure. Metaf is the text that
// went to the decoder.
void AjouterReleve(Recordset& Jeu, ResumeNext& Step, const QString& ColonneLieu, const std::function<Variant()>& Lieu,
                   const Bulletin& Releve, const QString& Metaf);

}  // namespace skelda
