// The document of the specificity by hand, and what of its numbers and its chart no file meets. The rest
// stands in tests/data/documents.
#include "validation/specificity/SpecDocument.h"
#include "TestWorld.h"
#include "framework/document/DocumentLife.h"
#include "validation/specificity/SpecCalc.h"

using namespace Qt::StringLiterals;

class SpecDocumentTest : public QObject, private DocumentTest<SpecDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.SPC"_s); }

    void BothDecideAtExactlyTheLevel()
    {
        SpecResults r;
        r.pT = 0.05;
        r.pF = 0.05;
        QVERIFY(r.Significant() && !r.NotDeterminable());
        r.pF = 0.0499;
        QVERIFY(r.Significant() && r.NotDeterminable());
    }

    /// Without a probability t alone changes; the other results stay as they were.
    void FormerResultsStay()
    {
        LoadDocument(*m_document, DataFile(u"groups-of-5-and-6.SPC"_s));
        const auto former = [this] {
            return m_document->ControlText("MediaA") + m_document->ControlText("Giudizio") +
                   m_document->Conclusions();
        };
        const QString before = former();
        QVERIFY(m_document->Grid().Edits().TypeText(2, 0, QString()));
        VERIFY_FAILS(m_document->Calc(), FailureKind::TypeMismatch);
        Fill(7, 7);
        QCOMPARE(m_document->Calc(), CalcEnd::Refused);
        QCOMPARE(m_document->ControlText("T"), u"0.173"_s);
        QCOMPARE(m_world->messages.Beeps(), 0);
        // The cells show the same number and hold others: not equal, and yet without variance.
        Fill(7.0001, 7);
        QCOMPARE(m_document->Calc(), CalcEnd::Refused);
        QCOMPARE(m_document->ControlText("T"), u"0"_s);
        QCOMPARE(m_world->messages.Beeps(), 2);
        QCOMPARE(former(), before);
    }

    void SizesAndLocks()
    {
        QCOMPARE(Cells(), QStringList(5, u"0.000|0.000"_s));
        m_document->TypeSize("GruppoA"_L1, u"8"_s);
        m_document->TypeSize("GruppoB"_L1, u"6"_s);
        QCOMPARE(m_document->Grid().Rows(), 8);
        QVERIFY(m_document->Grid().IsLocked(6, 1) && !m_document->Grid().IsLocked(5, 1));
        QVERIFY(m_document->Grid().Edits().TypeText(7, 0, u"7"_s));
        QVERIFY(m_document->Grid().Edits().TypeText(5, 1, u"5"_s));
        QVERIFY(!m_document->Grid().Edits().TypeText(7, 1, u"1"_s));
        m_document->TypeSize("GruppoA"_L1, u"6"_s);
        QCOMPARE(m_document->Grid().Rows(), 6);
        m_document->TypeSize("GruppoA"_L1, u"8"_s); // what was cut off is 0, what stood stays
        QCOMPARE(Cells().sliced(5), QStringList({u"0.000|5.000"_s, u"0.000|"_s, u"0.000|"_s}));
        m_document->TypeSize("GruppoB"_L1, u"7"_s);
        QCOMPARE(Cells().sliced(5), QStringList({u"0.000|5.000"_s, u"0.000|0.000"_s, u"0.000|"_s}));
        m_document->TypeSize("GruppoA"_L1, u"4"_s);
        QCOMPARE(m_document->Grid().Rows(), 8);
        QVERIFY(!m_document->LeaveSize("GruppoA"_L1));
        QCOMPARE(m_document->ControlText("GruppoA"), u"5"_s);
    }

    void LocksOfAFile()
    {
        LoadDocument(*m_document, DataFile(u"groups-of-5-and-6.SPC"_s));
        QVERIFY(m_document->Grid().IsLocked(5, 0) && !m_document->Grid().IsLocked(5, 1));
    }

    void Bars()
    {
        LoadDocument(*m_document, DataFile(u"groups-of-5-and-6.SPC"_s));
        const ChartData chart = m_document->ShownCharts().front();
        QCOMPARE(chart.type, ChartType::HighLow);
        QCOMPARE(ChartValueText(chart, {1.3, 100}, u","), u"A: da 99,784 a 100,376, media 100,08"_s);
        QCOMPARE(ChartValueText(chart, {2.6, 100}, u","), QString());
    }

private:
    /// All cells of both groups, the first row with a number of its own.
    void Fill(double first, double others)
    {
        for (int row = 0; row < m_document->Grid().Rows(); ++row)
            for (int col = 0; col < 2; ++col)
                m_document->Grid().SetValue(row, col, row == 0 ? first : others);
    }

    QStringList Cells() const
    {
        const DataGrid& grid = m_document->Grid();
        QStringList rows;
        for (int row = 0; row < grid.Rows(); ++row)
            rows.append(grid.Text(row, 0) + u'|' + grid.Text(row, 1));
        return rows;
    }
};

QTEST_GUILESS_MAIN(SpecDocumentTest)
#include "SpecDocumentTest.moc"
