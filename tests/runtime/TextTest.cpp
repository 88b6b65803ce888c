#include "Failure.h"
#include "Text.h"

#include <gtest/gtest.h>

using namespace skelda;

TEST(Text, MidCountsFromOne) {
    EXPECT_EQ(Mid(u"021000Z", 1, 2), u"02");
    EXPECT_EQ(Mid(u"021000Z", 3, 2), u"10");
    EXPECT_EQ(Mid(u"Q1016", 2), u"1016");
}

TEST(Text, MidPastTheEndGivesWhatExists) {
    EXPECT_EQ(Mid(u"LFTH", 4, 5), u"H");
    EXPECT_EQ(Mid(u"LFTH", 5, 2), u"");
    EXPECT_EQ(Mid(u"LFTH", 9), u"");
    EXPECT_EQ(Mid(u"", 1, 1), u"");
    EXPECT_EQ(Mid(u"AB", 2, 0), u"");
}

TEST(Text, MidFromZeroIsAnInvalidArgument) {
    try {
        Mid(u"abc", 0, 1);
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 5);
        EXPECT_EQ(e.Description(), QStringLiteral("Invalid procedure call or argument"));
    }
    EXPECT_THROW(Mid(u"abc", 1, -2), RuntimeError);
}

TEST(Text, MidOfLengthMinusOneIsAnInvalidArgumentNotTheRest) {
    try {
        Mid(u"abc", 2, -1);
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 5);
    }
    EXPECT_EQ(Mid(u"abc", 2), u"bc");
    EXPECT_EQ(Mid(u"abc", 4, 0), u"");
}

TEST(Text, LeftAndRightTakeAtMostTheWholeText) {
    EXPECT_EQ(Left(u"Rain", 2), u"Ra");
    EXPECT_EQ(Left(u"Rain", 10), u"Rain");
    EXPECT_EQ(Right(u"Rain", 2), u"in");
    EXPECT_EQ(Right(u"Rain", 10), u"Rain");
    EXPECT_EQ(Right(u"Rain", 0), u"");
    EXPECT_THROW(Left(u"Rain", -1), RuntimeError);
}

TEST(Text, InStrGivesPositionFromOneOrZero) {
    EXPECT_EQ(InStr(u"HTTP/1.0 200\r\n\r\nbody", u"\r\n\r\n"), 13);
    EXPECT_EQ(InStr(u"abc", u"x"), 0);
    EXPECT_EQ(InStr(u"abcabc", u"c"), 3);
    EXPECT_EQ(InStr(4, u"abcabc", u"c"), 6);
    EXPECT_EQ(InStr(u"abc", u""), 1);
    EXPECT_EQ(InStr(u"Pluie Forte", u"pluie", Qt::CaseInsensitive), 1);
    EXPECT_EQ(InStr(u"Pluie Forte", u"pluie"), 0);
}

TEST(Text, TrimRemovesBlanksOnly) {
    EXPECT_EQ(Trim(u"  Rain Light  "), u"Rain Light");
    EXPECT_EQ(Trim(u"\r\nx\r\n"), u"\r\nx\r\n");
    EXPECT_EQ(LTrim(u"  a "), u"a ");
    EXPECT_EQ(RTrim(u"  a "), u"  a");
}

TEST(Text, ReplaceMakesOnePass) {
    EXPECT_EQ(Replace(u"a\r\n\r\n\r\nb", u"\r\n\r\n", u"\r\n"), QStringLiteral("a\r\n\r\nb"));
    EXPECT_EQ(Replace(u"a\r\n\r\n\r\n\r\nb", u"\r\n\r\n", u"\r\n"), QStringLiteral("a\r\n\r\nb"));
    EXPECT_EQ(Replace(u"xAx", u"a", u"b", Qt::CaseInsensitive), QStringLiteral("xbx"));
}

TEST(Text, SplitKeepsEmptyPieces) {
    EXPECT_EQ(Split(QStringLiteral("a  b "), QStringLiteral(" ")), (QStringList{"a", "", "b", ""}));
    EXPECT_EQ(Split(QStringLiteral("one"), QStringLiteral("\r\n")), (QStringList{"one"}));
    EXPECT_EQ(Split(QStringLiteral("a\r\nb\r\n"), QStringLiteral("\r\n")), (QStringList{"a", "b", ""}));
}

TEST(Text, FormatDigitsPadsWithZeros) {
    EXPECT_EQ(FormatDigits(3, 2), QStringLiteral("03"));
    EXPECT_EQ(FormatDigits(11, 2), QStringLiteral("11"));
    EXPECT_EQ(FormatDigits(123, 2), QStringLiteral("123"));
}
