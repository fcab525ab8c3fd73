// One document's road: read, calculated, printed as JSON.
#include "Nobody.h"
#include "batch/JsonOutput.h"
#include "framework/text/TextFunctions.h"
#include "validation/DocumentFactory.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

QString LimiFile(const QTemporaryDir& folder, std::int64_t rows)
{
    QByteArray bytes =
        "Quorel for Windows\r\n3\r\n3\r\n2\r\nHPLC isocratico\r\nCaffeina\r\nmg/l\r\nLotto 12\r\n0\r\n" +
        QByteArray::number(rows) + "\r\nVero\r\n";
    for (std::int64_t row = 1; row <= rows; ++row)
        bytes += (row == 1 ? " " : "") + QByteArray::number(row) + ',' +
                 QByteArray::number(100 + std::sin(static_cast<double>(row)), 'f', 3) + "\r\n";
    QFile file(folder.filePath(u"%1.LIM"_s.arg(rows)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no file to measure with");
    return file.fileName();
}

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
