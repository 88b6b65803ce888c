// The readout under the pointer: while the pointer moves over the day chart, the panel
// LeBulletin shows the observation of the half-hour slot under it, decoded again from the METAF
// text that the chart left in the slot label's Tag. The database isn't touched.
//
// Two handlers compose the panel, the form's mouse move and the slot label's own, and they differ
// on purpose in small points (wording, the test for no change, when the slot is remembered).
// These differences are kept as they stand.
#include "Bulletin.h"
#include "Convert.h"
#include "Form1.h"
#include "Forms.h"
#include "Text.h"

#include <cmath>

namespace skelda {

namespace {

// The words of one handler.
struct Libelles {
    const char16_t* titre;    // heading, before the time
    const char16_t* vitesse;  // behind the mean speed
    const char16_t* rafale;   // before the gust's speed
};
constexpr Libelles LibellesForme{u"Weather at:", u" Knots", u" gusting to  "};
constexpr Libelles LibellesEtiquette{u"Weather At:", u" Knts", u" gusting to "};

QString NomCourt(QString degres) { return NomDirection(degres, true).Concat(); }

// Writes the heading and the bulletin text of B. Each piece is appended to the caption as the
// control holds it, and the empty lines of empty phrases are taken out in one pass at the end.
void Composer(Label& titre, Label& texte, Bulletin& B, const Libelles& mots) {
    auto ajouter = [&texte](const QString& morceau) { texte.SetCaption(texte.Caption() + morceau); };
    const QString crlf = QString::fromUtf16(CrLf);

    // The heading, then the wind's direction and speed. An empty direction (a variable wind) is
    // named as 0, north.
    titre.SetCaption(QString::fromUtf16(mots.titre) + B.HeureReleve);
    texte.SetCaption(QStringLiteral("Wind from ") + NomDirection(B.OrientationDegre, true).Concat() + u' ' +
                     QString::number(B.ForceNoeuds) + QString::fromUtf16(mots.vitesse));
    // The gust, if any, and the line's end.
    if (B.ForceRafale > 0)
        ajouter(QString::fromUtf16(mots.rafale) + QString::number(B.ForceRafale) + QStringLiteral(" Knts") + crlf);
    else
        ajouter(crlf);
    // The shift between two sectors. The flag decides, not the sectors: a variable wind shows
    // both sector fields whatever they hold, and a sector without the flag shows nothing.
    if (B.ZefirVariable != 0) {
        ajouter(QStringLiteral("Shifting from ") + NomCourt(QString::number(B.Secteur1)) + crlf);
        ajouter(QStringLiteral(" to ") + NomCourt(QString::number(B.Secteur2)) + crlf);
    }
    // Visibility, sky, weather, pressure and temperature, a line each.
    ajouter(QStringLiteral("visibility ") + B.Visibilite + crlf);
    ajouter(Trim(B.Nuage).toString() + crlf);
    ajouter(Trim(B.Temps).toString() + crlf);
    ajouter(QStringLiteral("Pressure ") + QString::number(B.Pression) + QStringLiteral(" hpa") + crlf);
    ajouter(QStringLiteral("Temperature ") + QString::number(B.Temperature) + QStringLiteral("°C") + crlf);
    // Fold doubled line ends, in one pass.
    texte.SetCaption(Replace(texte.Caption(), QString(crlf + crlf), crlf, Qt::CaseInsensitive));
}

}  // namespace

void Form1::Form_MouseMove(int /*Button*/, int /*Shift*/, double X, double /*Y*/) {
    // The column under the pointer: columns of 180 right of the axis, in single precision.
    const float Q = (float(X) - float(MaxFKNT.X1)) / (float(WidthOf(FKNT[0])) - 15.0f);
    // Nothing to do in the same column. The test takes the floor and the store the nearest: over
    // the right half of a column the test fails on every move and the panel is composed again
    // each time. Left so.
    if (std::floor(Q) == DerniereColonne) return;
    DerniereColonne = CInt(double(Q));
    // Hide the panel off the chart, or over a slot without an observation.
    if (DerniereColonne < 0 || DerniereColonne > 47) {
        LeBulletin->setVisible(false);
        return;
    }
    Label* slot = FKNT[DerniereColonne];
    if (slot->Tag.compare(QString(), Qt::CaseInsensitive) == 0) {
        LeBulletin->setVisible(false);
        return;
    }
    // Decode the slot's report and show it in the panel.
    Bulletin B = DecoderMetaf(slot->Tag, forms_.services().clock);
    Composer(*TXTtitre, *TXTbulletin, B, LibellesForme);
    LeBulletin->setVisible(true);
}

void Form1::FKNT_MouseMove(int Index, int /*Button*/, int /*Shift*/, double /*X*/, double /*Y*/) {
    // Nothing to do for the slot already shown. "Visible" is the panel's own setting, also while
    // the window itself is hidden.
    if (DernierIndex == Index && !LeBulletin->isHidden()) return;
    // Decode the slot's report. No test for an empty Tag: "" decodes the decoder's built-in
    // sample.
    Bulletin B = DecoderMetaf(FKNT[Index]->Tag, forms_.services().clock);
    // Show it in the panel. The slot is remembered after composing, unlike the form's handler.
    Composer(*TXTtitre, *TXTbulletin, B, LibellesEtiquette);
    LeBulletin->setVisible(true);
    DernierIndex = int16_t(Index);
}

}  // namespace skelda
