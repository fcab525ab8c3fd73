#include "framework/chart/ChartData.h"

#include "framework/text/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

/// As many decimals as tell a thousandth of the span apart: what one can see on a screen.
QString Short(double value, const ChartScale& span, QStringView decSep)
{
    const double width = span.maximum - span.minimum;
    if (!(width > 0))
        return GeneralText(value, decSep);
    const int decimals = static_cast<int>(std::ceil(3 - std::log10(width)));
    return GeneralText(RoundToDecimals(value, std::max(decimals, 0)), decSep);
}

/// What all series span: of 0 along x, of 1 along y.
ChartScale SpanOf(const ChartData& chart, std::size_t axis)
{
    ChartScale span{.minimum = chart.rows.front()[axis], .maximum = chart.rows.front()[axis]};
    for (const auto& row : chart.rows) {
        for (std::size_t col = axis; col < row.size(); col += 2) {
            span.minimum = std::min(span.minimum, row[col]);
            span.maximum = std::max(span.maximum, row[col]);
        }
    }
    return span;
}

/// How far apart two numbers are, as a part of what the axis spans.
double Distance(double one, double other, const ChartScale& span)
{
    const double width = span.maximum - span.minimum;
    return std::fabs(one - other) / (width > 0 ? width : 1);
}

QString BarText(const ChartData& chart, std::size_t row, QStringView decSep)
{
    const auto& values = chart.rows[row];
    return u"%1: da %2 a %3, media %4"_s.arg(chart.rowLabels.value(static_cast<qsizetype>(row)),
                                             GeneralText(values[1], decSep), GeneralText(values[0], decSep),
                                             GeneralText(values[2], decSep));
}

/// The bar whose place, counted from 1, is nearest.
QString NearestBar(const ChartData& chart, double x, QStringView decSep)
{
    const double place = std::round(x);
    if (place < 1 || place > static_cast<double>(chart.rows.size()))
        return {};
    return BarText(chart, static_cast<std::size_t>(place) - 1, decSep);
}

QString NearestPoint(const ChartData& chart, const QPointF& at, QStringView decSep)
{
    const ChartScale spanX = SpanOf(chart, 0);
    const ChartScale spanY = SpanOf(chart, 1);
    const bool alongX = chart.SeriesCount() == 1 && !chart.Series(0).marks;
    double least = std::numeric_limits<double>::infinity();
    QPointF nearest;
    QString name;
    for (std::size_t i = 0; i < chart.SeriesCount(); ++i) {
        for (const auto& row : chart.rows) {
            const QPointF point(row[2 * i], row[2 * i + 1]);
            const double distance = std::hypot(Distance(point.x(), at.x(), spanX),
                                               alongX ? 0 : Distance(point.y(), at.y(), spanY));
            if (distance < least) {
                least = distance;
                nearest = point;
                name = chart.Series(i).name;
            }
        }
    }
    const QString values =
        u"x = %1; y = %2"_s.arg(Short(nearest.x(), spanX, decSep), Short(nearest.y(), spanY, decSep));
    return name.isEmpty() ? values : name + u": "_s + values;
}

QString AxisText(const QString& title, const ChartScale& scale, QStringView decSep)
{
    const QString ends =
        u"da %1 a %2"_s.arg(Short(scale.minimum, scale, decSep), Short(scale.maximum, scale, decSep));
    return title.isEmpty() ? ends : title + u": "_s + ends;
}

} // namespace

QStringList ChartData::SeriesNames() const
{
    QStringList names;
    for (const ChartSeries& each : series)
        names += each.name;
    const bool any = std::ranges::any_of(names, [](const QString& each) { return !each.isEmpty(); });
    return any ? names : QStringList();
}

QString ChartValueText(const ChartData& chart, const QPointF& at, QStringView decSep)
{
    if (chart.IsEmpty())
        return {};
    return chart.type == ChartType::HighLow ? NearestBar(chart, at.x(), decSep)
                                            : NearestPoint(chart, at, decSep);
}

std::vector<QPointF> ChartPoints(const ChartData& chart)
{
    std::vector<QPointF> points;
    const bool bars = chart.type == ChartType::HighLow;
    for (std::size_t i = 0; i < (bars ? 1 : chart.SeriesCount()); ++i) {
        for (const auto& row : chart.rows) {
            const double place = static_cast<double>(points.size()) + 1;
            points.push_back(bars ? QPointF(place, row[2]) : QPointF(row[2 * i], row[2 * i + 1]));
        }
    }
    return points;
}

QString ChartDescription(const ChartData& chart, QStringView decSep)
{
    if (chart.IsEmpty())
        return u"Nessun grafico"_s;
    QStringList parts;
    if (!chart.title.isEmpty())
        parts += chart.title;
    if (chart.type == ChartType::HighLow) {
        for (std::size_t row = 0; row < chart.rows.size(); ++row)
            parts += BarText(chart, row, decSep);
    } else if (chart.x.scale) {
        parts += AxisText(chart.x.title, *chart.x.scale, decSep);
    } else if (!chart.series.empty()) {
        parts += AxisText(chart.x.title, SpanOf(chart, 0), decSep);
    }
    QStringList names = chart.SeriesNames();
    names.removeAll(QString());
    if (!names.isEmpty())
        parts += u"serie: "_s + names.join(u", "_s);
    return parts.join(u"; "_s);
}
