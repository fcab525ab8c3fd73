// The arithmetic of the calibration: against printed results, and where its guards and failures stand. The
// rest stands in tests/data/documents.
#include "validation/calibration/TaraCalc.h"
#include "Compare.h"
#include "PrintedCalibrations.h"

#include <QTest>

#include <cmath>
#include <vector>

namespace
{

/// Asked in vain, and counted.
class NoTable : public FTable
{
public:
    std::optional<double> Find(std::int16_t, std::int16_t) override
    {
        ++asked;
        return std::nullopt;
    }
    int asked = 0;
};

/// Groups of responses, as a table has them.
struct Groups {
    std::vector<double> conc;
    std::vector<std::vector<double>> responses; ///< one list a group

    TaraResults Calc(int count = 0)
    {
        std::vector<double> risp;
        for (std::size_t j = 0; j < responses.front().size(); ++j) {
            for (const auto& group : responses)
                risp.push_back(group[j]);
        }
        const auto k = static_cast<std::int16_t>(conc.size());
        const auto r = static_cast<std::int16_t>(responses.front().size());
        return CalcRegr({.conc = conc,
                         .risp = risp,
                         .groups = k,
                         .replicates = r,
                         .count = static_cast<std::int16_t>(count == 0 ? k * r : count)},
                        table, [this] { ++overflows; });
    }
    NoTable table = {};
    int overflows = 0;
};

/// Twenty replicates of sixty groups, which only their pure error keeps from a line.
Groups NearlyPerfect()
{
    Groups groups;
    for (int i = 1; i <= 60; ++i) {
        groups.conc.push_back(i);
        groups.responses.emplace_back();
        for (int j = 0; j < 20; ++j)
            groups.responses.back().push_back(100.0 * i + (j % 2 == 0 ? 0.25 : -0.25));
    }
    return groups;
}

} // namespace

class TaraCalcTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Printed_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; const PrintedCalibration& each : PrintedCalibrations())
            QTest::addRow("%s", each.name.c_str()) << i++;
    }

    void Printed()
    {
        QFETCH(int, index);
        const PrintedCalibration printed = PrintedCalibrations()[static_cast<std::size_t>(index)];
        const TaraResults r = Groups{printed.concentrations, printed.responses}.Calc();
        QCOMPARE(r.end, TaraEnd::Done);
        const auto n = static_cast<double>(printed.concentrations.size() * printed.responses.front().size());
        const std::pair<const std::optional<PrintedFigure>&, double> figures[] = {
            {printed.intercept, r.a},
            {printed.slope, r.b},
            {printed.interceptDeviation, r.sa},
            {printed.slopeDeviation, r.sb},
            {printed.residualDeviation, std::sqrt(r.devRes / (n - 2))},
            {printed.correlation, r.r},
            {printed.devReg, r.devReg},
            {printed.devRes, r.devRes},
            {printed.devCurv, r.devCurv},
            {printed.devErr, r.devErr},
            {printed.fCurv, r.curv.f}};
        int compared = 0;
        for (const auto& [figure, ours] : figures) {
            compared += figure ? 1 : 0;
            if (figure && !figure->Agrees(ours))
                QFAIL(qPrintable(QStringLiteral("printed %1, calculated %2").arg(figure->value).arg(ours)));
        }
        QVERIFY(compared >= 6);
    }

    /// Another order, scale or shift changes what it must, and nothing else.
    void Invariants()
    {
        Groups groups{{1.5, 2, 4, 7.25},
                      {{3.1, 2.9, 3.3}, {4.2, 4.0, 3.9}, {8.4, 8.1, 8.0}, {14.0, 14.9, 14.5}}};
        const TaraResults r = groups.Calc();
        QCOMPARE(groups.table.asked, 2); // both pairs, and to no end
        Groups turned{{7.25, 4, 2, 1.5},
                      {{-14.0, -14.9, -14.5}, {-8.4, -8.1, -8.0}, {-4.2, -4.0, -3.9}, {-3.1, -2.9, -3.3}}};
        const TaraResults t = turned.Calc();
        COMPARE_CLOSE(t.b, -r.b, 1e-12);
        COMPARE_CLOSE(t.r, -r.r, 1e-12);
        COMPARE_CLOSE(t.d, -r.d, 1e-9);
        COMPARE_CLOSE(t.curv.f, r.curv.f, 1e-9);
        COMPARE_CLOSE(t.confLimSup, -r.confLimInf, 1e-9);
        COMPARE_CLOSE(r.devCurv + r.devErr, r.devRes, 1e-12);
        COMPARE_CLOSE(r.r * r.r, r.devReg / r.devTot, 1e-12);
    }

    void GuardsInTheirOrder()
    {
        const auto end = [](std::vector<double> conc, std::vector<std::vector<double>> responses,
                            int count = 0) {
            return Groups{std::move(conc), std::move(responses)}.Calc(count).end;
        };
        const std::vector<double> x = {1, 2, 3};
        QCOMPARE(end(x, {{1, 2, 3}, {-1, -2, -3}, {0, 0, 0}}), TaraEnd::AllZero);
        QCOMPARE(end({-1, 0, 1}, {{1, 2, 3}, {3, 4, 5}, {6, 7, 8}}), TaraEnd::AllZero);
        // Fewer data told than there are: the line explains more than there is.
        QCOMPARE(end(x, {{3, 3, 3}, {5, 5, 5}, {7, 7, 7}}, 8), TaraEnd::NegativeResidual);
        // On a line but for rounding, which leaves -1.8e-14.
        QCOMPARE(end(x, {{3.6, 3.6, 3.6}, {5.9, 5.9, 5.9}, {8.2, 8.2, 8.2}}), TaraEnd::NegativeResidual);
        const std::vector<std::vector<double>> y = {{1, 2, 3}, {3, 4, 5}, {6, 7, 8.5}};
        VERIFY_FAILS(end({2, 2, 2}, y), FailureKind::DivisionByZero); // one concentration
        VERIFY_FAILS(end(x, {{1, 2, 3}, {1, 2, 3}, {1, 2, 3}}), FailureKind::DivisionByZero); // no slope
        VERIFY_FAILS(end(x, {{2, 2, 2}, {2, 2, 2}, {2, 2, 2}}),
                     FailureKind::DivisionByZero); // nothing varies
        VERIFY_FAILS(end({1, 2}, {{1, 2, 3}, {3, 4, 5}}), FailureKind::DivisionByZero);
        VERIFY_FAILS(end(x, y, 3), FailureKind::InvalidArgument);           // the corrected sum is below 0
        VERIFY_FAILS(end(x, {{1}, {3}, {4}}), FailureKind::DivisionByZero); // N = K
        VERIFY_FAILS(end({1e200, 2e200, 3e200}, y), FailureKind::Overflow);
        VERIFY_FAILS(end(x, y, 32767), FailureKind::Overflow); // of the degrees of freedom
    }

    /// Which cell shows a ratio and what is significant, where there is no pure error.
    void NoPureError()
    {
        const TaraResults line = Groups{{1, 2, 3}, {{2, 2, 2}, {4, 4, 4}, {6, 6, 6}}}.Calc();
        QCOMPARE_EQ(line.varErr, 0);
        QCOMPARE_EQ(line.d, 0);
        QVERIFY(line.reg.significant && !line.reg.shown && line.reg.f == 0);
        QVERIFY(!line.curv.significant && !line.curv.shown);
        const TaraResults bent = Groups{{1, 2, 3}, {{2, 2, 2}, {4, 4, 4}, {9, 9, 9}}}.Calc();
        QVERIFY(bent.curv.significant && !bent.curv.shown && bent.varCurv > 0);
    }

    /// Only what is above the level is not significant; a probability that can't be had is told, and counts.
    void Significance()
    {
        Groups weak{{1, 2, 3}, {{5, 9, 1}, {5, 9, 2}, {5, 9, 3}}};
        const TaraResults r = weak.Calc();
        QVERIFY(r.reg.p > 0.05 && !r.reg.significant && r.reg.shown == r.reg.f);
        QCOMPARE(weak.overflows, 0);
        Groups large = NearlyPerfect();
        const TaraResults sure = large.Calc();
        QCOMPARE_EQ(sure.reg.p, -1);
        QVERIFY(sure.reg.significant && large.overflows >= 1);
    }

    void ZeroAtTheEndsOfTheLimitsIsInside()
    {
        TaraResults r;
        r.confLimSup = 0;
        r.confLimInf = -1;
        QVERIFY(r.Proportional());
        r.confLimSup = 1;
        r.confLimInf = 0;
        QVERIFY(r.Proportional());
        r.confLimInf = 1e-9;
        QVERIFY(!r.Proportional());
    }
};

QTEST_GUILESS_MAIN(TaraCalcTest)
#include "TaraCalcTest.moc"
