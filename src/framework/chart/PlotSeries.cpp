#include "framework/chart/PlotSeries.h"

#include "framework/chart/FittedLine.h"
#include "framework/chart/PlotHatch.h"
#include "framework/chart/PlotTicks.h"

#include <qcustomplot.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>

namespace
{

constexpr double kLineWidth = 2;
constexpr double kFitWidth = 1.5;
constexpr double kThinFitWidth = 4.0 / 3; ///< one point of 1/72 inch
constexpr double kMarkWidth = 1.25;
constexpr double kMarkSize = 8;
/// Of many marks each is smaller: those of a group lie close together.
constexpr std::size_t kMany = 100;
constexpr double kSmallMarkWidth = 1;
constexpr double kSmallMarkSize = 6;
constexpr int kMarkOpacity = 80; ///< of 255: marks that lie on each other are all seen

constexpr double kBarWidth = 0.4;
constexpr double kBarPen = 1.5;
constexpr double kHatchPen = 1;
constexpr int kBarOpacity = 28; ///< of 255: the hatch is what is seen
/// What the library fills of a bar's place in the legend.
constexpr double kIconPart = 0.67;
/// Above and below what a chart shows, where its scale is free: a tenth of it.
constexpr double kRoom = 0.1;

/// Series are told apart by dashes, groups of marks by form, bars by hatches; the colours come on top. Each
/// has a contrast of 3:1 and more on white; colour blind readers can tell the first three apart (Okabe and
/// Ito).
struct Look {
    QRgb color;
    Qt::PenStyle line;
    Hatch hatch;
};
constexpr std::array kLooks = {Look{qRgb(0, 114, 178), Qt::SolidLine, Hatch::Rising},
                               Look{qRgb(213, 94, 0), Qt::DashLine, Hatch::Crossed},
                               Look{qRgb(0, 158, 115), Qt::DotLine, Hatch::Falling},
                               Look{qRgb(170, 68, 153), Qt::DashDotLine, Hatch::Upright},
                               Look{qRgb(64, 64, 64), Qt::DashDotDotLine, Hatch::Squared}};

/// As many as the groups of a calibration, and one more: without a common divisor with the colours form and
/// colour together come back late.
constexpr std::array kForms = {QCPScatterStyle::ssCircle,
                               QCPScatterStyle::ssSquare,
                               QCPScatterStyle::ssTriangle,
                               QCPScatterStyle::ssDiamond,
                               QCPScatterStyle::ssTriangleInverted,
                               QCPScatterStyle::ssCross,
                               QCPScatterStyle::ssPlus,
                               QCPScatterStyle::ssStar,
                               QCPScatterStyle::ssCrossSquare,
                               QCPScatterStyle::ssPlusCircle,
                               QCPScatterStyle::ssPlusSquare,
                               QCPScatterStyle::ssCrossCircle};
/// Those behind them, as corners of half the size.
constexpr std::array<std::array<QPoint, 4>, 4> kCorners = {
    {{{{-1, -1}, {1, -1}, {-1, 1}, {1, 1}}},  // hourglass
     {{{-1, -1}, {-1, 1}, {1, -1}, {1, 1}}},  // bow tie
     {{{-1, -1}, {-1, 1}, {1, 0}, {1, 0}}},   // to the right
     {{{1, -1}, {1, 1}, {-1, 0}, {-1, 0}}}}}; // to the left
constexpr std::size_t kFormCount = kForms.size() + kCorners.size();

const Look& LookOf(std::size_t index)
{
    return kLooks[index % kLooks.size()];
}

QColor ColorOf(ChartColour colour)
{
    return {colour.red, colour.green, colour.blue};
}

QColor Translucent(const QColor& color, int opacity)
{
    QColor translucent(color);
    translucent.setAlpha(opacity);
    return translucent;
}

/// In the size in which the library takes a form of one's own.
QPolygonF CornersOf(std::size_t form)
{
    constexpr double kHalf = 3;
    QPolygonF corners;
    for (const QPoint& corner : kCorners[form])
        corners.append(QPointF(corner) * kHalf);
    return corners;
}

QCPScatterStyle MarkOf(std::size_t index, const QColor& color, bool isSmall)
{
    const QPen pen(color, isSmall ? kSmallMarkWidth : kMarkWidth);
    const QBrush brush(Translucent(color, kMarkOpacity));
    const double size = isSmall ? kSmallMarkSize : kMarkSize;
    const std::size_t form = index % kFormCount;
    if (form < kForms.size())
        return {kForms[form], pen, brush, size};
    QPainterPath path;
    path.addPolygon(CornersOf(form - kForms.size()));
    path.closeSubpath();
    return QCPScatterStyle(path, pen, brush, size);
}

/// Of a group of marks: one of those given, or its look's.
QColor GroupColor(std::span<const ChartColour> given, std::size_t group, std::size_t look)
{
    return group < given.size() ? ColorOf(given[group]) : QColor(LookOf(look + group).color);
}

/// A line that lies below groups is of no group's colour.
QPen FitPen(const ChartSeries& series, const Look& own, std::size_t groups)
{
    if (series.fitColour)
        return {ColorOf(*series.fitColour), kThinFitWidth, own.line};
    return {groups > 1 ? QColor(Qt::black) : QColor(own.color), kFitWidth, own.line};
}

/// A line without what lies outside of the axes: the library leads it around them, for fillings, which
/// pictures of vectors would show.
class SeenCurve : public QCPCurve
{
public:
    using QCPCurve::QCPCurve;

protected:
    void drawCurveLine(QCPPainter* painter, const QVector<QPointF>& lines) const override
    {
        const QRectF axes = EndToEnd(*keyAxis()->axisRect());
        const auto isOutside = [&axes](const QPointF& from, const QPointF& to) {
            return std::max(from.x(), to.x()) < axes.left() || std::min(from.x(), to.x()) > axes.right() ||
                   std::max(from.y(), to.y()) < axes.top() || std::min(from.y(), to.y()) > axes.bottom();
        };
        QVector<QPointF> run = lines.first(std::min<qsizetype>(1, lines.size()));
        for (qsizetype i = 1; i < lines.size(); ++i) {
            if (isOutside(lines[i - 1], lines[i])) {
                QCPCurve::drawCurveLine(painter, run);
                run.clear();
            }
            run.append(lines[i]);
        }
        QCPCurve::drawCurveLine(painter, run);
    }
};

QCPCurve* AddCurve(QCustomPlot& plot, const QList<QPointF>& points)
{
    QVector<QCPCurveData> data;
    data.reserve(points.size());
    for (const QPointF& point : points)
        data.append(QCPCurveData(static_cast<double>(data.size()), point.x(), point.y()));
    auto* curve = new SeenCurve(plot.xAxis, plot.yAxis);
    curve->data()->set(data, true);
    curve->setLineStyle(QCPCurve::lsNone);
    return curve;
}

QCPCurve* AddLine(QCustomPlot& plot, const QList<QPointF>& points, const QPen& pen)
{
    QCPCurve* curve = AddCurve(plot, points);
    curve->setLineStyle(QCPCurve::lsLine);
    curve->setPen(pen);
    return curve;
}

/// Pair i, as many of its points from `first` on as there are up to `count`.
QList<QPointF> Points(const ChartData& chart, std::size_t i, std::size_t first, std::size_t count)
{
    QList<QPointF> points;
    for (std::size_t row = first; row < std::min(first + count, chart.rows.size()); ++row)
        points.append({chart.rows[row][2 * i], chart.rows[row][2 * i + 1]});
    return points;
}

/// A line between points of which all are one is not seen.
bool IsPoint(const QList<QPointF>& points)
{
    return !points.isEmpty() && std::ranges::all_of(points, [&points](const QPointF& point) {
        return point.x() == points.front().x() && point.y() == points.front().y();
    });
}

/// A point that is seen whole at the end of an axis, too.
class WholePoint : public QCPCurve
{
public:
    using QCPCurve::QCPCurve;

protected:
    QRect clipRect() const override { return parentPlot()->viewport(); }
};

QCPCurve* AddLineOrPoint(QCustomPlot& plot, const QList<QPointF>& points, const Look& look)
{
    if (!IsPoint(points))
        return AddLine(plot, points, QPen(QColor(look.color), kLineWidth, look.line));
    auto* point = new WholePoint(plot.xAxis, plot.yAxis);
    point->addData(points.front().x(), points.front().y());
    point->setLineStyle(QCPCurve::lsNone);
    point->setScatterStyle({QCPScatterStyle::ssDisc, QColor(look.color), kMarkSize});
    return point;
}

/// Adds pair i with the looks from this one on, and gives the count of those that it took. What is added
/// later lies above.
std::size_t AddPair(QCustomPlot& plot, const ChartData& chart, std::size_t i, std::size_t look)
{
    const ChartSeries series = chart.Series(i);
    const std::size_t rows = chart.rows.size();
    const bool grouped = series.marks && series.colourGroup > 0;
    const std::size_t size = grouped ? static_cast<std::size_t>(series.colourGroup) : rows;
    const std::size_t groups = (rows + size - 1) / size;
    const Look& own = LookOf(look);
    QCPCurve* named = nullptr; // what stands in the legend
    if (const auto fit = FitLine(chart, i))
        named = AddLine(plot, {fit->At(fit->low), fit->At(fit->high)}, FitPen(series, own, groups));
    if (series.line)
        named = AddLineOrPoint(plot, Points(chart, i, 0, rows), own);
    for (std::size_t group = 0; series.marks && group < groups; ++group) {
        // Marks of one look belong to their line, in the legend, too.
        QCPCurve* marks =
            series.line && groups == 1 ? named : AddCurve(plot, Points(chart, i, group * size, size));
        marks->setScatterStyle(MarkOf(look + group, GroupColor(series.colours, group, look), rows > kMany));
        if (group == 0)
            named = marks;
    }
    if (named != nullptr && !series.name.isEmpty()) {
        named->setName(series.name);
        named->addToLegend();
    }
    return groups;
}

/// A hatched bar that ends just outside of the axes: pictures of vectors know no clipping.
class SeenBar : public QCPBars
{
public:
    SeenBar(const QCustomPlot& plot, double place, double lowest, double highest, const Look& look)
        : QCPBars(plot.xAxis, plot.yAxis), m_place(place), m_lowest(lowest), m_highest(highest), m_look(look)
    {
        setPen(QPen(QColor(look.color), kBarPen));
        setBrush(QBrush(Translucent(QColor(look.color), kBarOpacity)));
    }

protected:
    void draw(QCPPainter* painter) override
    {
        const QCPRange seen = valueAxis()->range();
        if (m_highest < seen.lower || m_lowest > seen.upper)
            return;
        const double beyond = std::fabs(valueAxis()->pixelToCoord(kBarPen) - valueAxis()->pixelToCoord(0));
        const double from = std::max(m_lowest, seen.lower - beyond);
        setBaseValue(from);
        const double height = std::min(m_highest, seen.upper + beyond) - from;
        data()->set({QCPBarsData(m_place, height)}, true);
        QCPBars::draw(painter);
        DrawHatch(painter, getBarRect(m_place, height));
    }
    void drawLegendIcon(QCPPainter* painter, const QRectF& rect) const override
    {
        QCPBars::drawLegendIcon(painter, rect);
        QRectF box(QPointF(), rect.size() * kIconPart);
        box.moveCenter(rect.center());
        DrawHatch(painter, box);
    }

private:
    void DrawHatch(QCPPainter* painter, const QRectF& box) const
    {
        painter->setPen(QPen(QColor(m_look.color), kHatchPen));
        painter->setBrush(Qt::NoBrush);
        painter->drawPath(HatchLines(m_look.hatch, box));
    }

    double m_place;
    double m_lowest;
    double m_highest;
    Look m_look;
};

/// A bar from the lowest to the highest number, and a line at the mean.
void AddBar(QCustomPlot& plot, const ChartData& chart, std::size_t i)
{
    const auto& row = chart.rows[i];
    const double place = static_cast<double>(i) + 1;
    auto* bar = new SeenBar(plot, place, row[1], row[0], LookOf(i));
    bar->setWidth(kBarWidth);
    bar->setName(chart.rowLabels.value(static_cast<qsizetype>(i)));
    bar->addToLegend();
    AddLine(plot, {{place - kBarWidth / 2, row[2]}, {place + kBarWidth / 2, row[2]}}, QPen(Qt::black, 2.5));
}

/// Grows to all that it is told of.
struct Span {
    std::optional<ChartScale> seen;

    void Add(double value)
    {
        if (!seen)
            seen = ChartScale{.minimum = value, .maximum = value};
        seen->minimum = std::min(seen->minimum, value);
        seen->maximum = std::max(seen->maximum, value);
    }
    ChartScale WithRoom() const
    {
        const ChartScale span = seen.value_or(ChartScale());
        const double room = (span.maximum - span.minimum) * kRoom;
        return {.minimum = span.minimum - room, .maximum = span.maximum + room};
    }
};

} // namespace

bool HasExtent(const ChartData& chart)
{
    if (chart.IsEmpty() || chart.type == ChartType::HighLow || chart.x.scale)
        return !chart.IsEmpty();
    const auto& first = chart.rows.front();
    return std::ranges::any_of(chart.rows, [&first](const auto& row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (row[i] != first[i % 2])
                return true;
        }
        return false;
    });
}

void AddSeries(QCustomPlot& plot, const ChartData& chart)
{
    if (chart.type == ChartType::HighLow) {
        for (std::size_t i = 0; i < chart.rows.size(); ++i)
            AddBar(plot, chart, i);
        return;
    }
    std::size_t look = 0;
    for (std::size_t i = 0; i < chart.SeriesCount(); ++i)
        look += AddPair(plot, chart, i, look);
}

ChartSpans SpansOf(const ChartData& chart)
{
    const bool bars = chart.type == ChartType::HighLow;
    Span x;
    Span y;
    for (const auto& row : chart.rows) {
        for (std::size_t col = 0; col < row.size(); ++col)
            (bars || col % 2 == 1 ? y : x).Add(row[col]);
    }
    for (std::size_t i = 0; !bars && i < chart.SeriesCount(); ++i) {
        if (const auto fit = FitLine(chart, i)) {
            y.Add(fit->At(fit->low).y());
            y.Add(fit->At(fit->high).y());
        }
    }
    if (chart.x.showsZero)
        x.Add(0);
    if (chart.y.showsZero)
        y.Add(0);
    return {.x = x.WithRoom(), .y = y.WithRoom()};
}
