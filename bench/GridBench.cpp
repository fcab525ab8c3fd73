// The grid with its view, full to the last row: paste, taking back, scrolling.
#include "framework/window/GridView.h"

#include <QApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kRows = 32767;

QString Column()
{
    QString text;
    for (int row = 0; row < kRows; ++row)
        text += QString::number(row % 1000) + u",125\n"_s;
    return text;
}

/// A grid of one column, and its view.
struct FullGrid {
    FullGrid() : grid(u","_s), view(grid, u"GridData"_s, u"Risultati"_s)
    {
        grid.SetSize(kRows, 1);
        grid.SetDigits({.interi = 3, .decimali = 3});
        grid.FillEmptyWithZero();
        view.show();
        view.setCurrentIndex(grid.index(0, 0));
        QApplication::processEvents();
    }
    DataGrid grid;
    GridView view;
};

void Paste(benchmark::State& state)
{
    FullGrid full;
    const QString text = Column();
    for (auto _ : state) {
        full.view.PasteText(text);
        QApplication::processEvents();
        state.PauseTiming();
        full.grid.Clear();
        full.grid.FillEmptyWithZero();
        full.view.setCurrentIndex(full.grid.index(0, 0));
        state.ResumeTiming();
    }
}
BENCHMARK(Paste)->Unit(benchmark::kMillisecond);

void UndoAndRedo(benchmark::State& state)
{
    FullGrid full;
    full.view.PasteText(Column());
    for (auto _ : state) {
        full.grid.Edits().Steps().Undo();
        QApplication::processEvents();
        full.grid.Edits().Steps().Redo();
        QApplication::processEvents();
    }
}
BENCHMARK(UndoAndRedo)->Unit(benchmark::kMillisecond);

void ScrollAPage(benchmark::State& state)
{
    FullGrid full;
    auto* bar = full.view.verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() >= bar->maximum() ? 0 : bar->value() + bar->pageStep());
        full.view.viewport()->repaint();
    }
}
BENCHMARK(ScrollAPage)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
