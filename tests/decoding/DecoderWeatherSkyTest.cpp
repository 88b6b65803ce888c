// Present weather and sky: the code tables, their order, and the phrases letter for letter.
#include "DecodingTestSupport.h"

#include <gtest/gtest.h>

using namespace skelda;

namespace {

// The Temps of a report whose weather place holds Weather.
QString TempsOf(const QString& weather) {
    return Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 ") + weather + QStringLiteral(" FEW016 12/10 Q1016")).Temps;
}

// The decode of a report whose sky place holds Sky.
Bulletin WithSky(const QString& sky) {
    return Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 ") + sky + QStringLiteral(" 12/10 Q1016"));
}

}  // namespace

// --- Present weather ------------------------------------------------------------------------------

TEST(DecoderWeather, PhraseComesBeforeTheIntensityWord) { EXPECT_EQ(TempsOf(QStringLiteral("-RA")), u" Rain Light"); }

TEST(DecoderWeather, SeveralWeatherGroupsAppendInTheOrderOfTheMessage) {
    EXPECT_EQ(TempsOf(QStringLiteral("-RA BR")), u" Rain Light Mist Moderate");
}

TEST(DecoderWeather, LaterGroupCannotClearAnEarlierPhrase) {
    EXPECT_EQ(TempsOf(QStringLiteral("-SN +RA")), u" Snow Light Rain Heavy");
}

TEST(DecoderWeather, OnlyTheFirstFittingCodeCounts) {
    EXPECT_EQ(TempsOf(QStringLiteral("+TSRA")), u" Rain Heavy");
    EXPECT_EQ(TempsOf(QStringLiteral("FZRA")), u" Rain Moderate");
    EXPECT_EQ(TempsOf(QStringLiteral("BLSN")), u" Snow Moderate");
}

TEST(DecoderWeather, ShowerCodesOfRainAndSnowAreNeverReached) {
    EXPECT_EQ(TempsOf(QStringLiteral("SHRA")), u" Rain Moderate");
    EXPECT_EQ(TempsOf(QStringLiteral("SHSN")), u" Snow Moderate");
}

TEST(DecoderWeather, ShowerIsReachedOnlyWithoutAnEarlierCode) {
    EXPECT_EQ(TempsOf(QStringLiteral("VCSH")), u" Shower Moderate");
    EXPECT_EQ(TempsOf(QStringLiteral("SHPL")), u" Shower Moderate");
    EXPECT_EQ(TempsOf(QStringLiteral("-SHPL")), u" Shower Light");
}

TEST(DecoderWeather, ThunderstormAloneHasItsPhrase) {
    EXPECT_EQ(TempsOf(QStringLiteral("+TS")), u" Thunderstorm Heavy");
}

TEST(DecoderWeather, HailAndDrizzleHaveTheirPhrases) {
    EXPECT_EQ(TempsOf(QStringLiteral("GR")), u" Hail Moderate");
    EXPECT_EQ(TempsOf(QStringLiteral("-DZ")), u" Drizzle Light");
}

TEST(DecoderWeather, FreezingAloneIsNeigeFondueWithoutIntensity) {
    EXPECT_EQ(TempsOf(QStringLiteral("FZ")), u" Neige fondue");
}

TEST(DecoderWeather, FreezingFogIsCaughtByFog) { EXPECT_EQ(TempsOf(QStringLiteral("FZFG")), u" Fog Moderate"); }

TEST(DecoderWeather, FreezingWithASignIsNoWeatherCode) {
    // "-FZ" isn't exactly "FZ", and nothing else fits: it goes on to the sky and the temperature.
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 -FZ 12/10 Q1016"));
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
}

TEST(DecoderWeather, CodesWithoutASignCountAsModerate) {
    EXPECT_EQ(TempsOf(QStringLiteral("FG")), u" Fog Moderate");
    EXPECT_EQ(TempsOf(QStringLiteral("BR")), u" Mist Moderate");
}

TEST(DecoderWeather, VerticalVisibilityOfSlashesIsFogWithoutIntensity) {
    EXPECT_EQ(TempsOf(QStringLiteral("VV///")), u" Fog");
}

TEST(DecoderWeather, NoWeatherGroupLeavesTempsEmptyAndClearSkyNeverGoesThere) {
    const Bulletin b = WithSky(QStringLiteral("SKC"));
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_EQ(b.Nuage, u" Clear Sky");
}

TEST(DecoderWeather, WeatherAfterTheSkyIsNotRead) {
    // Back in no earlier section: -RA behind the sky goes on to the temperature.
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 FEW016 -RA 12/10 Q1016"));
    EXPECT_TRUE(b.Temps.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
}

// --- Sky ------------------------------------------------------------------------------------------

TEST(DecoderSky, ClearSkyCodesGiveClearSky) {
    EXPECT_EQ(WithSky(QStringLiteral("SKC")).Nuage, u" Clear Sky");
    EXPECT_EQ(WithSky(QStringLiteral("NSC")).Nuage, u" Clear Sky");
    EXPECT_EQ(WithSky(QStringLiteral("CLR")).Nuage, u" Clear Sky");
}

TEST(DecoderSky, CavokReachesTheSkyOnlyBehindAVisibilityGroup) {
    const Bulletin b = WithSky(QStringLiteral("CAVOK"));
    EXPECT_EQ(b.Nuage, u" Clear Sky");
    EXPECT_EQ(b.Visibilite, u"Visibility Less then 9999 Meter");
    EXPECT_EQ(b.Temperature, 12);
}

TEST(DecoderSky, LayerPhrasesKeepTheirBlanksAndWords) {
    EXPECT_EQ(WithSky(QStringLiteral("OVC010")).Nuage, u" Sky covererd at 1000 feets.");
    EXPECT_EQ(WithSky(QStringLiteral("SCT020")).Nuage, u" Scattered clouds at 2000 feets.");
    EXPECT_EQ(WithSky(QStringLiteral("BKN030")).Nuage, u" Broken clouds at  3000 feets.");
    EXPECT_EQ(WithSky(QStringLiteral("FEW040")).Nuage, u" A few clouds at  4000 feets.");
}

TEST(DecoderSky, HeightsAreWrittenWithoutPadding) {
    EXPECT_EQ(WithSky(QStringLiteral("FEW005")).Nuage, u" A few clouds at  500 feets.");
    EXPECT_EQ(WithSky(QStringLiteral("OVC000")).Nuage, u" Sky covererd at 0 feets.");
}

TEST(DecoderSky, CloudTypeBehindTheHeightIsIgnored) {
    EXPECT_EQ(WithSky(QStringLiteral("BKN025CB SCT040TCU")).Nuage,
              u" Broken clouds at  2500 feets. Scattered clouds at 4000 feets.");
}

TEST(DecoderSky, SampleLayersGiveTheSampleSky) {
    EXPECT_EQ(WithSky(QStringLiteral("FEW016 SCT230")).Nuage,
              u" A few clouds at  1600 feets. Scattered clouds at 23000 feets.");
}

TEST(DecoderSky, HighestHeightThatFitsSixteenBitsIsWritten) {
    EXPECT_EQ(WithSky(QStringLiteral("OVC327")).Nuage, u" Sky covererd at 32700 feets.");
}

TEST(DecoderSky, HeightThatOverflowsSixteenBitsGivesNoPhraseButConsumesTheGroup) {
    const Bulletin b = WithSky(QStringLiteral("OVC330"));
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 12);
    EXPECT_EQ(b.Pression, 1016);
}

TEST(DecoderSky, LayerOfSlashesAddsNothingAndTheNextGroupIsStillSky) {
    const Bulletin b = WithSky(QStringLiteral("FEW/// BKN040"));
    EXPECT_EQ(b.Nuage, u" Broken clouds at  4000 feets.");
    EXPECT_EQ(b.Temperature, 12);
}

TEST(DecoderSky, VerticalVisibilityWithDigitsUsesUpTheTemperature) {
    const Bulletin b = Decode(QStringLiteral("LFTH 021000Z 22013KT 0100 FG VV003 M01/M02 Q1020"));
    EXPECT_EQ(b.Temps, u" Fog Moderate");
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 0);  // M01/M02 taken as the pressure
}

TEST(DecoderSky, NoCloudDetectedIsTakenForTheTemperature) {
    const Bulletin b = WithSky(QStringLiteral("NCD"));
    EXPECT_TRUE(b.Nuage.isEmpty());
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 0);  // 12/10 has no "A" and its number fails
}
