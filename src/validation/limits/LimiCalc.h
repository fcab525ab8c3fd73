// The numbers of the test of the detection and quantitation limits.
#pragma once

#include <optional>
#include <span>

/// In the unit of the values: their sample standard deviation s, the detection limit 2 s and the quantitation
/// limit 10 s.
struct LimiResults {
    double s = 0;
    double limRil = 0;
    double limDet = 0;
};

/// values: the n results near the limit. Nothing when they add up to exactly 0, as those of a new document
/// do: such a set is not calculated.
/// Fails: DivisionByZero for one value, Overflow.
/// Deliberate: no t value, no blank correction and no slope.
std::optional<LimiResults> CalcLimi(std::span<const double> values);
