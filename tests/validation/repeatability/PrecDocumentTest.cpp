// Repeatability: its worked example to the last digit, its file in both forms, its chart with all its turns.
#include "validation/repeatability/PrecDocument.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/document/DocumentLife.h"
#include "framework/text/NumberText.h"
#include "stats/Statistics.h"
#include "validation/repeatability/PrecCalc.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
const QString kExample = u"three-determinations.PRE"_s;
} // namespace

class PrecDocumentTest : public QObject, private DocumentTest<PrecDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.PRE"_s); }

    void WorkedExample()
    {
        // 99.8, 100.1, 100.2: half width 0.51717..., P% 0.51698..., each floored by itself.
        const auto results = CalcPrec(std::array{99.8, 100.1, 100.2});
        QVERIFY(results);
        COMPARE_CLOSE(results->mean, 300.1 / 3, 1e-15);
        COMPARE_CLOSE(results->s, std::sqrt(0.13 / 3), 1e-9); // one-pass formula
        QCOMPARE_EQ(results->t, 4.303);
        QCOMPARE(results->gdl, 2);
        COMPARE_CLOSE(results->upper, 300.1 / 3 + 0.517, 1e-15);
        COMPARE_CLOSE(results->lower, 300.1 / 3 - 0.517, 1e-15);
        QCOMPARE_EQ(results->width, 1.034);
        QCOMPARE_EQ(results->percent, 0.516);
    }

    void TValues()
    {
        QCOMPARE_EQ(CalcPrec(std::array{1.0, 2.0, 3.0, 4.0, 5.0})->t, 2.776);
        QVERIFY(std::fabs(CalcPrec(std::array{1.0, 2.0, 3.0, 4.0, 5.0, 6.0})->t - 2.5714) < 5e-5);
        QVERIFY(!CalcPrec(std::array{-1.0, 1.0, 0.0}));
        VERIFY_FAILS(CalcPrec(std::array{1.0}), FailureKind::DivisionByZero);
    }

    void Defaults()
    {
        QCOMPARE(m_document->Title(), u"Ripetibilità - no file"_s);
        QCOMPARE(m_document->Grid().Rows(), 6);
        QCOMPARE(m_document->ControlText("GdL"), u"0"_s);
        QCOMPARE(m_document->ControlText("IntConf"), u"0.000"_s);
        QVERIFY(m_document->Calc() != CalcEnd::Done);
        QVERIFY(m_document->ShownCharts().front().IsEmpty());
        m_document->TypeSize("nDet"_L1, u"3"_s); // accepted, whatever the caption says
        QCOMPARE(m_document->Grid().Rows(), 3);
        QVERIFY(m_document->LeaveSize("nDet"_L1));
        m_document->TypeSize("nDet"_L1, u"2"_s);
        QVERIFY(!m_document->LeaveSize("nDet"_L1));
        QCOMPARE(m_document->ControlText("nDet"), u"6"_s);
    }

    void Texts()
    {
        m_world->define.DecSep = u","_s;
        const auto documentMade = MakeDocument<PrecDocument>(m_world->Context());
        PrecDocument& document = *documentMade;
        document.ReadFromFile(DataFile(kExample));
        QCOMPARE(document.Calc(), CalcEnd::Done);
        QStringList shown;
        for (const Field& field : document.Fields().OfKind(FieldKind::Result))
            shown += document.ControlText(field.control);
        QCOMPARE(shown.join(u' '), u"100,03 0,21 0,21 2 0,05 4,30 99,52 100,55 1,03"_s);
        QCOMPARE(
            document.ConclText(Language::English)[0],
            u"V A L I D A T I O N  OF  A N A L Y T I C A L  M E T H O D\r\n\r\nPRECISION TEST\r\n\r\n"
            "The precision of the medium analytical content estimated from an analyst with 3 replications of "
            "the "
            "analysis expressed in precision percentage P% = (CV * t / Sqr(n)) as statistical probability of "
            "95% "
            "is :\r\n\r\nP% = ± 0,516\r\n\r\nThe standard deviation of the measures is equal to: 0,21"_s);
        QVERIFY(document.Conclusions().startsWith(
            u"C O N V A L I D A   D E L   M E T O D O   A N A L I T I C O\r\n\r\n"
            "TEST DELLA PRECISIONE\r\n\r\nLa precisione"_s));
    }

    void NegativeMeanGivesAPositivePercentage()
    {
        QVERIFY(WriteBytes(
            m_file, DataFileWith(kExample, {{11, " 1,-99.80"}, {12, "2,-100.10"}, {13, "3,-100.20"}})));
        QVERIFY(LoadDocument(*m_document, m_file).Calculated());
        QCOMPARE(m_document->ControlText("CV"), u"-0.21"_s);
        QVERIFY(m_document->Conclusions().contains(u"P% = ± 0.517"_s)); // floored downward below zero
    }

    void Curve()
    {
        LoadDocument(*m_document, DataFile(kExample));
        const ChartData chart = m_document->ShownCharts().front();
        QCOMPARE(chart.name, u"VtGrafPrec"_s);
        QCOMPARE(chart.rows.size(), std::size_t{1000});
        const double mean = 300.1 / 3;
        // The span is eight times the standard deviation that is shown, 0.21; the density takes the true one.
        COMPARE_CLOSE(chart.rows.front()[0], mean - 0.84, 1e-14);
        COMPARE_CLOSE(chart.rows.back()[0], mean - 0.84 + 999 * 0.00168, 1e-13);
        COMPARE_CLOSE(chart.rows[300][1], DensGauss(chart.rows[300][0], mean, NumberOf(*m_document, 2)),
                      1e-11);
        QVERIFY(!chart.y.visible);
        QCOMPARE_EQ(chart.y.scale->minimum, 0.0);
        COMPARE_CLOSE(chart.y.scale->maximum, DensGauss(0, 0, NumberOf(*m_document, 2)), 1e-14);
        COMPARE_CLOSE(chart.x.scale->maximum, mean + 0.84, 1e-14);
        QCOMPARE(chart.x.majorDivisions, 4);
        QCOMPARE(chart.title, u"Precisione"_s);
        QCOMPARE(chart.x.title, u"Curva di precisione"_s);
        QCOMPARE(chart.footnote,
                 u"Metodo analitico: Titolazione\r\nAnalita: Acido citrico\r\nCampione: Lotto 7"_s);
        m_document->SetLanGraf(Language::English);
        const ChartData english = m_document->ShownCharts().front();
        QCOMPARE(english.title + u'|' + english.x.title, u"Precision|Precision curve"_s);
        QCOMPARE(english.footnote,
                 u"Analytical method: Titolazione\r\nAnalyte: Acido citrico\r\nSample: Lotto 7"_s);
        m_document->ResetDocument();
        const ChartData empty = m_document->ShownCharts().front();
        QVERIFY(empty.IsEmpty() && empty.title.isEmpty() && empty.x.title.isEmpty());
    }

    void NumbersOfTheChartHaveFifteenDigits()
    {
        LoadDocument(*m_document, DataFile(kExample));
        const ChartData chart = m_document->ShownCharts().front();
        for (const auto& row : chart.rows) {
            for (const double value : row)
                QCOMPARE_EQ(value, GeneralText(value, u".").toDouble());
        }
    }

    void NoCurveForEqualValues()
    {
        QVERIFY(WriteBytes(m_file, DataFileWith(kExample, {{11, " 1,100"}, {12, "2,100"}, {13, "3,100"}})));
        QVERIFY(LoadDocument(*m_document, m_file).Calculated());
        QCOMPARE(m_document->ControlText("SupConf"), u"100.00"_s);
        QVERIFY(m_document->Conclusions().contains(u"P% = ± 0\r\n"_s));
        const ChartData chart = m_document->ShownCharts().front();
        QCOMPARE(chart.rows, (std::vector<std::vector<double>>(2, {0, 0})));
        m_document->SetLanGraf(Language::English); // keeps its one title
        QCOMPARE(m_document->ShownCharts().front().title, u"Dev.standard = 0: grafico non disponibile"_s);
        QCOMPARE(chart.footnote + chart.x.title, QString());
    }

    void CurveWithoutSpanWhereTheShownDeviationIsZero()
    {
        QVERIFY(WriteBytes(
            m_file, DataFileWith(kExample, {{3, "0"}, {11, " 1,1000"}, {12, "2,1000"}, {13, "3,1001"}})));
        LoadDocument(*m_document, m_file);
        GetNumFormat(3, 0, m_world->define);
        m_document->Grid().SetValue(2, 0, 1000.4); // rounds to 1000 as the others: s is 0
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        m_document->ChooseDigits({.interi = 4, .decimali = 1});
        GetNumFormat(4, 0, m_world->define); // the format of another window: s = 0.23 shows as 0
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        const ChartData chart = m_document->ShownCharts().front();
        QCOMPARE(chart.rows.size(), std::size_t{1000});
        QCOMPARE(chart.rows.front(), chart.rows.back());
        QCOMPARE_EQ(chart.x.scale->minimum, chart.x.scale->maximum);
    }

    void WritesWhatItReads()
    {
        for (const QString& decSep : {u","_s, u"."_s}) {
            m_world->define.DecSep = decSep;
            const auto documentMade = MakeDocument<PrecDocument>(m_world->Context());
            PrecDocument& document = *documentMade;
            document.ReadFromFile(DataFile(kExample));
            document.WriteToFile(m_file);
            QCOMPARE(BytesOf(m_file), BytesOf(DataFile(kExample)));
        }
    }

    void OlderKindAndBadLines()
    {
        const QByteArray whole = BytesOf(DataFile(kExample));
        QVERIFY(WriteBytes(m_file, whole.sliced(whole.indexOf("2\r\nTitolazione"))));
        QVERIFY(LoadDocument(*m_document, m_file).Calculated());
        QCOMPARE(m_document->Grid().GetDigits(), (Digits{3, 3}));
        QCOMPARE(m_document->InputData(2), u"Lotto 7"_s);
        QVERIFY(WriteBytes(m_file, DataFileWith(kExample, {{4, "x"}})));
        QCOMPARE(LoadDocument(*m_document, m_file).reading->Number(), 13);
        QVERIFY(WriteBytes(m_file, DataFileWith(kExample, {{10, ""}})));
        QCOMPARE(LoadDocument(*m_document, m_file).reading->Number(), 13);
        QVERIFY(WriteBytes(m_file, DataFileWith(kExample, {{12, "2,NIL"}})));
        const LoadOutcome outcome = LoadDocument(*m_document, m_file);
        QVERIFY(!outcome.reading);
        QCOMPARE(outcome.calculation->Number(), 13);
    }
};

QTEST_GUILESS_MAIN(PrecDocumentTest)
#include "PrecDocumentTest.moc"
