// The statistics routines, over the counts that tests have and the largest that they may have.
#include "stats/CriticalValues.h"
#include "stats/Statistics.h"
#include "validation/calibration/TaraCalc.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace
{

std::vector<double> Values(std::int64_t count)
{
    std::vector<double> values(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = 100 + std::sin(static_cast<double>(i));
    return values;
}

void StatBase(benchmark::State& state)
{
    const std::vector<double> values = Values(state.range(0));
    BaseStatistics results;
    for (auto _ : state) {
        CalcStatBase(values, results);
        benchmark::DoNotOptimize(results);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(StatBase)->Arg(10)->Range(1000, 32767)->Complexity(benchmark::oN);

void LimConf(benchmark::State& state)
{
    const std::vector<double> values = Values(10);
    for (auto _ : state)
        benchmark::DoNotOptimize(CalcLimConf(values, 100, 1, 1, 2.262));
}
BENCHMARK(LimConf);

void Density(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(DensGauss(101, 100, 2));
}
BENCHMARK(Density);

void TailOfF(benchmark::State& state)
{
    const double f = static_cast<double>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(ProbF(f, 5, 10));
}
BENCHMARK(TailOfF)->Arg(1)->Arg(3)->Arg(1000);

void TailOfT(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ProbT(2.1, static_cast<std::int16_t>(state.range(0))));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(TailOfT)->Arg(9)->Arg(10)->Range(128, 32766)->Complexity(benchmark::oNSquared);

void CriticalT(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ValoreT(11, 1));
}
BENCHMARK(CriticalT);

class NoTable : public FTable
{
public:
    std::optional<double> Find(std::int16_t, std::int16_t) override { return std::nullopt; }
};

void CriticalF(benchmark::State& state)
{
    NoTable table;
    for (auto _ : state)
        benchmark::DoNotOptimize(ValoreF(5, 10, table));
}
BENCHMARK(CriticalF);

/// The largest calibration that can be typed.
void Calibration(benchmark::State& state)
{
    constexpr std::int16_t kGroups = 15;
    constexpr std::int16_t kReplicates = 40;
    std::vector<double> conc;
    for (int i = 1; i <= kGroups; ++i)
        conc.push_back(i);
    std::vector<double> risp;
    for (int j = 0; j < kReplicates; ++j) {
        for (const double x : conc)
            risp.push_back(100 + 10 * x + 80 * std::sin(x + j));
    }
    NoTable table;
    for (auto _ : state)
        benchmark::DoNotOptimize(CalcRegr({.conc = conc,
                                           .risp = risp,
                                           .groups = kGroups,
                                           .replicates = kReplicates,
                                           .count = kGroups * kReplicates},
                                          table, [&] { state.SkipWithError("overflow"); }));
}
BENCHMARK(Calibration);

} // namespace
