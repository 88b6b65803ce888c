// The news of the run, from the start of the program: the first tick of the start form's timer
// polls the preferred airport and shows the news; later polls fetch them no more.
#include "Forecast.h"
#include "ForecastForm.h"
#include "Promo.h"
#include "ThreadedHttpServer.h"
#include "TrayFixture.h"

using namespace skelda;
using namespace skelda::test;

namespace {

class NewsAtStart : public TrayFixture {
protected:
    ThreadedHttpServer news{[](const std::string&) { return ThreadedHttpServer::Reply(200, "Skelda 0.32 is out"); }};
};

}  // namespace

TEST_F(NewsAtStart, TheFirstTickOfTheStartShowsTheNewsOnceAndLaterPollsFetchNothing) {
    services.newsServer = {QStringLiteral("127.0.0.1"), quint16(news.Port())};
    FrmIcone& tray = StartForm();
    EXPECT_FALSE(forms.Loaded<Promo>());
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    ASSERT_TRUE(forms.Loaded<Promo>());
    EXPECT_TRUE(forms.Widget<Promo>().isVisible());
    EXPECT_EQ(Named<Label>(forms.Get<Promo>(), QStringLiteral("Label1"))->Caption(),
              QStringLiteral("Skelda 0.32 is out"));
    EXPECT_EQ(news.Requests().size(), 1u);
    // The first poll went out all the same, for the preferred airport.
    ASSERT_TRUE(server.WaitForRequests(1));
    EXPECT_EQ(server.Codes().value(0), QByteArray("LFPB"));

    Tick(Form(), 11);
    Tick(Form(), 11);
    EXPECT_EQ(news.Requests().size(), 1u);
    EXPECT_TRUE(runTimeEnds.empty());
}

TEST_F(NewsAtStart, WithoutANewsServerTheStartGoesOnSilently) {
    FrmIcone& tray = StartForm();
    Named<Timer>(tray, QStringLiteral("Timer1"))->Fire();
    EXPECT_FALSE(forms.Loaded<Promo>());
    EXPECT_TRUE(forms.module1().NouvellesVues.IsEmpty());
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(runTimeEnds.empty());
    EXPECT_TRUE(T(Form()).Enabled());
    ASSERT_TRUE(server.WaitForRequests(1));
}
