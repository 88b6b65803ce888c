#include <gtest/gtest.h>

#include <QTcpServer>
#include <chrono>

#include "Failure.h"
#include "Inet.h"
#include "ThreadedHttpServer.h"

using namespace skelda;

namespace {

int FailureOf(Inet& inet, const QString& url) {
    try {
        inet.OpenURL(url);
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

TEST(Inet, GivesTheBodyOfThePage) {
    ThreadedHttpServer server(
        [](const std::string&) { return ThreadedHttpServer::Reply(200, "<html><body>News of the day</body></html>"); });
    Inet inet;
    EXPECT_EQ(inet.OpenURL(server.Url(QStringLiteral("/Skelda/promo.html"))),
              QStringLiteral("<html><body>News of the day</body></html>"));
    const auto requests = server.Requests();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].rfind("GET /Skelda/promo.html HTTP/1.", 0), 0u) << requests[0];
}

TEST(Inet, AnErrorPageOrAnEmptyBodyCountsAsAPage) {
    ThreadedHttpServer server([](const std::string& head) {
        if (head.find("/missing") != std::string::npos) return ThreadedHttpServer::Reply(404, "Not Found");
        return ThreadedHttpServer::Reply(200, "");
    });
    Inet inet;
    EXPECT_EQ(inet.OpenURL(server.Url(QStringLiteral("/missing"))), QStringLiteral("Not Found"));
    EXPECT_EQ(inet.OpenURL(server.Url(QStringLiteral("/empty"))), QString());
}

TEST(Inet, ReadsUtf8AndFallsBackToLatin1) {
    ThreadedHttpServer server([](const std::string& head) {
        if (head.find("/utf8") != std::string::npos)
            return ThreadedHttpServer::Reply(200, "\xef\xbb\xbfPr\xc3\xa9visions");
        return ThreadedHttpServer::Reply(200, "Pr\xe9visions \xb0");
    });
    Inet inet;
    EXPECT_EQ(inet.OpenURL(server.Url(QStringLiteral("/utf8"))), QStringLiteral("Prévisions"));
    EXPECT_EQ(inet.OpenURL(server.Url(QStringLiteral("/latin1"))), QStringLiteral("Prévisions °"));
}

TEST(Inet, FollowsRedirectionsAndTakesAnAddressWithoutScheme) {
    int port = 0;
    ThreadedHttpServer server([&port](const std::string& head) -> std::optional<std::string> {
        if (head.find("GET /old") == 0)
            return "HTTP/1.0 302 Found\r\nLocation: http://127.0.0.1:" + std::to_string(port) +
                   "/new\r\nContent-Length: 0\r\n\r\n";
        return ThreadedHttpServer::Reply(200, "moved here");
    });
    port = server.Port();
    Inet inet;
    EXPECT_EQ(inet.OpenURL(QStringLiteral("127.0.0.1:%1/old").arg(port)), QStringLiteral("moved here"));
    EXPECT_EQ(server.Requests().size(), 2u);
}

TEST(Inet, ARefusedConnectionFails) {
    QTcpServer probe;
    ASSERT_TRUE(probe.listen(QHostAddress::LocalHost, 0));
    const quint16 port = probe.serverPort();
    probe.close();
    Inet inet;
    try {
        inet.OpenURL(QStringLiteral("http://127.0.0.1:%1/forecast/LFPG.html").arg(port));
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 35754);
        EXPECT_EQ(e.Description(), QStringLiteral("Unable to connect to remote host"));
    }
}

TEST(Inet, ASilentServerTimesOut) {
    ThreadedHttpServer server([](const std::string&) { return std::nullopt; });
    Inet inet;
    EXPECT_EQ(inet.RequestTimeout(), 60);
    inet.SetRequestTimeout(1);
    const auto start = std::chrono::steady_clock::now();
    try {
        inet.OpenURL(server.Url(QStringLiteral("/slow")));
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 35761);
        EXPECT_EQ(e.Description(), QStringLiteral("Request timed out"));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Inet, BadAddressesFail) {
    Inet inet;
    EXPECT_EQ(FailureOf(inet, QString()), 35752);
    EXPECT_EQ(FailureOf(inet, QStringLiteral("gopher://127.0.0.1/")), 35753);
    EXPECT_EQ(FailureOf(inet, QStringLiteral("http://[::1/")), 35752);
}

}  // namespace
