// Base statistics, confidence limits, normal density and the two tail probabilities: printed reference
// figures, exact cases, invariants, failures, and the distance from the true distributions as a bound.
#include "stats/Statistics.h"
#include "Compare.h"

#include <QTest>

#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>

#include <algorithm>
#include <vector>

namespace
{

using Values = std::vector<double>;

BaseStatistics BaseOf(const Values& values)
{
    BaseStatistics results;
    CalcStatBase(values, results);
    return results;
}

double TrueProbT(double t, int gdl)
{
    return 2 * cdf(complement(boost::math::students_t(gdl), std::fabs(t)));
}

} // namespace

class StatisticsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Base()
    {
        const BaseStatistics same = BaseOf({5.0, 5.0, 5.0});
        QVERIFY(same.mean == 5 && same.variance == 0 && same.cv == 0);
        // 99.8, 100.1, 100.2: mean 300.1 / 3, squares of the deviations 0.26 / 3.
        const BaseStatistics three = BaseOf({99.8, 100.1, 100.2});
        COMPARE_CLOSE(three.mean, 300.1 / 3, 1e-15);
        COMPARE_CLOSE(three.variance, 0.13 / 3, 1e-9); // one-pass formula: ten digits cancel
        COMPARE_CLOSE(three.cv, 100 * std::sqrt(0.13 / 3) / (300.1 / 3), 1e-9);

        QCOMPARE_LT(BaseOf({-1, -2, -4}).cv, 0.0);
        QCOMPARE_EQ(SumArray(Values{1e16, 1, -1e16}), 0.0); // in index order, without compensation

        for (const Values& values : {Values{-1, 0, 1}, Values{0}}) { // a mean of 0 leaves what there was
            BaseStatistics results{.mean = 7, .variance = 8, .cv = 9};
            CalcStatBase(values, results);
            QVERIFY(results.mean == 7 && results.variance == 8 && results.cv == 9);
        }
    }

    void ConfidenceLimitsAreFloored()
    {
        // 2.776 / sqrt(5) = 1.24146...
        const Values five(5);
        const ConfidenceLimits limits = CalcLimConf(five, 100, 1, 0, 2.776);
        COMPARE_CLOSE(limits.lower, 98.759, 1e-15);
        COMPARE_CLOSE(limits.upper, 101.241, 1e-15);
        COMPARE_CLOSE(limits.width, 2.482, 1e-15);
        COMPARE_CLOSE(limits.percent, 1.241, 1e-15);

        // Downward, not toward zero, and percent from the product before its own flooring.
        const ConfidenceLimits negative = CalcLimConf(five, -100, 1, 0, 2.776);
        COMPARE_CLOSE(negative.percent, -1.242, 1e-15);
        COMPARE_CLOSE(negative.upper, -98.759, 1e-15);
        COMPARE_CLOSE(CalcLimConf(five, 0.01, 1, 0, 2.776).percent, 12414.649, 1e-15);
    }

    void Density()
    {
        QCOMPARE_EQ(DensGauss(1, 2, 0), 0.0);
        // The constant 6.283186 stands for 2 pi: 2.5e-8 off in the density, relatively.
        const double trueDensity = pdf(boost::math::normal(100, 2), 103);
        COMPARE_CLOSE(DensGauss(103, 100, 2), trueDensity * std::sqrt(2 * 3.14159265358979 / 6.283186),
                      1e-14);
        QVERIFY(!IsClose(DensGauss(103, 100, 2), trueDensity, 1e-8));
        QCOMPARE_EQ(DensGauss(97, 100, -2), -DensGauss(103, 100, 2));
    }

    void ProbabilityOfF()
    {
        COMPARE_CLOSE(ProbF(1, 7, 7), 0.5, 1e-15);
        COMPARE_CLOSE(ProbF(3.326, 5, 10), 0.05007, 1e-4); // half of the last printed digit
        COMPARE_CLOSE(ProbF(0.5, 5, 10), 0.7711, 7e-5);
        // Swapped groups answer with the rest.
        COMPARE_CLOSE(ProbF(2.5, 4, 9), 1 - ProbF(1 / 2.5, 9, 4), 1e-12);

        QCOMPARE_EQ(ProbF(1e3, 200, 200), kNoProbability);
        QVERIFY(ProbF(0, 3, 3) > 0.9);
        VERIFY_FAILS(ProbF(1, 3641, 5), FailureKind::Overflow);
        VERIFY_FAILS(ProbF(1, 5, 3641), FailureKind::Overflow);
        COMPARE_CLOSE(ProbF(1, 3640, 3640), 0.5, 1e-15);
        VERIFY_FAILS(ProbF(1, 0, 5), FailureKind::DivisionByZero);
        VERIFY_FAILS(ProbF(-1, 5, 5), FailureKind::InvalidArgument);
    }

    void DistanceFromF()
    {
        const struct {
            std::int16_t gdl1;
            std::int16_t gdl2;
            double largest; // of the distances over f = 0.05 to 12, measured
        } rows[] = {{1, 4, 0.018947},   {1, 600, 0.015671},    {2, 6, 0.010140},     {4, 4, 0.0024765},
                    {5, 10, 0.0018031}, {13, 600, 0.00092661}, {60, 60, 0.000082242}};
        for (const auto& [gdl1, gdl2, largest] : rows) {
            double distance = 0;
            for (double f = 0.05; f < 12; f += 0.05)
                distance =
                    std::max(distance, std::fabs(ProbF(f, gdl1, gdl2) -
                                                 cdf(complement(boost::math::fisher_f(gdl1, gdl2), f))));
            COMPARE_CLOSE(distance, largest, 1e-4);
        }
    }

    void ProbabilityOfT()
    {
        COMPARE_CLOSE(ProbT(2.228, 10), 0.05001, 1e-4);
        COMPARE_CLOSE(ProbT(12.706, 1), 0.05000, 1e-4);
        QCOMPARE_EQ(ProbT(0, 7), 1.0);
        QCOMPARE_EQ(ProbT(-1.3, 9), ProbT(1.3, 9));
        // gdl 2 has no series: 1 - sin(arctan(t / sqrt(2))).
        COMPARE_CLOSE(ProbT(1.5, 2), 1 - std::sin(std::atan(1.5 / std::sqrt(2.0))), 1e-15);
        VERIFY_FAILS(ProbT(1, 0), FailureKind::DivisionByZero);
        VERIFY_FAILS(ProbT(1, -2), FailureKind::InvalidArgument);

        // Even gdl: exact but for rounding. Odd gdl: 3.141593 in place of pi, 1.1e-7 off in A, relatively.
        for (const int gdl : {1, 2, 3, 4, 5, 8, 9, 30, 31, 120, 121, 1000}) {
            for (double t = 0.1; t < 8; t += 0.1) {
                const double distance =
                    std::fabs(ProbT(t, static_cast<std::int16_t>(gdl)) - TrueProbT(t, gdl));
                QCOMPARE_LE(distance, gdl % 2 == 0 ? 1e-12 : 1.2e-7);
            }
        }
        QVERIFY(std::fabs(ProbT(7.9, 31) - TrueProbT(7.9, 31)) > 1e-7);
        // Double factorials in logarithms do not overflow at the largest gdl.
        COMPARE_CLOSE(ProbT(1.96, 32766), TrueProbT(1.96, 32766), 1e-8);
    }

    void Failures()
    {
        VERIFY_FAILS(CountOf(Values(32768)), FailureKind::Overflow);
        QCOMPARE(CountOf(Values(32767)), std::int16_t{32767});
        VERIFY_FAILS(BaseOf({5}), FailureKind::DivisionByZero);
        VERIFY_FAILS(BaseOf({}), FailureKind::DivisionByZero); // 0 / 0 counts as a division by zero
        VERIFY_FAILS(BaseOf({1e200, 1}), FailureKind::Overflow);
        VERIFY_FAILS(SumArray(Values{1e308, 1e308}), FailureKind::Overflow);
        VERIFY_FAILS(CalcLimConf(Values(5), 0, 1, 0, 2), FailureKind::DivisionByZero);
        VERIFY_FAILS(CalcLimConf(Values(), 1, 1, 0, 2), FailureKind::DivisionByZero);
    }
};

QTEST_GUILESS_MAIN(StatisticsTest)
#include "StatisticsTest.moc"
