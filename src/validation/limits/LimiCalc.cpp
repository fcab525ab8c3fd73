#include "validation/limits/LimiCalc.h"

#include "stats/CheckedArithmetic.h"
#include "stats/Statistics.h"

std::optional<LimiResults> CalcLimi(std::span<const double> values)
{
    if (SumArray(values) == 0)
        return std::nullopt;
    BaseStatistics base;
    CalcStatBase(values, base);
    const Real s = Sqrt(base.variance);
    return LimiResults{.s = s.Value(), .limRil = (s + s).Value(), .limDet = (s * 10.0).Value()};
}
