// The grid's model: sizes, digits, what can be typed, what is shown, and what views are told.
#include "framework/grid/DataGrid.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/grid/TabText.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

/// Each cell holds its place, counted row by row.
void FillWithPlaces(DataGrid& grid, int rows, int cols)
{
    grid.SetSize(rows, cols);
    for (int i = 0; i < rows * cols; ++i)
        grid.SetValue(i / cols, i % cols, i);
}

/// "8 2 0 0": taken, refused, outside, rounded; the first refused; the block; whether headed and changed.
QString Told(const PasteCount& count)
{
    QString text = u"%1 %2 %3 %4"_s.arg(count.taken).arg(count.refused).arg(count.outside).arg(count.rounded);
    if (const auto& first = count.firstRefused)
        text +=
            u", first %1 %2 %3"_s.arg(QString::number(first->row), QString::number(first->col), first->text);
    text += u", %1 x %2"_s.arg(count.block.rows).arg(count.block.cols);
    return text + (count.headed ? u", headed"_s : QString()) + (count.changed ? u", changed"_s : QString());
}

} // namespace

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
        grid.SetLocked(1, 1, true);
        grid.SetSize(2, 3);
        QVERIFY(grid.IsLocked(1, 1) && !grid.IsLocked(1, 0) && !grid.IsLocked(1, 2));
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
        grid.SetSize(1024, 1024);
        QCOMPARE(grid.Rows(), 1024);
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
        QTest::addRow("zero") << u"0"_s << u"0,000"_s;
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
        QCOMPARE(grid.Edits().ChangeMade(), !refused);
        QCOMPARE(edited.size(), refused ? 0 : 1);
    }

    void HiddenDigitsStay()
    {
        DataGrid grid(u"."_s);
        grid.SetSize(1, 1);
        grid.SetDigits({.interi = 3, .decimali = 1});
        QVERIFY(grid.Edits().TypeText(0, 0, u"0.1234"_s));
        grid.Edits().SetChangeMade(false);
        QVERIFY(grid.Edits().TypeText(0, 0, u"0.1"_s)); // an edit left as it was shown
        QVERIFY(!grid.Edits().ChangeMade());
        QCOMPARE_EQ(grid.TextNumber(0, 0), 0.1);
        grid.SetDigits({.interi = 3, .decimali = 4});
        QCOMPARE(grid.Text(0, 0), u"0.1234"_s);
        QCOMPARE_EQ(grid.TextNumber(0, 0), 0.1234);
    }

    /// What the program fills in reaches the views, too, once a redraw has ended.
    void ViewsAreTold()
    {
        DataGrid grid(u"."_s);
        FillWithPlaces(grid, 3, 2);
        const QSignalSpy cells(&grid, &QAbstractItemModel::dataChanged);
        const QSignalSpy headers(&grid, &QAbstractItemModel::headerDataChanged);
        const QSignalSpy begun(&grid, &QAbstractItemModel::modelAboutToBeReset);
        const QSignalSpy reset(&grid, &QAbstractItemModel::modelReset);
        const auto told = [&] {
            const QModelIndex first = cells.last()[0].toModelIndex();
            const QModelIndex last = cells.last()[1].toModelIndex();
            return u"%1 %2 to %3 %4"_s.arg(first.row())
                .arg(first.column())
                .arg(last.row())
                .arg(last.column());
        };
        grid.SetValue(2, 1, 7);
        QCOMPARE(told(), u"2 1 to 2 1"_s);
        grid.SetLocked(0, 1, true);
        QCOMPARE(told(), u"0 1 to 0 1"_s);
        grid.Edits().ClearBlock({.row = 1, .col = 0, .rows = 2, .cols = 2});
        QCOMPARE(told(), u"1 0 to 2 1"_s);
        grid.SetColumnHeader(1, u"B"_s);
        QCOMPARE(headers.last().sliced(1), (QVariantList{1, 1}));
        grid.Edits().SetHeaders({u"3"_s, u"4"_s});
        QCOMPARE(headers.last().sliced(1), (QVariantList{0, 1}));
        {
            const DataGrid::Redraw redraw(grid);
            grid.SetValue(0, 0, 1);
            grid.SetColumnHeader(0, u"A"_s);
            grid.Edits().SetHeaders({u"5"_s});
            grid.SetSize(2, 2);
            grid.Clear();
            QCOMPARE(reset.size(), 0);
        }
        QCOMPARE(reset.size(), 1);
        QCOMPARE(cells.size() * 10 + headers.size(), 32);
        grid.SetSize(2, 2); // as it is
        QCOMPARE(reset.size(), 1);
        grid.FillEmptyWithZero();
        grid.UnlockAll();
        grid.SetDigits({.interi = 2, .decimali = 1});
        QCOMPARE(reset.size(), 4);
        QCOMPARE(begun.size(), 4);
    }

    void WhatACellShows()
    {
        DataGrid grid(u"."_s);
        grid.SetSize(1, 1);
        grid.SetValue(0, 0, 1.26);
        grid.SetDigits({.interi = 3, .decimali = 1});
        const QModelIndex cell = grid.index(0, 0);
        QCOMPARE(cell.data(Qt::EditRole).toString(), u"1.3"_s);
        QCOMPARE_EQ(cell.data(DataGrid::NumberRole).toDouble(), 1.26);
        QCOMPARE(cell.data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
        QVERIFY(!cell.data(Qt::ToolTipRole).isValid() && !grid.data({}).isValid());
        QVERIFY(cell.flags() ==
                (Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemNeverHasChildren));
        QVERIFY(!grid.setData(cell, u"2"_s, Qt::DisplayRole));
        // Groups are for the eye alone.
        grid.SetDigits({.interi = 7, .decimali = 0});
        grid.SetGrouped(true);
        for (const auto& [value, shown] :
             {std::pair(123.0, u"123"_s), {-123.0, u"-123"_s}, {1234567.0, u"1,234,567"_s}}) {
            grid.SetValue(0, 0, value);
            QCOMPARE(cell.data().toString(), shown);
        }
        grid.SetDigits({.interi = 7, .decimali = 3});
        QCOMPARE(cell.data().toString(), u"1,234,567.000"_s);
        QCOMPARE(cell.data(Qt::EditRole).toString(), u"1234567.000"_s);
        QCOMPARE(grid.Edits().BlockText({}), u"1234567.000"_s);
        QCOMPARE(grid.rowCount(cell) + grid.columnCount(cell), 0);
    }

    /// The oldest steps go where all together hold too many cells.
    void HistoryHasAnEnd()
    {
        DataGrid grid(u"."_s);
        History& steps = grid.Edits().Steps();
        const auto takenBack = [&] {
            int count = 0;
            while (steps.Undo())
                ++count;
            return count;
        };
        const auto type = [&](const QString& first, const QString& second) {
            return grid.Edits().TypeText(0, 0, first) && grid.Edits().TypeText(0, 0, second);
        };
        const auto addLarge = [&] { steps.Add({[](bool) {}, std::size_t{1} << 20}); };
        grid.SetSize(1, 1);
        QVERIFY(type(u"1"_s, u"2"_s));
        addLarge(); // as many cells as a history holds
        QCOMPARE(takenBack(), 1);
        steps.Redo();
        QVERIFY(type(u"3"_s, u"4"_s)); // the large one went with the first of them
        QCOMPARE(takenBack(), 2);
        QVERIFY(type(u"5"_s, u"6"_s)); // in the place of those that were taken back
        QCOMPARE(takenBack(), 2);
        addLarge();
        steps.Clear();
        QVERIFY(type(u"7"_s, u"8"_s));
        QCOMPARE(takenBack(), 2);
        addLarge();
        QCOMPARE(takenBack(), 1);
        QVERIFY(type(u"9"_s, u"1"_s)); // no weight is left of what was taken back
        QCOMPARE(takenBack(), 2);
        steps.Redo(); // goes with the weight of the group
        const QString before = grid.Text(0, 0);
        {
            const History::Group group(steps);
            QVERIFY(type(u"4"_s, u"3"_s));
            addLarge();
        }
        QCOMPARE(takenBack(), 1);
        QCOMPARE(grid.Text(0, 0), before);
        QVERIFY(steps.Redo() && grid.Text(0, 0) == u"3"_s);
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
        QVERIFY(grid.Edits().TypeText(0, 0, grid.Text(0, 0))); // left as it was
    }

    void TabTextOfSpreadsheets_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<QStringList>>("rows");
        QTest::addRow("nothing") << u""_s << QList<QStringList>{};
        QTest::addRow("one cell") << u"1,5"_s << QList<QStringList>{{u"1,5"_s}};
        QTest::addRow("last line end") << u"1\t2\n3\n"_s << QList<QStringList>{{u"1"_s, u"2"_s}, {u"3"_s}};
        QTest::addRow("CR LF, empty cells")
            << u"\t\r\n1\t\r\n"_s << QList<QStringList>{{u""_s, u""_s}, {u"1"_s, u""_s}};
        QTest::addRow("an empty row inside")
            << u"1\n\n2"_s << QList<QStringList>{{u"1"_s}, {u""_s}, {u"2"_s}};
        QTest::addRow("quoted") << u"\"1,5\"\t\"a\tb\"\n\"c\nd\"\t\"e\"\"f\""_s
                                << QList<QStringList>{{u"1,5"_s, u"a\tb"_s}, {u"c\nd"_s, u"e\"f"_s}};
        QTest::addRow("marks inside, or left open")
            << u"a\"b\t\"c\"d\t\"e"_s << QList<QStringList>{{u"a\"b"_s, u"\"c\"d"_s, u"\"e"_s}};
    }

    void TabTextOfSpreadsheets()
    {
        QFETCH(QString, text);
        QFETCH(QList<QStringList>, rows);
        QCOMPARE(ParseTabText(text), rows);
    }

    void PasteOfASpreadsheet_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addRow("English") << u"calc-english.txt"_s;
        QTest::addRow("Italian") << u"calc-italian.txt"_s;
    }

    void PasteOfASpreadsheet()
    {
        QFETCH(QString, file);
        const QString text =
            QString::fromUtf8(BytesOf(QStringLiteral(QUOREL_TEST_DATA "/clipboard/") + file));
        for (const QString& decSep : {u","_s, u"."_s}) {
            DataGrid grid(decSep);
            grid.SetSize(6, 2);
            grid.SetDigits({.interi = 7, .decimali = 6});
            grid.FillEmptyWithZero();
            QCOMPARE(Told(grid.Edits().PasteText(0, 0, text)),
                     u"8 2 0 0, first 2 0 con \"virgolette\", 5 x 2, changed"_s);
            const QList<double> expected = {1.5, 1234.5, 0.125, 12, 0, 0, 7, 1234567.25, -1, 0.000012, 0, 0};
            for (int i = 0; i < expected.size(); ++i)
                QCOMPARE_EQ(grid.Value(i / 2, i % 2).value_or(-1), expected[i]);
        }
    }

    void PasteStaysInside()
    {
        DataGrid grid(u"."_s);
        FillWithPlaces(grid, 3, 2);
        grid.SetLocked(2, 1, true);
        QSignalSpy edited(&grid, &DataGrid::Edited);
        QCOMPARE(Told(grid.Edits().PasteText(1, 1, u"5\t6\n7\t8\n9"_s)), u"1 0 4 0, 3 x 2, changed"_s);
        QCOMPARE(grid.Edits().BlockText({.row = 0, .col = 0, .rows = 3, .cols = 2}), u"0\t1\n2\t5\n4\t5"_s);
        QCOMPARE(edited.size(), 1);
        QCOMPARE(edited[0][0].value<GridChange>().block,
                 (GridBlock{.row = 1, .col = 1, .rows = 1, .cols = 1}));
        QCOMPARE(Told(grid.Edits().PasteText(0, 0, u"10\n-1\nx"_s)), u"0 3 0 0, first 0 0 10, 3 x 1"_s);
        QCOMPARE(edited.size(), 1); // nothing changed
        QCOMPARE(Told(grid.Edits().PasteText(0, 0, u"A\t\n0.4\tx"_s)),
                 u"2 2 0 1, first 0 0 A, 2 x 2, headed, changed"_s);
        QCOMPARE(Told(grid.Edits().PasteText(0, 0, u"A"_s)), u"0 1 0 0, first 0 0 A, 1 x 1"_s);
        QCOMPARE(Told(grid.Edits().PasteText(0, 0, u"\n0.4"_s)), u"2 0 0 1, 2 x 1, changed"_s);
        QCOMPARE(Told(grid.Edits().PasteText(1, 0, u"0.4"_s)), u"1 0 0 1, 1 x 1"_s); // as it stands
    }

    void ClearAndLocks()
    {
        DataGrid grid(u"."_s);
        FillWithPlaces(grid, 2, 2);
        grid.SetLocked(1, 0, true);
        QVERIFY(!grid.Edits().TypeText(1, 0, u"7"_s));
        QVERIFY(!(grid.flags(grid.index(1, 0)) & Qt::ItemIsEditable));
        grid.Edits().ClearBlock({.row = 0, .col = 0, .rows = 2, .cols = 2});
        QCOMPARE(grid.Edits().BlockText({.row = 0, .col = 0, .rows = 2, .cols = 2}), u"\t\n2\t"_s);
        grid.UnlockAll();
        QVERIFY(grid.Edits().TypeText(1, 0, u"7"_s));
        grid.SetLocked(1, 0, true);
        grid.Edits().ClearBlock({.row = 1, .col = 0});
        grid.Edits().Steps().Undo(); // the typing, in a cell that is locked now; the clearing was no step
        QVERIFY(grid.Edits().Steps().Undo());
        QCOMPARE(grid.Text(1, 0), u"7"_s);
    }

    void Dragging_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("copy");
        QTest::addColumn<bool>("overwrites");
        QTest::addColumn<QString>("after");
        QTest::addRow("moved onto empty cells") << 3 << false << false << u"\n\n\n0\n1"_s;
        QTest::addRow("moved onto a number") << 2 << false << true << u"\n\n0\n1\n"_s;
        QTest::addRow("copied") << 2 << true << true << u"0\n1\n0\n1\n"_s;
        QTest::addRow("moved over itself") << 1 << false << false << u"\n0\n1\n\n"_s;
    }

    void Dragging()
    {
        QFETCH(int, row);
        QFETCH(bool, copy);
        QFETCH(bool, overwrites);
        QFETCH(QString, after);
        DataGrid grid(u"."_s);
        FillWithPlaces(grid, 5, 1);
        grid.Edits().ClearBlock({.row = row == 2 ? 3 : 2, .col = 0, .rows = 3, .cols = 1});
        const GridBlock block{.row = 0, .col = 0, .rows = 2, .cols = 1};
        QCOMPARE(grid.Edits().Overwrites(block, row, 0), overwrites);
        grid.Edits().MoveBlock(block, row, 0, copy);
        QCOMPARE(grid.Edits().BlockText({.row = 0, .col = 0, .rows = 5, .cols = 1}), after);
    }

    void NothingIsMovedIntoALockedCell()
    {
        DataGrid grid(u"."_s);
        FillWithPlaces(grid, 4, 1);
        grid.SetLocked(3, 0, true);
        grid.Edits().MoveBlock({.row = 0, .col = 0, .rows = 2, .cols = 1}, 2, 0, false);
        QCOMPARE(grid.Edits().BlockText({.row = 0, .col = 0, .rows = 4, .cols = 1}), u"\n1\n0\n3"_s);
    }

    void TakenBackAndDoneAgain()
    {
        DataGrid grid(u"."_s);
        FillWithPlaces(grid, 3, 1);
        QVERIFY(grid.Edits().TypeText(0, 0, u"7"_s));
        grid.Edits().PasteText(1, 0, u"8\n9"_s);
        grid.Edits().MoveBlock({.row = 0, .col = 0}, 1, 0, false);
        const auto text = [&] { return grid.Edits().BlockText({.row = 0, .col = 0, .rows = 3, .cols = 1}); };
        QCOMPARE(text(), u"\n7\n9"_s);
        grid.Edits().SetChangeMade(false);
        const QSignalSpy edited(&grid, &DataGrid::Edited);
        QVERIFY(grid.Edits().Steps().Undo());
        QCOMPARE(edited[0][0].value<GridChange>(),
                 (GridChange{.block = {.row = 0, .col = 0, .rows = 2, .cols = 1}, .again = true}));
        QCOMPARE(text(), u"7\n8\n9"_s);
        QVERIFY(grid.Edits().ChangeMade());
        grid.Edits().Steps().Undo();
        QCOMPARE(text(), u"7\n1\n2"_s);
        grid.Edits().Steps().Redo();
        QCOMPARE(text(), u"7\n8\n9"_s);
        grid.Edits().Steps().Undo();
        QVERIFY(grid.Edits().TypeText(2, 0, u"5"_s)); // what was taken back is gone
        QVERIFY(!grid.Edits().Steps().Redo());
        grid.SetSize(2, 1); // and rows that are gone are passed over
        grid.Edits().Steps().Undo();
        grid.Edits().Steps().Undo();
        QCOMPARE(grid.Text(0, 0), u"0"_s);
        QVERIFY(!grid.Edits().Steps().Undo());
    }

    void HeadersThatAreData()
    {
        DataGrid grid(u","_s);
        FillWithPlaces(grid, 3, 2);
        QSignalSpy told(&grid, &QAbstractItemModel::headerDataChanged);
        grid.Edits().SetHeaders({u"7"_s, u"8"_s, u"9"_s}); // the last one has no column
        QVERIFY(grid.Edits().ChangeMade());
        grid.Edits().SetHeaders({u"7"_s, u"6"_s});
        QCOMPARE(told.last().sliced(1), (QVariantList{1, 1}));
        grid.Edits().SetHeaders({u"7"_s});
        QCOMPARE(told.size(), 2);
        QCOMPARE(grid.Cells().headers, QStringList({u"7"_s, u"6"_s}));
        // The headers stand in the one history with the cells.
        QVERIFY(grid.Edits().TypeText(0, 0, u"3"_s));
        const QSignalSpy edited(&grid, &DataGrid::Edited);
        QVERIFY(grid.Edits().Steps().Undo() && grid.Edits().Steps().Undo());
        QCOMPARE(edited[0][0].value<GridChange>().part, GridChange::Part::Cells);
        QCOMPARE(
            edited[1][0].value<GridChange>(),
            (GridChange{.part = GridChange::Part::Headers, .block = {.row = 0, .col = 1}, .again = true}));
        QCOMPARE(grid.Cells().headers, QStringList({u"7"_s, u"8"_s}));
        grid.Edits().Steps().Undo();
        QVERIFY(grid.Edits().Steps().Redo());
        QCOMPARE(grid.Cells().headers, QStringList({u"7"_s, u"8"_s}));
        grid.SetSize(3, 1); // a header that is gone is passed over
        grid.Edits().Steps().Redo();
    }

    void LargestText()
    {
        DataGrid grid(u","_s);
        grid.SetDigits({.interi = 4, .decimali = 2});
        QCOMPARE(grid.Format().LargestText(), u"9999,99"_s);
        grid.SetDigits({.interi = 13, .decimali = 0});
        QCOMPARE(grid.Format().LargestText(), u"9999999999999"_s);
        grid.SetSize(1, 1);
        QVERIFY(grid.Edits().TypeText(0, 0, u"9999999999999"_s));
        QVERIFY(!grid.Edits().TypeText(0, 0, u"10000000000000"_s));
        grid.SetDigits({.interi = 1, .decimali = 12});
        QVERIFY(grid.Edits().TypeText(0, 0, u"9,999999999999"_s));
        grid.SetDigits({.interi = 1, .decimali = 2}); // other decimals alone
        QVERIFY(!grid.Edits().TypeText(0, 0, u"9,995"_s));
    }
};

QTEST_GUILESS_MAIN(DataGridTest)
#include "DataGridTest.moc"
