#include "validation/specificity/SpecCalc.h"

#include "stats/CheckedArithmetic.h"
#include "stats/RuntimeFailure.h"
#include "stats/Statistics.h"

#include <algorithm>

namespace
{

/// The t test of the means, and its degrees of freedom.
struct MeanTest {
    Real t = 0.0;
    Int16 gdl = 0;
};

MeanTest WithPooledVariance(Int16 nA, Int16 nB, const SpecGroup& a, const SpecGroup& b)
{
    const Int16 gdl = nA + nB - Int16(2);
    const Real sp = Sqrt((Real(nB - Int16(1)) * b.variance + Real(nA - Int16(1)) * a.variance) / gdl);
    const Real t = Abs(Real(a.mean) - b.mean) / (Sqrt(Real(1.0) / nB + Real(1.0) / nA) * sp);
    return {.t = t, .gdl = gdl};
}

MeanTest WithSeparateVariances(Int16 nA, Int16 nB, const SpecGroup& a, const SpecGroup& b)
{
    const Real wA = Real(a.variance) / nA;
    const Real wB = Real(b.variance) / nB;
    const Real w = wA + wB;
    const Real t = Abs(Real(a.mean) - b.mean) / Sqrt(w);
    const Real g = Square(w) / (Square(wA) / nA + Square(wB) / nB);
    const Real rounded = Floor(g + 0.5);
    if (rounded > 32767.0)
        throw RuntimeFailure(FailureKind::Overflow);
    return {.t = t, .gdl = Int16::FromWide(static_cast<std::int64_t>(rounded.Value()))};
}

/// The limits of the mean, into the group.
void TakeLimits(SpecGroup& group, std::span<const double> values, double cv, double t)
{
    const ConfidenceLimits limits = CalcLimConf(values, group.mean, Sqrt(group.variance).Value(), cv, t);
    group.lower = limits.lower;
    group.upper = limits.upper;
}

} // namespace

double TestVarianze(std::int16_t nA, std::int16_t nB, double varA, double varB, bool& invalid)
{
    invalid = varA == 0 && varB == 0;
    if (invalid)
        return kNoProbability;
    const bool aIsLarger = varA >= varB;
    const double larger = std::max(varA, varB);
    const double smaller = std::min(varA, varB);
    const double f = smaller == 0 ? 0 : (Real(larger) / smaller).Value();
    const std::int16_t gdlA = (Int16(nA) - Int16(1)).Value();
    const std::int16_t gdlB = (Int16(nB) - Int16(1)).Value();
    return aIsLarger ? ProbF(f, gdlA, gdlB) : ProbF(f, gdlB, gdlA);
}

SpecResults CalcSpec(std::span<const double> a, std::span<const double> b)
{
    const Int16 nA = CountOf(a);
    const Int16 nB = CountOf(b);
    BaseStatistics baseA;
    BaseStatistics baseB;
    CalcStatBase(a, baseA);
    CalcStatBase(b, baseB);
    const double tA = ValoreT(nA.Value(), 1);
    const double tB = ValoreT(nB.Value(), 1);

    SpecResults results;
    results.a = {.mean = baseA.mean, .variance = baseA.variance};
    results.b = {.mean = baseB.mean, .variance = baseB.variance};
    bool invalid = false;
    results.pF = TestVarianze(nA.Value(), nB.Value(), baseA.variance, baseB.variance, invalid);
    if (results.pF == kNoProbability) {
        results.end = invalid ? SpecEnd::NoVariance : SpecEnd::Overflow;
        return results;
    }
    const auto [smaller, larger] = std::minmax(baseA.variance, baseB.variance);
    results.f = smaller == 0 ? 0 : (Real(larger) / smaller).Value();
    const MeanTest test = results.pF >= kAlpha ? WithPooledVariance(nA, nB, results.a, results.b)
                                               : WithSeparateVariances(nA, nB, results.a, results.b);
    results.t = test.t.Value();
    results.gdl = test.gdl.Value();
    results.pT = ProbT(results.t, test.gdl.Value());
    TakeLimits(results.a, a, baseA.cv, tA);
    TakeLimits(results.b, b, baseB.cv, tB);
    return results;
}
