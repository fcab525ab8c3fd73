#include "validation/repeatability/PrecCalc.h"

#include "stats/CheckedArithmetic.h"
#include "stats/CriticalValues.h"
#include "stats/Statistics.h"

namespace
{
constexpr int kCurvePoints = 1000;
constexpr double kCurveSpan = 8; // standard deviations
} // namespace

std::optional<PrecResults> CalcPrec(std::span<const double> values)
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

PrecCurve PrecisionCurve(double mean, double s, double shownS)
{
    const Real span = Real(shownS) * kCurveSpan;
    const Real step = span / kCurvePoints;
    const Real first = Real(mean) - span / 2.0;
    const Real last = Real(mean) + span / 2.0;
    PrecCurve curve{
        .first = first.Value(), .last = last.Value(), .peak = DensGauss(mean, mean, s), .points = {}};
    curve.points.reserve(kCurvePoints);
    // Each x is the one before and a step; a span of 0 gives the same point all along.
    for (Real x = first; curve.points.size() < kCurvePoints && x <= last; x += step)
        curve.points.push_back({x.Value(), DensGauss(x.Value(), mean, s)});
    return curve;
}
