// The news of the run: the first poll fetches the news server's page and shows it as it comes in
// promo; later polls fetch nothing. End to end, with the poll cycle and a news server on loopback.
#include "ForecastFixture.h"

#include <QGuiApplication>
#include <QScreen>

using namespace skelda;
using namespace skelda::test;

namespace {

const QString UnMot = QStringLiteral("Bonjour");

// A page with markup that a browser would run or load: it must show as text, and nothing in it
// may be fetched.
const QString PageHtml = QStringLiteral(
    "<html><head><script>alert('x');</script></head>\n"
    "<body><h1>Skelda 0.32</h1><img src=\"/Skelda/logo.gif\"><a "
    "href=\"http://example.invalid/\">Home</a></body></html>");

}  // namespace

class News : public ForecastFixture {
protected:
    void SetUp() override {
        ForecastFixture::SetUp();
        newsServer.Serve("/Skelda/promo.html", UnMot);
        services.newsServer = newsServer.Address();
    }
    // The eleventh tick of T: the next scheduled poll.
    void PollSuivant() { Tick(Form(), 11); }

    PageServer newsServer;
};

TEST_F(News, TheFirstPollShowsTheNewsWindowWithThePageAndTheTimeOfLoading) {
    Form().Cycle().Connect();
    EXPECT_EQ(newsServer.Paths(), QStringList{QStringLiteral("/Skelda/promo.html")});
    ASSERT_TRUE(forms.Loaded<Promo>());
    Promo& promo = forms.Get<Promo>();
    EXPECT_TRUE(promo.isVisible());
    EXPECT_EQ(Named<Label>(promo, QStringLiteral("Label1"))->Caption(), UnMot);
    EXPECT_EQ(Named<Label>(promo, QStringLiteral("Label2"))->Caption(), QStringLiteral("02/11/2004 10:05:00"));
    EXPECT_EQ(Named<HiddenTextBox>(Form(), QStringLiteral("wwwsource"))->Text(), UnMot);
    EXPECT_EQ(forms.module1().NouvellesVues, Variant(QStringLiteral("vu")));
    // The poll itself goes on behind the news.
    EXPECT_TRUE(server.WaitForRequests(1));
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(News, AtMidnightTheTimeOfLoadingIsTheDateAlone) {
    // The general format of a date value leaves out a time of exactly 00:00:00, and the
    // system's clock has no fraction of a second.
    clock.Set(QDateTime(QDate(2004, 11, 3), QTime(0, 0, 0, 400)));
    Form().Cycle().Connect();
    ASSERT_TRUE(forms.Loaded<Promo>());
    EXPECT_EQ(Named<Label>(forms.Get<Promo>(), QStringLiteral("Label2"))->Caption(), QStringLiteral("03/11/2004"));
    // A second later the time is there again.
    forms.Unload<Promo>();
    clock.Set(QDateTime(QDate(2004, 11, 3), QTime(0, 0, 1)));
    Promo& again = forms.Get<Promo>();
    EXPECT_EQ(Named<Label>(again, QStringLiteral("Label2"))->Caption(), QStringLiteral("03/11/2004 00:00:01"));
}

TEST_F(News, SecondAndLaterPollsMakeNoFetch) {
    Form().Cycle().Connect();
    PollSuivant();
    PollSuivant();
    Form().Cycle().Connect();
    EXPECT_EQ(newsServer.Count(), 1);
    EXPECT_TRUE(forms.Get<Promo>().isVisible());
}

TEST_F(News, ClosingTheWindowDoesNotBringItBackAtTheNextPoll) {
    Form().Cycle().Connect();
    QTest::mouseClick(Named<QPushButton>(forms.Get<Promo>(), QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_FALSE(forms.Loaded<Promo>());
    PollSuivant();
    EXPECT_FALSE(forms.Loaded<Promo>());
    EXPECT_EQ(newsServer.Count(), 1);
}

TEST_F(News, MarkupIsShownAsItComesAndNothingInItIsLoaded) {
    newsServer.Serve("/Skelda/promo.html", PageHtml);
    Form().Cycle().Connect();
    Label* label = Named<Label>(forms.Get<Promo>(), QStringLiteral("Label1"));
    EXPECT_EQ(label->Caption(), PageHtml);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_FALSE(label->openExternalLinks());
    // Only the page itself was asked for: not the picture, not the link.
    EXPECT_EQ(newsServer.Paths(), QStringList{QStringLiteral("/Skelda/promo.html")});
}

TEST_F(News, AnErrorPageCountsAsNews) {
    services.newsServer = portal.Address();  // which has no such page
    Form().Cycle().Connect();
    EXPECT_EQ(Named<Label>(forms.Get<Promo>(), QStringLiteral("Label1"))->Caption(),
              QStringLiteral("<html>Not Found</html>"));
    EXPECT_EQ(forms.module1().NouvellesVues, Variant(QStringLiteral("vu")));
}

TEST_F(News, ARefusedFetchIsSilentAndTriedAgainAtTheNextPoll) {
    services.newsServer = {QStringLiteral("127.0.0.1"), ClosedPort()};
    Form1& f = Form();
    T(f).SetEnabled(true);
    f.Cycle().Connect();
    EXPECT_TRUE(runTimeEnds.empty());
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(forms.Loaded<Promo>());
    EXPECT_TRUE(forms.module1().NouvellesVues.IsEmpty());
    EXPECT_TRUE(T(f).Enabled());
    // The poll's own exchange wasn't held up.
    EXPECT_TRUE(server.WaitForRequests(1));

    services.newsServer = newsServer.Address();
    PollSuivant();
    EXPECT_EQ(newsServer.Count(), 1);
    EXPECT_TRUE(forms.Loaded<Promo>());
    EXPECT_EQ(forms.module1().NouvellesVues, Variant(QStringLiteral("vu")));
    EXPECT_EQ(f.Cycle().SecondesAttente, 0);
}

TEST_F(News, AnUnknownHostIsSilentAndTriedAgainAtTheNextPoll) {
    services.newsServer = {QStringLiteral("news.skelda.invalid"), 80};
    Form().Cycle().Connect();
    EXPECT_TRUE(runTimeEnds.empty());
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(forms.Loaded<Promo>());
    EXPECT_TRUE(forms.module1().NouvellesVues.IsEmpty());
    PollSuivant();
    EXPECT_TRUE(runTimeEnds.empty());
    EXPECT_TRUE(forms.module1().NouvellesVues.IsEmpty());
}

TEST_F(News, TheNewsWindowHasItsCaptionControlsAndPlaceInTheMiddleOfTheScreen) {
    Promo& promo = forms.Get<Promo>();
    EXPECT_EQ(promo.objectName(), QStringLiteral("promo"));
    EXPECT_EQ(promo.windowTitle(), QStringLiteral("News form Skelda"));
    EXPECT_EQ(promo.size(), QSize(504, 270));  // 7560 by 4050 twips, at 15 twips a pixel
    const QPoint centre = QGuiApplication::primaryScreen()->geometry().center();
    EXPECT_LE((promo.geometry().center() - centre).manhattanLength(), 2);
    EXPECT_EQ(Named<QGroupBox>(promo, QStringLiteral("Frame1"))->title(), QStringLiteral("News......"));
    EXPECT_EQ(Named<Label>(promo, QStringLiteral("Label1"))->parentWidget(),
              Named<QGroupBox>(promo, QStringLiteral("Frame1")));
    EXPECT_EQ(Named<QPushButton>(promo, QStringLiteral("Command1"))->text(), QStringLiteral("Close"));
    // The design's places in twips come to these pixels, to the nearest.
    const struct {
        QWidget* w;
        QRect pixels;
    } places[] = {{Named<QGroupBox>(promo, QStringLiteral("Frame1")), {88, 16, 329, 201}},      // 1320, 240, 4935, 3015
                  {Named<Label>(promo, QStringLiteral("Label1")), {16, 24, 297, 169}},          // 240, 360, 4455, 2535
                  {Named<QPushButton>(promo, QStringLiteral("Command1")), {208, 224, 89, 25}},  // 3120, 3360, 1335, 375
                  {Named<Label>(promo, QStringLiteral("Label2")), {404, 251, 94, 14}}};         // 6060, 3768, 1404, 216
    for (const auto& p : places) EXPECT_EQ(p.w->geometry(), p.pixels) << p.w->objectName().toStdString();
    for (const char* name : {"Frame1", "Label1", "Command1", "Label2"})
        EXPECT_NE(promo.findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
    // Loading wrote the time over the design's "now".
    EXPECT_EQ(Named<Label>(promo, QStringLiteral("Label2"))->Caption(), QStringLiteral("02/11/2004 10:05:00"));
}
