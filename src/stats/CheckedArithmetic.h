// Arithmetic that fails instead of going on with a wrong number: division by zero, overflow and invalid
// operations of 64-bit floats, and the range of 16-bit integers. A formula written with Real and Int16 reads
// like the formula on paper and never tests for infinities or NaN.
#pragma once

#include "stats/RuntimeFailure.h"

#include <cmath>
#include <compare>
#include <cstdint>
#include <limits>

/// A 16-bit signed integer. Sums, differences and products that leave -32768 to 32767 fail with Overflow.
class Int16
{
public:
    constexpr Int16(std::int16_t value) : m_value(value) {}

    /// Fails with Overflow outside the 16-bit range.
    static constexpr Int16 FromWide(std::int64_t value)
    {
        if (value < std::numeric_limits<std::int16_t>::min() ||
            value > std::numeric_limits<std::int16_t>::max())
            throw RuntimeFailure(FailureKind::Overflow);
        return Int16(static_cast<std::int16_t>(value));
    }

    constexpr std::int16_t Value() const { return m_value; }

    friend constexpr Int16 operator+(Int16 a, Int16 b)
    {
        return FromWide(std::int64_t{a.m_value} + b.m_value);
    }
    friend constexpr Int16 operator-(Int16 a, Int16 b)
    {
        return FromWide(std::int64_t{a.m_value} - b.m_value);
    }
    friend constexpr Int16 operator*(Int16 a, Int16 b)
    {
        return FromWide(std::int64_t{a.m_value} * b.m_value);
    }
    friend constexpr auto operator<=>(Int16, Int16) = default;

private:
    std::int16_t m_value;
};

/// A 64-bit float whose operations are checked. Holds a finite number always, as long as it is made of one.
class Real
{
public:
    constexpr Real(double value) : m_value(value) {}
    constexpr Real(Int16 value) : m_value(value.Value()) {}

    constexpr double Value() const { return m_value; }

    Real& operator+=(Real b) { return *this = *this + b; }

    friend Real operator-(Real a) { return Real(-a.m_value); }
    friend Real operator+(Real a, Real b) { return Finite(a.m_value + b.m_value); }
    friend Real operator-(Real a, Real b) { return Finite(a.m_value - b.m_value); }
    friend Real operator*(Real a, Real b) { return Finite(a.m_value * b.m_value); }
    /// Fails with DivisionByZero when b is 0, also for 0 / 0.
    friend Real operator/(Real a, Real b)
    {
        if (b.m_value == 0)
            throw RuntimeFailure(FailureKind::DivisionByZero);
        return Finite(a.m_value / b.m_value);
    }
    friend constexpr auto operator<=>(Real, Real) = default;

    /// Fails with Overflow when value is infinite or not a number.
    static Real Finite(double value)
    {
        if (!std::isfinite(value))
            throw RuntimeFailure(FailureKind::Overflow);
        return Real(value);
    }

private:
    double m_value;
};

/// Square root. Fails with InvalidArgument below 0.
inline Real Sqrt(Real x)
{
    if (x < 0.0)
        throw RuntimeFailure(FailureKind::InvalidArgument);
    return Real(std::sqrt(x.Value()));
}

/// base raised to exponent. Fails with InvalidArgument for a negative base with an exponent that is not whole
/// and for 0 raised to a negative exponent, with Overflow when the result is too large.
inline Real Power(Real base, Real exponent)
{
    const bool whole = std::trunc(exponent.Value()) == exponent.Value();
    if ((base < 0.0 && !whole) || (base == 0.0 && exponent < 0.0))
        throw RuntimeFailure(FailureKind::InvalidArgument);
    return Real::Finite(std::pow(base.Value(), exponent.Value()));
}

/// Natural logarithm. Fails with InvalidArgument at 0 and below.
inline Real Ln(Real x)
{
    if (x <= 0.0)
        throw RuntimeFailure(FailureKind::InvalidArgument);
    return Real(std::log(x.Value()));
}

/// e raised to x. Fails with Overflow when the result is too large.
inline Real Exp(Real x)
{
    return Real::Finite(std::exp(x.Value()));
}

inline Real Abs(Real x)
{
    return Real(std::fabs(x.Value()));
}

/// The largest whole number that is not above x.
inline Real Floor(Real x)
{
    return Real(std::floor(x.Value()));
}

inline Real Square(Real x)
{
    return x * x;
}
