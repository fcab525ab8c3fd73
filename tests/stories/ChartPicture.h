// A painted chart in words: what stands where, in the unit of its axes.
#pragma once

#include <QByteArray>
#include <QPointF>
#include <QSize>
#include <QStringList>

#include <array>
#include <functional>

class QPaintDevice;

/// What is painted on a device of this size, as SVG.
QByteArray SvgOf(const QSize& size, const std::function<void(QPaintDevice&)>& paint);

/// What an axis spans, by the labels at it; without labels, percent of it.
struct AxisSpan {
    std::array<double, 2> places; ///< of its ends in the picture
    std::array<double, 2> values{0, 100};

    double Place(double value) const;
    double Value(double place) const;
};

struct ChartPicture {
    /// A line for the picture, its axes, what lies between them from the lowest to the highest, and each text
    /// from top to bottom. What no chart may have is in capitals.
    QStringList lines;
    AxisSpan x;
    AxisSpan y;

    /// Where the numbers stand in the picture.
    QPointF Place(const QPointF& values) const { return {x.Place(values.x()), y.Place(values.y())}; }
};

/// Reads the SVG of a chart back, and tells it as a reader of the chart sees it.
ChartPicture ReadPicture(const QByteArray& svg);
