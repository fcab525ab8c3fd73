#include "framework/chart/PlotTicks.h"

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>

namespace
{

/// From this on numbers have an exponent.
constexpr double kLargestPlain = 1e16;
/// Of a number that has no neighbours to be told apart from.
constexpr int kDigits = 6;
constexpr double kBetweenLabels = 8;

/// A range that is not empty: QCustomPlot can't show one.
QCPRange RangeOf(const ChartScale& scale)
{
    if (scale.maximum > scale.minimum)
        return {scale.minimum, scale.maximum};
    const double around = std::max(std::fabs(scale.minimum) * 1e-3, 1e-9);
    return {scale.minimum - around, scale.minimum + around};
}

/// So many decimals that a label lies within a twentieth of a step of its tick.
int DecimalsOf(double step)
{
    return std::clamp(static_cast<int>(std::ceil(1 - std::log10(step))), 0, 15);
}

QString TickLabel(const QLocale& locale, double tick, int decimals)
{
    if (std::fabs(tick) >= kLargestPlain)
        return locale.toString(tick, 'g', kDigits);
    const bool isZero = std::fabs(tick) * 2 < std::pow(10, -decimals); // which has no sign
    return locale.toString(isZero ? 0 : tick, 'f', decimals);
}

/// Where the labels are centred, and what they take of the axis.
struct LabelPlaces {
    QVector<double> middles;
    QVector<double> widths;

    bool HaveRoom(qsizetype first, qsizetype step) const
    {
        for (qsizetype i = first + step; i < middles.size(); i += step) {
            const double between = std::fabs(middles[i] - middles[i - step]);
            if (between < (widths[i] + widths[i - step]) / 2)
                return false;
        }
        return true;
    }
};

LabelPlaces PlacesOf(const QCPAxis& axis, const QVector<double>& ticks, const QVector<QString>& labels)
{
    const QFontMetricsF metrics(axis.tickLabelFont());
    const bool across = axis.orientation() == Qt::Horizontal;
    LabelPlaces places;
    for (qsizetype i = 0; i < ticks.size(); ++i) {
        places.middles += axis.coordToPixel(ticks[i]);
        places.widths += across ? metrics.horizontalAdvance(labels[i]) + kBetweenLabels : metrics.height();
    }
    return places;
}

/// Leaves each second, third... of the labels, as many as don't touch each other: both ends, or those that
/// count from the tick next to 0. The ticks stay.
void ThinOut(const QCPAxis& axis, const QVector<double>& ticks, QVector<QString>& labels, bool ends)
{
    const auto magnitude = [](double tick) { return std::fabs(tick); };
    const qsizetype origin = ends ? 0 : std::ranges::min_element(ticks, {}, magnitude) - ticks.begin();
    const LabelPlaces places = PlacesOf(axis, ticks, labels);
    qsizetype step = 1;
    while (step < ticks.size() &&
           ((ends && (ticks.size() - 1) % step != 0) || !places.HaveRoom(origin % step, step)))
        ++step;
    for (qsizetype i = 0; i < labels.size(); ++i) {
        if (i % step != origin % step)
            labels[i].clear();
    }
}

/// A ticker whose labels are thinned out where there is too little room.
template<typename Ticker>
class Thinned : public Ticker
{
public:
    explicit Thinned(const QCPAxis* axis, bool ends = false) : m_axis(axis), m_ends(ends) {}

    void generate(const QCPRange& range, const QLocale& locale, QChar format, int precision,
                  QVector<double>& ticks, QVector<double>* subTicks, QVector<QString>* labels) override
    {
        Ticker::generate(range, locale, format, precision, ticks, subTicks, labels);
        if (labels != nullptr)
            ThinOut(*m_axis, ticks, *labels, m_ends);
    }

private:
    const QCPAxis* m_axis; ///< that owns this ticker
    bool m_ends;
};

using TextTicker = Thinned<QCPAxisTickerText>;

/// Ticks at round numbers, with the decimals that their step has.
class RoundTicker : public QCPAxisTicker
{
protected:
    double getTickStep(const QCPRange& range) override
    {
        const double step = QCPAxisTicker::getTickStep(range);
        m_decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 15);
        const double inLast = step * std::pow(10, m_decimals);
        if (std::fabs(inLast - std::round(inLast)) > 1e-6) // 2.5 and its like
            ++m_decimals;
        return step;
    }
    QString getTickLabel(double tick, const QLocale& locale, QChar, int) override
    {
        return TickLabel(locale, tick, m_decimals);
    }

private:
    int m_decimals = 0;
};

void ShowTexts(QCPAxis* axis, const QSharedPointer<TextTicker>& ticker)
{
    axis->setTicker(ticker);
    axis->setSubTicks(false);
}

/// The labels at the ends stand half beside the axis.
void LeaveRoomFor(QCPAxis* axis, const QString& first, const QString& last)
{
    if (axis->orientation() != Qt::Horizontal)
        return;
    const QFontMetrics metrics(axis->tickLabelFont());
    const auto half = [&](const QString& label) {
        return metrics.horizontalAdvance(label) / 2 + kChartMargin;
    };
    axis->axisRect()->setMinimumMargins({half(first), kChartMargin, half(last), kChartMargin});
}

/// Ticks from end to end, the ends included.
void ShowDivisions(QCPAxis* axis, int count)
{
    const QCPRange range = axis->range();
    const QLocale locale = axis->parentPlot()->locale();
    const int decimals = DecimalsOf(range.size() / count);
    // Ticks by their numbers: counted in steps, the outer ones could fall beside the ends by rounding.
    const QSharedPointer<TextTicker> ticker(new TextTicker(axis, true));
    for (int i = 0; i <= count; ++i) {
        const double at = i == count ? range.upper : range.lower + range.size() * i / count;
        ticker->addTick(at, TickLabel(locale, at, decimals));
    }
    ShowTexts(axis, ticker);
    LeaveRoomFor(axis, TickLabel(locale, range.lower, decimals), TickLabel(locale, range.upper, decimals));
}

/// One number, at both ends.
void ShowEqualEnds(QCPAxis* axis, double value)
{
    const QLocale locale = axis->parentPlot()->locale();
    const bool isLong = std::fabs(value) >= std::pow(10, kDigits);
    const QString label = isLong ? TickLabel(locale, value, 0) : locale.toString(value, 'g', kDigits);
    const QSharedPointer<TextTicker> ticker(new TextTicker(axis, true));
    ticker->addTick(axis->range().lower, label);
    ticker->addTick(axis->range().upper, label);
    ShowTexts(axis, ticker);
    LeaveRoomFor(axis, label, label);
}

} // namespace

QLocale LocaleOf(const QString& decSep)
{
    QLocale locale = decSep == u"," ? QLocale(QLocale::Italian, QLocale::Italy) : QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

QRectF EndToEnd(const QCPAxisRect& axes)
{
    constexpr double kRounding = 0.5;
    return QRectF(axes.rect()).translated(0, -1).adjusted(-kRounding, -kRounding, kRounding, kRounding);
}

bool HasEqualEnds(const ChartAxis& data)
{
    return data.scale && !(data.scale->maximum > data.scale->minimum);
}

void SetScale(QCPAxis* axis, const ChartAxis& data, const ChartScale& needed)
{
    axis->setRange(RangeOf(data.scale.value_or(needed)));
    if (HasEqualEnds(data))
        ShowEqualEnds(axis, data.scale->minimum);
    else if (data.majorDivisions == 0)
        ShowRoundTicks(axis);
    else
        ShowDivisions(axis, data.majorDivisions);
}

void ShowRoundTicks(QCPAxis* axis)
{
    axis->setTicker(QSharedPointer<QCPAxisTicker>(new Thinned<RoundTicker>(axis)));
    axis->setSubTicks(true);
}

void ShowPlaces(QCPAxis* axis, const QStringList& labels, std::size_t count)
{
    const QSharedPointer<TextTicker> ticker(new TextTicker(axis));
    for (qsizetype i = 0; i < labels.size(); ++i)
        ticker->addTick(static_cast<double>(i) + 1, labels[i]);
    ShowTexts(axis, ticker);
    axis->setRange(0.5, static_cast<double>(count) + 0.5);
}
