// The critical values that the tests compare their statistics with, at the one level 0.05.
#pragma once

#include <cstdint>
#include <optional>

/// The level of all tests: what has a smaller probability is significant.
inline constexpr double kAlpha = 0.05;

/// The table of the upper 5 % points of F for 1, 2 and 3 degrees of freedom of the numerator. Where it comes
/// from is its implementer's affair.
class FTable
{
public:
    virtual ~FTable() = default;
    /// The value of exactly this pair, or nothing. Fails when the table itself can't be had.
    virtual std::optional<double> Find(std::int16_t gdl1, std::int16_t gdl2) = 0;
};

/// The normal quantile of the upper tail area alpha, 0 < alpha < 0.5, after Abramowitz and Stegun 26.2.23.
double NormalQuantile(double alpha);

/// The upper 5 % point of F. Up to gdl1 = 3 from the table, with 3.84, 3.0 and 2.6 for a pair that it does
/// not hold (and 0 for a gdl1 of 0 or below); above, from the Cornish-Fisher expansion of Fisher's z. Fails:
/// as the table does, for gdl1 up to 3; above, DivisionByZero at gdl2 = 0 and Overflow where gdl1 + gdl2
/// leaves the 16-bit range.
double ValoreF(std::int16_t gdl1, std::int16_t gdl2, FTable& table);

/// The two-sided 5 % point of Student's t for n - k degrees of freedom: constants up to 4, a series in the
/// normal quantile beyond.
/// Fails: DivisionByZero for n - k = 0. A negative n - k gives a number without meaning.
double ValoreT(std::int16_t n, std::int16_t k);
