// The printed month: after a question, the month of the selected airport on one page of the
// system's default printer. A plot over the upper half of the page with its own grid and scales,
// the bars, curves and arrows of the month view, the time of each day's peak above its bar, and a
// heading under the plot.
//
// The report measures its plot from the page, in the printer's default font, and fails as a
// whole: any failure drops the page (nothing reaches the paper) and says so in one box. So a row
// the screen survives (a Null wind, a wind of 54 knots and more) ends the report.
#include "Arrow.h"
#include "Convert.h"
#include "Forms.h"
#include "MonthCurves.h"
#include "Printer.h"
#include "StatistiqueMensuelle.h"
#include "SurfacePainting.h"
#include "Text.h"

namespace skelda {

namespace {

constexpr Color Black = RGB(0, 0, 0);
// The widest scale label, as the measure of the room left of the plot.
const QString Mesure = QStringLiteral("99 Nds ");
// The credit that closes the heading.
const QString Credit = QStringLiteral("Skelda - le zefir en temps réel");

}  // namespace

void StatistiqueMensuelle::MenuStatImprimer_Click() {
    // Ask first; No prints nothing.
    if (forms_.services().boxes.MsgBox(QStringLiteral("Tu veux imprimer le relevé ?"), vbYesNo,
                                       QStringLiteral("Question")) == vbNo)
        return;
    // From here on any failure drops the page.
    std::shared_ptr<PageSurface> page;
    try {
        // Nothing to print before the window has finished loading.
        if (!StatPrete) return;
        page = forms_.services().printer.NewPage();
        PageSurface& printer = *page;
        // The margin and the plot's size, measured before any font is set, so in the printer's
        // default.
        const int16_t MargeGauche = CInt(printer.TextWidth(Mesure) + 50);
        const int16_t BasGraphe = CInt(printer.TextHeight(Mesure) + printer.Height() / 2);
        const int16_t HauteurGraphe = CInt(BasGraphe - 50 - printer.TextHeight(Mesure));
        const int16_t LargeurGraphe = CInt(printer.ScaleWidth() - 100 - printer.TextWidth(Mesure));
        // The bars are filled solid.
        printer.SetFillStyle(vbFSSolid);

        auto Ligne = [&](double y, Color colour) {
            printer.Line(MargeGauche, y, MargeGauche + LargeurGraphe, y, colour);
        };

        // The horizontal grid: 21 lines, a black one with its label every fifth, the 0 °C level
        // wide. The labels of 37.5 and 12.5 knots round to "38 nds" and "12 nds".
        for (int i = 0; i <= 20; ++i) {
            const double y = (i / 20.0) * HauteurGraphe + (BasGraphe - HauteurGraphe);
            Ligne(y, GridGrey);
            if (i == 10) {
                printer.SetDrawWidth(5);
                Ligne(y, RGB(255, 192, 255));
                printer.SetDrawWidth(1);
            }
            if (i % 5 == 0) {
                Ligne(y, Black);
                printer.SetCurrentX(MargeGauche - printer.TextWidth(Mesure));
                printer.SetCurrentY(y - printer.TextHeight(Mesure) / 2);
                printer.Print(QString::number(CInt(50 - (i * 50) / 20.0)) + QStringLiteral(" nds"));
            }
        }
        // The reference of 1015 hPa.
        printer.SetDrawWidth(5);
        Ligne(BasGraphe - (55 / 80.0) * HauteurGraphe, RGB(128, 128, 0));
        printer.SetDrawWidth(1);

        // The vertical grid and the day numbers under the columns. The last pass numbers a 32nd
        // column beyond the plot's right edge: the extra number stays.
        for (int i = 0; i <= 31; ++i) {
            const double x = (LargeurGraphe / 31.0) * i + MargeGauche;
            printer.Line(x, BasGraphe, x, BasGraphe - HauteurGraphe, GridGrey);
            if (i % 31 == 0) printer.Line(x, BasGraphe, x, BasGraphe - HauteurGraphe, Black);
            const QString numero = FormatDigits(i + 1, 2);
            printer.SetCurrentX(x + LargeurGraphe / 62.0 - printer.TextWidth(numero) / 2);
            printer.SetCurrentY(BasGraphe);
            printer.Print(numero);
        }

        // The rows, from the same query as the screen's.
        BaseMois = OpenDatabase(DatabasePath());
        JeuMois = BaseMois.OpenRecordset(MonthQuery(), dbOpenSnapshot);
        const PaletteForceTable& PaletteForce = forms_.module1().PaletteForce;
        const auto curves = MonthCurves(MonthMedium::Paper);
        std::array<CurvePoint, 6> points{};
        RunDirectly run;
        auto champ = [this](const char* nom) { return JeuMois.Fields(QString::fromUtf8(nom)); };
        auto JourCourant = [&] { return CInt(double(champ("daterelevé").ToDateTime().date().day())); };
        auto XJour = [&] { return MargeGauche + ((JourCourant() - 1) / 31.0) * LargeurGraphe; };
        auto XCentre = [&] {
            return ((MargeGauche + ((JourCourant() - 1) / 31.0) * LargeurGraphe) +
                    (MargeGauche + (JourCourant() / 31.0) * LargeurGraphe)) /
                   2;
        };
        auto HauteurVent = [&](const char* colonne) { return (-HauteurGraphe / 50.0) * champ(colonne).ToDouble(); };
        auto ClasseDe = [&](const char* colonne) {
            const int16_t classe = MonthWindClass(champ(colonne));
            return classe < 0 ? int16_t(0) : classe;
        };

        while (!JeuMois.Eof()) {
            // The wind, with the time of the peak 3 twips above the narrow bar.
            if (CheckCourbe.at(3)->Value() == 1) {
                printer.SetFontSize(6);
                printer.SetFillColor(PaletteForce(ClasseDe("zefirmaxi")));
                printer.BoxStep(XJour() + 30, BasGraphe, LargeurGraphe / 31.0 - 60, HauteurVent("zefirmaxi"),
                                vbWindowBackground);
                const QString heure = champ("heuredepointe").ToDateTime().time().toString(QStringLiteral("hh:mm"));
                printer.SetCurrentX(XJour() + LargeurGraphe / 62.0 - printer.TextWidth(heure) / 2);
                printer.SetCurrentY(printer.CurrentY() - printer.TextHeight(heure) - 3);
                printer.Print(heure);
                printer.SetFillColor(PaletteForce(ClasseDe("zefirmoyen")));
                printer.BoxStep(XJour(), BasGraphe, LargeurGraphe / 31.0, HauteurVent("zefirmoyen"), Black);
                printer.SetFontSize(8);
            }
            // The curves of pressure and temperature, on the paper's scales.
            if (!champ("pmoyen").IsNull() && CheckCourbe.at(1)->Value() == 1) {
                for (size_t k = 0; k < 3; ++k) {
                    AddMonthDot(run, printer, curves[k], points[k], XCentre, [&] {
                        return BasGraphe - ((champ(curves[k].column).ToDouble() - 960) / 80) * HauteurGraphe;
                    });
                }
            }
            if (!champ("tempmoyen").IsNull() && CheckCourbe.at(2)->Value() == 1) {
                for (size_t k = 3; k < 6; ++k) {
                    AddMonthDot(run, printer, curves[k], points[k], XCentre, [&] {
                        return (BasGraphe - HauteurGraphe / 2.0) -
                               ((champ(curves[k].column).ToDouble() / 40) * HauteurGraphe) / 2;
                    });
                }
            }
            // The arrow of every row, under the plot.
            int16_t longueur = 200;
            TracerFleche(XCentre(), BasGraphe + 300, champ("Orientation").ToInt16(), printer, longueur);
            // On to the next day.
            JeuMois.MoveNext();
        }
        JeuMois.Close();
        BaseMois.Close();
        JeuMois = Recordset();
        BaseMois = Database();

        // The heading under the plot, centred on the sheet, from where the last drawing left the
        // current point, in the size the last wind block left (or the printer's default).
        const QString Entete = QStringLiteral("Relevé Météo ") + Mois->Text() + QStringLiteral(" ") + Annee->Text() +
                               QStringLiteral(" : ") + Aeroports->Text() + QString(12, QLatin1Char(' ')) + Credit;
        printer.SetCurrentX(printer.Width() / 2 - printer.TextWidth(Entete) / 2);
        printer.SetCurrentY(printer.CurrentY() + 200);
        printer.Print(Entete);
        printer.EndDoc();
    } catch (const RuntimeError& e) {
        // The recordset and the database go with the procedure, unclosed.
        JeuMois = Recordset();
        BaseMois = Database();
        if (page) page->KillDoc();
        const QString words = e.Description().isEmpty() ? ErrorDescription(e.Number()) : e.Description();
        forms_.services().boxes.MsgBox(QStringLiteral("Impossible d'imprimer ") + words, vbCritical,
                                       QStringLiteral("Oups !"));
    }
}

}  // namespace skelda
