// Paints charts, on screen and as vectors on paper. The painter lies in a module of its own, which is loaded
// when the first chart is painted.
#pragma once

#include "framework/chart/ChartData.h"

#include <QByteArray>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>

class QCoreApplication;
class QPaintDevice;

enum class ChartFormat { Pdf, Svg, Png };

/// Sizes and places are in points of 1/96 inch, whatever the device's resolution. Needs an application with
/// widgets.
class ChartPainter
{
public:
    virtual ~ChartPainter() = default;

    /// All of the chart comes into view.
    virtual void SetChart(const ChartData& chart, const QString& decSep) = 0;
    /// Where the axes stand in a painting of this size.
    virtual QRect LayOut(const QSize& size) = 0;
    virtual void Paint(QPaintDevice& device, const QSize& size) = 0;
    /// The same painting as a file: vectors, or a picture for Png, which tells its resolution. Long lines of
    /// the footnote are wrapped.
    virtual QByteArray Export(ChartFormat format, const QSize& size) = 0;

    // The part of the chart that is seen. Places are those of the last layout or painting; before one, those
    // of the last export.
    /// A factor below 1 shows less, larger, around a place; nothing where that would be too little to tell
    /// numbers apart, or too much to see the chart.
    virtual void Zoom(const QPointF& at, double factor) = 0;
    virtual void Drag(const QPointF& by) = 0;
    virtual void ShowAll() = 0;
    /// Whether all of the chart is in view.
    virtual bool IsWhole() const = 0;
    /// Whether it is, and as large as can be: ShowAll would change nothing.
    virtual bool IsFitted() const = 0;
    /// The numbers that a place stands for, or nothing outside the axes.
    virtual std::optional<QPointF> ValuesAt(const QPointF& at) const = 0;
    /// The place of numbers, in view or not.
    virtual QPointF PlaceOf(const QPointF& values) const = 0;
};

/// A4 in half, lying: what a chart is written on by itself.
inline constexpr QSize kChartPage{794, 559};

/// Fails with FileNotFound when the module does not lie in the program's folder.
std::unique_ptr<ChartPainter> CreateChartPainter(const QString& programFolder);

/// An application object that can paint, for a program that was not linked with one. Owned by the caller.
/// Fails as CreateChartPainter does.
std::unique_ptr<QCoreApplication> CreatePaintingApplication(const QString& programFolder, int& argc,
                                                            char** argv);
