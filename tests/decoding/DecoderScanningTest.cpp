// The walk over the groups: splitting, the end of a run, handing a group on, and the built-in
// sample with its trace group by group.
#include "DecodingTestSupport.h"

#include <gtest/gtest.h>

using namespace skelda;

namespace {

const QString kSampleText = QStringLiteral("LFTH 021000Z 22013KT 9999 FEW016 SCT230 22/06 Q1016 BECMG 31015G25KT=");

Bulletin SampleRecord() {
    Bulletin b;
    b.Ida = QStringLiteral("LFTH");
    b.DateReleve = QStringLiteral("02/11/2004");
    b.HeureReleve = QStringLiteral("10:00");
    b.OrientationDegre = QStringLiteral("220");
    b.ForceNoeuds = 13;
    b.Visibilite = QStringLiteral("Visibility Less then 9999 Meter");
    b.Nuage = QStringLiteral(" A few clouds at  1600 feets. Scattered clouds at 23000 feets.");
    b.Temperature = 22;
    b.Pression = 1016;
    return b;
}

}  // namespace

// --- The sample, row by row of its trace -------------------------------------------------------

TEST(DecoderSample, EmptyTextDecodesTheBuiltInSample) {
    const Bulletin b = Decode(QString());
    EXPECT_EQ(b.Ida, u"LFTH");
    EXPECT_EQ(b, SampleRecord());
}

TEST(DecoderSample, NullAndEmptyTextsBothGiveTheSample) {
    EXPECT_EQ(Decode(QStringLiteral("")), SampleRecord());
    EXPECT_EQ(Decode(QString()), Decode(kSampleText));
}

TEST(DecoderSample, SampleTextDecodesLikeTheEmptyText) { EXPECT_EQ(Decode(kSampleText), SampleRecord()); }

TEST(DecoderSample, FirstGroupIsTheStation) { EXPECT_EQ(Decode(kSampleText).Ida, u"LFTH"); }

TEST(DecoderSample, TimeGroupGivesDayOfMessageWithMonthAndYearOfTheClock) {
    const Bulletin b = Decode(kSampleText, QDate(2004, 11, 30));
    EXPECT_EQ(b.DateReleve, u"02/11/2004");
    EXPECT_EQ(b.HeureReleve, u"10:00");
}

TEST(DecoderSample, WindGroupTakesSpeedDirectionAndClearsTheGust) {
    const Bulletin b = Decode(kSampleText);
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceRafale, 0);
    EXPECT_EQ(b.ZefirVariable, 0);
}

TEST(DecoderSample, VisibilityIsHandedOnFromTheWindSection) {
    EXPECT_EQ(Decode(kSampleText).Visibilite, u"Visibility Less then 9999 Meter");
}

TEST(DecoderSample, SkyGroupsAppendTheirPhrasesInOrder) {
    EXPECT_EQ(Decode(kSampleText).Nuage, u" A few clouds at  1600 feets. Scattered clouds at 23000 feets.");
    EXPECT_TRUE(Decode(kSampleText).Temps.isEmpty());
}

TEST(DecoderSample, TemperatureIsHandedOnFromTheSkySection) { EXPECT_EQ(Decode(kSampleText).Temperature, 22); }

TEST(DecoderSample, PressureIsReadAndTheRunStopsBeforeTheTrend) {
    const Bulletin b = Decode(kSampleText);
    EXPECT_EQ(b.Pression, 1016);
    // The trend's wind 31015G25KT would have overwritten the wind if it had been read.
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.ForceRafale, 0);
}

// --- Ends of a run -------------------------------------------------------------------------------

TEST(DecoderScanning, SingleGroupSetsOnlyTheStation) {
    EXPECT_EQ(Decode(QStringLiteral("LFTH")), StationOnly(QStringLiteral("LFTH")));
}

TEST(DecoderScanning, SingleGroupEndingInEqualsKeepsTheEquals) {
    EXPECT_EQ(Decode(QStringLiteral("LFTH=")), StationOnly(QStringLiteral("LFTH=")));
}

TEST(DecoderScanning, TextBeginningWithABlankLeavesEveryFieldInitial) {
    EXPECT_EQ(Decode(QStringLiteral(" LFTH 021000Z 22013KT 9999 12/10 Q1016")), Bulletin());
}

TEST(DecoderScanning, TwoBlanksAfterTheStationEndTheRunInTheTimeSection) {
    const Bulletin b = Decode(QStringLiteral("LFTH  021000Z 22013KT 9999 12/10 Q1016"));
    EXPECT_EQ(b.Ida, u"LFTH");
    // The empty group is taken as the time: the day is nothing, the hour fails.
    EXPECT_EQ(b.DateReleve, u"/11/2004");
    EXPECT_TRUE(b.HeureReleve.isEmpty());
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderScanning, TwoBlanksInTheWindSectionLoseEverythingBehindThem) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT  9999 FEW016 12/10 Q1016"));
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.HeureReleve, u"10:00");
    EXPECT_TRUE(b.Visibilite.isEmpty());
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderScanning, TwoBlanksInTheSkySectionKeepTheLayersBefore) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 -RA FEW016  SCT230 12/10 Q1016"));
    EXPECT_EQ(b.Temps, u" Rain Light");
    EXPECT_EQ(b.Nuage, u" A few clouds at  1600 feets.");
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderScanning, TwoBlanksBeforeThePressureLeaveItUnread) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 12/10  Q1016"));
    EXPECT_EQ(b.Temperature, 12);
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderScanning, TrailingBlankEndsTheRunLikeTwoBlanks) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT "));
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_TRUE(b.Visibilite.isEmpty());
}

TEST(DecoderScanning, GroupEndingInEqualsEndsTheRunAfterItIsRead) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT= 9999 12/10 Q1016"));
    EXPECT_EQ(b.ForceNoeuds, 13);
    EXPECT_EQ(b.OrientationDegre, u"220");
    EXPECT_TRUE(b.Visibilite.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
}

TEST(DecoderScanning, HandedOnGroupWithEqualsIsReadByTheSectionThatTakesIt) {
    // 9999= isn't numeric, so it goes down the chain to the temperature, which reads 99 and ends.
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 9999= 12/10 Q1016"));
    EXPECT_TRUE(b.Visibilite.isEmpty());
    EXPECT_EQ(b.Temperature, 99);
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderScanning, LineBreaksStayInsideTheirGroup) {
    // "021000Z\r\n22013KT" is one group: the time is read from it, and the wind never comes.
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z\r\n22013KT 9999 12/10 Q1016"));
    EXPECT_EQ(b.HeureReleve, u"10:00");
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.ForceNoeuds, 0);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
    EXPECT_EQ(b.Pression, 1016);
}

TEST(DecoderScanning, TheRunStopsAfterThePressureGroup) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 12/10 Q1016 -RA FEW010"));
    EXPECT_EQ(b.Pression, 1016);
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_TRUE(b.Nuage.isEmpty());
}

// --- Unknown groups travel down the chain --------------------------------------------------------

TEST(DecoderScanning, AutoUsesUpTheTemperatureAndTheWindIsTakenAsPressure) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z AUTO 22013KT 9999 FEW016 12/10 Q1016"));
    EXPECT_EQ(b.HeureReleve, u"10:00");
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.ForceNoeuds, 0);
    EXPECT_TRUE(b.Visibilite.isEmpty());
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 0);
}

TEST(DecoderScanning, MissingWindLeavesDirectionEmptyAndSpeedZero) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 9999 FEW016 22/06 Q1016"));
    EXPECT_TRUE(b.OrientationDegre.isEmpty());
    EXPECT_EQ(b.ForceNoeuds, 0);
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
    EXPECT_EQ(b.Nuage, u" A few clouds at  1600 feets.");
    EXPECT_EQ(b.Temperature, 22);
    EXPECT_EQ(b.Pression, 1016);
}

TEST(DecoderScanning, UnknownVisibilityBecomesTheTemperature) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 4000NE FEW016 12/10 Q1016"));
    EXPECT_TRUE(b.Visibilite.isEmpty());
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 40);
    EXPECT_EQ(b.Pression, 0);  // FEW016 taken as the pressure
}

TEST(DecoderScanning, UnknownVisibilityTakesTheNextGroupAsPressureAndEnds) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 4000NE Q1009 12/10 Q1016"));
    EXPECT_EQ(b.Temperature, 40);
    EXPECT_EQ(b.Pression, 1009);
}

// --- The 16-bit index ---------------------------------------------------------------------------

TEST(DecoderScanning, VeryLongTextEndsWhereTheIndexCanGrowNoMore) {
    // Groups 4 to 32767 are weather groups, each consumed in place; group 32767 is the last that
    // a 16-bit index can reach, and the run ends there instead of going round on it.
    QString text = QStringLiteral("LFTH 021000Z 22013KT 9999");
    for (int i = 0; i < 40000; ++i) text += QStringLiteral(" -RA");
    const Bulletin b = Decode(text);
    const QString phrase = QStringLiteral(" Rain Light");
    EXPECT_EQ(b.Temps.size(), phrase.size() * (32767 - 4 + 1));
    EXPECT_TRUE(b.Temps.startsWith(phrase + phrase));
    EXPECT_EQ(b.Temperature, 0);
}
