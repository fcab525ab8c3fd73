// The grid's model: sizes, digits, what can be typed, what is shown, and what views are told.
#include "framework/DataGrid.h"
#include "Compare.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class DataGridTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void SizesKeepWhatFits()
    {
        DataGrid grid(u","_s);
        const QAbstractItemModelTester tester(&grid, QAbstractItemModelTester::FailureReportingMode::QtTest);
        grid.SetSize(3, 2);
        for (int row = 0; row < 3; ++row) {
            for (int col = 0; col < 2; ++col)
                grid.SetValue(row, col, 10 * row + col);
        }
        grid.SetColumnHeader(1, u"Gruppo B"_s);
        grid.SetSize(2, 3);
        QCOMPARE_EQ(grid.Value(1, 1), std::optional(11.0));
        QCOMPARE_EQ(grid.Value(1, 2), std::nullopt);
        QCOMPARE(grid.headerData(1, Qt::Horizontal).toString(), u"Gruppo B"_s);
        QCOMPARE(grid.headerData(1, Qt::Vertical).toString(), u"2"_s);
        grid.SetSize(3, 2);
        QCOMPARE_EQ(grid.Value(2, 0), std::nullopt);
        grid.FillEmptyWithZero();
        QCOMPARE_EQ(grid.Value(2, 1), std::optional(0.0));
        QCOMPARE_EQ(grid.Value(0, 1), std::optional(1.0));
        grid.Clear();
        QCOMPARE_EQ(grid.Value(0, 1), std::nullopt);
    }

    void SizesHaveLimits()
    {
        DataGrid grid(u"."_s);
        VERIFY_FAILS(grid.SetSize(-1, 1), FailureKind::InvalidArgument);
        VERIFY_FAILS(grid.SetSize(32767, 33), FailureKind::Overflow);
        grid.SetSize(32767, 32);
        QCOMPARE(grid.Rows(), 32767);
    }

    void Typing_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown"); // "former": refused
        QTest::addRow("comma") << u"1,5"_s << u"1,500"_s;
        QTest::addRow("point") << u"1.5"_s << u"1,500"_s;
        QTest::addRow("more decimals than shown") << u"0,0125"_s << u"0,013"_s;
        QTest::addRow("largest") << u"999,999"_s << u"999,999"_s;
        QTest::addRow("just above the largest") << u"999,9991"_s << u"former"_s;
        QTest::addRow("too many integer digits") << u"1000"_s << u"former"_s;
        QTest::addRow("negative") << u"-1"_s << u"former"_s;
        QTest::addRow("text") << u"abc"_s << u"former"_s;
        QTest::addRow("emptied") << u" "_s << u""_s;
    }

    void Typing()
    {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        DataGrid grid(u","_s);
        grid.SetSize(2, 1);
        grid.SetDigits({.interi = 3, .decimali = 3});
        grid.SetValue(1, 0, 7);
        const bool refused = shown == u"former";
        QSignalSpy edited(&grid, &DataGrid::Edited);
        QCOMPARE(grid.setData(grid.index(1, 0), typed), !refused);
        QCOMPARE(grid.data(grid.index(1, 0)).toString(), refused ? u"7,000"_s : shown);
        QCOMPARE(grid.ChangeMade(), !refused);
        QCOMPARE(edited.size(), refused ? 0 : 1);
    }

    void HiddenDigitsStay()
    {
        DataGrid grid(u"."_s);
        grid.SetSize(1, 1);
        grid.SetDigits({.interi = 3, .decimali = 1});
        QVERIFY(grid.TypeText(0, 0, u"0.1234"_s));
        grid.SetChangeMade(false);
        QVERIFY(grid.TypeText(0, 0, u"0.1"_s)); // an edit left as it was shown
        QVERIFY(!grid.ChangeMade());
        QCOMPARE_EQ(grid.TextNumber(0, 0), 0.1);
        grid.SetDigits({.interi = 3, .decimali = 4});
        QCOMPARE(grid.Text(0, 0), u"0.1234"_s);
        QCOMPARE_EQ(grid.TextNumber(0, 0), 0.1234);
    }

    void EmptyCellsAreNoNumbers()
    {
        DataGrid grid(u"."_s);
        grid.SetSize(1, 1);
        QCOMPARE_EQ(grid.TextValue(0, 0), std::nullopt);
        QVERIFY(!grid.data(grid.index(0, 0), DataGrid::NumberRole).isValid());
        VERIFY_FAILS(grid.TextNumber(0, 0), FailureKind::TypeMismatch);
        VERIFY_FAILS(grid.TextNumber(1, 0), FailureKind::TypeMismatch);
        grid.SetValue(0, 0, -2.5); // as a file may hold it
        QCOMPARE_EQ(grid.data(grid.index(0, 0), DataGrid::NumberRole).toDouble(), -2.5);
    }

    void LargestText()
    {
        DataGrid grid(u","_s);
        grid.SetDigits({.interi = 4, .decimali = 2});
        QCOMPARE(grid.LargestText(), u"9999,99"_s);
        grid.SetDigits({.interi = 13, .decimali = 0});
        QCOMPARE(grid.LargestText(), u"9999999999999"_s);
        grid.SetSize(1, 1);
        QVERIFY(grid.TypeText(0, 0, u"9999999999999"_s));
        QVERIFY(!grid.TypeText(0, 0, u"10000000000000"_s));
        grid.SetDigits({.interi = 1, .decimali = 12});
        QVERIFY(grid.TypeText(0, 0, u"9,999999999999"_s));
    }
};

QTEST_GUILESS_MAIN(DataGridTest)
#include "DataGridTest.moc"
