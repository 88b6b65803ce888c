// The head groups of a report: station, day and time, wind, visibility and runway range.
#include "DecodingTestSupport.h"

#include <gtest/gtest.h>

using namespace skelda;

namespace {

// A report whose wind group is Wind, with a plain tail that shows whether the run went on.
Bulletin WithWind(const QString& wind) {
    return Decode(QStringLiteral("LFTH 021000Z ") + wind + QStringLiteral(" 9999 FEW016 12/10 Q1016"));
}

// A report whose visibility place holds Visibility.
Bulletin WithVisibility(const QString& visibility) {
    return Decode(QStringLiteral("KJFK 021051Z 22013KT ") + visibility + QStringLiteral(" FEW016 12/10 A2992"));
}

}  // namespace

// --- Station and time -----------------------------------------------------------------------------

TEST(DecoderHead, StationIsTheWholeFirstGroup) { EXPECT_EQ(Decode(QStringLiteral("lfth9x 021000Z")).Ida, u"lfth9x"); }

TEST(DecoderHead, TimeGroupGivesHourAndMinuteWithoutTimeZoneChange) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z"));
    EXPECT_EQ(b.DateReleve, u"02/11/2004");
    EXPECT_EQ(b.HeureReleve, u"10:00");
}

TEST(DecoderHead, HourIsFormattedWithTwoDigitsAndMinutesKeptAsWritten) {
    EXPECT_EQ(Decode(QStringLiteral("LFTH 150545Z")).HeureReleve, u"05:45");
    EXPECT_EQ(Decode(QStringLiteral("LFTH 1523")).HeureReleve, u"23:");
}

TEST(DecoderHead, UnreadableHourLeavesTheTimeEmptyAndTheRunGoesOn) {
    const Bulletin b = Decode(QStringLiteral("LFTH 02//00Z 22013KT 9999 12/10 Q1016"));
    EXPECT_EQ(b.DateReleve, u"02/11/2004");
    EXPECT_TRUE(b.HeureReleve.isEmpty());
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.Pression, 1016);
}

TEST(DecoderHead, MonthAndYearComeFromTheClockWithTwoDigitMonth) {
    EXPECT_EQ(Decode(QStringLiteral("EGLL 071250Z"), QDate(2023, 3, 9)).DateReleve, u"07/03/2023");
}

TEST(DecoderHead, MessageOfLastDayDecodedOnTheFirstIsDatedInTheNewMonth) {
    const Bulletin b = Decode(QStringLiteral("LFTH 302350Z 22013KT"), QDate(2004, 12, 1));
    EXPECT_EQ(b.DateReleve, u"30/12/2004");
    EXPECT_EQ(b.HeureReleve, u"23:50");
}

TEST(DecoderHead, MessageOfDecemberDecodedInJanuaryTakesTheNewYear) {
    EXPECT_EQ(Decode(QStringLiteral("LFTH 312350Z"), QDate(2005, 1, 1)).DateReleve, u"31/01/2005");
}

// --- Wind -----------------------------------------------------------------------------------------

TEST(DecoderWind, KnotsFormTakesSpeedAndDirectionAndClearsTheGust) {
    const Bulletin b = WithWind(QStringLiteral("22013KT"));
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceRafale, 0);
    EXPECT_EQ(b.ZefirVariable, 0);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderWind, GustFormTakesSpeedAndGust) {
    const Bulletin b = WithWind(QStringLiteral("22013G25KT"));
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceRafale, 25);
}

TEST(DecoderWind, TrendStyleGustGroupIsReadTheSameWay) {
    const Bulletin b = WithWind(QStringLiteral("31015G25KT"));
    EXPECT_EQ(b.ForceNoeuds, 15);
    EXPECT_EQ(b.OrientationDegre, u"310");
    EXPECT_EQ(b.ForceRafale, 25);
}

TEST(DecoderWind, ThreeDigitSpeedIsMisreadAndItsGustDropped) {
    const Bulletin b = WithWind(QStringLiteral("220100G120KT"));
    EXPECT_EQ(b.ForceNoeuds, 10);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceRafale, 0);  // characters 7-8 are "G1"
    EXPECT_EQ(b.Pression, 1016);
}

TEST(DecoderWind, FailedGustKeepsTheGustOfAnEarlierWindGroup) {
    const Bulletin b = WithWind(QStringLiteral("22013G25KT 220100G120KT"));
    EXPECT_EQ(b.ForceNoeuds, 10);
    EXPECT_EQ(b.ForceRafale, 25);
}

TEST(DecoderWind, MetresPerSecondKeepTheBareFigure) {
    const Bulletin b = WithWind(QStringLiteral("22007MPS"));
    EXPECT_EQ(b.ForceNoeuds, 7);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceRafale, 0);
}

TEST(DecoderWind, MetresPerSecondFromTenUpStillGiveTheBareFigure) {
    // The unread knots equivalent overflows for 12 m/s; the speed is 12 all the same.
    const Bulletin b = WithWind(QStringLiteral("22012MPS"));
    EXPECT_EQ(b.ForceNoeuds, 12);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderWind, MetresPerSecondWithAGustTakeTheGustForm) {
    const Bulletin b = WithWind(QStringLiteral("22012G20MPS"));
    EXPECT_EQ(b.ForceNoeuds, 12);
    EXPECT_EQ(b.ForceRafale, 20);
}

TEST(DecoderWind, VariableWindKeepsNegatedSpeed) {
    const Bulletin b = WithWind(QStringLiteral("VRB03KT"));
    EXPECT_EQ(b.ZefirVariable, -1);
    EXPECT_EQ(b.ForceNoeuds, -3);
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.ForceRafale, 0);
}

TEST(DecoderWind, VariableWindLeavesDirectionAndGustOfAnEarlierGroup) {
    const Bulletin b = WithWind(QStringLiteral("22013G25KT VRB03KT"));
    EXPECT_EQ(b.ZefirVariable, -1);
    EXPECT_EQ(b.ForceNoeuds, -3);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceRafale, 25);
}

TEST(DecoderWind, VariableWindInMetresPerSecondSetsTheFlagButNoSpeed) {
    const Bulletin b = WithWind(QStringLiteral("VRB03MPS"));
    EXPECT_EQ(b.ZefirVariable, -1);
    EXPECT_EQ(b.ForceNoeuds, 0);
}

TEST(DecoderWind, VariableWindWithoutFiguresSetsTheFlagAndStaysInTheWindSection) {
    const Bulletin b = WithWind(QStringLiteral("VRBXXKT 200V260"));
    EXPECT_EQ(b.ZefirVariable, -1);
    EXPECT_EQ(b.ForceNoeuds, 0);
    // Still in the wind section: the shifting sector behind it is read.
    EXPECT_EQ(b.Secteur1, 200);
    EXPECT_EQ(b.Secteur2, 260);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderWind, ShiftingSectorAfterTheWindFillsBothBounds) {
    const Bulletin b = WithWind(QStringLiteral("22013KT 200V260"));
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.Secteur1, 200);
    EXPECT_EQ(b.Secteur2, 260);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderWind, ShiftingSectorDirectlyAfterTheTimeMovesOnToVisibility) {
    const Bulletin b = WithWind(QStringLiteral("200V260"));
    EXPECT_EQ(b.Secteur1, 200);
    EXPECT_EQ(b.Secteur2, 260);
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.ForceNoeuds, 0);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderWind, ShiftingSectorClosesTheWindSection) {
    // A wind group behind the sector is no longer read as wind.
    const Bulletin b = WithWind(QStringLiteral("200V260 22013KT"));
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.ForceNoeuds, 0);
}

TEST(DecoderWind, UnreadableSectorBoundsStillCloseTheWindSection) {
    const Bulletin b = WithWind(QStringLiteral("///V///"));
    EXPECT_EQ(b.Secteur1, 0);
    EXPECT_EQ(b.Secteur2, 0);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderWind, SecondWindFormOverwritesTheFirst) {
    const Bulletin b = WithWind(QStringLiteral("22013G25KT 31007KT"));
    EXPECT_EQ(b.ForceNoeuds, 7);
    EXPECT_EQ(b.OrientationDegre, u"310");
    EXPECT_EQ(b.ForceRafale, 0);
}

TEST(DecoderWind, FogGroupInTheWindPlaceIsTakenForAGustWind) {
    const Bulletin b = WithWind(QStringLiteral("22013KT BCFG"));
    EXPECT_EQ(b.OrientationDegre, u"BCF");
    EXPECT_EQ(b.ForceNoeuds, 13);  // the numbers fail and are dropped
    EXPECT_EQ(b.ForceRafale, 0);
    EXPECT_TRUE(b.Temps.isEmpty());
}

TEST(DecoderWind, HailStormInTheWindPlaceIsTakenForAGustWind) {
    const Bulletin b = WithWind(QStringLiteral("22013G25KT TSGR"));
    EXPECT_EQ(b.OrientationDegre, u"TSG");
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.ForceRafale, 25);
    EXPECT_TRUE(b.Temps.isEmpty());
}

// --- Visibility -----------------------------------------------------------------------------------

TEST(DecoderVisibility, NumericGroupGivesTheLessThenPhrase) {
    EXPECT_EQ(WithVisibility(QStringLiteral("0800")).Visibilite, u"Visibility Less then 0800 Meter");
}

TEST(DecoderVisibility, NineThousandNineHundredNinetyNineHasNoCaseOfItsOwn) {
    EXPECT_EQ(WithVisibility(QStringLiteral("9999")).Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderVisibility, StatuteMilesKeepTwoCharacters) {
    EXPECT_EQ(WithVisibility(QStringLiteral("10SM")).Visibilite, u"10 Statut Miles");
    EXPECT_EQ(WithVisibility(QStringLiteral("3SM")).Visibilite, u"3S Statut Miles");
}

TEST(DecoderVisibility, StatuteMilesGoOnToRunwayAndWeather) {
    const Bulletin b = Decode(QStringLiteral("KJFK 021051Z 22013KT 10SM -RA BKN025 12/10 A2992"));
    EXPECT_EQ(b.Temps, u" Rain Light");
    EXPECT_EQ(b.Nuage, u" Broken clouds at  2500 feets.");
    EXPECT_EQ(b.Temperature, 12);
    EXPECT_EQ(b.Pression, 995);
}

TEST(DecoderVisibility, MixedFractionReadsOnlyItsWholePart) {
    // "1" is the visibility; "1/2SM" goes down the chain and uses up the temperature, so the
    // sky group is then taken as the pressure.
    const Bulletin b = Decode(QStringLiteral("KJFK 021051Z 22013KT 1 1/2SM FEW016 12/10 A2992"));
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 1 Meter");
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderVisibility, CavokJumpsToTheTemperature) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT CAVOK 12/10 Q1016"));
    EXPECT_EQ(b.Visibilite, u"Visibility greater then 10 Km");
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 12);
    EXPECT_EQ(b.Pression, 1016);
}

TEST(DecoderVisibility, CavokSkipsTheSkySectionEvenWhenASkyGroupFollows) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT CAVOK FEW016 12/10 Q1016"));
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);  // FEW016 taken as the temperature
    EXPECT_EQ(b.Pression, 0);     // 12/10 taken as the pressure
}

TEST(DecoderVisibility, UnknownVisibilityLeavesThePhraseEmpty) {
    EXPECT_TRUE(WithVisibility(QStringLiteral("4000NE")).Visibilite.isEmpty());
}

// --- Runway visual range --------------------------------------------------------------------------

TEST(DecoderRunway, OneRunwayGroupIsSkipped) {
    const Bulletin b = Decode(QStringLiteral("LFPG 021000Z 22013KT 0800 R27L/0600 FG OVC002 08/08 Q1020"));
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 0800 Meter");
    EXPECT_EQ(b.Temps, u" Fog Moderate");
    EXPECT_EQ(b.Nuage, u" Sky covererd at 200 feets.");
    EXPECT_EQ(b.Temperature, 8);
    EXPECT_EQ(b.Pression, 1020);
}

TEST(DecoderRunway, RunwayGroupIsSkippedWithoutAVisibilityGroup) {
    const Bulletin b = Decode(QStringLiteral("LFPG 021000Z 22013KT R27L/0600 FG 08/08 Q1020"));
    EXPECT_TRUE(b.Visibilite.isEmpty());
    EXPECT_EQ(b.Temps, u" Fog Moderate");
    EXPECT_EQ(b.Temperature, 8);
}

TEST(DecoderRunway, SecondRunwayGroupGoesDownTheChain) {
    const Bulletin b = Decode(QStringLiteral("LFPG 021000Z 22013KT 0800 R27L/0600 R09R/0800 FG OVC002 08/08 Q1020"));
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);  // R09R/0800 used up the temperature
    EXPECT_EQ(b.Pression, 0);     // FG taken as the pressure
}

TEST(DecoderRunway, ShortOrLetteredGroupsAreNoRunwayForm) {
    // "R27" is too short and "RERA" has no figures: both are handed on.
    EXPECT_EQ(Decode(QStringLiteral("LFPG 021000Z 22013KT 0800 R27 08/08 Q1020")).Temperature, 0);
    EXPECT_EQ(Decode(QStringLiteral("LFPG 021000Z 22013KT 0800 RERA 08/08 Q1020")).Temps, u" Rain Moderate");
}
