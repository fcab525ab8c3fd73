// The document of the repeatability by hand, and what of its chart is not printed. Its numbers, texts and
// files stand in tests/data/documents.
#include "validation/repeatability/PrecDocument.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentLife.h"
#include "framework/text/NumberText.h"
#include "stats/Statistics.h"

using namespace Qt::StringLiterals;

class PrecDocumentTest : public QObject, private DocumentTest<PrecDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.PRE"_s); }

    void SizeIsAnotherThanTheCaptionSays()
    {
        m_document->TypeSize("nDet"_L1, u"3"_s);
        QCOMPARE(m_document->Grid().Rows(), 3);
        QVERIFY(m_document->LeaveSize("nDet"_L1));
        m_document->TypeSize("nDet"_L1, u"2"_s);
        QVERIFY(!m_document->LeaveSize("nDet"_L1));
        QCOMPARE(m_document->ControlText("nDet"), u"6"_s);
    }

    void AxesOfTheCurve()
    {
        LoadDocument(*m_document, DataFile(u"three-determinations.PRE"_s));
        const ChartData chart = Chart();
        const double mean = 300.1 / 3;
        QVERIFY(!chart.y.visible);
        QCOMPARE_EQ(chart.y.scale->minimum, 0.0);
        COMPARE_CLOSE(chart.y.scale->maximum, DensGauss(0, 0, NumberOf(*m_document, 2)), 1e-14);
        // Four times the standard deviation that is shown, 0.21, to either side.
        COMPARE_CLOSE(chart.x.scale->minimum, mean - 0.84, 1e-14);
        COMPARE_CLOSE(chart.x.scale->maximum, mean + 0.84, 1e-14);
        QCOMPARE(chart.x.majorDivisions, 4);
        for (const auto& row : chart.rows) // numbers as their texts have them
            for (const double value : row)
                QCOMPARE_EQ(value, GeneralText(value, u".").toDouble());
    }

    void CurveGoesWithItsNumbers()
    {
        LoadDocument(*m_document, DataFile(u"three-determinations.PRE"_s));
        GetNumFormat(4, 0, m_world->define); // the format of another window, in which s shows as 0
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(Chart().rows.size(), std::size_t{1000});
        QCOMPARE_EQ(Chart().x.scale->minimum, Chart().x.scale->maximum);
        for (int row = 0; row < 3; ++row)
            m_document->Grid().SetValue(row, 0, 100);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QVERIFY(Chart().rows.size() == 2 && !Chart().x.scale);
        m_document->ResetDocument();
        QVERIFY(Chart().IsEmpty() && Chart().title.isEmpty());
    }

private:
    ChartData Chart() const { return m_document->ShownCharts().front(); }
};

QTEST_GUILESS_MAIN(PrecDocumentTest)
#include "PrecDocumentTest.moc"
