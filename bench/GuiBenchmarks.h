// What the benchmarks that need the program's windows share: their main, and the one instance of
// their set-up.
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>

#include <memory>

namespace skelda::bench {

// The one instance of a benchmark's set-up (a store of ten years, the folder the program runs in,
// the windows), made at its first use, since it takes seconds, and dropped by Close() while the
// application still stands, since windows must go before it. A set-up T derives from
// SharedSetUp<T> and makes it a friend when its constructor is private.
template <class T>
class SharedSetUp {
public:
    static T& Instance() {
        if (!instance_) instance_.reset(new T);
        return *instance_;
    }
    static void Close() { instance_.reset(); }

private:
    static inline std::unique_ptr<T> instance_;
};

// Runs Step once an iteration, after selecting the station's case N for the N-th iteration, so
// that each iteration draws another airport, day or month.
template <class Station, class Step>
void OverSelections(benchmark::State& state, Station& station, Step step) {
    int n = 0;
    for (auto _ : state) {
        station.Select(n++);
        step();
    }
}

// The main of such a benchmark: a QApplication (drawn off the screen when there is no display),
// the benchmarks, then the caller's clean-up while the application still stands.
template <class CleanUp>
int RunGuiBenchmarks(int argc, char** argv, CleanUp cleanUp) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    cleanUp();
    return 0;
}

}  // namespace skelda::bench
