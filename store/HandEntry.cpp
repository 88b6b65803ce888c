// Hand entry of one METAF text. The procedure runs in the skip-and-continue mode from the opening
// of the database on: every statement below is one step, a failed step is dropped, and the last
// failure of any of them decides the result at the end. Nothing clears a failure on the way, so
// a failed search counts as much as a refused Update.
#include "HandEntry.h"

#include "Bulletin.h"
#include "Dao.h"
#include "Log.h"
#include "Observation.h"
#include "ResumeNext.h"

namespace skelda {

QString EnregistrerMetaf(const QString& Texte, const QString& databasePath, const Clock& clock) {
    // Decode the text. The decoder never fails; an empty text gives the built-in sample.
    const Bulletin releve = DecoderMetaf(Texte, clock);

    // From here on, a failed step is skipped.
    ResumeNext step;
    Database base;
    Recordset jeu;  // one recordset variable, used for Aéroports and then for Zefir
    QString lieu;
    QString resultat;

    // Open the airports.
    step([&] { base = OpenDatabase(databasePath); });
    step([&] { jeu = base.OpenRecordset(QStringLiteral("Aéroports"), dbOpenDynaset); });

    // Name the place from the airport of the report's station code. The test of the search is a
    // step of its own. When it fails, the mode goes on with the statement behind it, the first of
    // its body: a failed test counts as met.
    step([&] { jeu.FindFirst(QStringLiteral("IDA = '") + releve.Ida + QStringLiteral("'")); });
    bool trouve = true;
    step([&] { trouve = !jeu.NoMatch(); });
    if (trouve)
        step([&] {
            lieu = jeu.Fields(QStringLiteral("ville")).Concat() + QStringLiteral(" - ") +
                   jeu.Fields(QStringLiteral("aéroport")).Concat();
        });

    // Done with the airports.
    step([&] { jeu.Close(); });

    if (lieu.isEmpty()) {
        // No airport of that code: nothing is written and nothing is logged.
        resultat = QStringLiteral("Erreur : Pas d'aéroport correspondant");
    } else {
        // Write the row, AddNew to Update, each statement a step. The place stands in lieu, and no
        // airport number is written: a typed observation isn't tied to an
        // airport, so that the chart and the monthly figures, which select by number, leave it out.
        step([&] { jeu = base.OpenRecordset(QStringLiteral("Zefir"), dbOpenDynaset); });
        AjouterReleve(
            jeu, step, QStringLiteral("lieu"), [&] { return Variant(lieu); }, releve, Texte);

        // Judge by the last failure of any step above, whichever statement raised it.
        if (step.Number() != 0) {
            resultat = QStringLiteral("Error : ") + step.Description();
            EcrireLog(resultat, clock);
        }
        step([&] { jeu.Close(); });
    }

    // Close the database.
    jeu = Recordset();
    step([&] { base.Close(); });
    base = Database();
    return resultat;
}

}  // namespace skelda
