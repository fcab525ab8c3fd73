// The texts around the axes of a painted chart: as many as have room, none longer than its place.
#pragma once

#include "framework/chart/ChartData.h"

#include <qcustomplot.h>

#include <QFont>
#include <QSize>

/// A plot that is laid out without being painted.
class LaidOutPlot : public QCustomPlot
{
public:
    void LayOut(const QSize& size);
};

/// In the letters of charts.
QFont ChartFont(int points, bool bold = false);
inline constexpr int kNumberPoints = 8;

class PlotTexts
{
public:
    /// Adds the texts to a plot, which outlives them.
    explicit PlotTexts(LaidOutPlot& plot);

    /// Lays the plot out with the chart's texts. Where the axes would have too little height, the footnote
    /// goes first, then the title, the titles of the axes, the legend. wrapped: long lines of the footnote
    /// are wrapped; else they end in an ellipsis, as the other texts do.
    void Fit(const ChartData& chart, const QSize& size, bool wrapped);

private:
    void Show(const ChartData& chart, const QSize& size, bool wrapped, int withoutLast);
    void StackUp(bool withLegend);
    void FitLegend(int width);
    void FitAxisTitle(QCPAxis* axis, const QString& title, int length);

    LaidOutPlot& m_plot;
    QCPTextElement* m_title;
    QCPTextElement* m_footnote;
};
