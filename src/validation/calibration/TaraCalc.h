// The numbers of the calibration test: a straight line through groups of responses, and the analysis of
// variance that parts their deviance into regression, curvature (lack of fit) and pure error.
#pragma once

#include "stats/CriticalValues.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

/// What is calculated: `groups` concentrations with `replicates` responses each.
struct TaraData {
    std::span<const double> conc; ///< one a group, at least as many as groups
    std::span<const double> risp; ///< replicate by replicate, in each as many responses as conc has numbers
    std::int16_t groups = 0;      ///< K
    std::int16_t replicates = 0;  ///< R
    /// N, by which everything is divided.
    /// Deliberate: taken as it is told, whatever groups by replicates is.
    std::int16_t count = 0;

    double Conc(int group) const { return conc[static_cast<std::size_t>(group)]; }
    double Risp(int replicate, int group) const
    {
        return risp[static_cast<std::size_t>(replicate) * conc.size() + static_cast<std::size_t>(group)];
    }
};

/// How a calculation ended.
enum class TaraEnd {
    Done,
    AllZero,          ///< the concentrations or the responses add up to exactly 0
    NegativeResidual, ///< the residual deviance is below 0, by rounding or a count that disagrees
};

/// A source of variance against the pure error.
struct TaraRatio {
    double f = 0;                ///< 0 where the pure error is 0
    double p = 0;                ///< upper tail probability of f, or kNoProbability
    std::optional<double> shown; ///< the ratio; nothing where the error is 0, and only significance is told
    bool significant = false;
};

/// Concentrations and responses in their units; deviances are sums of squares of responses.
struct TaraResults {
    TaraEnd end = TaraEnd::Done;
    double a = 0; ///< intercept
    double b = 0; ///< slope
    double r = 0; ///< coefficient of correlation
    double sa = 0;
    double sb = 0; ///< standard deviations of intercept and slope
    double confLimSup = 0;
    double confLimInf = 0; ///< limits of the intercept
    double devReg = 0;
    double devCurv = 0;
    double devErr = 0;
    double devRes = 0; ///< of curvature and error
    double devTot = 0;
    double varCurv = 0;
    double varErr = 0;
    TaraRatio reg;
    TaraRatio curv;
    double t1 = 0;
    double t2 = 0;
    double d = 0; ///< discriminating power, a concentration with the sign of the slope

    /// The limits of the intercept contain 0: the responses are proportional to the concentrations.
    bool Proportional() const { return confLimSup >= 0 && confLimInf <= 0; }
};

/// Least squares and analysis of variance in this order of additions, after which `end` tells which results
/// stand. tellOverflow is called each time that a probability can't be had; the source counts as significant
/// then.
/// Deliberate: the limits of the intercept take t with N - 1 degrees of freedom, D takes it with N - K.
/// Fails: DivisionByZero for concentrations that are all equal, a slope of 0, N of 0, 1 or 2, N = K, K = 2,
/// and a negative deviance over an error of 0; InvalidArgument for the root of a negative variance; Overflow,
/// also beyond 3640 degrees of freedom; as the table of F does.
TaraResults CalcRegr(const TaraData& data, FTable& table, const std::function<void()>& tellOverflow);
