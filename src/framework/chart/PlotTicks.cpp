#include "framework/chart/PlotTicks.h"

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>

namespace
{

/// From this on numbers have an exponent.
constexpr double kLargestPlain = 1e16;

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
    return std::fabs(tick) < kLargestPlain ? locale.toString(tick, 'f', decimals)
                                           : locale.toString(tick, 'g', 6);
}

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

/// Ticks from end to end, the ends included.
void ShowDivisions(QCPAxis* axis, int count)
{
    const QCPRange range = axis->range();
    const QLocale locale = axis->parentPlot()->locale();
    const int decimals = DecimalsOf(range.size() / count);
    // Ticks by their numbers: counted in steps, the outer ones could fall beside the ends by rounding.
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (int i = 0; i <= count; ++i) {
        const double at = i == count ? range.upper : range.lower + range.size() * i / count;
        ticker->addTick(at, TickLabel(locale, at, decimals));
    }
    axis->setTicker(ticker);
    axis->setSubTicks(false);
    // The labels at the ends stand half beside the axis.
    const QFontMetrics metrics(axis->tickLabelFont());
    const auto half = [&](double end) {
        return metrics.horizontalAdvance(TickLabel(locale, end, decimals)) / 2 + kChartMargin;
    };
    if (axis->orientation() == Qt::Horizontal)
        axis->axisRect()->setMinimumMargins(
            {half(range.lower), kChartMargin, half(range.upper), kChartMargin});
}

} // namespace

QLocale LocaleOf(const QString& decSep)
{
    QLocale locale = decSep == u"," ? QLocale(QLocale::Italian, QLocale::Italy) : QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

void SetScale(QCPAxis* axis, const ChartScale& scale, int majorDivisions)
{
    axis->setRange(RangeOf(scale));
    if (majorDivisions == 0)
        ShowRoundTicks(axis);
    else
        ShowDivisions(axis, majorDivisions);
}

void ShowRoundTicks(QCPAxis* axis)
{
    axis->setTicker(QSharedPointer<QCPAxisTicker>(new RoundTicker));
    axis->setSubTicks(true);
}

void ShowPlaces(QCPAxis* axis, const QStringList& labels, std::size_t count)
{
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (qsizetype i = 0; i < labels.size(); ++i)
        ticker->addTick(static_cast<double>(i) + 1, labels[i]);
    axis->setTicker(ticker);
    axis->setSubTicks(false);
    axis->setRange(0.5, static_cast<double>(count) + 0.5);
}
