#include "ForecastParser.h"

#include "Convert.h"
#include "Failure.h"
#include "Text.h"

#include <array>

namespace skelda {

namespace {

const QString DebutTexte = QStringLiteral("<!--TEXT FORECAST-->");
// Looked for without its "<": the cut below counts on that position only as a length.
const QString FinTexte = QStringLiteral("!--ENDTEXT FORECAST-->");
const QString BaliseFin = QStringLiteral("<!--ENDTEXT FORECAST-->");
const QString DebutImages = QStringLiteral("-- FORECAST --");
const QString FinImages = QStringLiteral("<!--ENDFC-->");

// The whole number nearest to (N - 32) x 5 / 9, the subtraction and the product in 16 bits.
int16_t Celsius(QStringView N) {
    const int16_t f = CInt(N);
    const int16_t produit = Mul16(Add16(f, -32).Value(), 5).Value();
    return CInt(double(produit) / 9);
}

}  // namespace

void ExtrairePrevision(const QString& Page, QString& Liste) {
    const qsizetype D = InStr(Page, DebutImages);
    const int16_t E = CInt(double(InStr(Page, FinImages)));
    QString Bloc = Mid(Page, D, E - D).toString();
    for (int i = 0; i < 4; ++i) {
        const qsizetype P = InStr(Bloc, u".gif");
        QString Nom = Mid(Bloc, P - 2, 6).toString();
        // A name of one character: the cut reads from the start of the table, not from the name.
        if (Left(Nom, 1) == u"/") Nom = Mid(Bloc, 2, 5).toString();
        Liste += Nom + u',';
        Bloc = Mid(Bloc, P + 4, Bloc.size() - P + 4).toString();
    }
    // The file of the first picture, which nothing shows: the picture places stay empty.
    const QString image = QStringLiteral("image\\") + Left(Liste, InStr(Liste, u",") - 1).toString();
    Q_UNUSED(image);
}

QString ConvertirTemperatures(const QString& Corps) {
    QString resultat = Corps;
    QString Suite = Corps;
    qsizetype p = 0;
    while ((p = InStr(Suite, u"F")) > 3) {
        const QStringView N = Mid(Suite, p - 2, 2);
        // Tete comes from Suite, not from the block: what stood before the previous F is gone.
        QString Tete = Mid(Suite, 1, p).toString();
        Tete += u'(' + QString::number(Celsius(N)) + QStringLiteral(")c");
        Suite = Mid(Suite, p + 1).toString();
        resultat = Tete + Suite;
    }
    return resultat;
}

bool LirePrevision(const QString& Page, AffichagePrevision& Ecran, const PasseDeBoucle& Passe) {
    const qsizetype Debut = InStr(Page, DebutTexte);
    if (Debut == 0) return false;
    const qsizetype Fin = InStr(Page, FinTexte);
    QString Liste;
    ExtrairePrevision(Page, Liste);

    // The end marker's position serves as a length: the text runs on past the marker by as much
    // as Debut is long, so the loop has to stop at the marker by itself.
    QString Reste = Mid(Page, Debut, Fin).toString();
    qsizetype Taille = Reste.size();
    Ecran.Montrer();

    QString Titre;
    QString Corps;
    int Numero = 0;
    std::array<QString, 16> Textes;  // each block's raw text, which nothing reads
    while (Taille > 0) {
        if (Passe) Passe();
        const qsizetype Ouvrant = InStr(Reste, u"<");
        const qsizetype Fermant = InStr(Reste, u">");
        const QStringView Balise = Mid(Reste, Ouvrant, Fermant - Ouvrant + 1);
        if (Balise == BaliseFin) break;
        if (Ouvrant == 1) {
            // The heading is cut one character short of the first "/", the closing bold tag's:
            // "<b>Today:</b>" gives "Today", without the colon.
            if (Balise == u"<b>") Titre = Mid(Reste, 4, InStr(Reste, u"/") - 6).toString();
            Reste = Right(Reste, Reste.size() - Fermant).toString();
            Taille = Reste.size();
            continue;
        }
        if (Ouvrant == 2) {
            // Only a line feed is dropped here. Any other character stays where it is, and the
            // same pass comes back for ever.
            if (Left(Reste, 1) == u"\n") Reste = Mid(Reste, 2).toString();
            continue;
        }
        if (Mid(Reste, Ouvrant, 3) == u"<p>") {
            Corps = Mid(Reste, 1, Ouvrant - 1).toString();
            if (Numero < 0 || Numero >= int(Textes.size())) throw RuntimeError(SubscriptOutOfRange);
            Textes[size_t(Numero)] = Corps;
            Corps = ConvertirTemperatures(Corps);
            if (Numero <= 5) {
                Ecran.Bloc(Numero, Titre, Corps);
                Corps.clear();
            }
            ++Numero;
        }
        // Any other tag takes with it all that stands before it (the heading's text before the
        // closing bold tag, first of all). A block beyond the sixth keeps its text in Corps, and
        // that text is put back before the rest, to be read over again. Taille isn't measured.
        Reste = Corps + Right(Reste, Reste.size() - Fermant).toString();
    }
    return true;
}

}  // namespace skelda
