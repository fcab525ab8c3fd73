#include "framework/window/ChartPage.h"

#include "framework/chart/ChartData.h"
#include "framework/document/TestDocument.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

ChartPage::ChartPage(const TestDocument& document, const QString& caption) : m_document(document)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const QLatin1StringView name : document.Shape().charts) {
        auto* chart = new ChartView(name, caption, document.Context());
        chart->SetEnlargeable(document.Shape().charts.size() > 1);
        connect(chart, &ChartView::EnlargeAsked, this, [this, chart] { Enlarge(chart); });
        layout->addWidget(chart, 1);
        m_charts.append(chart);
    }
    Refresh();
}

void ChartPage::Refresh()
{
    for (ChartView* chart : std::as_const(m_charts))
        chart->SetResults(m_document.Results());
    if (std::exchange(m_shown, m_document.ChartState()) == m_document.ChartState())
        return;
    qsizetype next = 0;
    for (const ChartData& chart : m_document.ShownCharts())
        m_charts[next++]->ShowChart(chart);
}

void ChartPage::Enlarge(ChartView* chart)
{
    const bool alone = std::ranges::all_of(
        m_charts, [chart](const ChartView* other) { return other == chart || other->isHidden(); });
    for (ChartView* other : std::as_const(m_charts))
        other->setVisible(alone || other == chart);
}
