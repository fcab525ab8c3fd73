// Specificity: the worked example, the four rows of its decisions, its messages, sizes and locks, file and
// chart.
#include "validation/specificity/SpecDocument.h"
#include "Compare.h"
#include "TestWorld.h"
#include "framework/document/DocumentLife.h"
#include "stats/Statistics.h"
#include "validation/specificity/SpecCalc.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <boost/math/distributions/students_t.hpp>

using namespace Qt::StringLiterals;

namespace
{

const QString kExample = u"groups-of-5-and-6.SPC"_s;
constexpr std::array kA = {100.2, 99.8, 100.1, 100.4, 99.9};
constexpr std::array kB = {100.1, 100.3, 99.9, 100.0, 100.2};

} // namespace

class SpecDocumentTest : public QObject, private DocumentTest<SpecDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.SPC"_s); }

    void WorkedExample()
    {
        const SpecResults r = CalcSpec(kA, kB);
        COMPARE_CLOSE(r.a.mean, 100.08, 1e-15);
        COMPARE_CLOSE(r.b.mean, 100.10, 1e-15);
        COMPARE_CLOSE(r.a.variance, 0.057, 1e-8); // one-pass formula
        COMPARE_CLOSE(r.b.variance, 0.025, 1e-8);
        COMPARE_CLOSE(r.f, 2.28, 1e-8);
        QVERIFY(std::fabs(r.pF - 0.2217) < 5e-5);
        QCOMPARE(r.gdl, 8);
        COMPARE_CLOSE(r.t, 0.02 / (std::sqrt(0.4) * std::sqrt(0.041)), 1e-8); // 0.1562
        COMPARE_CLOSE(r.pT, 2 * cdf(complement(boost::math::students_t(8), r.t)), 1e-12);
        COMPARE_CLOSE(r.b.upper, 100.10 + std::floor(std::sqrt(0.025) * 2.776 / std::sqrt(5) * 1000) / 1000,
                      1e-15);
        QVERIFY(!r.Significant() && !r.NotDeterminable());
        // The groups may be swapped.
        COMPARE_CLOSE(CalcSpec(kB, kA).pF, r.pF, 1e-15);
        COMPARE_CLOSE(CalcSpec(kB, kA).t, r.t, 1e-12);
    }

    void Texts()
    {
        const auto shown = [this] {
            QStringList texts;
            for (const Field& field : m_document->Fields().OfKind(FieldKind::Result))
                texts += m_document->ControlText(field.control);
            return texts.join(u' ');
        };
        QCOMPARE(m_document->Grid().GetDigits(), (Digits{6, 3}));
        const QString empty = u"0.000 0.000 0 0 0 0 0.000 0.000 0.000 0 0.000 0.000 Giudizio"_s;
        QCOMPARE(shown(), empty);
        Fill({kA.begin(), kA.end()}, {kB.begin(), kB.end()});
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        // Half-widths 2.776 s / √5, cut to 0.296 and 0.196.
        QCOMPARE(shown(), u"100.080 100.100 99.784 99.904 100.376 100.296 0.057 0.025 2.280 8 0.156 0.880 "
                          "Differenza NON SIGNIFICATIVA (P = 95%)"_s);
        m_document->ResetDocument();
        QCOMPARE(shown(), empty);
    }

    void GroupsWeighBySize()
    {
        const std::array large = {100.1, 100.3, 99.9, 100.0, 100.2, 100.1, 99.8, 100.4};
        const SpecResults r = CalcSpec(kA, large);
        const double pooled = (4 * r.a.variance + 7 * r.b.variance) / 11;
        COMPARE_CLOSE(r.t, std::fabs(r.a.mean - r.b.mean) / std::sqrt((1.0 / 5 + 1.0 / 8) * pooled), 1e-12);
        QCOMPARE(r.gdl, 11);
    }

    void VariancesCountAsEqualDownToTheLevel()
    {
        // Wider and wider: the ratio of the variances passes the 5 % point, 6.388 for 4 and 4.
        const auto scaled = [](double factor) {
            std::array values = kA;
            for (double& value : values)
                value = 100.08 + (value - 100.08) * factor;
            return CalcSpec(values, kB);
        };
        const SpecResults below = scaled(std::sqrt(6.2 / 2.28));
        QVERIFY(below.pF > 0.05 && below.pF < 0.055);
        QCOMPARE(below.gdl, 8);
        const SpecResults above = scaled(std::sqrt(6.6 / 2.28));
        QVERIFY(above.pF < 0.05 && above.pF > 0.045);
        QCOMPARE(above.gdl, 6);                        // 6.48
        QCOMPARE(scaled(std::sqrt(10 / 2.28)).gdl, 6); // 5.99
    }

    void SeparateVariancesTakeTheCountsThemselves()
    {
        const SpecResults r = CalcSpec(std::array{1.0, 200.0, 100.0, 400.0, 20.0}, kB);
        const double wA = r.a.variance / 5;
        const double wB = r.b.variance / 5;
        COMPARE_CLOSE(r.t, std::fabs(r.a.mean - r.b.mean) / std::sqrt(wA + wB), 1e-14);
        const double g = (wA + wB) * (wA + wB) / (wA * wA / 5 + wB * wB / 5);
        QCOMPARE(r.gdl, static_cast<int>(std::floor(g + 0.5)));
        QCOMPARE(r.gdl, 5);
    }

    void Variances()
    {
        bool invalid = false;
        QCOMPARE_EQ(TestVarianze(5, 6, 2, 1, invalid), ProbF(2, 4, 5));
        QCOMPARE_EQ(TestVarianze(5, 6, 1, 2, invalid), ProbF(2, 5, 4));
        QCOMPARE_EQ(TestVarianze(5, 6, 1, 0, invalid),
                    ProbF(0, 4, 5)); // a variance of 0 counts as a ratio of 0
        QVERIFY(!invalid);
        QCOMPARE_EQ(TestVarianze(5, 6, 0, 0, invalid), kNoProbability);
        QVERIFY(invalid);
        const SpecResults r = CalcSpec(std::array{1.0, 2.0, 3.0}, std::array{5.0, 5.0, 5.0});
        QCOMPARE_EQ(r.f, 0.0);
    }

    void Decisions_data()
    {
        QTest::addColumn<QList<double>>("a");
        QTest::addColumn<QList<double>>("b");
        QTest::addColumn<QString>("verdict");
        QTest::addColumn<QString>("english");
        QTest::addColumn<QString>("conclusion"); // what the Italian text holds
        const QList<double> b(kB.begin(), kB.end());
        QTest::addRow("equal variances, equal means")
            << QList<double>(kA.begin(), kA.end()) << b << u"Differenza NON SIGNIFICATIVA (P = 95%)"_s
            << u"Difference NOT SIGNIFICANT (P = 95%)"_s
            << u"Il metodo HPLC è in grado di determinare l'analita Caffeina "_s;
        QTest::addRow("equal variances, other means")
            << QList<double>{102.2, 101.8, 102.1, 102.4, 101.9} << b
            << u"Differenza SIGNIFICATIVA (P = 95%)"_s << u"Difference SIGNIFICANT (P = 95%)"_s
            << u"Il metodo HPLC NON è in grado di determinare l'analita Caffeina "_s;
        QTest::addRow("other variances, other means")
            << QList<double>{140, 150, 160, 155, 145} << b << u"Differenza SIGNIFICATIVA (P = 95%)"_s
            << u"Difference SIGNIFICANT (P = 95%)"_s << u"Il metodo HPLC NON è in grado"_s;
        QTest::addRow("other variances, means that can't be told apart")
            << QList<double>{1, 200, 100, 400, 20, 20} << b
            << u"Dispersione dei dati elevata.\r\nSpecificità statisticamente non determinabile"_s
            << u"High dispertion data.\r\nSpecificity statistically not determinable"_s
            << u"con l'attuale numerosità dei dati (6 per il gruppo A e 5 per il gruppo B) non è possibile"_s;
    }

    void Decisions()
    {
        QFETCH(QList<double>, a);
        QFETCH(QList<double>, b);
        QFETCH(QString, verdict);
        QFETCH(QString, english);
        QFETCH(QString, conclusion);
        m_document->TypeInputData(0, u" HPLC "_s);
        m_document->TypeInputData(1, u"Caffeina"_s);
        Fill(a, b);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(m_document->ControlText("Giudizio"), verdict);
        QCOMPARE(m_document->Verdict()->en, english);
        QVERIFY2(m_document->Conclusions().contains(conclusion), qPrintable(m_document->Conclusions()));
        QVERIFY(m_document->ConclText(Language::English)[0].startsWith(
            u"V A L I D A T I O N  OF  A N A L Y T I C A L  M E T H O D\r\n\r\nSPECIFICITY TEST\r\n\r\nT"_s));
        QVERIFY(m_world->messages.All().isEmpty());
    }

    void BothDecideAtExactlyTheLevel()
    {
        SpecResults r;
        r.pT = 0.05;
        r.pF = 0.05;
        QVERIFY(r.Significant() && !r.NotDeterminable());
        r.pF = 0.0499;
        QVERIFY(r.Significant() && r.NotDeterminable());
    }

    void Messages_data()
    {
        QTest::addColumn<QList<double>>("a");
        QTest::addColumn<QList<double>>("b");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("hourglass"); // stays on
        const QList<double> zeros(5, 0.0);
        const QList<double> b(kB.begin(), kB.end());
        const QString app = u"Quorel 2006"_s;
        QTest::addRow("a new document") << zeros << zeros << app
                                        << u"I risultati di un gruppo sono tutti nulli. Non è "
                                           "possibile effettuare un' elaborazione statistica corretta!"_s
                                        << false;
        QTest::addRow("one group cancels out")
            << b << QList<double>{1, -1, 2, -2, 0} << app
            << u"I risultati di un gruppo sono tutti nulli. Non è possibile "
               "effettuare un' elaborazione statistica corretta!"_s
            << false;
        QTest::addRow("one group is equal") << QList<double>(5, 7.0) << b << app
                                            << u"I risultati di un gruppo sono tutti uguali. Non è possibile "
                                               "effettuare un' elaborazione statistica corretta!"_s
                                            << false;
        // The cells show the same number and hold others: not equal, and yet without variance.
        QTest::addRow("no variance at all")
            << QList<double>{7.0001, 7, 7, 7, 7} << QList<double>{5.0001, 5, 5, 5, 5} << u"Errore"_s
            << u"Dati non validi !\nControllare i dati"_s << true;
    }

    void Messages()
    {
        QFETCH(QList<double>, a);
        QFETCH(QList<double>, b);
        QFETCH(QString, title);
        QFETCH(QString, text);
        QFETCH(bool, hourglass);
        Fill(a, b);
        const QSignalSpy pointer(m_document.get(), &TestDocument::Pointer);
        QVERIFY(m_document->Calc() != CalcEnd::Done);
        QCOMPARE(m_world->messages.All().size(), 1);
        QCOMPARE(m_world->messages.All()[0].title, title);
        QCOMPARE(m_world->messages.All()[0].text, text);
        QCOMPARE(m_world->messages.All()[0].icon,
                 hourglass ? MessageIcon::Critical : MessageIcon::Exclamation);
        QCOMPARE(pointer.last()[0].toBool(), hourglass);
        QCOMPARE(m_document->ControlText("T"), hourglass ? u"0"_s : u"0.000"_s);
        QCOMPARE(m_document->ControlText("Giudizio"), u"Giudizio"_s);
    }

    void OverflowOfTheProbability()
    {
        QList<double> wide;
        QList<double> narrow;
        for (int i = 0; i < 300; ++i) {
            wide.append(i % 2 == 0 ? 1 : 999);
            narrow.append(i % 2 == 0 ? 100.001 : 100.002);
        }
        Fill(wide, narrow);
        QVERIFY(m_document->Calc() != CalcEnd::Done);
        QCOMPARE(m_world->messages.TakeOnly(), u"Overflow numerico !\nControllare i dati"_s);
    }

    void FormerResultsStay()
    {
        Fill(QList<double>(kA.begin(), kA.end()), QList<double>(kB.begin(), kB.end()));
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        const QString before = m_document->ControlText("MediaA") + m_document->Conclusions();
        QVERIFY(m_document->Grid().Edits().TypeText(2, 0, QString()));
        VERIFY_FAILS(m_document->Calc(), FailureKind::TypeMismatch);
        Fill(QList<double>(5, 7.0), QList<double>(kB.begin(), kB.end()));
        QVERIFY(m_document->Calc() != CalcEnd::Done);
        QCOMPARE(m_document->ControlText("MediaA") + m_document->Conclusions(), before);
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

    void WritesWhatItReads()
    {
        for (const QString& decSep : {u","_s, u"."_s}) {
            m_world->define.DecSep = decSep;
            const auto documentMade = MakeDocument<SpecDocument>(m_world->Context());
            SpecDocument& document = *documentMade;
            document.ReadFromFile(DataFile(kExample));
            QVERIFY(document.Grid().IsLocked(5, 0));
            document.WriteToFile(m_file);
            QCOMPARE(BytesOf(m_file), BytesOf(DataFile(kExample)));
        }
    }

    void ReadRows_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("failure");
        QTest::addColumn<QStringList>("cells");
        const QByteArray whole = BytesOf(DataFile(kExample));
        const QStringList read{u"100.200|100.100"_s, u"99.800|100.300"_s, u"100.100|99.900"_s,
                               u"100.400|100.000"_s, u"99.900|100.200"_s, u"|100.100"_s};
        QTest::addRow("whole") << whole << 0 << read;
        QTest::addRow("older kind") << whole.sliced(whole.indexOf("3\r\nHPLC")) << 0 << read;
        QTest::addRow("two fields a row fill one column")
            << DataFileWith(
                   kExample,
                   {{4, "2"}, {14, " 1,1"}, {15, "2,2"}, {16, "3,3"}, {17, "4,4"}, {18, "5,5"}, {19, "6,6"}})
            << 0
            << QStringList({u"1.000|0.000"_s, u"2.000|0.000"_s, u"3.000|0.000"_s, u"4.000|0.000"_s,
                            u"5.000|0.000"_s, u"6.000|0.000"_s});
        QTest::addRow("four fields a row: the last one has no column")
            << DataFileWith(kExample, {{4, "4"},
                                       {14, " 1,1,2,3"},
                                       {15, "2,1,2,3"},
                                       {16, "3,1,2,3"},
                                       {17, "4,1,2,3"},
                                       {18, "5,1,2,3"},
                                       {19, "6,1,2,3"}})
            << 0 << QStringList(6, u"1.000|2.000"_s);
        QTest::addRow("cut: the rows that it does not reach hold 0")
            << whole.first(whole.indexOf("3,100.100")) << 62
            << QStringList({u"100.200|100.100"_s, u"99.800|100.300"_s, u"0.000|0.000"_s, u"0.000|0.000"_s,
                            u"0.000|0.000"_s, u"|0.000"_s});
        QTest::addRow("negative size")
            << DataFileWith(kExample, {{10, "-7"}}) << 0
            << QStringList({u"100.200|100.100"_s, u"99.800|100.300"_s, u"100.100|99.900"_s,
                            u"100.400|100.000"_s, u"99.900|100.200"_s, u"|100.100"_s});
        QTest::addRow("no size") << DataFileWith(kExample, {{13, "six"}}) << 13 << QStringList(5, u"|"_s);
    }

    void ReadRows()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, failure);
        QFETCH(QStringList, cells);
        QVERIFY(WriteBytes(m_file, bytes));
        const LoadOutcome outcome = LoadDocument(*m_document, m_file);
        QCOMPARE(outcome.reading ? outcome.reading->Number() : 0, failure);
        QCOMPARE(Cells(), cells);
    }

    void Chart()
    {
        LoadDocument(*m_document, DataFile(kExample));
        const ChartData chart = m_document->ShownCharts().front();
        QCOMPARE(chart.type, ChartType::HighLow);
        QCOMPARE(chart.rowLabels, QStringList({u"A"_s, u"B"_s}));
        // The numbers that are shown, highest, lowest, mean.
        QCOMPARE(chart.rows,
                 (std::vector<std::vector<double>>{{100.376, 99.784, 100.08}, {100.248, 99.952, 100.1}}));
        QCOMPARE(chart.title + u'|' + chart.x.title, u"Specificità: medie|Gruppi"_s);
        m_document->SetLanGraf(Language::English);
        const ChartData english = m_document->ShownCharts().front();
        QCOMPARE(english.title + u'|' + english.x.title, u"Specificity: means|Groups"_s);
        QVERIFY(english.footnote.startsWith(u"Analytical method: HPLC isocratico\r\nAnalyte: "_s));
        QCOMPARE(ChartValueText(chart, {1.3, 100}, u","), u"A: da 99,784 a 100,376, media 100,08"_s);
        QCOMPARE(ChartValueText(chart, {2.6, 100}, u","), QString());
    }

private:
    void Fill(const QList<double>& a, const QList<double>& b)
    {
        m_document->TypeSize("GruppoA"_L1, QString::number(a.size()));
        m_document->TypeSize("GruppoB"_L1, QString::number(b.size()));
        for (int row = 0; row < a.size(); ++row)
            m_document->Grid().SetValue(row, 0, a[row]);
        for (int row = 0; row < b.size(); ++row)
            m_document->Grid().SetValue(row, 1, b[row]);
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
