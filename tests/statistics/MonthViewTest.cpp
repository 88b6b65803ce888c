// The month view on a recording surface: the grid, the day texts, the bars with their classes,
// the six curves, the arrows, and what the skip-and-continue mode makes of Nulls, strong winds and
// a missing database.
#include "StatisticsFixture.h"

#include "Controls.h"
#include "Failure.h"
#include "Failures.h"
#include "Text.h"

#include <QFile>

#include <algorithm>

using namespace skelda;
using namespace skelda::test;

namespace {

const QDate March(2004, 3, 1);
constexpr Color GridGrey = RGB(224, 224, 224);

// The middle of a day's column on the screen.
double Centre(int day) { return 127.5 + 240 * (day - 1); }

class MonthView : public Statistics {
protected:
    // The boxes drawn with their left edge at X.
    std::vector<DrawCall> BoxesAt(double x) const {
        std::vector<DrawCall> found;
        for (const DrawCall& c : recording.Boxes())
            if (c.x1 == x) found.push_back(c);
        return found;
    }
    // The arrows' strokes: lines in colour 150.
    std::vector<DrawCall> Arrows() const { return LinesIn(150); }
    std::vector<DrawCall> LinesIn(Color colour) const {
        std::vector<DrawCall> found;
        for (const DrawCall& c : recording.Lines())
            if (c.color == colour) found.push_back(c);
        return found;
    }
    std::vector<DrawCall> CirclesEdged(Color colour) const {
        std::vector<DrawCall> found;
        for (const DrawCall& c : recording.Circles())
            if (c.color == colour) found.push_back(c);
        return found;
    }
    int GridLines() const { return int(LinesIn(GridGrey).size()); }
    // Sets a column of the stored rows of a day to Null.
    void SetNull(const char* column, QDate day) {
        ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE Zefir SET \"%1\" = NULL WHERE daterelevé = '%2'")
                                .arg(QString::fromUtf8(column), day.toString(Qt::ISODate))));
    }
};

// ---- The frame of a call

TEST_F(MonthView, AMonthWithoutRowsDrawsTheGridAloneLeavesTheTagsAndClosesBoth) {
    Observe(LeBourget, MarchDay(5), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const QString march5 = Named<Label>(f, Indexed("Jour", 5))->Tag;
    ASSERT_FALSE(march5.isEmpty());
    Database base;
    Recordset rows;
    f.WatchRowLoop([&] {
        base = f.BaseMois;
        rows = f.JeuMois;
    });
    recording.Clear();
    Named<ListBox>(f, QStringLiteral("Mois"))->SetListIndex(3);  // April: no row
    EXPECT_EQ(recording.Ops().front(), DrawOp::Cls);
    EXPECT_EQ(recording.Count(DrawOp::Line), 24 + 31);
    EXPECT_EQ(GridLines(), 24 + 31);
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);
    EXPECT_EQ(recording.Count(DrawOp::Circle), 0);
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 5))->Tag, march5);
    // Both were open during the loop and are closed and released after it.
    ASSERT_FALSE(rows.IsNothing());
    EXPECT_EQ(ErrorOf([&] { (void)rows.Eof(); }), DaoObjectInvalid);
    EXPECT_EQ(ErrorOf([&] { (void)base.OpenRecordset(QStringLiteral("Zefir")); }), DaoObjectInvalid);
    EXPECT_TRUE(f.JeuMois.IsNothing());
    EXPECT_TRUE(f.BaseMois.IsNothing());
}

TEST_F(MonthView, TheGridHas24LinesEvery200And31AtTheRightOfTheCells) {
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const auto lines = LinesIn(GridGrey);
    ASSERT_EQ(lines.size(), 55u);
    for (int k = 1; k <= 24; ++k) {
        const DrawCall& l = lines[size_t(k - 1)];
        EXPECT_EQ(l.y1, 5000 - 200 * k);
        EXPECT_EQ(l.y2, l.y1);
        EXPECT_EQ(l.x1, 15);
        EXPECT_EQ(l.x2, 7425);
    }
    for (int d = 1; d <= 31; ++d) {
        const DrawCall& l = lines[size_t(24 + d - 1)];
        EXPECT_EQ(l.x1, 240 * (d - 1) + 255);
        EXPECT_EQ(l.y1, 5000);
        EXPECT_EQ(l.y2, 0);
    }
    // Before the grid: clear, solid fill, red.
    const auto ops = recording.Ops();
    EXPECT_EQ(std::vector<DrawOp>(ops.begin(), ops.begin() + 3),
              (std::vector<DrawOp>{DrawOp::Cls, DrawOp::SetFillStyle, DrawOp::SetFillColor}));
    EXPECT_EQ(recording.Calls()[2].color, Color(255));
}

TEST_F(MonthView, NothingIsDrawnWhileTheFormIsNotReady) {
    StatistiqueMensuelle& f = FormOnRecording();
    f.StatPrete = 0;
    f.AfficherMois();
    EXPECT_TRUE(recording.Calls().empty());
}

// ---- The day text

TEST_F(MonthView, TheDayTextHasItsNineLinesWithTheDefaultTimeForm) {
    Observe(LeBourget, MarchDay(5), QTime(9, 30), 10, QStringLiteral("240"), 11, 1012);
    Observe(LeBourget, MarchDay(5), QTime(14, 0), 20, QStringLiteral("090"), 15, 1018);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const QString expected = QStringLiteral(
        "Secteur East °\r\n"
        "Moyen   15 Nds\r\n"
        "Maxi    20 Nds à 14:00:00\r\n\r\n"
        "T° moy  13 °C\r\n"
        "T° maxi 15 °C\r\n"
        "T° mini 11 °C\r\n"
        "P  moy  1015 Hpa\r\n"
        "P  maxi 1018 Hpa\r\n"
        "P  mini 1012 Hpa\r\n");
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 5))->Tag, expected);
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 5))->toolTip(), expected);
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 5))->Caption(), QStringLiteral("05"));  // captions never change
}

TEST_F(MonthView, TheMeanWindIsRoundedHalvesToEvenInTheText) {
    Observe(LeBourget, MarchDay(2), QTime(9, 0), 12);
    Observe(LeBourget, MarchDay(2), QTime(10, 0), 13);  // 12.5
    Observe(LeBourget, MarchDay(3), QTime(9, 0), 13);
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 14);  // 13.5
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 2))->Tag.contains(QStringLiteral("Moyen   12 Nds\r\n")));
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 3))->Tag.contains(QStringLiteral("Moyen   14 Nds\r\n")));
}

TEST_F(MonthView, ANullInTheTextLeavesTheLabelAndTheUnit) {
    Observe(LeBourget, MarchDay(4), QTime(10, 0), 10, QStringLiteral("240"), std::nullopt, std::nullopt);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const QString text = Named<Label>(f, Indexed("Jour", 4))->Tag;
    EXPECT_TRUE(text.contains(QStringLiteral("T° moy   °C\r\nT° maxi  °C\r\nT° mini  °C\r\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("P  moy   Hpa\r\nP  maxi  Hpa\r\nP  mini  Hpa\r\n")));
    // Neither curve has a dot: their tests look at the Null means.
    EXPECT_EQ(recording.Count(DrawOp::Circle), 1);  // the arrow's dot alone
}

TEST_F(MonthView, ANullDirectionKeepsThePreviousTextAndDrawsNoArrow) {
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 10);
    Observe(LeBourget, MarchDay(4), QTime(10, 0), 20);
    SetNull("orientationdegré", MarchDay(4));
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const QString day3 = Named<Label>(f, Indexed("Jour", 3))->Tag;
    // Day 4's lines are appended to the whole text of day 3, with no line of its own direction.
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 4))->Tag.startsWith(day3));
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 4))->Tag.mid(day3.size()).startsWith(QStringLiteral("Moyen   20 Nds")));
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 4))->Tag.count(QStringLiteral("Secteur")), 1);
    const auto arrows = Arrows();
    ASSERT_EQ(arrows.size(), 1u);
    EXPECT_NEAR((arrows[0].x1 + arrows[0].x2) / 2, Centre(3), 1e-9);
}

TEST_F(MonthView, ADayWhosePeakIsAVariableWindKeepsThePreviousTextAndDrawsNoArrow) {
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 10);
    // Day 4 peaks at 20 knots variable, which has no direction; its steady wind came later.
    ObserveVariable20Knots(LeBourget, MarchDay(4), QTime(9, 0));
    Observe(LeBourget, MarchDay(4), QTime(10, 0), 5, QStringLiteral("120"));
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const QString day3 = Named<Label>(f, Indexed("Jour", 3))->Tag;
    ASSERT_TRUE(day3.startsWith(QStringLiteral("Secteur West South West °\r\n")));
    // No "Secteur North": day 4's lines follow the whole text of day 3.
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 4))->Tag.startsWith(day3));
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 4))
                    ->Tag.mid(day3.size())
                    .startsWith(QStringLiteral("Moyen   12 Nds\r\nMaxi    20 Nds à 09:00:00")));
    EXPECT_FALSE(Named<Label>(f, Indexed("Jour", 4))->Tag.contains(QStringLiteral("North")));
    const auto arrows = Arrows();
    ASSERT_EQ(arrows.size(), 1u);
    EXPECT_NEAR((arrows[0].x1 + arrows[0].x2) / 2, Centre(3), 1e-9);
    // The bars of day 4 are drawn all the same.
    EXPECT_EQ(BoxesAt(240 * 3 + 30).size(), 1u);
}

// ---- The bars

TEST_F(MonthView, TheBarsStandOnTheFootNarrowMaximumUnderFullMean) {
    Observe(LeBourget, MarchDay(5), QTime(9, 0), 10);
    Observe(LeBourget, MarchDay(5), QTime(15, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const PaletteForceTable& palette = forms.module1().PaletteForce;
    const auto narrow = BoxesAt(240 * 4 + 30);
    const auto full = BoxesAt(240 * 4);
    ASSERT_EQ(narrow.size(), 1u);
    ASSERT_EQ(full.size(), 1u);
    EXPECT_EQ(narrow[0].y1, 5000);
    EXPECT_EQ(narrow[0].x2, 240 * 4 + 30 + 180);
    EXPECT_EQ(narrow[0].y2, 5000 - 2000);
    EXPECT_EQ(narrow[0].color, vbWindowBackground);
    EXPECT_EQ(narrow[0].fillColor, palette(4));  // (20 - 1) / 5 = 3.8
    EXPECT_EQ(full[0].x2, 240 * 4 + 240);
    EXPECT_EQ(full[0].y2, 5000 - 1500);
    EXPECT_FALSE(full[0].color.has_value());   // the surface's ForeColor
    EXPECT_EQ(full[0].fillColor, palette(3));  // (15 - 1) / 5 = 2.8
    EXPECT_TRUE(full[0].Filled());
    // The mean comes after the maximum, over its foot.
    const auto boxes = recording.Boxes();
    EXPECT_EQ(boxes[0].x1, 240 * 4 + 30);
    EXPECT_EQ(boxes[1].x1, 240 * 4);
}

TEST_F(MonthView, TheWindClassesOfTheMaximum) {
    const std::pair<int, int> classes[] = {{0, 0}, {1, 0}, {3, 0}, {4, 1}, {8, 1}, {9, 2}, {53, 10}};
    StatistiqueMensuelle& f = FormOnRecording();
    const PaletteForceTable& palette = forms.module1().PaletteForce;
    int day = 1;
    for (const auto& [knots, classe] : classes) Observe(LeBourget, MarchDay(day++), QTime(10, 0), knots);
    Show(f, LineLeBourget, 3);
    day = 1;
    for (const auto& [knots, classe] : classes) {
        const auto narrow = BoxesAt(240 * (day - 1) + 30);
        ASSERT_EQ(narrow.size(), 1u) << knots;
        EXPECT_EQ(narrow[0].fillColor, palette(classe)) << knots;
        ++day;
    }
}

TEST_F(MonthView, AMeanOfThreeAndAHalfIsClassZero) {
    Observe(LeBourget, MarchDay(6), QTime(9, 0), 3);
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 4);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const auto full = BoxesAt(240 * 5);
    ASSERT_EQ(full.size(), 1u);
    EXPECT_EQ(full[0].fillColor, forms.module1().PaletteForce(0));
}

TEST_F(MonthView, FiftyFourKnotsFailTheLookupAndKeepTheFillColourButTheBarIsDrawn) {
    Observe(LeBourget, MarchDay(1), QTime(10, 0), 54);
    Observe(LeBourget, MarchDay(2), QTime(10, 0), 60);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    // The first row keeps the red of the start; the next the fill the arrow left, 150.
    const auto first = BoxesAt(30);
    ASSERT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0].fillColor, Color(255));
    EXPECT_EQ(first[0].y2, 5000 - 5400);
    const auto second = BoxesAt(240 + 30);
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0].fillColor, Color(150));
    EXPECT_EQ(BoxesAt(240).size(), 1u);
    EXPECT_EQ(BoxesAt(240)[0].fillColor, Color(150));
}

TEST_F(MonthView, ANullMaximumDrawsNoBarAndLeavesTheClassAsItWas) {
    Observe(LeBourget, MarchDay(1), QTime(10, 0), 20);
    Observe(LeBourget, MarchDay(2), QTime(10, 0), 30);
    SetNull("forcenoeuds", MarchDay(2));
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_EQ(BoxesAt(30).size(), 1u);
    EXPECT_EQ(BoxesAt(240 + 30).size(), 0u);
    EXPECT_EQ(BoxesAt(240).size(), 0u);
    // The class of the last row (the mean of day 1, 20 knots, class 4) sets the fill colours.
    const auto fills = recording.Calls(DrawOp::SetFillColor);
    const PaletteForceTable& palette = forms.module1().PaletteForce;
    EXPECT_GE(std::count_if(fills.begin(), fills.end(), [&](const DrawCall& c) { return c.color == palette(4); }), 4);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 2))->Tag.contains(QStringLiteral("Maxi     Nds à")));
}

TEST_F(MonthView, AllBoxesUncheckedStillShowTheArrowsAndWriteTheTexts) {
    Observe(LeBourget, MarchDay(8), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    for (int i = 1; i <= 3; ++i) Named<CheckBox>(f, Indexed("CheckCourbe", i))->SetValue(0);
    Named<Label>(f, Indexed("Jour", 8))->Tag.clear();
    Named<Label>(f, Indexed("Jour", 8))->setToolTip(QString());
    recording.Clear();
    f.AfficherMois();
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);
    EXPECT_EQ(Arrows().size(), 1u);
    EXPECT_EQ(recording.Count(DrawOp::Circle), 1);
    EXPECT_FALSE(Named<Label>(f, Indexed("Jour", 8))->Tag.isEmpty());
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 8))->toolTip(), Named<Label>(f, Indexed("Jour", 8))->Tag);
}

// ---- The curves and the arrows

TEST_F(MonthView, TheFirstRowDrawsOneDotPerCurveAndNoSegment) {
    Observe(LeBourget, MarchDay(10), QTime(10, 0), 10, QStringLiteral("240"), 20, 1015);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const auto circles = recording.Circles();
    ASSERT_EQ(circles.size(), 7u);  // six dots and the arrow's
    const Color edges[] = {RGB(230, 230, 170), RGB(230, 230, 170), RGB(128, 128, 0),
                           RGB(192, 192, 255), RGB(192, 192, 255), RGB(192, 0, 192)};
    const Color fills[] = {RGB(255, 255, 220), RGB(255, 255, 220), RGB(255, 255, 192),
                           RGB(220, 220, 255), RGB(220, 220, 255), RGB(255, 192, 255)};
    for (size_t k = 0; k < 6; ++k) {
        EXPECT_EQ(circles[k].color, edges[k]) << k;
        EXPECT_EQ(circles[k].fillColor, fills[k]) << k;
        EXPECT_EQ(circles[k].radius, 48);
        EXPECT_EQ(circles[k].x1, Centre(10));
        EXPECT_EQ(circles[k].drawWidth, 1);
    }
    // 1015 hPa at 1562.5, to the even 1562; 20 degrees at 1225.
    EXPECT_EQ(circles[0].y1, 1562);
    EXPECT_EQ(circles[3].y1, 1225);
    // No segment: the only lines are the grid and the arrow.
    EXPECT_EQ(recording.Count(DrawOp::Line), 55 + 1);
}

TEST_F(MonthView, DaysThreeFourAndNineGiveBarsThereAndTwoSegmentsPerCurve) {
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 10, QStringLiteral("240"), 10, 1000);
    Observe(LeBourget, MarchDay(4), QTime(10, 0), 20, QStringLiteral("240"), 12, 1010);
    Observe(LeBourget, MarchDay(9), QTime(10, 0), 30, QStringLiteral("240"), 14, 1020);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    for (int d : {3, 4, 9}) EXPECT_EQ(BoxesAt(240 * (d - 1)).size(), 1u) << d;
    EXPECT_EQ(recording.Count(DrawOp::Box), 6);
    const auto arrows = Arrows();
    ASSERT_EQ(arrows.size(), 3u);
    for (size_t k = 0; k < 3; ++k) {
        const int d = std::array{3, 4, 9}[k];
        EXPECT_NEAR((arrows[k].x1 + arrows[k].x2) / 2, Centre(d), 1e-9);
        EXPECT_NEAR((arrows[k].y1 + arrows[k].y2) / 2, 5120, 1e-9);
    }
    // Mean pressure: 3 -> 4, then 4 -> 9 across the days without rows.
    const auto pressure = LinesIn(RGB(128, 128, 0));
    ASSERT_EQ(pressure.size(), 2u);
    EXPECT_EQ(pressure[0].x1, Centre(3));
    EXPECT_EQ(pressure[0].x2, Centre(4));
    EXPECT_EQ(pressure[1].x1, Centre(4));
    EXPECT_EQ(pressure[1].x2, Centre(9));
    EXPECT_EQ(pressure[1].drawWidth, 2);
    EXPECT_EQ(LinesIn(RGB(230, 230, 170)).size(), 4u);  // lowest and highest pressure
    EXPECT_EQ(LinesIn(RGB(192, 192, 255)).size(), 4u);
    EXPECT_EQ(LinesIn(RGB(192, 0, 192)).size(), 2u);
    // The segment ends at the unrounded value: 1010 hPa at 3125.
    EXPECT_EQ(pressure[0].y2, 5000 - (50 / 80.0) * 5000);
}

TEST_F(MonthView, TheNewestDotOfTheOuterPressureCurvesIsEdgedWarmer) {
    Observe(LeBourget, MarchDay(3), QTime(10, 0), 10, QStringLiteral("240"), 10, 1000);
    Observe(LeBourget, MarchDay(4), QTime(10, 0), 20, QStringLiteral("240"), 12, 1010);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    // RGB(1230, 230, 170): the red part counts as 255.
    const auto newest = CirclesEdged(RGB(255, 230, 170));
    ASSERT_EQ(newest.size(), 2u);
    for (const DrawCall& c : newest) EXPECT_EQ(c.x1, Centre(4));
    // The previous dot is drawn again over the segment's end, in the old edge.
    const auto old = CirclesEdged(RGB(230, 230, 170));
    ASSERT_EQ(old.size(), 4u);
    for (const DrawCall& c : old) EXPECT_EQ(c.x1, Centre(3));
}

TEST_F(MonthView, ExtremePressuresAreNotClipped) {
    Observe(LeBourget, MarchDay(1), QTime(10, 0), 10, QStringLiteral("240"), 10, 1040);
    Observe(LeBourget, MarchDay(2), QTime(10, 0), 10, QStringLiteral("240"), 10, 950);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const auto mean = CirclesEdged(RGB(128, 128, 0));
    ASSERT_EQ(mean.size(), 3u);  // the first dot, the old one again, the new one
    EXPECT_EQ(mean[0].y1, 0);
    EXPECT_EQ(mean[2].y1, 5625);
}

TEST_F(MonthView, WithNoPressureAtAllThePressureCurvesAreLeftOut) {
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 10, QStringLiteral("240"), 10, std::nullopt);
    Observe(LeBourget, MarchDay(7), QTime(10, 0), 10, QStringLiteral("240"), 10, 1000);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const auto mean = CirclesEdged(RGB(128, 128, 0));
    ASSERT_EQ(mean.size(), 1u);
    EXPECT_EQ(mean[0].x1, Centre(7));
}

TEST_F(MonthView, AfterARowTheSurfaceKeepsTheArrowsFillAndWidthOne) {
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 10);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_EQ(recording.DrawWidth(), 1);
    EXPECT_EQ(recording.FillStyle(), vbFSSolid);
    EXPECT_EQ(recording.FillColor(), Color(150));
}

// ---- Months and stale texts

TEST_F(MonthView, AThirtyDayMonthLeavesDay31EmptyAndItsGridLineStands) {
    Observe(LeBourget, QDate(2004, 4, 30), QTime(10, 0), 10);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 4);
    EXPECT_TRUE(BoxesAt(240 * 30).empty());
    EXPECT_EQ(BoxesAt(240 * 29).size(), 1u);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 31))->Tag.isEmpty());
    const auto grid = LinesIn(GridGrey);
    EXPECT_EQ(grid.back().x1, 7455);
}

TEST_F(MonthView, AprilStillShowsMarchsTextOnDay31) {
    Observe(LeBourget, MarchDay(31), QTime(10, 0), 17);
    Observe(LeBourget, QDate(2004, 4, 2), QTime(10, 0), 5);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    const QString march31 = Named<Label>(f, Indexed("Jour", 31))->Tag;
    ASSERT_TRUE(march31.contains(QStringLiteral("Maxi    17 Nds")));
    Named<ListBox>(f, QStringLiteral("Mois"))->SetListIndex(3);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 2))->Tag.contains(QStringLiteral("Maxi    5 Nds")));
    f.Jour_MouseMove(31, 0, 0, 0, 0);
    EXPECT_EQ(Named<Label>(f, QStringLiteral("Bulletin"))->Caption(), march31);
    EXPECT_EQ(Named<Label>(f, Indexed("Jour", 31))->toolTip(), march31);
}

TEST_F(MonthView, AnotherAirportsRowsStayOutOfTheMonth) {
    Observe(Heathrow, MarchDay(12), QTime(10, 0), 30);
    Observe(LeBourget, MarchDay(13), QTime(10, 0), 20);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 12))->Tag.isEmpty());
    EXPECT_EQ(recording.Count(DrawOp::Box), 2);
    Show(f, LineHeathrow, 3);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 12))->Tag.contains(QStringLiteral("Maxi    30 Nds")));
}

TEST_F(MonthView, TheNewYearIsQueriedWhenTheMonthIsClickedAfterIt) {
    Observe(LeBourget, QDate(2005, 3, 14), QTime(10, 0), 25);
    StatistiqueMensuelle& f = FormOnRecording();
    Show(f, LineLeBourget, 3);
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);
    Named<ListBox>(f, QStringLiteral("Année"))->SetListIndex(2);
    recording.Clear();
    Named<ListBox>(f, QStringLiteral("Mois"))->SetListIndex(2);
    EXPECT_EQ(recording.Count(DrawOp::Box), 2);
    EXPECT_TRUE(Named<Label>(f, Indexed("Jour", 14))->Tag.contains(QStringLiteral("Maxi    25 Nds")));
}

// ---- The loop that never ends

TEST_F(MonthView, WithoutADatabaseTheLoopNeverEndsButTheGridIsDrawn) {
    StatistiqueMensuelle& f = FormOnRecording();
    ASSERT_TRUE(QFile::remove(db.Path()));
    int passes = 0;
    f.WatchRowLoop([&] {
        if (++passes == 1000) throw LoopWatched{};
    });
    recording.Clear();
    EXPECT_THROW(f.AfficherMois(), LoopWatched);
    EXPECT_EQ(passes, 1000);
    EXPECT_EQ(GridLines(), 55);
    // Every row step failed: no text, no bar, no dot, no arrow.
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);
    EXPECT_EQ(recording.Count(DrawOp::Circle), 0);
    for (int i = 1; i <= 31; ++i) EXPECT_TRUE(Named<Label>(f, Indexed("Jour", i))->Tag.isEmpty());
    EXPECT_TRUE(f.JeuMois.IsNothing());
}

TEST_F(MonthView, WithNoAirportSelectedTheLoopNeverEndsEither) {
    Observe(LeBourget, MarchDay(6), QTime(10, 0), 10);
    StatistiqueMensuelle& f = FormOnRecording();
    int passes = 0;
    f.WatchRowLoop([&] {
        if (++passes == 50) throw LoopWatched{};
    });
    recording.Clear();
    // Selecting no line raises the list's click, which never comes back.
    EXPECT_THROW(Named<ListBox>(f, QStringLiteral("Aeroports"))->SetListIndex(-1), LoopWatched);
    EXPECT_EQ(passes, 50);
    EXPECT_EQ(recording.Count(DrawOp::Cls), 1);
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);
}

}  // namespace
