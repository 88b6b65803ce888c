// Compass names of a direction in degrees.
#include "DecodingTestSupport.h"
#include "Failure.h"

#include <gtest/gtest.h>

#include <array>

using namespace skelda;

namespace {

// The long name of Degres, or "<empty>" when there is none.
QString LongName(const QString& degrees) {
    QString text = degrees;
    const Variant name = NomDirection(text, false);
    return name.IsEmpty() ? QStringLiteral("<empty>") : name.ToText();
}

QString ShortCode(const QString& degrees) {
    QString text = degrees;
    const Variant name = NomDirection(text, true);
    return name.IsEmpty() ? QStringLiteral("<empty>") : name.ToText();
}

struct Row {
    int from;
    int to;
    const char16_t* longName;
    const char16_t* shortCode;
};

// The table in whole degrees, as a reader checks it.
const std::array<Row, 17> kRows{{
    {0, 11, u"North", u"N"},
    {12, 33, u"North North East", u"NNE"},
    {34, 56, u"North East", u"NE"},
    {57, 78, u"East North East", u"ENE"},
    {79, 101, u"East", u"E"},
    {102, 123, u"East South East", u"ESE"},
    {124, 146, u"South East", u"SE"},
    {147, 168, u"South South East", u"SSE"},
    {169, 191, u"South", u"S"},
    {192, 213, u"South South West", u"SSw"},
    {214, 236, u"South West", u"SW"},
    {237, 258, u"West South West", u"WSW"},
    {259, 281, u"West", u"W"},
    {282, 303, u"West North West", u"WNW"},
    {304, 326, u"North West", u"NW"},
    {327, 348, u"North North West", u"NNW"},
    {349, 371, u"North", u"N"},
}};

}  // namespace

TEST(Compass, EveryWholeDegreeFromZeroTo371FallsInItsRow) {
    for (const Row& row : kRows) {
        for (int degrees = row.from; degrees <= row.to; ++degrees) {
            const QString text = QString::number(degrees);
            EXPECT_EQ(LongName(text), QString::fromUtf16(row.longName)) << degrees;
            EXPECT_EQ(ShortCode(text), QString::fromUtf16(row.shortCode)) << degrees;
        }
    }
}

TEST(Compass, RowBoundariesChangeName) {
    EXPECT_EQ(LongName(QStringLiteral("11")), u"North");
    EXPECT_EQ(LongName(QStringLiteral("12")), u"North North East");
    EXPECT_EQ(LongName(QStringLiteral("191")), u"South");
    EXPECT_EQ(LongName(QStringLiteral("192")), u"South South West");
    EXPECT_EQ(LongName(QStringLiteral("348")), u"North North West");
    EXPECT_EQ(LongName(QStringLiteral("349")), u"North");
}

TEST(Compass, TiesGoToTheEvenSector) {
    EXPECT_EQ(LongName(QStringLiteral("11.25")), u"North");       // sector 0
    EXPECT_EQ(LongName(QStringLiteral("33.75")), u"North East");  // sector 2
    EXPECT_EQ(LongName(QStringLiteral("56.25")), u"North East");  // sector 2
    EXPECT_EQ(LongName(QStringLiteral("78.75")), u"East");        // sector 4
    EXPECT_EQ(LongName(QStringLiteral("11.26")), u"North North East");
}

TEST(Compass, NorthSpansTheTopOfTheCircle) {
    EXPECT_EQ(LongName(QStringLiteral("360")), u"North");
    EXPECT_EQ(LongName(QStringLiteral("371")), u"North");
}

TEST(Compass, DirectionBeyondTheTableGivesNothing) {
    QString text = QStringLiteral("372");
    const Variant name = NomDirection(text, false);
    EXPECT_TRUE(name.IsEmpty());
    EXPECT_EQ(text, u"372");
    EXPECT_EQ(LongName(QStringLiteral("-12")), u"<empty>");
    EXPECT_EQ(LongName(QStringLiteral("1E300")), u"<empty>");
}

TEST(Compass, SmallNegativeDirectionRoundsToNorth) { EXPECT_EQ(LongName(QStringLiteral("-11")), u"North"); }

TEST(Compass, ShortCodesForNorthAndSouthSouthWest) {
    EXPECT_EQ(ShortCode(QStringLiteral("0")), u"N");
    EXPECT_EQ(ShortCode(QStringLiteral("200")), u"SSw");
}

TEST(Compass, NameIsATextVariant) {
    QString text = QStringLiteral("90");
    const Variant name = NomDirection(text, false);
    EXPECT_EQ(name.kind(), Variant::Kind::String);
    EXPECT_EQ(name, Variant(QStringLiteral("East")));
}

TEST(Compass, EmptyTextIsNorthAndBecomesZeroInTheCallersText) {
    QString text;
    const Variant name = NomDirection(text, false);
    EXPECT_EQ(name.ToText(), u"North");
    EXPECT_EQ(text, u"0");
}

TEST(Compass, NonNumericTextThrowsTypeMismatch) {
    QString text = QStringLiteral("VRB");
    try {
        NomDirection(text, false);
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), TypeMismatch);
    }
    EXPECT_EQ(text, u"VRB");
}
