// The window of the specificity test.
#include "validation/specificity/SpecWindow.h"
#include "Compare.h"
#include "WindowWorld.h"
#include "framework/window/ChartView.h"
#include "validation/specificity/SpecDocument.h"

using namespace Qt::StringLiterals;

class SpecWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_open = std::make_unique<WindowWorld<SpecWindow, SpecDocument>>();
        m_open->world.define.ProgramFolder = QStringLiteral(QUOREL_TEST_PROGRAM);
    }

    void Layout()
    {
        QCOMPARE(m_open->window->windowTitle(), u"Specificità - no file"_s);
        QCOMPARE(m_open->TabTexts(), (QStringList{u"Info/Conclusioni"_s, u"Dati"_s, u"Grafico"_s}));
        m_open->ShowData();
        QCOMPARE(m_open->Find<QLabel>("Label1")->text() + u'|' + m_open->Find<QLabel>("Label2")->text(),
                 u"presenza|assenza"_s);
        QCOMPARE(
            m_open->Find<QLabel>("Label23")->text(),
            u"Risultati ottenuti nella determinazione dell'analita in assenza di altre sostanze (prodotti "
            "di degradazione, impurezze di sintesi, eccipienti, ...)"_s);
        for (const auto& [label, left, right] : {std::tuple("Label4", "MediaA", "MediaB"),
                                                 {"Label5", "InfConfA", "InfConfB"},
                                                 {"Label6", "SupConfA", "SupConfB"},
                                                 {"Label14", "SA", "SB"}}) {
            QVERIFY2(m_open->Beside(label, left) && m_open->Beside(left, right), label);
        }
        for (const auto& [label, field] :
             {std::pair("Label13", "F"), {"Label18", "GdL"}, {"Label29", "T"}, {"Label30", "P"}})
            QVERIFY2(m_open->Beside(label, field), label);
        QCOMPARE(m_open->Find<QLabel>("Label29")->text() + m_open->Find<QLabel>("Label30")->text(), u"tP"_s);
    }

    void BecomingActiveGoesToTheFirstGroup()
    {
        m_open->Find<QLineEdit>("aInputData1")->setFocus();
        m_open->window->Activated(); // on another page the focus stays where it is seen
        QCOMPARE(QApplication::focusWidget()->objectName(), u"aInputData1"_s);
        m_open->ShowData();
        m_open->GridWidget()->setFocus();
        m_open->window->Activated();
        QCOMPARE(QApplication::focusWidget()->objectName(), u"GruppoA"_s);
    }

    /// The cells below a group's size take nothing; growing a group gives zeros.
    void SizesOfTheGroups()
    {
        m_open->ShowData();
        SetCount("GruppoB", u"8"_s);
        QCOMPARE(m_open->CellText(5, 0) + u'|' + m_open->CellText(5, 1), u"|0,000"_s);
        m_open->GridWidget()->setFocus();
        m_open->GridWidget()->setCurrentIndex(m_open->GridWidget()->model()->index(5, 0));
        QTest::keyClicks(m_open->GridWidget(), u"7"_s);
        QCOMPARE(m_open->CellText(5, 0), QString());
        SetCount("GruppoB", u"4"_s); // too few
        QTRY_COMPARE(m_open->Find<QLineEdit>("GruppoB")->text(), u"5"_s);
        QCOMPARE(m_open->GridWidget()->model()->rowCount(), 5);
    }

    void VerdictInTwoLines()
    {
        m_open->ShowData();
        const QStringList a = {u"100"_s, u"101"_s, u"99"_s, u"102"_s, u"98"_s};
        const QStringList b = {u"100,1"_s, u"100"_s, u"100,1"_s, u"100"_s, u"100,1"_s};
        for (int row = 0; row < 5; ++row) {
            m_open->Type(row, a[row], 0);
            m_open->Type(row, b[row], 1);
        }
        m_open->Trigger("StrumentiCalcola");
        QCOMPARE(m_open->Find<QLabel>("Giudizio")->text(),
                 u"Dispersione dei dati elevata.\nSpecificità statisticamente non determinabile"_s);
        const auto* label = m_open->Find<QLabel>("Giudizio");
        QTRY_VERIFY(label->height() >= 2 * label->fontMetrics().height());
        QVERIFY(m_open->Find<ChartView>("VtGrafSpec")
                    ->accessibleDescription()
                    .startsWith(u"Specificità: medie; A: da 98,038 a 101,962, media 100"_s));
        for (int row = 0; row < 5; ++row)
            m_open->Type(row, u"1"_s, 0);
        m_open->Trigger("StrumentiCalcola");
        QVERIFY(m_open->world.messages.TakeOnly().contains(u"tutti uguali"_s));
        QVERIFY(m_open->Find<QLabel>("Giudizio")->text().startsWith(u"Dispersione"_s)); // as it was
    }

private:
    void SetCount(const char* field, const QString& text)
    {
        auto* edit = m_open->Find<QLineEdit>(field);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Tab);
    }

    std::unique_ptr<WindowWorld<SpecWindow, SpecDocument>> m_open;
};

QTEST_MAIN(SpecWindowTest)
#include "SpecWindowTest.moc"
