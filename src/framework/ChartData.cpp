#include "framework/ChartData.h"

#include "framework/NumberFormat.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// Numbers under the pointer have this many significant digits: what one can tell apart on a screen.
constexpr int kShownDigits = 5;

QString Short(double value, QStringView decSep)
{
    return GeneralText(RoundToSignificant(value, kShownDigits), decSep);
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
    return u"x = %1; y = %2"_s.arg(Short((*nearest)[0], decSep), Short((*nearest)[1], decSep));
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
        parts += u"%1: da %2 a %3"_s.arg(chart.x.title, Short(chart.x.scale->minimum, decSep),
                                         Short(chart.x.scale->maximum, decSep));
    }
    return parts.join(u"; "_s);
}
