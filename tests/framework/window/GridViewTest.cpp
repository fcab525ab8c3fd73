// The grid on screen: keys, blocks, clipboard, dragging and the popup, with real key and mouse events.
#include "framework/window/GridView.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/window/EditCommands.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QVBoxLayout>

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

    void CaretWalksDownTheColumnsAndBack()
    {
        Go(3, 0);
        Press(Qt::Key_Return);
        QCOMPARE(At(), QPoint(1, 0));
        Press(Qt::Key_Backtab);
        QCOMPARE(At(), QPoint(0, 3));
        Press(Qt::Key_Tab);
        QCOMPARE(At(), QPoint(1, 0));
        Go(3, 1);
        Press(Qt::Key_Tab); // at the last cell it stays
        QCOMPARE(At(), QPoint(1, 3));
        Go(0, 0);
        Press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(At(), QPoint(0, 0));
    }

    void TypingEndsWithEveryKeyThatWalks_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QPoint>("to");
        QTest::addRow("enter") << Qt::Key_Return << QPoint(0, 2);
        QTest::addRow("tab") << Qt::Key_Tab << QPoint(0, 2);
        QTest::addRow("down") << Qt::Key_Down << QPoint(0, 2);
        QTest::addRow("up") << Qt::Key_Up << QPoint(0, 0);
    }

    void TypingEndsWithEveryKeyThatWalks()
    {
        QFETCH(Qt::Key, key);
        QFETCH(QPoint, to);
        Go(1, 0);
        QTest::keyClicks(m_view.get(), u"9"_s);
        QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(m_grid->Text(1, 0), u"9,0"_s);
        QCOMPARE(At(), to);
    }

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

    void ClipboardByKeysAndCommands()
    {
        m_view->SelectBlock({.row = 0, .col = 0, .rows = 2, .cols = 2});
        Press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), u"0,0\t1,0\n2,0\t3,0"_s);
        QSignalSpy pasted(m_view.get(), &GridView::Pasted);
        Go(3, 1);
        Press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_grid->Text(3, 1), u"0,0"_s);
        QCOMPARE(pasted[0][0].value<PasteCount>(), (PasteCount{.taken = 1, .refused = 0, .outside = 3}));
        m_view->SelectBlock({.row = 1, .col = 0, .rows = 2, .cols = 1});
        EditCut(m_view.get());
        QCOMPARE(QApplication::clipboard()->text(), u"2,0\n4,0"_s);
        QCOMPARE(Column(0), u"0,0|||6,0"_s);
        Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Column(0), u"0,0|2,0|4,0|6,0"_s);
        Press(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(Column(0), u"0,0|||6,0"_s);
        Go(0, 0);
        EditPaste(m_view.get());
        QCOMPARE(Column(0), u"2,0|4,0||6,0"_s);
        EditClear(m_view.get());
        QCOMPARE(Column(0), u"|4,0||6,0"_s);
        QCOMPARE(QApplication::clipboard()->text(), u"2,0\n4,0"_s);
    }

    void OtherControls()
    {
        QLineEdit field(u"abcdef"_s);
        field.setSelection(1, 2);
        EditCopy(&field);
        QCOMPARE(QApplication::clipboard()->text(), u"bc"_s);
        EditCut(&field);
        QCOMPARE(field.text(), u"adef"_s);
        field.setSelection(0, 1);
        EditPaste(&field);
        QCOMPARE(field.text(), u"bcdef"_s);
        field.setSelection(0, 2);
        EditClear(&field);
        QCOMPARE(field.text(), u"def"_s);
        field.setReadOnly(true);
        EditPaste(&field);
        QCOMPARE(field.text(), u"def"_s);
        QWidget other;
        EditCut(&other); // neither text nor cells
        EditPaste(nullptr);
        QCOMPARE(QApplication::clipboard()->text(), u"bc"_s);
    }

    void Dragging_data()
    {
        QTest::addColumn<bool>("onNumbers");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("after");
        const QString kMoved = u"||0,0|2,0"_s;
        QTest::addRow("onto empty cells: no question") << false << static_cast<int>(Answer::Cancel) << kMoved;
        QTest::addRow("moved") << true << static_cast<int>(Answer::Yes) << kMoved;
        QTest::addRow("copied") << true << static_cast<int>(Answer::No) << u"0,0|2,0|0,0|2,0"_s;
        QTest::addRow("cancelled") << true << static_cast<int>(Answer::Cancel) << u"0,0|2,0|4,0|6,0"_s;
    }

    void Dragging()
    {
        QFETCH(bool, onNumbers);
        QFETCH(int, answer);
        QFETCH(QString, after);
        if (!onNumbers)
            m_grid->Edits().ClearBlock({.row = 2, .col = 0, .rows = 2, .cols = 1});
        m_world->messages.WillAnswer(Answer{answer});
        m_view->SelectBlock({.row = 0, .col = 0, .rows = 2, .cols = 1});
        Drag(BorderOf(0, 0), Middle(3, 0)); // dragged beyond: the block ends where the grid ends
        QCOMPARE(Column(0), after);
        QCOMPARE(m_world->messages.TakeOnly(),
                 onNumbers ? u"Desideri spostare i dati selezionati?\nScegliendo No i dati verranno copiati"_s
                           : u"0 messages"_s);
        if (after == u"||0,0|2,0")
            QCOMPARE(m_view->Block(), (GridBlock{.row = 2, .col = 0, .rows = 2, .cols = 1}));
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

    void RightClickShowsTheMenuAndNothingElse()
    {
        QMenu menu;
        menu.addAction(u"Copia"_s);
        m_view->SetPopup(&menu);
        m_view->SelectBlock({.row = 0, .col = 0, .rows = 2, .cols = 1});
        QTest::mouseClick(m_view->viewport(), Qt::RightButton, {}, Middle(3, 1));
        QContextMenuEvent event(QContextMenuEvent::Mouse, Middle(3, 1),
                                m_view->viewport()->mapToGlobal(Middle(3, 1)));
        QApplication::sendEvent(m_view->viewport(), &event);
        QVERIFY(menu.isVisible());
        menu.close();
        QCOMPARE(m_view->Block(), (GridBlock{.row = 0, .col = 0, .rows = 2, .cols = 1}));
    }

    void LockedCellsAreNotTyped()
    {
        m_grid->SetLocked(0, 0, true);
        QTest::keyClicks(m_view.get(), u"9"_s);
        QCOMPARE(QApplication::focusWidget(), m_view.get());
        QCOMPARE(At(), QPoint(0, 0)); // and the key is no search
        QCOMPARE(m_grid->Text(0, 0), u"0,0"_s);
    }

    void WayOutOfTheGrid()
    {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* before = new QLineEdit;
        auto* view = new GridView(*m_grid, u"GridData"_s, u"Risultati"_s);
        auto* after = new QLineEdit;
        for (QWidget* widget :
             {static_cast<QWidget*>(before), static_cast<QWidget*>(view), static_cast<QWidget*>(after)})
            layout->addWidget(widget);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        view->setFocus();
        QTest::keyClick(view, Qt::Key_F6);
        QVERIFY(after->hasFocus());
        view->setFocus();
        QTest::keyClick(view, Qt::Key_F6, Qt::ShiftModifier);
        QVERIFY(before->hasFocus());
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
