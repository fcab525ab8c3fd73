// One document's road: read, calculated, printed as JSON.
#include "LimiFile.h"
#include "Nobody.h"
#include "TaraFile.h"
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

std::unique_ptr<TestDocument> Calibration(Define& define, Nobody& nobody)
{
    return CreateDocument("TARA", {define, nobody, nobody, nobody});
}

/// The last one has as many data as a count can tell, and too many degrees of freedom for its calculation.
void ReadCalibration(benchmark::State& state)
{
    const QTemporaryDir folder;
    const auto groups = static_cast<int>(state.range(0));
    const auto replicates = static_cast<int>(state.range(1));
    const QString file = TaraFile(folder, groups, replicates);
    for (auto _ : state) {
        Define define;
        Nobody nobody;
        const auto document = Calibration(define, nobody);
        const LoadOutcome outcome = LoadDocument(*document, file);
        if (document->HowRead() != FileRead::Whole || outcome.Calculated() != (groups * replicates < 3640))
            state.SkipWithError("not as expected");
    }
}
BENCHMARK(ReadCalibration)->Args({5, 3})->Args({15, 40})->Args({7, 4681})->Unit(benchmark::kMicrosecond);

/// The largest calibration that can be typed, calculated again.
void CalcCalibration(benchmark::State& state)
{
    const QTemporaryDir folder;
    Define define;
    Nobody nobody;
    const auto document = Calibration(define, nobody);
    LoadDocument(*document, TaraFile(folder, 15, 40));
    for (auto _ : state) {
        if (document->Calc() != CalcEnd::Done)
            state.SkipWithError("not calculated");
    }
}
BENCHMARK(CalcCalibration)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
