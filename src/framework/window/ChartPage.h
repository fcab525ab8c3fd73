// A page of charts: one, or two beside each other, of which each can take the whole page.
#pragma once

#include "framework/window/ChartView.h"

#include <QList>
#include <QString>
#include <QWidget>

class TestDocument;

class ChartPage : public QWidget
{
    Q_OBJECT

public:
    /// All charts of the document, which outlives the page. caption: what a screen reader says.
    ChartPage(const TestDocument& document, const QString& caption);

    /// Shows what the charts of the document show now.
    void Refresh();

private:
    /// One chart alone, or all again where it is alone.
    void Enlarge(ChartView* chart);

    const TestDocument& m_document;
    QList<ChartView*> m_charts;
    int m_shown = -1; ///< the state of the charts that are seen
};
