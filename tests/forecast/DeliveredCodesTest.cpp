// The forecast codes that come with the delivered database.
#include <gtest/gtest.h>
#include <algorithm>

#include <QFile>
#include <QRegularExpression>

#include "SeedDatabase.h"

using namespace skelda;

TEST(DeliveredDatabase, EveryActiveAirportHasAForecastCodeOfThePortalsShape) {
    QFile seed(QStringLiteral(SKELDA_AIRPORTS_SEED));
    ASSERT_TRUE(seed.open(QIODevice::ReadOnly));
    QList<SeedAirport> airports;
    QString error;
    ASSERT_TRUE(ParseAirports(QString::fromUtf8(seed.readAll()), airports, &error)) << error.toStdString();
    const QRegularExpression shape(QStringLiteral("^[A-Z]{4}[0-9]{4}$"));
    int active = 0;
    for (const SeedAirport& a : airports) {
        if (!a.active) continue;
        ++active;
        ASSERT_TRUE(a.codeforecast.has_value()) << a.ida.toStdString();
        EXPECT_TRUE(shape.match(*a.codeforecast).hasMatch()) << a.ida.toStdString();
    }
    EXPECT_GT(active, 0);
}

TEST(DeliveredDatabase, ParisHasItsPortalCode) {
    QFile seed(QStringLiteral(SKELDA_AIRPORTS_SEED));
    ASSERT_TRUE(seed.open(QIODevice::ReadOnly));
    QList<SeedAirport> airports;
    ASSERT_TRUE(ParseAirports(QString::fromUtf8(seed.readAll()), airports, nullptr));
    const auto paris = std::find_if(airports.begin(), airports.end(),
                                    [](const SeedAirport& a) { return a.ida == QStringLiteral("LFPG"); });
    ASSERT_NE(paris, airports.end());
    EXPECT_EQ(paris->codeforecast.value_or(QString()), QStringLiteral("FRXX0076"));
}
