// The document of the calibration by hand: sizes, concentrations, digits, and what of its charts no file
// meets. The rest stands in tests/data/documents.
#include "validation/calibration/TaraDocument.h"
#include "TestWorld.h"
#include "framework/document/DocumentLife.h"

#include <QSet>
#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// Of the contrast of the web's accessibility guidelines.
double Luminance(const ChartColour& colour)
{
    const auto part = [](std::uint8_t value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.red) + 0.7152 * part(colour.green) + 0.0722 * part(colour.blue);
}

} // namespace

class TaraDocumentTest : public QObject, private DocumentTest<TaraDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.TAR"_s); }

    void Sizes()
    {
        QCOMPARE(State(), u"5 x 3, 5 3 15: 1.000 2.000 3.000 4.000 5.000"_s);
        m_document->Grid().Edits().SetHeaders({u"10.000"_s, u""_s, u"x"_s});
        m_document->TypeSize("Dimensioni0"_L1, u"1"_s); // of 12
        m_document->TypeSize("Dimensioni0"_L1, u"12"_s);
        QCOMPARE(State(), u"12 x 3, 12 3 36: 10.000 2.000 3.000 4.000 5.000 6.000 7.000 8.000 9.000 10.000 "
                          "11.000 12.000"_s);
        QCOMPARE(m_document->Grid().Text(2, 11), u"0.000"_s);
        QVERIFY(m_document->IsModify());
        QVERIFY(m_document->LeaveSize("Dimensioni0"_L1));
        QVERIFY(m_document->Undo());
        QCOMPARE(State(), u"5 x 3, 5 3 15: 10.000  x 4.000 5.000"_s);
    }

    /// A refused size gives way to the count of rows, in the field of the columns, too.
    void RefusedSizes()
    {
        m_document->TypeSize("Dimensioni1"_L1, u"40"_s);
        QVERIFY(m_document->LeaveSize("Dimensioni1"_L1));
        m_document->TypeSize("Dimensioni1"_L1, u"4"_s);
        QVERIFY(m_document->LeaveSize("Dimensioni1"_L1));
        m_document->SetIsModify(false);
        for (const QString& refused : {u"16"_s, u"2"_s, QString()}) {
            m_document->TypeSize("Dimensioni0"_L1, refused);
            QVERIFY(!m_document->LeaveSize("Dimensioni0"_L1));
            QCOMPARE(State(), u"4 x 4, 4 4 16: 1.000 2.000 3.000 4.000"_s);
        }
        m_document->TypeSize("Dimensioni1"_L1, u"41"_s);
        QVERIFY(!m_document->LeaveSize("Dimensioni1"_L1));
        QCOMPARE(State(), u"4 x 4, 4 4 16: 1.000 2.000 3.000 4.000"_s);
        QCOMPARE(m_world->messages.Beeps(), 4);
        QVERIFY(m_document->IsModify());
        for (const QString& taken : {u"3"_s, u"15"_s}) {
            m_document->TypeSize("Dimensioni0"_L1, taken);
            QVERIFY(m_document->LeaveSize("Dimensioni0"_L1));
        }
        m_document->TypeSize("Dimensioni1"_L1, u"3"_s);
        QCOMPARE(State().section(u':', 0, 0), u"15 x 3, 15 3 45"_s);
    }

    void DigitsCutConcentrations()
    {
        m_document->Grid().Edits().SetHeaders({u"0.400"_s, u"1.250"_s, u"-2.000"_s, u"x"_s, u""_s});
        m_document->ClearFlags();
        m_document->ChooseDigits({.interi = 4, .decimali = 1});
        QCOMPARE(State(), u"5 x 3, 5 3 15: 0.4 1.3 -2.0 4.0 5.0"_s);
        QCOMPARE(m_document->DeedNotice(),
                 u"Concentrazioni arrotondate per il formato: 3 (Ctrl+Z le riporta)"_s);
        QVERIFY(!m_document->IsModify() && !m_document->ChangeMade());
        QVERIFY(m_document->Undo());
        QCOMPARE(State(), u"5 x 3, 5 3 15: 0.400 1.250 -2.000 x "_s);
        QCOMPARE(m_document->DeedNotice(), QString());
        QVERIFY(m_document->Redo());
        m_document->ChooseDigits({.interi = 4, .decimali = 2}); // nothing is lost by this
        QVERIFY(m_document->Undo() && m_document->Headers()->front() == u"0.400"_s);
        QVERIFY(m_document->Redo());
        m_document->ChooseDigits({.interi = 4, .decimali = 0});
        QCOMPARE(State(), u"5 x 3, 5 3 15: 0 1 -2 4 5"_s);
        QCOMPARE(m_document->Calc(), CalcEnd::Refused);
        QCOMPARE(m_world->messages.TakeOnly(),
                 u"Mancano alcuni valori di concentrazione.\r\nImpossibile calcolare i risultati"_s);
    }

    /// The results of the last good calculation stand until the next one, whatever stops it; the pointer is
    /// given back by what is refused.
    void FormerResultsStay()
    {
        LoadDocument(*m_document, DataFile(kWhole));
        const auto shown = [this] {
            QStringList texts{m_document->Conclusions()};
            for (const Field& field : m_document->Fields().OfKind(FieldKind::Result))
                texts += field.text;
            for (const QStringList& row : m_document->Table("SprLinearita")->Rows())
                texts += row;
            return texts;
        };
        const QStringList before = shown();
        const auto data = m_document->ShownCharts()[0].rows;
        const QSignalSpy pointer(m_document.get(), &TestDocument::Pointer);
        m_document->Grid().Edits().SetHeaders({u"0.000"_s});
        QCOMPARE(m_document->Calc(), CalcEnd::Refused);
        m_document->Grid().Edits().SetHeaders({u"1.000"_s});
        m_document->Grid().Clear(); // an empty cell counts as 0
        QCOMPARE(m_document->Calc(), CalcEnd::Refused);
        QCOMPARE(pointer.last(), QVariantList{false});
        m_document->Grid().FillEmptyWithZero();
        m_document->Grid().SetValue(0, 0, 1);
        m_document->Grid().Edits().SetHeaders(QStringList(m_document->Grid().Cols(), u"2.000"_s));
        VERIFY_FAILS(m_document->Calc(), FailureKind::DivisionByZero);
        QCOMPARE(shown(), before);
        QCOMPARE(m_document->ShownCharts()[0].rows, data);
    }

    /// A file that was read in part says where it stopped, and what was expected there.
    void WhereAReadingStopped()
    {
        const std::pair<QString, QString> stops[] = {
            {u"negative-size"_s,
             u"11: vi sta \"-3\" dove è attesa la quantità \"N. gruppi (concentrazioni)\""_s},
            {u"too-many-cells"_s,
             u"11: vi sta \"1024 x 1025\" dove è attesa una griglia di al più 1048576 celle"_s},
            {u"size-beyond-16-bits"_s,
             u"10: vi sta \"32768\" dove è attesa la quantità \"N. dati per gruppo (risposte)\""_s},
            {u"concentration-count-as-text"_s,
             u"14: vi sta \"cinque\" dove è attesa la quantità di concentrazioni"_s},
            {u"cut-in-the-concentrations"_s, u"17: il file finisce dove è attesa una concentrazione"_s},
            {u"cut-in-a-row"_s, u"20: il file finisce dove è attesa una riga di dati"_s}};
        for (const auto& [name, notice] : stops) {
            LoadDocument(*m_document, DataFile(name + u".TAR"_s));
            QCOMPARE(m_document->ReadNotice(), u"Letto in parte, fino alla riga "_s + notice);
        }
    }

    /// What is told of results, and of a file that has none, until they are others.
    void NoticesOfResults()
    {
        LoadDocument(*m_document, DataFile(u"equal-concentrations.TAR"_s));
        QCOMPARE(m_document->ReadNotice(),
                 u"Il file è stato letto, ma non si può calcolare: Divisione per zero"_s);
        LoadDocument(*m_document, DataFile(kWhole));
        QCOMPARE(m_document->ReadNotice() + m_document->ResultNotice(), QString());
        QVERIFY(m_document->Grid().Edits().TypeText(0, 1, QString()));
        m_document->NoteFailure(u"x"_s);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(m_document->ResultNotice(), u"Celle vuote, contate come 0: 1"_s);
        QCOMPARE(m_document->ReadNotice(), QString());
    }

    /// Limits that are one have a chart, too, with a point and zero.
    void LimitsThatAreOne()
    {
        LoadDocument(*m_document, DataFile(u"on-a-falling-line.TAR"_s));
        const ChartData chart = m_document->ShownCharts()[1];
        const double a = chart.rows[1][1];
        QVERIFY(a != 0 && chart.rows[0] == std::vector<double>({0, a, 0, a}));
        QVERIFY(chart.x.scale->minimum < 0 && chart.x.scale->maximum > 0);
        QVERIFY(chart.y.scale->minimum < std::min(a, 0.0) && chart.y.scale->maximum > std::max(a, 0.0));
        LoadDocument(*m_document, DataFile(kWhole));
        QVERIFY(!m_document->ShownCharts()[1].x.scale && m_document->ShownCharts()[1].y.showsZero);
    }

    /// Without its database the test tells nothing, although nothing is decided by it.
    void NoTableOfF()
    {
        LoadDocument(*m_document, DataFile(kWhole));
        m_world->fTable.missing = true;
        VERIFY_FAILS(m_document->Calc(), FailureKind::DatabaseNotOpen);
    }

    void ConcentrationsOfAFileAreChangedAndTakenBack()
    {
        LoadDocument(*m_document, DataFile(kWhole));
        QVERIFY(m_document->Results() == ResultState::Current);
        const QString before = State();
        m_document->Grid().Edits().SetHeaders({u"7.000"_s});
        QVERIFY(m_document->Results() == ResultState::Stale);
        QVERIFY(!m_document->IsModify() && m_document->ChangeMade());
        QVERIFY(m_document->Undo());
        QCOMPARE(State(), before);
    }

    void GroupsHaveColoursOfTheirOwn()
    {
        LoadDocument(*m_document, DataFile(kWhole));
        QSet<QString> second;
        for (int run = 0; run < 20; ++run) {
            QCOMPARE(m_document->Calc(), CalcEnd::Done);
            const ChartSeries series = m_document->ShownCharts()[0].Series(0);
            QCOMPARE(series.colours.size(), static_cast<std::size_t>(m_document->Grid().Cols()));
            QVERIFY((series.colours[0] == ChartColour{255, 0, 0} && series.fitColour == series.colours[0]));
            for (const ChartColour& colour : series.colours)
                QVERIFY(1.05 / (Luminance(colour) + 0.05) >= 3);
            second += QString::number(Luminance(series.colours[1]));
        }
        QVERIFY(second.size() > 1);
        QCOMPARE(m_document->ShownCharts()[0].Series(0).colourGroup, m_document->Grid().Rows());
    }

private:
    static inline const QString kWhole = u"linear-and-proportional.TAR"_s;

    /// Columns and rows, the three sizes, and the concentrations.
    QString State() const
    {
        return u"%1 x %2, %3 %4 %5: %6"_s.arg(m_document->Grid().Cols())
            .arg(m_document->Grid().Rows())
            .arg(m_document->ControlText("Dimensioni0"), m_document->ControlText("Dimensioni1"),
                 m_document->ControlText("nDatiTot"), m_document->Headers()->join(u' '));
    }
};

QTEST_GUILESS_MAIN(TaraDocumentTest)
#include "TaraDocumentTest.moc"
