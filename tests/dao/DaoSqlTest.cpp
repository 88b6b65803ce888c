// The translation of the program's query texts and the reading of FindFirst criteria, on their own.
#include <gtest/gtest.h>

#include "Dao.h"
#include "DaoSql.h"
#include "Failures.h"

using namespace skelda;
using namespace skelda::test;
using namespace skelda::dao;
using namespace Qt::StringLiterals;

namespace {}  // namespace

TEST(DaoSql, BracketsBecomeQuotedNames) {
    EXPECT_EQ(Translate(u"select [Heure de pointe selon zefir].* from [Heure de pointe selon zefir]"_s),
              u"select \"Heure de pointe selon zefir\".* from \"Heure de pointe selon zefir\""_s);
}

TEST(DaoSql, DatesBetweenHashesAreMonthFirstAndBecomeStoredDates) {
    EXPECT_EQ(Translate(u"where daterelevé = #11/02/04#"_s), u"where daterelevé = '2004-11-02'"_s);
    EXPECT_EQ(Translate(u"where d = #12/31/1999#"_s), u"where d = '1999-12-31'"_s);
    EXPECT_EQ(Translate(u"where d = #01/05/30#"_s), u"where d = '1930-01-05'"_s);
    EXPECT_EQ(Translate(u"where t = #10:05#"_s), u"where t = '10:05:00'"_s);
    EXPECT_EQ(Translate(u"where t = #11/02/04 10:05:09#"_s), u"where t = '2004-11-02 10:05:09'"_s);
}

TEST(DaoSql, TrueAndFalseBecomeTheStoredBooleans) {
    EXPECT_EQ(Translate(u"select * from aéroports  where (activé = true) order by ville"_s),
              u"select * from aéroports  where (activé = 1) order by ville"_s);
    EXPECT_EQ(Translate(u"where a = FALSE or b = True"_s), u"where a = 0 or b = 1"_s);
    // A name that only looks like the word stays a name.
    EXPECT_EQ(Translate(u"where t.true = x.false"_s), u"where t.true = x.false"_s);
}

TEST(DaoSql, ShortTimeFormatBecomesHoursAndMinutes) {
    EXPECT_EQ(Translate(u"select Zefir.*, Format([HeureRelevé],'Short Time') AS HR from zefir"_s),
              u"select Zefir.*, strftime('%H:%M', \"HeureRelevé\") AS HR from zefir"_s);
    EXPECT_EQ(Translate(u"order by format( [HeureRelevé] , \"short time\" )"_s),
              u"order by strftime('%H:%M',  \"HeureRelevé\" )"_s);
}

TEST(DaoSql, OtherFormatsAreLeftForTheDatabaseToRefuse) {
    EXPECT_EQ(Translate(u"select Format(x, 'yyyy') from t"_s), u"select Format(x, 'yyyy') from t"_s);
}

TEST(DaoSql, NothingInsideStringLiteralsIsTouched) {
    const QString sql = u"select * from t where a = '[x] #11/02/04# true Format(y,''Short Time'')'"_s;
    EXPECT_EQ(Translate(sql), sql);
}

TEST(DaoSql, DoubleQuotedTextsAreTexts) {
    EXPECT_EQ(Translate(u"where IDA = \"LFPB\" or n = \"it's \"\"x\"\"\""_s),
              u"where IDA = 'LFPB' or n = 'it''s \"x\"'"_s);
}

TEST(DaoSql, TextsLeftOpenAreSyntaxErrors) {
    EXPECT_EQ(ErrorOf([] { Translate(u"select * from t where a = 'open"_s); }), DaoSyntaxInQuery);
    EXPECT_EQ(ErrorOf([] { Translate(u"select * from [open"_s); }), DaoSyntaxInQuery);
    EXPECT_EQ(ErrorOf([] { Translate(u"where d = #11/02/04"_s); }), DaoSyntaxInQuery);
    EXPECT_EQ(ErrorOf([] { Translate(u"where d = #13/45/04#"_s); }), DaoSyntaxInQuery);
}

TEST(DaoSql, TheProgramsTextsAreSqlAndTableNamesAreNot) {
    EXPECT_TRUE(IsSqlText(u"SELECT Zefir.DateRelevé From zefir"_s));
    EXPECT_TRUE(IsSqlText(u"  select * from aéroports  "_s));
    EXPECT_FALSE(IsSqlText(u"Zefir"_s));
    EXPECT_FALSE(IsSqlText(u"Aéroports"_s));
    EXPECT_FALSE(IsSqlText(u"Selection"_s));
}

TEST(DaoSql, OnlyAPlainQueryOfOneTableCanBeWritten) {
    EXPECT_EQ(SingleTableOf(u"select * from aéroports  order by ville"_s), u"aéroports"_s);
    EXPECT_EQ(SingleTableOf(u"select * from [Aéroports] where (activé = true)"_s), u"Aéroports"_s);
    EXPECT_EQ(SingleTableOf(u"SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé;"_s), QString());
    EXPECT_EQ(SingleTableOf(u"select distinct ville from aéroports"_s), QString());
    EXPECT_EQ(SingleTableOf(u"select * from a, b"_s), QString());
    EXPECT_EQ(SingleTableOf(u"select * from a inner join b on a.x = b.x"_s), QString());
}

TEST(DaoSql, ALeadingColumnGoesFirstInTheSelectList) {
    EXPECT_EQ(WithLeadingColumn(u"select * from t"_s, u"_rowid_"_s), u"select _rowid_, * from t"_s);
}

TEST(DaoCriteria, ColumnEqualsText) {
    const Criterion c = ParseCriterion(u"IDA = 'LFPB'"_s);
    EXPECT_EQ(c.column, u"IDA"_s);
    EXPECT_TRUE(c.isText);
    EXPECT_EQ(c.text, u"LFPB"_s);
}

TEST(DaoCriteria, ColumnEqualsNumber) {
    for (const QString& text : {u"idx = 12"_s, u"IDX=12"_s, u"  [idx]   =   12  "_s}) {
        const Criterion c = ParseCriterion(text);
        EXPECT_EQ(c.column.toLower(), u"idx"_s);
        EXPECT_FALSE(c.isText);
        EXPECT_EQ(c.number, 12);
    }
    EXPECT_EQ(ParseCriterion(u"n = -3.5"_s).number, -3.5);
}

TEST(DaoCriteria, AQuoteWrittenTwiceIsOneQuote) {
    EXPECT_EQ(ParseCriterion(u"aéroport = 'L''Alpe'"_s).text, u"L'Alpe"_s);
    EXPECT_EQ(ParseCriterion(u"aéroport = \"L'Alpe\""_s).text, u"L'Alpe"_s);
}

TEST(DaoCriteria, AnyOtherShapeIsASyntaxError) {
    for (const QString& text :
         {u"IDA = 'O'HARE'"_s, u"IDA = 'LFPB"_s, u"IDA = 'LFPB' OR 1 = 1"_s, u"idx = 1; DROP TABLE Zefir"_s,
          u"IDA LIKE 'L*'"_s, u"idx > 3"_s, u""_s, u"= 3"_s, u"idx = "_s, u"idx = 1 2"_s, u"idx = abc"_s}) {
        EXPECT_EQ(ErrorOf([&] { ParseCriterion(text); }), DaoSyntaxInCriteria) << text.toStdString();
    }
}

TEST(DaoSql, ATextColumnInOrderBySortsInFrenchOrder) {
    const auto isText = [](QStringView name) { return name.compare(u"ville", Qt::CaseInsensitive) == 0; };
    EXPECT_EQ(Translate(u"select * from aéroports  where (activé = true) order by ville"_s, isText),
              u"select * from aéroports  where (activé = 1) order by ville COLLATE FRANCAIS"_s);
    EXPECT_EQ(Translate(u"select * from a order by [Ville] desc, idx"_s, isText),
              u"select * from a order by \"Ville\" COLLATE FRANCAIS desc, idx"_s);
    EXPECT_EQ(Translate(u"select * from a order by a.ville;"_s, isText),
              u"select * from a order by a.ville COLLATE FRANCAIS;"_s);
    // Only whole terms of the outer query's ORDER BY: not a comparison, not a function's argument.
    EXPECT_EQ(Translate(u"select * from a where ville = 'x' order by upper(ville)"_s, isText),
              u"select * from a where ville = 'x' order by upper(ville)"_s);
    EXPECT_EQ(Translate(u"select * from a order by ville"_s), u"select * from a order by ville"_s);
}

TEST(DaoSql, TheListOfDaysIsTheDistinctValuesOfOneColumn) {
    const auto days =
        DistinctValuesOf(u"SELECT Zefir.DateRelevé From zefir GROUP BY Zefir.DateRelevé ORDER BY Zefir.DateRelevé;"_s);
    ASSERT_TRUE(days.has_value());
    EXPECT_EQ(days->table, u"zefir"_s);
    EXPECT_EQ(days->column, u"DateRelevé"_s);
    EXPECT_TRUE(DistinctValuesOf(u"select [d] from [t] group by t.d order by d"_s).has_value());
    for (const QString& other :
         {u"SELECT d FROM t GROUP BY d ORDER BY d DESC"_s, u"SELECT d FROM t GROUP BY e ORDER BY d"_s,
          u"SELECT d FROM t WHERE x = 1 GROUP BY d ORDER BY d"_s, u"SELECT u.d FROM t GROUP BY d ORDER BY d"_s,
          u"SELECT d FROM t GROUP BY d"_s, u"SELECT d, e FROM t GROUP BY d ORDER BY d"_s})
        EXPECT_FALSE(DistinctValuesOf(other).has_value()) << other.toStdString();
}
