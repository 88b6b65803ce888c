#include "Convert.h"
#include "Failure.h"

#include <gtest/gtest.h>

using namespace skelda;

TEST(Convert, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CInt(u"2.5"), 2);
    EXPECT_EQ(CInt(u"3.5"), 4);
}

TEST(Convert, OtherFractionsGoToTheNearest) {
    EXPECT_EQ(CInt(2.4999), 2);
    EXPECT_EQ(CInt(2.5001), 3);
    EXPECT_EQ(CInt(-0.6), -1);
}

TEST(Convert, UpperEdgeOfSixteenBitsOverflowsAtTheHalf) {
    EXPECT_EQ(CInt(32767.0), 32767);
    EXPECT_EQ(CInt(32767.49), 32767);
    EXPECT_EQ(CIntOf(32767.5).Error(), Overflow);  // rounds to 32768
    EXPECT_EQ(CIntOf(u"32768").Error(), Overflow);
    try {
        CInt(32767.5);
        FAIL() << "no overflow";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 6);
        EXPECT_EQ(e.Description(), QStringLiteral("Overflow"));
    }
}

TEST(Convert, LowerEdgeOfSixteenBitsKeepsTheEvenHalf) {
    EXPECT_EQ(CInt(-32768.5), -32768);  // the even neighbour is -32768, which fits
    EXPECT_EQ(CInt(u"-32768"), -32768);
    EXPECT_EQ(CIntOf(-32769.0).Error(), Overflow);
    EXPECT_EQ(CIntOf(-32768.51).Error(), Overflow);
}

TEST(Convert, EmptyTextIsATypeMismatch) {
    EXPECT_EQ(CIntOf(u"").Error(), TypeMismatch);
    try {
        CInt(u"");
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 13);
        EXPECT_EQ(e.Description(), QStringLiteral("Type mismatch"));
    }
}

TEST(Convert, SlashesAndLettersAreTypeMismatches) {
    EXPECT_EQ(CIntOf(u"//").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"///").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"12/10").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"M0").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"G1").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"1016=").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"-").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u".").Error(), TypeMismatch);
}

TEST(Convert, PlainDigitsSignsBlanksAndExponentsAreNumbers) {
    EXPECT_EQ(CInt(u"13"), 13);
    EXPECT_EQ(CInt(u"013"), 13);
    EXPECT_EQ(CInt(u" 12 "), 12);
    EXPECT_EQ(CInt(u"-3"), -3);
    EXPECT_EQ(CInt(u"+7"), 7);
    EXPECT_EQ(CInt(u"1E3"), 1000);
    EXPECT_DOUBLE_EQ(CDbl(u"2992"), 2992.0);
    EXPECT_DOUBLE_EQ(CDbl(u".5"), 0.5);
}

TEST(Convert, IsNumericFollowsTheSameRule) {
    EXPECT_TRUE(IsNumeric(u"9999"));
    EXPECT_TRUE(IsNumeric(u"0800"));
    EXPECT_FALSE(IsNumeric(u""));
    EXPECT_FALSE(IsNumeric(u"4000NE"));
    EXPECT_FALSE(IsNumeric(u"1/2SM"));
    EXPECT_FALSE(IsNumeric(u"CAVOK"));
}

TEST(Convert, TimeZoneTextsWithASignAreNumericAndNamesAreNot) {
    EXPECT_TRUE(IsNumeric(u"+12"));
    EXPECT_TRUE(IsNumeric(u"-6"));
    EXPECT_TRUE(IsNumeric(u"-9"));
    EXPECT_TRUE(IsNumeric(u"0"));
    EXPECT_TRUE(IsNumeric(u"+5.5"));
    EXPECT_TRUE(IsNumeric(u" -3 "));
    EXPECT_FALSE(IsNumeric(u"UTC"));
    EXPECT_FALSE(IsNumeric(u"UTC+1"));
    EXPECT_FALSE(IsNumeric(u"+"));
    EXPECT_FALSE(IsNumeric(u"+-1"));
    EXPECT_FALSE(IsNumeric(u"1h"));
    EXPECT_FALSE(IsNumeric(u" "));
}

TEST(Convert, LongsHaveThirtyTwoBits) {
    EXPECT_EQ(CLng(u"100000"), 100000);
    EXPECT_EQ(CLng(2.5), 2);
    EXPECT_EQ(CLngOf(2147483647.5).Error(), Overflow);
    EXPECT_EQ(CLngOf(u"x").Error(), TypeMismatch);
}

TEST(Convert, SixteenBitArithmeticOverflows) {
    EXPECT_EQ(Add16(16294, 90).Value(), 16384);
    EXPECT_EQ(Mul16(16384, -2).Value(), -32768);
    EXPECT_EQ(Mul16(16385, -2).Error(), Overflow);
    EXPECT_EQ(Add16(32767, 1).Error(), Overflow);
}

TEST(Convert, FallibleThenSkipsAfterAFailure) {
    auto doubled = CIntOf(u"21").Then([](int16_t v) { return Mul16(v, 2); });
    EXPECT_EQ(doubled.Value(), 42);
    auto failed = CIntOf(u"//").Then([](int16_t v) { return Mul16(v, 2); });
    EXPECT_EQ(failed.Error(), TypeMismatch);
    EXPECT_THROW(failed.Value(), RuntimeError);
}

TEST(Convert, LineEndsAroundANumberCountAsBlanks) {
    EXPECT_EQ(CInt(u"1015\n"), 1015);
    EXPECT_EQ(CInt(u"1015\r\n"), 1015);
    EXPECT_EQ(CInt(u"\t7"), 7);
    EXPECT_EQ(CIntOf(u"\n").Error(), TypeMismatch);
    EXPECT_EQ(CIntOf(u"10\n15").Error(), TypeMismatch);
}
