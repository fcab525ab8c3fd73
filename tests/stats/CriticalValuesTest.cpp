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

double ExactT(int gdl)
{
    return quantile(boost::math::students_t(gdl), 0.975);
}

double ExactF(int gdl1, int gdl2)
{
    return quantile(complement(boost::math::fisher_f(gdl1, gdl2), 0.05));
}

} // namespace

class CriticalValuesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Quantile()
    {
        // Half of the last printed digit of 1.6452114 and 1.9603949.
        QVERIFY(std::fabs(NormalQuantile(0.05) - 1.6452114) < 1e-7);
        QVERIFY(std::fabs(NormalQuantile(0.025) - 1.9603949) < 1e-7);
    }

    void StudentReference_data()
    {
        QTest::addColumn<int>("degrees");
        QTest::addColumn<double>("expected");
        QTest::addColumn<double>("tolerance"); // 0 for the constants, else half of the last printed digit
        const struct {
            int degrees;
            double expected;
        } rows[] = {{1, 12.706},  {2, 4.303},   {3, 3.182},   {4, 2.776},  {5, 2.5714},
                    {6, 2.4476},  {7, 2.3653},  {8, 2.3066},  {9, 2.2628}, {10, 2.2287},
                    {20, 2.0865}, {30, 2.0428}, {120, 1.9804}};
        for (const auto& row : rows)
            QTest::addRow("v %d", row.degrees) << row.degrees << row.expected << (row.degrees < 5 ? 0 : 5e-5);
    }

    void StudentReference()
    {
        QFETCH(int, degrees);
        QFETCH(double, expected);
        QFETCH(double, tolerance);
        const auto v = static_cast<std::int16_t>(degrees);
        QVERIFY(std::fabs(ValoreT(static_cast<std::int16_t>(v + 1), 1) - expected) <= tolerance);
        QCOMPARE_EQ(ValoreT(v, 0),
                    ValoreT(static_cast<std::int16_t>(v + 7), 7)); // the difference alone counts
    }

    void StudentDistance_data()
    {
        QTest::addColumn<int>("degrees");
        QTest::addColumn<double>("relative"); // measured against the exact quantile, in units of 1e-4
        QTest::addRow("v 5, the series' worst") << 5 << 3.077683816;
        QTest::addRow("v 7") << 7 << 2.874313256;
        QTest::addRow("v 15") << 15 << 2.500297973;
        QTest::addRow("v 100") << 100 << 2.241367684;
        QTest::addRow("v 32000, the quantile's own error") << 32000 << 2.198807038;
    }

    void StudentDistance()
    {
        QFETCH(int, degrees);
        QFETCH(double, relative);
        const double distance = ValoreT(static_cast<std::int16_t>(degrees), 0) / ExactT(degrees) - 1;
        COMPARE_CLOSE(distance * 1e4, relative, 1e-8); // a slip in the last digit of one constant shows
    }

    void StudentFailures()
    {
        VERIFY_FAILS(ValoreT(3, 3), FailureKind::DivisionByZero);
        VERIFY_FAILS(ValoreT(-32768, 1), FailureKind::Overflow);
        QVERIFY(std::isfinite(ValoreT(1, 6)));
    }

    void FisherReference_data()
    {
        QTest::addColumn<int>("gdl1");
        QTest::addColumn<int>("gdl2");
        QTest::addColumn<double>("expected"); // four decimals printed
        QTest::addRow("4, 4") << 4 << 4 << 6.4057;
        QTest::addRow("4, 10") << 4 << 10 << 3.4808;
        QTest::addRow("5, 5") << 5 << 5 << 5.0574;
        QTest::addRow("5, 10") << 5 << 10 << 3.3277;
        QTest::addRow("10, 10") << 10 << 10 << 2.9792;
        QTest::addRow("10, 20") << 10 << 20 << 2.3484;
        QTest::addRow("20, 20") << 20 << 20 << 2.1245;
    }

    void FisherReference()
    {
        QFETCH(int, gdl1);
        QFETCH(int, gdl2);
        QFETCH(double, expected);
        OnePair table;
        const double value = ValoreF(static_cast<std::int16_t>(gdl1), static_cast<std::int16_t>(gdl2), table);
        QVERIFY(std::fabs(value - expected) <= 5e-5);
        QCOMPARE(table.Asked(), 0);
    }

    void FisherDistance_data()
    {
        QTest::addColumn<int>("gdl1");
        QTest::addColumn<int>("gdl2");
        QTest::addColumn<double>("relative"); // measured against the exact quantile, in units of 1e-4
        QTest::addRow("4, 4") << 4 << 4 << 27.361383369;
        QTest::addRow("4, 585") << 4 << 585 << 7.704544558;
        QTest::addRow("8, 8") << 8 << 8 << 4.711925917;
        QTest::addRow("13, 30") << 13 << 30 << 1.706634230;
        QTest::addRow("30, 5") << 30 << 5 << 13.589216037;
        QTest::addRow("100, 4, the worst") << 100 << 4 << 28.040994791;
        QTest::addRow("100, 585") << 100 << 585 << 0.518745523;
    }

    void FisherDistance()
    {
        QFETCH(int, gdl1);
        QFETCH(int, gdl2);
        QFETCH(double, relative);
        OnePair table;
        const double value = ValoreF(static_cast<std::int16_t>(gdl1), static_cast<std::int16_t>(gdl2), table);
        COMPARE_CLOSE((value / ExactF(gdl1, gdl2) - 1) * 1e4, relative, 1e-7);
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

    void FisherFailures()
    {
        OnePair table;
        VERIFY_FAILS(ValoreF(4, 0, table), FailureKind::DivisionByZero);
        VERIFY_FAILS(ValoreF(16384, 16384, table), FailureKind::Overflow);
        QVERIFY(ValoreF(16383, 16384, table) > 1);
    }
};

QTEST_GUILESS_MAIN(CriticalValuesTest)
#include "CriticalValuesTest.moc"
