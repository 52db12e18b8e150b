#include "benchsupport.h"
#include "qthost/qthost.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <optional>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    QApplication application(argc, argv);
    // A program that has windows open between the benches, too.
    QApplication::setQuitOnLastWindowClosed(false);
    // Where plain Qt is counted in a process of its own, it does without the toolkit.
    std::optional<VOXI::QtHost> host;
    if (!qEnvironmentVariableIsSet("VOXI_BENCH_PLAIN"))
        host.emplace();
    // Neither side may profit from a process with one thread only.
    bench::Worker::instance();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
