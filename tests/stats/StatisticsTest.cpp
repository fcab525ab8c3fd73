// Base statistics, confidence limits, normal density, the two tail probabilities and the critical values:
// printed reference figures, exact cases, invariants, failures, and the distance from the true distributions.
#include "stats/Statistics.h"
#include "Compare.h"
#include "stats/CheckedArithmetic.h"
#include "stats/CriticalValues.h"

#include <QTest>

#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>

#include <algorithm>
#include <set>
#include <string>
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

/// Holds the one pair 2, 7; counts how often it is asked.
class OnePair : public FTable
{
public:
    std::optional<double> Find(std::int16_t gdl1, std::int16_t gdl2) override
    {
        ++m_asked;
        return gdl1 == 2 && gdl2 == 7 ? std::optional(4.7374) : std::nullopt;
    }
    int Asked() const { return m_asked; }

private:
    int m_asked = 0;
};

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
        QVERIFY(BaseOf({0.003, 0.003, 0.003}).variance >
                0); // by its rounding alone, which comes out negative
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
        // 2.776 / sqrt(5) = 1.24146..., and 1.24183... by 1.0003
        const Values five(5);
        const ConfidenceLimits limits = CalcLimConf(five, 100, 1.0003, 0, 2.776);
        // Downward, not toward zero, and percent from the product before its own flooring.
        const ConfidenceLimits negative = CalcLimConf(five, -100, 1.0003, 0, 2.776);
        for (const auto& [actual, expected] : {std::pair(limits.lower, 98.759),
                                               {limits.upper, 101.241},
                                               {limits.width, 2.482},
                                               {limits.percent, 1.241},
                                               {negative.percent, -1.242},
                                               {negative.upper, -98.759},
                                               {CalcLimConf(five, 0.01, 1, 0, 2.776).percent, 12414.649}})
            COMPARE_CLOSE(actual, expected, 1e-15);
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

        QVERIFY(ProbF(60, 200, 200) > 0); // |z| 21.62, and 21.85 in the next one
        QCOMPARE_EQ(ProbF(65, 200, 200), kNoProbability);
        QVERIFY(ProbF(0, 3, 3) > 0.9);
        VERIFY_FAILS(ProbF(1, 3641, 5), FailureKind::Overflow);
        VERIFY_FAILS(ProbF(1, 5, 3641), FailureKind::Overflow);
        COMPARE_CLOSE(ProbF(1, 3640, 3640), 0.5, 1e-15);
        VERIFY_FAILS(ProbF(1, 0, 5), FailureKind::DivisionByZero);
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
        VERIFY_FAILS(SumArray(Values{1e308, 1e308}), FailureKind::Overflow);
        VERIFY_FAILS(CalcLimConf(Values(5), 0, 1, 0, 2), FailureKind::DivisionByZero);
        VERIFY_FAILS(CalcLimConf(Values(), 1, 1, 0, 2), FailureKind::DivisionByZero);
    }

    void CriticalValues()
    {
        QVERIFY(std::fabs(NormalQuantile(0.05) - 1.6452114) < 1e-7);
        QVERIFY(std::fabs(NormalQuantile(0.025) - 1.9603949) < 1e-7);
        const struct {
            int gdl1; // 0: of t
            int gdl2;
            double printed;
        } rows[] = {{0, 1, 12.706},  {0, 2, 4.303},   {0, 3, 3.182},    {0, 4, 2.776},    {0, 5, 2.5714},
                    {0, 6, 2.4476},  {0, 7, 2.3653},  {0, 8, 2.3066},   {0, 9, 2.2628},   {0, 10, 2.2287},
                    {0, 20, 2.0865}, {0, 30, 2.0428}, {0, 120, 1.9804}, {4, 4, 6.4057},   {4, 10, 3.4808},
                    {5, 5, 5.0574},  {5, 10, 3.3277}, {10, 10, 2.9792}, {10, 20, 2.3484}, {20, 20, 2.1245}};
        for (const auto& [gdl1, gdl2, printed] : rows) {
            // The small t stand as they are; of the others half of the last printed digit.
            QVERIFY2(std::fabs(Value(gdl1, gdl2) - printed) <= (gdl1 == 0 && gdl2 < 5 ? 0 : 5e-5),
                     qPrintable(QString::number(printed)));
        }
    }

    /// How far the series lie off, measured against the exact quantiles, relatively and in units of 1e-4: a
    /// slip in the last digit of one constant shows.
    void CriticalDistances()
    {
        const struct {
            int gdl1; // 0: of t
            int gdl2;
            double relative;
        } rows[] = {{0, 5, 3.077683816}, // the series' worst
                    {0, 7, 2.874313256},     {0, 15, 2.500297973},  {0, 100, 2.241367684},
                    {0, 32000, 2.198807038}, // the quantile's own error
                    {4, 4, 27.361383369},    {4, 585, 7.704544558}, {8, 8, 4.711925917},
                    {13, 30, 1.706634230},   {30, 5, 13.589216037}, {100, 585, 0.518745523},
                    {100, 4, 28.040994791}}; // the worst
        for (const auto& [gdl1, gdl2, relative] : rows) {
            const double exact = gdl1 == 0 ? quantile(boost::math::students_t(gdl2), 0.975)
                                           : quantile(complement(boost::math::fisher_f(gdl1, gdl2), 0.05));
            COMPARE_CLOSE((Value(gdl1, gdl2) / exact - 1) * 1e4, relative, 1e-7);
        }
    }

    void CriticalFailures()
    {
        QCOMPARE_EQ(ValoreT(12, 2), ValoreT(17, 7)); // the difference alone counts
        QVERIFY(std::isfinite(ValoreT(1, 6)));
        VERIFY_FAILS(ValoreT(3, 3), FailureKind::DivisionByZero);
        VERIFY_FAILS(ValoreT(-32768, 1), FailureKind::Overflow);
        QVERIFY(Value(16383, 16384) > 1);
        VERIFY_FAILS(Value(16384, 16384), FailureKind::Overflow);
        VERIFY_FAILS(Value(4, 0), FailureKind::DivisionByZero);
    }

    void FisherTable()
    {
        OnePair table;
        QCOMPARE_EQ(ValoreF(2, 7, table), 4.7374);
        QCOMPARE_EQ(ValoreF(2, 8, table), 3.0);
        const double beyond[] = {0, 0, 3.84, 3, 2.6};
        for (std::int16_t gdl1 = -1; gdl1 <= 3; ++gdl1)
            QCOMPARE_EQ(ValoreF(gdl1, 8, table), beyond[gdl1 + 1]);
        QCOMPARE(table.Asked(), 7);
    }

    void Arithmetic()
    {
        const Real large = 1e308;
        VERIFY_FAILS(-large - large, FailureKind::Overflow);
        VERIFY_FAILS(large * large, FailureKind::Overflow);
        VERIFY_FAILS(large / 0.1, FailureKind::Overflow);
        VERIFY_FAILS(Power(large, 2.0), FailureKind::Overflow);
        VERIFY_FAILS(Exp(710.0), FailureKind::Overflow);
        VERIFY_FAILS(Sqrt(-1e-300), FailureKind::InvalidArgument);
        VERIFY_FAILS(Ln(0.0), FailureKind::InvalidArgument);
        VERIFY_FAILS(Power(0.0, -1.0), FailureKind::InvalidArgument);
        VERIFY_FAILS(Power(-8.0, 1.0 / 3), FailureKind::InvalidArgument);
        QCOMPARE_EQ(Power(-2.0, 3.0).Value(), -8.0);
    }

    /// The numbers are given; no two texts are the same.
    void Kinds()
    {
        std::set<std::string> texts;
        for (const int number : {5, 6, 11, 13, 53, 57, 61, 62, 70, 75, 76, 1025, 3024, 3027, 3078, 3163})
            texts.insert(RuntimeFailure(FailureKind{number}).Text());
        QVERIFY(texts.size() == 16 && !texts.contains(""));
    }

private:
    /// Of t for a gdl1 of 0, else of F, where the table is not asked.
    static double Value(int gdl1, int gdl2)
    {
        OnePair table;
        const auto degrees = static_cast<std::int16_t>(gdl2);
        const double value =
            gdl1 == 0 ? ValoreT(degrees, 0) : ValoreF(static_cast<std::int16_t>(gdl1), degrees, table);
        return table.Asked() == 0 ? value : 0;
    }
};

QTEST_GUILESS_MAIN(StatisticsTest)
#include "StatisticsTest.moc"
