// The main of a benchmark that needs the program's windows: a QApplication (drawn off the screen
// when there is no display), the benchmarks, then the caller's clean-up while the application
// still stands, since windows must go before it.
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>

namespace skelda::bench {

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
