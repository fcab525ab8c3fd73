#include "framework/chart/ChartData.h"

#include "framework/text/NumberText.h"

#include <algorithm>
#include <cmath>

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

ChartScale SpanOfColumn(const ChartData& chart, std::size_t col)
{
    const auto [low, high] = std::ranges::minmax_element(
        chart.rows, {}, [col](const std::vector<double>& row) { return row[col]; });
    return {.minimum = (*low)[col], .maximum = (*high)[col]};
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

QString NearestPoint(const ChartData& chart, double x, QStringView decSep)
{
    const auto nearest = std::ranges::min_element(
        chart.rows, {}, [x](const std::vector<double>& row) { return std::fabs(row[0] - x); });
    return u"x = %1; y = %2"_s.arg(Short((*nearest)[0], SpanOfColumn(chart, 0), decSep),
                                   Short((*nearest)[1], SpanOfColumn(chart, 1), decSep));
}

} // namespace

QString ChartValueText(const ChartData& chart, const QPointF& at, QStringView decSep)
{
    if (chart.IsEmpty())
        return {};
    return chart.type == ChartType::HighLow ? NearestBar(chart, at.x(), decSep)
                                            : NearestPoint(chart, at.x(), decSep);
}

QString ChartDescription(const ChartData& chart, QStringView decSep)
{
    if (chart.IsEmpty())
        return u"Nessun grafico"_s;
    QStringList parts{chart.title};
    if (chart.type == ChartType::HighLow) {
        for (std::size_t row = 0; row < chart.rows.size(); ++row)
            parts += BarText(chart, row, decSep);
    } else if (chart.x.scale) {
        parts += u"%1: da %2 a %3"_s.arg(chart.x.title, Short(chart.x.scale->minimum, *chart.x.scale, decSep),
                                         Short(chart.x.scale->maximum, *chart.x.scale, decSep));
    }
    return parts.join(u"; "_s);
}
