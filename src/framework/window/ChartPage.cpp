#include "framework/window/ChartPage.h"

#include "framework/chart/ChartData.h"
#include "framework/document/TestDocument.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kAboveWayBack = 4;

QLabel* WayBackLabel()
{
    auto* label = new QLabel;
    label->setObjectName(u"Ritorno"_s);
    label->setAlignment(Qt::AlignCenter);
    label->setContentsMargins(0, kAboveWayBack, 0, 0);
    label->hide();
    return label;
}

} // namespace

ChartPage::ChartPage(const TestDocument& document) : m_document(document)
{
    const bool isPair = document.Shape().charts.size() > 1;
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(0, 0, 0, 0);
    if (isPair)
        page->addWidget(m_wayBack = WayBackLabel());
    auto* layout = new QHBoxLayout;
    page->addLayout(layout, 1);
    for (const ChartShape& shape : document.Shape().charts) {
        auto* chart = new ChartView(shape.control, shape.caption, document.Context());
        chart->SetPlace(isPair ? ChartPlace::Beside : ChartPlace::Alone);
        connect(chart, &ChartView::TurnAsked, this, [this, chart] { Turn(chart); });
        connect(chart, &ChartView::AnotherSeen, this, &ChartPage::SayWayBack);
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

void ChartPage::Turn(ChartView* chart)
{
    m_enlarged = m_enlarged == chart ? nullptr : chart;
    for (ChartView* each : std::as_const(m_charts)) {
        each->setVisible(m_enlarged == nullptr || each == m_enlarged);
        each->SetPlace(each == m_enlarged ? ChartPlace::Enlarged : ChartPlace::Beside);
    }
    SayWayBack();
    m_wayBack->setVisible(m_enlarged != nullptr);
}

/// While part of the chart is out of view a double click shows all of it.
void ChartPage::SayWayBack()
{
    if (m_enlarged == nullptr)
        return;
    const QString how = m_enlarged->IsFitted() ? u"Doppio clic, Esc o Invio"_s : u"Esc o Invio"_s;
    m_wayBack->setText(how + u" per affiancare di nuovo i grafici"_s);
}
