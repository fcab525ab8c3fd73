#include "stats/CriticalValues.h"

#include "stats/CheckedArithmetic.h"

#include <array>

namespace
{

/// Upper 5 % points of F for an infinite gdl2, at gdl1 = 1, 2, 3: what stands beyond the table.
constexpr std::array kLimitsOfF = {3.84, 3.0, 2.6};

/// Two-sided 5 % points of t at 1, 2, 3, 4 degrees of freedom, where the series is not good enough.
constexpr std::array kSmallT = {12.706, 4.303, 3.182, 2.776};

double FromTable(std::int16_t gdl1, std::int16_t gdl2, FTable& table)
{
    if (const auto found = table.Find(gdl1, gdl2))
        return *found;
    return gdl1 >= 1 ? kLimitsOfF[static_cast<std::size_t>(gdl1 - 1)] : 0.0;
}

/// Cornish-Fisher expansion of Fisher's z = ln(F) / 2 at the 5 % point.
Real FisherZ(Int16 gdl1, Int16 gdl2)
{
    const Real x = NormalQuantile(kAlpha);
    const Real q = Square(x);
    const Real s = Real(1.0) / gdl1 + Real(1.0) / gdl2;
    const Real d = Real(gdl2 - gdl1) / Real(gdl1 + gdl2);
    const Real e = Square(d) / 3.0;

    const Real a = (((q * 12.0 + 513.0) * q + 841.0) * q - 2560.0) * Square(e) / 18.0;
    const Real b = (((q * 4.0 + 101.0) * q + 117.0) * q - 480.0) * e / 3.0;
    const Real c = (((q * 4.0 - 25.0) * q - 177.0) * q + 192.0) / 2.0;
    const Real t1 = -(Square(s) / 1680.0) * (c + b - a);
    Real f = (q + 9.0) * q + 8.0 - ((q * 3.0 + 7.0) * q - 16.0) * e / 9.0;
    f = f * s / 20.0 + q + 2.0;
    const Real t2 = (-s * d / 6.0) * (f + t1);

    Real g = ((q * 9.0 - 284.0) * q - 1513.0) * Square(e) / 18.0;
    g = ((q + 44.0) * q + 183.0) * e + g + ((q + 20.0) * q + 15.0) / 2.0;
    g = g * Square(s) / 40.0;
    g = ((q + 11.0) * e + q + 3.0) * s + g + 24.0;
    g = x * g / 24.0 * Sqrt(s / 2.0);
    return g + t2;
}

} // namespace

double NormalQuantile(double alpha)
{
    const Real u = Sqrt(Abs(Real(2.0) * Ln(alpha)));
    const Real u2 = Square(u);
    const Real above = u * 0.802853 + 2.515517 + u2 * 0.010328;
    const Real below = u * 1.432788 + 1.0 + u2 * 0.189269 + u2 * u * 0.001308;
    return (u - above / below).Value();
}

double ValoreF(std::int16_t gdl1, std::int16_t gdl2, FTable& table)
{
    if (gdl1 <= 3)
        return FromTable(gdl1, gdl2, table);
    return Exp(Real(2.0) * FisherZ(gdl1, gdl2)).Value();
}

double ValoreT(std::int16_t n, std::int16_t k)
{
    const Int16 degrees = Int16(n) - Int16(k);
    if (degrees >= Int16(1) && degrees <= Int16(4))
        return kSmallT[static_cast<std::size_t>(degrees.Value() - 1)];

    const Real v = degrees;
    const Real x = NormalQuantile(kAlpha / 2);
    const Real x3 = Power(x, 3.0);
    const Real x5 = Power(x, 5.0);
    const Real x7 = Power(x, 7.0);
    const Real x9 = Power(x, 9.0);
    const Real x11 = Power(x, 11.0);
    const Real sum =
        x + (x3 + x) / (v * 4.0) + (x5 * 5.0 + x3 * 16.0 + x * 3.0) / (Power(v, 2.0) * 96.0) +
        (x7 * 3.0 + x5 * 19.0 + x3 * 17.0 - x * 15.0) / (Power(v, 3.0) * 384.0) +
        (x9 * 79.0 + x7 * 776.0 + x5 * 1482.0 - x3 * 1920.0 - x * 945.0) / (Power(v, 4.0) * 92160.0) +
        (x11 * 27.0 + x9 * 339.0 + x7 * 930.0 - x5 * 1782.0 - x3 * 765.0 + x * 17955.0) /
            (Power(v, 5.0) * 368640.0);
    return sum.Value();
}
