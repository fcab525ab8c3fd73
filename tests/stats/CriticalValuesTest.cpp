// The critical values: the reference tables of both routines, the table's fall-backs, and the distance of the
// series from the true quantiles as a bound.
#include "stats/CriticalValues.h"
#include "Compare.h"

#include <QTest>

#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/students_t.hpp>

namespace
{

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

class CriticalValuesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Student()
    {
        QVERIFY(std::fabs(NormalQuantile(0.05) - 1.6452114) < 1e-7); // the last printed digit
        QVERIFY(std::fabs(NormalQuantile(0.025) - 1.9603949) < 1e-7);
        const struct {
            int degrees;
            double printed;
        } rows[] = {{1, 12.706},  {2, 4.303},   {3, 3.182},   {4, 2.776},  {5, 2.5714},
                    {6, 2.4476},  {7, 2.3653},  {8, 2.3066},  {9, 2.2628}, {10, 2.2287},
                    {20, 2.0865}, {30, 2.0428}, {120, 1.9804}};
        for (const auto& [degrees, printed] : rows) {
            // The constants stand as they are; of the others half of the last printed digit.
            QVERIFY2(std::fabs(T(degrees) - printed) <= (degrees < 5 ? 0 : 5e-5),
                     qPrintable(QString::number(degrees)));
            QCOMPARE_EQ(T(degrees, 1), T(degrees, 8)); // the difference alone counts
        }
        VERIFY_FAILS(T(0, 3), FailureKind::DivisionByZero);
        VERIFY_FAILS(ValoreT(-32768, 1), FailureKind::Overflow);
        QVERIFY(std::isfinite(T(-5, 6)));
    }

    void Fisher()
    {
        const struct {
            int gdl1;
            int gdl2;
            double printed; // four decimals
        } rows[] = {{4, 4, 6.4057},   {4, 10, 3.4808},  {5, 5, 5.0574},  {5, 10, 3.3277},
                    {10, 10, 2.9792}, {10, 20, 2.3484}, {20, 20, 2.1245}};
        for (const auto& [gdl1, gdl2, printed] : rows)
            QVERIFY2(std::fabs(F(gdl1, gdl2) - printed) <= 5e-5, qPrintable(QString::number(printed)));
        VERIFY_FAILS(F(4, 0), FailureKind::DivisionByZero);
        VERIFY_FAILS(F(16384, 16384), FailureKind::Overflow);
        QVERIFY(F(16383, 16384) > 1);
    }

    /// How far the series lie off, measured against the exact quantiles, relatively and in units of 1e-4: a
    /// slip in the last digit of one constant shows.
    void Distances()
    {
        const struct {
            int gdl1; // 0: of t
            int gdl2;
            double relative;
        } rows[] = {
            {0, 5, 3.077683816}, // the series' worst
            {0, 7, 2.874313256},     {0, 15, 2.500297973},  {0, 100, 2.241367684},
            {0, 32000, 2.198807038}, // the quantile's own error
            {4, 4, 27.361383369},    {4, 585, 7.704544558}, {8, 8, 4.711925917},
            {13, 30, 1.706634230},   {30, 5, 13.589216037}, {100, 4, 28.040994791}, // the worst
            {100, 585, 0.518745523},
        };
        for (const auto& [gdl1, gdl2, relative] : rows) {
            const double exact = gdl1 == 0 ? quantile(boost::math::students_t(gdl2), 0.975)
                                           : quantile(complement(boost::math::fisher_f(gdl1, gdl2), 0.05));
            COMPARE_CLOSE(((gdl1 == 0 ? T(gdl2) : F(gdl1, gdl2)) / exact - 1) * 1e4, relative, 1e-7);
        }
    }

    void FisherTable()
    {
        OnePair table;
        QCOMPARE_EQ(ValoreF(2, 7, table), 4.7374);
        QCOMPARE_EQ(ValoreF(1, 7, table), 3.84);
        QCOMPARE_EQ(ValoreF(2, 8, table), 3.0);
        QCOMPARE_EQ(ValoreF(3, 7, table), 2.6);
        QCOMPARE_EQ(ValoreF(0, 7, table), 0.0);
        QCOMPARE_EQ(ValoreF(-1, 7, table), 0.0);
        QCOMPARE(table.Asked(), 6);
    }

private:
    static double T(int degrees, int k = 0)
    {
        return ValoreT(static_cast<std::int16_t>(degrees + k), static_cast<std::int16_t>(k));
    }
    /// Where the table is not asked.
    static double F(int gdl1, int gdl2)
    {
        OnePair table;
        const double value = ValoreF(static_cast<std::int16_t>(gdl1), static_cast<std::int16_t>(gdl2), table);
        return table.Asked() == 0 ? value : 0;
    }
};

QTEST_GUILESS_MAIN(CriticalValuesTest)
#include "CriticalValuesTest.moc"
