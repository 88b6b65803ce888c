// The gateway as the tests run it: the real site made by skelda-gateway from its template, in a
// network namespace of the test's own (tests/gateway/in_namespace.sh), on the program's own address
// (127.0.0.1, port 80), with only the public sources' addresses and the certificate authority
// swapped in.
// The public sources are stood in for by a second nginx serving HTTPS on 127.0.0.2 with a
// certificate the test makes (signed through an intermediate), beside a server whose certificate
// no authority signed (127.0.0.4), a server that accepts and never answers (127.0.0.3), and an
// address where nobody listens (127.0.0.5).
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace skelda::test {

// The source stand-ins' addresses, as the gateway is told them.
inline const QString GoodSource = QStringLiteral("127.0.0.2:443");
inline const QString SilentSource = QStringLiteral("127.0.0.3:443");
inline const QString UntrustedSource = QStringLiteral("127.0.0.4:443");
inline const QString AbsentSource = QStringLiteral("127.0.0.5:443");
// A plain file server of the same station files, over plain HTTP on port 80, to compare with.
inline const QString PlainFileServer = QStringLiteral("127.0.0.6");

// The gateway's address and port, as the program has them.
inline const QString GatewayAddress = QStringLiteral("127.0.0.1");

// One nginx in the foreground, in a folder of its own.
class Nginx {
public:
    ~Nginx() { Stop(); }
    // Starts nginx on the configuration file and waits until it accepts connections on the
    // address given ("127.0.0.2:443"); false, with the reason in Error(), when it doesn't.
    bool Start(const QString& folder, const QString& configuration, const QString& ready);
    void Stop();
    QString Error() const { return error_; }
    // The master process and its workers.
    QList<qint64> Processes() const;

private:
    QProcess process_;
    QString error_;
};

class GatewayWorld {
public:
    GatewayWorld();
    ~GatewayWorld();

    // Whether this machine can run the gateway's tests (nginx and its JavaScript module, openssl,
    // a namespace of the tests' own): the reason when it can't, empty when it can.
    static QString Missing();

    // Starts the source stand-ins. False with the reason in Error() when they don't start.
    bool StartSources();
    // Makes the site with skelda-gateway and starts the gateway, asking its sources at the
    // address given, and the page maker through fcgiwrap when withPageMaker. Keeps the cache and
    // the last good copies of an earlier start of the same world.
    bool StartGateway(const QString& source, bool withPageMaker = false);
    void StopGateway();
    // nginx's own check of the site as shipped (the public sources by name, the machine's
    // authorities): its output, empty when the check passes.
    QString CheckShippedSite();
    // Forgets the minute's cache of station files, as if it had run out; the last good copies
    // stay.
    void ExpireStationCache();

    // A station file served by the good source stand-in, under its HTTPS path.
    void ServeStation(const QString& code, const QByteArray& content);
    // A file of the stand-in, at a path of its own.
    void ServeFile(const QString& path, const QByteArray& content);
    // The paths asked of the source stand-ins, in order, each as "METHOD URI|User-Agent|Host".
    QStringList SourceRequests() const;
    // The gateway's own log.
    QString GatewayLog() const;

    // One exchange with the gateway on a raw socket: the bytes sent, and all the bytes that came
    // back until the gateway closed the connection (empty when it closed without a reply;
    // "(no connection)" when nothing answered on Address, port 80).
    static QByteArray Exchange(const QByteArray& request, int timeoutMs = 15000,
                               const QString& address = GatewayAddress);
    // The addresses ("127.0.0.1:80", "[::1]:80") of the TCP sockets that the gateway's nginx
    // listens on, as ss shows them.
    QStringList GatewayListens() const;
    // Whether this namespace has IPv6's loopback, ::1.
    static bool HasIpv6Loopback();

    QString Folder() const { return root_.path(); }
    // The gateway's processes: nginx's master and workers, and fcgiwrap when it runs.
    QList<qint64> GatewayProcesses() const;
    QString Error() const { return error_; }

private:
    QString Path(const QString& name) const { return root_.filePath(name); }
    bool MakeCertificates();
    bool MakeSite(const QString& folder, const QString& sources);
    bool WriteFile(const QString& name, const QByteArray& content);

    QTemporaryDir root_;
    Nginx sources_;
    Nginx gateway_;
    QProcess fcgiwrap_;
    int silent_ = -1;  // the listening socket that never answers
    QString error_;
};

}  // namespace skelda::test
