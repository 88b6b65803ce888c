#include <gtest/gtest.h>

#include <QTcpServer>
#include <chrono>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

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

TEST(Inet, AServerThatNeverTakesTheConnectionIsGivenUpAfterTheConnectionTimeOut) {
    // A listener on the loopback address whose queue of connections is full: the system drops
    // any further connection request without a word, as an absent host does.
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_GE(listener, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 0), 0);
    socklen_t length = sizeof address;
    ASSERT_EQ(::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
    std::vector<int> fillers;
    for (int i = 0; i < 4; ++i) {
        const int filler = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
        // A socket that doesn't wait answers "in progress" at once: the answer says nothing here.
        static_cast<void>(::connect(filler, reinterpret_cast<sockaddr*>(&address), sizeof address));
        fillers.push_back(filler);
    }

    Inet inet;
    EXPECT_EQ(inet.ConnectTimeout(), 5);
    inet.SetConnectTimeout(1);
    const auto start = std::chrono::steady_clock::now();
    const QString url = QStringLiteral("http://127.0.0.1:%1/Skelda/promo.html").arg(ntohs(address.sin_port));
    EXPECT_EQ(FailureOf(inet, url), icTimeout);
    // Well before the minute that the whole fetch is allowed.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    for (int filler : fillers) ::close(filler);
    ::close(listener);
}

TEST(Inet, BadAddressesFail) {
    Inet inet;
    EXPECT_EQ(FailureOf(inet, QString()), 35752);
    EXPECT_EQ(FailureOf(inet, QStringLiteral("gopher://127.0.0.1/")), 35753);
    EXPECT_EQ(FailureOf(inet, QStringLiteral("http://[::1/")), 35752);
}

}  // namespace
