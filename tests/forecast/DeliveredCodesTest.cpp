// The forecast codes that come with the delivered database.
#include <gtest/gtest.h>
#include <algorithm>

#include <QFile>
#include <QStringList>

#include "SeedDatabase.h"

using namespace skelda;

namespace {

QList<SeedAirport> DeliveredAirports() {
    QFile seed(QStringLiteral(SKELDA_AIRPORTS_SEED));
    if (!seed.open(QIODevice::ReadOnly)) return {};
    QList<SeedAirport> airports;
    QString error;
    if (!ParseAirports(QString::fromUtf8(seed.readAll()), airports, &error)) return {};
    return airports;
}

}  // namespace

// The portal's code of an airport is its station code; the three airports that the source of
// coordinates doesn't place have none, and say "No forecast code for city".
TEST(DeliveredDatabase, EveryAirportHasItsStationCodeAsForecastCodeButThreeWithoutAPlace) {
    const QList<SeedAirport> airports = DeliveredAirports();
    ASSERT_EQ(airports.size(), 345);
    QStringList withoutCode;
    for (const SeedAirport& a : airports) {
        if (a.codeforecast)
            EXPECT_EQ(*a.codeforecast, a.ida);
        else
            withoutCode << a.ida;
    }
    EXPECT_EQ(withoutCode, (QStringList{QStringLiteral("LFTF"), QStringLiteral("LFQT"), QStringLiteral("NZQN")}));
}

TEST(DeliveredDatabase, ParisHasItsStationCodeAsPortalCode) {
    const QList<SeedAirport> airports = DeliveredAirports();
    const auto paris = std::find_if(airports.begin(), airports.end(),
                                    [](const SeedAirport& a) { return a.ida == QStringLiteral("LFPG"); });
    ASSERT_NE(paris, airports.end());
    EXPECT_EQ(paris->codeforecast.value_or(QString()), QStringLiteral("LFPG"));
}
