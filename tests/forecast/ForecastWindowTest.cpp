// The forecast window, and the right click on an airport that fetches its forecast from the
// portal: end to end, with the program's forms, a real database and a portal on loopback.
#include "Controls.h"
#include "Failures.h"
#include "Forecast.h"
#include "ForecastFixture.h"

#include <QFontInfo>
#include <QPushButton>

#include <atomic>
#include <stdexcept>

using namespace skelda;
using namespace skelda::test;

namespace {

void ExpectGreyBack(const QWidget* w) {
    EXPECT_TRUE(w->autoFillBackground()) << w->objectName().toStdString();
    EXPECT_EQ(w->palette().color(QPalette::Window), QColor(224, 224, 224)) << w->objectName().toStdString();
}

}  // namespace

class Forecast : public ForecastFixture {};

TEST_F(Forecast, HasItsCaptionClientAreaAndEveryControlInPlace) {
    ForecastForm& f = Prevision();
    EXPECT_EQ(f.objectName(), QStringLiteral("forecastform"));
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Forecast"));
    // The design's places in twips, and the pixels they come to at 15 twips a pixel, to the
    // nearest: 10830 by 6765 twips are 722 by 451 pixels.
    EXPECT_EQ(f.size(), QSize(722, 451));
    EXPECT_FALSE(f.isVisible());
    const struct {
        const char* name;
        QRect pixels;
    } places[] = {
        {"Nomvilleaeroport", {44, 14, 268, 36}},  // 660, 216, 4020, 540
        {"titre1", {36, 62, 99, 25}},             // 540, 924, 1488, 372
        {"titre2", {262, 62, 99, 25}},            // 3924, 924, 1488, 372
        {"titre3", {485, 65, 99, 25}},            // 7272, 972, 1488, 372
        {"titre4", {37, 234, 99, 25}},            // 552, 3516, 1488, 372
        {"titre5", {263, 234, 99, 25}},           // 3948, 3504, 1488, 372
        {"titre6", {486, 234, 99, 25}},           // 7296, 3504, 1488, 372
        {"Label1", {36, 93, 196, 133}},           // 540, 1392, 2940, 1992
        {"Label2", {261, 93, 196, 133}},          // 3912, 1392, 2940, 1992
        {"Label3", {485, 93, 196, 133}},          // 7272, 1392, 2940, 1992
        {"Label4", {36, 264, 196, 133}},          // 540, 3960, 2940, 1992
        {"Label5", {262, 264, 196, 133}},         // 3924, 3960, 2940, 1992
        {"Label6", {486, 264, 196, 133}},         // 7296, 3960, 2940, 1992
        {"temp1", {173, 60, 59, 30}},             // 2592, 900, 888, 456
        {"temp2", {622, 61, 59, 30}},             // 9324, 912, 888, 456
        {"temp3", {398, 231, 59, 30}},            // 5964, 3468, 888, 456
        {"temp4", {622, 230, 59, 30}},            // 9336, 3456, 888, 456
        {"Command1", {309, 416, 91, 26}},         // 4632, 6240, 1368, 390
    };
    for (const auto& p : places) {
        QWidget* w = f.findChild<QWidget*>(QString::fromLatin1(p.name));
        ASSERT_NE(w, nullptr) << p.name;
        EXPECT_EQ(w->geometry(), p.pixels) << p.name;
    }
    EXPECT_EQ(f.findChild<QPushButton*>(QStringLiteral("Command1"))->text(), QStringLiteral("Close"));
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(Named<Label>(f, QStringLiteral("titre%1").arg(i + 1))->Caption(), QString());
        EXPECT_EQ(Named<Label>(f, QStringLiteral("Label%1").arg(i + 1))->Caption(), QString());
        EXPECT_EQ(Named<Label>(f, QStringLiteral("Label%1").arg(i + 1))->textFormat(), Qt::PlainText);
    }
}

TEST_F(Forecast, HasGreyBacksAndItsFontsOrTheNearest) {
    ForecastForm& f = Prevision();
    ExpectGreyBack(Named<Label>(f, QStringLiteral("Nomvilleaeroport")));
    for (int i = 0; i < 6; ++i) ExpectGreyBack(Named<Label>(f, QStringLiteral("Label%1").arg(i + 1)));
    EXPECT_FALSE(Named<Label>(f, QStringLiteral("titre1"))->autoFillBackground());
    const QFont nom = Named<Label>(f, QStringLiteral("Nomvilleaeroport"))->font();
    EXPECT_EQ(nom.family(), QStringLiteral("Arial Black"));
    EXPECT_DOUBLE_EQ(nom.pointSizeF(), 16.5);
    EXPECT_EQ(nom.weight(), QFont::Black);
    for (int i = 0; i < 6; ++i) {
        const QFont titre = Named<Label>(f, QStringLiteral("titre%1").arg(i + 1))->font();
        EXPECT_EQ(titre.family(), QStringLiteral("Terminal"));
        EXPECT_DOUBLE_EQ(titre.pointSizeF(), 9);
        EXPECT_TRUE(titre.bold());
    }
    // Whatever the machine lacks, the font drawn is a real one of the same kind.
    EXPECT_FALSE(QFontInfo(Named<Label>(f, QStringLiteral("titre1"))->font()).family().isEmpty());
    EXPECT_TRUE(QFontInfo(Named<Label>(f, QStringLiteral("titre1"))->font()).bold());
}

TEST_F(Forecast, CloseUnloadsTheFormAndWhatWasWritten) {
    ForecastForm& f = Prevision();
    Named<Label>(f, QStringLiteral("Label1"))->SetCaption(QStringLiteral("Sunny"));
    f.show();
    QTest::mouseClick(Named<QPushButton>(f, QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_FALSE(forms.Loaded<ForecastForm>());
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Label1"))->Caption(), QString());
    EXPECT_FALSE(Prevision().isVisible());
}

TEST_F(Forecast, ClosingByTheWindowFrameUnloadsTheFormToo) {
    Named<Label>(Prevision(), QStringLiteral("Label1"))->SetCaption(QStringLiteral("Sunny"));
    Prevision().show();
    Prevision().close();
    EXPECT_FALSE(forms.Loaded<ForecastForm>());
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Label1"))->Caption(), QString());
}

TEST_F(Forecast, LeftClickOnAnAirportDrawsTheChartAndFetchesNoForecast) {
    Form1& f = Form();
    f.DrawOn(recording);
    recording.Clear();
    Presser(LigneHeathrow, Qt::LeftButton);
    EXPECT_FALSE(recording.Calls().empty());
    recording.Clear();
    f.List1_MouseDown(vbLeftButton, 0, 0, 0);
    EXPECT_FALSE(recording.Calls().empty());
    EXPECT_EQ(portal.Count(), 0);
    EXPECT_FALSE(forms.Loaded<ForecastForm>());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Forecast, RightClickOnAnAirportFillsTheForecastWindow) {
    portal.Serve("/forecast/FRXX0076.html", PageDe(SixBlocs()));
    Form1& f = Form();
    T(f).SetEnabled(true);
    std::atomic<int> tPendantLaRequete{-1};
    portal.onRequest = [&] { tPendantLaRequete = T(f).Enabled() ? 1 : 0; };
    Presser(LigneBourget, Qt::RightButton);

    EXPECT_EQ(portal.Paths(), QStringList{QStringLiteral("/forecast/FRXX0076.html")});
    ForecastForm& prevision = Prevision();
    EXPECT_TRUE(prevision.isVisible());
    EXPECT_EQ(Named<Label>(prevision, QStringLiteral("Nomvilleaeroport"))->Caption(),
              QStringLiteral("Paris - Le Bourget"));
    EXPECT_EQ(Named<Label>(prevision, QStringLiteral("titre1"))->Caption(), QStringLiteral("Today"));
    EXPECT_EQ(Named<Label>(prevision, QStringLiteral("Label1"))->Caption(), QStringLiteral(" Sunny. High 75F(24)c."));
    EXPECT_EQ(Named<Label>(prevision, QStringLiteral("titre6"))->Caption(), QStringLiteral("Thursday night"));
    EXPECT_EQ(Named<Label>(prevision, QStringLiteral("Label6"))->Caption(), QStringLiteral(" Rain. Low 41F(5)c."));
    // The page stays in the hidden field until the next fetch.
    EXPECT_EQ(Named<HiddenTextBox>(f, QStringLiteral("wwwsource"))->Text(), PageDe(SixBlocs()));
    // T was off while the page was fetched, and runs again.
    EXPECT_EQ(tPendantLaRequete.load(), 0);
    EXPECT_TRUE(T(f).Enabled());
    EXPECT_TRUE(f.Base().IsNothing());
    EXPECT_TRUE(f.Jeu().IsNothing());
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(Forecast, RightClickOnAnotherAirportLeavesTheSelectionAndFetchesTheSelectedOnesForecast) {
    portal.Serve("/forecast/FRXX0076.html", PageDe({{QStringLiteral("Monday:"), QStringLiteral(" Drizzle.")}}));
    Form1& f = Form();
    ASSERT_EQ(Named<ListBox>(f, QStringLiteral("List1"))->ListIndex(), LigneBourget);
    f.DrawOn(recording);
    recording.Clear();
    Presser(LigneHeathrow, Qt::RightButton);
    // The right button selects nothing: the forecast is that of the line selected before, and
    // the chart isn't drawn again.
    EXPECT_EQ(Named<ListBox>(f, QStringLiteral("List1"))->ListIndex(), LigneBourget);
    EXPECT_FALSE(Named<ListBox>(f, QStringLiteral("List1"))->Selected(LigneHeathrow));
    EXPECT_TRUE(recording.Calls().empty());
    EXPECT_EQ(portal.Paths(), QStringList{QStringLiteral("/forecast/FRXX0076.html")});
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Nomvilleaeroport"))->Caption(),
              QStringLiteral("Paris - Le Bourget"));
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Label1"))->Caption(), QStringLiteral(" Drizzle."));
}

TEST_F(Forecast, RightClickWithoutCodeShowsTheBoxAndTRunsAgain) {
    Form1& f = Form();
    T(f).SetEnabled(true);
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneRoissy);
    f.List1_MouseDown(vbRightButton, 0, 0, 0);
    EXPECT_EQ(boxes.shown, std::vector<QString>{QStringLiteral("No forecast code for city")});
    EXPECT_EQ(portal.Count(), 0);
    // The heading was written all the same, which loaded the window without showing it.
    ASSERT_TRUE(forms.Loaded<ForecastForm>());
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Nomvilleaeroport"))->Caption(),
              QStringLiteral("Roissy - Charles de Gaulle"));
    EXPECT_FALSE(Prevision().isVisible());
    EXPECT_TRUE(T(f).Enabled());
    EXPECT_TRUE(f.Base().IsNothing());
}

TEST_F(Forecast, AnEmptyCodeGoesToThePortalAsItIs) {
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET codeforecast = '' WHERE IDA = 'LFPG'")));
    Form1& f = Form();
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneRoissy);
    f.List1_MouseDown(vbRightButton, 0, 0, 0);
    EXPECT_EQ(portal.Paths(), QStringList{QStringLiteral("/forecast/.html")});
    // The portal's "Not Found" page has no forecast text.
    EXPECT_EQ(boxes.shown, std::vector<QString>{QStringLiteral("Unable to retrieve forecast!!!")});
}

TEST_F(Forecast, APageWithoutForecastTextShowsTheBoxAndLogsTheCode) {
    portal.Serve("/forecast/FRXX0076.html", QStringLiteral("<html>Forecast</html>"));
    Form1& f = Form();
    T(f).SetEnabled(true);
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneBourget);
    f.List1_MouseDown(vbRightButton, 0, 0, 0);
    EXPECT_EQ(boxes.shown, std::vector<QString>{QStringLiteral("Unable to retrieve forecast!!!")});
    EXPECT_EQ(LogCount(QStringLiteral(" Unable to retrieve forecast!!!FRXX0076\r\n")), 1);
    EXPECT_FALSE(Prevision().isVisible());
    EXPECT_TRUE(T(f).Enabled());
}

TEST_F(Forecast, OpensBlankAndFillsWhileTheParserRuns) {
    portal.Serve("/forecast/FRXX0076.html", PageDe(SixBlocs()));
    Form();
    int passes = 0;
    bool blancAuDebut = false;
    bool premierSeulAuMilieu = false;
    QString Code = QStringLiteral("FRXX0076");
    ChargerPrevision(Code, forms, [&] {
        ForecastForm& p = Prevision();
        ++passes;
        if (passes == 1) {
            blancAuDebut = p.isVisible();
            for (int i = 0; i < 6; ++i)
                blancAuDebut = blancAuDebut &&
                               Named<Label>(p, QStringLiteral("titre%1").arg(i + 1))->Caption().isEmpty() &&
                               Named<Label>(p, QStringLiteral("Label%1").arg(i + 1))->Caption().isEmpty();
        }
        // The second block's first pass, its line feed: the first block is there, not the rest.
        if (passes == 6)
            premierSeulAuMilieu = !Named<Label>(p, QStringLiteral("Label1"))->Caption().isEmpty() &&
                                  Named<Label>(p, QStringLiteral("Label2"))->Caption().isEmpty();
    });
    EXPECT_TRUE(blancAuDebut);
    EXPECT_TRUE(premierSeulAuMilieu);
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Label6"))->Caption(), QStringLiteral(" Rain. Low 41F(5)c."));
}

TEST_F(Forecast, FewerThanSixBlocksLeaveTheLastLabelsBlankOnANewWindow) {
    portal.Serve("/forecast/FRXX0076.html", PageDe(SixBlocs().mid(0, 2)));
    Form();
    QString Code = QStringLiteral("FRXX0076");
    ChargerPrevision(Code, forms);
    ForecastForm& p = Prevision();
    EXPECT_EQ(Named<Label>(p, QStringLiteral("titre2"))->Caption(), QStringLiteral("Tonight"));
    for (int i = 2; i < 6; ++i) {
        EXPECT_EQ(Named<Label>(p, QStringLiteral("titre%1").arg(i + 1))->Caption(), QString());
        EXPECT_EQ(Named<Label>(p, QStringLiteral("Label%1").arg(i + 1))->Caption(), QString());
    }
}

TEST_F(Forecast, ASecondForecastWithFewerBlocksKeepsTheOldTextWhileTheWindowStaysOpen) {
    portal.Serve("/forecast/FRXX0076.html", PageDe(SixBlocs()));
    portal.Serve("/forecast/UKXX0085.html", PageDe({{QStringLiteral("Monday:"), QStringLiteral(" Drizzle.")}}));
    Form1& f = Form();
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneBourget);
    f.List1_MouseDown(vbRightButton, 0, 0, 0);
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneHeathrow);
    f.List1_MouseDown(vbRightButton, 0, 0, 0);
    ForecastForm& p = Prevision();
    EXPECT_EQ(Named<Label>(p, QStringLiteral("Nomvilleaeroport"))->Caption(), QStringLiteral("London - Heathrow"));
    EXPECT_EQ(Named<Label>(p, QStringLiteral("titre1"))->Caption(), QStringLiteral("Monday"));
    EXPECT_EQ(Named<Label>(p, QStringLiteral("Label1"))->Caption(), QStringLiteral(" Drizzle."));
    EXPECT_EQ(Named<Label>(p, QStringLiteral("titre2"))->Caption(), QStringLiteral("Tonight"));
    EXPECT_EQ(Named<Label>(p, QStringLiteral("Label6"))->Caption(), QStringLiteral(" Rain. Low 41F(5)c."));

    // Closed in between, the window starts blank.
    QTest::mouseClick(Named<QPushButton>(p, QStringLiteral("Command1")), Qt::LeftButton);
    f.List1_MouseDown(vbRightButton, 0, 0, 0);
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("titre1"))->Caption(), QStringLiteral("Monday"));
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("titre2"))->Caption(), QString());
}

TEST_F(Forecast, APageThatBreaksTheParserEndsInTheRunTimeBoxWithTOff) {
    portal.Serve("/forecast/FRXX0076.html", PageDe({{QStringLiteral("Today:"), QStringLiteral(" Sunny.")},
                                                    {QStringLiteral("Tonight:"), QStringLiteral(" Patchy Fog.")}}));
    Form1& f = Form();
    T(f).SetEnabled(true);
    Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(LigneBourget);
    Presser(LigneBourget, Qt::RightButton);
    EXPECT_EQ(runTimeEnds, std::vector<int>{TypeMismatch});
    EXPECT_EQ(boxes.shown, std::vector<QString>{QStringLiteral("Run-time error '13': Type mismatch")});
    EXPECT_FALSE(T(f).Enabled());
    // Nothing closed the database either.
    EXPECT_FALSE(f.Base().IsNothing());
    // The window was shown with what came before the failure.
    EXPECT_TRUE(Prevision().isVisible());
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Label1"))->Caption(), QStringLiteral(" Sunny."));
}

TEST_F(Forecast, AnUnreachablePortalEndsInTheRunTimeBoxWithTOff) {
    services.forecastPortal = {QStringLiteral("127.0.0.1"), ClosedPort()};
    Form1& f = Form();
    T(f).SetEnabled(true);
    Presser(LigneBourget, Qt::RightButton);
    EXPECT_EQ(runTimeEnds, std::vector<int>{icConnectFailed});
    EXPECT_FALSE(T(f).Enabled());
    EXPECT_FALSE(Prevision().isVisible());
}

TEST_F(Forecast, APageWithALoopThatNeverEndsKeepsRunning) {
    portal.Serve("/forecast/FRXX0076.html",
                 Page(QStringLiteral("<!--TEXT FORECAST-->\n<b>Today:</b> Sunny.<p> <b>Tonight:</b> Clear.<p>\n"
                                     "<!--ENDTEXT FORECAST-->")));
    Form();
    int passes = 0;
    QString Code = QStringLiteral("FRXX0076");
    EXPECT_THROW(ChargerPrevision(Code, forms,
                                  [&] {
                                      if (++passes > 50000) throw BoucleSansFin();
                                  }),
                 BoucleSansFin);
    EXPECT_EQ(Named<Label>(Prevision(), QStringLiteral("Label1"))->Caption(), QStringLiteral(" Sunny."));
}

TEST_F(Forecast, APageLongerThanTheFieldsUsualLimitIsKeptWhole) {
    const QString page = Page(TextePrevision(SixBlocs()) + QString(40000, u' '));
    portal.Serve("/forecast/FRXX0076.html", page);
    Form();
    QString Code = QStringLiteral("FRXX0076");
    // The picture table now ends beyond 32767: the whole page reached the parser.
    EXPECT_EQ(ErrorOf([&] { ChargerPrevision(Code, forms); }), Overflow);
    EXPECT_EQ(Named<HiddenTextBox>(Form(), QStringLiteral("wwwsource"))->Text().size(), page.size());
}
