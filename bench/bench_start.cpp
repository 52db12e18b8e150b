// Whole programs, from their start until their window is painted for the first time.

#include "benchsupport.h"

#include <QCoreApplication>
#include <QProcess>

#include <functional>
#include <sys/resource.h>

namespace {

/// What the programs that have ended used of the processor, the kernel's work for them included.
double secondsOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void start(benchmark::State& state, const char* program, const char* rows)
{
    for (auto _ : state) {
        const double before = secondsOfChildren();
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.start(QCoreApplication::applicationDirPath() + QLatin1Char('/')
                          + QLatin1String(program),
                      {QLatin1String(rows)});
        process.waitForFinished();
        state.SetIterationTime(secondsOfChildren() - before);
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
            state.SkipWithError("the program failed");
    }
}

bench::Pair startPair(const char* name, const char* rows)
{
    using namespace std::placeholders;
    return {name, std::bind(start, _1, "start_voxi", rows), std::bind(start, _1, "start_qt", rows)};
}

const bool s_added = bench::addPairs({startPair("StartEmpty", "0"), startPair("Start300", "100")});

} // namespace
