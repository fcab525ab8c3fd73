// Straight-line calibrations with replicates whose results are in print, to hold the calibration arithmetic
// against figures that are not our own. All are balanced and none has a concentration of 0.
//
// All figures were recomputed from the data in exact fractions, and agree to the last printed digit. Of the
// load cell, data and figures were read at the source. Of the textbook's two examples data and lines were
// read in course files that quote it, the plastic's deviations, too; their sums of squares are known of the
// book's answers and borne out by the recomputation.
#pragma once

#include <cmath>
#include <optional>
#include <string>
#include <vector>

/// A figure as printed, and how far from it the unrounded one can lie.
struct PrintedFigure {
    double value;
    double tolerance;

    bool Agrees(double actual) const { return std::fabs(actual - value) <= tolerance; }
};

/// lastDigit is what one unit of the last printed digit is worth, 0.01 for 1.81. A figure halfway between two
/// printable ones, as the plastic's slope 2.034375, is rounded either way: the tolerance lets rounding noise
/// pass.
inline PrintedFigure Printed(double value, double lastDigit)
{
    constexpr double kHalf = 0.5 * (1 + 1e-6);
    return {value, kHalf * lastDigit};
}

/// K concentrations with R responses each, in the order of the source, and those results that are printed.
/// With N = K R, "residual" is about the line (N - 2 degrees of freedom), "lack of fit" is of the group means
/// about the line (K - 2), "pure error" is of the responses about their group means (N - K).
struct PrintedCalibration {
    std::string name;
    std::vector<double> concentrations;
    std::vector<std::vector<double>> responses;

    std::optional<PrintedFigure> intercept{};          ///< a
    std::optional<PrintedFigure> slope{};              ///< b
    std::optional<PrintedFigure> interceptDeviation{}; ///< Sa
    std::optional<PrintedFigure> slopeDeviation{};     ///< Sb
    std::optional<PrintedFigure> residualDeviation{};  ///< square root of devRes / (N - 2)
    std::optional<PrintedFigure> correlation{};        ///< r, negative on a falling line

    std::optional<PrintedFigure> devReg{};  ///< sum of squares of the regression
    std::optional<PrintedFigure> devRes{};  ///< residual sum of squares, devCurv + devErr
    std::optional<PrintedFigure> devCurv{}; ///< sum of squares of the lack of fit
    std::optional<PrintedFigure> devErr{};  ///< sum of squares of the pure error
    std::optional<PrintedFigure> fCurv{};   ///< varCurv / varErr
};

/// NIST/SEMATECH e-Handbook of Statistical Methods, 4.6.1 Load Cell Calibration (data of P. Pontius, NIST),
/// output of the commands at https://www.itl.nist.gov/div898/handbook/pmd/section6/pmd611.r: deflection
/// against load. Not the figures in the text of the section, some of which are good to six digits only. The
/// sum of squares of the pure error stands there twice; this is the one with more digits.
inline PrintedCalibration LoadCell()
{
    return {
        .name = "load cell",
        .concentrations = {150000,  300000,  450000,  600000,  750000,  900000,  1050000,
                           1200000, 1350000, 1500000, 1650000, 1800000, 1950000, 2100000,
                           2250000, 2400000, 2550000, 2700000, 2850000, 3000000},
        .responses = {{0.11019, 0.11052}, {0.21956, 0.22018}, {0.32949, 0.32939}, {0.43899, 0.43886},
                      {0.54803, 0.54798}, {0.65694, 0.65739}, {0.76562, 0.76596}, {0.87487, 0.87474},
                      {0.98292, 0.98300}, {1.09146, 1.09150}, {1.20001, 1.20004}, {1.30822, 1.30818},
                      {1.41599, 1.41613}, {1.52399, 1.52408}, {1.63194, 1.63159}, {1.73947, 1.73965},
                      {1.84646, 1.84696}, {1.95392, 1.95445}, {2.06128, 2.06177}, {2.16844, 2.16829}},
        .intercept = Printed(6.150e-03, 1e-06),
        .slope = Printed(7.221e-07, 1e-10),
        .interceptDeviation = Printed(7.132e-04, 1e-07),
        .slopeDeviation = Printed(3.969e-10, 1e-13),
        .residualDeviation = Printed(0.002171, 1e-06),
        .devRes = Printed(1.7915e-04, 1e-08),
        .devCurv = Printed(1.7823e-04, 1e-08),
        .devErr = Printed(9.2215e-07, 1e-11),
        .fCurv = Printed(214.75, 0.01),
    };
}

/// M. H. Kutner, C. J. Nachtsheim, J. Neter, W. Li, Applied Linear Statistical Models, 5th edition,
/// McGraw-Hill/Irwin 2005, problems 1.22, 2.7, 2.26, 3.14, with the answers of the Instructor Solutions
/// Manual: hardness of a plastic in Brinell units against hours since moulding. The line fits.
inline PrintedCalibration PlasticHardness()
{
    return {
        .name = "plastic hardness",
        .concentrations = {16, 24, 32, 40},
        .responses = {{199, 205, 196, 200}, {218, 220, 215, 223}, {237, 234, 235, 230}, {250, 248, 253, 246}},
        .intercept = Printed(168.600, 0.001),
        .slope = Printed(2.03438, 0.00001),
        .slopeDeviation = Printed(0.09039, 0.00001),
        .residualDeviation = Printed(3.234, 0.001),
        .correlation = Printed(0.9865, 0.0001),
        .devReg = Printed(5297.5125, 0.0001),
        .devRes = Printed(146.4250, 0.0001),
        .devCurv = Printed(17.675, 0.001),
        .devErr = Printed(128.75, 0.01),
        .fCurv = Printed(0.824, 0.001),
    };
}

/// The same book and manual, problem 3.15: concentration of a solution against hours. The line falls, the
/// hours do not rise, and the lack of fit is gross.
inline PrintedCalibration SolutionConcentration()
{
    return {
        .name = "solution concentration",
        .concentrations = {9, 7, 5, 3, 1},
        .responses = {{0.07, 0.09, 0.08},
                      {0.16, 0.17, 0.21},
                      {0.49, 0.58, 0.53},
                      {1.22, 1.15, 1.07},
                      {2.84, 2.57, 3.10}},
        .intercept = Printed(2.57533, 0.00001),
        .slope = Printed(-0.32400, 0.00001),
        .devRes = Printed(2.9247, 0.0001),
        .devCurv = Printed(2.7673, 0.0001),
        .devErr = Printed(0.1574, 0.0001),
        .fCurv = Printed(58.6034, 0.0001),
    };
}

inline std::vector<PrintedCalibration> PrintedCalibrations()
{
    return {LoadCell(), PlasticHardness(), SolutionConcentration()};
}
