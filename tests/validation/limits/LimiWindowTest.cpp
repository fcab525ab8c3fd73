// The window of the limits as a user meets it: real keys and clicks, under both decimal separators.
#include "validation/limits/LimiWindow.h"
#include "Compare.h"
#include "TestPlace.h"
#include "framework/window/GridView.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{

class CountingFrame : public Frame
{
public:
    bool HasTest(QStringView) const override { return false; }
    void ShowTest(QStringView key) override { shown.append(key.toString()); }
    bool FormIsOpen(QAnyStringView windowClass) const override { return windowClass == u"Tara"; }
    void Arrange(Arrangement) override {}
    void EndProgram() override { ++ended; }
    int ended = 0;
    QStringList shown;
};

/// A text that stands here with a comma, under the separator given.
QString Shown(QString text, const QString& decSep)
{
    return text.replace(u","_s, decSep);
}

} // namespace

class LimiWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        Open(u","_s);
    }

    void Defaults()
    {
        QCOMPARE(m_window->windowTitle(), u"Limiti - no file"_s);
        QCOMPARE(m_window->findChild<QTabWidget*>()->currentIndex(), 0);
        QCOMPARE(Find<QLabel>("LabelInfo3")->text(), u"U.M. della conc. dell'analita"_s);
        QCOMPARE(Find<QLabel>("StatusBar")->text(), u"Formato numeri: Interi 3  Decimali 3"_s);
        QCOMPARE(Find<QLineEdit>("nDet")->text(), u"10"_s);
        QVERIFY(Find<QRadioButton>("OptionRilDet0")->isChecked());
        QVERIFY(!Find<QLabel>("LimRil")->isHidden());
        QVERIFY(Find<QLabel>("LimDet")->isHidden());
    }

    void TypedUnderBothSeparators_data()
    {
        QTest::addColumn<QString>("decSep");
        QTest::addRow("comma") << u","_s;
        QTest::addRow("point") << u"."_s;
    }

    void TypedUnderBothSeparators()
    {
        QFETCH(QString, decSep);
        Open(decSep);
        ShowData();
        Focus(0, 0);
        Keys(u"1,5"_s, Qt::Key_Return);
        Keys(u"2.25"_s, Qt::Key_Tab);
        QCOMPARE(Current(), QPoint(0, 2));
        QCOMPARE(CellText(0), Shown(u"1,500"_s, decSep));
        QCOMPARE(CellText(1), Shown(u"2,250"_s, decSep));
        Trigger("StrumentiCalcola");
        QCOMPARE(Find<QLabel>("StDev")->text(), Shown(u"0,810"_s, decSep));
        QCOMPARE(Find<QLabel>("StDev")->toolTip(), Shown(u"0,810"_s, decSep));
        QVERIFY(Find<QPlainTextEdit>("cConcl")->toPlainText().endsWith(Shown(u"1,620"_s, decSep)));
    }

    void CaretWalksTheColumn()
    {
        ShowData();
        Focus(9, 0);
        Keys(u"7"_s, Qt::Key_Return); // the end of the last column
        QCOMPARE(Current(), QPoint(0, 9));
        QCOMPARE(CellText(9), u"7,000"_s);
        QTest::keyClick(GridWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(Current(), QPoint(0, 8));
        Focus(0, 0);
        QTest::keyClick(GridWidget(), Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(Current(), QPoint(0, 0));
    }

    void RefusedTextKeepsTheFieldOpen()
    {
        ShowData();
        Focus(0, 0);
        Keys(u"1000"_s, Qt::Key_Return);
        QCOMPARE(Current(), QPoint(0, 0));
        QCOMPARE(CellText(0), u"0,000"_s);
        QCOMPARE(Find<QLabel>("DescrBar")->text(), u"\"1000\" non è un numero da 0 a 999,999"_s);
        QCOMPARE(Editor()->selectedText(), u"1000"_s);
        QTest::keyClick(Editor(), Qt::Key_Escape);
        QTRY_VERIFY(Editor() == nullptr);
        QCOMPARE(CellText(0), u"0,000"_s);
        QVERIFY(!m_window->Document().ChangeMade());
        QTest::keyClick(GridWidget(), Qt::Key_F2);
        QCOMPARE(Editor()->text(), u"0,000"_s);
        QTest::keyClick(Editor(), Qt::Key_Escape);
    }

    void CommandsTakeOverWhatIsBeingTyped()
    {
        const QTemporaryDir folder;
        Type(0, u"1"_s);
        ShowData();
        Focus(1, 0);
        QTest::keyClicks(GridWidget(), u"7"_s);
        TriggerWithFile("FileSalva", folder.filePath(u"a.LIM"_s));
        QVERIFY(BytesOf(folder.filePath(u"a.LIM"_s)).contains("\r\n2,7.000\r\n"));
        QTest::keyClicks(GridWidget(), u"x"_s);
        Trigger("FileChiudi"); // refused: the window stays, and the field with it
        QVERIFY(m_window->isVisible());
        QTRY_COMPARE(Editor()->text(), u"x"_s);
        QTest::keyClick(Editor(), Qt::Key_Escape);
    }

    void EmptiedCellEndsTheProgramAsTheFileMenuDoes()
    {
        ShowData();
        Focus(0, 0);
        Keys(u"1"_s, Qt::Key_Return);
        Focus(1, 0);
        QTest::keyClick(GridWidget(), Qt::Key_Delete);
        QCOMPARE(CellText(1), QString());
        Trigger("StrumentiCalcola");
        QCOMPARE(m_place->messages.TakeOnly(), u"Errore di run-time '13': Tipo non corrispondente"_s);
        QTRY_COMPARE(m_frame.ended, 1);
        QCOMPARE(Find<QLabel>("StDev")->text(), u"0,000"_s);
    }

    void HourglassAfterNothingToCalculate()
    {
        Type(0, u"1"_s);
        Type(0, u"0"_s);
        Trigger("Sum"); // the toolbar leaves it on, the menu does not
        QCOMPARE(m_window->cursor().shape(), Qt::WaitCursor);
        Trigger("StrumentiCalcola");
        QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
    }

    void SizeField()
    {
        ShowData();
        auto* nDet = Find<QLineEdit>("nDet");
        nDet->setFocus();
        QTRY_COMPARE(nDet->selectedText(), u"10"_s);
        QTest::keyClicks(nDet, u"12"_s);
        QCOMPARE(m_window->Document().Grid().Rows(), 12);
        nDet->selectAll();
        QTest::keyClicks(nDet, u"4x"_s);
        QCOMPARE(nDet->text(), u"4"_s);
        QTest::keyClick(nDet, Qt::Key_Tab);
        QTRY_VERIFY(nDet->hasFocus());
        QTRY_COMPARE(nDet->selectedText(), u"10"_s);
        QCOMPARE(m_window->Document().Grid().Rows(), 10);
        QTest::keyClicks(nDet, u"12345"_s);
        QCOMPARE(nDet->text(), u"1234"_s);
    }

    void OptionsSwapTheLimit()
    {
        Type(0, u"1"_s);
        Trigger("StrumentiCalcola");
        ShowData();
        QTest::mouseClick(Find<QRadioButton>("OptionRilDet1"), Qt::LeftButton);
        QVERIFY(!Find<QLabel>("LimRil")->isVisible());
        QVERIFY(Find<QLabel>("LimDet")->isVisible());
        QCOMPARE(Find<QLabel>("LabelRil")->text(), u"Limite di determinazione"_s);
        QVERIFY(
            Find<QPlainTextEdit>("cConcl")->toPlainText().contains(u"LIMITE DI DETERMINAZIONE\nLa più"_s));
    }

    void ToolsFollowTheDocument_data()
    {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<bool>("enabled");
        QTest::addRow("new") << QStringList() << false;
        QTest::addRow("header changed") << QStringList{u"header"_s} << false;
        QTest::addRow("cell changed") << QStringList{u"cell"_s} << true;
        QTest::addRow("saved") << QStringList{u"cell"_s, u"save"_s} << true;
        QTest::addRow("new again") << QStringList{u"cell"_s, u"save"_s, u"new"_s} << false;
        QTest::addRow("opened") << QStringList{u"open"_s} << true;
    }

    void ToolsFollowTheDocument()
    {
        QFETCH(QStringList, steps);
        QFETCH(bool, enabled);
        const QTemporaryDir folder;
        for (const QString& step : steps) {
            if (step == u"header")
                QTest::keyClicks(Find<QLineEdit>("aInputData0"), u"HPLC"_s);
            else if (step == u"cell")
                Type(0, u"1"_s);
            else if (step == u"new")
                Trigger("FileNuovo");
            else if (step == u"save")
                TriggerWithFile("FileSalva", folder.filePath(u"a.LIM"_s));
            else
                TriggerWithFile("FileApri", DataFile(u"one-to-five.LIM"_s));
        }
        for (const auto* name : {"FileSalva", "FileSalvaNome", "StrumentiCalcola", "Save", "Sum"})
            QCOMPARE(Find<QAction>(name)->isEnabled(), enabled);
        for (const auto* name : {"FileNuovo", "FileApri", "FileChiudi", "New", "Open", "Exit"})
            QVERIFY(Find<QAction>(name)->isEnabled());
        QVERIFY(!Find<QAction>("FileCancella")->isVisible());
    }

    void OpenedFileIsShown()
    {
        TriggerWithFile("FileApri", DataFile(u"one-to-five.LIM"_s));
        QCOMPARE(m_window->windowTitle(), u"Limiti - "_s + DataFile(u"one-to-five.LIM"_s));
        QCOMPARE(Find<QLineEdit>("aInputData3")->text(), u"mg/l"_s);
        QCOMPARE(Find<QLabel>("StDev")->text(), u"1,5811"_s);
        QCOMPARE(Find<QLabel>("StatusBar")->text(), u"Formato numeri: Interi 3  Decimali 4"_s);
        QCOMPARE(Find<QLabel>("DescrBar")->text(), QString());
        QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
    }

    void PartReadFileIsNoted()
    {
        const QTemporaryDir folder;
        const QByteArray whole = BytesOf(DataFile(u"one-to-five.LIM"_s));
        QVERIFY(WriteBytes(folder.filePath(u"cut.LIM"_s), whole.first(whole.indexOf("3,3"))));
        TriggerWithFile("FileApri", folder.filePath(u"cut.LIM"_s));
        QCOMPARE(Find<QLabel>("DescrBar")->text(),
                 u"File letto in parte: la lettura si è fermata alla riga 14"_s);
        QVERIFY(m_place->messages.All().isEmpty());
    }

    void UnknownFlagSelectsNeither()
    {
        const QTemporaryDir folder;
        QByteArray bytes = BytesOf(DataFile(u"one-to-five.LIM"_s));
        QVERIFY(WriteBytes(folder.filePath(u"true.LIM"_s), bytes.replace("Vero", "True")));
        TriggerWithFile("FileApri", folder.filePath(u"true.LIM"_s));
        QVERIFY(!Find<QRadioButton>("OptionRilDet0")->isChecked());
        QVERIFY(!Find<QRadioButton>("OptionRilDet1")->isChecked());
        ShowData();
        QTest::mouseClick(Find<QRadioButton>("OptionRilDet0"), Qt::LeftButton);
        QVERIFY(Find<QLabel>("LimRil")->isVisible());
    }

    void ClosingAsks()
    {
        QTest::keyClicks(Find<QLineEdit>("aInputData0"), u"HPLC"_s);
        m_place->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_window->close());
        m_place->messages.WillAnswer(Answer::Yes);
        m_place->dialog.WillChoose(QString()); // cancelled: the window stays
        QVERIFY(!m_window->close());
        QCOMPARE(Find<QLineEdit>("aInputData0")->text(), u"HPLC"_s);
        m_place->messages.WillAnswer(Answer::No);
        QVERIFY(m_window->close());
    }

    void CharacterThatTheFileLacks()
    {
        const QTemporaryDir folder;
        Find<QLineEdit>("aInputData3")->setFocus();
        QTest::keyClicks(Find<QLineEdit>("aInputData3"), u"k"_s);
        m_window->Document().TypeInputData(3, u"kΩ"_s);
        Type(0, u"1"_s);
        TriggerWithFile("FileSalva", folder.filePath(u"a.LIM"_s));
        QVERIFY(m_place->messages.TakeOnly().contains(
            u"\"U.M. della conc. dell'analita\" contiene il carattere \"Ω\""_s));
        QVERIFY(!QFile::exists(folder.filePath(u"a.LIM"_s)));
    }

private:
    void Open(const QString& decSep)
    {
        m_window.reset();
        m_frame.ended = 0;
        m_place = std::make_unique<TestPlace>();
        m_place->define.DecSep = decSep;
        m_window = std::make_unique<LimiWindow>(std::make_unique<LimiDocument>(m_place->Context()), m_frame);
        m_window->setAttribute(Qt::WA_DeleteOnClose, false);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    template<typename Type>
    Type* Find(const char* name)
    {
        auto* found = m_window->findChild<Type*>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("no %s", name);
        return found;
    }
    GridView* GridWidget() { return Find<GridView>("GridData"); }
    /// The field in which a cell is being typed, or null.
    QLineEdit* Editor()
    {
        auto* focused = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return GridWidget()->isAncestorOf(focused) ? focused : nullptr;
    }
    QString CellText(int row) { return GridWidget()->model()->index(row, 0).data().toString(); }
    QPoint Current() { return {GridWidget()->currentIndex().column(), GridWidget()->currentIndex().row()}; }
    void ShowData() { m_window->findChild<QTabWidget*>()->setCurrentIndex(1); }

    void Focus(int row, int col)
    {
        GridWidget()->setFocus();
        GridWidget()->setCurrentIndex(GridWidget()->model()->index(row, col));
    }

    /// Types into the current cell, a key first, and ends with the key given.
    void Keys(const QString& text, Qt::Key end)
    {
        QTest::keyClicks(GridWidget(), text.first(1));
        QVERIFY(Editor() != nullptr);
        QTest::keyClicks(Editor(), text.sliced(1));
        QTest::keyClick(Editor(), end);
    }

    void Type(int row, const QString& text)
    {
        GridWidget()->model()->setData(GridWidget()->model()->index(row, 0), text);
    }

    void Trigger(const char* name)
    {
        auto* action = Find<QAction>(name);
        QVERIFY2(action->isEnabled(), name);
        action->trigger();
    }

    void TriggerWithFile(const char* name, const QString& file)
    {
        m_place->dialog.WillChoose(file);
        Trigger(name);
    }

    CountingFrame m_frame;
    std::unique_ptr<TestPlace> m_place;
    std::unique_ptr<LimiWindow> m_window;
};

QTEST_MAIN(LimiWindowTest)
#include "LimiWindowTest.moc"
