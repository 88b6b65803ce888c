// The monthly window's frame: its controls under their names, its load, the check boxes, the
// pop-up text of the day and the closing.
#include "StatisticsFixture.h"

#include "Controls.h"
#include "Failure.h"
#include "Failures.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>

using namespace skelda;
using namespace skelda::test;

namespace {

QColor TextColour(const QWidget* w) { return w->palette().color(QPalette::WindowText); }

// A mouse move without a button at a point of the widget, delivered as the platform does (an
// ignored move goes on to the parent unless the widget stops it).
void MoveOver(QWidget* w, QPoint at = QPoint(2, 2)) {
    QMouseEvent move(QEvent::MouseMove, QPointF(at), w->mapToGlobal(QPointF(at)), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(w, &move);
}

struct Placed {
    const char* name;
    double left, top, width, height;
};

TEST_F(Statistics, TheFormHasItsCaptionBorderAndClientArea) {
    StatistiqueMensuelle& f = Form();
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Monthly Statistic"));
    EXPECT_EQ(WidthOf(Named<SurfaceWidget>(f, QStringLiteral("Client"))), 10635);
    EXPECT_EQ(HeightOf(Named<SurfaceWidget>(f, QStringLiteral("Client"))), 5790);
    EXPECT_FALSE(f.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_FALSE(f.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_TRUE(f.windowFlags() & Qt::WindowCloseButtonHint);
    // A tool window: not in the task bar. Fixed: it can't be resized.
    EXPECT_EQ(f.windowFlags() & Qt::WindowType_Mask, Qt::Tool);
    EXPECT_EQ(f.minimumSize(), f.maximumSize());
}

TEST_F(Statistics, EveryControlStandsAtItsDesignPlace) {
    StatistiqueMensuelle& f = Form();
    // Whole pixels of 15 twips: a design place that isn't a multiple reads back to the nearest.
    const Placed places[] = {
        {"Label1", 120, 60, 1335, 255},          {"Aeroports", 60, 300, 2055, 1035},
        {"Année", 840, 1800, 1275, 255},         {"Label2", 120, 1980, 1335, 255},
        {"Mois", 60, 2160, 2055, 2010},          {"CheckCourbe(1)", 60, 4620, 2055, 255},
        {"CheckCourbe(2)", 60, 4860, 2055, 255}, {"CheckCourbe(3)", 60, 5100, 2055, 255},
        {"TxtTemp(0)", 2160, 5100, 495, 195},    {"Picture1", 2640, 210, 7455, 5535},
        {"TxtDeg(1)", 10200, 120, 495, 195},     {"TxtDeg(2)", 10200, 1320, 495, 195},
        {"TxtDeg(3)", 10200, 1680, 495, 195},    {"TxtDeg(0)", 10200, 2580, 495, 195},
        {"Jour(1)", 0, 5280, 255, 255},          {"Jour(31)", 7200, 5280, 255, 255},
        {"Bulletin", 60, 60, 2055, 2295},
    };
    for (const Placed& p : places) {
        const auto* w = f.findChild<QWidget*>(QString::fromUtf8(p.name));
        ASSERT_NE(w, nullptr) << p.name;
        EXPECT_EQ(LeftOf(w), p.left) << p.name;
        EXPECT_EQ(TopOf(w), p.top) << p.name;
        EXPECT_EQ(WidthOf(w), p.width) << p.name;
        EXPECT_EQ(HeightOf(w), p.height) << p.name;
    }
}

TEST_F(Statistics, TheListsHoldTheirItemsLetterForLetter) {
    StatistiqueMensuelle& f = Form();
    QStringList months;
    for (int i = 0; i < Named<ListBox>(f, QStringLiteral("Mois"))->ListCount(); ++i)
        months << Named<ListBox>(f, QStringLiteral("Mois"))->List(i);
    EXPECT_EQ(months, (QStringList{"January", "Febuary", "March", "April", "May", "June", "July", "August",
                                   "Septemberr", "October", "November", QStringLiteral("Décember")}));
    QStringList years;
    for (int i = 0; i < Named<ListBox>(f, QStringLiteral("Année"))->ListCount(); ++i)
        years << Named<ListBox>(f, QStringLiteral("Année"))->List(i);
    EXPECT_EQ(years, (QStringList{"2003", "2004", "2005"}));
    // The design item "Aeroports" is cleared by the airport list's filling.
    QStringList airports;
    for (int i = 0; i < Named<ListBox>(f, QStringLiteral("Aeroports"))->ListCount(); ++i)
        airports << Named<ListBox>(f, QStringLiteral("Aeroports"))->List(i);
    ASSERT_EQ(airports.size(), 3);
    EXPECT_TRUE(airports[0].contains(QStringLiteral("London")));
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Aeroports"))->ListIndex(), LineLeBourget);
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Aeroports"))->ItemData(LineLeBourget), LeBourget);
}

TEST_F(Statistics, TheCaptionsColoursAndTipsAreAsDesigned) {
    StatistiqueMensuelle& f = Form();
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label1"))->Caption(), QStringLiteral("Airport"));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Label2"))->Caption(), QStringLiteral("Mois"));
    const char* texts[] = {"Pressure Curve", "Temperature Curve", "Wind Curve"};
    const Color colours[] = {RGB(255, 255, 0), RGB(255, 0, 255), RGB(0, 0, 255)};
    for (int i = 1; i <= 3; ++i) {
        CheckBox* box = Named<CheckBox>(f, Indexed("CheckCourbe", i));
        EXPECT_EQ(box->text(), QString::fromUtf8(texts[i - 1]));
        EXPECT_EQ(box->ForeColor(), colours[i - 1]);
        EXPECT_EQ(box->Value(), 1);
    }
    EXPECT_EQ(Named<CheckBox>(f, Indexed("CheckCourbe", 2))->toolTip(),
              QStringLiteral("Montrer ou masquer la courbe de température (moyenne + mini + maxi)"));
    EXPECT_EQ(Named<CheckBox>(f, Indexed("CheckCourbe", 3))->toolTip(),
              QStringLiteral("Montrer ou masquer la courbe de zefir (moyenne + maxi + heure de maxi)"));
    EXPECT_EQ(Named<Label>(f, Indexed("TxtDeg", 1))->Caption(), QStringLiteral("40 °C"));
    EXPECT_EQ(Named<Label>(f, Indexed("TxtDeg", 3))->Caption(), QStringLiteral("1015"));
    EXPECT_EQ(TextColour(Named<Label>(f, Indexed("TxtDeg", 3))), QColor(128, 128, 0));
    EXPECT_EQ(TextColour(Named<Label>(f, Indexed("TxtTemp", 0))), QColor(0, 0, 128));
    EXPECT_DOUBLE_EQ(Named<Label>(f, Indexed("TxtTemp", 0))->font().pointSizeF(), 6.75);
    EXPECT_TRUE(Named<Label>(f, Indexed("TxtTemp", 0))->alignment() & Qt::AlignRight);
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 12))->objectName(), QStringLiteral("Jour(12)"));
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 12))->palette().color(QPalette::Window), QColor(224, 224, 224));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Bulletin"))->palette().color(QPalette::Window), QColor(192, 255, 255));
    EXPECT_FALSE(Named<Label>(f, QStringLiteral("Bulletin"))->isVisibleTo(&f));
}

TEST_F(Statistics, TheMenuHoldsImprimerAndFermer) {
    StatistiqueMensuelle& f = Form();
    ASSERT_NE(f.findChild<QMenu*>(QStringLiteral("MenuStat")), nullptr);
    EXPECT_EQ(Named<QMenu>(f, QStringLiteral("MenuStat"))->title(), QStringLiteral("Menu"));
    ASSERT_EQ(Named<QMenu>(f, QStringLiteral("MenuStat"))->actions().size(), 2);
    EXPECT_EQ(Named<QMenu>(f, QStringLiteral("MenuStat"))->actions()[0]->text(), QStringLiteral("Imprimer..."));
    EXPECT_EQ(Named<QMenu>(f, QStringLiteral("MenuStat"))->actions()[0]->objectName(),
              QStringLiteral("MenuStatImprimer"));
    EXPECT_EQ(Named<QMenu>(f, QStringLiteral("MenuStat"))->actions()[1]->text(), QStringLiteral("Fermer"));
}

TEST_F(Statistics, ThePlotLinesAndTheFrameStandWhereTheScalesReadThem) {
    StatistiqueMensuelle& f = Form();
    EXPECT_EQ(f.Lverticale.Y1, 5000);
    EXPECT_EQ(f.Lverticale.Y2, 0);
    EXPECT_EQ(f.Lhorizontale.X2, 7440);
    EXPECT_EQ(f.Lhorizontale.Y2, 5000);
    EXPECT_EQ(f.Line1[0].Y1, 2475);
    EXPECT_TRUE(f.Line1[0].Dotted);
    EXPECT_EQ(f.Line1[1].Y1, 1560);
    EXPECT_EQ(f.Line1[1].BorderColor, RGB(255, 255, 192));
    EXPECT_EQ(f.Lverticale.BorderColor, RGB(255, 0, 0));
    EXPECT_EQ(f.Shape1, QRect(0, 4980, 7455, 555));
}

TEST_F(Statistics, ThePlotsBitmapIsA16ColourGradientFromTopToBottom) {
    const QImage plot(QStringLiteral(":/statistics/plot.png"));
    ASSERT_FALSE(plot.isNull());
    EXPECT_EQ(plot.size(), QSize(525, 367));
    EXPECT_EQ(plot.colorCount(), 16);
    EXPECT_EQ(plot.pixelColor(0, 0), QColor(193, 255, 255));
    EXPECT_EQ(plot.pixelColor(524, 366), QColor(253, 255, 255));
    for (int i = 0; i < 16; ++i) EXPECT_EQ(plot.colorTable()[i], qRgb(193 + 4 * i, 255, 255));
    // Each row is of one colour, and the rows only grow redder downwards.
    for (int y = 1; y < plot.height(); ++y) {
        EXPECT_EQ(plot.pixel(0, y), plot.pixel(524, y));
        EXPECT_GE(qRed(plot.pixel(0, y)), qRed(plot.pixel(0, y - 1)));
    }
}

// ---- Form_Load

TEST_F(Statistics, OpeningTheWindowDrawsNothingOnThePlot) {
    Observe(LeBourget, QDate(2004, 3, 5), QTime(10, 0), 20);
    StatistiqueMensuelle& f = Form();
    // Steps 3 to 5 raised the lists' clicks, which found StatPrete still False.
    EXPECT_EQ(f.StatPrete, -1);
    const QImage opened = Named<PlotPicture>(f, QStringLiteral("Picture1"))->Snapshot();
    Named<PlotPicture>(f, QStringLiteral("Picture1"))->Cls();
    EXPECT_EQ(opened, Named<PlotPicture>(f, QStringLiteral("Picture1"))->Snapshot());
    // The bitmap shows, and the red frame and the dotted lines stand above it.
    EXPECT_EQ(opened.pixelColor(200, 2), QColor(193, 255, 255));
    const QImage shown = Named<PlotPicture>(f, QStringLiteral("Picture1"))->grab().toImage();
    EXPECT_EQ(shown.pixelColor(0, 100), QColor(255, 0, 0));  // Lverticale
    EXPECT_EQ(shown.pixelColor(200, 0), QColor(255, 0, 0));  // Line3
    for (int i = 1; i <= 31; ++i) {
        EXPECT_EQ(Named<Label>(f, Indexed("Jour", i))->Caption(), QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')));
        EXPECT_TRUE(Named<Label>(f, Indexed("Jour", i))->Tag.isEmpty());
    }
    // Hovering a day brings up an empty pop-up.
    MoveOver(Named<Label>(f, Indexed("Jour", 5)));
    EXPECT_TRUE(Named<Label>(f, QStringLiteral("Bulletin"))->isVisibleTo(&f));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Bulletin"))->Caption(), QString());
}

TEST_F(Statistics, OpeningInJanuarySelectsTheFirstMonth) {
    clock.Set(QDateTime(QDate(2005, 1, 1), QTime(0, 0)));
    StatistiqueMensuelle& f = Form();
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Mois"))->ListIndex(), 0);
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Année"))->ListIndex(), 2);
}

TEST_F(Statistics, OpeningInDecemberSelectsTheTwelfthMonth) {
    clock.Set(QDateTime(QDate(2003, 12, 31), QTime(23, 59)));
    StatistiqueMensuelle& f = Form();
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Mois"))->ListIndex(), 11);
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Année"))->ListIndex(), 0);
}

TEST_F(Statistics, OpeningInAYearOutsideTheListFailsAtTheYear) {
    clock.Set(QDateTime(QDate(2006, 3, 1), QTime(12, 0)));
    StatistiqueMensuelle form(forms);
    EXPECT_EQ(ErrorOf([&] { form.Form_Load(); }), InvalidPropertyValue);
    // The month came before, the scale and StatPrete after.
    EXPECT_EQ(Named<ListBox>(form, QStringLiteral("Mois"))->ListIndex(), 2);
    EXPECT_EQ(form.findChildren<Label*>(QRegularExpression(QStringLiteral("^TxtTemp\\("))).size(), 1);
    EXPECT_EQ(form.StatPrete, 0);
}

TEST_F(Statistics, OpeningInAYearBeforeTheListFailsAtTheYearAsAfterIt) {
    for (const int year : {2002, 2001}) {
        clock.Set(QDateTime(QDate(year, 3, 1), QTime(12, 0)));
        StatistiqueMensuelle form(forms);
        EXPECT_EQ(ErrorOf([&] { form.Form_Load(); }), InvalidPropertyValue) << year;
        EXPECT_EQ(Named<ListBox>(form, QStringLiteral("Mois"))->ListIndex(), 2);
        EXPECT_EQ(Named<ListBox>(form, QStringLiteral("Année"))->ListIndex(), -1);
        EXPECT_EQ(form.findChildren<Label*>(QRegularExpression(QStringLiteral("^TxtTemp\\("))).size(), 1);
        EXPECT_EQ(form.StatPrete, 0);
    }
}

TEST_F(Statistics, OpeningWithoutADatabaseFailsAtTheAirports) {
    ASSERT_TRUE(QFile::remove(db.Path()));
    StatistiqueMensuelle form(forms);
    EXPECT_EQ(ErrorOf([&] { form.Form_Load(); }), DaoFileNotFound);
    EXPECT_EQ(form.StatPrete, 0);
}

TEST_F(Statistics, TheWindScaleIsLoadedEveryFiveKnotsFromThePlotsDesignTop) {
    StatistiqueMensuelle& f = Form();
    ASSERT_EQ(f.findChildren<Label*>(QRegularExpression(QStringLiteral("^TxtTemp\\("))).size(), 11);
    // Top = 204 + 5000 - 100 i - 195 / 2 = 5106.5 - 100 i, to the even whole number: 4606 twips
    // for 5 knots down to 106 for 50, each kept in whole pixels (15 twips to the pixel).
    const struct {
        int knots;
        int twips;
        int pixels;
    } scale[] = {{5, 4606, 307},  {10, 4106, 274}, {15, 3606, 240}, {20, 3106, 207}, {25, 2606, 174},
                 {30, 2106, 140}, {35, 1606, 107}, {40, 1106, 74},  {45, 606, 40},   {50, 106, 7}};
    for (const auto& [knots, twips, pixels] : scale) {
        SCOPED_TRACE(twips);
        Label* label = Named<Label>(f, Indexed("TxtTemp", knots));
        EXPECT_EQ(label->objectName(), QStringLiteral("TxtTemp(%1)").arg(knots));
        EXPECT_EQ(label->Caption(), QStringLiteral("%1 nds").arg(knots));
        EXPECT_TRUE(label->isVisibleTo(&f));
        EXPECT_EQ(label->y(), pixels);
        EXPECT_EQ(label->x(), 144);  // TxtTemp(0)'s left, 2160 twips
    }
}

// ---- The lists and the check boxes

TEST_F(Statistics, ChangingTheYearAloneLeavesThePlotAsItIs) {
    Observe(LeBourget, QDate(2004, 3, 5), QTime(10, 0), 20);
    Observe(LeBourget, QDate(2003, 3, 9), QTime(10, 0), 30);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    ASSERT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 5))->Tag.startsWith(QStringLiteral("Secteur")));
    recording.Clear();
    Named<ListBox>(f, QStringLiteral("Année"))->SetListIndex(0);  // 2003: the list has no handler
    EXPECT_TRUE(recording.Calls().empty());
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 9))->Tag.isEmpty());
    // A click on the month already selected redraws with the new year.
    Named<ListBox>(f, QStringLiteral("Mois"))->SetListIndex(2);
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 9))->Tag.contains(QStringLiteral("Maxi    30 Nds")));
}

TEST_F(Statistics, AClickOnTheMonthSelectedAtOpeningDrawsIt) {
    Observe(LeBourget, QDate(2004, 3, 5), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    f.show();
    ASSERT_EQ(Named<ListBox>(f, QStringLiteral("Aeroports"))->ListIndex(), LineLeBourget);
    ASSERT_EQ(Named<ListBox>(f, QStringLiteral("Mois"))->ListIndex(), 2);
    recording.Clear();
    QTest::mouseClick(Named<ListBox>(f, QStringLiteral("Mois"))->viewport(), Qt::LeftButton, {},
                      Named<ListBox>(f, QStringLiteral("Mois"))
                          ->visualItemRect(Named<ListBox>(f, QStringLiteral("Mois"))->item(2))
                          .center());
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 5))->Tag.contains(QStringLiteral("Maxi    20 Nds")));
    f.hide();
}

TEST_F(Statistics, AClickOnTheAirportSelectedAtOpeningDrawsIt) {
    Observe(LeBourget, QDate(2004, 3, 5), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    f.show();
    recording.Clear();
    const QRect line = Named<ListBox>(f, QStringLiteral("Aeroports"))
                           ->visualItemRect(Named<ListBox>(f, QStringLiteral("Aeroports"))->item(LineLeBourget));
    QTest::mouseClick(Named<ListBox>(f, QStringLiteral("Aeroports"))->viewport(), Qt::LeftButton, {}, line.center());
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 5))->Tag.contains(QStringLiteral("Maxi    20 Nds")));
    f.hide();
}

TEST_F(Statistics, ALaterClickOnTheSelectedMonthRedrawsWithTheNewYear) {
    Observe(LeBourget, QDate(2004, 3, 5), QTime(10, 0), 20);
    Observe(LeBourget, QDate(2003, 3, 9), QTime(10, 0), 30);
    StatistiqueMensuelle& f = FormOnRecording();
    f.show();
    const QPoint mars = Named<ListBox>(f, QStringLiteral("Mois"))
                            ->visualItemRect(Named<ListBox>(f, QStringLiteral("Mois"))->item(2))
                            .center();
    QTest::mouseClick(Named<ListBox>(f, QStringLiteral("Mois"))->viewport(), Qt::LeftButton, {}, mars);
    ASSERT_TRUE(Named<Label>(f, Indexed("Jour", 9))->Tag.isEmpty());
    // 2003 chosen with the mouse: the year list has no handler, so nothing is drawn yet.
    recording.Clear();
    QTest::mouseClick(Named<ListBox>(f, QStringLiteral("Année"))->viewport(), Qt::LeftButton, {},
                      Named<ListBox>(f, QStringLiteral("Année"))
                          ->visualItemRect(Named<ListBox>(f, QStringLiteral("Année"))->item(0))
                          .center());
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("Année"))->ListIndex(), 0);
    EXPECT_TRUE(recording.Calls().empty());
    QTest::mouseClick(Named<ListBox>(f, QStringLiteral("Mois"))->viewport(), Qt::LeftButton, {}, mars);
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 9))->Tag.contains(QStringLiteral("Maxi    30 Nds")));
    f.hide();
}

TEST_F(Statistics, UncheckingTheTemperatureBoxGreysItAndCheckingRestoresItsColour) {
    StatistiqueMensuelle& f = FormOnRecording();
    CheckBox* box = Named<CheckBox>(f, Indexed("CheckCourbe", 2));
    box->click();
    EXPECT_EQ(box->Value(), 0);
    EXPECT_EQ(box->ForeColor(), RGB(128, 128, 128));
    EXPECT_EQ(TextColour(box), QColor(128, 128, 128));
    EXPECT_EQ(box->Tag, QString::number(RGB(255, 0, 255)));
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    box->click();
    EXPECT_EQ(box->Value(), 1);
    EXPECT_EQ(box->ForeColor(), RGB(255, 0, 255));
    EXPECT_EQ(TextColour(box), QColor(255, 0, 255));
    EXPECT_EQ(recording.Count(DrawOp::Cls), 2);
}

TEST_F(Statistics, ChangingAValueByCodeRaisesTheBoxsClick) {
    StatistiqueMensuelle& f = FormOnRecording();
    Named<CheckBox>(f, Indexed("CheckCourbe", 1))->SetValue(0);
    EXPECT_EQ(Named<CheckBox>(f, Indexed("CheckCourbe", 1))->ForeColor(), RGB(128, 128, 128));
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_EQ(ErrorOf([&] { Named<CheckBox>(f, Indexed("CheckCourbe", 1))->SetValue(2); }), InvalidPropertyValue);
}

// ---- The pop-up text

TEST_F(Statistics, ThePopUpStaysOverThePlotGoesOnTheFormAndComesBackOnACell) {
    Observe(LeBourget, QDate(2004, 3, 7), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    MoveOver(Named<Label>(f, Indexed("Jour", 7)));
    ASSERT_TRUE(Named<Label>(f, QStringLiteral("Bulletin"))->isVisibleTo(&f));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Bulletin"))->Caption(), Named<Label>(f, Indexed("Jour", 7))->Tag);
    EXPECT_TRUE(
        Named<Label>(f, QStringLiteral("Bulletin"))->Caption().startsWith(QStringLiteral("Secteur West South West °")));
    const QRect place = Named<Label>(f, QStringLiteral("Bulletin"))->geometry();
    // Over the rest of the plot, and over a list: the text stays.
    MoveOver(Named<PlotPicture>(f, QStringLiteral("Picture1")), QPoint(300, 200));
    MoveOver(Named<ListBox>(f, QStringLiteral("Mois")));
    EXPECT_TRUE(Named<Label>(f, QStringLiteral("Bulletin"))->isVisibleTo(&f));
    // On the form's own background it goes.
    MoveOver(Named<SurfaceWidget>(f, QStringLiteral("Client")), QPoint(5, 380));
    EXPECT_FALSE(Named<Label>(f, QStringLiteral("Bulletin"))->isVisibleTo(&f));
    // On a cell again it comes back, in the same place, with nothing else changed.
    recording.Clear();
    MoveOver(Named<Label>(f, Indexed("Jour", 7)));
    EXPECT_TRUE(Named<Label>(f, QStringLiteral("Bulletin"))->isVisibleTo(&f));
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Bulletin"))->geometry(), place);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Bulletin"))->Caption(), Named<Label>(f, Indexed("Jour", 7))->Tag);
    EXPECT_TRUE(recording.Calls().empty());
}

TEST_F(Statistics, EachDayCellShowsItsTextAsATipToo) {
    Observe(LeBourget, QDate(2004, 3, 7), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_FALSE(Named<Label>(f, Indexed("Jour", 7))->toolTip().isEmpty());
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 7))->toolTip(), Named<Label>(f, Indexed("Jour", 7))->Tag);
}

// ---- Closing

TEST_F(Statistics, FermerClearsTheFormsSurfaceAndUnloadsIt) {
    StatistiqueMensuelle& f = Form();
    f.show();
    Named<SurfaceWidget>(f, QStringLiteral("Client"))->Line(0, 0, 3000, 3000, RGB(255, 0, 0));
    QPointer<StatistiqueMensuelle> form(&f);
    Named<QAction>(f, QStringLiteral("MenuStatFermer"))->trigger();
    EXPECT_EQ(f.StatPrete, 0);
    EXPECT_FALSE(f.isVisible());
    DeleteClosed();
    EXPECT_TRUE(form.isNull());
    EXPECT_FALSE(forms.Loaded<StatistiqueMensuelle>());
}

TEST_F(Statistics, ClosingAndReopeningBringsBackCheckedBoxesAndEmptyCells) {
    Observe(LeBourget, QDate(2004, 3, 7), QTime(10, 0), 20);
    {
        StatistiqueMensuelle& f = FormOnRecording();
        Show(f, LineLeBourget, 3);
        Named<CheckBox>(f, Indexed("CheckCourbe", 1))->click();
        Named<CheckBox>(f, Indexed("CheckCourbe", 3))->click();
        ASSERT_FALSE(Named<Label>(f, Indexed("Jour", 7))->Tag.isEmpty());
        f.show();
        f.close();  // the close box
        EXPECT_EQ(f.StatPrete, 0);
    }
    DeleteClosed();
    ASSERT_FALSE(forms.Loaded<StatistiqueMensuelle>());
    StatistiqueMensuelle& again = Form();
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(Named<CheckBox>(again, Indexed("CheckCourbe", i))->Value(), 1) << i;
    for (int i = 1; i <= 31; ++i) {
        EXPECT_TRUE(Named<Label>(again, Indexed("Jour", i))->Tag.isEmpty());
        EXPECT_TRUE(Named<Label>(again, Indexed("Jour", i))->toolTip().isEmpty());
    }
    EXPECT_EQ(again.findChildren<Label*>(QRegularExpression(QStringLiteral("^TxtTemp\\("))).size(), 11);
    EXPECT_EQ(again.StatPrete, -1);
}

}  // namespace
