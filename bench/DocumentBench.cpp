// One document's road: read, calculated, printed as JSON.
#include "LimiFile.h"
#include "Nobody.h"
#include "batch/JsonOutput.h"
#include "framework/text/TextFunctions.h"
#include "validation/DocumentFactory.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace
{

void ReadCalculatePrint(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString file = LimiFile(folder, state.range(0));
    for (auto _ : state) {
        Define define;
        Nobody nobody;
        const auto document = CreateDocument("LIMI", {define, nobody, nobody, nobody});
        const LoadOutcome outcome = LoadDocument(*document, file);
        QByteArray line = JsonLine(BatchResult{file, *document, outcome, {}}, false);
        benchmark::DoNotOptimize(line);
        if (!outcome.Calculated())
            state.SkipWithError("not calculated");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadCalculatePrint)
    ->Arg(10)
    ->Range(512, 32767)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
