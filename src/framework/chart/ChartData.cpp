#include "framework/chart/ChartData.h"

#include "framework/chart/FittedLine.h"
#include "framework/text/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

/// What one can see on a screen is a thousandth of the span; a fitted line is told apart from a point that
/// seems to lie on it.
constexpr int kSeenDigits = 3;
constexpr int kLineDigits = 5;

/// As many decimals as tell parts of the span apart: with 3 digits a thousandth of it.
QString Short(double value, const ChartScale& span, QStringView decSep, int digits = kSeenDigits)
{
    const double width = span.maximum - span.minimum;
    if (!(width > 0))
        return GeneralText(value, decSep);
    const int decimals = static_cast<int>(std::ceil(digits - std::log10(width)));
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

struct Spans {
    ChartScale x;
    ChartScale y;
};

/// A pair of columns, and a row.
struct Place {
    std::size_t pair = 0;
    std::size_t row = 0;
};

Place NearestPlace(const ChartData& chart, const QPointF& at, const Spans& spans)
{
    const bool alongX = chart.SeriesCount() == 1 && !chart.Series(0).marks;
    double least = std::numeric_limits<double>::infinity();
    Place nearest;
    for (std::size_t i = 0; i < chart.SeriesCount(); ++i) {
        for (std::size_t row = 0; row < chart.rows.size(); ++row) {
            const double distance =
                std::hypot(Distance(chart.rows[row][2 * i], at.x(), spans.x),
                           alongX ? 0 : Distance(chart.rows[row][2 * i + 1], at.y(), spans.y));
            if (distance < least) {
                least = distance;
                nearest = {.pair = i, .row = row};
            }
        }
    }
    return nearest;
}

bool HasQuantities(const ChartData& chart)
{
    return !chart.x.quantity.isEmpty() || !chart.y.quantity.isEmpty();
}

/// "misure", "Gruppo 2", "misure, gruppo 2": what the point belongs to.
QString OwnerText(const ChartData& chart, const Place& place)
{
    const ChartSeries series = chart.Series(place.pair);
    if (!HasQuantities(chart) || series.colourGroup <= 0)
        return series.name;
    const QString number = QString::number(place.row / static_cast<std::size_t>(series.colourGroup) + 1);
    return series.name.isEmpty() ? u"Gruppo "_s + number : series.name + u", gruppo "_s + number;
}

QString PointText(const ChartData& chart, const Place& place, const Spans& spans, QStringView decSep)
{
    const auto named = [](const ChartAxis& axis, QLatin1StringView letter, const QString& number) {
        return axis.quantity.isEmpty() ? letter + u" = "_s + number : axis.quantity + u' ' + number;
    };
    // Marks are what was measured: as it was typed.
    const bool whole = HasQuantities(chart) && chart.Series(place.pair).marks;
    const auto number = [&](double value, const ChartScale& span) {
        return whole ? GeneralText(value, decSep) : Short(value, span, decSep);
    };
    const auto& row = chart.rows[place.row];
    const double x = row[2 * place.pair];
    QStringList parts = {named(chart.x, "x"_L1, number(x, spans.x)),
                         named(chart.y, "y"_L1, number(row[2 * place.pair + 1], spans.y))};
    if (const auto fit = HasQuantities(chart) ? FitLine(chart, place.pair) : std::nullopt)
        parts += u"retta "_s + Short(fit->At(x).y(), spans.y, decSep, kLineDigits);
    const QString owner = OwnerText(chart, place);
    return (owner.isEmpty() ? QString() : owner + u": "_s) + parts.join(u"; "_s);
}

QString NearestPoint(const ChartData& chart, const QPointF& at, QStringView decSep)
{
    const Spans spans{.x = SpanOf(chart, 0), .y = SpanOf(chart, 1)};
    return PointText(chart, NearestPlace(chart, at, spans), spans, decSep);
}

/// "gruppi: 5", "retta (misure): risposta da 1000 a 5000".
QStringList SeriesTexts(const ChartData& chart, std::size_t i, QStringView decSep)
{
    QStringList texts;
    const ChartSeries series = chart.Series(i);
    const QString name = series.name.isEmpty() ? QString() : u" (%1)"_s.arg(series.name);
    if (const auto size = static_cast<std::size_t>(series.colourGroup); series.marks && size > 0)
        texts += u"gruppi%1: %2"_s.arg(name, QString::number((chart.rows.size() + size - 1) / size));
    if (const auto fit = FitLine(chart, i)) {
        const ChartScale span = SpanOf(chart, 1);
        const auto at = [&](double x) { return Short(fit->At(x).y(), span, decSep, kLineDigits); };
        const QString quantity = chart.y.quantity.isEmpty() ? QString() : chart.y.quantity + u' ';
        texts += u"retta%1: %2da %3 a %4"_s.arg(name, quantity, at(fit->low), at(fit->high));
    }
    return texts;
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
    for (std::size_t i = 0; chart.type == ChartType::XY && i < chart.SeriesCount(); ++i)
        parts += SeriesTexts(chart, i, decSep);
    QStringList names = chart.SeriesNames();
    names.removeAll(QString());
    if (!names.isEmpty())
        parts += u"serie: "_s + names.join(u", "_s);
    return parts.join(u"; "_s);
}
