// The page maker on source replies kept in tests/gateway/replies (made by makereplies.py there):
// every page goes through the forecast's own reader, which must give six blocks, each with its
// heading and its temperature converted as intended, and never a run-time error.
#include "PageMakerFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

// The page of a kept reply for the airport Code at Now, as the reader gives it.
Lu PageDe(const char* reply, const char* code, const char* now, PageKind expected = PageKind::Forecast) {
    const ForecastPage page = MakeForecastPage(Reponse(QString::fromLatin1(reply)), Utc(now), LieuDe(code));
    EXPECT_EQ(page.kind, expected);
    return LireAvecLeLecteur(page.text);
}

void ExpectReadWhole(const Lu& lu) {
    EXPECT_TRUE(lu.lu);
    EXPECT_EQ(lu.erreur, 0);
    EXPECT_FALSE(lu.sansFin);
}

const QStringList DayFirst{QStringLiteral("Today"),          QStringLiteral("Tonight"), QStringLiteral("Thursday"),
                           QStringLiteral("Thursday night"), QStringLiteral("Friday"),  QStringLiteral("Friday night")};

}  // namespace

TEST(PageMakerReplies, ParisInSummerGivesSixBlocksFromTodayWithTheirHighsAndLows) {
    const Lu lu = PageDe("paris-summer", "LFPG", "2024-07-10T10:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(
        lu.textes,
        (QStringList{
            QStringLiteral(" Partly cloudy. Southwest wind around 7 mph. High 75F(24)c."),
            QStringLiteral(" Clear. West wind around 2 mph. Low 54F(12)c."),
            QStringLiteral(" Mostly cloudy with rain showers, around 12 mm. South wind 9 to 18 mph. High 80F(27)c."),
            QStringLiteral(" Cloudy with light rain, around 4 mm. Southwest wind around 7 mph. Low 59F(15)c."),
            QStringLiteral(" Mostly sunny. Northwest wind 4 to 9 mph. High 72F(22)c."),
            QStringLiteral(" Clear. Calm wind. Low 61F(16)c."),
        }));
}

TEST(PageMakerReplies, ParisInWinterStartsTonightWithFogThenFreezingRainSnowAndSleet) {
    const Lu lu = PageDe("paris-winter", "LFPG", "2024-01-17T20:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres,
              (QStringList{QStringLiteral("Tonight"), QStringLiteral("Thursday"), QStringLiteral("Thursday night"),
                           QStringLiteral("Friday"), QStringLiteral("Friday night"), QStringLiteral("Saturday")}));
    EXPECT_EQ(lu.textes,
              (QStringList{
                  QStringLiteral(" Cloudy with fog. Calm wind. Low 27F(-3)c."),
                  QStringLiteral(" Cloudy with freezing rain, around 10 mm. East wind 9 to 16 mph. High 31F(-1)c."),
                  QStringLiteral(" Cloudy with light snow, around 2 cm. Northeast wind around 7 mph. Low 25F(-4)c."),
                  QStringLiteral(" Cloudy with sleet, around 6 mm. North wind 11 to 20 mph. High 36F(2)c."),
                  QStringLiteral(" Partly cloudy. North wind around 5 mph. Low 30F(-1)c."),
                  QStringLiteral(" Mostly sunny. West wind 4 to 9 mph. High 39F(4)c."),
              }));
}

// 5F, -5F and 0F still read as their numbers; -22F and -10F can't, and are said in words.
TEST(PageMakerReplies, WinnipegBelowZeroFahrenheitReadsRightOrSaysItInWords) {
    const Lu lu = PageDe("winnipeg-cold", "CYWG", "2024-01-10T14:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(lu.textes,
              (QStringList{
                  QStringLiteral(" Sunny. Northwest wind 11 to 18 mph. High 5F(-15)c."),
                  QStringLiteral(" Clear. Calm wind. Low 22 below zero."),
                  QStringLiteral(
                      " Mostly cloudy with light snow showers, around 1 cm. North wind 4 to 9 mph. High -5F(-21)c."),
                  QStringLiteral(" Clear. Northwest wind around 2 mph. Low 10 below zero."),
                  QStringLiteral(" Partly cloudy. South wind 7 to 13 mph. High 10F(-12)c."),
                  QStringLiteral(" Partly cloudy. South wind around 5 mph. Low 0F(-18)c."),
              }));
}

// 113F and 100F would read as 13 and 0: said in words; 99F still reads.
TEST(PageMakerReplies, PhoenixAbove99FahrenheitSaysItInWords) {
    const Lu lu = PageDe("phoenix-hot", "KPHX", "2024-07-17T19:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(lu.textes,
              (QStringList{
                  QStringLiteral(" Sunny. West wind 7 to 13 mph. High 113 degrees."),
                  QStringLiteral(" Clear. East wind around 5 mph. Low 90F(32)c."),
                  QStringLiteral(" Partly cloudy with rain showers and thunder, around 24 mm. Southeast wind 9 to 27 "
                                 "mph. High 100 degrees."),
                  QStringLiteral(" Mostly clear. East wind 4 to 9 mph. Low 85F(29)c."),
                  QStringLiteral(" Sunny. West wind around 7 mph. High 99F(37)c."),
                  QStringLiteral(" Clear. East wind around 3 mph. Low 82F(28)c."),
              }));
}

TEST(PageMakerReplies, LondonInAStormGivesItsGalesInMph) {
    const Lu lu = PageDe("london-storm", "EGLL", "2024-02-14T07:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(lu.textes,
              (QStringList{
                  QStringLiteral(" Cloudy with heavy rain, around 44 mm. Southwest wind 56 to 72 mph. High 52F(11)c."),
                  QStringLiteral(" Cloudy with heavy rain showers, around 18 mm. West wind 45 to 63 mph. Low 45F(7)c."),
                  QStringLiteral(" Mostly cloudy with light rain showers, around 2 mm. Northwest wind 16 to 22 mph. "
                                 "High 47F(8)c."),
                  QStringLiteral(" Mostly clear. Northwest wind around 9 mph. Low 38F(3)c."),
                  QStringLiteral(" Partly cloudy. West wind around 7 mph. High 49F(9)c."),
                  QStringLiteral(" Cloudy. Southwest wind around 9 mph. Low 40F(4)c."),
              }));
}

TEST(PageMakerReplies, SingaporeWithoutWindSaysCalm) {
    const Lu lu = PageDe("singapore-calm", "WSSS", "2024-03-06T01:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(
        lu.textes,
        (QStringList{
            QStringLiteral(" Partly cloudy. Calm wind. High 88F(31)c."),
            QStringLiteral(" Partly cloudy. Calm wind. Low 77F(25)c."),
            QStringLiteral(" Mostly cloudy with rain showers and thunder, around 36 mm. Calm wind. High 90F(32)c."),
            QStringLiteral(" Partly cloudy. Calm wind. Low 78F(26)c."),
            QStringLiteral(" Partly cloudy. Calm wind. High 89F(32)c."),
            QStringLiteral(" Mostly clear. Calm wind. Low 76F(24)c."),
        }));
}

// Winter in July, and the weekdays of the airport's own date, a day ahead of UTC's.
TEST(PageMakerReplies, SydneyNamesItsDaysByItsOwnDate) {
    const Lu lu = PageDe("sydney-winter", "YSSY", "2024-07-09T22:20:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(lu.textes,
              (QStringList{
                  QStringLiteral(" Mostly sunny. West wind 7 to 13 mph. High 63F(17)c."),
                  QStringLiteral(" Clear. West wind around 2 mph. Low 46F(8)c."),
                  QStringLiteral(" Mostly cloudy with light rain, around 5 mm. South wind 9 to 16 mph. High 61F(16)c."),
                  QStringLiteral(" Partly cloudy. South wind around 7 mph. Low 48F(9)c."),
                  QStringLiteral(" Sunny. Northwest wind 4 to 11 mph. High 65F(18)c."),
                  QStringLiteral(" Mostly clear. Northwest wind 2 to 7 mph. Low 49F(9)c."),
              }));
}

// 17:55 at UTC+5:45: "Today" is the one hour under way.
TEST(PageMakerReplies, KathmanduFiveMinutesBeforeEveningHasATodayOfOneHour) {
    const Lu lu = PageDe("kathmandu-evening", "VNKT", "2024-07-10T12:10:00Z");
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(lu.textes,
              (QStringList{
                  QStringLiteral(" Cloudy with rain, around 1 mm. Southeast wind around 4 mph. High 84F(29)c."),
                  QStringLiteral(" Cloudy with rain, around 24 mm. Southeast wind around 1 mph. Low 68F(20)c."),
                  QStringLiteral(" Mostly cloudy with rain showers, around 10 mm. Southwest wind 2 to 7 mph. "
                                 "High 81F(27)c."),
                  QStringLiteral(" Cloudy. Calm wind. Low 69F(21)c."),
                  QStringLiteral(" Mostly cloudy. West wind 2 to 7 mph. High 79F(26)c."),
                  QStringLiteral(" Mostly cloudy with light rain, around 3 mm. Calm wind. Low 67F(19)c."),
              }));
}

TEST(PageMakerReplies, ThePictureTableNamesTheFirstFourBlocksWeather) {
    const ForecastPage page =
        MakeForecastPage(Reponse(QStringLiteral("paris-summer")), Utc("2024-07-10T10:20:00Z"), LieuDe("LFPG"));
    EXPECT_TRUE(page.text.contains(QStringLiteral(
        "<td>-- FORECAST --</td><td><img src=\"partlycloudy_day.gif\" alt=\"Today\"></td><td><img "
        "src=\"clearsky_night.gif\" alt=\"Tonight\"></td><td><img src=\"rainshowers_day.gif\" alt=\"Thursday\"></td>"
        "<td><img src=\"lightrain.gif\" alt=\"Thursday night\"></td></tr></table>\n<!--ENDFC-->")));
    QString liste;
    ExtrairePrevision(page.text, liste);
    EXPECT_EQ(liste, QStringLiteral("ay.gif,ht.gif,ay.gif,in.gif,"));
}

TEST(PageMakerReplies, APageIsPlainAsciiWithLineFeedsAloneAndCreditsTheSource) {
    const ForecastPage page =
        MakeForecastPage(Reponse(QStringLiteral("paris-winter")), Utc("2024-01-17T20:20:00Z"), LieuDe("LFPG"));
    for (const QChar c : page.text) {
        EXPECT_LT(c.unicode(), 0x80);
        EXPECT_NE(c, u'\r');
    }
    EXPECT_TRUE(page.text.contains(QStringLiteral("<!--TEXT FORECAST-->\n<b>Tonight:</b> Cloudy with fog.")));
    EXPECT_TRUE(page.text.contains(QStringLiteral("<p>Data from MET Norway. Made 2024-01-17 20:20 UTC.</p>")));
    EXPECT_TRUE(page.text.contains(QStringLiteral("<title>Skelda forecast: Paris-Charles de Gaulle</title>")));
}

TEST(PageMakerReplies, AReplyCutInItsMiddleSaysTheForecastIsNotAvailable) {
    const Lu lu = PageDe("paris-cut", "LFPG", "2024-07-10T10:20:00Z", PageKind::NotAvailable);
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.titres, DayFirst);
    EXPECT_EQ(lu.textes.value(0), QStringLiteral(" The forecast is not available. Try again later."));
    EXPECT_EQ(lu.textes.mid(1), QStringList(5, QStringLiteral(" Not available.")));
}

TEST(PageMakerReplies, NonsenseValuesSayTheForecastIsNotAvailable) {
    const Lu lu = PageDe("paris-nonsense", "LFPG", "2024-07-10T10:20:00Z", PageKind::NotAvailable);
    ExpectReadWhole(lu);
    EXPECT_EQ(lu.textes.value(0), QStringLiteral(" The forecast is not available. Try again later."));
}

TEST(PageMakerReplies, OnlyTheMissingWindAloneAlsoSaysNotAvailable) {
    QByteArray reply = Reponse(QStringLiteral("paris-summer"));
    // The first step of the reply loses its wind speed (the units, before the steps, name it too).
    const qsizetype at = reply.indexOf("\"wind_speed\":", reply.indexOf("\"timeseries\""));
    ASSERT_GT(at, 0);
    reply.replace(at, qsizetype(strlen("\"wind_speed\"")), "\"wind_gusts\"");
    const ForecastPage page = MakeForecastPage(reply, Utc("2024-07-10T10:20:00Z"), LieuDe("LFPG"));
    EXPECT_EQ(page.kind, PageKind::NotAvailable);
    EXPECT_EQ(LireAvecLeLecteur(page.text).textes.size(), 6);
}

TEST(PageMakerReplies, AnErrorPageOrAnEmptyReplyInsteadOfJsonSaysNotAvailable) {
    for (const QByteArray& reply : {QByteArray("<html><body>502 Bad Gateway</body></html>"), QByteArray(),
                                    QByteArray("{\"type\":\"Feature\",\"properties\":{}}"), QByteArray("[1,2,3]")}) {
        const ForecastPage page = MakeForecastPage(reply, Utc("2024-07-10T10:20:00Z"), LieuDe("LFPG"));
        EXPECT_EQ(page.kind, PageKind::NotAvailable) << reply.toStdString();
        const Lu lu = LireAvecLeLecteur(page.text);
        ExpectReadWhole(lu);
        EXPECT_EQ(lu.textes.size(), 6);
    }
}

// A reply kept too long: its steps end before the sixth period does.
TEST(PageMakerReplies, AReplyThatDoesntReachTheSixthPeriodSaysNotAvailable) {
    const ForecastPage page =
        MakeForecastPage(Reponse(QStringLiteral("paris-summer")), Utc("2024-07-18T10:20:00Z"), LieuDe("LFPG"));
    EXPECT_EQ(page.kind, PageKind::NotAvailable);
}

TEST(PageMakerReplies, AReplyFromLaterThanNowSaysNotAvailable) {
    const ForecastPage page =
        MakeForecastPage(Reponse(QStringLiteral("paris-summer")), Utc("2024-07-09T10:20:00Z"), LieuDe("LFPG"));
    EXPECT_EQ(page.kind, PageKind::NotAvailable);
}
