// The month view: one row per day of the saved query "Heure de pointe selon zefir" for the
// airport, month and year of the form's lists, drawn on Picture1 over a grid, with the day's text
// kept in its cell for the pop-up.
//
// Every statement runs on its own: a failed one is skipped without a word and the next one runs.
// That is how a bad row loses only what it can't give (a Null temperature leaves its curve
// alone), how a wind of 54 knots or more keeps the last fill colour, and also why the view never
// returns when there is no database or no airport: the loop's test fails, which skips the test
// and not the loop.
#include "Arrow.h"
#include "Compass.h"
#include "Convert.h"
#include "Forms.h"
#include "MonthCurves.h"
#include "Regional.h"
#include "ResumeNext.h"
#include "StatistiqueMensuelle.h"
#include "Text.h"

namespace skelda {

namespace {

// A number rounded to the nearest whole one, halves to even, as text; a Null gives no text.
QString Rounded(const Variant& value) {
    if (value.IsNull()) return {};
    return NumberText(RoundHalfEven(value.ToDouble()));
}

// The test of an If: true only when it could be evaluated and held. A test that fails skips the
// whole statement, its body included.
template <class Condition>
bool Holds(ResumeNext& step, Condition condition) {
    bool holds = false;
    step([&] { holds = condition(); });
    return holds;
}

}  // namespace

void StatistiqueMensuelle::AfficherMois() {
    // Nothing until the window is loaded: the load's own clicks draw nothing.
    if (!StatPrete) return;
    ResumeNext step;
    Surface& surface = *drawingSurface_;
    const PaletteForceTable& PaletteForce = forms_.module1().PaletteForce;
    const auto curves = MonthCurves(MonthMedium::Screen);
    std::array<CurvePoint, 6> points{};
    QString TexteJour;
    int16_t Classe = 0;
    const QString crlf = QString::fromUtf16(CrLf);

    // The scales read the plot's lines on each use: Y1 its foot, Y2 its top.
    auto Y1 = [this] { return Lverticale.Y1; };
    auto Y2 = [this] { return Lverticale.Y2; };
    auto champ = [this](const char* nom) { return JeuMois.Fields(QString::fromUtf8(nom)); };
    auto JourCourant = [&] { return CInt(double(champ("daterelevé").ToDateTime().date().day())); };
    auto XCentre = [&] {
        const Label& jour = JourCell(JourCourant());
        return WidthOf(&jour) / 2 + LeftOf(&jour);
    };
    auto HauteurVent = [&](const char* colonne) { return -(Y1() - Y2()) / 50 * champ(colonne).ToDouble(); };

    // The month's rows, one a day.
    step([&] { BaseMois = OpenDatabase(DatabasePath()); });
    step([&] { JeuMois = BaseMois.OpenRecordset(MonthQuery(), dbOpenSnapshot); });
    // Clear the plot; the bars are filled solid. Red is what a first bar keeps when its class has
    // no colour.
    step([&] { surface.Cls(); });
    step([&] { surface.SetFillStyle(vbFSSolid); });
    step([&] { surface.SetFillColor(255); });
    // The horizontal grid, every 2 knots. Classe is the loop's counter, and the rows find it where
    // the loops left it.
    for (Classe = 1; Classe <= 24; ++Classe) {
        int16_t y = 0;
        step([&] { y = CInt(Y1() - ((Y1() - Y2()) * Classe) / 25); });
        step([&] { surface.Line(Lhorizontale.X1 + 15, y, Lhorizontale.X2 - 15, y, GridGrey); });
    }
    // The vertical grid at the right edge of every cell, also for days the month lacks.
    for (Classe = 1; Classe <= 31; ++Classe) {
        double x = 0;
        step([&] { x = LeftOf(&JourCell(Classe)) + WidthOf(&JourCell(Classe)); });
        step([&] { surface.Line(x, Y1(), x, Y2(), GridGrey); });
    }

    // One pass per row.
    for (;;) {
        if (passageDeBoucle_) passageDeBoucle_();
        bool fin = false;
        bool teste = false;
        step([&] {
            fin = JeuMois.Eof();
            teste = true;
        });
        if (teste && fin) break;

        // The day's text. The first line replaces the last row's text; a row whose direction
        // can't be read keeps it, and appends its own lines to it.
        step([&] {
            QString degres = champ("Orientation").ToText();
            TexteJour = QStringLiteral("Secteur ") + NomDirection(degres, false).Concat() + QStringLiteral(" °") + crlf;
        });
        step([&] {
            TexteJour += QStringLiteral("Moyen   ") + Rounded(champ("zefirmoyen")) + QStringLiteral(" Nds") + crlf;
        });
        step([&] {
            TexteJour += QStringLiteral("Maxi    ") + champ("zefirmaxi").Concat() + QStringLiteral(" Nds à ") +
                         champ("heuredepointe").Concat() + crlf + crlf;
        });
        step([&] {
            TexteJour += QStringLiteral("T° moy  ") + Rounded(champ("tempmoyen")) + QStringLiteral(" °C") + crlf;
        });
        step([&] {
            TexteJour += QStringLiteral("T° maxi ") + champ("tempmaxi").Concat() + QStringLiteral(" °C") + crlf;
        });
        step([&] {
            TexteJour += QStringLiteral("T° mini ") + champ("tempmini").Concat() + QStringLiteral(" °C") + crlf;
        });
        step([&] {
            TexteJour += QStringLiteral("P  moy  ") + Rounded(champ("pmoyen")) + QStringLiteral(" Hpa") + crlf;
        });
        step(
            [&] { TexteJour += QStringLiteral("P  maxi ") + champ("pmaxi").Concat() + QStringLiteral(" Hpa") + crlf; });
        step(
            [&] { TexteJour += QStringLiteral("P  mini ") + champ("pmini").Concat() + QStringLiteral(" Hpa") + crlf; });
        // The day's cell keeps the text, and shows it as its tip.
        step([&] { JourCell(JourCourant()).Tag = TexteJour; });
        step([&] { JourCell(JourCourant()).setToolTip(TexteJour); });

        // The wind bars: the maximum narrow, edged in the window's colour, the mean over its foot
        // at full width. A class beyond the table keeps the fill colour as it was.
        if (Holds(step, [&] { return CheckCourbe.at(3)->Value() == 1; })) {
            step([&] { Classe = MonthWindClass(champ("zefirmaxi")); });
            step([&] {
                if (Classe < 0) Classe = 0;
            });
            step([&] { surface.SetFillColor(PaletteForce(Classe)); });
            step([&] {
                const Label& jour = JourCell(JourCourant());
                surface.BoxStep(LeftOf(&jour) + 30, Lhorizontale.Y1, WidthOf(&jour) - 15 - 60, HauteurVent("zefirmaxi"),
                                vbWindowBackground);
            });
            step([&] { Classe = MonthWindClass(champ("zefirmoyen")); });
            step([&] {
                if (Classe < 0) Classe = 0;
            });
            step([&] { surface.SetFillColor(PaletteForce(Classe)); });
            step([&] {
                const Label& jour = JourCell(JourCourant());
                surface.BoxStep(LeftOf(&jour), Lhorizontale.Y1, WidthOf(&jour) - 15, HauteurVent("zefirmoyen"));
            });
        }
        // The curves of pressure and temperature; only the mean is looked at for a Null.
        if (Holds(step, [&] { return !champ("pmoyen").IsNull() && CheckCourbe.at(1)->Value() == 1; })) {
            for (size_t k = 0; k < 3; ++k) {
                AddMonthDot(step, surface, curves[k], points[k], XCentre, [&] {
                    const double v = champ(curves[k].column).ToDouble();
                    return Y1() - ((v - 960) / 80) * (Y1() - Y2());
                });
            }
        }
        if (Holds(step, [&] { return !champ("tempmoyen").IsNull() && CheckCourbe.at(2)->Value() == 1; })) {
            for (size_t k = 3; k < 6; ++k) {
                AddMonthDot(step, surface, curves[k], points[k], XCentre, [&] {
                    const double v = champ(curves[k].column).ToDouble();
                    return Line1[0].Y1 - ((v / 40) * (Y1() - Y2())) / 2;
                });
            }
        }
        // The arrow of every row, whatever the boxes say, in a row between the plot and the cells;
        // length 0 asks for the default.
        step([&] {
            int16_t longueur = 0;
            TracerFleche(XCentre(), Lhorizontale.Y2 + 120, champ("Orientation").ToInt16(), surface, longueur);
        });
        // On to the next day.
        step([&] { JeuMois.MoveNext(); });
    }

    // Close the recordset and the database.
    step([&] { JeuMois.Close(); });
    step([&] { BaseMois.Close(); });
    JeuMois = Recordset();
    BaseMois = Database();
}

}  // namespace skelda
