// Painting the charts of the samples after their first painting, on screens of two sizes, and on paper.
#include "Nobody.h"
#include "framework/chart/ChartPainter.h"
#include "framework/document/DocumentLife.h"
#include "validation/DocumentFactory.h"

#include <QApplication>
#include <QDir>
#include <QImage>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{

/// A calculated sample, and the painter of one of its charts, which has painted once.
class Painted
{
public:
    Painted(const QString& file, const QSize& size, double scale)
        : m_size(size), m_image(size * scale, QImage::Format_RGB32)
    {
        m_define.DecSep = u","_s;
        m_document = CreateDocument(FindTestOfFile(file)->key, {m_define, m_nobody, m_nobody, m_nobody});
        if (!LoadDocument(*m_document, QStringLiteral(QUOREL_SAMPLES "/") + file).Calculated())
            qFatal("the sample can't be calculated");
        m_image.setDevicePixelRatio(scale);
        painter = CreateChartPainter(QCoreApplication::applicationDirPath() + u"/../bin"_s);
        SetChart();
        Paint();
    }

    void SetChart() { painter->SetChart(m_document->ShownCharts().front(), u","_s); }
    void Paint() { painter->Paint(m_image, m_size); }

    std::unique_ptr<ChartPainter> painter;

private:
    Define m_define;
    Nobody m_nobody;
    QSize m_size;
    QImage m_image;
    std::unique_ptr<TestDocument> m_document;
};

void Paint(benchmark::State& state, const QString& file, const QSize& size, double scale)
{
    Painted painted(file, size, scale);
    for (auto _ : state)
        painted.Paint();
}

void NewNumbers(benchmark::State& state, const QString& file)
{
    Painted painted(file, {900, 550}, 1);
    for (auto _ : state) {
        painted.SetChart();
        painted.Paint();
    }
}

void Pdf(benchmark::State& state, const QString& file)
{
    Painted painted(file, kChartPage, 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(painted.painter->Export(ChartFormat::Pdf, kChartPage));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    for (const QString& file : QDir(QStringLiteral(QUOREL_SAMPLES)).entryList(QDir::Files)) {
        if (file.endsWith(u".LIM"_s)) // has no chart
            continue;
        const std::string name = file.toStdString();
        for (const auto& [what, size, scale] : {std::tuple("window", QSize(900, 550), 1.0),
                                                std::tuple("4K screen at 200 %", QSize(1920, 1000), 2.0)})
            benchmark::RegisterBenchmark((name + ", " + what).c_str(), Paint, file, size, scale)
                ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + ", new numbers").c_str(), NewNumbers, file)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + ", PDF").c_str(), Pdf, file)->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
