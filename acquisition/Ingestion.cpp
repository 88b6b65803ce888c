// The reception of a reply from the observation server: the METAF text is cut out, decoded, shown
// on the main window, stored as a row of table Zefir, logged, and passed to the tray tip.
//
// The whole procedure runs in the skip-and-continue mode: every statement goes through the one
// ResumeNext `step`, a failing statement is skipped and the next one runs, and the failure's
// number stays until a later failure replaces it. The check of that number after the write
// therefore judges the whole reception, not only the write: a variable wind, whose empty direction
// can't be read as a number when it is turned into an angle, stores its row but logs nothing and
// doesn't redraw the chart. That is intended.
#include "Airports.h"
#include "Bulletin.h"
#include "Convert.h"
#include "Dao.h"
#include "Forms.h"
#include "Log.h"
#include "Observation.h"
#include "PollCycle.h"
#include "Regional.h"
#include "ResumeNext.h"
#include "Text.h"
#include "TrayForm.h"

namespace skelda {

void PollCycle::W_DataArrival(qint64 /*bytesTotal*/) { IngererReponse(W.GetData()); }

void PollCycle::IngererReponse(const QString& Recu) {
    const Clock& clock = forms_.services().clock;
    ListBox& List1 = f_.ListeAeroports();
    ResumeNext step;

    // Keep what arrived. It replaces what was there: packets aren't put together, a reply is
    // expected in one packet.
    ReponseBrute = Recu;

    // Log the arrival, for every packet whatever it holds.
    step([&] { EcrireLog(QStringLiteral("Weather Received from ") + List1.List(List1.ListIndex()), clock); });

    // Find the end of the head. None yet: nothing more. The socket stays open, TimerWinsock runs
    // on and List1 stays disabled, until a later packet or the time-out.
    qsizetype Debut = InStr(ReponseBrute, u"\r\n\r\n");
    if (Debut == 0) return;

    // Cut out the METAF text. The body starts behind CR LF CR LF. Its first 17 characters, the
    // station file's stamp "2004/11/02 10:00" and its line end, are skipped by count, not by
    // looking for the line end. The status line isn't looked at.
    Debut += 4;
    const QString metaf = Mid(ReponseBrute, Debut + 17).toString();

    // Decode it. The decoder never fails; an empty text gives its built-in sample.
    Bulletin releve;
    releve = DecoderMetaf(metaf, clock);
    BulletinCourant = releve;
    Bulletin& b = BulletinCourant;

    // Show the observation on the main window, starting with its date and time.
    step([&] { f_.SetReleve(ChampReleve::Date, b.DateReleve + QStringLiteral(" - ") + b.HeureReleve); });
    // The speed in knots and in km/h. The factor is 1.6 by intent, not 1.852, and the figure isn't
    // rounded.
    step([&] {
        f_.SetReleve(ChampReleve::Vitesse, QStringLiteral("Speed : ") + QString::number(b.ForceNoeuds) +
                                               QStringLiteral(" Kt (") + NumberText(b.ForceNoeuds * 1.6) +
                                               QStringLiteral(" km/h)."));
    });
    // The direction as an angle. An empty or non-numeric direction fails here: AngleZefir keeps
    // its old value and the failure stays for the check after the write. Nothing reads AngleZefir.
    step([&] { AngleZefir = float((CDbl(b.OrientationDegre) + 90) * 2 * 3.141592 / 360); });
    // The direction's name and the Beaufort force, with the gust's behind it. NomDirection turns an
    // empty direction into "0" inside BulletinCourant, so from here on a variable wind has
    // direction 0: on Label3, on the dial and in the row.
    step([&] { f_.SetReleve(ChampReleve::Secteur, NomDirection(b.OrientationDegre, false).ToText()); });
    step([&] { f_.SetReleve(ChampReleve::Force, ForceBeaufort(b.ForceNoeuds)); });
    if (b.ForceRafale > 0)
        step([&] {
            f_.SetReleve(ChampReleve::Force,
                         f_.Releve(ChampReleve::Force) + QStringLiteral(" / ") + ForceBeaufort(b.ForceRafale));
        });
    // The direction in degrees.
    step([&] {
        f_.SetReleve(ChampReleve::Direction, QStringLiteral("Direction : ") + b.OrientationDegre + QStringLiteral("°"));
    });
    // The wind dial.
    f_.DessinerCadran(step, b.OrientationDegre);
    // The window's caption names the airport; the next tick of T puts the countdown back.
    step([&] { f_.SetCaption(QStringLiteral("Wind : ") + List1.Text()); });
    // Enable the list again: the only place that gives it back to the user.
    step([&] { List1.setEnabled(true); });
    // The frame's title names the airport.
    step([&] { f_.SetTitreReleve(List1.Text()); });

    // Write the row: AddNew, fifteen columns and Update, each a statement of this mode. The
    // airport's number comes from the station code inside the message, not from the entry that
    // was polled; an unknown code gives 0.
    const QString base = f_.DatabasePath();
    Database& BaseReleves = f_.Base();
    Recordset& JeuReleves = f_.Jeu();
    step([&] { BaseReleves = OpenDatabase(base); });
    step([&] { JeuReleves = BaseReleves.OpenRecordset(QStringLiteral("Zefir"), dbOpenDynaset); });
    Recordset& r = JeuReleves;
    // Trailing text of the packet behind the report stays in the METAF column as received.
    AjouterReleve(
        r, step, QStringLiteral("NumAéroport"), [&] { return Variant(int32_t(TrouverAeroport(b.Ida, base))); }, b,
        Mid(ReponseBrute, Debut + 17).toString());

    // Close the recordset and the database.
    step([&] { r.Close(); });
    JeuReleves = Recordset();
    step([&] { BaseReleves.Close(); });
    BaseReleves = Database();

    // Judge the reception by the latest failure of any statement above. The refusal 3022 is the
    // database's answer to a row that repeats an observation: the system's only duplicate check.
    // The chart is redrawn only after a new row (and on changes of selection).
    if (step.Number() == DaoDuplicateKey) {
        step([&] { EcrireLog(QStringLiteral("ERROR UPDATE : Possibility of duplicate ") + b.Ida, clock); });
    } else if (step.Number() == NoError) {
        step([&] { EcrireLog(QStringLiteral("New Metaf Recorded ") + List1.List(List1.ListIndex()), clock); });
        step([&] { f_.TracerCourbe(); });
    }

    // Hand the tray tip its text. It waits in the caption of the tray form, duplicates included;
    // the tray's timer passes it on within 10 seconds.
    step([&] {
        const QString titre = List1.Text() + QString::fromUtf16(CrLf) + f_.Releve(ChampReleve::Secteur) + u' ' +
                              f_.Releve(ChampReleve::Force);
        forms_.Get<TrayForm>().SetCaption(Trim(titre).toString());
    });

    // End the exchange: close the socket and stop its time-out. It ends here, from this side,
    // after the first packet with a complete head.
    step([&] { W.Close(); });
    step([&] { TimerWinsock.SetEnabled(false); });
}

}  // namespace skelda
