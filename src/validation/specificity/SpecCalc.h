// The numbers of the specificity test: two groups of results, their variances and their means.
#pragma once

#include "stats/CriticalValues.h"

#include <cstdint>
#include <span>

/// One group: its count and figures, and the confidence limits of its mean.
struct SpecGroup {
    double mean = 0;
    double variance = 0;
    double lower = 0;
    double upper = 0;
};

/// How a calculation ended.
enum class SpecEnd {
    Done,
    NoVariance, ///< both variances are exactly 0: there is nothing to compare
    Overflow,   ///< the probability of F could not be had
};

struct SpecResults {
    SpecEnd end = SpecEnd::Done;
    SpecGroup a;
    SpecGroup b;
    double pF = 0; ///< upper tail probability of F
    double f = 0;  ///< larger variance by the smaller, 0 where the smaller is 0
    double t = 0;
    int gdl = 0;   ///< degrees of freedom of the t test
    double pT = 0; ///< two-sided tail probability of t
    /// The means differ: the other substances interfere.
    bool Significant() const { return pT <= kAlpha; }
    /// The variances differ, and the means can't be told apart.
    bool NotDeterminable() const { return pF < kAlpha && pT >= kAlpha; }
};

/// The probability that two variances of nA and nB values differ by chance: one-tailed, the larger one in the
/// numerator. kNoProbability for two variances of exactly 0, with `invalid` set, and after an overflow of
/// ProbF.
double TestVarianze(std::int16_t nA, std::int16_t nB, double varA, double varB, bool& invalid);

/// Fails: DivisionByZero for a group of one value, Overflow, and as the statistics do.
/// Deliberate: where the variances differ, the degrees of freedom are taken with nA and nB in the
/// denominators, not nA - 1 and nB - 1.
SpecResults CalcSpec(std::span<const double> a, std::span<const double> b);
