// The pieces of a forecast page: the sentences, the periods, the symbols, the places and codes,
// and the pages that have no forecast.
#include "PageMakerFixture.h"

#include <QFile>

#include "Periods.h"
#include "SeedDatabase.h"
#include "Wording.h"

using namespace skelda;
using namespace skelda::test;

TEST(PageMakerWords, TemperaturesFromMinusNineToNinetyNineAreTwoCharactersAndAnF) {
    EXPECT_EQ(TemperatureSentence(true, 75), QStringLiteral("High 75F."));
    EXPECT_EQ(TemperatureSentence(false, 54), QStringLiteral("Low 54F."));
    EXPECT_EQ(TemperatureSentence(true, 99), QStringLiteral("High 99F."));
    EXPECT_EQ(TemperatureSentence(true, 5), QStringLiteral("High 5F."));
    EXPECT_EQ(TemperatureSentence(false, 0), QStringLiteral("Low 0F."));
    EXPECT_EQ(TemperatureSentence(false, -9), QStringLiteral("Low -9F."));
}

TEST(PageMakerWords, TemperaturesBeyondThatAreSaidInWordsWithoutAnF) {
    EXPECT_EQ(TemperatureSentence(false, -10), QStringLiteral("Low 10 below zero."));
    EXPECT_EQ(TemperatureSentence(false, -40), QStringLiteral("Low 40 below zero."));
    EXPECT_EQ(TemperatureSentence(true, 100), QStringLiteral("High 100 degrees."));
    EXPECT_EQ(TemperatureSentence(true, 121), QStringLiteral("High 121 degrees."));
}

// What the reader writes behind each: the Celsius of the number as the reader reads it.
TEST(PageMakerWords, TheReaderConvertsEachTemperatureSentenceToItsOwnCelsius) {
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral(" Sunny. High 5F.")), QStringLiteral(" Sunny. High 5F(-15)c."));
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral(" Clear. Low -9F.")), QStringLiteral(" Clear. Low -9F(-23)c."));
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral(" Clear. Low 0F.")), QStringLiteral(" Clear. Low 0F(-18)c."));
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral(" Sunny. High 99F.")), QStringLiteral(" Sunny. High 99F(37)c."));
}

TEST(PageMakerWords, CelsiusGoesToTheNearestWholeFahrenheit) {
    EXPECT_EQ(Fahrenheit(23.9), 75);
    EXPECT_EQ(Fahrenheit(-17.8), 0);
    EXPECT_EQ(Fahrenheit(-23.3), -10);
    EXPECT_EQ(Fahrenheit(37.8), 100);
    EXPECT_EQ(Fahrenheit(-40), -40);
}

TEST(PageMakerWords, WindDirectionsAreTheEightCompassWords) {
    EXPECT_EQ(CompassWord(0), QStringLiteral("north"));
    EXPECT_EQ(CompassWord(22.4), QStringLiteral("north"));
    EXPECT_EQ(CompassWord(22.5), QStringLiteral("northeast"));
    EXPECT_EQ(CompassWord(90), QStringLiteral("east"));
    EXPECT_EQ(CompassWord(225), QStringLiteral("southwest"));
    EXPECT_EQ(CompassWord(315), QStringLiteral("northwest"));
    EXPECT_EQ(CompassWord(337.5), QStringLiteral("north"));
    EXPECT_EQ(CompassWord(360), QStringLiteral("north"));
}

TEST(PageMakerWords, SymbolsReadAsWhatFalls) {
    const auto weather = [](const char* symbol) { return ReadSymbol(QString::fromLatin1(symbol)); };
    ASSERT_TRUE(weather("lightrainshowers_day"));
    EXPECT_EQ(weather("lightrainshowers_day")->kind, Weather::Rain);
    EXPECT_EQ(weather("lightrainshowers_day")->intensity, -1);
    EXPECT_TRUE(weather("lightrainshowers_day")->showers);
    EXPECT_FALSE(weather("lightrainshowers_day")->thunder);
    ASSERT_TRUE(weather("heavysnowandthunder"));
    EXPECT_EQ(weather("heavysnowandthunder")->kind, Weather::Snow);
    EXPECT_EQ(weather("heavysnowandthunder")->intensity, 1);
    EXPECT_TRUE(weather("heavysnowandthunder")->thunder);
    // The source's own spelling of two symbols.
    ASSERT_TRUE(weather("lightssleetshowersandthunder_night"));
    EXPECT_EQ(weather("lightssleetshowersandthunder_night")->kind, Weather::Sleet);
    ASSERT_TRUE(weather("lightssnowshowersandthunder_polartwilight"));
    EXPECT_EQ(weather("lightssnowshowersandthunder_polartwilight")->kind, Weather::Snow);
    EXPECT_EQ(weather("fog")->kind, Weather::Fog);
    EXPECT_EQ(weather("partlycloudy_night")->kind, Weather::Dry);
    EXPECT_FALSE(weather("tornado"));
    EXPECT_FALSE(weather(""));
    EXPECT_FALSE(weather("rain.gif"));
}

TEST(PageMakerWords, InTheDayTheFirstPeriodIsTodayUntilSixInTheEvening) {
    const QList<Period> periods = SixPeriods(Utc("2024-07-10T10:20:00Z"), QTimeZone("Europe/Paris"));
    ASSERT_EQ(periods.size(), 6);
    EXPECT_EQ(periods[0].heading, QStringLiteral("Today"));
    EXPECT_EQ(periods[0].start, Utc("2024-07-10T10:00:00Z"));
    EXPECT_EQ(periods[0].end, Utc("2024-07-10T16:00:00Z"));
    EXPECT_TRUE(periods[0].day);
    EXPECT_EQ(periods[1].heading, QStringLiteral("Tonight"));
    EXPECT_EQ(periods[1].end, Utc("2024-07-11T04:00:00Z"));
    EXPECT_FALSE(periods[1].day);
    EXPECT_EQ(periods[2].heading, QStringLiteral("Thursday"));
    EXPECT_EQ(periods[3].heading, QStringLiteral("Thursday night"));
    EXPECT_EQ(periods[5].heading, QStringLiteral("Friday night"));
    EXPECT_EQ(periods[5].end, Utc("2024-07-13T04:00:00Z"));
}

TEST(PageMakerWords, BeforeSixInTheMorningTheFirstPeriodIsTonightAndThenThatDay) {
    const QList<Period> periods = SixPeriods(Utc("2024-07-10T03:59:00Z"), QTimeZone("Europe/Paris"));
    EXPECT_EQ(periods[0].heading, QStringLiteral("Tonight"));
    EXPECT_EQ(periods[0].start, Utc("2024-07-10T03:00:00Z"));
    EXPECT_EQ(periods[0].end, Utc("2024-07-10T04:00:00Z"));
    EXPECT_EQ(periods[1].heading, QStringLiteral("Wednesday"));
    EXPECT_EQ(periods[5].heading, QStringLiteral("Friday"));
}

TEST(PageMakerWords, AtSixInTheEveningTheFirstPeriodIsTonight) {
    const QList<Period> periods = SixPeriods(Utc("2024-07-10T16:00:00Z"), QTimeZone("Europe/Paris"));
    EXPECT_EQ(periods[0].heading, QStringLiteral("Tonight"));
    EXPECT_EQ(periods[1].heading, QStringLiteral("Thursday"));
    EXPECT_EQ(periods[1].start, Utc("2024-07-11T04:00:00Z"));
}

// The night of the change to summer time is an hour shorter, and the day after starts at 06:00
// summer time.
TEST(PageMakerWords, PeriodsFollowSummerTime) {
    const QList<Period> periods = SixPeriods(Utc("2024-03-30T20:00:00Z"), QTimeZone("Europe/Paris"));
    EXPECT_EQ(periods[0].heading, QStringLiteral("Tonight"));
    EXPECT_EQ(periods[0].end, Utc("2024-03-31T04:00:00Z"));
    EXPECT_EQ(periods[1].heading, QStringLiteral("Sunday"));
    EXPECT_EQ(periods[1].end, Utc("2024-03-31T16:00:00Z"));
}

TEST(PageMakerPlaces, StationCodesAndTheOldPortalsCodesFindTheirPlaces) {
    const std::optional<Place> paris = FindPlace(u"LFPG");
    ASSERT_TRUE(paris);
    EXPECT_DOUBLE_EQ(paris->latitude, 49.0167);
    EXPECT_DOUBLE_EQ(paris->longitude, 2.5333);
    EXPECT_EQ(paris->zone, QStringLiteral("Europe/Paris"));
    EXPECT_EQ(paris->name, QStringLiteral("Paris-Charles de Gaulle"));
    ASSERT_TRUE(FindPlace(u"lfpg"));
    EXPECT_EQ(FindPlace(u"lfpg")->code, QStringLiteral("LFPG"));

    const std::optional<Place> old = FindPlace(u"FRXX0076");
    ASSERT_TRUE(old);
    EXPECT_EQ(old->name, QStringLiteral("Paris"));
    EXPECT_EQ(SourcePath(*old), SourcePath(*paris));
    const auto sameAs = [](const char16_t* earlier, const char16_t* station) {
        return FindPlace(earlier) && FindPlace(station) &&
               SourcePath(*FindPlace(earlier)) == SourcePath(*FindPlace(station));
    };
    EXPECT_TRUE(sameAs(u"FRXX0055", u"LFLL"));
    EXPECT_TRUE(sameAs(u"FRXX0059", u"LFML"));
    EXPECT_TRUE(sameAs(u"FRXX0073", u"LFMN"));
    EXPECT_TRUE(sameAs(u"UKXX0085", u"EGLL"));
    EXPECT_EQ(FindPlace(u"UKXX0085")->zone, QStringLiteral("Europe/London"));
    EXPECT_FALSE(FindPlace(u"LFTF"));
    EXPECT_FALSE(FindPlace(u"ZZZZ"));
    EXPECT_EQ(BuiltInPlaces().size(), 347);
}

TEST(PageMakerPlaces, TheSourceIsAskedWithFourDecimals) {
    EXPECT_EQ(SourcePath(*FindPlace(u"LFPG")),
              QByteArray("/weatherapi/locationforecast/2.0/compact?lat=49.0167&lon=2.5333"));
    EXPECT_EQ(SourcePath(*FindPlace(u"EGLL")),
              QByteArray("/weatherapi/locationforecast/2.0/compact?lat=51.4833&lon=-0.4500"));
    EXPECT_EQ(SourcePath(*FindPlace(u"NZAA")),
              QByteArray("/weatherapi/locationforecast/2.0/compact?lat=-37.0167&lon=174.8000"));
}

TEST(PageMakerPlaces, EveryPlaceHasAZoneTheSystemKnowsAndAnAsciiName) {
    for (const Place& place : BuiltInPlaces()) {
        EXPECT_TRUE(QTimeZone(place.zone.toLatin1()).isValid()) << place.code.toStdString();
        for (const QChar c : place.name) EXPECT_LT(c.unicode(), 0x80) << place.code.toStdString();
    }
}

// Every forecast code of the delivered database is answered, and so each starred airport gets a
// forecast.
TEST(PageMakerPlaces, EveryForecastCodeOfTheDeliveredDatabaseHasItsPlace) {
    QFile seed(QStringLiteral(SKELDA_SOURCE_DIR "/data/airports.csv"));
    ASSERT_TRUE(seed.open(QIODevice::ReadOnly));
    QList<SeedAirport> airports;
    ASSERT_TRUE(ParseAirports(QString::fromUtf8(seed.readAll()), airports, nullptr));
    int codes = 0;
    for (const SeedAirport& airport : airports) {
        if (!airport.codeforecast) continue;
        ++codes;
        EXPECT_TRUE(FindPlace(*airport.codeforecast)) << airport.codeforecast->toStdString();
    }
    EXPECT_EQ(codes, 342);
}

TEST(PageMakerPlaces, ATableWithAnotherHeaderOrABadNumberIsRefusedNamingItsLine) {
    QList<Place> places;
    QString error;
    EXPECT_FALSE(ReadPlaces(QStringLiteral("code;lat;lon;zone;name\n"), places, &error));
    EXPECT_EQ(error, QStringLiteral("line 1: the header isn't code;latitude;longitude;zone;name"));
    EXPECT_FALSE(
        ReadPlaces(QStringLiteral("# made by hand\ncode;latitude;longitude;zone;name\nLFPG;north;2.5;Europe/Paris;P\n"),
                   places, &error));
    EXPECT_EQ(error, QStringLiteral("line 3: a code, two numbers and a zone expected"));
    ASSERT_TRUE(ReadPlaces(QStringLiteral("code;latitude;longitude;zone;name\nLFPG;49.0167;2.5333;Europe/Paris;P\n"),
                           places, &error));
    ASSERT_EQ(places.size(), 1);
    EXPECT_EQ(places[0].zone, QStringLiteral("Europe/Paris"));
}

TEST(PageMakerCodes, OnlyLettersAndDigitsMakeACode) {
    EXPECT_TRUE(IsWellFormedCode(u"LFPG"));
    EXPECT_TRUE(IsWellFormedCode(u"FRXX0076"));
    EXPECT_TRUE(IsWellFormedCode(u"lfpg"));
    EXPECT_FALSE(IsWellFormedCode(u""));
    EXPECT_FALSE(IsWellFormedCode(u"LF/PG"));
    EXPECT_FALSE(IsWellFormedCode(u"../etc/passwd"));
    EXPECT_FALSE(IsWellFormedCode(u"LFPG.html"));
    EXPECT_FALSE(IsWellFormedCode(u"LFP\u00C9"));
    EXPECT_FALSE(IsWellFormedCode(u"LF PG"));
    EXPECT_FALSE(IsWellFormedCode(QString(33, u'A')));
}

TEST(PageMakerCodes, AnUnknownOrIllFormedCodeGivesTheUnknownCityPageWithoutAskingTheSource) {
    int asked = 0;
    const SourceFetch fetch = [&asked](const Place&) {
        ++asked;
        return std::optional<QByteArray>();
    };
    for (const char16_t* code : {u"ZZZZ", u"LFTF", u"LF/PG", u"", u"<b>"}) {
        const ForecastPage page = PageForCode(code, Utc("2024-07-10T10:20:00Z"), fetch);
        EXPECT_EQ(page.kind, PageKind::UnknownCity);
        const Lu lu = LireAvecLeLecteur(page.text);
        EXPECT_TRUE(lu.lu);
        EXPECT_EQ(lu.erreur, 0);
        EXPECT_EQ(lu.textes.value(0), QStringLiteral(" This city is unknown to the forecast portal."));
        EXPECT_EQ(lu.textes.size(), 6);
    }
    EXPECT_EQ(asked, 0);
}

TEST(PageMakerCodes, WithoutASourceNothingIsAskedAndThePageSaysNotAvailable) {
    const ForecastPage page = PageForCode(u"LFPG", Utc("2024-07-10T10:20:00Z"), SourceFetch());
    EXPECT_EQ(page.kind, PageKind::NotAvailable);
    const Lu lu = LireAvecLeLecteur(page.text);
    EXPECT_EQ(lu.titres.value(0), QStringLiteral("Today"));
    EXPECT_EQ(lu.textes.value(0), QStringLiteral(" The forecast is not available. Try again later."));
}

TEST(PageMakerCodes, AnOldPortalCodeAsksTheSourceForItsAirportsPlace) {
    QByteArray asked;
    const SourceFetch fetch = [&asked](const Place& place) {
        asked = SourcePath(place);
        return std::optional<QByteArray>(Reponse(QStringLiteral("paris-summer")));
    };
    const ForecastPage page = PageForCode(u"FRXX0076", Utc("2024-07-10T10:20:00Z"), fetch);
    EXPECT_EQ(asked, QByteArray("/weatherapi/locationforecast/2.0/compact?lat=49.0167&lon=2.5333"));
    EXPECT_EQ(page.kind, PageKind::Forecast);
    EXPECT_TRUE(page.text.contains(QStringLiteral("<h1>Paris</h1>")));
}

TEST(PageMakerCodes, ASourceThatCantBeReachedGivesTheFailurePage) {
    const SourceFetch fetch = [](const Place&) { return std::optional<QByteArray>(); };
    const ForecastPage page = PageForCode(u"LFPG", Utc("2024-07-10T10:20:00Z"), fetch);
    EXPECT_EQ(page.kind, PageKind::SourceFailure);
    const Lu lu = LireAvecLeLecteur(page.text);
    EXPECT_EQ(lu.textes.value(0), QStringLiteral(" The forecast source can't be reached. Try again in a minute."));
    EXPECT_EQ(lu.textes.value(5), QStringLiteral(" Not available."));
}

TEST(PageMakerCodes, ForecastsAndUnknownCitiesAreKeptAnHourTheOthersAMinute) {
    EXPECT_EQ(CacheSeconds(PageKind::Forecast), 3600);
    EXPECT_EQ(CacheSeconds(PageKind::UnknownCity), 3600);
    EXPECT_EQ(CacheSeconds(PageKind::NotAvailable), 60);
    EXPECT_EQ(CacheSeconds(PageKind::SourceFailure), 60);
    EXPECT_EQ(CgiReply({PageKind::Forecast, QStringLiteral("<html></html>\n")}),
              QByteArray("Status: 200 OK\nContent-Type: text/html\nX-Accel-Expires: 3600\n\n<html></html>\n"));
    EXPECT_EQ(CgiReply({PageKind::SourceFailure, QStringLiteral("x")}),
              QByteArray("Status: 200 OK\nContent-Type: text/html\nX-Accel-Expires: 60\n\nx"));
}

// A system without the zone (no time-zone data installed) still gets a page, in UTC.
TEST(PageMakerPlaces, AZoneTheSystemDoesntKnowGivesPagesInUtc) {
    const PagePlace place =
        PagePlaceOf({QStringLiteral("XXXX"), 10, 10, QStringLiteral("Nowhere/Atlantis"), QStringLiteral("X")});
    EXPECT_EQ(place.zone, QTimeZone::utc());
    const Lu lu = LireAvecLeLecteur(NotAvailablePage(Utc("2024-07-10T17:20:00Z"), place).text);
    EXPECT_EQ(lu.titres.value(0), QStringLiteral("Today"));
}
