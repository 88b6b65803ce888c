// The taking apart of a forecast page, on texts alone.
#include <gtest/gtest.h>

#include <QMap>

#include <stdexcept>

#include "Failures.h"
#include "ForecastPages.h"
#include "ForecastParser.h"
#include "Printing.h"

using namespace skelda;
using namespace skelda::test;

namespace {

// Records what the parser writes, as the window would show it.
struct Enregistrement : AffichagePrevision {
    void Montrer() override { ++montre; }
    void Bloc(int Numero, const QString& Titre, const QString& Corps) override {
        titres[Numero] = Titre;
        textes[Numero] = Corps;
        ordre.append(Numero);
    }
    int montre = 0;
    QMap<int, QString> titres;
    QMap<int, QString> textes;
    QList<int> ordre;
};

// A watcher that ends the tag loop after Limite passes.
PasseDeBoucle ArretApres(int limite, int& passes) {
    return [limite, &passes] {
        if (++passes > limite) throw BoucleSansFin();
    };
}

int ErreurDe(const QString& page) {
    Enregistrement e;
    return ErrorOf([&] { LirePrevision(page, e); });
}

}  // namespace

TEST(ForecastParser, TodayHigh75GivesItsHeadingWithoutColonAndTheConvertedTemperature) {
    Enregistrement e;
    ASSERT_TRUE(LirePrevision(PageDe({{QStringLiteral("Today:"), QStringLiteral(" High 75F.")}}), e));
    EXPECT_EQ(e.montre, 1);
    EXPECT_EQ(e.titres.value(0), QStringLiteral("Today"));
    EXPECT_EQ(e.textes.value(0), QStringLiteral(" High 75F(24)c."));
    EXPECT_EQ(e.ordre, QList<int>{0});
}

TEST(ForecastParser, TwoTemperaturesKeepOnlyTheLastWithItsText) {
    Enregistrement e;
    ASSERT_TRUE(LirePrevision(PageDe({{QStringLiteral("Today:"), QStringLiteral(" High 75F. Low 54F.")}}), e));
    EXPECT_EQ(e.textes.value(0), QStringLiteral(". Low 54F(12)c."));
}

TEST(ForecastParser, AnFInTheFirstThreeCharactersConvertsNothing) {
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral("Fair. High 75F.")), QStringLiteral("Fair. High 75F."));
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral(" Fair")), QStringLiteral(" Fair"));
    Enregistrement e;
    ASSERT_TRUE(LirePrevision(PageDe({{QStringLiteral("Today:"), QStringLiteral("  F 75F.")}}), e));
    EXPECT_EQ(e.textes.value(0), QStringLiteral("  F 75F."));
}

TEST(ForecastParser, EveryCapitalFCountsAsATemperature) {
    // "Fri" stands at the fourth place: the two characters before it are read as a number.
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral(" 12Fri")), QStringLiteral(" 12F(-11)c") + QStringLiteral("ri"));
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral("Low 14F")), QStringLiteral("Low 14F(-10)c"));
}

TEST(ForecastParser, FogInATextIsATypeMismatch) {
    EXPECT_EQ(ErrorOf([] { ConvertirTemperatures(QStringLiteral("Morning Fog.")); }), TypeMismatch);
    EXPECT_EQ(ErreurDe(PageDe({{QStringLiteral("Today:"), QStringLiteral(" Morning Fog.")}})), TypeMismatch);
}

TEST(ForecastParser, SixBlocksFillTheSixPlacesInOrder) {
    Enregistrement e;
    ASSERT_TRUE(LirePrevision(PageDe(SixBlocs()), e));
    EXPECT_EQ(e.ordre, (QList<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(e.titres.value(1), QStringLiteral("Tonight"));
    EXPECT_EQ(e.titres.value(3), QStringLiteral("Wednesday night"));
    EXPECT_EQ(e.textes.value(2), QStringLiteral(" Showers. High 62F(17)c."));
    EXPECT_EQ(e.textes.value(5), QStringLiteral(" Rain. Low 41F(5)c."));
}

TEST(ForecastParser, SevenBlocksShowSixAndReadTheSeventhOverAgain) {
    Blocs blocs = SixBlocs();
    blocs.append({QStringLiteral("Friday:"), QStringLiteral(" Snow")});
    Enregistrement e;
    int passes = 0;
    // The seventh's text goes back before the rest, which is the line end and the end marker:
    // read over again, it stops at the marker.
    ASSERT_TRUE(LirePrevision(PageDe(blocs), e, ArretApres(1000, passes)));
    EXPECT_EQ(e.ordre, (QList<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(e.textes.value(5), QStringLiteral(" Rain. Low 41F(5)c."));

    // Behind a seventh block " ab", the same text comes back before each tag of the rest, and
    // the eighth block's text "F." is read as " abF.": the F stands fourth, "ab" before it is
    // taken for a number, and that is the type failure. Read on its own, "F." would convert
    // nothing, as the seventh text alone would.
    Blocs huit = SixBlocs();
    huit.append({QStringLiteral("Friday:"), QStringLiteral(" ab")});
    Blocs seul = huit;
    huit.append({QStringLiteral("Saturday:"), QStringLiteral("F.")});
    EXPECT_EQ(ErreurDe(PageDe(huit)), TypeMismatch);
    EXPECT_EQ(ErreurDe(PageDe(seul)), 0);
    EXPECT_EQ(ConvertirTemperatures(QStringLiteral("F.")), QStringLiteral("F."));
}

TEST(ForecastParser, CrLfLineEndsLoseTheNextBlocksHeading) {
    Enregistrement e;
    const Blocs blocs = {{QStringLiteral("Today:"), QStringLiteral(" Sunny.")},
                         {QStringLiteral("Tonight:"), QStringLiteral(" Clear.")}};
    // The first "<b>" comes behind the start marker's CR LF as well, and its heading is lost too.
    ASSERT_TRUE(LirePrevision(Page(TextePrevision(blocs, QStringLiteral("\r\n"))), e));
    EXPECT_EQ(e.titres.value(0), QString());
    EXPECT_EQ(e.textes.value(0), QStringLiteral(" Sunny."));
    EXPECT_EQ(e.titres.value(1), QString());
    EXPECT_EQ(e.textes.value(1), QStringLiteral(" Clear."));

    // With a plain line feed after the start marker, the first heading is read and the second,
    // behind CR LF, keeps the first's.
    Enregistrement f;
    const QString texte = QStringLiteral(
        "<!--TEXT FORECAST-->\n<b>Today:</b> Sunny.<p>\r\n<b>Tonight:</b> Clear.<p>\r\n<!--ENDTEXT FORECAST-->");
    ASSERT_TRUE(LirePrevision(Page(texte), f));
    EXPECT_EQ(f.titres.value(0), QStringLiteral("Today"));
    EXPECT_EQ(f.titres.value(1), QStringLiteral("Today"));
    EXPECT_EQ(f.textes.value(1), QStringLiteral(" Clear."));
}

TEST(ForecastParser, APageWithoutTheStartMarkerGivesFalseAndShowsNothing) {
    Enregistrement e;
    EXPECT_FALSE(LirePrevision(QStringLiteral("<html>Service unavailable</html>"), e));
    EXPECT_FALSE(LirePrevision(QStringLiteral("Forecast"), e));
    // Exact and case-sensitive.
    EXPECT_FALSE(LirePrevision(Page(TextePrevision(SixBlocs()).toLower()), e));
    EXPECT_EQ(e.montre, 0);
    EXPECT_TRUE(e.ordre.isEmpty());
}

TEST(ForecastParser, WithoutTheEndMarkerTheWindowIsShownEmpty) {
    QString texte = TextePrevision(SixBlocs());
    texte.remove(QStringLiteral("<!--ENDTEXT FORECAST-->"));
    Enregistrement e;
    EXPECT_TRUE(LirePrevision(Page(texte), e));
    EXPECT_EQ(e.montre, 1);
    EXPECT_TRUE(e.ordre.isEmpty());
}

TEST(ForecastParser, TheEndMarkerIsLookedForWithoutItsOpeningBracket) {
    // "x!--ENDTEXT FORECAST-->" counts as the end for the cut, but the loop finds no end tag: it
    // runs on into the picture table and fails on the marker's ">" before the table's "<".
    QString texte = TextePrevision(SixBlocs());
    texte.replace(QStringLiteral("<!--ENDTEXT FORECAST-->"), QStringLiteral("x!--ENDTEXT FORECAST-->"));
    Enregistrement e;
    EXPECT_EQ(ErrorOf([&] { LirePrevision(Page(texte), e); }), InvalidProcedureCall);
    EXPECT_EQ(e.ordre.size(), 6);
}

TEST(ForecastParser, WithoutThePictureTableStartTheScanFails) {
    QString table = TableImages();
    table.remove(QStringLiteral("-- FORECAST --"));
    Enregistrement e;
    EXPECT_EQ(ErrorOf([&] { LirePrevision(Page(TextePrevision(SixBlocs()), table), e); }), InvalidProcedureCall);
    // A page on which the scan fails doesn't get as far as the text.
    EXPECT_EQ(e.montre, 0);
}

TEST(ForecastParser, FewerThanFourPicturesFailTheScan) {
    Enregistrement e;
    const QString table = TableImages({QStringLiteral("28"), QStringLiteral("11"), QStringLiteral("30")});
    EXPECT_EQ(ErrorOf([&] { LirePrevision(Page(TextePrevision(SixBlocs()), table), e); }), InvalidProcedureCall);
    EXPECT_EQ(e.montre, 0);
}

TEST(ForecastParser, WithoutThePictureTableEndTheScanFails) {
    QString table = TableImages();
    table.remove(QStringLiteral("<!--ENDFC-->"));
    EXPECT_EQ(ErreurDe(Page(TextePrevision(SixBlocs()), table)), InvalidProcedureCall);
}

TEST(ForecastParser, APictureTableEndingBeyond32767Overflows) {
    const QString remplissage(33000, u' ');
    EXPECT_EQ(ErreurDe(Page(TextePrevision(SixBlocs()) + remplissage)), Overflow);
    // Just inside the limit it still reads.
    const QString page = Page(TextePrevision(SixBlocs()));
    const qsizetype fin = page.indexOf(QStringLiteral("<!--ENDFC-->")) + 1;
    const QString juste = Page(TextePrevision(SixBlocs()) + QString(32767 - fin, u' '));
    ASSERT_EQ(juste.indexOf(QStringLiteral("<!--ENDFC-->")) + 1, 32767);
    EXPECT_EQ(ErreurDe(juste), NoError);
}

TEST(ExtrairePrevision, TakesTheFourPictureNames) {
    QString liste = QStringLiteral("x,");
    ExtrairePrevision(Page(TextePrevision(SixBlocs())), liste);
    EXPECT_EQ(liste, QStringLiteral("x,28.gif,11.gif,30.gif,12.gif,"));
}

TEST(ExtrairePrevision, AOneCharacterNameIsReadFromTheStartOfTheTable) {
    QString liste;
    ExtrairePrevision(Page(QString(), TableImages({QStringLiteral("5"), QStringLiteral("11"), QStringLiteral("30"),
                                                   QStringLiteral("12")})),
                      liste);
    EXPECT_EQ(liste, QStringLiteral("- FOR,11.gif,30.gif,12.gif,"));
}

TEST(ForecastParser, NoBracketLeftInTheTextFails) {
    // The picture table first, and a text whose end marker lost its "<" at the very end of the
    // page: behind the last block nothing opens a tag.
    const QString page = TableImages() + QStringLiteral(
                                             "\n<!--TEXT FORECAST-->\n<b>Today:</b> Sunny.<p>\nlater "
                                             "!--ENDTEXT FORECAST-->");
    Enregistrement e;
    EXPECT_EQ(ErrorOf([&] { LirePrevision(page, e); }), InvalidProcedureCall);
    EXPECT_EQ(e.ordre, QList<int>{0});
}

TEST(ForecastParser, AClosingBracketWellBeforeTheFirstOpeningOneFails) {
    const QString texte = QStringLiteral("<!--TEXT FORECAST-->\n<b>Today:</b> a > b <p>\n<!--ENDTEXT FORECAST-->");
    EXPECT_EQ(ErreurDe(Page(texte)), InvalidProcedureCall);
}

TEST(ForecastParser, AClosingBracketTwoPlacesBeforeTheFirstOpeningOneFails) {
    // Behind the heading, " Winds >5<p>" has its ">" at 8 and its "<" at 10: the tag's length
    // comes to 8 - 10 + 1 = -1, which is no length at all. That is the fifth pass (the start
    // marker, the line feed, "<b>", "</b>", then this one), before any "<p>": nothing is shown.
    const QString texte = QStringLiteral("<!--TEXT FORECAST-->\n<b>Today:</b> Winds >5<p>\n<!--ENDTEXT FORECAST-->");
    Enregistrement e;
    int passes = 0;
    EXPECT_EQ(ErrorOf([&] { LirePrevision(Page(texte), e, ArretApres(1000, passes)); }), InvalidProcedureCall);
    EXPECT_EQ(e.montre, 1);
    EXPECT_TRUE(e.ordre.isEmpty());
    EXPECT_EQ(passes, 5);
}

TEST(ForecastParser, AHeadingWithASlashBeforeItsThirdCharacterFails) {
    // "<b>A/B:</b>": the first "/" stands at 5, so the heading's length is 5 - 6 = -1.
    const QString texte = QStringLiteral("<!--TEXT FORECAST-->\n<b>A/B:</b> Sunny.<p>\n<!--ENDTEXT FORECAST-->");
    Enregistrement e;
    EXPECT_EQ(ErrorOf([&] { LirePrevision(Page(texte), e); }), InvalidProcedureCall);
    EXPECT_TRUE(e.titres.isEmpty());
    EXPECT_TRUE(e.ordre.isEmpty());
}

TEST(ForecastParser, MoreThanSixteenBlocksIsASubscriptFailure) {
    Blocs blocs;
    for (int i = 0; i < 17; ++i) blocs.append({QStringLiteral("Day %1:").arg(i), QStringLiteral(" x")});
    Enregistrement e;
    int passes = 0;
    EXPECT_EQ(ErrorOf([&] { LirePrevision(PageDe(blocs), e, ArretApres(100000, passes)); }), SubscriptOutOfRange);
    EXPECT_EQ(e.ordre.size(), 6);

    // Sixteen go through.
    blocs.removeLast();
    EXPECT_EQ(ErrorOf([&] { LirePrevision(PageDe(blocs), e, ArretApres(100000, passes)); }), NoError);
}

TEST(ForecastParser, ACharacterOtherThanLineFeedAfterATagLoopsForEver) {
    // "<p> " puts a blank at the first place and the next "<" at the second: that pass comes
    // back unchanged for ever. The watcher ends it.
    const QString texte = QStringLiteral(
        "<!--TEXT FORECAST-->\n<b>Today:</b> Sunny.<p> <b>Tonight:</b> Clear.<p>\n<!--ENDTEXT FORECAST-->");
    Enregistrement e;
    int passes = 0;
    EXPECT_THROW(LirePrevision(Page(texte), e, ArretApres(10000, passes)), BoucleSansFin);
    EXPECT_EQ(passes, 10001);
    EXPECT_EQ(e.ordre, QList<int>{0});

    // A carriage return and a line feed behind the tag don't loop: the next "<" is then at the
    // third place, and the next block only loses its heading.
    const QString cr = QStringLiteral(
        "<!--TEXT FORECAST-->\n<b>Today:</b> Sunny.<p>\r\n<b>Tonight:</b> Clear.<p>\n<!--ENDTEXT FORECAST-->");
    passes = 0;
    Enregistrement f;
    EXPECT_NO_THROW(LirePrevision(Page(cr), f, ArretApres(10000, passes)));
    EXPECT_EQ(f.ordre.size(), 2);
}

TEST(ForecastParser, AUsualPageEndsAtTheEndMarkerInAFewPasses) {
    Enregistrement e;
    int passes = 0;
    ASSERT_TRUE(LirePrevision(PageDe(SixBlocs()), e, ArretApres(100, passes)));
    // The start marker, then per block: the line feed, "<b>", "</b>", "<p>"; then the end
    // marker, found at once behind the last line feed.
    EXPECT_EQ(passes, 1 + 6 * 4 + 1);
}
