// The statistics that the tests share: one column's base figures, the confidence limits of a mean, the normal
// density, and the tail probabilities of F and of Student's t. Level 0.05 throughout the program.
//
// Deliberate: probabilities come from closed approximations with stated constants, not from an exact library.
// The constants 6.283186 and 3.141593 stand as they are; docs/numerics.md tells how far the results lie off.
#pragma once

#include <cstdint>
#include <span>

/// The count of values as a 16-bit integer. Fails with Overflow above 32767.
std::int16_t CountOf(std::span<const double> values);

/// The sum of the values, added in index order. Fails with Overflow.
double SumArray(std::span<const double> values);

/// Mean and variance in the unit of the values and its square; cv, the coefficient of variation, in percent
/// of the mean and with its sign.
struct BaseStatistics {
    double mean = 0;
    double variance = 0;
    double cv = 0;
};

/// Fills results with mean, sample variance (n - 1, one-pass formula, made positive) and cv of n >= 1 values.
/// Deliberate: a mean of exactly 0 leaves results as the caller handed it over, mean included.
/// Fails: DivisionByZero for one value whose mean is not 0; Overflow.
void CalcStatBase(std::span<const double> values, BaseStatistics& results);

/// Confidence limits of a mean, in the unit of the mean, and P, the half width in percent of the mean.
struct ConfidenceLimits {
    double lower = 0;
    double upper = 0;
    double width = 0;
    double percent = 0;
};

/// values: the n results of one column (only n is used). mean, stdDev: their figures, in their unit.
/// t: two-sided Student t, no unit. The fourth argument has no effect.
/// Fails: DivisionByZero when mean is 0 or values is empty.
/// Deliberate: half width and percent are floored to three decimals, each by itself; the limits and the width
/// come from the floored half width.
ConfidenceLimits CalcLimConf(std::span<const double> values, double mean, double stdDev, double cv, double t);

/// The normal density at x. A sigma of 0 gives 0; a negative sigma gives a negative density.
double DensGauss(double x, double mean, double sigma);

/// What ProbF gives when its series overflows: no probability. Whoever shows results tells the user.
inline constexpr double kNoProbability = -1;

/// Upper tail probability of an F value with gdl1 and gdl2 degrees of freedom, or kNoProbability after an
/// overflow of the series (from about |z| = 21.5). Cube-root normal approximation, power series of the normal
/// integral. The cube root of a negative f, which rounding may give, is that of its size with a minus.
/// Fails: Overflow for degrees of freedom above 3640 (9 times gdl is formed in 16 bits); DivisionByZero at 0.
double ProbF(double f, std::int16_t gdl1, std::int16_t gdl2);

/// Two-sided tail probability of a t value with gdl >= 1 degrees of freedom, by the finite series in the
/// angle. The work grows with the square of gdl.
/// Fails: DivisionByZero at gdl 0, InvalidArgument below.
double ProbT(double t, std::int16_t gdl);
