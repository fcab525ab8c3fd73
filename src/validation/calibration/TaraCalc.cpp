#include "validation/calibration/TaraCalc.h"

#include "stats/CheckedArithmetic.h"
#include "stats/Statistics.h"

#include <vector>

namespace
{

/// The counts: of all data, groups and replicates.
struct Counts {
    Int16 n = 0;
    Int16 k = 0;
    Int16 r = 0;
};

struct Sums {
    Real x = 0.0;
    Real xx = 0.0;
    Real y = 0.0;
    Real yy = 0.0;
    Real xy = 0.0;
};

/// The corrected sums, and G: the sum of the squared sums of the groups, by the replicates.
struct Deviances {
    Real x = 0.0;
    Real y = 0.0;
    Real xy = 0.0;
    Real g = 0.0;
};

Sums FirstSums(const TaraData& data)
{
    const Real replicates = Int16(data.replicates);
    Sums sums;
    for (int i = 0; i < data.groups; ++i) {
        sums.x += replicates * data.Conc(i);
        sums.xx += Square(data.Conc(i)) * replicates;
    }
    for (int j = 0; j < data.replicates; ++j) {
        for (int i = 0; i < data.groups; ++i) {
            sums.y += data.Risp(j, i);
            sums.yy += Square(data.Risp(j, i));
        }
    }
    for (int j = 0; j < data.replicates; ++j) {
        for (int i = 0; i < data.groups; ++i)
            sums.xy += Real(data.Conc(i)) * data.Risp(j, i);
    }
    return sums;
}

std::vector<double> SquaredGroupSums(const TaraData& data)
{
    std::vector<double> squares;
    for (int i = 0; i < data.groups; ++i) {
        Real sum = 0.0;
        for (int j = 0; j < data.replicates; ++j)
            sum += data.Risp(j, i);
        squares.push_back(Square(sum).Value());
    }
    return squares;
}

Deviances CorrectedSums(const TaraData& data, const Sums& sums, const Counts& counts)
{
    const std::vector<double> squares = SquaredGroupSums(data);
    return {.x = sums.xx - Square(sums.x) / counts.n,
            .y = sums.yy - Square(sums.y) / counts.n,
            .xy = sums.xy - (sums.x * sums.y) / counts.n,
            .g = Real(SumArray(squares)) / counts.r};
}

/// Standard deviations of intercept and slope, and the correlation.
void TakeDeviations(TaraResults& results, const Sums& sums, const Deviances& dev, const Counts& counts)
{
    const Real residual = Real(results.devRes) / Real(counts.n - Int16(2));
    const Real all = counts.n - Int16(1);
    results.sb = Sqrt(residual / dev.x).Value();
    const Real sx = Sqrt(dev.x / all);
    const Real sy = Sqrt(dev.y / all);
    results.r = ((dev.xy / all) / (sy * sx)).Value();
    results.sa = Sqrt((Real(1.0) / counts.n + Square(sums.x / counts.n) / dev.x) * residual).Value();
}

void TakeVariances(TaraResults& results, const Sums& sums, const Deviances& dev, const Counts& counts)
{
    const Real curvature = (dev.g - Square(sums.y) / counts.n) - results.devReg;
    const Real error = Real(results.devRes) - curvature;
    results.devCurv = curvature.Value();
    results.devErr = error.Value();
    results.varCurv = (curvature / Real(counts.k - Int16(2))).Value();
    results.varErr = (error / Real(counts.n - counts.k)).Value();
}

/// The ratio and its probability; whether it is significant comes later, in the required order.
TaraRatio RatioOf(double variance, double error, Int16 gdl, Int16 gdlError,
                  const std::function<void()>& tellOverflow)
{
    TaraRatio ratio;
    ratio.f = error == 0 ? 0 : (Real(variance) / error).Value();
    ratio.p = ProbF(ratio.f, gdl.Value(), gdlError.Value());
    if (ratio.p == kNoProbability)
        tellOverflow();
    return ratio;
}

void TakeSignificance(TaraRatio& ratio, double variance, double error)
{
    if (error == 0 && variance >= 0) {
        ratio.significant = variance > 0;
        return;
    }
    ratio.shown = (Real(variance) / error).Value();
    ratio.significant = !(ratio.p > kAlpha);
}

} // namespace

TaraResults CalcRegr(const TaraData& data, FTable& table, const std::function<void()>& tellOverflow)
{
    const Counts counts{.n = data.count, .k = data.groups, .r = data.replicates};
    TaraResults results;
    const Sums sums = FirstSums(data);
    if (sums.x == 0.0 || sums.y == 0.0) {
        results.end = TaraEnd::AllZero;
        return results;
    }
    const Deviances dev = CorrectedSums(data, sums, counts);
    const Real b = dev.xy / dev.x;
    const Real a = sums.y / counts.n - (sums.x / counts.n) * b;
    results.a = a.Value();
    results.b = b.Value();
    results.devReg = (Square(dev.xy) / dev.x).Value();
    results.devRes = (dev.y - results.devReg).Value();
    if (results.devRes < 0) {
        results.end = TaraEnd::NegativeResidual;
        return results;
    }
    TakeDeviations(results, sums, dev, counts);
    TakeVariances(results, sums, dev, counts);

    const Int16 gdlCurv = counts.k - Int16(2);
    const Int16 gdlErr = counts.n - counts.k;
    results.t1 = ValoreT(data.count, 1);
    results.reg = RatioOf(results.devReg, results.varErr, 1, gdlErr, tellOverflow);
    results.curv = RatioOf(results.varCurv, results.varErr, gdlCurv, gdlErr, tellOverflow);
    results.confLimSup = (Real(results.t1) * results.sa + a).Value();
    results.confLimInf = (a - Real(results.t1) * results.sa).Value();
    results.t2 = ValoreT(data.count, data.groups);
    results.d = ((Sqrt(results.varErr) / b) * results.t2).Value();
    // Deliberate: nothing is decided by critical values of F, and yet without their table nothing is told.
    ValoreF(1, gdlErr.Value(), table);
    ValoreF(gdlCurv.Value(), gdlErr.Value(), table);
    TakeSignificance(results.reg, results.devReg, results.varErr);
    TakeSignificance(results.curv, results.varCurv, results.varErr);
    results.devTot = (Real(results.devRes) + results.devReg).Value();
    return results;
}
