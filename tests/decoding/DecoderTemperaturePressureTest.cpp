// Temperature and pressure, the last two groups that a run reads.
#include "DecodingTestSupport.h"

#include <gtest/gtest.h>

using namespace skelda;

namespace {

Bulletin WithTail(const QString& tail) { return Decode(QStringLiteral("LFTH 021000Z 22013KT 9999 FEW016 ") + tail); }

}  // namespace

// --- Temperature ----------------------------------------------------------------------------------

TEST(DecoderTemperature, AirTemperatureIsReadAndDewPointIgnored) {
    EXPECT_EQ(WithTail(QStringLiteral("12/10 Q1016")).Temperature, 12);
}

TEST(DecoderTemperature, MinusZeroGivesZero) { EXPECT_EQ(WithTail(QStringLiteral("M00/M02 Q1016")).Temperature, 0); }

TEST(DecoderTemperature, LetterMNegatesTheTemperature) {
    EXPECT_EQ(WithTail(QStringLiteral("M05/M07 Q1016")).Temperature, -5);
}

TEST(DecoderTemperature, SlashesLeaveTheTemperatureAndThePressureIsStillRead) {
    const Bulletin b = WithTail(QStringLiteral("///// Q1016"));
    EXPECT_EQ(b.Temperature, 0);
    EXPECT_EQ(b.Pression, 1016);
}

// --- Pressure -------------------------------------------------------------------------------------

TEST(DecoderPressure, HectopascalsAreReadToTheEndOfTheGroup) {
    EXPECT_EQ(WithTail(QStringLiteral("12/10 Q1016")).Pression, 1016);
    EXPECT_EQ(WithTail(QStringLiteral("12/10 Q0998")).Pression, 998);
}

TEST(DecoderPressure, GluedEqualsSpoilsTheHectopascals) {
    const Bulletin b = WithTail(QStringLiteral("12/10 Q1016="));
    EXPECT_EQ(b.Pression, 0);
    EXPECT_EQ(b.Temperature, 12);
}

TEST(DecoderPressure, InchesUseTheProgramsFactor) { EXPECT_EQ(WithTail(QStringLiteral("12/10 A2992")).Pression, 995); }

TEST(DecoderPressure, InchesReadFourFixedCharactersSoAGluedEqualsIsHarmless) {
    EXPECT_EQ(WithTail(QStringLiteral("12/10 A2992=")).Pression, 995);
}

TEST(DecoderPressure, InchesAreRoundedToTheNearest) {
    // 3012 * 0.3325 = 1001.49, 2983 * 0.3325 = 991.8475.
    EXPECT_EQ(WithTail(QStringLiteral("12/10 A3012")).Pression, 1001);
    EXPECT_EQ(WithTail(QStringLiteral("12/10 A2983")).Pression, 992);
}

TEST(DecoderPressure, AnAAnywhereTakesTheInchesForm) {
    // The letter test doesn't look at the first character only.
    EXPECT_EQ(WithTail(QStringLiteral("12/10 Q2992A")).Pression, 995);
    EXPECT_EQ(WithTail(QStringLiteral("12/10 NA1016")).Pression, 0);  // characters 2-5 are "A101"
}

TEST(DecoderPressure, UnreadableInchesLeaveThePressure) {
    EXPECT_EQ(WithTail(QStringLiteral("12/10 A////")).Pression, 0);
}
