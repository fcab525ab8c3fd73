// The document of the limits: its numbers, its file in both forms, what its fields do, and bad files.
#include "validation/limits/LimiDocument.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/document/DocumentLife.h"
#include "validation/limits/LimiCalc.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{

const QString kHeading = u"C O N V A L I D A  D E L   M E T O D O   A N A L I T I C O\r\n\r\n"
                         "TEST LIMITI DI RILEVAZIONE / DETERMINAZIONE\r\n\r\n\r\n"_s;

QStringList Cells(const LimiDocument& document)
{
    QStringList cells;
    for (int row = 0; row < document.Grid().Rows(); ++row)
        cells.append(document.Grid().Text(row, 0));
    return cells;
}

void Type(LimiDocument& document, const QStringList& values)
{
    for (int row = 0; row < values.size(); ++row)
        QVERIFY(document.Grid().Edits().TypeText(row, 0, values[row]));
}

/// A file with five rows, the given lines from 1 on in place of its own.
QByteArray FileWith(const QMap<int, QByteArray>& lines)
{
    return DataFileWith(u"one-to-five.LIM"_s, lines);
}

} // namespace

class LimiDocumentTest : public QObject, private DocumentTest<LimiDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.LIM"_s); }

    void Numbers()
    {
        // sqrt(2.5), twice and ten times
        const auto results = CalcLimi(std::array{1.0, 2.0, 3.0, 4.0, 5.0});
        QVERIFY(results);
        COMPARE_CLOSE(results->s, 1.5811388300841898, 1e-15);
        COMPARE_CLOSE(results->limRil, 3.1622776601683795, 1e-15);
        COMPARE_CLOSE(results->limDet, 15.811388300841898, 1e-15);
        QVERIFY(!CalcLimi(std::array{-1.0, 1.0, -1.0, 1.0, 0.0}));
        QCOMPARE_EQ(CalcLimi(std::array{5.0, 5.0, 5.0})->limDet, 0.0);
        VERIFY_FAILS(CalcLimi(std::array{5.0}), FailureKind::DivisionByZero);
    }

    void NewDocument()
    {
        QCOMPARE(m_document->Title(), u"Limiti - no file"_s);
        QCOMPARE(Cells(*m_document), QStringList(10, u"0.000"_s));
        QCOMPARE(m_document->Grid().headerData(0, Qt::Horizontal).toString(), u"Risultati"_s);
        QCOMPARE(m_document->ControlText("LimRil"), u"0.000"_s);
        QCOMPARE(m_document->ControlText("LabelRil"), u"Limite di rilevazione"_s);
        QCOMPARE(m_document->FormatText(), u"Formato numeri: Interi 3  Decimali 3"_s);
        QCOMPARE(m_world->define.NumFormat, u"##0.000"_s);

        const QSignalSpy pointer(m_document.get(), &TestDocument::Pointer);
        QVERIFY(m_document->Calc() != CalcEnd::Done); // all cells 0: nothing, and the hourglass stays on
        QCOMPARE(pointer.size(), 1);
        QCOMPARE(m_document->Conclusions(), QString());
    }

    void Calculated()
    {
        m_document->TypeInputData(kUnit, u" mg/l "_s);
        m_document->TypeSize("nDet"_L1, u"5"_s);
        Type(*m_document, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
        const QSignalSpy calculated(m_document.get(), &TestDocument::Calculated);
        const QSignalSpy pointer(m_document.get(), &TestDocument::Pointer);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(calculated.size(), 1);
        QCOMPARE(pointer.last().first().toBool(), false);
        QCOMPARE(m_document->ControlText("StDev"), u"1.581"_s);
        QCOMPARE(m_document->ControlText("LimRil"), u"3.162"_s);
        QCOMPARE(m_document->ControlText("LimDet"), u"15.811"_s);
        QCOMPARE(m_document->Conclusions(),
                 kHeading +
                     u"LIMITE DI RILEVAZIONE\r\nLa più piccola concentrazione ( mg/l ) dell'analita che può "
                     "essere distinta dal bianco con il 95% di probabilità è pari a :\r\n\r\n3.162"_s);
        QCOMPARE(
            m_document->ConclText(Language::English)[1],
            u"QUANTITATION LIMIT\r\nThe smallest concentration ( mg/l ) of the analyte determinable with "
            "acceptable precision and accuracy is :\r\n\r\n15.811"_s);
        QVERIFY(m_document->IsModify()); // a calculation clears no flag

        m_document->ChooseOption(1);
        QVERIFY(m_document->Conclusions().endsWith(
            u"determinabile con accettabile precisione e accuratezza è pari "
            "a :\r\n\r\n15.811"_s));
        QVERIFY(!m_document->ControlVisible("LimRil"));
        QVERIFY(m_document->ControlVisible("LimDet"));
        QCOMPARE(m_document->ControlText("LabelRil"), u"Limite di determinazione"_s);

        // The reset takes the results and leaves the strings, which come back with the button.
        m_document->ResetDocument();
        QCOMPARE(m_document->Conclusions(), QString());
        QVERIFY(m_document->Values().empty());
        m_document->ChooseOption(0);
        QVERIFY(m_document->Conclusions().endsWith(u"3.162"_s));
    }

    void ResultsTakeTheFormatBuiltLast()
    {
        Type(*m_document, {u"1"_s, u"2"_s});
        GetNumFormat(3, 1, m_world->define); // in another window
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(m_document->ControlText("LimDet"), u"6.7"_s);
        m_document->WriteToFile(m_file);
        QVERIFY(BytesOf(m_file).contains("\r\n 1,1.000\r\n2,2.000\r\n"));
    }

    void CalculatesWhatTheCellsShow()
    {
        m_document->TypeSize("nDet"_L1, u"5"_s);
        Type(*m_document, {u"0.0004"_s, u"0.0004"_s});
        QVERIFY(m_document->Calc() != CalcEnd::Done); // all cells show 0
        Type(*m_document, {u"0.0005"_s});
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        COMPARE_CLOSE(NumberOf(*m_document, 0), 0.001 / std::sqrt(5.0), 1e-14);
    }

    void FailingCalculationChangesNothing()
    {
        Type(*m_document, {u"1"_s, u"2"_s});
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        const QString before = m_document->Conclusions();
        Type(*m_document, {u"5"_s, u""_s});
        VERIFY_FAILS(m_document->Calc(), FailureKind::TypeMismatch);
        m_document->TypeSize("nDet"_L1, u""_s);
        VERIFY_FAILS(m_document->Calc(), FailureKind::TypeMismatch);
        QCOMPARE(m_document->Conclusions(), before);
        QCOMPARE(m_document->ControlText("StDev"), u"0.675"_s);
    }

    void SizeField()
    {
        m_document->TypeSize("nDet"_L1, u"12"_s);
        QCOMPARE(Cells(*m_document), QStringList(12, u"0.000"_s));
        QVERIFY(m_document->IsModify());
        Type(*m_document, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u""_s});
        m_document->TypeSize("nDet"_L1, u"7"_s);
        QCOMPARE(Cells(*m_document).last(), u"7.000"_s);
        m_document->TypeSize("nDet"_L1, u"9"_s); // the rows that were cut off are gone
        QCOMPARE(Cells(*m_document).sliced(6), QStringList({u"7.000"_s, u"0.000"_s, u"0.000"_s}));
        m_document->SetIsModify(false);
        m_document->TypeSize("nDet"_L1, u"4"_s);
        QCOMPARE(m_document->Grid().Rows(), 9);
        QVERIFY(!m_document->IsModify());
        QVERIFY(!m_document->LeaveSize("nDet"_L1));
        QCOMPARE(m_document->ControlText("nDet"), u"10"_s);
        QCOMPARE(m_document->Grid().Rows(), 10);
        QVERIFY(m_document->LeaveSize("nDet"_L1));
    }

    void ResizingFillsEmptiedCells()
    {
        Type(*m_document, {u"1"_s, u""_s});
        m_document->TypeSize("nDet"_L1, u"10"_s);
        QCOMPARE(Cells(*m_document).first(2), QStringList({u"1.000"_s, u"0.000"_s}));
    }

    void WritesWhatItReads_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addRow("with an empty cell") << u"five-with-one-empty.LIM"_s;
        QTest::addRow("four decimals") << u"one-to-five.LIM"_s;
    }

    void WritesWhatItReads()
    {
        QFETCH(QString, name);
        for (const QString& decSep : {u","_s, u"."_s}) {
            m_world->define.DecSep = decSep;
            const auto documentMade = MakeDocument<LimiDocument>(m_world->Context());
            LimiDocument& document = *documentMade;
            document.ReadFromFile(DataFile(name));
            QCOMPARE(document.Title(), u"Limiti - "_s + DataFile(name));
            document.SetIsModify(true);
            document.WriteToFile(m_file);
            QCOMPARE(BytesOf(m_file), BytesOf(DataFile(name)));
            QCOMPARE(document.Title(), u"Limiti - "_s + m_file);
            QVERIFY(!document.IsModify() && !document.ChangeMade());
        }
    }

    void Read()
    {
        m_document->ReadFromFile(DataFile(u"five-with-one-empty.LIM"_s));
        QCOMPARE(m_document->InputData(0), u"HPLC isocratico"_s);
        QCOMPARE(m_document->InputData(1), u"Caffeina"_s);
        QCOMPARE(m_document->InputData(2), u"Lotto 12"_s);
        QCOMPARE(m_document->InputData(kUnit), u"mg/l"_s);
        QCOMPARE(Cells(*m_document), QStringList({u"0.120"_s, u"0.130"_s, u""_s, u"0.125"_s, u"0.118"_s}));
        QVERIFY(!m_document->ReadStop());
    }

    void OlderKindIsWrittenWithItsDigits()
    {
        m_document->ReadFromFile(DataFile(u"older-kind.LIM"_s));
        QCOMPARE(m_document->InputData(1), u"Acido citrico"_s);
        m_document->WriteToFile(m_file);
        QVERIFY(BytesOf(m_file).startsWith(
            "Quorel for Windows\r\n3\r\n3\r\n2\r\nTitolazione\r\nAcido citrico\r\n%\r\n"));
    }

    void TheFlagAlwaysSaysTrue()
    {
        m_document->ChooseOption(1);
        m_document->WriteToFile(m_file);
        QVERIFY(BytesOf(m_file).contains("\r\n10\r\nVero\r\n 1,"));
        m_document->ReadFromFile(m_file);
        QCOMPARE(m_document->Option(), std::optional(0));
    }

    void TheFlagIsComparedAsItStands_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("option"); // -1: neither
        QTest::addRow("detection") << "Vero"_ba << 0;
        QTest::addRow("quantitation") << "Falso"_ba << 1;
        QTest::addRow("a blank behind") << "Vero "_ba << -1;
        QTest::addRow("another language") << "True"_ba << -1;
    }

    void TheFlagIsComparedAsItStands()
    {
        QFETCH(QByteArray, line);
        QFETCH(int, option);
        QVERIFY(WriteBytes(m_file, FileWith({{11, line}})));
        QVERIFY(LoadDocument(*m_document, m_file).Calculated());
        QCOMPARE(m_document->Option().value_or(-1), option);
        QCOMPARE(m_document->ControlVisible("LimRil"), option == 0);
        QCOMPARE(m_document->ControlVisible("LimDet"), option == 1);
        QCOMPARE(m_document->Conclusions().contains(u"LIMITE DI RILEVAZIONE"_s), option == 0);
    }

    void BadFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("failure"); // 0: read whole
        QTest::addColumn<int>("line");
        QTest::addColumn<QStringList>("cells");
        const QStringList empty(10, QString());
        const QStringList five{u"1.0000"_s, u"2.0000"_s, u"3.0000"_s, u"4.0000"_s, u"5.0000"_s};
        QTest::addRow("empty") << ""_ba << 62 << 1 << empty;
        QTest::addRow("blanks alone") << "   \t"_ba << 13 << 1 << empty;
        QTest::addRow("zeros") << QByteArray(5000, '\0') << 13 << 1 << empty;
        QTest::addRow("random bytes") << "\x8f\x00\x7f,\xfe\r\r\xff,,3"_ba << 13 << 1 << empty;
        QTest::addRow("cut behind the marker") << "Quorel for Windows\r\n"_ba << 62 << 2 << empty;
        QTest::addRow("no integer digits") << FileWith({{2, "0"}}) << 5 << 3 << empty;
        QTest::addRow("negative decimals") << FileWith({{3, "-1"}}) << 5 << 3 << empty;
        QTest::addRow("digits out of range") << FileWith({{2, "40000"}}) << 6 << 2 << empty;
        QTest::addRow("line 4 no number") << FileWith({{4, "x"}}) << 13 << 4 << empty;
        QTest::addRow("blanks around texts")
            << FileWith({{5, "  HPLC  "}, {8, " Lotto 12 "}}) << 0 << 0 << five;
        QTest::addRow("line 9 no number") << FileWith({{9, "x"}}) << 0 << 0 << five;
        QTest::addRow("no count") << FileWith({{10, ""}}) << 13 << 11 << empty;
        QTest::addRow("count in words") << FileWith({{10, "five"}}) << 13 << 11 << empty;
        QTest::addRow("negative count") << FileWith({{10, "-5"}}) << 5 << 11 << empty;
        QTest::addRow("more rows than the count") << FileWith({{10, "3"}}) << 0 << 0 << five.first(3);
        QTest::addRow("cut in a row") << FileWith({}).first(FileWith({}).indexOf("\r\n4,") + 4) << 62 << 15
                                      << QStringList({u"1.000"_s, u"2.000"_s, u"3.000"_s, u""_s, u""_s});
        QTest::addRow("a value beyond all numbers") << FileWith({{13, "2,1e999"}}) << 6 << 13
                                                    << QStringList({u"1.000"_s, u""_s, u""_s, u""_s, u""_s});
        QTest::addRow("values of every kind")
            << FileWith({{12, "-,-1.5"}, {13, "2,abc"}, {14, "3, NIL"}, {15, "4,12345.5"}, {16, "5,1,5"}})
            << 0 << 0 << QStringList({u"-1.5000"_s, u"0.0000"_s, u""_s, u"12345.5000"_s, u"1.0000"_s});
    }

    void BadFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, failure);
        QFETCH(int, line);
        QFETCH(QStringList, cells);
        QVERIFY(WriteBytes(m_file, bytes));
        const LoadOutcome outcome = LoadDocument(*m_document, m_file);
        QCOMPARE(outcome.reading ? outcome.reading->Number() : 0, failure);
        QCOMPARE(m_document->ReadStop(), line);
        QCOMPARE(Cells(*m_document), cells);
        QVERIFY(!m_document->IsModify() && !m_document->ChangeMade());
        QCOMPARE(m_document->Title() == u"Limiti - no file", failure != 0);
        if (failure == 0)
            QCOMPARE(m_document->InputData(2), u"Lotto 12"_s);
    }

    void MissingCountShowsTheLiteral()
    {
        QVERIFY(WriteBytes(m_file, FileWith({{10, "  "}})));
        LoadDocument(*m_document, m_file);
        QCOMPARE(m_document->ControlText("nDet"), u"Limite di rilevazione"_s);
    }

    void StoppedReadingKeepsTheDigitsOfTheReset()
    {
        const QByteArray bytes = FileWith({});
        QVERIFY(WriteBytes(m_file, bytes.first(bytes.indexOf("5,5"))));
        LoadDocument(*m_document, m_file);
        QCOMPARE(m_document->Grid().GetDigits(), (Digits{3, 3}));
        QCOMPARE(m_world->define.NumFormat, u"##0.0000"_s);
    }

    void CountWithoutRowsIsRefusedQuickly()
    {
        QVERIFY(WriteBytes(m_file, FileWith({{10, "32767"}})));
        const LoadOutcome outcome = LoadDocument(*m_document, m_file);
        QCOMPARE(outcome.reading->Number(), 62);
        QCOMPARE(m_document->Grid().Rows(), 32767);
        QCOMPARE(outcome.calculation->Number(), 13);
    }

    void HeaderFieldIsOneLine()
    {
        m_document->TypeInputData(1, u"a\r\nb\nc\rd"_s);
        QCOMPARE(m_document->InputData(1), u"a b c d"_s);
        QVERIFY(m_document->IsModify());
    }

private:
    static constexpr int kUnit = TestDocument::kUnitInput;
};

QTEST_GUILESS_MAIN(LimiDocumentTest)
#include "LimiDocumentTest.moc"
