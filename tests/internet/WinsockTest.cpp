#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <functional>
#include <vector>

#include "Failure.h"
#include "GuiApplication.h"
#include "Loopback.h"
#include "Winsock.h"

using namespace skelda;
using skelda::test::ClosedPort;

namespace {

constexpr int Patience = 10000;  // ms: a loopback exchange takes far less

// A server on the loopback address that keeps what each connection sent and may answer it.
class LoopbackServer {
public:
    // Given the index of a connection and all it has sent, the answer to write, or "" for none yet.
    std::function<QByteArray(int, const QByteArray&)> answer;
    bool closeAfterAnswer = false;

    LoopbackServer() {
        EXPECT_TRUE(server_.listen(QHostAddress::LocalHost, 0));
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
            while (QTcpSocket* peer = server_.nextPendingConnection()) Adopt(peer);
        });
    }
    quint16 Port() const { return server_.serverPort(); }
    int Connections() const { return int(peers_.size()); }
    QTcpSocket* Peer(int i) const { return peers_.at(i); }
    QByteArray Received(int i) const { return i < int(received_.size()) ? received_[i] : QByteArray(); }
    // The port the connection came from, as seen when it was accepted.
    quint16 PeerPort(int i) const { return peerPorts_.at(i); }

private:
    void Adopt(QTcpSocket* peer) {
        const int i = int(peers_.size());
        peers_.push_back(peer);
        peerPorts_.push_back(peer->peerPort());
        received_.emplace_back();
        answered_.push_back(false);
        QObject::connect(peer, &QTcpSocket::readyRead, peer, [this, peer, i] {
            received_[i] += peer->readAll();
            if (!answer || answered_[i]) return;
            const QByteArray reply = answer(i, received_[i]);
            if (reply.isEmpty()) return;
            answered_[i] = true;
            peer->write(reply);
            if (closeAfterAnswer) peer->disconnectFromHost();
        });
        // A connection that the other side ends is closed here too, as a server does.
        QObject::connect(peer, &QTcpSocket::disconnected, peer, [peer] { peer->close(); });
    }

    QTcpServer server_;
    std::vector<QTcpSocket*> peers_;  // children of the server
    std::vector<quint16> peerPorts_;
    std::vector<QByteArray> received_;
    std::vector<bool> answered_;
};

// Whether this user may bind the port at all (an ordinary user may not bind one below 1024).
bool MayBind(quint16 port) {
    QTcpSocket probe;
    const bool bound =
        probe.bind(QHostAddress::AnyIPv4, port, QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint);
    probe.abort();
    return bound;
}

class WinsockTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureGuiApplication(); }

    void Aim(Winsock& socket, int localPort = 0, quint16 remotePort = 0) {
        socket.SetRemoteHost(QStringLiteral("127.0.0.1"));
        socket.SetRemotePort(remotePort ? remotePort : server.Port());
        socket.SetLocalPort(localPort);
    }
    // Connects and waits for the connection; false if it didn't come.
    bool ConnectAndWait(Winsock& socket) {
        QSignalSpy connected(&socket, &Winsock::connected);
        socket.Connect();
        return connected.wait(Patience) && socket.State() == sckConnected;
    }

    LoopbackServer server;
    Winsock w;
};

TEST_F(WinsockTest, StartsClosedAndTakesItsProperties) {
    EXPECT_EQ(w.State(), sckClosed);
    w.SetLocalPort(95);
    w.SetRemoteHost(QStringLiteral("tgftp.example"));
    w.SetRemotePort(80);
    EXPECT_EQ(w.LocalPort(), 95);
    EXPECT_EQ(w.RemoteHost(), QStringLiteral("tgftp.example"));
    EXPECT_EQ(w.RemotePort(), 80);
    EXPECT_EQ(w.BoundPort(), 0);
    EXPECT_EQ(w.GetData(), QString());
    w.Close();
    w.Close();
    EXPECT_EQ(w.State(), sckClosed);
}

TEST_F(WinsockTest, TheBytesSentArriveExactly) {
    Aim(w);
    ASSERT_TRUE(ConnectAndWait(w));
    const QByteArray request =
        "GET http://127.0.0.1/pub/data/observations/metar/stations/LFPB.TXT HTTP/1.0\r\n"
        "Accept: */*\r\nAccept: text/html\r\n\r\n";
    w.SendData(QString::fromLatin1(request));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.Received(0).size() >= request.size(); }, Patience));
    EXPECT_EQ(server.Received(0), request);
    EXPECT_EQ(server.Connections(), 1);
}

TEST_F(WinsockTest, TheReplyComesAsDataArrivalAndIsReadByGetData) {
    const QByteArray reply = "HTTP/1.0 200 OK\r\n\r\n2004/11/02 15:00\nLFPB 021500Z 24012KT 9999 FEW030 12/08 Q1015\n";
    server.answer = [&](int, const QByteArray& got) { return got.endsWith("\r\n\r\n") ? reply : QByteArray(); };
    Aim(w);
    ASSERT_TRUE(ConnectAndWait(w));
    QSignalSpy arrivals(&w, &Winsock::DataArrival);
    w.SendData(QByteArray("GET x HTTP/1.0\r\n\r\n"));
    ASSERT_TRUE(arrivals.wait(Patience));
    ASSERT_TRUE(QTest::qWaitFor([&] { return arrivals.constLast().at(0).toLongLong() == reply.size(); }, Patience));
    EXPECT_EQ(w.GetData(), QString::fromLatin1(reply));
    EXPECT_EQ(w.GetData(), QString());
    w.Close();
    EXPECT_EQ(w.State(), sckClosed);
}

TEST_F(WinsockTest, WhatWasSentBeforeTheServerClosedCanStillBeRead) {
    server.closeAfterAnswer = true;
    server.answer = [](int, const QByteArray&) { return QByteArray("bye \xe9"); };
    Aim(w);
    ASSERT_TRUE(ConnectAndWait(w));
    w.SendData(QByteArray("hello"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return w.State() == sckClosing; }, Patience));
    EXPECT_EQ(w.GetData(), QStringLiteral("bye é"));
}

TEST_F(WinsockTest, ARefusedConnectionRaisesErrorAfterConnectHasReturned) {
    Aim(w, 0, ClosedPort());
    QSignalSpy errors(&w, &Winsock::Error);
    QSignalSpy connected(&w, &Winsock::connected);
    w.Connect();
    EXPECT_EQ(errors.count(), 0);
    ASSERT_TRUE(errors.wait(Patience));
    EXPECT_EQ(errors.at(0).at(0).toInt(), 10061);
    EXPECT_EQ(errors.at(0).at(1).toString(), QStringLiteral("Connection is forcefully rejected"));
    EXPECT_EQ(connected.count(), 0);
    EXPECT_EQ(w.State(), sckError);
    w.Close();
    EXPECT_EQ(w.State(), sckClosed);
}

TEST_F(WinsockTest, AHostThatCantBeFoundRaisesError) {
    w.SetRemoteHost(QString());
    w.SetRemotePort(80);
    QSignalSpy errors(&w, &Winsock::Error);
    w.Connect();
    EXPECT_EQ(errors.count(), 0);
    ASSERT_TRUE(errors.wait(Patience));
    EXPECT_EQ(errors.at(0).at(0).toInt(), 11001);
    EXPECT_EQ(errors.at(0).at(1).toString(), QStringLiteral("Authoritative answer: Host not found"));
}

TEST_F(WinsockTest, MethodsInTheWrongStateFail) {
    try {
        w.SendData(QByteArray("x"));
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 40006);
    }
    Aim(w);
    w.Connect();
    try {
        w.Connect();
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), 40020);
    }
    w.Close();
}

TEST_F(WinsockTest, AfterCloseTheAbandonedConnectionRaisesNothing) {
    server.answer = [](int i, const QByteArray&) { return i == 1 ? QByteArray("reply 2") : QByteArray(); };
    Aim(w);
    ASSERT_TRUE(ConnectAndWait(w));
    w.SendData(QByteArray("first"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.Received(0) == "first"; }, Patience));

    QSignalSpy arrivals(&w, &Winsock::DataArrival);
    QSignalSpy errors(&w, &Winsock::Error);
    QSignalSpy connected(&w, &Winsock::connected);
    w.Close();
    EXPECT_EQ(w.State(), sckClosed);
    // The reply of the abandoned exchange comes late, and the server learns of the close.
    server.Peer(0)->write("late reply");
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return server.Peer(0)->state() == QAbstractSocket::UnconnectedState; }, Patience));

    // The next poll's exchange gets its own reply only.
    w.Connect();
    ASSERT_TRUE(connected.wait(Patience));
    w.SendData(QByteArray("second"));
    ASSERT_TRUE(arrivals.wait(Patience));
    EXPECT_EQ(w.GetData(), QStringLiteral("reply 2"));
    EXPECT_EQ(arrivals.count(), 1);
    EXPECT_EQ(errors.count(), 0);
    EXPECT_EQ(connected.count(), 1);
}

TEST_F(WinsockTest, HandlersMaySendCloseAndConnectAgain) {
    // As the poll cycle does: the request goes out from the Connect event, and the DataArrival
    // and Error handlers close the control.
    server.answer = [](int i, const QByteArray&) { return QByteArray("reply ") + QByteArray::number(i); };
    QStringList got;
    int errors = 0;
    QObject::connect(&w, &Winsock::connected, &w, [&] { w.SendData(QStringLiteral("request")); });
    QObject::connect(&w, &Winsock::DataArrival, &w, [&] {
        got << w.GetData();
        w.Close();
    });
    QObject::connect(&w, &Winsock::Error, &w, [&] {
        ++errors;
        w.Close();
    });
    Aim(w);
    w.Connect();
    ASSERT_TRUE(QTest::qWaitFor([&] { return got.size() == 1; }, Patience));
    EXPECT_EQ(w.State(), sckClosed);
    w.Connect();
    ASSERT_TRUE(QTest::qWaitFor([&] { return got.size() == 2; }, Patience));
    Aim(w, 0, ClosedPort());
    w.Connect();
    ASSERT_TRUE(QTest::qWaitFor([&] { return errors == 1; }, Patience));
    EXPECT_EQ(w.State(), sckClosed);
    EXPECT_EQ(got, (QStringList{QStringLiteral("reply 0"), QStringLiteral("reply 1")}));
}

TEST_F(WinsockTest, CloseWhileConnectingRaisesNeitherConnectNorError) {
    Winsock refused, abandoned;
    const quint16 nobody = ClosedPort();
    Aim(abandoned, 0, nobody);
    Aim(refused, 0, nobody);
    QSignalSpy abandonedErrors(&abandoned, &Winsock::Error);
    QSignalSpy abandonedConnects(&abandoned, &Winsock::connected);
    QSignalSpy refusedErrors(&refused, &Winsock::Error);
    abandoned.Connect();
    abandoned.Close();
    Winsock toServer;
    Aim(toServer);
    QSignalSpy toServerConnects(&toServer, &Winsock::connected);
    toServer.Connect();
    toServer.Close();
    refused.Connect();
    // By the time the later attempt has failed, the abandoned one would have failed too.
    ASSERT_TRUE(refusedErrors.wait(Patience));
    EXPECT_EQ(abandonedErrors.count(), 0);
    EXPECT_EQ(abandonedConnects.count(), 0);
    EXPECT_EQ(toServerConnects.count(), 0);
    EXPECT_EQ(abandoned.State(), sckClosed);
}

// Twenty polls in a row ask for the same local port, as the program does with its ports 91 to
// 100; each must reach the server, whoever ends the exchange first.
class WinsockReuseTest : public WinsockTest, public ::testing::WithParamInterface<bool> {};

TEST_P(WinsockReuseTest, TwentyConnectionsFromTheSameLocalPortAllReachTheServer) {
    server.closeAfterAnswer = GetParam();
    server.answer = [](int i, const QByteArray& got) {
        return got.endsWith("\r\n\r\n") ? QByteArray("reply ") + QByteArray::number(i) : QByteArray();
    };
    const bool requestedPortUsable = MayBind(95);
    for (int i = 0; i < 20; ++i) {
        Aim(w, 95);
        ASSERT_TRUE(ConnectAndWait(w)) << "poll " << i;
        QSignalSpy arrivals(&w, &Winsock::DataArrival);
        w.SendData(QStringLiteral("poll %1\r\n\r\n").arg(i));
        ASSERT_TRUE(arrivals.wait(Patience)) << "poll " << i;
        ASSERT_TRUE(QTest::qWaitFor([&] { return arrivals.constLast().at(0).toLongLong() >= 7; }, Patience));
        EXPECT_EQ(w.GetData(), QStringLiteral("reply %1").arg(i));
        ASSERT_EQ(server.Connections(), i + 1);
        if (requestedPortUsable) {
            EXPECT_EQ(server.PeerPort(i), 95) << "poll " << i;
        }
        w.Close();
    }
    for (int i = 0; i < 20; ++i) EXPECT_EQ(server.Received(i), QStringLiteral("poll %1\r\n\r\n").arg(i).toLatin1());
}

INSTANTIATE_TEST_SUITE_P(ClientOrServerClosesFirst, WinsockReuseTest, ::testing::Bool());

TEST_F(WinsockTest, ABusyLocalPortFallsBackToOneTheSystemGives) {
    QTcpServer holder;
    ASSERT_TRUE(holder.listen(QHostAddress::AnyIPv4, 0));
    const quint16 busy = holder.serverPort();
    Aim(w, busy);
    ASSERT_TRUE(ConnectAndWait(w));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.Connections() == 1; }, Patience));
    EXPECT_NE(server.PeerPort(0), busy);
    EXPECT_NE(w.BoundPort(), busy);
    EXPECT_NE(w.BoundPort(), 0);
    w.SendData(QByteArray("still works"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.Received(0) == "still works"; }, Patience));
}

TEST_F(WinsockTest, APortStillHeldByAnEndedConnectionCanBeAskedForAgain) {
    // An ordinary connection that ends from this side leaves its port held by the system for a
    // while (TIME_WAIT).
    QTcpSocket earlier;
    earlier.connectToHost(QHostAddress::LocalHost, server.Port());
    ASSERT_TRUE(earlier.waitForConnected(Patience));
    const quint16 held = earlier.localPort();
    earlier.disconnectFromHost();
    ASSERT_TRUE(QTest::qWaitFor([&] { return earlier.state() == QAbstractSocket::UnconnectedState; }, Patience));

    Aim(w, held);
    ASSERT_TRUE(ConnectAndWait(w));
    w.SendData(QByteArray("again"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.Received(1) == "again"; }, Patience));
}

}  // namespace
