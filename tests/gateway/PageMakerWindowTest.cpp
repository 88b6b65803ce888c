// The page maker's pages in the forecast window: a right click on an airport of the main list,
// with the program's forms and a portal on loopback serving what the page maker made.
#include "PageMakerFixture.h"
#include "forecast/ForecastFixture.h"

using namespace skelda;
using namespace skelda::test;

class PageMakerWindow : public ForecastFixture {
protected:
    // Le Bourget asks the portal for FRXX0076 (the fixture's code): serves Page for it, right
    // clicks the airport, and gives the window's six headings and texts.
    QStringList RightClickWith(const ForecastPage& page) {
        portal.Serve("/forecast/FRXX0076.html", page.text);
        Presser(LigneBourget, Qt::RightButton);
        ForecastForm& f = Prevision();
        QStringList shown;
        for (Label* titre : {Named<Label>(f, QStringLiteral("titre1")), Named<Label>(f, QStringLiteral("titre2")),
                             Named<Label>(f, QStringLiteral("titre3")), Named<Label>(f, QStringLiteral("titre4")),
                             Named<Label>(f, QStringLiteral("titre5")), Named<Label>(f, QStringLiteral("titre6"))})
            shown << titre->Caption();
        for (Label* texte : {Named<Label>(f, QStringLiteral("Label1")), Named<Label>(f, QStringLiteral("Label2")),
                             Named<Label>(f, QStringLiteral("Label3")), Named<Label>(f, QStringLiteral("Label4")),
                             Named<Label>(f, QStringLiteral("Label5")), Named<Label>(f, QStringLiteral("Label6"))})
            shown << texte->Caption();
        return shown;
    }
};

TEST_F(PageMakerWindow, AForecastFillsTheSixBlocksOfTheWindow) {
    const QStringList shown = RightClickWith(
        MakeForecastPage(Reponse(QStringLiteral("paris-summer")), Utc("2024-07-10T10:20:00Z"), LieuDe("FRXX0076")));
    EXPECT_TRUE(Prevision().isVisible());
    EXPECT_EQ(shown.mid(0, 6), (QStringList{QStringLiteral("Today"), QStringLiteral("Tonight"),
                                            QStringLiteral("Thursday"), QStringLiteral("Thursday night"),
                                            QStringLiteral("Friday"), QStringLiteral("Friday night")}));
    EXPECT_EQ(shown[6], QStringLiteral(" Partly cloudy. Southwest wind around 7 mph. High 75F(24)c."));
    EXPECT_EQ(shown[11], QStringLiteral(" Clear. Calm wind. Low 61F(16)c."));
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(PageMakerWindow, PagesWithoutAForecastShowWhyAndEndNothing) {
    const QDateTime now = Utc("2024-07-10T10:20:00Z");
    const ForecastPage pages[] = {NotAvailablePage(now, LieuDe("LFPG")), SourceFailurePage(now, LieuDe("LFPG")),
                                  UnknownCityPage(now)};
    const QString first[] = {QStringLiteral(" The forecast is not available. Try again later."),
                             QStringLiteral(" The forecast source can't be reached. Try again in a minute."),
                             QStringLiteral(" This city is unknown to the forecast portal.")};
    for (int i = 0; i < 3; ++i) {
        const QStringList shown = RightClickWith(pages[i]);
        EXPECT_EQ(shown[0], QStringLiteral("Today"));
        EXPECT_EQ(shown[6], first[i]);
        EXPECT_FALSE(shown[11].isEmpty());
    }
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(runTimeEnds.empty());
}
