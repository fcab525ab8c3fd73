// The window of the repeatability test.
#include "validation/repeatability/PrecWindow.h"
#include "Compare.h"
#include "WindowWorld.h"
#include "framework/window/ChartView.h"
#include "validation/repeatability/PrecDocument.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class PrecWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_open = std::make_unique<WindowWorld<PrecWindow, PrecDocument>>();
        m_open->world.define.ProgramFolder = QStringLiteral(QUOREL_TEST_PROGRAM);
    }

    void Layout()
    {
        QCOMPARE(m_open->window->windowTitle(), u"Ripetibilità - no file"_s);
        QCOMPARE(m_open->TabTexts(), (QStringList{u"Info/Conclusioni"_s, u"Dati"_s, u"Grafico"_s}));
        QCOMPARE(m_open->Find<QLabel>("LblData2")->text(), u"Campione"_s);
        m_open->ShowData();
        QCOMPARE(m_open->Find<QLabel>("Label20")->text(), u"(min. 6)"_s);
        for (const auto& [label, caption, result] : {std::tuple("Label4", u"Media"_s, "Media"),
                                                     {"Label1", u"Dev. standard"_s, "StDev"},
                                                     {"Label13", u"CV"_s, "CV"},
                                                     {"Label18", u"GdL"_s, "GdL"},
                                                     {"Label30", u"P"_s, "P"},
                                                     {"Label29", u"t (p;n-1)"_s, "T"},
                                                     {"Label5", u"Inferiore"_s, "InfConf"},
                                                     {"Label6", u"Superiore"_s, "SupConf"},
                                                     {"Label14", u"Intervallo di Confidenza"_s, "IntConf"}}) {
            QCOMPARE(m_open->Find<QLabel>(label)->text(), caption);
            QVERIFY2(m_open->Beside(label, result), label);
        }
    }

    /// The caption asks for 6, the check for 3.
    void CountOfDeterminations()
    {
        m_open->ShowData();
        auto* nDet = m_open->Find<QLineEdit>("nDet");
        for (const auto& [typed, text, rows] : {std::tuple(u"3"_s, u"3"_s, 3), {u"2"_s, u"6"_s, 6}}) {
            nDet->setFocus();
            nDet->selectAll();
            QTest::keyClicks(nDet, typed);
            QTest::keyClick(nDet, Qt::Key_Tab);
            QTRY_COMPARE(nDet->text(), text);
            QCOMPARE(m_open->GridWidget()->model()->rowCount(), rows);
        }
    }

    void CalculatedFromWhatIsTyped()
    {
        const QTemporaryDir folder;
        auto* chart = m_open->Find<ChartView>("VtGrafPrec");
        QCOMPARE(chart->accessibleDescription(), u"Nessun grafico"_s);
        m_open->ShowData();
        m_open->Find<QLineEdit>("nDet")->setText(u"3"_s);
        QTest::keyClicks(m_open->Find<QLineEdit>("nDet"), u"\b3"_s);
        m_open->Type(0, u"99,8"_s);
        m_open->Type(1, u"100,1"_s);
        m_open->Type(2, u"100,2"_s);
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->Find<QLabel>("Media")->text(), u"100,033"_s);
        QCOMPARE(m_open->Find<QLabel>("SupConf")->text(), u"100,550"_s);
        QVERIFY(m_open->Find<QPlainTextEdit>("cConcl")->toPlainText().contains(u"P% = ± 0,516\n"_s));
        QCOMPARE(chart->accessibleDescription(), u"Precisione; Curva di precisione: da 99,201 a 100,865"_s);
        m_open->TriggerWithFile("FileSalva", folder.filePath(u"a.PRE"_s));
        QVERIFY(BytesOf(folder.filePath(u"a.PRE"_s))
                    .endsWith("\r\n3\r\n 1,99.800\r\n2,100.100\r\n3,100.200\r\n"));
        m_open->Trigger("FileNuovo");
        QCOMPARE(m_open->Find<QLabel>("Media")->text(), u"0,000"_s);
        QCOMPARE(chart->accessibleDescription(), u"Nessun grafico"_s);
    }

private:
    std::unique_ptr<WindowWorld<PrecWindow, PrecDocument>> m_open;
};

QTEST_MAIN(PrecWindowTest)
#include "PrecWindowTest.moc"
