// Compass names and Beaufort forces, by fixed tables.
#include "Compass.h"

#include "Convert.h"

#include <QStringView>

#include <array>
#include <cstdint>

namespace skelda {

namespace {

struct CompassPoint {
    QStringView longName;
    QStringView shortCode;
};

// Sectors 0 to 15 of 22.5 degrees each, from north clockwise. Sector 9's code ends in a small
// "w" on purpose: stored readouts and their tests carry it that way.
constexpr std::array<CompassPoint, 16> kCompass{{
    {u"North", u"N"},
    {u"North North East", u"NNE"},
    {u"North East", u"NE"},
    {u"East North East", u"ENE"},
    {u"East", u"E"},
    {u"East South East", u"ESE"},
    {u"South East", u"SE"},
    {u"South South East", u"SSE"},
    {u"South", u"S"},
    {u"South South West", u"SSw"},
    {u"South West", u"SW"},
    {u"West South West", u"WSW"},
    {u"West", u"W"},
    {u"West North West", u"WNW"},
    {u"North West", u"NW"},
    {u"North North West", u"NNW"},
}};

struct BeaufortStep {
    int16_t upTo;  // the highest speed in knots of this force
    int16_t force;
};

constexpr std::array<BeaufortStep, 13> kBeaufort{{
    {0, 0},
    {3, 1},
    {6, 2},
    {10, 3},
    {16, 4},
    {21, 5},
    {27, 6},
    {33, 7},
    {40, 8},
    {47, 9},
    {55, 10},
    {63, 11},
    {99, 12},
}};

}  // namespace

Variant NomDirection(QString& Degres, bool Court) {
    // The caller's own text takes the "0": callers that go on using it see the 0 there.
    if (Degres.isEmpty()) Degres = QStringLiteral("0");

    // Nearest sector, ties to the even one: 11.25 is sector 0 but 33.75 is sector 2. Kept as a
    // double so that an enormous figure simply falls outside the table instead of overflowing.
    const double sector = RoundHalfEven(CDbl(Degres) / 22.5);

    // Sector 16 is north again, so north spans the top of the circle; beyond that nothing is
    // named and the result stays Empty, with no failure.
    if (sector < 0 || sector > 16) return {};
    const CompassPoint& point = kCompass[static_cast<std::size_t>(sector) % kCompass.size()];
    return (Court ? point.shortCode : point.longName).toString();
}

QString ForceBeaufort(int16_t Noeuds) {
    // A negative speed (how a variable wind is kept) and 100 knots or more are deliberately
    // "Force 0", the same as a calm.
    if (Noeuds < 0) return QStringLiteral("Force 0");
    for (const BeaufortStep& step : kBeaufort) {
        if (Noeuds <= step.upTo) return QStringLiteral("Force ") + QString::number(step.force);
    }
    return QStringLiteral("Force 0");
}

}  // namespace skelda
