// The document of the limits by hand: what a file can't show. Its numbers, texts and files stand in
// tests/data/documents.
#include "validation/limits/LimiDocument.h"
#include "TestWorld.h"
#include "framework/document/DocumentLife.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

class LimiDocumentTest : public QObject, private DocumentTest<LimiDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.LIM"_s); }

    void ChosenLimit()
    {
        m_document->ChooseOption(1); // before the first calculation: the heading alone
        QVERIFY(m_document->Conclusions().endsWith(u"DETERMINAZIONE\r\n\r\n\r\n"_s));
        Type({u"1"_s, u"2"_s});
        const QSignalSpy calculated(m_document.get(), &TestDocument::Calculated);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(calculated.size(), 1);
        QVERIFY(m_document->Conclusions().endsWith(u"pari a :\r\n\r\n6.749"_s));
        QVERIFY(!m_document->ControlVisible("LimRil") && m_document->ControlVisible("LimDet"));
        QCOMPARE(m_document->ControlText("LabelRil"), u"Limite di determinazione"_s);

        // The reset takes the results and leaves the strings, which come back with the button.
        m_document->ResetDocument();
        QCOMPARE(m_document->Option(), std::optional(0));
        QCOMPARE(m_document->Conclusions(), QString());
        QVERIFY(m_document->Values().empty());
        m_document->ChooseOption(0);
        QVERIFY(m_document->Conclusions().endsWith(u"1.350"_s));
    }

    void NoLimitChosen()
    {
        LoadDocument(*m_document, DataFile(u"no-limit-chosen.LIM"_s));
        QVERIFY(!m_document->ControlVisible("LimRil") && !m_document->ControlVisible("LimDet"));
        QCOMPARE(m_document->ControlText("LabelRil"), QString());
    }

    void SizeField()
    {
        m_document->TypeSize("nDet"_L1, u"12"_s);
        QCOMPARE(Cells(), QStringList(12, u"0.000"_s));
        QVERIFY(m_document->IsModify());
        Type({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s});
        m_document->TypeSize("nDet"_L1, u"7"_s);
        Type({u"1"_s, u""_s});
        m_document->TypeSize("nDet"_L1, u"9"_s); // rows that were cut off are gone, emptied cells are filled
        QCOMPARE(Cells().join(u' '), u"1.000 0.000 3.000 4.000 5.000 6.000 7.000 0.000 0.000"_s);
        m_document->SetIsModify(false);
        m_document->TypeSize("nDet"_L1, u"4"_s);
        QCOMPARE(m_document->Grid().Rows(), 9);
        QVERIFY(!m_document->IsModify());
        QVERIFY(!m_document->LeaveSize("nDet"_L1));
        QCOMPARE(m_document->ControlText("nDet"), u"10"_s);
        QCOMPARE(m_document->Grid().Rows(), 10);
        QVERIFY(m_document->LeaveSize("nDet"_L1));
    }

    void CountWithoutRowsIsRefusedQuickly()
    {
        QVERIFY(WriteBytes(m_file, DataFileWith(u"one-to-five.LIM"_s, {{10, "32767"}})));
        QCOMPARE(LoadDocument(*m_document, m_file).reading->Number(), 62);
        QCOMPARE(m_document->Grid().Rows(), 32767);
    }

private:
    void Type(const QStringList& values)
    {
        for (int row = 0; row < values.size(); ++row)
            QVERIFY(m_document->Grid().Edits().TypeText(row, 0, values[row]));
    }

    QStringList Cells() const
    {
        QStringList cells;
        for (int row = 0; row < m_document->Grid().Rows(); ++row)
            cells.append(m_document->Grid().Text(row, 0));
        return cells;
    }
};

QTEST_GUILESS_MAIN(LimiDocumentTest)
#include "LimiDocumentTest.moc"
