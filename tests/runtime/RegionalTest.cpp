#include "Clock.h"
#include "Regional.h"
#include "Variant.h"

#include <gtest/gtest.h>

using namespace skelda;

TEST(Regional, DatesAreDayFirst) {
    EXPECT_EQ(DateText(QDate(2004, 11, 2)), QStringLiteral("02/11/2004"));
    EXPECT_EQ(ParseDate(u"02/11/2004"), QDate(2004, 11, 2));
    EXPECT_EQ(ParseDate(u"2/11/04"), QDate(2004, 11, 2));
    EXPECT_EQ(ParseDate(u"2004-11-02"), QDate(2004, 11, 2));
    EXPECT_FALSE(ParseDate(u"31/02/2004").has_value());
    EXPECT_FALSE(ParseDate(u"").has_value());
}

TEST(Regional, TimesAreOnTheTwentyFourHourClock) {
    EXPECT_EQ(TimeText(QTime(15, 7, 9)), QStringLiteral("15:07:09"));
    EXPECT_EQ(ShortTimeText(QTime(9, 5)), QStringLiteral("09:05"));
    EXPECT_EQ(ParseTime(u"10:00"), QTime(10, 0));
    EXPECT_EQ(ParseTime(u"3:07:09 PM"), QTime(15, 7, 9));
    EXPECT_EQ(ParseTime(u"12:30:15 AM"), QTime(0, 30, 15));
    EXPECT_FALSE(ParseTime(u"1000").has_value());
}

TEST(Regional, NumbersHaveAFullStopAndNoTrailingZeros) {
    EXPECT_EQ(NumberText(13 * 1.6), QStringLiteral("20.8"));
    EXPECT_EQ(NumberText(0 * 1.6), QStringLiteral("0"));
    EXPECT_EQ(NumberText(-3), QStringLiteral("-3"));
    EXPECT_EQ(NumberText(995), QStringLiteral("995"));
    EXPECT_EQ(NumberText(0.1 + 0.2), QStringLiteral("0.3"));
}

TEST(Regional, TheLogStampIsDateBlankTime) {
    EXPECT_EQ(DateTimeText(QDateTime(QDate(2004, 11, 2), QTime(10, 0, 5))), QStringLiteral("02/11/2004 10:00:05"));
}

TEST(Clock, AFixedClockGivesItsTimeTextOrTheOneItWasGiven) {
    FixedClock clock(QDateTime(QDate(2004, 11, 2), QTime(15, 7, 9)));
    EXPECT_EQ(clock.TimeText(), QStringLiteral("15:07:09"));
    clock.SetTimeText(QStringLiteral("3:07:09 PM"));
    EXPECT_EQ(clock.TimeText(), QStringLiteral("3:07:09 PM"));
}

TEST(Variant, NullFailsAsTextAndNumberButJoinsAsEmpty) {
    const Variant n = Variant::Null();
    EXPECT_TRUE(n.IsNull());
    EXPECT_EQ(n.Concat(), QString());
    try {
        (void)n.ToText();
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 94);
    }
    EXPECT_THROW((void)n.ToInt16(), RuntimeError);
}

TEST(Variant, EmptyReadsAsZeroAndEmptyText) {
    const Variant e;
    EXPECT_TRUE(e.IsEmpty());
    EXPECT_EQ(e.ToDouble(), 0);
    EXPECT_EQ(e.ToText(), QString());
    EXPECT_EQ(e, Variant());
}

TEST(Variant, TextsConvertToNumbersOrMismatch) {
    EXPECT_EQ(Variant(QStringLiteral("220")).ToInt16(), 220);
    EXPECT_EQ(Variant(QStringLiteral("")).Int16Of().Error(), TypeMismatch);
    EXPECT_EQ(Variant(int16_t(13)).ToText(), QStringLiteral("13"));
    EXPECT_EQ(Variant(true).ToText(), QStringLiteral("True"));
    EXPECT_EQ(Variant(true).ToInt16(), -1);
    EXPECT_EQ(Variant(20.8).ToText(), QStringLiteral("20.8"));
}

TEST(Variant, DatesAndTimesReadBackAndShowByTheSettings) {
    const Variant day = Variant::FromDate(QDate(2004, 11, 2));
    EXPECT_EQ(day.ToText(), QStringLiteral("02/11/2004"));
    const Variant time = Variant::FromTime(QTime(10, 15));
    EXPECT_EQ(time.ToText(), QStringLiteral("10:15:00"));
    EXPECT_EQ(time.ToDateTime().time(), QTime(10, 15));
    EXPECT_EQ(Variant::FromTime(QTime(0, 0)).ToText(), QStringLiteral("00:00:00"));  // day 0 shows no date
    EXPECT_EQ(Variant(QStringLiteral("02/11/2004")).ToDateTime().date(), QDate(2004, 11, 2));
    EXPECT_EQ(Variant(QStringLiteral("10:00")).ToDateTime().time(), QTime(10, 0));
    EXPECT_THROW((void)Variant(QStringLiteral("soon")).ToDateTime(), RuntimeError);
}

TEST(Variant, AWholeDayShowsItsDateAloneOnEitherSideOfDayZeroAndAnyOtherMomentItsTimeToo) {
    EXPECT_EQ(Variant::FromSerial(1).ToText(), QStringLiteral("31/12/1899"));
    EXPECT_EQ(Variant::FromSerial(-1).ToText(), QStringLiteral("29/12/1899"));
    EXPECT_EQ(Variant::FromSerial(38293).ToText(), QStringLiteral("02/11/2004"));
    EXPECT_EQ(Variant::FromSerial(38293.25).ToText(), QStringLiteral("02/11/2004 06:00:00"));
    EXPECT_EQ(Variant::FromSerial(-1.5).ToText(), QStringLiteral("28/12/1899 12:00:00"));
    EXPECT_EQ(Variant::FromSerial(0.5).ToText(), QStringLiteral("12:00:00"));
}

TEST(Regional, DatesKeepTwoDigitDaysAndMonthsAndFourDigitYears) {
    EXPECT_EQ(DateText(QDate(1899, 12, 30)), QStringLiteral("30/12/1899"));
    EXPECT_EQ(DateText(QDate(100, 1, 1)), QStringLiteral("01/01/0100"));
    EXPECT_EQ(DateText(QDate(9999, 12, 31)), QStringLiteral("31/12/9999"));
    EXPECT_EQ(DateText(QDate(2004, 11, 2)), QDate(2004, 11, 2).toString(QStringLiteral("dd/MM/yyyy")));
    EXPECT_EQ(DateText(QDate()), QString());
}
