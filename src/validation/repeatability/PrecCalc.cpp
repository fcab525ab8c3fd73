#include "validation/repeatability/PrecCalc.h"

#include "stats/CheckedArithmetic.h"
#include "stats/CriticalValues.h"
#include "stats/Statistics.h"

namespace
{
constexpr int kCurvePoints = 1000;
constexpr double kCurveSpan = 8; // standard deviations
} // namespace

std::optional<PrecResults> CalcRepeatability(std::span<const double> values)
{
    if (SumArray(values) == 0)
        return std::nullopt;
    const Int16 n = CountOf(values);
    const Int16 gdl = n - Int16(1);
    const double t = ValoreT(n.Value(), 1);
    BaseStatistics base;
    CalcStatBase(values, base);
    const double s = Sqrt(base.variance).Value();
    const ConfidenceLimits limits = CalcLimConf(values, base.mean, s, base.cv, t);
    return PrecResults{.mean = base.mean,
                       .variance = base.variance,
                       .s = s,
                       .cv = base.cv,
                       .gdl = gdl.Value(),
                       .t = t,
                       .lower = limits.lower,
                       .upper = limits.upper,
                       .width = limits.width,
                       .percent = limits.percent};
}

std::vector<std::vector<double>> PrecisionCurve(double mean, double s, double shownS)
{
    const Real span = Real(shownS) * kCurveSpan;
    const Real step = span / kCurvePoints;
    const Real last = Real(mean) + span / 2.0;
    std::vector<std::vector<double>> points;
    points.reserve(kCurvePoints);
    // Each x is the one before and a step; a span of 0 gives the same point all along.
    for (Real x = Real(mean) - span / 2.0; points.size() < kCurvePoints && x <= last; x += step)
        points.push_back({x.Value(), DensGauss(x.Value(), mean, s)});
    return points;
}
