// The numbers of the repeatability test.
#pragma once

#include <optional>
#include <span>
#include <vector>

/// Mean, limits and width in the unit of the values, variance in its square; cv and percent (P%) in percent
/// of the mean; gdl: degrees of freedom; t: two-sided 5 % point of Student's t for them.
struct PrecResults {
    double mean = 0;
    double variance = 0;
    double s = 0;
    double cv = 0;
    int gdl = 0;
    double t = 0;
    double lower = 0;
    double upper = 0;
    double width = 0;
    double percent = 0;
};

/// values: the n results of one analyst. Nothing when they add up to exactly 0.
/// Fails: DivisionByZero for one value, Overflow.
std::optional<PrecResults> CalcPrec(std::span<const double> values);

/// The normal curve of the results. x in their unit, density in its inverse.
struct PrecCurve {
    double first = 0; ///< the ends of the x axis
    double last = 0;
    double peak = 0;                         ///< the density at the mean
    std::vector<std::vector<double>> points; ///< x and density; up to 1000
};

/// From 4 shownS below the mean to 4 above. shownS: the standard deviation as it is shown, which spans the
/// curve; s: the true one, which shapes it. Fails: Overflow.
PrecCurve PrecisionCurve(double mean, double s, double shownS);
