// Table Aéroports seen from the rest of Skelda: a station code to an airport number, and the
// active airports into a list control together with TableIDA.
#include "Airports.h"

#include "Convert.h"
#include "Dao.h"
#include "Failure.h"

namespace skelda {

namespace {

// The source texts are kept exactly as the program has always sent them, two blanks included.
const QString ToutesLesLignes = QStringLiteral("select * from aéroports  ");
const QString LignesActives = QStringLiteral("select * from aéroports  where (activé = true) order by ville");

// A boolean column read as the test "column = True": a Null is no error and counts as false.
bool EstVrai(const Variant& valeur) { return !valeur.IsNull() && valeur.ToBool(); }

}  // namespace

int32_t TrouverAeroport(const QString& Code, const QString& databasePath) {
    Database base = OpenDatabase(databasePath);
    Recordset aeroports = base.OpenRecordset(ToutesLesLignes, dbOpenSnapshot);
    // The code is not quoted or escaped: an apostrophe in it breaks the criteria, on purpose.
    aeroports.FindFirst(QStringLiteral("IDA = '") + Code + QStringLiteral("'"));
    int32_t idx = 0;
    if (!aeroports.NoMatch()) idx = aeroports.Fields(QStringLiteral("idx")).ToInt32();
    aeroports.Close();
    base.Close();
    return idx;
}

void ChargerAeroports(ListeControle& Liste, TableIDAType& TableIDA, const QString& databasePath) {
    // Start from an empty list with no preferred line yet.
    Liste.Clear();
    Liste.SetTag(QStringLiteral("0"));

    // The active airports, by city.
    Database base = OpenDatabase(databasePath);
    Recordset aeroports = base.OpenRecordset(LignesActives, dbOpenSnapshot);
    int ligne = 0;

    // One line per airport. The steps run in this order on purpose: a 102nd airport is added
    // to the list with its ItemData before TableIDA refuses it, and the failure then stops the
    // filling with the database still open, as an unhandled failure always did.
    while (!aeroports.Eof()) {
        const Variant codeforecast = aeroports.Fields(QStringLiteral("codeforecast"));
        // The mark keeps the names in one column whether or not the airport has a forecast.
        const QString marque = codeforecast.Concat().isEmpty() ? QStringLiteral("   ") : QStringLiteral(" * ");
        Liste.AddItem(marque + aeroports.Fields(QStringLiteral("ville")).Concat() + QStringLiteral(" - ") +
                      aeroports.Fields(QStringLiteral("aéroport")).Concat());
        Liste.SetItemData(ligne, aeroports.Fields(QStringLiteral("idx")).ToInt32());
        if (ligne < 0 || ligne >= int(TableIDA.size())) throw RuntimeError(SubscriptOutOfRange);
        TableIDA[std::size_t(ligne)] = aeroports.Fields(QStringLiteral("IDA"));
        if (EstVrai(aeroports.Fields(QStringLiteral("préféré")))) Liste.SetTag(QString::number(ligne));
        ++ligne;
        aeroports.MoveNext();
    }

    // Close the recordset and the database.
    aeroports.Close();
    base.Close();

    // Select the preferred airport, or the first line. On an empty list this asks for line 0
    // all the same, with no special treatment, and the list refuses it.
    Liste.SetListIndex(CInt(Liste.Tag()));
}

}  // namespace skelda
