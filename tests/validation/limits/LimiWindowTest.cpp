// The window of the limits as a user meets it: real keys and clicks, under both decimal separators.
#include "validation/limits/LimiWindow.h"
#include "Compare.h"
#include "WindowWorld.h"
#include "validation/limits/LimiDocument.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{

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
        QCOMPARE(m_open->window->windowTitle(), u"Limiti - no file"_s);
        QCOMPARE(m_open->window->findChild<QTabWidget*>()->currentIndex(), 0);
        QCOMPARE(m_open->Find<QLabel>("LabelInfo3")->text(), u"U.M. della conc. dell'analita"_s);
        QCOMPARE(m_open->Find<QLabel>("StatusBar")->text(), u"Formato numeri: Interi 3  Decimali 3"_s);
        QCOMPARE(m_open->Find<QLineEdit>("nDet")->text(), u"10"_s);
        QVERIFY(m_open->Find<QRadioButton>("OptionRilDet0")->isChecked());
        QVERIFY(!m_open->Find<QLabel>("LimRil")->isHidden());
        QVERIFY(m_open->Find<QLabel>("LimDet")->isHidden());
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
        m_open->ShowData();
        m_open->Go(0, 0);
        m_open->Keys(u"1,5"_s, Qt::Key_Return);
        m_open->Keys(u"2.25"_s, Qt::Key_Tab);
        QCOMPARE(m_open->Caret(), QPoint(2, 0));
        QCOMPARE(m_open->CellText(0), Shown(u"1,500"_s, decSep));
        QCOMPARE(m_open->CellText(1), Shown(u"2,250"_s, decSep));
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->Find<QLabel>("StDev")->text(), Shown(u"0,810"_s, decSep));
        QCOMPARE(m_open->Find<QLabel>("StDev")->toolTip(), Shown(u"0,810"_s, decSep));
        QVERIFY(m_open->Find<QPlainTextEdit>("cConcl")->toPlainText().endsWith(Shown(u"1,620"_s, decSep)));
    }

    void CaretWalksTheColumn()
    {
        m_open->ShowData();
        m_open->Go(9, 0);
        m_open->Keys(u"7"_s, Qt::Key_Return); // the end of the last column
        QCOMPARE(m_open->Caret(), QPoint(9, 0));
        QCOMPARE(m_open->CellText(9), u"7,000"_s);
        QTest::keyClick(m_open->GridWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(m_open->Caret(), QPoint(8, 0));
        m_open->Go(0, 0);
        QTest::keyClick(m_open->GridWidget(), Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(m_open->Caret(), QPoint(0, 0));
    }

    void RefusedTextKeepsTheFieldOpen()
    {
        m_open->ShowData();
        m_open->Go(0, 0);
        m_open->Keys(u"1000"_s, Qt::Key_Return);
        QCOMPARE(m_open->Caret(), QPoint(0, 0));
        QCOMPARE(m_open->CellText(0), u"0,000"_s);
        QCOMPARE(m_open->Find<QLabel>("DescrBar")->text(), u"\"1000\" non è un numero da 0 a 999,999"_s);
        QCOMPARE(m_open->Editor()->selectedText(), u"1000"_s);
        QTest::keyClick(m_open->Editor(), Qt::Key_Escape);
        QTRY_VERIFY(m_open->Editor() == nullptr);
        QCOMPARE(m_open->CellText(0), u"0,000"_s);
        QVERIFY(!m_open->window->Document().ChangeMade());
        QTest::keyClick(m_open->GridWidget(), Qt::Key_F2);
        QCOMPARE(m_open->Editor()->text(), u"0,000"_s);
        QTest::keyClicks(m_open->Editor(), u"5"_s);
        QTest::keyClick(m_open->Editor(), Qt::Key_Return);
        QCOMPARE(m_open->Find<QLabel>("DescrBar")->text(), QString());
    }

    void CommandsTakeOverWhatIsBeingTyped()
    {
        const QTemporaryDir folder;
        m_open->Type(0, u"1"_s);
        m_open->ShowData();
        m_open->Go(1, 0);
        QTest::keyClicks(m_open->GridWidget(), u"7"_s);
        m_open->TriggerWithFile("FileSalva", folder.filePath(u"a.LIM"_s));
        QVERIFY(BytesOf(folder.filePath(u"a.LIM"_s)).contains("\r\n2,7.000\r\n"));
        QTest::keyClicks(m_open->GridWidget(), u"x"_s);
        m_open->Trigger("FileChiudi"); // refused: the window stays, and the field with it
        QVERIFY(m_open->window->isVisible());
        QTRY_COMPARE(m_open->Editor()->text(), u"x"_s);
        QTest::keyClick(m_open->Editor(), Qt::Key_Escape);
    }

    /// Whatever takes the focus: the text stays to be mended, and nothing is calculated without it.
    void RefusedTextOutlivesItsFocus()
    {
        m_open->Type(0, u"1"_s);
        m_open->ShowData();
        m_open->Go(0, 0);
        QTest::keyClicks(m_open->GridWidget(), u"1"_s);
        QTest::keyClicks(m_open->Editor(), u"250"_s);
        m_open->Find<QLineEdit>("nDet")->setFocus();
        QCOMPARE(m_open->Find<QLabel>("DescrBar")->text(), u"\"1250\" non è un numero da 0 a 999,999"_s);
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->Find<QLabel>("StDev")->text(), u"0,000"_s);
        QTRY_COMPARE(m_open->Editor()->text(), u"1250"_s);
        QTest::keyClicks(m_open->Editor(), u"125"_s);
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->CellText(0), u"125,000"_s);
        QVERIFY(m_open->Find<QLabel>("StDev")->text() != u"0,000"_s);
    }

    void EmptiedCellEndsTheProgramAsTheFileMenuDoes()
    {
        m_open->ShowData();
        m_open->Go(0, 0);
        m_open->Keys(u"1"_s, Qt::Key_Return);
        m_open->Go(1, 0);
        QTest::keyClick(m_open->GridWidget(), Qt::Key_Delete);
        QCOMPARE(m_open->CellText(1), QString());
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->world.messages.TakeOnly(), u"Errore di run-time '13': Tipo non corrispondente"_s);
        QTRY_COMPARE(m_open->frame.ended, 1);
        QCOMPARE(m_open->Find<QLabel>("StDev")->text(), u"0,000"_s);
    }

    void HourglassAfterNothingToCalculate()
    {
        m_open->Type(0, u"1"_s);
        m_open->Type(0, u"0"_s);
        m_open->Trigger("Sum"); // the toolbar leaves it on, the menu does not
        QCOMPARE(m_open->window->cursor().shape(), Qt::WaitCursor);
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->window->cursor().shape(), Qt::ArrowCursor);
    }

    void SizeField()
    {
        m_open->ShowData();
        auto* nDet = m_open->Find<QLineEdit>("nDet");
        nDet->setFocus();
        QTRY_COMPARE(nDet->selectedText(), u"10"_s);
        QTest::keyClicks(nDet, u"12"_s);
        QCOMPARE(m_open->window->Document().Grid().Rows(), 12);
        nDet->selectAll();
        QTest::keyClicks(nDet, u"4x"_s);
        QCOMPARE(nDet->text(), u"4"_s);
        QTest::keyClick(nDet, Qt::Key_Tab);
        QTRY_VERIFY(nDet->hasFocus());
        QTRY_COMPARE(nDet->selectedText(), u"10"_s);
        QCOMPARE(m_open->window->Document().Grid().Rows(), 10);
        QTest::keyClicks(nDet, u"12345"_s);
        QCOMPARE(nDet->text(), u"1234"_s);
    }

    void OptionsSwapTheLimit()
    {
        m_open->Type(0, u"1"_s);
        m_open->Trigger("StrumentiCalcola");
        m_open->ShowData();
        m_open->ClickOption("OptionRilDet1");
        QVERIFY(!m_open->Find<QLabel>("LimRil")->isVisible());
        QVERIFY(m_open->Find<QLabel>("LimDet")->isVisible());
        QCOMPARE(m_open->Find<QLabel>("LabelRil")->text(), u"Limite di determinazione"_s);
        QVERIFY(m_open->Find<QPlainTextEdit>("cConcl")->toPlainText().contains(
            u"LIMITE DI DETERMINAZIONE\nLa più"_s));
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
                QTest::keyClicks(m_open->Find<QLineEdit>("aInputData0"), u"HPLC"_s);
            else if (step == u"cell")
                m_open->Type(0, u"1"_s);
            else if (step == u"new")
                m_open->Trigger("FileNuovo");
            else if (step == u"save")
                m_open->TriggerWithFile("FileSalva", folder.filePath(u"a.LIM"_s));
            else
                m_open->TriggerWithFile("FileApri", DataFile(u"one-to-five.LIM"_s));
        }
        for (const auto* name : {"FileSalva", "FileSalvaNome", "StrumentiCalcola", "Save", "Sum"})
            QCOMPARE(m_open->Find<QAction>(name)->isEnabled(), enabled);
        for (const auto* name : {"FileNuovo", "FileApri", "FileChiudi", "New", "Open", "Exit"})
            QVERIFY(m_open->Find<QAction>(name)->isEnabled());
        QVERIFY(!m_open->Find<QAction>("FileCancella")->isVisible());
    }

    void OpenedFileIsShown()
    {
        m_open->TriggerWithFile("FileApri", DataFile(u"one-to-five.LIM"_s));
        QCOMPARE(m_open->window->windowTitle(), u"Limiti - "_s + DataFile(u"one-to-five.LIM"_s));
        QCOMPARE(m_open->Find<QLineEdit>("aInputData3")->text(), u"mg/l"_s);
        QCOMPARE(m_open->Find<QLabel>("StDev")->text(), u"1,5811"_s);
        QCOMPARE(m_open->Find<QLabel>("StDev")->accessibleDescription(), u"Dev. standard"_s);
        QCOMPARE(m_open->Find<QLabel>("StatusBar")->text(), u"Formato numeri: Interi 3  Decimali 4"_s);
        QCOMPARE(m_open->Find<QLabel>("DescrBar")->text(), QString());
        QCOMPARE(m_open->window->cursor().shape(), Qt::ArrowCursor);
    }

    void PartReadFileIsNoted()
    {
        const QTemporaryDir folder;
        const QByteArray whole = BytesOf(DataFile(u"one-to-five.LIM"_s));
        QVERIFY(WriteBytes(folder.filePath(u"cut.LIM"_s), whole.first(whole.indexOf("3,3"))));
        m_open->TriggerWithFile("FileApri", folder.filePath(u"cut.LIM"_s));
        QCOMPARE(m_open->Find<QLabel>("DescrBar")->text(), u"Letto in parte, fino alla riga 14"_s);
        QVERIFY(m_open->world.messages.All().isEmpty());
    }

    void UnknownFlagSelectsNeither()
    {
        const QTemporaryDir folder;
        QByteArray bytes = BytesOf(DataFile(u"one-to-five.LIM"_s));
        QVERIFY(WriteBytes(folder.filePath(u"true.LIM"_s), bytes.replace("Vero", "True")));
        m_open->TriggerWithFile("FileApri", folder.filePath(u"true.LIM"_s));
        QVERIFY(!m_open->Find<QRadioButton>("OptionRilDet0")->isChecked());
        QVERIFY(!m_open->Find<QRadioButton>("OptionRilDet1")->isChecked());
        m_open->ShowData();
        m_open->ClickOption("OptionRilDet0");
        QVERIFY(m_open->Find<QLabel>("LimRil")->isVisible());
    }

    void ClosingAsks()
    {
        QTest::keyClicks(m_open->Find<QLineEdit>("aInputData0"), u"HPLC"_s);
        m_open->world.messages.WillAnswer(Answer::Cancel);
        QVERIFY(!m_open->window->close());
        m_open->world.messages.WillAnswer(Answer::Yes);
        m_open->world.dialog.WillChoose(QString()); // cancelled: the window stays
        QVERIFY(!m_open->window->close());
        QCOMPARE(m_open->Find<QLineEdit>("aInputData0")->text(), u"HPLC"_s);
        m_open->world.messages.WillAnswer(Answer::No);
        QVERIFY(m_open->window->close());
    }

    void CharacterThatTheFileLacks()
    {
        const QTemporaryDir folder;
        m_open->Find<QLineEdit>("aInputData3")->setFocus();
        QTest::keyClicks(m_open->Find<QLineEdit>("aInputData3"), u"k"_s);
        m_open->window->Document().TypeInputData(3, u"kΩ"_s);
        m_open->Type(0, u"1"_s);
        m_open->TriggerWithFile("FileSalva", folder.filePath(u"a.LIM"_s));
        QVERIFY(m_open->world.messages.TakeOnly().contains(
            u"\"U.M. della conc. dell'analita\" contiene il carattere \"Ω\""_s));
        QVERIFY(!QFile::exists(folder.filePath(u"a.LIM"_s)));
    }

private:
    void Open(const QString& decSep)
    {
        m_open.reset();
        m_open = std::make_unique<WindowWorld<LimiWindow, LimiDocument>>(decSep);
    }

    std::unique_ptr<WindowWorld<LimiWindow, LimiDocument>> m_open;
};

QTEST_MAIN(LimiWindowTest)
#include "LimiWindowTest.moc"
