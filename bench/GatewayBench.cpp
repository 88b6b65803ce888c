// A poll through Skelda's gateway with a warm cache, next to the same poll against a plain file
// server: the program's own request bytes on a raw socket, to the reply's end. Also counts how
// often the source stand-in was asked for the station over all the polls (once a minute at most),
// and gives the gateway's processes' memory (PSS).
//
// The gateway runs in a network namespace of the benchmark's own, as in its tests: run as is,
// the benchmark starts itself again in one.
#include "GatewayWorld.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using skelda::test::GatewayWorld;

std::unique_ptr<GatewayWorld> world;

const QByteArray Report = "2026/11/24 19:00\nLFPB 241900Z 24013KT 9999 FEW016 12/08 Q1015 NOSIG\n";

// One exchange as the program makes it: connect, the request in one write, read to the close.
size_t Exchange(const char* address, const std::string& request) {
    const int s = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(80);
    inet_pton(AF_INET, address, &to.sin_addr);
    size_t received = 0;
    if (::connect(s, reinterpret_cast<sockaddr*>(&to), sizeof to) == 0 &&
        ::send(s, request.data(), request.size(), 0) == ssize_t(request.size())) {
        char buffer[4096];
        for (ssize_t n; (n = ::recv(s, buffer, sizeof buffer, 0)) > 0;) received += size_t(n);
    }
    ::close(s);
    return received;
}

// A forecast in MET Norway's format, two days hour by hour from the hour under way, at 15 degrees.
QByteArray ForecastReply() {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QDateTime t(now.date(), QTime(now.time().hour(), 0), Qt::UTC);
    QByteArray series;
    for (int i = 0; i < 24 * 9; ++i, t = t.addSecs(3600)) {
        if (!series.isEmpty()) series += ',';
        const QByteArray next =
            "{\"summary\":{\"symbol_code\":\"partlycloudy_day\"},"
            "\"details\":{\"precipitation_amount\":0.0}}";
        series += "{\"time\":\"" + t.toString(Qt::ISODate).toLatin1() +
                  "\",\"data\":{\"instant\":{\"details\":{\"air_temperature\":15.0,\"wind_speed\":4.0,"
                  "\"wind_from_direction\":250.0,\"cloud_area_fraction\":50.0}},\"next_1_hours\":" +
                  next + ",\"next_6_hours\":" + next + "}}";
    }
    return "{\"type\":\"Feature\",\"properties\":{\"timeseries\":[" + series + "]}}";
}

std::string Request(const char* host) {
    return std::string("GET http://") + host +
           "/pub/data/observations/metar/stations/LFPB.TXT HTTP/1.0\r\nAccept: */*\r\nAccept: text/html\r\n\r\n";
}

void PollAgainstAPlainFileServer(benchmark::State& state) {
    const std::string request = Request("127.0.0.6");
    for (auto _ : state) benchmark::DoNotOptimize(Exchange("127.0.0.6", request));
}
BENCHMARK(PollAgainstAPlainFileServer)->Unit(benchmark::kMicrosecond);

void PollThroughTheGatewayWithAWarmCache(benchmark::State& state) {
    const std::string request = Request("127.0.0.1");
    Exchange("127.0.0.1", request);  // warms the cache
    for (auto _ : state) {
        if (Exchange("127.0.0.1", request) == 0) state.SkipWithError("the gateway gave nothing");
    }
    state.counters["source_asked"] =
        double(world->SourceRequests().filter(QStringLiteral("/stations/LFPB.TXT|")).size());
    // The memory of the gateway's processes, as the kernel shares it out (kB).
    double pss = 0;
    for (qint64 pid : world->GatewayProcesses()) {
        QFile rollup(QStringLiteral("/proc/%1/smaps_rollup").arg(pid));
        if (!rollup.open(QIODevice::ReadOnly)) continue;
        for (const QByteArray& line : rollup.readAll().split('\n'))
            if (line.startsWith("Pss:")) pss += line.mid(4).trimmed().split(' ').first().toDouble();
    }
    state.counters["gateway_pss_kB"] = pss;
    state.counters["gateway_processes"] = double(world->GatewayProcesses().size());
}
BENCHMARK(PollThroughTheGatewayWithAWarmCache)->Unit(benchmark::kMicrosecond);

// A forecast page the page maker made a moment ago, served again from the gateway's cache.
void CachedForecastPage(benchmark::State& state) {
    const std::string request = "GET /forecast/LFPG.html HTTP/1.0\r\n\r\n";
    Exchange("127.0.0.1", request);  // made once
    size_t size = 0;
    for (auto _ : state) size = Exchange("127.0.0.1", request);
    state.counters["page_bytes"] = double(size);
}
BENCHMARK(CachedForecastPage)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (!GatewayWorld::Missing().isEmpty()) {
        if (std::getenv("SKELDA_BENCH_IN_NAMESPACE") != nullptr) {
            fprintf(stderr, "%s\n", qPrintable(GatewayWorld::Missing()));
            return 1;
        }
        // Once more, in a namespace of its own.
        setenv("SKELDA_BENCH_IN_NAMESPACE", "1", 1);
        std::vector<char*> args{const_cast<char*>("unshare"),
                                const_cast<char*>("-rn"),
                                const_cast<char*>("--pid"),
                                const_cast<char*>("--fork"),
                                const_cast<char*>("--kill-child"),
                                const_cast<char*>("--mount-proc"),
                                const_cast<char*>("sh"),
                                const_cast<char*>("-c"),
                                const_cast<char*>("ip link set lo up && exec \"$@\""),
                                const_cast<char*>("sh")};
        for (int i = 0; i < argc; ++i) args.push_back(argv[i]);
        args.push_back(nullptr);
        execvp("unshare", args.data());
        perror("unshare");
        return 1;
    }
    world = std::make_unique<GatewayWorld>();
    world->ServeStation(QStringLiteral("LFPB"), Report);
    // The source's forecast, hour by hour from the hour under way.
    world->ServeFile(QStringLiteral("/weatherapi/locationforecast/2.0/compact"), ForecastReply());
    if (!world->StartSources() || !world->StartGateway(skelda::test::GoodSource, true)) {
        fprintf(stderr, "%s\n", qPrintable(world->Error()));
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    world.reset();
    return 0;
}
