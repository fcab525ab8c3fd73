// The grid on screen: blocks by headers and mouse, dragging to its ends, the room of its columns.
#include "framework/window/GridView.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/window/CornerLabel.h"
#include "framework/window/EditCommands.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>

using namespace Qt::StringLiterals;

class GridViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_world = std::make_unique<TestWorld>();
        m_grid = std::make_unique<DataGrid>(u","_s);
        m_grid->SetSize(4, 2);
        m_grid->SetDigits({.interi = 3, .decimali = 1});
        for (int i = 0; i < 8; ++i)
            m_grid->SetValue(i / 2, i % 2, i);
        m_view = std::make_unique<GridView>(*m_grid, u"GridData"_s, u"Risultati"_s);
        connect(m_view.get(), &GridView::Dropped, this, [this](const GridBlock& from, int row, int col) {
            DropBlock(*m_view, m_grid->Edits(), from, row, col, m_world->Context());
        });
        m_view->resize(400, 300);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_view->setFocus();
        Go(0, 0);
    }

    void cleanup() { QVERIFY(m_view->CommitEditor()); }

    void BlocksByKeysAndHeaders()
    {
        Press(Qt::Key_Down, Qt::ShiftModifier);
        Press(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(m_view->Block(), (GridBlock{.row = 0, .col = 0, .rows = 2, .cols = 2}));
        Press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(m_view->Block(), (GridBlock{.row = 0, .col = 0, .rows = 4, .cols = 2}));
        Click(m_view->verticalHeader()->viewport(),
              QPoint(5, m_view->verticalHeader()->sectionViewportPosition(2) + 5));
        QCOMPARE(m_view->Block(), (GridBlock{.row = 2, .col = 0, .rows = 1, .cols = 2}));
        Click(m_view->horizontalHeader()->viewport(),
              QPoint(m_view->horizontalHeader()->sectionViewportPosition(1) + 9, 5));
        QCOMPARE(m_view->Block(), (GridBlock{.row = 0, .col = 1, .rows = 4, .cols = 1}));
    }

    /// A label's text, too, is selected and copied; what is no text and no grid has nothing to copy.
    void OtherControls()
    {
        QLabel label(u"1,25"_s);
        label.setTextInteractionFlags(Qt::TextSelectableByMouse);
        label.setSelection(0, 3);
        EditCut(&label);
        QCOMPARE(QApplication::clipboard()->text() + u' ' + label.text(), u"1,2 1,25"_s);
        QWidget other;
        EditCut(&other);
        EditPaste(nullptr);
        QCOMPARE(QApplication::clipboard()->text(), u"1,2"_s);
    }

    /// The block ends where the grid ends, and the mouse has it by the cell that it was taken by.
    void DraggedBeyondTheGrid()
    {
        m_grid->Edits().ClearBlock({.row = 2, .col = 0, .rows = 2, .cols = 1});
        m_view->SelectBlock({.row = 0, .col = 0, .rows = 2, .cols = 1});
        Drag(BorderOf(0, 0), Middle(3, 0));
        QCOMPARE(Column(0), u"||0,0|2,0"_s);
        QCOMPARE(m_view->Block(), (GridBlock{.row = 2, .col = 0, .rows = 2, .cols = 1}));
        Drag(m_view->visualRect(m_grid->index(3, 0)).bottomLeft() + QPoint(10, -1), Middle(1, 0));
        QCOMPARE(Column(0), u"0,0|2,0||"_s);
        m_grid->SetSize(4, 3);
        m_grid->Edits().ClearBlock({.row = 2, .col = 0, .rows = 1, .cols = 2});
        m_view->SelectBlock({.row = 0, .col = 0, .rows = 1, .cols = 2});
        Drag(BorderOf(0, 1), Middle(2, 1));
        QCOMPARE(m_view->Block(), (GridBlock{.row = 2, .col = 0, .rows = 1, .cols = 2}));
        QTest::mouseMove(m_view->viewport(), BorderOf(2, 0));
        QCOMPARE(m_view->viewport()->cursor().shape(), Qt::SizeAllCursor);
        QTest::mouseMove(m_view->viewport(), Middle(3, 1));
        QCOMPARE(m_view->viewport()->cursor().shape(), Qt::ArrowCursor);
    }

    void DraggingIsGivenUpByEscape()
    {
        m_view->SelectBlock({.row = 0, .col = 0});
        QWidget* viewport = m_view->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, BorderOf(0, 0));
        QTest::mouseMove(viewport, Middle(2, 0));
        Press(Qt::Key_Escape);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, Middle(2, 0));
        QCOMPARE(Column(0), u"0,0|2,0|4,0|6,0"_s);
    }

    void InsideOfTheBlockSelects()
    {
        m_view->SelectBlock({.row = 0, .col = 0, .rows = 2, .cols = 1});
        Drag(Middle(0, 0), Middle(2, 0));
        QCOMPARE(Column(0), u"0,0|2,0|4,0|6,0"_s);
        QCOMPARE(m_view->Block(), (GridBlock{.row = 0, .col = 0, .rows = 3, .cols = 1}));
    }

    void LockedCellsLookLikeWhatIsAround()
    {
        m_grid->SetLocked(2, 1, true);
        const QImage image = m_view->viewport()->grab().toImage();
        const auto color = [&](int row, int col) {
            return image.pixelColor(m_view->visualRect(m_grid->index(row, col)).topLeft() + QPoint(3, 3));
        };
        QCOMPARE(color(2, 1), m_view->palette().color(QPalette::Window));
        QCOMPARE(color(2, 0), m_view->palette().color(QPalette::Base));
    }

    /// The text in the corner leaves its click alone.
    void CornerSelectsAll()
    {
        CornerLabel corner(u"Determinazioni"_s, m_view.get());
        corner.show();
        QCoreApplication::processEvents();
        QVERIFY(m_view->verticalHeader()->width() > corner.sizeHint().width());
        QCOMPARE(corner.size(),
                 QSize(m_view->verticalHeader()->width(), m_view->horizontalHeader()->height()));
        QTest::mouseClick(m_view->childAt(corner.geometry().center()), Qt::LeftButton);
        QCOMPARE(m_view->Block(), (GridBlock{.row = 0, .col = 0, .rows = 4, .cols = 2}));
    }

    void ColumnsFitTheLargestNumber()
    {
        const int narrow = m_view->columnWidth(0);
        m_grid->SetDigits({.interi = 10, .decimali = 3});
        QVERIFY(m_view->columnWidth(0) >= m_view->fontMetrics().horizontalAdvance(u"9999999999,999"_s));
        QVERIFY(m_view->columnWidth(0) > narrow);
    }

private:
    void Go(int row, int col) { m_view->setCurrentIndex(m_grid->index(row, col)); }
    QPoint At() const { return {m_view->currentIndex().column(), m_view->currentIndex().row()}; }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_view.get(), key, modifiers);
    }
    static void Click(QWidget* widget, const QPoint& at)
    {
        QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    }
    QPoint Middle(int row, int col) const { return m_view->visualRect(m_grid->index(row, col)).center(); }
    QPoint BorderOf(int row, int col) const
    {
        return m_view->visualRect(m_grid->index(row, col)).topLeft() + QPoint(10, 1);
    }
    void Drag(const QPoint& from, const QPoint& to)
    {
        QWidget* viewport = m_view->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QTest::mouseMove(viewport, (from + to) / 2);
        QTest::mouseMove(viewport, to);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
    }
    QString Column(int col) const
    {
        return m_grid->Edits().BlockText({.row = 0, .col = col, .rows = 4, .cols = 1}).replace(u'\n', u'|');
    }

    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<DataGrid> m_grid;
    std::unique_ptr<GridView> m_view;
};

QTEST_MAIN(GridViewTest)
#include "GridViewTest.moc"
