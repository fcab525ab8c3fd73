// What stands between the axes of a painted chart: curves, marks, fitted lines, bars, and their looks.
#pragma once

#include "framework/chart/ChartData.h"

class QCustomPlot;

/// False for a chart of nothing but one point, many times: it has its titles alone to show.
bool HasExtent(const ChartData& chart);

/// Adds the chart's series or bars to plot. Those with a name stand in its legend, once each.
void AddSeries(QCustomPlot& plot, const ChartData& chart);

/// What the points, with the fitted lines, span along x and y, and some room around. Bars span y alone.
struct ChartSpans {
    ChartScale x;
    ChartScale y;
};
ChartSpans SpansOf(const ChartData& chart);
