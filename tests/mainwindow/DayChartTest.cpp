// The day chart, drawn on a recording: slots, bars, arrows, curves, pictures and the bulletin.
#include "HandEntry.h"
#include "MainWindowFixture.h"

#include "SurfacePainting.h"

using namespace skelda;
using namespace skelda::test;

namespace {

constexpr Color PressionTrait = RGB(128, 128, 0);
constexpr Color TemperatureTrait = RGB(192, 0, 192);
constexpr Color ArrowColour = 150;

double Centre(int slot) { return 2340 + 180 * slot + 97.5; }

class DayChart : public MainWindow {
protected:
    // Loads the form on the rows given (Le Bourget's day is drawn), then draws again on the
    // recording.
    Form1& Draw(const QList<TestObservation>& rows) {
        for (const TestObservation& row : rows) db.AddObservation(row);
        Form1& form = FormOnRecording();
        Redraw(form);
        return form;
    }

    std::vector<DrawCall> Calls(DrawOp op, std::optional<Color> colour) const {
        std::vector<DrawCall> out;
        for (const DrawCall& c : recording.Calls(op))
            if (c.color == colour) out.push_back(c);
        return out;
    }
    std::vector<DrawCall> Arrows() const { return Calls(DrawOp::Line, ArrowColour); }

    int SlotOfTag(const Form1& form, const QString& metaf) const {
        for (int i = 0; i < 48; ++i)
            if (Named<Label>(form, Indexed("FKNT", i))->Tag == metaf) return i;
        return -1;
    }

    int Failure(Form1& form) {
        try {
            Redraw(form);
        } catch (const RuntimeError& e) {
            return e.Number();
        }
        return 0;
    }
};

const QString CrLf = QStringLiteral("\r\n");

}  // namespace

// ---- Slots

TEST_F(DayChart, MinutesRoundToSlotsHalvesToEven) {
    const QList<TestObservation> rows{Releve(LeBourget, 10, 15), Releve(LeBourget, 10, 16), Releve(LeBourget, 10, 45),
                                      Releve(LeBourget, 23, 44), Releve(LeBourget, 23, 45)};
    Form1& form = Draw(rows);
    EXPECT_EQ(SlotOfTag(form, rows[0].metaf), 20);
    EXPECT_EQ(SlotOfTag(form, rows[1].metaf), 21);
    EXPECT_EQ(SlotOfTag(form, rows[2].metaf), 22);
    EXPECT_EQ(SlotOfTag(form, rows[3].metaf), 47);
    EXPECT_EQ(SlotOfTag(form, rows[4].metaf), -1);  // from 23:45 no slot, nothing drawn
    EXPECT_EQ(recording.Boxes().size(), 4u);
    EXPECT_EQ(Arrows().size(), 4u);
    // It is the day's last row all the same.
    EXPECT_TRUE(Named<Label>(form, QStringLiteral("TXTbulletin"))
                    ->Caption()
                    .startsWith(QStringLiteral("02/11/2004 23:45:00") + CrLf));
}

TEST_F(DayChart, OnlyTheSelectedAirportsSelectedDayIsDrawn) {
    TestObservation otherDay = Releve(LeBourget, 9, 0);
    otherDay.day = QDate(2004, 2, 11);  // the same numbers, day first: must not be taken
    TestObservation otherAirport = Releve(Heathrow, 11, 0);
    Form1& form = Draw({Releve(LeBourget, 10, 0), otherDay, otherAirport});
    Named<ComboBox>(form, QStringLiteral("ChoixDate"))->SetListIndex(1);  // 02/11/2004, after 11/02/2004
    Redraw(form);
    EXPECT_EQ(recording.Boxes().size(), 1u);
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, QStringLiteral("LFPB 021000Z 24010KT CAVOK 12/08 Q1015"));
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 18))->Tag, QString());
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 22))->Tag, QString());
}

TEST_F(DayChart, TwoRowsInOneSlotLeaveTheLatersTextOverBothBars) {
    TestObservation first = Releve(LeBourget, 10, 0, 20);
    TestObservation second = Releve(LeBourget, 10, 10, 5);
    Form1& form = Draw({first, second});
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, second.metaf);
    EXPECT_EQ(recording.Boxes().size(), 2u);
}

// ---- Bars

TEST_F(DayChart, ABarStandsOnTheFootWithItsHeightReadBackFromTheLabel) {
    Form1& form = Draw({Releve(LeBourget, 10, 0, 10)});
    // 10 knots are 480.2 twips, kept as 32 pixels: 480; the top follows from that.
    EXPECT_EQ(HeightOf(Named<Label>(form, Indexed("FKNT", 20))), 480);
    EXPECT_EQ(TopOf(Named<Label>(form, Indexed("FKNT", 20))), 3195);
    ASSERT_EQ(recording.Boxes().size(), 1u);
    const DrawCall bar = recording.Boxes()[0];
    EXPECT_EQ(bar.x1, 5940);
    EXPECT_EQ(bar.y1, 3195);
    EXPECT_EQ(bar.x2, 5940 + 195 - 15);
    EXPECT_EQ(bar.y2, 3195 + 480 - 15);
    EXPECT_EQ(bar.drawWidth, 1);
    EXPECT_TRUE(Named<Label>(form, Indexed("FKNT", 20))->isHidden());  // the label itself never shows
}

TEST_F(DayChart, AVariableWindHasABarOfNoHeightInClassZero) {
    TestObservation row = Releve(LeBourget, 10, 0, -3);
    row.variable = true;
    row.orientation = QStringLiteral("0");
    Form1& form = Draw({row});
    EXPECT_EQ(HeightOf(Named<Label>(form, Indexed("FKNT", 20))), 0);
    EXPECT_EQ(TopOf(Named<Label>(form, Indexed("FKNT", 20))), 3675);
    ASSERT_EQ(recording.Boxes().size(), 1u);
    EXPECT_EQ(recording.Boxes()[0].fillColor, RGB(227, 240, 255));
    EXPECT_EQ(recording.Boxes()[0].color, std::optional<Color>(RGB(193, 222, 255)));
}

TEST_F(DayChart, ClassesRoundHalvesToEvenAndEdgeInTheNextDarkerColour) {
    // The table of wind colours, class by class, red, green and blue.
    const Color palette[] = {RGB(227, 240, 255), RGB(193, 222, 255), RGB(153, 201, 255), RGB(111, 179, 255),
                             RGB(67, 156, 255),  RGB(33, 138, 255),  RGB(1, 121, 255),   RGB(0, 106, 226),
                             RGB(0, 90, 192),    RGB(0, 77, 164),    RGB(0, 59, 126)};
    // (knots - 1) / 5 rounded halves to even: 3 knots give 0.4, class 0; 4 give 0.6, class 1;
    // 8 give 1.4, class 1; 9 give 1.6, class 2; 13 give 2.4, class 2; 14 give 2.6, class 3;
    // 48 give 9.4, class 9, edged in class 10.
    const std::pair<int, int> speedClass[] = {{3, 0}, {4, 1}, {8, 1}, {9, 2}, {13, 2}, {14, 3}, {48, 9}};
    QList<TestObservation> rows;
    for (int i = 0; i < int(std::size(speedClass)); ++i) rows.append(Releve(LeBourget, i, 0, speedClass[i].first));
    Draw(rows);
    const auto bars = recording.Boxes();
    ASSERT_EQ(bars.size(), std::size(speedClass));
    for (size_t i = 0; i < bars.size(); ++i) {
        const int classe = speedClass[i].second;
        EXPECT_EQ(bars[i].fillColor, palette[classe]) << speedClass[i].first << " knots";
        EXPECT_EQ(bars[i].color, std::optional<Color>(palette[classe + 1])) << speedClass[i].first << " knots";
    }
}

TEST_F(DayChart, FiftyKnotsFillTheChartAndMoreRunPastTheTop) {
    // The full height of the chart, from 3662 up to 1261, is 2401 twips for 50 knots. A bar of
    // 50 knots or more stops the chart before its box is drawn (its edge colour is past the
    // table), but its label has its height and top by then.
    Form1& form = Draw({Releve(LeBourget, 9, 0, 10)});
    db.AddObservation(Releve(LeBourget, 10, 0, 50));
    EXPECT_EQ(Failure(form), SubscriptOutOfRange);
    // 2401 twips, kept as 160 pixels, 2400 twips; the top at 3662 - 2400 + 15, just under the
    // chart's top line at 1261.
    EXPECT_EQ(HeightOf(Named<Label>(form, Indexed("FKNT", 20))), 2400);
    EXPECT_EQ(TopOf(Named<Label>(form, Indexed("FKNT", 20))), 1275);
    EXPECT_GE(TopOf(Named<Label>(form, Indexed("FKNT", 20))), 1261);

    // 60 knots, earlier in the day so that the chart stops there: 2881.2 twips, 192 pixels,
    // 2880 twips, and the top at 795, above the chart.
    db.AddObservation(Releve(LeBourget, 8, 0, 60));
    EXPECT_EQ(Failure(form), SubscriptOutOfRange);
    EXPECT_EQ(HeightOf(Named<Label>(form, Indexed("FKNT", 16))), 2880);
    EXPECT_EQ(TopOf(Named<Label>(form, Indexed("FKNT", 16))), 795);
    EXPECT_LT(TopOf(Named<Label>(form, Indexed("FKNT", 16))), 1261);
}

TEST_F(DayChart, FortyNineKnotsStopTheChartAtTheEdgeColour) {
    TestObservation strong = Releve(LeBourget, 11, 0, 49);
    Form1& form = Draw({Releve(LeBourget, 10, 0, 10)});
    db.AddObservation(strong);
    EXPECT_EQ(Failure(form), SubscriptOutOfRange);
    EXPECT_EQ(recording.Boxes().size(), 1u);  // the 10-knot bar only
    // Step 6 went through: the fill colour of class 10 is set.
    EXPECT_EQ(recording.FillColor(), RGB(0, 59, 126));
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 22))->Tag, strong.metaf);
    // No handling: the database stays open, and the bulletin of the last drawing stays.
    EXPECT_FALSE(form.BaseReleves.IsNothing());
    EXPECT_TRUE(
        Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption().startsWith(QStringLiteral("02/11/2004 10:00:00")));
}

TEST_F(DayChart, FiftyFourKnotsStopTheChartAtTheClass) {
    Form1& form = Draw({Releve(LeBourget, 10, 0, 10)});
    db.AddObservation(Releve(LeBourget, 11, 0, 54));
    EXPECT_EQ(Failure(form), SubscriptOutOfRange);
    ASSERT_FALSE(recording.Calls().empty());
    const DrawCall last = recording.Calls().back();
    EXPECT_EQ(last.op, DrawOp::SetDrawWidth);  // step 6 began, and its colour was never set
    EXPECT_EQ(recording.FillColor(), RGB(255, 192, 255));
}

TEST_F(DayChart, TheFirstBarOfARunIsEmptyAndTheArrowsMakeTheRestSolid) {
    // The chart never sets FillStyle: the first arrow leaves it solid.
    Draw({Releve(LeBourget, 10, 0), Releve(LeBourget, 11, 0)});
    RecordingSurface fresh;
    Form().DrawOn(fresh);
    Form().TracerCourbe();
    const auto bars = fresh.Boxes();
    ASSERT_EQ(bars.size(), 2u);
    EXPECT_FALSE(bars[0].Filled());
    EXPECT_TRUE(bars[1].Filled());
}

// ---- Arrows

TEST_F(DayChart, ArrowsStandInOneRowUnderTheirSlots) {
    TestObservation calm = Releve(LeBourget, 10, 0, 0);
    calm.orientation = QStringLiteral("000");
    TestObservation windy = Releve(LeBourget, 11, 0, 30);
    windy.orientation = QStringLiteral("090");
    Draw({calm, windy});
    const auto arrows = Arrows();
    ASSERT_EQ(arrows.size(), 2u);
    // North: the dot above the centre, the stroke 63 each side, centred 105 under the foot.
    EXPECT_NEAR(arrows[0].x1, Centre(20), 0.01);
    EXPECT_NEAR(arrows[0].y1, 3675 + 105 + 63, 0.01);
    EXPECT_NEAR(arrows[0].y2, 3675 + 105 - 63, 0.01);
    // East: the dot right of the centre, in the same row.
    EXPECT_NEAR(arrows[1].x2, Centre(22) + 63, 0.01);
    EXPECT_NEAR(arrows[1].y2, 3675 + 105, 0.01);
    const auto dots = Calls(DrawOp::Circle, std::nullopt);
    ASSERT_EQ(dots.size(), 2u);
    EXPECT_EQ(dots[0].radius, 30);
}

// ---- Curves

TEST_F(DayChart, TheFirstPressureIsADotAloneAtItsRoundedHeight) {
    Draw({Releve(LeBourget, 10, 0)});
    const auto dots = Calls(DrawOp::Circle, PressionTrait);
    ASSERT_EQ(dots.size(), 1u);
    // 1015 hPa: 3662 - 55 / 80 x 2401 = 2011.3125, rounded.
    EXPECT_EQ(dots[0].x1, Centre(20));
    EXPECT_EQ(dots[0].y1, 2011);
    EXPECT_EQ(dots[0].radius, 48);
    EXPECT_EQ(dots[0].fillColor, RGB(255, 255, 192));
    EXPECT_EQ(dots[0].drawWidth, 1);
    EXPECT_TRUE(Calls(DrawOp::Line, PressionTrait).empty());
}

TEST_F(DayChart, EachLaterPressureJoinsTheLastDotAndRedrawsItOverTheJoin) {
    TestObservation a = Releve(LeBourget, 10, 0);
    a.pression = 1000;  // 2461.5, rounded to 2462
    TestObservation b = Releve(LeBourget, 11, 0);
    b.pression = 1020;  // 1861.25
    Draw({a, b});
    const auto joins = Calls(DrawOp::Line, PressionTrait);
    ASSERT_EQ(joins.size(), 1u);
    EXPECT_EQ(joins[0].x1, Centre(20));
    EXPECT_EQ(joins[0].y1, 2462);
    EXPECT_EQ(joins[0].x2, Centre(22));
    EXPECT_DOUBLE_EQ(joins[0].y2, 1861.25);  // unrounded at this end
    EXPECT_EQ(joins[0].drawWidth, 2);
    const auto dots = Calls(DrawOp::Circle, PressionTrait);
    ASSERT_EQ(dots.size(), 3u);
    EXPECT_EQ(dots[1].x1, dots[0].x1);
    EXPECT_EQ(dots[1].y1, 2462);
    EXPECT_EQ(dots[2].x1, Centre(22));
    EXPECT_EQ(dots[2].y1, 1861);
    EXPECT_EQ(dots[2].drawWidth, 1);
    // The join comes before the dot drawn again over its start.
    const auto& calls = recording.Calls();
    const auto joinAt = std::find_if(calls.begin(), calls.end(), [](const DrawCall& c) {
        return c.op == DrawOp::Line && c.color == std::optional<Color>(PressionTrait);
    });
    ASSERT_NE(joinAt, calls.end());
    EXPECT_TRUE(std::any_of(joinAt, calls.end(), [](const DrawCall& c) {
        return c.op == DrawOp::Circle && c.color == std::optional<Color>(PressionTrait) && c.y1 == 2462;
    }));
}

TEST_F(DayChart, TemperatureStandsOnThePinkLineAtZeroWithFortyDegreesHalfTheChart) {
    TestObservation zero = Releve(LeBourget, 10, 0);
    zero.temperature = 0;
    TestObservation forty = Releve(LeBourget, 11, 0);
    forty.temperature = 40;
    TestObservation minus = Releve(LeBourget, 12, 0);
    minus.temperature = -8;
    Draw({zero, forty, minus});
    const auto dots = Calls(DrawOp::Circle, TemperatureTrait);
    ASSERT_EQ(dots.size(), 5u);
    EXPECT_EQ(dots[0].y1, 2462);
    EXPECT_EQ(dots[2].y1, 1262);  // 2462 - 1200.5, rounded to even
    EXPECT_EQ(dots[4].y1, 2702);  // 2462 + 240.1
    EXPECT_EQ(dots[0].fillColor, RGB(255, 192, 255));
    EXPECT_EQ(dots[0].radius, 48);
    const auto joins = Calls(DrawOp::Line, TemperatureTrait);
    ASSERT_EQ(joins.size(), 2u);
    EXPECT_DOUBLE_EQ(joins[0].y2, 1261.5);
}

TEST_F(DayChart, CurvesJoinAcrossMissingSlotsAndNullValues) {
    TestObservation a = Releve(LeBourget, 10, 0);
    TestObservation gap = Releve(LeBourget, 10, 30);
    gap.pression.reset();
    gap.temperature.reset();
    TestObservation b = Releve(LeBourget, 12, 0);  // slots 22 and 23 stay empty
    Draw({a, gap, b});
    const auto pressure = Calls(DrawOp::Line, PressionTrait);
    ASSERT_EQ(pressure.size(), 1u);
    EXPECT_EQ(pressure[0].x1, Centre(20));
    EXPECT_EQ(pressure[0].x2, Centre(24));
    const auto temperature = Calls(DrawOp::Line, TemperatureTrait);
    ASSERT_EQ(temperature.size(), 1u);
    EXPECT_EQ(temperature[0].x1, Centre(20));
    EXPECT_EQ(temperature[0].x2, Centre(24));
    EXPECT_EQ(recording.Boxes().size(), 3u);  // the row with Nulls still has its bar
}

// ---- Tags and tool tips

TEST_F(DayChart, EachSlotKeepsItsMetafAndTellsItsWindInItsToolTip) {
    TestObservation row = Releve(LeBourget, 10, 0, 12);
    Form1& form = Draw({row});
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, row.metaf);
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->toolTip(),
              QStringLiteral("12 Noeuds - Force 4 de West South West - Pression 1015 hpa."));
}

TEST_F(DayChart, ANullPressureJoinsTheToolTipAsAnEmptyText) {
    TestObservation row = Releve(LeBourget, 10, 0, 2);
    row.pression.reset();
    row.orientation = QStringLiteral("000");
    Form1& form = Draw({row});
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->toolTip(),
              QStringLiteral("2 Noeuds - Force 1 de North - Pression  hpa."));
}

TEST_F(DayChart, ANullMetafIsAnInvalidUseOfNull) {
    Form1& form = Draw({});
    ASSERT_TRUE(db.Exec(
        QStringLiteral("INSERT INTO \"Zefir\" (\"NumAéroport\", \"daterelevé\", \"heurerelevé\", \"forcenoeuds\", "
                       "\"orientationdegré\") VALUES (1, '2004-11-20', '10:00:00', 5, '240')")));
    EXPECT_EQ(Failure(form), InvalidUseOfNull);
    EXPECT_EQ(recording.Boxes().size(), 0u);
}

TEST_F(DayChart, ANullSpeedIsAnInvalidUseOfNull) {
    Form1& form = Draw({});
    ASSERT_TRUE(db.Exec(QStringLiteral(
        "INSERT INTO \"Zefir\" (\"NumAéroport\", \"daterelevé\", \"heurerelevé\", \"orientationdegré\", \"METAF\") "
        "VALUES (1, '2004-11-20', '10:00:00', '240', 'LFPB')")));
    EXPECT_EQ(Failure(form), InvalidUseOfNull);
}

// ---- Pictures

TEST_F(DayChart, TheSkyGivesSunSunAndCloudOrCloud) {
    TestObservation clear = Releve(LeBourget, 1, 0);
    TestObservation few = Releve(LeBourget, 2, 0);
    few.nuage = QStringLiteral(" A few clouds at  2000 feets.");
    few.metaf = QStringLiteral("LFPB 020200Z 24010KT 9999 few020 12/08 Q1015");  // any case
    TestObservation scattered = Releve(LeBourget, 3, 0);
    scattered.nuage = QStringLiteral(" Scattered clouds at  2000 feets.");
    scattered.metaf = QStringLiteral("LFPB 020300Z 24010KT 9999 SCT020 12/08 Q1015");
    TestObservation broken = Releve(LeBourget, 4, 0);
    broken.nuage = QStringLiteral(" Broken clouds at  1000 feets.");
    broken.metaf = QStringLiteral("LFPB 020400Z 24010KT 9999 BKN010 12/08 Q1015");
    Form1& form = Draw({clear, few, scattered, broken});
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 1))->PictureKey, QStringLiteral("SUN"));
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 2))->PictureKey, QStringLiteral("SUNCLOUD"));
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 3))->PictureKey, QStringLiteral("SUNCLOUD"));
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 4))->PictureKey, QStringLiteral("CLOUD"));
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 4))->Picture().toImage(),
              form.ImageList2.ListImages(QStringLiteral("CLOUD")).toImage());
    EXPECT_TRUE(Named<Image>(form, Indexed("ICO", 5))->Picture().isNull());
}

TEST_F(DayChart, AnyNullSkyIsSun) {
    Form1& form = Draw({});
    ASSERT_TRUE(db.Exec(QStringLiteral(
        "INSERT INTO \"Zefir\" (\"NumAéroport\", \"daterelevé\", \"heurerelevé\", \"forcenoeuds\", "
        "\"orientationdegré\", \"METAF\") VALUES (1, '2004-11-20', '06:00:00', 5, '240', 'LFPB BKN010')")));
    Redraw(form);
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 6))->PictureKey, QStringLiteral("SUN"));
}

TEST_F(DayChart, TheWeatherGoesOverTheSkyAndTheLastMatchWins) {
    const std::pair<const char*, const char*> cases[] = {
        {" pluie faible", "RAIN"},    {" PLUIE", "RAIN"}, {" pluie orage", "STORM"}, {" orage pluie", "STORM"},
        {" pluie brouillard", "FOG"}, {" brume", "FOG"},  {" Rain Light", "CLOUD"},  {" neige", "CLOUD"}};
    QList<TestObservation> rows;
    for (int h = 0; h < int(std::size(cases)); ++h) {
        TestObservation row = Releve(LeBourget, h, 5);
        row.temps = QString::fromUtf8(cases[h].first);
        row.nuage = QStringLiteral(" Overcast at  800 feets.");
        row.metaf = QStringLiteral("LFPB 02%1Z OVC008").arg(h);
        rows.append(row);
    }
    Form1& form = Draw(rows);
    for (int h = 0; h < int(std::size(cases)); ++h)
        EXPECT_EQ(Named<Image>(form, Indexed("ICO", h))->PictureKey, QString::fromUtf8(cases[h].second))
            << cases[h].first;
}

TEST_F(DayChart, AnHoursLastRowBeforeMinuteTwentyGivesItsPicture) {
    TestObservation early = Releve(LeBourget, 9, 0);
    TestObservation later = Releve(LeBourget, 9, 15);
    later.temps = QStringLiteral(" pluie");
    TestObservation after = Releve(LeBourget, 9, 40);  // too late for the picture
    after.temps = QStringLiteral(" brouillard");
    Form1& form = Draw({early, later, after});
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 9))->PictureKey, QStringLiteral("RAIN"));
}

TEST_F(DayChart, AnHourWithRowsOnlyFromMinuteTwentyKeepsNoPicture) {
    Form1& form = Draw({Releve(LeBourget, 12, 20), Releve(LeBourget, 12, 40)});
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 12))->PictureKey, QString());
    EXPECT_TRUE(Named<Image>(form, Indexed("ICO", 12))->Picture().isNull());
    EXPECT_EQ(recording.Boxes().size(), 2u);
}

TEST_F(DayChart, EachDrawingStartsFromAnEmptyChart) {
    Form1& form = Draw({Releve(LeBourget, 10, 0)});
    ASSERT_EQ(Named<Image>(form, Indexed("ICO", 10))->PictureKey, QStringLiteral("SUN"));
    Named<ListBox>(form, QStringLiteral("List1"))->SetListIndex(LigneHeathrow);  // no rows that day
    EXPECT_EQ(Named<Image>(form, Indexed("ICO", 10))->PictureKey, QString());
    EXPECT_TRUE(Named<Image>(form, Indexed("ICO", 10))->Picture().isNull());
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, QString());
    EXPECT_EQ(recording.Calls().front().op, DrawOp::Cls);
}

// ---- Bulletin

TEST_F(DayChart, TheBulletinOfAGustyThirtyKnotRowRepeatsTheMeanForce) {
    TestObservation row = Releve(LeBourget, 10, 0, 30);
    row.forcerafale = 45;
    row.temps = QStringLiteral("  pluie  ");
    Form1& form = Draw({row});
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(),
              QStringLiteral("02/11/2004 10:00:00\r\n"
                             "Wind from West South West Force 7 avec rafale à Force 7\r\n"
                             "Visibility greater then 10 Km\r\n"
                             "pluie\r\n"
                             "Temperature undercover 12° C.\r\n"
                             "Pressure 1015 hpa"));
}

TEST_F(DayChart, TheBulletinOfAShiftingWindNamesBothEnds) {
    TestObservation row = Releve(LeBourget, 10, 0, 12);
    row.secteur1 = 200;
    row.secteur2 = 280;
    Form1& form = Draw({row});
    EXPECT_TRUE(
        Named<Label>(form, QStringLiteral("TXTbulletin"))
            ->Caption()
            .contains(QStringLiteral("Wind from West South West Force 4 Shifting from South South West to  West\r\n")));
}

TEST_F(DayChart, TheBulletinOfAVariableWindGivesItsUpperBound) {
    TestObservation row = Releve(LeBourget, 10, 0, -3);
    row.variable = true;
    row.orientation = QStringLiteral("0");
    row.secteur1 = 200;  // not looked at for a variable wind
    Form1& form = Draw({row});
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption().split(CrLf).at(1),
              QStringLiteral("Wind Variable less then 3 Knts"));
}

TEST_F(DayChart, EmptyPhrasesLeaveNoEmptyLineInOnePass) {
    TestObservation row = Releve(LeBourget, 10, 0, 12);
    row.visibilite.clear();  // with no weather either: three line ends in a row
    Form1& form = Draw({row});
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(),
              QStringLiteral("02/11/2004 10:00:00\r\n"
                             "Wind from West South West Force 4\r\n\r\n"
                             "Temperature undercover 12° C.\r\n"
                             "Pressure 1015 hpa"));
}

TEST_F(DayChart, NullTemperatureAndPressureLeaveTheirWordsBare) {
    TestObservation row = Releve(LeBourget, 10, 0, 12);
    row.temperature.reset();
    row.pression.reset();
    Form1& form = Draw({row});
    EXPECT_TRUE(Named<Label>(form, QStringLiteral("TXTbulletin"))
                    ->Caption()
                    .endsWith(QStringLiteral("Temperature undercover ° C.\r\nPressure  hpa")));
}

TEST_F(DayChart, NoRowMeansAnEmptyChartAnEmptyBulletinAndStillThePicture) {
    Form1& form = Draw({});
    Named<Label>(form, QStringLiteral("TXTbulletin"))->SetCaption(QStringLiteral("old"));
    Named<PictureBox>(form, QStringLiteral("Picture1"))->SetPicture(QPixmap());
    Redraw(form);
    const std::vector<DrawOp> justCls{DrawOp::Cls};
    EXPECT_EQ(recording.Ops(), justCls);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(), QString());
    EXPECT_FALSE(Named<PictureBox>(form, QStringLiteral("Picture1"))->Picture().isNull());
    for (Image* ico : NamedArray<Image>(form, "ICO", 0, 23)) EXPECT_TRUE(ico->Picture().isNull());
    EXPECT_TRUE(form.BaseReleves.IsNothing());
    EXPECT_TRUE(form.JeuReleves.IsNothing());
}

TEST_F(DayChart, ATypedObservationOfTheAirportIsNotInItsChart) {
    // Typed by hand on the day of the observation: the row carries the place, not the number.
    const FixedClock entryDay(QDateTime(QDate(2004, 11, 2), QTime(12, 0)));
    ASSERT_EQ(EnregistrerMetaf(QStringLiteral("LFPB 021015Z 22013KT 9999 FEW016 22/06 Q1016"), db.Path(), entryDay),
              QString());
    ASSERT_EQ(db.Count(QStringLiteral("Zefir")), 1);
    Form1& form = Draw({});
    ASSERT_EQ(Named<ComboBox>(form, QStringLiteral("ChoixDate"))->Text(),
              QStringLiteral("02/11/2004"));  // the day is listed...
    ASSERT_EQ(Named<ListBox>(form, QStringLiteral("List1"))->ListIndex(), LigneLeBourget);
    EXPECT_EQ(recording.Count(DrawOp::Box), 0);  // ...but Le Bourget's chart has nothing of it
    for (const Label* slot : NamedArray<Label>(form, "FKNT", 0, 47)) EXPECT_EQ(slot->Tag, QString());
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(), QString());
}

TEST_F(DayChart, NothingSelectedClearsTheSurfaceAndTouchesNothingElse) {
    Form1& form = Draw({Releve(LeBourget, 10, 0)});
    const QString bulletin = Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption();
    const qint64 picture = Named<PictureBox>(form, QStringLiteral("Picture1"))->Picture().cacheKey();
    const int logLines = int(LogText().count(QStringLiteral("\r\n")));
    ASSERT_TRUE(QFile::remove(db.Path()));  // any opening would fail now
    recording.Clear();
    Named<ListBox>(form, QStringLiteral("List1"))->SetListIndex(-1);
    const std::vector<DrawOp> justCls{DrawOp::Cls};
    EXPECT_EQ(recording.Ops(), justCls);
    EXPECT_EQ(Named<Label>(form, QStringLiteral("TXTbulletin"))->Caption(), bulletin);
    EXPECT_EQ(Named<PictureBox>(form, QStringLiteral("Picture1"))->Picture().cacheKey(), picture);
    EXPECT_EQ(Named<Label>(form, Indexed("FKNT", 20))->Tag, QString());
    EXPECT_EQ(int(LogText().count(QStringLiteral("\r\n"))), logLines);
}

TEST_F(DayChart, TheDatabaseIsClosedAfterADrawing) {
    Form1& form = Draw({Releve(LeBourget, 10, 0)});
    EXPECT_TRUE(form.BaseReleves.IsNothing());
    EXPECT_TRUE(form.JeuReleves.IsNothing());
}

TEST_F(DayChart, DrawsOnTheFormItselfByDefault) {
    db.AddObservation(Releve(LeBourget, 10, 0, 20));
    Form1& form = Form();
    EXPECT_EQ(&form.DrawingSurface(), static_cast<Surface*>(&form));
    // Inside the bar of slot 20 (20 knots, class 4), 60 twips right of its edge at 2340 + 180 x 20
    // = 5940 twips, 396 pixels; at y 3500 twips, 233 pixels.
    const QPoint inside(400, 233);
    const QPoint edge(396, 233);
    // The first drawing of the run comes before any arrow set the fill: its bars are empty.
    EXPECT_EQ(form.Snapshot().pixelColor(inside), QColor(ToQColor(form.BackColor())));
    EXPECT_EQ(form.Snapshot().pixelColor(edge), QColor(33, 138, 255));
    form.TracerCourbe();
    EXPECT_EQ(form.Snapshot().pixelColor(inside), QColor(67, 156, 255));
}
