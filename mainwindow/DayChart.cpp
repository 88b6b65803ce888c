// The day chart: one day of one airport, rebuilt from the database on every call. For each
// observation a wind bar, a wind arrow, a pressure dot and a temperature dot; for each hour a
// weather picture; under it all, the bulletin of the day's last observation.
#include "Arrow.h"
#include "Bulletin.h"
#include "Convert.h"
#include "Form1.h"
#include "Forms.h"
#include "Regional.h"
#include "Text.h"

namespace skelda {

namespace {

constexpr double RayonPoint = 48;  // the dots of both curves
constexpr Color PressionTrait = RGB(128, 128, 0);
constexpr Color PressionFond = RGB(255, 255, 192);
constexpr Color TemperatureTrait = RGB(192, 0, 192);
constexpr Color TemperatureFond = RGB(255, 192, 255);

// One of the day's two polylines, as far as it has come.
struct Courbe {
    Variant X;      // x of the last dot; Empty until the day's first point
    int16_t Y = 0;  // y of the last dot, rounded as it was stored
    Color trait;    // line and dot edge
    Color fond;     // inside of the dots
};

// Adds the point (X, Y) to a curve: the first point of the day is a dot alone; any other is a
// segment from the last dot, then that dot drawn again over the segment's end, then the new dot.
// The segment ends at the unrounded Y while the dot stands at the rounded one.
void AjouterPoint(Surface& surface, Courbe& courbe, double X, double Y) {
    // Empty compares equal to 0, and no real point has x 0: this is "no point yet".
    if (courbe.X.ToDouble() == 0) {
        // The width 2 is set and at once taken back: nothing is drawn with it. Kept as it is.
        surface.SetDrawWidth(2);
        courbe.X = X;
        courbe.Y = CInt(Y);
        surface.SetDrawWidth(1);
        surface.SetFillColor(courbe.fond);
        surface.Circle(courbe.X.ToDouble(), courbe.Y, RayonPoint, courbe.trait);
        return;
    }
    surface.SetDrawWidth(2);
    surface.Line(courbe.X.ToDouble(), courbe.Y, X, Y, courbe.trait);
    surface.SetDrawWidth(1);
    surface.SetFillColor(courbe.fond);
    surface.Circle(courbe.X.ToDouble(), courbe.Y, RayonPoint, courbe.trait);
    courbe.X = X;
    courbe.Y = CInt(Y);
    surface.Circle(courbe.X.ToDouble(), courbe.Y, RayonPoint, courbe.trait);
}

// The wind bar of a slot, from the slot label's geometry as it reads back, filled with the
// current FillColor and FillStyle and edged in Bord.
void TracerBarre(Surface& surface, const Label& slot, Color Bord) {
    const double left = LeftOf(&slot), top = TopOf(&slot);
    surface.Box(left, top, left + WidthOf(&slot) - 15, top + HeightOf(&slot) - 15, Bord);
}

// The wind class of a speed: 3 knots and less are 0, 4 to 8 knots 1, 9 to 13 knots 2, and so
// on, rounded halves to even; a variable wind (negative speed) is 0.
int16_t ClasseDuVent(int16_t forceNoeuds) {
    const int16_t classe = CInt((forceNoeuds - 1) / 5.0);
    return classe < 0 ? int16_t(0) : classe;
}

void MontrerSymbole(Image& ico, const ImageList& symboles, const QString& key) {
    ico.SetPicture(symboles.ListImages(key));
    ico.PictureKey = key;
}

bool Contient(const QString& texte, const char* mot) {
    return InStr(texte, QString::fromLatin1(mot), Qt::CaseInsensitive) > 0;
}

// Whether a column holds a number above 0; a Null is not (it compares as unknown).
bool AuDessusDeZero(const Variant& valeur) { return !valeur.IsNull() && valeur.ToDouble() > 0; }

QString NomLong(const Variant& degres) {
    QString texte = degres.ToText();
    return NomDirection(texte, false).Concat();
}

// The day as the query wants it between its # marks, month first ("mm/dd/yy"), whatever the
// regional settings; a text that isn't a date goes as it stands.
QString JourDeRequete(const QString& texte) {
    const auto jour = ParseDate(texte);
    return jour ? jour->toString(QStringLiteral("MM/dd/yy")) : texte;
}

// The bulletin of the current row, appended to the label piece by piece as the form always did.
void ComposerBulletin(Label& bulletin, const Recordset& releve) {
    auto ajouter = [&bulletin](const QString& texte) { bulletin.SetCaption(bulletin.Caption() + texte); };
    auto champ = [&releve](const char* nom) { return releve.Fields(QString::fromUtf8(nom)); };
    const QString crlf = QString::fromUtf16(CrLf);

    // The date and time of the observation.
    ajouter(champ("daterelevé").Concat() + u' ' + champ("heurerelevé").Concat() + crlf);
    const Variant variable = champ("zefirvariable");
    if (!variable.IsNull() && variable.ToBool()) {
        // A variable wind. Only its negative speed gives its upper bound here.
        ajouter(QStringLiteral("Wind Variable"));
        const int16_t force = champ("forcenoeuds").ToInt16();
        if (force < 0) ajouter(QStringLiteral(" less then ") + QString::number(force * -1) + QStringLiteral(" Knts"));
    } else {
        // The wind's direction and force, the gust and the shift. The gust's words repeat the
        // force of the mean wind, not the gust's own: kept so.
        const int16_t force = champ("forcenoeuds").ToInt16();
        ajouter(QStringLiteral("Wind from ") + NomLong(champ("orientationdegré")) + u' ' + ForceBeaufort(force));
        if (AuDessusDeZero(champ("forcerafale"))) ajouter(QStringLiteral(" avec rafale à ") + ForceBeaufort(force));
        if (AuDessusDeZero(champ("secteur1"))) {
            ajouter(QStringLiteral(" Shifting from ") + NomLong(champ("secteur1")) + QStringLiteral(" to  ") +
                    NomLong(champ("secteur2")));
        }
    }
    // Visibility, weather, temperature and pressure.
    ajouter(crlf + champ("visibilité").Concat() + crlf + Trim(champ("temps").Concat()).toString() + crlf);
    ajouter(QStringLiteral("Temperature undercover ") + champ("température").Concat() + QStringLiteral("° C.") + crlf);
    ajouter(QStringLiteral("Pressure ") + champ("pression").Concat() + QStringLiteral(" hpa"));
    // Fold doubled line ends, in one pass: an empty phrase leaves no empty line, but three line
    // ends in a row keep two.
    bulletin.SetCaption(Replace(bulletin.Caption(), QString(crlf + crlf), crlf));
}

}  // namespace

void Form1::TracerCourbe() {
    // Nothing until the window is loaded: the click events that filling the lists raises draw
    // nothing.
    if (!ChargementFini) return;
    Surface& surface = *drawingSurface_;
    // Clear the chart and its slots.
    surface.Cls();
    for (int i = 0; i < int(FKNT.size()); ++i) {
        FKNT[i]->setVisible(false);
        FKNT[i]->Tag.clear();
        if (i < int(ICO.size())) {
            ICO[i]->SetPicture(QPixmap());
            ICO[i]->PictureKey.clear();
        }
    }
    // No airport: an empty chart, and the bulletin and the picture stay as they were.
    if (List1->Text().isEmpty()) return;
    // The day's rows of the selected airport.
    BaseReleves = OpenDatabase(DatabasePath());
    const int32_t numero = List1->ItemData(List1->ListIndex());
    JeuReleves = BaseReleves.OpenRecordset(
        QStringLiteral("select Zefir.*, Format([HeureRelevé],'Short Time') AS HR from zefir where numaéroport = ") +
            QString::number(numero) + QStringLiteral(" and daterelevé = #") + JourDeRequete(ChoixDate->Text()) +
            QStringLiteral("# order by Format([HeureRelevé],'Short Time')"),
        dbOpenSnapshot);

    const double Bas = MaxFKNT.Y1;
    const double Haut = MaxFKNT.Y2;
    const PaletteForceTable& PaletteForce = forms_.module1().PaletteForce;
    Courbe pression{{}, 0, PressionTrait, PressionFond};
    Courbe temperature{{}, 0, TemperatureTrait, TemperatureFond};
    auto champ = [this](const char* nom) { return JeuReleves.Fields(QString::fromUtf8(nom)); };

    // Row by row, in the order of the time as text.
    for (; !JeuReleves.Eof(); JeuReleves.MoveNext()) {
        // The half-hour slot. The rounding of the minutes goes halves to even on purpose: 0 to 15
        // add nothing, 16 to 44 one slot, 45 to 59 two. From 23:45 there is no slot.
        const QTime heure = champ("heurerelevé").ToDateTime().time();
        const int16_t Colonne = Add16(CInt(2.0 * heure.hour()), CInt(heure.minute() / 30.0)).Value();
        if (Colonne > 47 || Colonne < 0) continue;
        Label* barre = FKNT[Colonne];

        // The bar's height, 50 knots for the chart's full height; a stronger wind runs past the
        // top. Its top is set from the height as the label kept it (whole pixels).
        const int16_t forceNoeuds = champ("forcenoeuds").ToInt16();
        SetHeight(barre, forceNoeuds < 0 ? 0.0 : (Bas - Haut) / 50 * forceNoeuds);
        SetTop(barre, Bas - HeightOf(barre) + 15);

        // The slot's report and tip. A later row of the same slot replaces the text; its drawing
        // stays under.
        barre->Tag = champ("METAF").ToText();
        barre->setToolTip(champ("forcenoeuds").Concat() + QStringLiteral(" Noeuds - ") + ForceBeaufort(forceNoeuds) +
                          QStringLiteral(" de ") + NomLong(champ("orientationdegré")) + QStringLiteral(" - Pression ") +
                          champ("pression").Concat() + QStringLiteral(" hpa."));

        // The bar in its class's colour, edged in the next darker one. The table ends at class
        // 10, so 49 knots stop the chart at the edge and 54 at the class itself.
        surface.SetDrawWidth(1);
        const int16_t Classe = ClasseDuVent(forceNoeuds);
        surface.SetFillColor(PaletteForce(Classe));
        TracerBarre(surface, *barre, PaletteForce(Add16(Classe, 1).Value()));

        // The arrow under the slot: Top + Height is Bas + 15 for any wind, so all arrows of the
        // day stand in one row. Length 0 asks for the default.
        const double X = LeftOf(barre) + WidthOf(barre) / 2;
        int16_t longueur = 0;
        TracerFleche(X, TopOf(barre) + HeightOf(barre) + 105, champ("orientationdegré").ToInt16(), surface, longueur);

        // Pressure, from 960 hPa at the foot to 1040 at the top.
        const Variant hpa = champ("pression");
        if (!hpa.IsNull()) AjouterPoint(surface, pression, X, Bas - ((hpa.ToDouble() - 960) / 80) * (Bas - Haut));

        // Temperature: 0 on the pink line, 40 degrees half the chart's height above it.
        const Variant degres = champ("température");
        if (!degres.IsNull())
            AjouterPoint(surface, temperature, X, Line1.at(0).Y1 - ((degres.ToDouble() / 40) * (Bas - Haut)) / 2);

        // The hour's picture, from its rows before minute 20 only; the last such row wins. The
        // sky first, then the weather over it, each later match over the earlier.
        if (heure.minute() < 20) {
            Image& ico = *ICO[heure.hour()];
            const QString nuage = champ("nuage").Concat();
            if (!nuage.isEmpty()) {
                const QString metaf = champ("METAF").ToText();
                const bool eclaircies = Contient(metaf, "FEW") || Contient(metaf, "SCT");
                MontrerSymbole(ico, ImageList2, eclaircies ? QStringLiteral("SUNCLOUD") : QStringLiteral("CLOUD"));
            } else {
                MontrerSymbole(ico, ImageList2, QStringLiteral("SUN"));
            }
            const QString temps = champ("temps").Concat();
            if (!temps.isEmpty()) {
                if (Contient(temps, "pluie")) MontrerSymbole(ico, ImageList2, QStringLiteral("RAIN"));
                if (Contient(temps, "orage")) MontrerSymbole(ico, ImageList2, QStringLiteral("STORM"));
                if (Contient(temps, "brouillard")) MontrerSymbole(ico, ImageList2, QStringLiteral("FOG"));
                if (Contient(temps, "brume")) MontrerSymbole(ico, ImageList2, QStringLiteral("FOG"));
            }
        }
    }

    // The bulletin of the day's last row, the one before the end, also when that row had no slot
    // (23:45 and later).
    TXTbulletin->SetCaption(QString());
    if (!JeuReleves.Bof()) {
        JeuReleves.MovePrevious();
        ComposerBulletin(*TXTbulletin, JeuReleves);
    }
    // Close the recordset and the database, and show the airport's picture.
    JeuReleves.Close();
    BaseReleves.Close();
    JeuReleves = Recordset();
    BaseReleves = Database();
    AfficherImage(QString::number(List1->ItemData(List1->ListIndex())));
}

}  // namespace skelda
