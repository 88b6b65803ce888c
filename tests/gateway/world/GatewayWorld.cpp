#include "GatewayWorld.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTcpSocket>
#include <QThread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace skelda::test {

namespace {

const QString JsModule = QStringLiteral("/usr/lib/nginx/modules/ngx_http_js_module.so");

// Runs a command to its end; its output when it fails.
bool Run(const QString& program, const QStringList& arguments, QString* error, const QString& folder = {}) {
    QProcess process;
    if (!folder.isEmpty()) process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        if (error)
            *error = program + u' ' + arguments.join(u' ') + QStringLiteral(": ") +
                     QString::fromLocal8Bit(process.readAll());
        return false;
    }
    return true;
}

// Whether something accepts connections at "address:port".
bool Accepts(const QString& hostAndPort) {
    const qsizetype colon = hostAndPort.lastIndexOf(u':');
    QTcpSocket socket;
    socket.connectToHost(hostAndPort.left(colon), quint16(hostAndPort.mid(colon + 1).toUInt()));
    return socket.waitForConnected(200);
}

// The temporary folders of one nginx, which the build's defaults would put under /var/lib.
QByteArray TempPaths(const QString& folder, const QString& prefix) {
    QByteArray paths;
    for (const char* kind : {"client_body", "proxy", "fastcgi", "uwsgi", "scgi"})
        paths += QByteArray("    ") + kind + "_temp_path " + (folder + u'/' + prefix).toUtf8() + '-' + kind + ";\n";
    return paths;
}

QByteArray Head(const QString& folder, const QString& name) {
    QByteArray head;
    // Root of the namespace, nginx would hand its workers to "nobody", a user the namespace
    // doesn't have.
    if (geteuid() == 0) head += "user root root;\n";
    head += "pid " + (folder + u'/' + name).toUtf8() + ".pid;\n";
    head += "error_log " + (folder + u'/' + name).toUtf8() + "-main.log warn;\n";
    head += "events {}\n";
    return head;
}

}  // namespace

bool Nginx::Start(const QString& folder, const QString& configuration, const QString& ready) {
    Stop();
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.start(QStringLiteral("nginx"), {QStringLiteral("-p"), folder, QStringLiteral("-c"), configuration,
                                             QStringLiteral("-g"), QStringLiteral("daemon off;")});
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 10000) {
        if (process_.state() == QProcess::NotRunning) {
            error_ = QStringLiteral("nginx ended: ") + QString::fromLocal8Bit(process_.readAll());
            return false;
        }
        if (Accepts(ready)) return true;
        QThread::msleep(20);
    }
    error_ = QStringLiteral("nginx doesn't answer at ") + ready;
    return false;
}

QList<qint64> Nginx::Processes() const {
    QList<qint64> pids;
    if (process_.state() == QProcess::NotRunning) return pids;
    pids.append(process_.processId());
    QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(process_.processId()));
    if (children.open(QIODevice::ReadOnly))
        for (const QByteArray& pid : children.readAll().split(' '))
            if (!pid.trimmed().isEmpty()) pids.append(pid.trimmed().toLongLong());
    return pids;
}

void Nginx::Stop() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (!process_.waitForFinished(5000)) {
        process_.kill();
        process_.waitForFinished(5000);
    }
}

GatewayWorld::GatewayWorld() = default;

GatewayWorld::~GatewayWorld() {
    StopGateway();
    sources_.Stop();
    if (silent_ >= 0) ::close(silent_);
}

QString GatewayWorld::Missing() {
    if (QStandardPaths::findExecutable(QStringLiteral("nginx")).isEmpty())
        return QStringLiteral("nginx isn't installed");
    if (!QFileInfo::exists(JsModule)) return QStringLiteral("nginx's JavaScript module isn't installed");
    if (QStandardPaths::findExecutable(QStringLiteral("openssl")).isEmpty())
        return QStringLiteral("openssl isn't installed");
    // The gateway's address on port 80: only in a namespace of the tests' own.
    const int probe = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(80);
    inet_pton(AF_INET, GatewayAddress.toLatin1().constData(), &address.sin_addr);
    const bool free = ::bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    ::close(probe);
    if (!free) return QStringLiteral("port 80 of the gateway's address can't be had: run under in_namespace.sh");
    return {};
}

bool GatewayWorld::WriteFile(const QString& name, const QByteArray& content) {
    QFile file(Path(name));
    QDir().mkpath(QFileInfo(file).absolutePath());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size()) {
        error_ = QStringLiteral("can't write ") + file.fileName();
        return false;
    }
    return true;
}

// A root authority, an intermediate one signed by it, and the sources' certificate signed by the
// intermediate for both public names; and a certificate that signs itself, which no authority
// vouches for. Elliptic-curve keys, quick to make.
bool GatewayWorld::MakeCertificates() {
    const QString folder = Path(QStringLiteral("pki"));
    QDir().mkpath(folder);
    const char* script = R"(set -e
key="-newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes"
printf 'basicConstraints=critical,CA:TRUE,pathlen:0\nkeyUsage=critical,keyCertSign,cRLSign\n' >int.ext
printf 'subjectAltName=DNS:tgftp.nws.noaa.gov,DNS:api.met.no\nextendedKeyUsage=serverAuth\n' >srv.ext
openssl req -x509 $key -keyout ca.key -out ca.pem -days 2 -subj "/CN=Skelda tests root" \
    -addext basicConstraints=critical,CA:TRUE -addext keyUsage=critical,keyCertSign,cRLSign
openssl req $key -keyout int.key -out int.csr -subj "/CN=Skelda tests intermediate"
openssl x509 -req -in int.csr -CA ca.pem -CAkey ca.key -CAcreateserial -out int.pem -days 2 -extfile int.ext
openssl req $key -keyout srv.key -out srv.csr -subj /CN=tgftp.nws.noaa.gov
openssl x509 -req -in srv.csr -CA int.pem -CAkey int.key -CAcreateserial -out srv.pem -days 2 -extfile srv.ext
openssl req -x509 $key -keyout self.key -out self.pem -days 2 -subj /CN=tgftp.nws.noaa.gov \
    -addext subjectAltName=DNS:tgftp.nws.noaa.gov,DNS:api.met.no
cat srv.pem int.pem >chain.pem
)";
    return Run(QStringLiteral("sh"), {QStringLiteral("-c"), QLatin1String(script)}, &error_, folder);
}

bool GatewayWorld::StartSources() {
    if (!root_.isValid() || !MakeCertificates()) return false;
    const QString pki = Path(QStringLiteral("pki"));
    const QByteArray www = Path(QStringLiteral("www")).toUtf8();
    QDir().mkpath(Path(QStringLiteral("www/data/observations/metar/stations")));
    QByteArray conf = Head(Folder(), QStringLiteral("sources"));
    conf += "http {\n" + TempPaths(Folder(), QStringLiteral("sources"));
    conf += "    log_format skelda \"$request_method $request_uri|$http_user_agent|$http_host\";\n";
    conf += "    access_log " + Path(QStringLiteral("sources-access.log")).toUtf8() + " skelda;\n";
    conf += "    default_type text/plain;\n";
    // A station that moved: the public server's answer to plain HTTP since 2019 is of this kind.
    const QByteArray moved =
        "        location = /data/observations/metar/stations/MOVE.TXT {\n"
        "            return 301 https://tgftp.nws.noaa.gov/elsewhere/MOVE.TXT;\n        }\n";
    conf += "    server {\n        listen " + GoodSource.toUtf8() + " ssl;\n        ssl_certificate " +
            (pki + QStringLiteral("/chain.pem")).toUtf8() + ";\n        ssl_certificate_key " +
            (pki + QStringLiteral("/srv.key")).toUtf8() + ";\n        root " + www + ";\n" + moved + "    }\n";
    conf += "    server {\n        listen " + UntrustedSource.toUtf8() + " ssl;\n        ssl_certificate " +
            (pki + QStringLiteral("/self.pem")).toUtf8() + ";\n        ssl_certificate_key " +
            (pki + QStringLiteral("/self.key")).toUtf8() + ";\n        root " + www + ";\n    }\n";
    conf += "    server {\n        listen " + PlainFileServer.toUtf8() +
            ":80;\n        access_log off;\n        root " + www + ";\n" +
            "        location /pub/ {\n            alias " + www + "/data/;\n        }\n    }\n";
    conf += "}\n";
    if (!WriteFile(QStringLiteral("sources.nginx.conf"), conf)) return false;
    if (!sources_.Start(Folder(), Path(QStringLiteral("sources.nginx.conf")), GoodSource)) {
        error_ = sources_.Error();
        return false;
    }
    // A source that takes the connection and never says a word: the kernel accepts for it.
    // Not handed on to the nginx processes the world starts, which would hold it too.
    silent_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(443);
    inet_pton(AF_INET, "127.0.0.3", &address.sin_addr);
    if (::bind(silent_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || ::listen(silent_, 16) != 0) {
        error_ = QStringLiteral("the silent source can't listen");
        return false;
    }
    return true;
}

// The rendered site and the main configuration that includes it, in folder g: with the sources
// file given.
bool GatewayWorld::MakeSite(const QString& g, const QString& sources) {
    for (const char* folder : {"cache/last-good", "state", "log"}) QDir().mkpath(g + u'/' + QLatin1String(folder));
    QProcess render;
    render.start(QStringLiteral(SKELDA_GATEWAY_SCRIPT),
                 {QStringLiteral("render"), QStringLiteral("DATADIR=") + QStringLiteral(SKELDA_GATEWAY_DATA),
                  QStringLiteral("CACHEDIR=") + g + QStringLiteral("/cache"),
                  QStringLiteral("STATEDIR=") + g + QStringLiteral("/state"),
                  QStringLiteral("LOGDIR=") + g + QStringLiteral("/log"), QStringLiteral("SOURCES=") + sources,
                  QStringLiteral("FCGI_SOCKET=") + g + QStringLiteral("/fcgiwrap.sock"),
                  QStringLiteral("PAGEMAKER=") + QStringLiteral(SKELDA_PAGE_MAKER)});
    if (!render.waitForFinished(10000) || render.exitCode() != 0) {
        error_ =
            QStringLiteral("skelda-gateway render failed: ") + QString::fromLocal8Bit(render.readAllStandardError());
        return false;
    }
    QByteArray conf = "load_module " + JsModule.toUtf8() + ";\n" + Head(g, QStringLiteral("nginx"));
    conf += "http {\n" + TempPaths(g, QStringLiteral("temp")) + "    include " + g.toUtf8() + "/site.conf;\n}\n";
    const QString relative = QDir(Folder()).relativeFilePath(g);
    return WriteFile(relative + QStringLiteral("/site.conf"), render.readAllStandardOutput()) &&
           WriteFile(relative + QStringLiteral("/nginx.conf"), conf);
}

QString GatewayWorld::CheckShippedSite() {
    const QString g = Path(QStringLiteral("shipped"));
    if (!MakeSite(g, QStringLiteral(SKELDA_GATEWAY_SOURCES))) return error_;
    QString output;
    Run(QStringLiteral("nginx"),
        {QStringLiteral("-t"), QStringLiteral("-q"), QStringLiteral("-p"), g, QStringLiteral("-c"),
         g + QStringLiteral("/nginx.conf")},
        &output);
    return output;
}

bool GatewayWorld::StartGateway(const QString& source, bool withPageMaker) {
    StopGateway();
    // The shipped list of sources, with the test's address and authority in place of the public
    // ones, and a contact so that forecasts are asked for.
    QFile shipped(QStringLiteral(SKELDA_GATEWAY_SOURCES));
    if (!shipped.open(QIODevice::ReadOnly)) {
        error_ = QStringLiteral("no sources.conf in the build");
        return false;
    }
    QByteArray sources = shipped.readAll();
    sources.replace("set $skelda_observations_server tgftp.nws.noaa.gov;",
                    "set $skelda_observations_server " + source.toUtf8() + ';');
    sources.replace("set $skelda_forecast_server api.met.no;", "set $skelda_forecast_server " + source.toUtf8() + ';');
    const qsizetype contact = sources.indexOf("set $skelda_forecast_contact");
    sources.replace(contact, sources.indexOf('\n', contact) - contact,
                    "set $skelda_forecast_contact \"tests@skelda.invalid\";");
    sources.replace("/etc/ssl/certs/ca-certificates.crt", Path(QStringLiteral("pki/ca.pem")).toUtf8());
    if (!WriteFile(QStringLiteral("gateway/sources.conf"), sources)) return false;

    const QString g = Path(QStringLiteral("gateway"));
    if (!MakeSite(g, g + QStringLiteral("/sources.conf"))) return false;
    if (withPageMaker) {
        QFile::remove(g + QStringLiteral("/fcgiwrap.sock"));
        fcgiwrap_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        fcgiwrap_.start(QStringLiteral("fcgiwrap"),
                        {QStringLiteral("-s"), QStringLiteral("unix:") + g + QStringLiteral("/fcgiwrap.sock")});
        if (!fcgiwrap_.waitForStarted(5000)) {
            error_ = QStringLiteral("fcgiwrap doesn't start");
            return false;
        }
    }
    if (!gateway_.Start(g, g + QStringLiteral("/nginx.conf"), GatewayAddress + QStringLiteral(":80"))) {
        error_ = gateway_.Error();
        return false;
    }
    if (withPageMaker) {
        QElapsedTimer timer;
        timer.start();
        while (!QFileInfo::exists(g + QStringLiteral("/fcgiwrap.sock")) && timer.elapsed() < 5000) QThread::msleep(20);
    }
    return true;
}

QList<qint64> GatewayWorld::GatewayProcesses() const {
    QList<qint64> pids = gateway_.Processes();
    if (fcgiwrap_.state() != QProcess::NotRunning) pids.append(fcgiwrap_.processId());
    return pids;
}

void GatewayWorld::StopGateway() {
    gateway_.Stop();
    if (fcgiwrap_.state() != QProcess::NotRunning) {
        fcgiwrap_.terminate();
        if (!fcgiwrap_.waitForFinished(5000)) fcgiwrap_.kill();
        fcgiwrap_.waitForFinished(5000);
    }
}

void GatewayWorld::ExpireStationCache() {
    StopGateway();
    QDir(Path(QStringLiteral("gateway/cache/observations"))).removeRecursively();
}

void GatewayWorld::ServeStation(const QString& code, const QByteArray& content) {
    WriteFile(QStringLiteral("www/data/observations/metar/stations/") + code + QStringLiteral(".TXT"), content);
}

void GatewayWorld::ServeFile(const QString& path, const QByteArray& content) {
    WriteFile(QStringLiteral("www") + path, content);
}

QStringList GatewayWorld::SourceRequests() const {
    QFile log(Path(QStringLiteral("sources-access.log")));
    if (!log.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(log.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

QString GatewayWorld::GatewayLog() const {
    QFile log(Path(QStringLiteral("gateway/log/gateway.log")));
    if (!log.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(log.readAll());
}

QByteArray GatewayWorld::Exchange(const QByteArray& request, int timeoutMs, const QString& address) {
    QTcpSocket socket;
    socket.connectToHost(address, 80);
    if (!socket.waitForConnected(5000)) return "(no connection)";
    socket.write(request);
    socket.waitForBytesWritten(5000);
    QByteArray reply;
    QElapsedTimer timer;
    timer.start();
    while (socket.state() == QAbstractSocket::ConnectedState && timer.elapsed() < timeoutMs) {
        socket.waitForReadyRead(200);
        reply += socket.readAll();
    }
    reply += socket.readAll();
    return reply;
}

QStringList GatewayWorld::GatewayListens() const {
    QProcess ss;
    ss.start(QStringLiteral("ss"), {QStringLiteral("-Hltnp")});
    if (!ss.waitForFinished(10000)) return {QStringLiteral("(ss didn't answer)")};
    const QString output = QString::fromLocal8Bit(ss.readAllStandardOutput());
    const QList<qint64> gateway = gateway_.Processes();
    QStringList found;
    static const QRegularExpression pid(QStringLiteral("pid=(\\d+)"));
    for (const QString& line : output.split(u'\n', Qt::SkipEmptyParts)) {
        bool ours = false;
        for (auto match = pid.globalMatch(line); match.hasNext();)
            if (gateway.contains(match.next().captured(1).toLongLong())) ours = true;
        const QStringList fields = line.split(u' ', Qt::SkipEmptyParts);
        if (ours && fields.size() > 3 && !found.contains(fields[3])) found.append(fields[3]);
    }
    found.sort();
    return found;
}

bool GatewayWorld::HasIpv6Loopback() {
    QFile interfaces(QStringLiteral("/proc/net/if_inet6"));
    return interfaces.open(QIODevice::ReadOnly) && interfaces.readAll().contains("00000000000000000000000000000001 ");
}

}  // namespace skelda::test
