// What every test window can be made of, in a window over a document that has all of it: several grids and
// the caret's walk, events that fail, added commands, options, tables, two charts on a page.
#include "framework/window/TestWindow.h"
#include "WindowWorld.h"
#include "framework/MadeUpDocument.h"
#include "framework/window/ChartView.h"
#include "stories/ExpectedText.h"
#include "stories/WindowPicture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMimeData>
#include <QRadioButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace
{

class MadeUpWindow : public TestWindow
{
public:
    MadeUpWindow(std::unique_ptr<TestDocument> document, Frame& frame)
        : TestWindow(std::move(document), frame)
    {
        Pages().AddInfoPage(u"LblData"_s, u"Frame1"_s);
        QGridLayout* layout = nullptr;
        QGroupBox* results = Pages().ResultBox(u"Frame2"_s, layout);
        Fields().AddOptions(layout, 2);
        Fields().AddResults(layout, {{u"Label1"_s, {"Somma"_L1}}, {u"Label2"_s, {"Esito"_L1}}});
        layout->addWidget(Fields().FieldLabel("LabelStima"_L1), layout->rowCount(), 0);
        Pages().AddDataPage({Pages().SizeFrame(u"Frame3"_s, u"Dimensioni"_s,
                                               {{"Dimensioni0"_L1, u"Label3"_s, u"Label4"_s},
                                                {"Dimensioni1"_L1, u"Label5"_s, u"Label6"_s}}),
                             Pages().GridFrame(u"Frame4"_s, u"Superiore"_s, 0),
                             Pages().GridFrame(u"Frame5"_s, u"Centrale"_s, 1),
                             Pages().GridFrame(u"Frame6"_s, u"LabelData2"_s, 2, u"Rep."_s)},
                            {results, Pages().TableFrame(u"Frame7"_s, "SprLinearita"_L1)});
        Pages().AddChartPage(u"Grafici"_s);
        Pages().SetFirstPage(1);
        for (std::size_t i = 0; i < 3; ++i)
            Pages().View(i)->SetWalk(2, Pages().View((i + 2) % 3), Pages().View((i + 1) % 3));
        Commands().Add({u"StrumentiConcentrazioni"_s, [this] { ++concentrations; }});
        Commands().Add({u"FileStampa"_s, [this] { ++printed; }});
    }

    int concentrations = 0;
    int printed = 0;
};

} // namespace

class TestWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_open = std::make_unique<WindowWorld<MadeUpWindow, MadeUpDocument>>();
    }

    /// All that it shows: new, on the page that the test chose, and what changes from then on.
    void WholeWindow()
    {
        QStringList told;
        Picture before;
        const auto tell = [&](const QString& step) {
            QCoreApplication::processEvents();
            const Picture now = PictureOf(m_open->window.get());
            told += u"> "_s + step;
            for (const QString& change : Changes(before, now))
                told += u"  "_s + change;
            before = now;
        };
        tell(u"new"_s);
        m_open->Go(0, 0, 0);
        m_open->Keys(u"5"_s, Qt::Key_Return);
        m_open->Go(0, 1, 0);
        m_open->Keys(u"2"_s, Qt::Key_Return);
        tell(u"filled"_s);
        m_open->Trigger("StrumentiCalcola");
        tell(u"calculated"_s);
        m_open->ClickOption("Option3");
        tell(u"the third option, which hides a grid"_s);
        const QTemporaryDir folder;
        const QByteArray bytes = m_open->window->Document().FileBytes();
        QVERIFY(WriteBytes(folder.filePath(u"a.TAR"_s),
                           QByteArray(bytes).replace("\r\n\r\n3\r\n1.00", "\r\n\r\n?\r\n1.00")));
        m_open->world.messages.WillAnswer(Answer::No);
        m_open->TriggerWithFile("FileApri", folder.filePath(u"a.TAR"_s));
        tell(u"opened, with a choice that is none"_s);
        m_open->Trigger("FileNuovo");
        tell(u"new again"_s);
        const QString difference = DifferenceFrom(
            u"pictures/made-up.txt"_s, told.join(u'\n').replace(folder.path(), u"FOLDER"_s) + u'\n');
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    /// With the tables that stand beside them, for a spreadsheet as for a letter.
    void ResultsAreTakenAway()
    {
        m_open->Go(0, 0, 0);
        m_open->Keys(u"5"_s, Qt::Key_Return);
        m_open->Trigger("StrumentiCalcola");
        auto* table = m_open->Find<QTableView>("SprLinearita");
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(table, &event);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_R);
        const QString text = QApplication::clipboard()->text();
        QCOMPARE(text, u"Somma\t5,00\t\nAnalisi della varianza\t\t\nVariazione\tDevianza\tGdL\n"
                       "Regressione\t5,00\t1\nTotali\t10,00\t\n"_s);
        const QString html = QApplication::clipboard()->mimeData()->html();
        QVERIFY(html.contains(u"<tr><td>Somma</td><td align=\"right\">5,00</td><td"_s));
        QCOMPARE(html.count(u"<tr>"_s), text.count(u'\n'));
        QCOMPARE(html.count(u"<td"_s), 3 * text.count(u'\n'));
    }

    void CaretWalksFromGridToGrid()
    {
        m_open->Go(3, 0, 0);
        QTest::keyClick(Grid(0), Qt::Key_Return);
        QCOMPARE(At(), u"0: 0,1"_s);
        m_open->Go(3, 1, 0);
        QTest::keyClick(Grid(0), Qt::Key_Tab);
        QCOMPARE(At(), u"1: 0,0"_s);
        m_open->Go(0, 0, 0);
        QTest::keyClick(Grid(0), Qt::Key_F6);
        QVERIFY(Grid(1)->hasFocus());
        m_open->Go(0, 0, 0);
        QTest::keyClick(Grid(0), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(At(), u"2: 3,1"_s);
        m_open->window->Document().Grid(1).SetSize(2, 3); // shorter than the others
        m_open->Go(0, 0, 2);
        QTest::keyClick(Grid(2), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(At(), u"1: 1,1"_s);
        m_open->Go(3, 1, 2);
    }

    void DocumentFollowsEachEdit()
    {
        m_open->Go(0, 0, 1);
        QApplication::clipboard()->setText(u"6\t2"_s);
        QTest::keySequence(Grid(1), QKeySequence::Paste);
        QCOMPARE(Text(1, 0, 2), u"3,00"_s);
        QVERIFY(m_open->Find<QAction>("Save")->isEnabled());
        m_open->Go(0, 1, 1);
        m_open->Keys(u"4"_s, Qt::Key_Return);
        QCOMPARE(Text(1, 0, 2), u"1,50"_s);
        QTest::keySequence(Grid(1), QKeySequence::Undo);
        QCOMPARE(Text(1, 0, 2), u"3,00"_s);
    }

    void EditThatFailsEndsTheProgramAsTheFileMenuDoes()
    {
        m_open->Go(1, 0, 2);
        m_open->Keys(u"7"_s, Qt::Key_Return); // by the 0 beside it
        QCOMPARE(m_open->world.messages.TakeOnly(), u"Errore di run-time '11': Divisione per zero"_s);
        QTRY_COMPARE(m_open->frame.ended, 1);
        QCOMPARE(Text(2, 1, 0), u"7,00"_s);
    }

    void CommandsOfATest()
    {
        auto* item = m_open->Find<QAction>("StrumentiConcentrazioni");
        item->trigger();
        QCOMPARE(m_open->window->concentrations, 1);
        m_open->Go(0, 0, 0);
        QTest::keyClicks(Grid(0), u"x"_s);
        item->trigger(); // refused: what is being typed is no number
        QCOMPARE(m_open->window->concentrations, 1);
        QTest::keyClick(m_open->Editor(), Qt::Key_Escape);
        m_open->Type(0, u"1"_s);
        for (const char* name : {"FileStampa", "Print"}) // the button does what its item does
            m_open->Trigger(name);
        QCOMPARE(m_open->window->printed, 2);
    }

    /// What is selected inside of an open cell gives way, not all of the cell.
    void PasteIntoAnOpenCell()
    {
        m_open->Go(0, 0, 0);
        QTest::keyClicks(Grid(0), u"1"_s);
        QTest::keyClicks(m_open->Editor(), u"25"_s);
        m_open->Editor()->setSelection(1, 1);
        QApplication::clipboard()->setText(u"7"_s);
        m_open->Trigger("ModificaIncolla");
        QCOMPARE(m_open->Editor()->text(), u"175"_s);
    }

    void FailureThatIsSurvived()
    {
        m_open->Type(0, u"1"_s, 1);
        m_open->Type(0, u"5000"_s);
        m_open->Trigger("Sum");
        QCOMPARE(m_open->world.messages.TakeOnly(), u"Errore di run-time '6': Overflow"_s);
        QCoreApplication::processEvents();
        QCOMPARE(m_open->frame.ended, 0);
        QCOMPARE(m_open->Find<QLabel>("Somma")->text(), u"10001,00"_s);
        QCOMPARE(m_open->Find<ChartView>("VtGrafRegr")->accessibleDescription(), u"Nessun grafico"_s);
    }

    void FramesFollowTheirFields()
    {
        auto* frame = m_open->Find<QGroupBox>("Frame6");
        m_open->Tabs()->setCurrentIndex(0);
        auto* unit = m_open->Find<QLineEdit>("aInputData3");
        unit->selectAll();
        QTest::keyClicks(unit, u"g"_s);
        QCOMPARE(frame->title(), u"Inferiore (g)"_s);
        m_open->ShowData();
        m_open->ClickOption("Option3");
        QVERIFY(frame->isHidden());
        m_open->Go(3, 1, 1);
        QTest::keyClick(Grid(1), Qt::Key_Return); // where the walk would go on, it ends
        QCOMPARE(At(), u"1: 3,1"_s);
    }

    void OneOfTwoChartsTakesThePage()
    {
        m_open->Go(0, 0, 0);
        m_open->Keys(u"5"_s, Qt::Key_Return);
        m_open->Trigger("StrumentiCalcola");
        m_open->Tabs()->setCurrentIndex(2);
        auto* regression = m_open->Find<ChartView>("VtGrafRegr");
        auto* proportion = m_open->Find<ChartView>("VtGrafProp");
        QVERIFY(std::abs(regression->width() - proportion->width()) <= 1);
        QTest::keyClick(proportion, Qt::Key_Return);
        QVERIFY(regression->isHidden() && !proportion->isHidden());
        m_open->Tabs()->setCurrentIndex(1);
        m_open->Tabs()->setCurrentIndex(2);
        QVERIFY(regression->isHidden() && !proportion->isHidden());
        QTest::mouseDClick(proportion, Qt::LeftButton);
        QVERIFY(!regression->isHidden() && !proportion->isHidden());
    }

    void PagesGoBeforeTheirDocument()
    {
        QStringList gone;
        connect(Grid(0), &QObject::destroyed, this, [&gone] { gone += u"view"_s; });
        connect(&m_open->window->Document(), &QObject::destroyed, this, [&gone] { gone += u"document"_s; });
        m_open->window.reset();
        QCOMPARE(gone, QStringList({u"view"_s, u"document"_s}));
    }

private:
    GridView* Grid(int index) { return m_open->GridAt(index); }
    QString Text(int grid, int row, int col)
    {
        return Grid(grid)->model()->index(row, col).data().toString();
    }
    /// "grid: row,column" of the caret that has the focus.
    QString At()
    {
        const auto* view = qobject_cast<GridView*>(QApplication::focusWidget());
        if (view == nullptr)
            return u"nowhere"_s;
        return u"%1: %2,%3"_s.arg(view->objectName().back())
            .arg(view->currentIndex().row())
            .arg(view->currentIndex().column());
    }

    std::unique_ptr<WindowWorld<MadeUpWindow, MadeUpDocument>> m_open;
};

QTEST_MAIN(TestWindowTest)
#include "TestWindowTest.moc"
