// A page of charts: one, or two beside each other, of which each can take the whole page. A line then says
// how to put it back.
#pragma once

#include "framework/window/ChartView.h"

#include <QList>
#include <QString>
#include <QWidget>

class QLabel;
class TestDocument;

class ChartPage : public QWidget
{
    Q_OBJECT

public:
    /// All charts of the document, which outlives the page.
    explicit ChartPage(const TestDocument& document);

    /// Shows what the charts of the document show now.
    void Refresh();

private:
    /// Enlarges this chart, or puts it back beside the other.
    void Turn(ChartView* chart);
    void SayWayBack();

    const TestDocument& m_document;
    QLabel* m_wayBack = nullptr; ///< of a pair
    QList<ChartView*> m_charts;
    ChartView* m_enlarged = nullptr; ///< of a pair, while it takes the page
    int m_shown = -1;                ///< the state of the charts that are seen
};
