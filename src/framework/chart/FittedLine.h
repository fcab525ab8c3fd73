// The straight line through the points of a series. In a header alone: the module of the charts has no code
// of the core.
#pragma once

#include "framework/chart/ChartData.h"

#include <QPointF>

#include <algorithm>
#include <cstddef>
#include <optional>

struct FittedLine {
    QPointF mean; ///< which it goes through
    double slope = 0;
    double low = 0; ///< the span of the points along x
    double high = 0;

    QPointF At(double x) const { return {x, mean.y() + slope * (x - mean.x())}; }
};

/// The least squares line through the points of pair i; nothing where that is not fitted, or where its points
/// have one x.
inline std::optional<FittedLine> FitLine(const ChartData& chart, std::size_t i)
{
    if (i >= chart.series.size() || !chart.series[i].fitted)
        return std::nullopt;
    const auto count = static_cast<double>(chart.rows.size());
    QPointF mean;
    for (const auto& row : chart.rows)
        mean += QPointF(row[2 * i], row[2 * i + 1]) / count;
    double xx = 0;
    double xy = 0;
    double low = mean.x();
    double high = mean.x();
    for (const auto& row : chart.rows) {
        const double x = row[2 * i] - mean.x();
        xx += x * x;
        xy += x * (row[2 * i + 1] - mean.y());
        low = std::min(low, row[2 * i]);
        high = std::max(high, row[2 * i]);
    }
    if (!(xx > 0))
        return std::nullopt;
    return FittedLine{.mean = mean, .slope = xy / xx, .low = low, .high = high};
}
