// The program through its gateway: the production program's poll cycle, news and forecast, at
// the addresses the program is built with, against the real gateway and stand-ins of the public
// sources, all in a network namespace of the tests' own.
#include "GatewayWorld.h"
#include "PageMakerFixture.h"
#include "Servers.h"
#include "forecast/ForecastFixture.h"

#include <QRegularExpression>

#include <memory>

namespace skelda::test {
namespace {

// Today's station files: the date line, then the report.
const QByteArray BourgetFile = "2026/11/24 19:00\nLFPB 241900Z 24013KT 9999 FEW016 12/08 Q1015 NOSIG\n";
const QByteArray HeathrowFile = "2026/11/24 18:50\nEGLL 241850Z 22008KT CAVOK 10/06 Q1021\n";

class Gateway : public ForecastFixture {
protected:
    static void SetUpTestSuite() {
        reason_ = GatewayWorld::Missing();
        if (!reason_.isEmpty()) return;
        world_ = std::make_unique<GatewayWorld>();
        if (!world_->StartSources()) reason_ = QStringLiteral("the source stand-ins don't start: ") + world_->Error();
    }
    static void TearDownTestSuite() { world_.reset(); }

    void SetUp() override {
        if (!reason_.isEmpty()) GTEST_SKIP() << reason_.toStdString();
        ForecastFixture::SetUp();
        // The program's own addresses, as main gives them.
        services.observationServer = skelda::ObservationServer();
        services.newsServer = skelda::NewsServer();
        services.forecastPortal = skelda::ForecastPortal();
        World().ServeStation(QStringLiteral("LFPB"), BourgetFile);
        World().ServeStation(QStringLiteral("EGLL"), HeathrowFile);
        QDir(World().Folder() + QStringLiteral("/gateway")).removeRecursively();
        QFile(World().Folder() + QStringLiteral("/sources-access.log")).resize(0);
    }
    void TearDown() override {
        if (world_) world_->StopGateway();
        if (reason_.isEmpty()) ForecastFixture::TearDown();
    }

    static GatewayWorld& World() { return *world_; }

    // Le Bourget selected, then its forecast asked by a right click: no run-time error and no box,
    // and the forecast window shown.
    ForecastForm& AskBourgetsForecast() {
        Presser(LigneBourget, Qt::LeftButton);
        Presser(LigneBourget, Qt::RightButton);
        EXPECT_TRUE(runTimeEnds.empty());
        EXPECT_TRUE(boxes.shown.empty());
        EXPECT_TRUE(forms.Widget<ForecastForm>().isVisible());
        return Prevision();
    }
    void Start(const QString& source, bool withPageMaker = false) {
        ASSERT_TRUE(World().StartGateway(source, withPageMaker)) << World().Error().toStdString();
    }

    // One poll of the selected airport, as the clock starts it: the exchange has ended when the
    // program has taken a reply in and closed its socket, or when the gateway has closed it.
    bool Poll() {
        Form1& f = Form();
        f.Cycle().Connect();
        // Connect leaves W resolving; the exchange has ended when W is closed, or closed by
        // the other side.
        return QTest::qWaitFor([&] { return W(f).State() == sckClosed || W(f).State() == sckClosing; }, 15000);
    }

    // The requests that reached the source stand-ins for a station's file.
    int SourceAsked(const QString& code) const {
        return int(
            World().SourceRequests().filter(QStringLiteral("/stations/") + code + QStringLiteral(".TXT|")).size());
    }

    int Rows() const { return db.Count(QStringLiteral("Zefir")); }

    // The source's forecast from the hour under way, hour by hour for sixty hours, then every six.
    static void ServeTheSourcesForecast() {
        const QDateTime now = QDateTime::currentDateTimeUtc();
        World().ServeFile(QStringLiteral("/weatherapi/locationforecast/2.0/compact"),
                          ReponseReguliere(QDateTime(now.date(), QTime(now.time().hour(), 0), Qt::UTC)));
    }

    static inline QString reason_;
    static inline std::unique_ptr<GatewayWorld> world_;
};

TEST_F(Gateway, TheShippedSitePassesNginxsOwnCheck) { EXPECT_EQ(World().CheckShippedSite(), QString()); }

TEST_F(Gateway, ThePollStoresTheReportOfTheSourcesStationFile) {
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT METAF FROM Zefir")).toString(),
              QStringLiteral("LFPB 241900Z 24013KT 9999 FEW016 12/08 Q1015 NOSIG\n"));
    EXPECT_EQ(db.Value(QStringLiteral("SELECT forcenoeuds FROM Zefir")).toInt(), 13);
    EXPECT_EQ(db.Value(QStringLiteral("SELECT \"NumAéroport\" FROM Zefir")).toInt(), 1);
    EXPECT_EQ(LogCount(QStringLiteral("New Metaf Recorded  * Paris - Le Bourget")), 1);
    EXPECT_TRUE(Named<ListBox>(Form(), QStringLiteral("List1"))->isEnabled());
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Gateway, TheSourceIsAskedForTheHttpsFormOfThePathNamingSkelda) {
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    const QStringList asked = World().SourceRequests();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().section(u'|', 0, 0), QStringLiteral("GET /data/observations/metar/stations/LFPB.TXT"));
    EXPECT_TRUE(asked.first().section(u'|', 1, 1).startsWith(QStringLiteral("Skelda/")));
    EXPECT_EQ(asked.first().section(u'|', 2, 2), QStringLiteral("tgftp.nws.noaa.gov"));
}

TEST_F(Gateway, TheSourceIsAskedOnceAMinutePerStationHoweverManyPolls) {
    Start(GoodSource);
    for (int i = 0; i < 5; ++i) ASSERT_TRUE(Poll());
    EXPECT_EQ(SourceAsked(QStringLiteral("LFPB")), 1);
    // The same file is the same observation: stored once, refused as a duplicate after that.
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate LFPB")), 4);
}

TEST_F(Gateway, AQueryStringOrOtherHeadersMakeNoNewCacheEntry) {
    Start(GoodSource);
    const QByteArray path = "http://127.0.0.1/pub/data/observations/metar/stations/LFPB.TXT";
    const QByteArray first = GatewayWorld::Exchange("GET " + path + " HTTP/1.0\r\n\r\n");
    const QByteArray second = GatewayWorld::Exchange("GET " + path + "?now=1 HTTP/1.0\r\nUser-Agent: x\r\n\r\n");
    const QByteArray third = GatewayWorld::Exchange(
        "GET /pub/data/observations/metar/stations/LFPB.TXT HTTP/1.1\r\nHost: other\r\n"
        "Cache-Control: no-cache\r\nConnection: close\r\n\r\n");
    EXPECT_TRUE(first.endsWith(BourgetFile));
    EXPECT_TRUE(second.endsWith(BourgetFile));
    EXPECT_TRUE(third.endsWith(BourgetFile));
    EXPECT_EQ(SourceAsked(QStringLiteral("LFPB")), 1);
}

TEST_F(Gateway, TheSourcesCacheHeadersDoNotShortenTheMinute) {
    World().ServeFile(QStringLiteral("/data/observations/metar/stations/NOCA.TXT"),
                      "2026/11/24 19:00\nNOCA 241900Z 24013KT 9999 12/08 Q1015\n");
    Start(GoodSource);
    const QByteArray request = "GET http://127.0.0.1/pub/data/observations/metar/stations/NOCA.TXT HTTP/1.0\r\n\r\n";
    GatewayWorld::Exchange(request);
    GatewayWorld::Exchange(request);
    EXPECT_EQ(SourceAsked(QStringLiteral("NOCA")), 1);
}

// The reply leaves the gateway in one write: a head that came without its body would be decoded
// as the decoder's built-in sample, a report of LFTH, and stored.
TEST_F(Gateway, TwoHundredPollsStoreNoSampleReport) {
    Start(GoodSource);
    // Forty stations, each asked five times: forty fresh fetches and 160 answers from the cache.
    QList<SeedAirport> airports;
    for (int i = 0; i < 40; ++i) {
        const QString code = QStringLiteral("K%1").arg(i, 3, 10, QLatin1Char('0'));
        airports.append(Airport(code, QStringLiteral("City %1").arg(i, 2, 10, QLatin1Char('0')), code, true, i == 0));
        World().ServeStation(code, "2026/11/24 19:00\n" + code.toLatin1() + " 241900Z 24013KT 9999 12/08 Q1015\n");
    }
    TestDatabase many(airports);
    services.applicationPath = many.Folder();
    Form1& f = Form();
    int polls = 0;
    for (int round = 0; round < 5; ++round)
        for (int line = 0; line < 40; ++line) {
            Named<ListBox>(f, QStringLiteral("List1"))->SetListIndex(line);
            ASSERT_TRUE(Poll()) << "poll " << polls;
            ++polls;
        }
    EXPECT_EQ(polls, 200);
    EXPECT_EQ(many.Count(QStringLiteral("Zefir")), 40);
    EXPECT_EQ(many.Value(QStringLiteral("SELECT count(*) FROM Zefir WHERE METAF LIKE '%LFTH%' OR \"NumAéroport\" = 0"))
                  .toInt(),
              0);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate ")), 160);
}

TEST_F(Gateway, SourceDownWithoutACopyClosesWithoutAReplyAndStoresNothing) {
    Start(AbsentSource);
    ASSERT_TRUE(Poll());
    EXPECT_EQ(W(Form()).State(), sckClosing);
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(LogCount(QStringLiteral("Weather Received from")), 0);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(World().GatewayLog().contains(QStringLiteral("station LFPB: the source answered 502; no copy")));
}

TEST_F(Gateway, SourceDownWithACopyServesTheLastGoodCopyWhichIsADuplicate) {
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    ASSERT_EQ(Rows(), 1);
    World().ExpireStationCache();
    Start(AbsentSource);
    ASSERT_TRUE(Poll());
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate LFPB")), 1);
    // The reply came: List1, disabled while the request was out, is back at once.
    EXPECT_TRUE(Named<ListBox>(Form(), QStringLiteral("List1"))->isEnabled());
    EXPECT_TRUE(World().GatewayLog().contains(QStringLiteral("station LFPB: the source answered 502; the last good")));
}

TEST_F(Gateway, ASilentSourceIsGivenUpBeforeTheNextPoll) {
    Start(SilentSource);
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(Poll());
    // The next poll comes 11 s after this one.
    EXPECT_LT(timer.elapsed(), 11000);
    EXPECT_EQ(Rows(), 0);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(World().GatewayLog().contains(QStringLiteral("timed out")));
}

TEST_F(Gateway, AReplyOfMegabytesIsNoStationFile) {
    World().ServeFile(QStringLiteral("/data/observations/metar/stations/LFPB.TXT"), QByteArray(5 << 20, 'A'));
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    EXPECT_EQ(W(Form()).State(), sckClosing);
    EXPECT_EQ(Rows(), 0);
    EXPECT_TRUE(World().GatewayLog().contains(QStringLiteral("station LFPB: the source answered 206")));
}

TEST_F(Gateway, AReplyOfMegabytesAfterAGoodOneServesTheGoodOne) {
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    World().ServeFile(QStringLiteral("/data/observations/metar/stations/LFPB.TXT"), QByteArray(5 << 20, 'A'));
    World().ExpireStationCache();
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(LogCount(QStringLiteral("ERROR UPDATE : Possibility of duplicate LFPB")), 1);
}

TEST_F(Gateway, ARedirectIsNotFollowedAndStoresNothing) {
    Start(GoodSource);
    Named<ListBox>(Form(), QStringLiteral("List1"))->SetListIndex(LigneHeathrow);
    World().ServeFile(QStringLiteral("/elsewhere/MOVE.TXT"), HeathrowFile);
    const QByteArray reply =
        GatewayWorld::Exchange("GET http://127.0.0.1/pub/data/observations/metar/stations/MOVE.TXT HTTP/1.0\r\n\r\n");
    EXPECT_TRUE(reply.isEmpty()) << reply.toStdString();
    EXPECT_EQ(World().SourceRequests().filter(QStringLiteral("/elsewhere/")).size(), 0);
    EXPECT_TRUE(World().GatewayLog().contains(QStringLiteral("station MOVE: the source answered 301")));
}

TEST_F(Gateway, ACertificateThatDoesNotVerifyStoresNothing) {
    Start(UntrustedSource);
    ASSERT_TRUE(Poll());
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(SourceAsked(QStringLiteral("LFPB")), 0);
    EXPECT_TRUE(World().GatewayLog().contains(QStringLiteral("certificate verify")));
}

TEST_F(Gateway, AnUnknownStationClosesWithoutAReply) {
    Start(GoodSource);
    const QByteArray reply =
        GatewayWorld::Exchange("GET http://127.0.0.1/pub/data/observations/metar/stations/ZZZZ.TXT HTTP/1.0\r\n\r\n");
    EXPECT_TRUE(reply.isEmpty()) << reply.toStdString();
    EXPECT_EQ(SourceAsked(QStringLiteral("ZZZZ")), 1);
}

TEST_F(Gateway, ACodeOfOtherCharactersIsRefusedWithoutAskingTheSource) {
    Start(GoodSource);
    for (const QByteArray& code :
         {QByteArray("LF-B"), QByteArray("LF%2FB"), QByteArray("..%2F..%2Fetc"), QByteArray("")}) {
        const QByteArray reply = GatewayWorld::Exchange("GET http://127.0.0.1/pub/data/observations/metar/stations/" +
                                                        code + ".TXT HTTP/1.0\r\n\r\n");
        // Closed without a word, or, for a path that its dots take out of the folder, not found.
        EXPECT_TRUE(reply.isEmpty() || reply.startsWith("HTTP/1.1 404"))
            << code.toStdString() << ": " << reply.toStdString();
    }
    EXPECT_TRUE(World().SourceRequests().isEmpty());
}

TEST_F(Gateway, AMethodOtherThanGetOrHeadIsRefusedWithoutAskingTheSource) {
    Start(GoodSource);
    for (const QByteArray& method : {QByteArray("POST"), QByteArray("PUT"), QByteArray("DELETE")}) {
        const QByteArray reply =
            GatewayWorld::Exchange(method +
                                   " http://127.0.0.1/pub/data/observations/metar/stations/LFPB.TXT HTTP/1.0\r\n"
                                   "Content-Length: 0\r\n\r\n");
        EXPECT_TRUE(reply.isEmpty()) << method.toStdString() << ": " << reply.toStdString();
    }
    const QByteArray head =
        GatewayWorld::Exchange("HEAD http://127.0.0.1/pub/data/observations/metar/stations/LFPB.TXT HTTP/1.0\r\n\r\n");
    EXPECT_TRUE(head.startsWith("HTTP/1.1 200")) << head.toStdString();
    EXPECT_EQ(SourceAsked(QStringLiteral("LFPB")), 1);
    EXPECT_EQ(World().SourceRequests().filter(QRegularExpression(QStringLiteral("^(POST|PUT|DELETE) "))).size(), 0);
}

TEST_F(Gateway, AnyOtherPathIsNotFoundAndTheGatewayIsNoOpenProxy) {
    Start(GoodSource);
    for (const QByteArray& path : {QByteArray("/"), QByteArray("/data/observations/metar/stations/LFPB.TXT"),
                                   QByteArray("/.skelda/station/LFPB"), QByteArray("http://example.com/"),
                                   QByteArray("/weatherapi/locationforecast/2.0/compact?lat=1&lon=2")}) {
        const QByteArray reply = GatewayWorld::Exchange("GET " + path + " HTTP/1.0\r\n\r\n");
        EXPECT_TRUE(reply.startsWith("HTTP/1.1 404")) << path.toStdString() << ": " << reply.left(40).toStdString();
    }
    EXPECT_TRUE(World().SourceRequests().isEmpty());
}

// The gateway and the page maker's way to the source stand on the loopback alone: port 80 of
// 127.0.0.1 (and of ::1 where there is IPv6), and the source's port 857 of 127.0.0.1.
TEST_F(Gateway, ItListensOnTheLoopbackOnly) {
    Start(GoodSource, true);
    QStringList expected{QStringLiteral("127.0.0.1:80"), QStringLiteral("127.0.0.1:857")};
    if (GatewayWorld::HasIpv6Loopback()) expected.append(QStringLiteral("[::1]:80"));
    expected.sort();
    EXPECT_EQ(World().GatewayListens(), expected);
    // Another loopback address of the machine finds nobody on port 80.
    EXPECT_EQ(GatewayWorld::Exchange("GET /Skelda/promo.html HTTP/1.0\r\n\r\n", 15000, QStringLiteral("127.0.0.9")),
              QByteArray("(no connection)"));
}

TEST_F(Gateway, TheNewsPageIsServedOnIpv6sLoopbackToo) {
    if (!GatewayWorld::HasIpv6Loopback()) GTEST_SKIP() << "no IPv6 loopback in this namespace";
    Start(GoodSource);
    QFile installed(QStringLiteral(SKELDA_GATEWAY_DATA "/promo.html"));
    ASSERT_TRUE(installed.open(QIODevice::ReadOnly));
    const QByteArray reply =
        GatewayWorld::Exchange("GET /Skelda/promo.html HTTP/1.0\r\n\r\n", 15000, QStringLiteral("::1"));
    EXPECT_TRUE(reply.startsWith("HTTP/1.1 200")) << reply.left(40).toStdString();
    EXPECT_TRUE(reply.endsWith(installed.readAll()));
}

TEST_F(Gateway, TheFirstPollShowsTheNewsPageOnce) {
    Start(GoodSource);
    ASSERT_TRUE(Poll());
    ASSERT_TRUE(Poll());
    QFile installed(QStringLiteral(SKELDA_GATEWAY_DATA "/promo.html"));
    ASSERT_TRUE(installed.open(QIODevice::ReadOnly));
    EXPECT_EQ(Named<Label>(forms.Get<Promo>(), QStringLiteral("Label1"))->Caption(),
              QString::fromLatin1(installed.readAll()));
    EXPECT_TRUE(forms.Widget<Promo>().isVisible());
    EXPECT_EQ(forms.module1().NouvellesVues, Variant(QStringLiteral("vu")));
}

TEST_F(Gateway, ARightClickWithoutThePageMakerOpensTheForecastWindowSayingSo) {
    Start(GoodSource);
    ForecastForm& window = AskBourgetsForecast();
    EXPECT_EQ(Named<Label>(window, QStringLiteral("titre%1").arg(0 + 1))->Caption(), QStringLiteral("Today"));
    EXPECT_EQ(Named<Label>(window, QStringLiteral("Label%1").arg(0 + 1))->Caption(),
              QStringLiteral(" The forecast is not available yet."));
    EXPECT_EQ(Named<Label>(window, QStringLiteral("titre%1").arg(5 + 1))->Caption(), QStringLiteral("Next night"));
    EXPECT_TRUE(T(Form()).Enabled());
}

TEST_F(Gateway, ARightClickShowsTheForecastMadeFromTheSourceInSixBlocks) {
    ServeTheSourcesForecast();
    Start(GoodSource, true);
    ForecastForm& window = AskBourgetsForecast();
    EXPECT_TRUE(Named<Label>(window, QStringLiteral("titre%1").arg(0 + 1))->Caption() == QStringLiteral("Today") ||
                Named<Label>(window, QStringLiteral("titre%1").arg(0 + 1))->Caption() == QStringLiteral("Tonight"))
        << Named<Label>(window, QStringLiteral("titre%1").arg(0 + 1))->Caption().toStdString();
    for (int block = 0; block < 6; ++block) {
        EXPECT_FALSE(Named<Label>(window, QStringLiteral("titre%1").arg(block + 1))->Caption().isEmpty()) << block;
        // Each block ends in its temperature, converted: "High 59F(15)c."
        EXPECT_TRUE(Named<Label>(window, QStringLiteral("Label%1").arg(block + 1))
                        ->Caption()
                        .contains(QRegularExpression(QStringLiteral("F\\(-?[0-9]+\\)c\\.$"))))
            << block << ": " << Named<Label>(window, QStringLiteral("Label%1").arg(block + 1))->Caption().toStdString();
    }
    const QStringList asked = World().SourceRequests().filter(QStringLiteral("/compact?"));
    ASSERT_EQ(asked.size(), 1);
    // Paris-Charles de Gaulle's place, at four decimals at most, and the contact in the User-Agent.
    EXPECT_TRUE(asked.first().startsWith(QStringLiteral("GET /weatherapi/locationforecast/2.0/compact?lat=49.")))
        << asked.first().toStdString();
    EXPECT_TRUE(asked.first().contains(QStringLiteral("tests@skelda.invalid")));
    EXPECT_TRUE(T(Form()).Enabled());
}

TEST_F(Gateway, ManyRightClicksAskTheSourceOncePerCode) {
    ServeTheSourcesForecast();
    Start(GoodSource, true);
    Presser(LigneBourget, Qt::LeftButton);
    for (int i = 0; i < 5; ++i) Presser(LigneBourget, Qt::RightButton);
    const QByteArray page = GatewayWorld::Exchange("GET /forecast/FRXX0076.html HTTP/1.0\r\n\r\n");
    EXPECT_TRUE(page.contains("<!--TEXT FORECAST-->"));
    EXPECT_TRUE(runTimeEnds.empty());
    EXPECT_EQ(World().SourceRequests().filter(QStringLiteral("/compact?")).size(), 1);
}

TEST_F(Gateway, AnUnknownCityGetsAPageInTheLayoutWithoutAskingTheSource) {
    Start(GoodSource, true);
    for (const QByteArray& code : {QByteArray("ZZZZ"), QByteArray("LF-PG"), QByteArray("%3Cb%3E")}) {
        const QByteArray page = GatewayWorld::Exchange("GET /forecast/" + code + ".html HTTP/1.0\r\n\r\n");
        EXPECT_TRUE(page.startsWith("HTTP/1.1 200")) << code.toStdString();
        EXPECT_TRUE(page.contains("<!--TEXT FORECAST-->")) << code.toStdString();
    }
    EXPECT_TRUE(World().SourceRequests().filter(QStringLiteral("/compact")).isEmpty());
}

}  // namespace
}  // namespace skelda::test
