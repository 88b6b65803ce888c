// The printed month: on a recording page for what is drawn where, and on a real PDF printer for
// what reaches the paper.
#include "StatisticsFixture.h"

#include "Failure.h"
#include "PrinterSurface.h"
#include "SurfacePainting.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

using namespace skelda;
using namespace skelda::test;

namespace {

// The recording page's geometry, from its fixed metrics at its default 10 points: "99 Nds " is 7
// characters of 125 and a line is 250, on an A4 sheet with a quarter inch of margin.
constexpr double Marge = 875 + 50;
constexpr double Bas = 250 + 16838 / 2.0;
constexpr double Hauteur = Bas - 50 - 250;
constexpr double Largeur = (11906 - 720) - 100 - 875;

// The middle of a day's column on the page.
double PageCentre(int day) { return ((Marge + (day - 1) / 31.0 * Largeur) + (Marge + day / 31.0 * Largeur)) / 2; }

class MonthReport : public Statistics {
protected:
    // The form with its printer on a fresh recording page whose default font is 10 points.
    StatistiqueMensuelle& FormPrintingOnRecording() {
        StatistiqueMensuelle& f = FormOnRecording();
        printer.pages = [this] {
            ++pagesMade;
            page = std::make_shared<RecordingSurface>();
            page->SetFontSize(10);
            page->Clear();
            return page;
        };
        return f;
    }
    void Print(StatistiqueMensuelle& f) {
        boxes.Clear();
        Named<QAction>(f, QStringLiteral("MenuStatImprimer"))->trigger();
    }
    std::vector<DrawCall> LinesIn(Color colour) const {
        std::vector<DrawCall> found;
        for (const DrawCall& c : page->Lines())
            if (c.color == colour) found.push_back(c);
        return found;
    }
    const DrawCall* PrintOf(const QString& text) const {
        for (const DrawCall& c : page->Calls())
            if (c.op == DrawOp::Print && c.text == text) return &c;
        return nullptr;
    }

    std::shared_ptr<RecordingSurface> page;
    int pagesMade = 0;
};

TEST_F(MonthReport, TheQuestionComesFirstAndNoPrintsNothing) {
    Observe(LeBourget, MarchDay(5), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    ASSERT_TRUE(QFile::remove(db.Path()));  // any use of the database would fail
    boxes.answers = {vbNo};
    Print(f);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0], QStringLiteral("Tu veux imprimer le relevé ?"));
    EXPECT_EQ(boxes.titles[0], QStringLiteral("Question"));
    EXPECT_EQ(boxes.styles[0] & 0x0f, vbYesNo);
    EXPECT_EQ(pagesMade, 0);
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(MonthReport, NothingIsPrintedWhileTheFormIsNotReady) {
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    f.StatPrete = 0;
    Print(f);
    EXPECT_EQ(boxes.shown.size(), 1u);  // the question alone
    EXPECT_EQ(pagesMade, 0);
}

TEST_F(MonthReport, AnEmptyMonthPrintsTheGridLabelsReferencesAndHeadingInTheDefaultSize) {
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    ASSERT_EQ(pagesMade, 1);
    EXPECT_EQ(page->Count(DrawOp::EndDoc), 1);
    EXPECT_EQ(page->Count(DrawOp::KillDoc), 0);
    EXPECT_EQ(page->Count(DrawOp::Box), 0);
    EXPECT_EQ(page->Count(DrawOp::Circle), 0);
    // 21 horizontal and 32 vertical grey lines, black ones at every fifth and at both ends.
    EXPECT_EQ(LinesIn(RGB(224, 224, 224)).size(), 21u + 32u);
    const auto black = LinesIn(RGB(0, 0, 0));
    ASSERT_EQ(black.size(), 5u + 2u);
    for (int k = 0; k < 5; ++k) EXPECT_DOUBLE_EQ(black[size_t(k)].y1, (k / 4.0) * Hauteur + (Bas - Hauteur));
    EXPECT_DOUBLE_EQ(black[5].x1, Marge);
    EXPECT_NEAR(black[6].x1, Marge + Largeur, 1e-9);
    // The two references of width 5.
    const auto zero = LinesIn(RGB(255, 192, 255));
    ASSERT_EQ(zero.size(), 1u);
    EXPECT_EQ(zero[0].drawWidth, 5);
    EXPECT_DOUBLE_EQ(zero[0].y1, Bas - Hauteur / 2);
    const auto ref1015 = LinesIn(RGB(128, 128, 0));
    ASSERT_EQ(ref1015.size(), 1u);
    EXPECT_EQ(ref1015[0].drawWidth, 5);
    EXPECT_DOUBLE_EQ(ref1015[0].y1, Bas - (55 / 80.0) * Hauteur);
    EXPECT_DOUBLE_EQ(ref1015[0].x2 - ref1015[0].x1, Largeur);
    // The scale labels, top to bottom, left of the plot and centred on their lines.
    const QStringList texts = page->Texts();
    const QStringList labels(texts.begin(), texts.begin() + 5);
    EXPECT_EQ(labels, (QStringList{"50 nds", "38 nds", "25 nds", "12 nds", "0 nds"}));
    EXPECT_DOUBLE_EQ(PrintOf(QStringLiteral("50 nds"))->x1, Marge - 7 * 125);
    // The heading, in the page's default 10 points, centred on the sheet.
    const QString& heading = texts.back();
    EXPECT_TRUE(heading.startsWith(QStringLiteral("Relevé Météo March 2004 : ") +
                                   Named<ListBox>(f, QStringLiteral("Aeroports"))->Text() +
                                   QString(12, QLatin1Char(' '))));
    EXPECT_GT(
        heading.size(),
        (QStringLiteral("Relevé Météo March 2004 : ") + Named<ListBox>(f, QStringLiteral("Aeroports"))->Text()).size() +
            12);
    const DrawCall* h = PrintOf(heading);
    EXPECT_EQ(h->fontSize, 10);
    EXPECT_DOUBLE_EQ(h->x1, 11906 / 2.0 - heading.size() * 125 / 2.0);
    // 200 below the line under "32", where the last day number left the current point.
    EXPECT_DOUBLE_EQ(h->y1, Bas + 250 + 200);
    EXPECT_EQ(page->Ops().back(), DrawOp::EndDoc);
}

TEST_F(MonthReport, DayNumbersRunTo32) {
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    const QStringList texts = page->Texts();
    const QStringList days(texts.begin() + 5, texts.begin() + 5 + 32);
    ASSERT_EQ(days.size(), 32);
    EXPECT_EQ(days.front(), QStringLiteral("01"));
    EXPECT_EQ(days[30], QStringLiteral("31"));
    EXPECT_EQ(days.back(), QStringLiteral("32"));
    // "32" stands beyond the plot's right edge, under a column that doesn't exist.
    const DrawCall* last = PrintOf(QStringLiteral("32"));
    EXPECT_GT(last->x1, Marge + Largeur);
    EXPECT_DOUBLE_EQ(last->y1, Bas);
}

TEST_F(MonthReport, ARowPrintsItsBarsPeakTimeCurvesAndArrow) {
    Observe(LeBourget, MarchDay(5), QTime(9, 30), 10, QStringLiteral("240"), 8, 1010);
    Observe(LeBourget, MarchDay(5), QTime(14, 5), 20, QStringLiteral("240"), 12, 1020);
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 12, QStringLiteral("090"), 14, 1016);
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    ASSERT_EQ(page->Count(DrawOp::EndDoc), 1);
    const PaletteForceTable& palette = forms.module1().PaletteForce;
    const auto boxes = page->Boxes();
    ASSERT_EQ(boxes.size(), 4u);
    const double xJour = Marge + 4 / 31.0 * Largeur;
    // The maximum: narrow, edged in the window's colour, in the class of 20 knots.
    EXPECT_DOUBLE_EQ(boxes[0].x1, xJour + 30);
    EXPECT_DOUBLE_EQ(boxes[0].x2 - boxes[0].x1, Largeur / 31 - 60);
    EXPECT_DOUBLE_EQ(boxes[0].y1, Bas);
    EXPECT_DOUBLE_EQ(boxes[0].y2, Bas - Hauteur / 50 * 20);
    EXPECT_EQ(boxes[0].color, vbWindowBackground);
    EXPECT_EQ(boxes[0].fillColor, palette(4));
    EXPECT_EQ(boxes[0].fontSize, 6);
    // The mean: full width, edged black.
    EXPECT_DOUBLE_EQ(boxes[1].x1, xJour);
    EXPECT_DOUBLE_EQ(boxes[1].y2, Bas - Hauteur / 50 * 15);
    EXPECT_EQ(boxes[1].color, RGB(0, 0, 0));
    EXPECT_EQ(boxes[1].fillColor, palette(3));
    // The time of the peak, 3 above the narrow bar, centred on the column, at 6 points.
    const DrawCall* time = PrintOf(QStringLiteral("14:05"));
    ASSERT_NE(time, nullptr);
    EXPECT_EQ(time->fontSize, 6);
    EXPECT_DOUBLE_EQ(time->y1, Bas - Hauteur / 50 * 20 - 150 - 3);
    EXPECT_DOUBLE_EQ(time->x1, xJour + Largeur / 62 - 5 * 75 / 2.0);
    EXPECT_NE(PrintOf(QStringLiteral("10:00")), nullptr);
    // The mean temperature's segment in the colour of the outer curves, its dots in their own.
    const auto segments = LinesIn(RGB(192, 192, 255));
    ASSERT_EQ(segments.size(), 3u);
    EXPECT_DOUBLE_EQ(segments[2].x1, PageCentre(5));
    EXPECT_DOUBLE_EQ(segments[2].x2, PageCentre(6));
    EXPECT_TRUE(LinesIn(RGB(192, 0, 192)).empty());
    const auto circles = page->Circles();
    EXPECT_EQ(
        std::count_if(circles.begin(), circles.end(), [](const DrawCall& c) { return c.color == RGB(192, 0, 192); }),
        3);
    // The arrows: 200 long before the factor 0.9, 300 under the plot.
    const auto arrows = LinesIn(150);
    ASSERT_EQ(arrows.size(), 2u);
    EXPECT_NEAR(std::hypot(arrows[0].x2 - arrows[0].x1, arrows[0].y2 - arrows[0].y1), 180, 1e-6);
    EXPECT_NEAR((arrows[0].y1 + arrows[0].y2) / 2, Bas + 300, 1e-9);
    EXPECT_NEAR((arrows[1].x1 + arrows[1].x2) / 2, PageCentre(6), 1e-9);
    // The heading after the last wind block, at its 8 points.
    EXPECT_EQ(PrintOf(page->Texts().back())->fontSize, 8);
}

TEST_F(MonthReport, WithTheWindUncheckedThereAreNoBarsNoTimesAndADefaultSizeHeading) {
    Observe(LeBourget, MarchDay(5), QTime(14, 5), 20);
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 12);
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Named<CheckBox>(f, Indexed("CheckCourbe", 3))->SetValue(0);
    Print(f);
    EXPECT_EQ(page->Count(DrawOp::Box), 0);
    EXPECT_EQ(PrintOf(QStringLiteral("14:05")), nullptr);
    EXPECT_EQ(page->Count(DrawOp::SetFontSize), 0);
    EXPECT_EQ(PrintOf(page->Texts().back())->fontSize, 10);
    EXPECT_EQ(LinesIn(150).size(), 2u);  // arrows still print
}

TEST_F(MonthReport, FiftyFourKnotsDropThePageWithTheBox) {
    Observe(LeBourget, MarchDay(5), QTime(10, 0), 20);
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 54);
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    EXPECT_EQ(page->Count(DrawOp::EndDoc), 0);
    EXPECT_EQ(page->Count(DrawOp::KillDoc), 1);
    ASSERT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(boxes.shown[1], QStringLiteral("Impossible d'imprimer ") + ErrorDescription(SubscriptOutOfRange));
    EXPECT_EQ(boxes.titles[1], QStringLiteral("Oups !"));
    EXPECT_EQ(boxes.styles[1], vbCritical);
    EXPECT_TRUE(runTimeEnds.empty());
    // The handles were given up unclosed.
    EXPECT_TRUE(f.JeuMois.IsNothing());
}

TEST_F(MonthReport, ANullMeanPressureIsLeftOutAndTheCurveRunsAcrossIt) {
    Observe(LeBourget, MarchDay(1), QTime(10, 0), 10, QStringLiteral("240"), 10, 1000);
    Observe(LeBourget, MarchDay(2), QTime(10, 0), 10, QStringLiteral("240"), 10, std::nullopt);
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 10, QStringLiteral("240"), 10, 1020);
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    ASSERT_EQ(page->Count(DrawOp::EndDoc), 1);
    const auto mean = LinesIn(RGB(128, 128, 0));
    ASSERT_EQ(mean.size(), 2u);  // the 1015 reference, then one segment
    EXPECT_DOUBLE_EQ(mean[1].x1, PageCentre(1));
    EXPECT_DOUBLE_EQ(mean[1].x2, PageCentre(3));
    EXPECT_DOUBLE_EQ(mean[1].y2, Bas - (60 / 80.0) * Hauteur);
}

TEST_F(MonthReport, ANullMaximumEndsTheWholeJobWhenTheWindIsChecked) {
    Observe(LeBourget, MarchDay(2), QTime(10, 0), 10);
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE Zefir SET forcenoeuds = NULL")));
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    EXPECT_EQ(page->Count(DrawOp::EndDoc), 0);
    EXPECT_EQ(page->Count(DrawOp::KillDoc), 1);
    ASSERT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(boxes.shown[1], QStringLiteral("Impossible d'imprimer ") + ErrorDescription(InvalidUseOfNull));
    // Without the wind block the same row prints.
    Named<CheckBox>(f, Indexed("CheckCourbe", 3))->SetValue(0);
    Print(f);
    EXPECT_EQ(page->Count(DrawOp::EndDoc), 1);
}

TEST_F(MonthReport, ADayWhosePeakIsAVariableWindEndsTheWholeJobAtItsArrow) {
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 10);
    ObserveVariable20Knots(LeBourget, MarchDay(4), QTime(9, 0));
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Print(f);
    // The arrow of day 4 can't take a Null direction: nothing of the job reaches the paper.
    EXPECT_EQ(page->Count(DrawOp::EndDoc), 0);
    EXPECT_EQ(page->Count(DrawOp::KillDoc), 1);
    ASSERT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(boxes.shown[1], QStringLiteral("Impossible d'imprimer Invalid use of Null"));
    EXPECT_EQ(boxes.titles[1], QStringLiteral("Oups !"));
}

TEST_F(MonthReport, TheSelectedYearIsPrintedEvenIfTheScreenShowsAnother) {
    Observe(LeBourget, QDate(2005, 3, 14), QTime(10, 0), 25);
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);  // the screen shows March 2004
    Named<ListBox>(f, QStringLiteral("Année"))->SetListIndex(2);
    Print(f);
    EXPECT_EQ(page->Count(DrawOp::Box), 2);
    EXPECT_TRUE(page->Texts().back().startsWith(QStringLiteral("Relevé Météo March 2005 : ")));
}

TEST_F(MonthReport, AMissingDatabaseDropsThePage) {
    StatistiqueMensuelle& f = FormPrintingOnRecording();
    ASSERT_TRUE(QFile::remove(db.Path()));
    Print(f);
    EXPECT_EQ(page->Count(DrawOp::EndDoc), 0);
    EXPECT_EQ(page->Count(DrawOp::KillDoc), 1);
    ASSERT_EQ(boxes.shown.size(), 2u);
    EXPECT_TRUE(boxes.shown[1].startsWith(QStringLiteral("Impossible d'imprimer Could not find file")));
}

// ---- On a real printer

TEST_F(MonthReport, APrinterThatRefusesTheJobEndsInTheBoxAndNothingIsPrinted) {
    Observe(LeBourget, MarchDay(5), QTime(10, 0), 20);
    StatistiqueMensuelle& f = Form();
    const QString nowhere = db.Folder() + QStringLiteral("/no such folder/report.pdf");
    printer.pages = [&] { return std::make_shared<PrinterSurface>(nowhere); };
    Print(f);
    ASSERT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(boxes.shown[1], QStringLiteral("Impossible d'imprimer ") + ErrorDescription(PrinterError));
    EXPECT_FALSE(QFile::exists(nowhere));
}

TEST_F(MonthReport, TheReportIsOnePageWithTheScaleTheDaysAndTheHeading) {
    const QString pdftotext = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
    const QString pdfinfo = QStandardPaths::findExecutable(QStringLiteral("pdfinfo"));
    if (pdftotext.isEmpty() || pdfinfo.isEmpty()) GTEST_SKIP() << "poppler-utils is not installed";
    for (int d = 1; d <= 31; ++d)
        Observe(LeBourget, MarchDay(d), QTime(10 + d % 8, 0), 5 + (d * 7) % 40, QStringLiteral("%1").arg(d * 11 % 360),
                d % 15, 1000 + d % 25);
    StatistiqueMensuelle& f = Form();
    const QString pdf = db.Folder() + QStringLiteral("/report.pdf");
    printer.pages = [&] { return std::make_shared<PrinterSurface>(pdf); };
    Print(f);
    ASSERT_EQ(boxes.shown.size(), 1u);  // the question alone: no failure
    ASSERT_TRUE(QFile::exists(pdf));

    QProcess info;
    info.start(pdfinfo, {pdf});
    ASSERT_TRUE(info.waitForFinished(30000));
    EXPECT_TRUE(QString::fromUtf8(info.readAllStandardOutput()).contains(QRegularExpression("Pages:\\s+1\\n")));
    QProcess text;
    text.start(pdftotext, {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    ASSERT_TRUE(text.waitForFinished(30000));
    const QString words = QString::fromUtf8(text.readAllStandardOutput());
    for (const char* label : {"50 nds", "38 nds", "25 nds", "12 nds", "0 nds"})
        EXPECT_TRUE(words.contains(QLatin1String(label))) << label;
    EXPECT_TRUE(words.contains(QStringLiteral("32")));
    EXPECT_TRUE(words.contains(QStringLiteral("Relevé Météo March 2004 : ")));
    EXPECT_TRUE(words.contains(QStringLiteral("Le Bourget")));
    EXPECT_EQ(words.count(QLatin1Char('\f')), 1);  // one page break: one page
}

}  // namespace
