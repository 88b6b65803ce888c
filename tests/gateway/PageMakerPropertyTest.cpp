// A thousand random forecasts, for random airports at random times: no page the forecast's own
// reader fails on or loops on, and on every forecast page each temperature converted as written.
#include "PageMakerFixture.h"

#include <QRegularExpression>

#include <cmath>
#include <random>

using namespace skelda;
using namespace skelda::test;

namespace {

const QStringList Symbols{
    QStringLiteral("clearsky_day"), QStringLiteral("clearsky_night"), QStringLiteral("clearsky_polartwilight"),
    QStringLiteral("fair_day"), QStringLiteral("fair_night"), QStringLiteral("partlycloudy_day"),
    QStringLiteral("partlycloudy_night"), QStringLiteral("cloudy"), QStringLiteral("fog"), QStringLiteral("rain"),
    QStringLiteral("lightrain"), QStringLiteral("heavyrain"), QStringLiteral("rainshowers_day"),
    QStringLiteral("lightrainshowers_night"), QStringLiteral("heavyrainshowersandthunder_day"),
    QStringLiteral("rainandthunder"), QStringLiteral("sleet"), QStringLiteral("lightsleet"),
    QStringLiteral("heavysleetshowers_day"), QStringLiteral("lightssleetshowersandthunder_night"),
    QStringLiteral("snow"), QStringLiteral("lightsnow"), QStringLiteral("heavysnowandthunder"),
    QStringLiteral("snowshowers_polartwilight"), QStringLiteral("lightssnowshowersandthunder_day"),
    // What no source should send, and still may.
    QStringLiteral(""), QStringLiteral("Fog"), QStringLiteral("<b>Freezing</b>"), QStringLiteral("rain.gif"),
    QStringLiteral("freezingrain"), QStringLiteral("\u00e9t\u00e9")};

struct Tirage {
    std::mt19937 rng;
    double Uniforme(double low, double high) { return std::uniform_real_distribution<double>(low, high)(rng); }
    int Entier(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng); }
    bool Chance(double p) { return Uniforme(0, 1) < p; }

    Pas UnPas() {
        Pas pas;
        pas.temperature = std::round(Uniforme(-65, 55) * 10) / 10;
        if (Chance(0.002)) pas.temperature = Chance(0.5) ? 1000 : -500;
        pas.vent = std::round(Uniforme(0, Chance(0.1) ? 60 : 15) * 10) / 10;
        pas.direction = std::round(Uniforme(0, 360));
        pas.nuages = std::round(Uniforme(0, 100));
        pas.symbole = Symbols[Entier(0, int(Symbols.size()) - 1)];
        pas.pluie = Chance(0.5) ? 0 : std::round(Uniforme(0, 12) * 10) / 10;
        return pas;
    }

    // A reply, sometimes with a value left out or cut short, as a broken source might send it.
    QByteArray UneReponse(const QDateTime& now) {
        const QDateTime heure(now.date(), QTime(now.time().hour(), 0), Qt::UTC);
        const QDateTime debut = heure.addSecs(qint64{-3600} * Entier(0, 2));
        QByteArray reply = ReponseFaite(debut, Entier(0, 90), [this](const QDateTime&) { return UnPas(); });
        const int sort = Entier(0, 19);
        if (sort == 0) {
            const QByteArray keys[] = {"\"wind_speed\"", "\"air_temperature\"", "\"cloud_area_fraction\"",
                                       "\"wind_from_direction\"", "\"time\""};
            const QByteArray& key = keys[Entier(0, 4)];
            const qsizetype at = reply.indexOf(key, Entier(0, int(reply.size()) - 1));
            if (at >= 0) reply.replace(at, key.size(), "\"missing\"");
        } else if (sort == 1) {
            reply.truncate(Entier(0, int(reply.size())));
        } else if (sort == 2) {
            for (int i = 0; i < 5; ++i) reply[Entier(0, int(reply.size()) - 1)] = char(Entier(1, 255));
        }
        return reply;
    }
};

int CelsiusAsTheReaderGivesIt(int fahrenheit) { return int(std::lround((fahrenheit - 32) * 5 / 9.0)); }

}  // namespace

TEST(PageMakerProperty, AThousandRandomForecastsAllReadWithoutFailureAndConvertAsWritten) {
    Tirage tirage{std::mt19937(19)};
    const QList<Place>& places = BuiltInPlaces();
    const QRegularExpression block(QStringLiteral("<b>([^<]*):</b>([^<]*)<p>\n"));
    const QRegularExpression temperature(QStringLiteral("(-?\\d+)F\\.$"));
    const QDateTime origin = Utc("2020-01-01T00:00:00Z");
    int forecasts = 0;
    for (int i = 0; i < 1000; ++i) {
        const Place& place = places[tirage.Entier(0, int(places.size()) - 1)];
        const QDateTime now = origin.addSecs(qint64(tirage.Uniforme(0, 16 * 365.25 * 86400)));
        const ForecastPage page = MakeForecastPage(tirage.UneReponse(now), now, PagePlaceOf(place));
        const std::string where = place.code.toStdString() + " at " + now.toString(Qt::ISODate).toStdString();
        ASSERT_TRUE(page.kind == PageKind::Forecast || page.kind == PageKind::NotAvailable) << where;
        for (const QChar c : page.text) ASSERT_TRUE(c.unicode() < 0x80 && c != u'\r') << where;

        const Lu lu = LireAvecLeLecteur(page.text);
        ASSERT_TRUE(lu.lu) << where;
        ASSERT_EQ(lu.erreur, 0) << where;
        ASSERT_FALSE(lu.sansFin) << where;
        ASSERT_EQ(lu.titres.size(), 6) << where;
        if (page.kind != PageKind::Forecast) continue;
        ++forecasts;

        auto blocks = block.globalMatch(page.text);
        for (int b = 0; b < 6; ++b) {
            ASSERT_TRUE(blocks.hasNext()) << where;
            const QRegularExpressionMatch written = blocks.next();
            EXPECT_EQ(lu.titres[b], written.captured(1)) << where;
            const QString text = written.captured(2);
            const QRegularExpressionMatch f = temperature.match(text);
            if (f.hasMatch()) {
                const int fahrenheit = f.captured(1).toInt();
                EXPECT_TRUE(fahrenheit >= -9 && fahrenheit <= 99) << where;
                EXPECT_EQ(lu.textes[b],
                          text.chopped(1) + QStringLiteral("(%1)c.").arg(CelsiusAsTheReaderGivesIt(fahrenheit)))
                    << where;
            } else {
                EXPECT_TRUE(text.endsWith(QStringLiteral(" below zero.")) || text.endsWith(QStringLiteral(" degrees.")))
                    << where << " " << text.toStdString();
                EXPECT_EQ(lu.textes[b], text) << where;
            }
        }
    }
    // Most of the replies are whole and sane, so most of the pages are forecasts.
    EXPECT_GT(forecasts, 600);
}
