#include "stats/Statistics.h"

#include "stats/CheckedArithmetic.h"

#include <vector>

namespace
{

// Deliberate: rounded, and used as they stand. Their last digit is part of the results.
constexpr double kTwoPi = 6.283186;
constexpr double kPi = 3.141593;

constexpr double kLargestTerm = 1e100;

/// Downward, toward minus infinity.
Real FloorToThreeDecimals(Real x)
{
    return Floor(x * 1000.0) / 1000.0;
}

/// 2 / (9 gdl), the variance term of the cube-root approximation.
Real CubeRootTerm(Int16 gdl)
{
    return Real(2.0) / Real(Int16(9) * gdl);
}

/// Sums of every second logarithm, each formed afresh from its largest argument down: the order of the
/// additions is part of the result, so that no sum is built on another. The logarithms are taken once.
class LogSums
{
public:
    explicit LogSums(int largest) : m_log(static_cast<std::size_t>(largest) + 1)
    {
        for (std::size_t i = 1; i < m_log.size(); ++i)
            m_log[i] = Ln(static_cast<double>(i)).Value();
    }

    /// ln(from) + ln(from - 2) + ... as long as the argument is at least `last`.
    Real Down(int from, int last) const
    {
        double sum = 0;
        for (int i = from; i >= last; i -= 2)
            sum += m_log[static_cast<std::size_t>(i)];
        return Real(sum);
    }

private:
    std::vector<double> m_log;
};

/// The sum over k = gdl - 2, gdl - 4, ... of exp(L1 - L2) cos(theta)^k, L1 from k - 1 down, L2 from k down.
Real CosineSeries(Int16 gdl, Real cosine)
{
    const int first = gdl.Value() - 2;
    const bool even = first % 2 == 0;
    if (first < 2)
        return 0.0;
    const LogSums logs(first);
    Real sum = 0.0;
    for (int k = first; k >= 2; k -= 2) {
        const Real l1 = logs.Down(k - 1, even ? 1 : 2);
        const Real l2 = logs.Down(k, even ? 2 : 1);
        sum += Exp(l1 - l2) * Power(cosine, static_cast<double>(k));
    }
    return sum;
}

} // namespace

std::int16_t CountOf(std::span<const double> values)
{
    return Int16::FromWide(static_cast<std::int64_t>(values.size())).Value();
}

double SumArray(std::span<const double> values)
{
    Real sum = 0.0;
    for (const double value : values)
        sum += value;
    return sum.Value();
}

void CalcStatBase(std::span<const double> values, BaseStatistics& results)
{
    const Int16 n = CountOf(values);
    Real s = 0.0;
    Real q = 0.0;
    for (const double value : values) {
        s += value;
        q += Square(value);
    }
    const Real mean = s / n;
    if (mean == 0.0)
        return;
    const Real variance = Abs((q - Square(s) / n) / Real(n - Int16(1)));
    const Real cv = Sqrt(variance) * 100.0 / mean;
    results = {mean.Value(), variance.Value(), cv.Value()};
}

ConfidenceLimits CalcLimConf(std::span<const double> values, double mean, double stdDev, double /*cv*/,
                             double t)
{
    const Real rn = Sqrt(Real(Int16(CountOf(values))));
    const Real half = FloorToThreeDecimals(Real(stdDev) * t / rn);
    const Real percent = FloorToThreeDecimals(Real(stdDev) * t * 100.0 / (rn * mean));
    return {.lower = (Real(mean) - half).Value(),
            .upper = (Real(mean) + half).Value(),
            .width = (half + half).Value(),
            .percent = percent.Value()};
}

double DensGauss(double x, double mean, double sigma)
{
    if (sigma == 0)
        return 0;
    const Real power = -Square(Real(x) - mean) / (Real(2.0) * Square(sigma));
    return (Exp(power) / (Sqrt(kTwoPi) * sigma)).Value();
}

double ProbF(double f, std::int16_t gdl1, std::int16_t gdl2)
{
    const Real a = CubeRootTerm(gdl1);
    const Real b = CubeRootTerm(gdl2);
    const Real root = Power(Abs(f), 1.0 / 3.0);
    const Real c = f < 0 ? -root : root;
    const Real numerator = c * (Real(1.0) - b) - 1.0 + a;
    const Real denominator = Sqrt(Abs(Power(Abs(f), 2.0 / 3.0) * b + a));
    Real z = numerator / denominator;
    const bool negative = z < 0.0;
    z = Abs(z);

    const Real y = Square(z);
    const Real phi = Exp(-y / 2.0) / Sqrt(kTwoPi);
    Real term = z;
    Real sum = z;
    Real previous = z;
    Int16 k = 1;
    do {
        k = k + Int16(2);
        previous = sum;
        term = term / k * y;
        sum += term;
        if (term > kLargestTerm)
            return kNoProbability;
    } while (sum > previous);

    const Real p = Real(0.5) - sum * phi;
    return (negative ? Real(1.0) - p : p).Value();
}

double ProbT(double t, std::int16_t gdl)
{
    const Real angle = std::atan((Abs(t) / Sqrt(Int16(gdl))).Value());
    const Real sine = std::sin(angle.Value());
    const Real cosine = std::cos(angle.Value());
    Real a = 0.0;
    if (gdl % 2 == 0)
        a = (Real(1.0) + CosineSeries(gdl, cosine)) * sine;
    else if (gdl == 1)
        a = Real(2.0) * angle / kPi;
    else
        a = ((cosine + CosineSeries(gdl, cosine)) * sine + angle) * 2.0 / kPi;
    return (Real(1.0) - a).Value();
}
