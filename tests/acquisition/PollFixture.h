// What the tests of the poll cycle share: a loaded Form1 with its poll cycle wired, over a real
// database in a temporary folder, run from another temporary folder that holds log/ and Images/,
// and an observation server of the test's own on the loopback address.
#pragma once

#include <gtest/gtest.h>

#include <QList>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <deque>
#include <functional>
#include <vector>

#include "Form1.h"
#include "Forms.h"
#include "GuiApplication.h"
#include "Loopback.h"
#include "Named.h"
#include "PollCycle.h"
#include "PollParts.h"
#include "Printing.h"
#include "RecordingSurface.h"
#include "RunFolder.h"
#include "TestServices.h"

namespace skelda::test {

// The observation server of a test: listens on 127.0.0.1 at a port the system gives, keeps the
// bytes of each connection, and answers a complete request (up to its empty line) with the
// packets that `answer` gives, or stays silent when there is no answer.
class ObservationServer {
public:
    using Answer = std::function<QList<QByteArray>(const QByteArray& request)>;

    ObservationServer() {
        listening_ = server_.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { Accept(); });
    }

    bool Listening() const { return listening_; }
    quint16 Port() const { return server_.serverPort(); }
    // Stops listening: a connection is then refused.
    void Stop() { server_.close(); }

    // The bytes received on each connection, in the order of the connections.
    const QList<QByteArray>& Requests() const { return requests_; }
    int Connections() const { return int(requests_.size()); }
    int Disconnections() const { return disconnections_; }
    int CompleteRequests() const {
        int n = 0;
        for (const QByteArray& r : requests_)
            if (r.endsWith("\r\n\r\n")) ++n;
        return n;
    }
    // The station code asked for by each complete request, in order.
    QList<QByteArray> Codes() const {
        QList<QByteArray> codes;
        for (const QByteArray& r : requests_) {
            const qsizetype from = r.indexOf("/stations/");
            const qsizetype to = r.indexOf(".TXT");
            if (from >= 0 && to > from) codes.append(r.mid(from + 10, to - from - 10));
        }
        return codes;
    }

    bool WaitForConnections(int n) {
        return QTest::qWaitFor([&] { return Connections() >= n; }, 5000);
    }
    bool WaitForRequests(int n) {
        return QTest::qWaitFor([&] { return CompleteRequests() >= n; }, 5000);
    }
    bool WaitForDisconnections(int n) {
        return QTest::qWaitFor([&] { return disconnections_ >= n; }, 5000);
    }

    // Writes bytes on the last connection, now.
    void Send(const QByteArray& bytes) {
        if (last_ == nullptr) return;
        last_->write(bytes);
        last_->flush();
    }

    Answer answer;

private:
    void Accept() {
        while (QTcpSocket* socket = server_.nextPendingConnection()) {
            const qsizetype index = requests_.size();
            requests_.append(QByteArray());
            last_ = socket;
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, index] {
                requests_[index] += socket->readAll();
                if (answer && requests_[index].endsWith("\r\n\r\n"))
                    for (const QByteArray& packet : answer(requests_[index])) {
                        socket->write(packet);
                        socket->flush();
                    }
            });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
                ++disconnections_;
                if (last_ == socket) last_ = nullptr;
                socket->deleteLater();
            });
        }
    }

    QTcpServer server_;
    bool listening_ = false;
    QList<QByteArray> requests_;
    QTcpSocket* last_ = nullptr;
    int disconnections_ = 0;
};

// A round trip of the test's own: a connection to a small echo server of this process, one line
// out and back. Each of its steps takes a turn of the event loop, and in each turn every socket
// of the process that has something to read or to write is served. So when the line is back,
// whatever was already on its way between two sockets of this process has arrived and has been
// handled. A test that must show that nothing came waits for this later event, then looks.
inline bool RoundTrip() {
    QTcpServer echo;
    if (!echo.listen(QHostAddress::LocalHost, 0)) return false;
    QObject::connect(&echo, &QTcpServer::newConnection, &echo, [&echo] {
        while (QTcpSocket* socket = echo.nextPendingConnection())
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] { socket->write(socket->readAll()); });
    });
    QTcpSocket probe;
    QByteArray back;
    QObject::connect(&probe, &QTcpSocket::connected, &probe, [&probe] { probe.write("ping\n"); });
    QObject::connect(&probe, &QTcpSocket::readyRead, &probe, [&] { back += probe.readAll(); });
    probe.connectToHost(QHostAddress::LocalHost, echo.serverPort());
    return QTest::qWaitFor([&] { return back == "ping\n"; }, 5000);
}

// The request the program must send for a station code, byte for byte.
inline QByteArray ExpectedRequest(const QByteArray& code) {
    return "GET http://127.0.0.1/pub/data/observations/metar/stations/" + code +
           ".TXT HTTP/1.0\r\nAccept: */*\r\nAccept: text/html\r\n\r\n";
}

// A station file as the server gives it: a head, the empty line, the 17-character stamp line,
// then the report.
inline QByteArray StationReply(const QByteArray& report, const QByteArray& stamp = "2004/11/02 10:00\n") {
    const QByteArray body = stamp + report;
    return "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\n\r\n" + body;
}

// The report of the tests: Le Bourget at 10:00 on 2 November, wind from 240 at 13 knots, as its
// station file gives it, with its line end.
inline const QByteArray Bourget = "LFPB 021000Z 24013KT 9999 FEW016 12/08 Q1015 NOSIG\n";

// The lines of the three airports of Aeroports() in List1, which lists them by city.
inline constexpr int LigneHeathrow = 0;
inline constexpr int LigneBourget = 1;
inline constexpr int LigneRoissy = 2;

// The application comes first: the server's socket needs its event loop from its construction.
struct WithGuiApplication {
    WithGuiApplication() { EnsureGuiApplication(); }
};

class PollFixture : public ::testing::Test, private WithGuiApplication, protected TestStation {
protected:
    PollFixture() : TestStation(Aeroports(), QDateTime(QDate(2004, 11, 2), QTime(10, 5, 0))) {}

    void SetUp() override {
        EnsureGuiApplication();
        ASSERT_TRUE(db.IsValid());
        ASSERT_TRUE(work.IsValid());
        ASSERT_TRUE(server.Listening());
        services.observationServer = {QStringLiteral("127.0.0.1"), server.Port()};
        // Nobody serves the news here: the first poll's news fetch is refused at once, silently.
        services.newsServer = {QStringLiteral("127.0.0.1"), ClosedPort()};
        ProvideMainWindow(forms);
        ProvideTray();
    }
    void TearDown() override { forms.Unload<Form1>(); }
    // How the tests of a folder provide the tray form, whose caption the ingestion writes.
    virtual void ProvideTray() {}

    Form1& Form() { return forms.Get<Form1>(); }
    static void Tick(Form1& form, int times = 1) {
        for (int i = 0; i < times; ++i) T(form).Fire();
    }

    // The folder the program runs in, with log/ and Images/.
    RunFolder work{RunFolder::LogAndImages};
    ObservationServer server;
    RecordingSurface recording;
    Forms forms{services};
};

}  // namespace skelda::test
