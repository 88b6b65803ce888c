// skelda-forecast-page run as the gateway runs it: a process with the CGI environment, its source
// a stand-in of the test's own on the loopback.
#include "PageMakerFixture.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "GuiApplication.h"

using namespace skelda;
using namespace skelda::test;

namespace {

// The gateway's proxy of the source, as far as the program sees it: HTTP on 127.0.0.1, at a port
// the system gives. It records each request's head and answers with Status and Body, or never when
// Silent.
class SourceStandIn : public QObject {
public:
    SourceStandIn() {
        if (!server.listen(QHostAddress::LocalHost, 0)) throw std::runtime_error("the stand-in can't listen");
        connect(&server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = server.nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Read(socket); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
    }

    // Where the program is told to find it, as the gateway tells it.
    QString Address() const { return QStringLiteral("127.0.0.1:%1").arg(server.serverPort()); }

    QByteArray status = "200 OK";
    QByteArray body;
    bool silent = false;
    QList<QByteArray> heads;

private:
    void Read(QTcpSocket* socket) {
        QByteArray& head = pending[socket];
        head += socket->readAll();
        const qsizetype end = head.indexOf("\r\n\r\n");
        if (end < 0) return;
        heads.append(head.left(end));
        pending.remove(socket);
        if (silent) return;
        socket->write("HTTP/1.1 " + status + "\r\nContent-Type: application/json\r\nContent-Length: " +
                      QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    }

    QTcpServer server;
    QHash<QTcpSocket*, QByteArray> pending;
};

struct Sortie {
    QByteArray out;
    int exitCode = -1;
    qint64 milliseconds = 0;
};

class PageMakerProgram : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        source = std::make_unique<SourceStandIn>();
        sourceAddress = source->Address();
    }

    // Runs the program with SKELDA_CODE = Code and, unless nullptr, SKELDA_SOURCE = Address,
    // letting the stand-in answer meanwhile.
    Sortie RunProgram(const QString& code, const QString* address) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("SKELDA_SOURCE"));
        environment.insert(QStringLiteral("SKELDA_CODE"), code);
        environment.insert(QStringLiteral("REQUEST_METHOD"), QStringLiteral("GET"));
        if (address) environment.insert(QStringLiteral("SKELDA_SOURCE"), *address);
        QProcess process;
        process.setProcessEnvironment(environment);
        QSignalSpy finished(&process, &QProcess::finished);
        QElapsedTimer clock;
        clock.start();
        process.start(QStringLiteral(SKELDA_FORECAST_PAGE_PROGRAM), QStringList());
        if (!process.waitForStarted()) throw std::runtime_error("the program didn't start");
        if (!finished.wait(20000)) throw std::runtime_error("the program didn't end");
        Sortie run;
        run.milliseconds = clock.elapsed();
        run.out = process.readAllStandardOutput();
        run.exitCode = process.exitCode();
        return run;
    }

    static QByteArray Head(const Sortie& run) { return run.out.left(run.out.indexOf("\n\n") + 2); }
    static QString Page(const Sortie& run) { return QString::fromLatin1(run.out.mid(run.out.indexOf("\n\n") + 2)); }

    std::unique_ptr<SourceStandIn> source;
    QString sourceAddress;
};

const QByteArray ForecastHead = "Status: 200 OK\nContent-Type: text/html\nX-Accel-Expires: 3600\n\n";
const QByteArray MinuteHead = "Status: 200 OK\nContent-Type: text/html\nX-Accel-Expires: 60\n\n";

}  // namespace

TEST_F(PageMakerProgram, AStationCodeAsksTheSourceForItsPlaceAndGivesSixBlocksKeptAnHour) {
    source->body = ReponseReguliere(QDateTime::currentDateTimeUtc().addSecs(qint64{-2} * 3600));
    const Sortie run = RunProgram(QStringLiteral("LFPG"), &sourceAddress);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(Head(run), ForecastHead);
    ASSERT_EQ(source->heads.size(), 1);
    EXPECT_TRUE(source->heads[0].startsWith(
        "GET /weatherapi/locationforecast/2.0/compact?lat=49.0167&lon=2.5333 HTTP/1.1\r\nHost: " +
        sourceAddress.toLatin1() + "\r\n"))
        << source->heads[0].toStdString();
    const Lu lu = LireAvecLeLecteur(Page(run));
    EXPECT_TRUE(lu.lu);
    EXPECT_EQ(lu.erreur, 0);
    ASSERT_EQ(lu.textes.size(), 6);
    // 20 degrees all through: 68F everywhere, which the reader gives back as 20.
    for (const QString& text : lu.textes)
        EXPECT_TRUE(text.endsWith(QStringLiteral(" 68F(20)c."))) << text.toStdString();
    EXPECT_TRUE(lu.titres[0] == QStringLiteral("Today") || lu.titres[0] == QStringLiteral("Tonight"));
}

TEST_F(PageMakerProgram, AnOldPortalCodeAsksForItsAirportsPlace) {
    source->body = ReponseReguliere(QDateTime::currentDateTimeUtc().addSecs(-3600));
    const Sortie run = RunProgram(QStringLiteral("UKXX0085"), &sourceAddress);
    EXPECT_EQ(Head(run), ForecastHead);
    ASSERT_EQ(source->heads.size(), 1);
    EXPECT_TRUE(source->heads[0].startsWith("GET /weatherapi/locationforecast/2.0/compact?lat=51.4833&lon=-0.4500 "));
    EXPECT_TRUE(Page(run).contains(QStringLiteral("<h1>Londres</h1>")));
}

TEST_F(PageMakerProgram, WithoutASourceAddressNothingIsAskedAndThePageSaysNotAvailableForAMinute) {
    const QString empty;
    for (const QString* address : {static_cast<const QString*>(nullptr), &empty}) {
        const Sortie run = RunProgram(QStringLiteral("LFPG"), address);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(Head(run), MinuteHead);
        const Lu lu = LireAvecLeLecteur(Page(run));
        EXPECT_EQ(lu.textes.size(), 6);
        EXPECT_EQ(lu.textes.value(0), QStringLiteral(" The forecast is not available. Try again later."));
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(source->heads.isEmpty());
}

TEST_F(PageMakerProgram, AnUnknownOrIllFormedCodeGivesTheUnknownCityPageAndAsksNothing) {
    for (const QString& code :
         {QStringLiteral("ZZZZ"), QStringLiteral("../../etc/passwd"), QStringLiteral("LF PG"), QStringLiteral("")}) {
        const Sortie run = RunProgram(code, &sourceAddress);
        EXPECT_EQ(Head(run), ForecastHead) << code.toStdString();
        const Lu lu = LireAvecLeLecteur(Page(run));
        EXPECT_EQ(lu.textes.value(0), QStringLiteral(" This city is unknown to the forecast portal."));
        EXPECT_EQ(lu.erreur, 0);
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(source->heads.isEmpty());
}

TEST_F(PageMakerProgram, ASourceThatFailsGivesTheFailurePageForAMinute) {
    source->status = "503 Service Unavailable";
    source->body = "busy";
    const Sortie run = RunProgram(QStringLiteral("LFPG"), &sourceAddress);
    EXPECT_EQ(Head(run), MinuteHead);
    EXPECT_EQ(source->heads.size(), 1);
    const Lu lu = LireAvecLeLecteur(Page(run));
    EXPECT_EQ(lu.textes.value(0), QStringLiteral(" The forecast source can't be reached. Try again in a minute."));
}

TEST_F(PageMakerProgram, AnAddressNobodyListensOnGivesTheFailurePage) {
    QTcpServer probe;
    ASSERT_TRUE(probe.listen(QHostAddress::LocalHost, 0));
    const QString nowhere = QStringLiteral("127.0.0.1:%1").arg(probe.serverPort());
    probe.close();
    const Sortie run = RunProgram(QStringLiteral("LFPG"), &nowhere);
    EXPECT_EQ(Head(run), MinuteHead);
    EXPECT_EQ(LireAvecLeLecteur(Page(run)).textes.value(0),
              QStringLiteral(" The forecast source can't be reached. Try again in a minute."));
}

TEST_F(PageMakerProgram, AReplyThatIsntAForecastSaysNotAvailableForAMinute) {
    source->body = "<html>Sorry</html>";
    const Sortie run = RunProgram(QStringLiteral("LFPG"), &sourceAddress);
    EXPECT_EQ(Head(run), MinuteHead);
    EXPECT_EQ(LireAvecLeLecteur(Page(run)).textes.value(0),
              QStringLiteral(" The forecast is not available. Try again later."));
}

// Skelda's window waits on the page: a source that doesn't answer is given 5 s, no more.
TEST_F(PageMakerProgram, ASilentSourceIsWaitedOnFiveSecondsThenTheFailurePageComes) {
    source->silent = true;
    const Sortie run = RunProgram(QStringLiteral("LFPG"), &sourceAddress);
    EXPECT_EQ(Head(run), MinuteHead);
    EXPECT_EQ(source->heads.size(), 1);
    EXPECT_GE(run.milliseconds, 4900);
    EXPECT_LT(run.milliseconds, 9000);
}
