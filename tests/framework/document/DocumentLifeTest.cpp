// Open, Save and Save as where no story goes: the registry, the file name that all documents share, saves
// that fail, flags.
#include "framework/document/DocumentLife.h"
#include "Compare.h"
#include "TestWorld.h"
#include "validation/DocumentFactory.h"
#include "validation/limits/LimiDocument.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class DocumentLifeTest : public QObject, private DocumentTest<LimiDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.LIM"_s); }

    void Registry()
    {
        QStringList tests;
        for (const TestInfo& info : TestRegistry()) {
            QVERIFY(FindTest(info.key) == &info && FindTestOfFile(u"a.b/lotto."_s + info.extension) == &info);
            tests += QStringList{info.key,      info.windowClass, info.TitleNoFile(),
                                 info.Filter(), info.guideTitle,  info.panel}
                         .join(u';');
        }
        const QStringList expected = {
            u"SPEC;Spec;Specificità - no file;Specificità (*.SPC)|*.SPC;Specificità;Spec"_s,
            u"TARA;Tara;Taratura - no file;Taratura (*.TAR)|*.TAR;Taratura;Tara"_s,
            u"PREC;Prec;Ripetibilità - no file;Precisione (*.PRE)|*.PRE;Precisione;Ripe"_s,
            u"ACCU;Accu;Accuratezza - no file;Accuratezza (*.ACC)|*.ACC;Accuratezza;Accu"_s,
            u"LIMI;Limi;Limiti - no file;Limiti (*.LIM)|*.LIM;Limiti;Limi"_s,
            u"RIPR;Ripr;Riproducibilità - no file;Riproducibilità (*.RIP)|*.RIP;Riproducibilità;Ripr"_s,
            u"PRIN;Prin;Precisione intermedia - no file;Precisione intermedia (*.PRI)|*.PRI;"
            "Precisione intermedia;Prin"_s};
        QCOMPARE(tests, expected);
        QCOMPARE(FindTestOfFile(u"lotto.spc")->key, "SPEC"_L1);
        for (const auto none : {u"SPC", u"lotto.SPCX", u"lotto.SP", u"lotto.spc.txt", u""})
            QVERIFY(!FindTestOfFile(none) && !FindTest(none));
        QVERIFY(!FindTest("spec"));
        // Those that the program does not have yet are known by name alone.
        QVERIFY(!CreateDocument("ACCU", m_world->Context()) && CreateDocument("LIMI", m_world->Context()));
    }

    /// For another file than a document's the dialog has other settings.
    void DialogIsGivenBack()
    {
        ScriptedDialog& dialog = m_world->dialog;
        const auto settings = [&] {
            return QStringList{dialog.FileName, dialog.InitDir, dialog.DefaultExt, dialog.Filter}.join(u' ');
        };
        dialog.FileName = u"a.LIM"_s;
        SetFileDialog(m_world->Context(), m_document->Info());
        const QString before = settings();
        {
            const KeepDialog keep(dialog);
            dialog.FileName = dialog.InitDir = dialog.DefaultExt = dialog.Filter = u"png"_s;
        }
        QCOMPARE(settings(), before);
    }

    void ResultsOfNoneAreNone()
    {
        m_document->Grid().SetValue(0, 0, 1);
        m_document->TypeSize("nDet"_L1, u"-5"_s);
        QCOMPARE(m_document->Calc(), CalcEnd::SumIsZero);
    }

    /// The hourglass while a file is read or written, whatever comes of it.
    void Hourglass()
    {
        QString shown;
        QObject::connect(m_document.get(), &TestDocument::Pointer, m_document.get(),
                         [&](bool hourglass) { shown += hourglass ? u'+' : u'-'; });
        m_world->dialog.WillChoose(DataFile(u"one-to-five.LIM"_s));
        QVERIFY(OpenDocument(*m_document));
        QCOMPARE(std::exchange(shown, {}), u"++--"_s);
        m_world->dialog.WillChoose(m_folder->filePath(u"none.LIM"_s));
        QVERIFY(OpenDocument(*m_document));
        QCOMPARE(std::exchange(shown, {}), u"++-"_s); // the calculation leaves it on
        for (const QString& name : {m_file, m_folder->path()}) {
            m_world->dialog.WillChoose(name);
            SaveDocumentAs(*m_document);
            QCOMPARE(std::exchange(shown, {}), u"+-"_s);
        }
    }

    void Open()
    {
        m_world->dialog.WillChoose(DataFile(u"one-to-five.LIM"_s));
        QVERIFY(OpenDocument(*m_document));
        QCOMPARE(m_document->ControlText("LimDet"), u"15.8114"_s);
        QCOMPARE(m_world->dialog.FileName, DataFile(u"one-to-five.LIM"_s));
        QVERIFY(m_world->messages.All().isEmpty());

        // A cancelled dialog leaves the document, and the name that it had asked for anew.
        m_world->dialog.WillChoose(QString());
        QVERIFY(!OpenDocument(*m_document));
        QCOMPARE(m_document->ControlText("LimDet"), u"15.8114"_s);
        QCOMPARE(m_world->dialog.FileName, QString());
    }

    void OpenAsksFirst()
    {
        Change(1);
        m_world->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!OpenDocument(*m_document));
        QCOMPARE(m_world->dialog.Asked(), 0);

        // After a yes the saved document stays when the dialog of Open is cancelled.
        const QString saved = m_folder->filePath(u"saved.LIM"_s);
        m_world->messages.WillAnswer(Answer::Yes);
        m_world->dialog.WillChoose(saved);
        m_world->dialog.WillChoose(QString());
        QVERIFY(!OpenDocument(*m_document));
        QCOMPARE(m_document->Title(), u"Limiti - "_s + saved);
    }

    void OpenGoesOnAfterASaveCancelledInItsDialog_data()
    {
        QTest::addColumn<int>("changed");
        QTest::addColumn<bool>("goesOn");
        QTest::addRow("the grid alone: its flag is not folded in") << 1 << true;
        QTest::addRow("a header field") << 2 << false;
    }

    void OpenGoesOnAfterASaveCancelledInItsDialog()
    {
        QFETCH(int, changed);
        QFETCH(bool, goesOn);
        Change(changed);
        m_world->messages.WillAnswer(Answer::Yes);
        m_world->dialog.WillChoose(QString());
        if (goesOn)
            m_world->dialog.WillChoose(DataFile(u"one-to-five.LIM"_s));
        QCOMPARE(OpenDocument(*m_document), goesOn);
        QCOMPARE(m_world->dialog.Asked(), goesOn ? 2 : 1);
    }

    void OpenWithoutAWord_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("stop");
        QTest::addRow("none") << u"none.LIM"_s << 0;
        QTest::addRow("a folder") << u"."_s << 0;
        QTest::addRow("cut") << u"cut.LIM"_s << 14;
    }

    void OpenWithoutAWord()
    {
        QFETCH(QString, name);
        QFETCH(int, stop);
        const QByteArray whole = BytesOf(DataFile(u"one-to-five.LIM"_s));
        const QString cut = m_folder->filePath(u"cut.LIM"_s);
        QVERIFY(WriteBytes(cut, whole.first(whole.indexOf("3,3"))));
        m_world->dialog.WillChoose(m_folder->filePath(name));
        QVERIFY(OpenDocument(*m_document));
        QVERIFY(m_world->messages.All().isEmpty());
        QCOMPARE(m_document->ReadStop(), std::optional(stop));
        // What was not read is not overwritten: a save asks for a name.
        m_world->dialog.WillChoose(QString());
        SaveDocument(*m_document);
        QCOMPARE(m_world->dialog.Asked(), 2);
        QVERIFY(BytesOf(cut).size() < whole.size());
    }

    void AllDocumentsShareTheName()
    {
        const auto otherMade = MakeDocument<LimiDocument>(m_world->Context());
        LimiDocument& other = *otherMade;
        const QString file = m_folder->filePath(u"first.LIM"_s);
        QVERIFY(QFile::copy(DataFile(u"one-to-five.LIM"_s), file));
        m_world->dialog.WillChoose(file);
        QVERIFY(OpenDocument(*m_document));
        SaveDocument(other); // no dialog: it goes to the file that the first one opened
        QCOMPARE(m_world->dialog.Asked(), 1);
        QCOMPARE(other.Title(), u"Limiti - "_s + file);
        QVERIFY(BytesOf(file).contains("\r\n10,0.000\r\n"));
        other.ResetDocument();
        QCOMPARE(m_world->dialog.FileName, QString());
    }

    void SaveAs()
    {
        const QString first = m_folder->filePath(u"first.LIM"_s);
        m_world->dialog.WillChoose(first);
        SaveDocument(*m_document);
        m_world->dialog.WillChoose(QString());
        SaveDocumentAs(*m_document);
        QCOMPARE(m_world->dialog.FileName, QString()); // emptied before the dialog, which was cancelled
        QCOMPARE(m_document->Title(), u"Limiti - "_s + first);
        const QString second = m_folder->filePath(u"però due.LIM"_s);
        m_world->dialog.WillChoose(second);
        SaveDocumentAs(*m_document);
        QCOMPARE(BytesOf(second), BytesOf(first));
    }

    void FailedSaveKeepsEverything_data()
    {
        QTest::addColumn<int>("changed");
        QTest::addRow("the grid") << 1;
        QTest::addRow("a header field") << 2;
    }

    void FailedSaveKeepsEverything()
    {
        QFETCH(int, changed);
        const QString file = m_folder->filePath(u"file.LIM"_s);
        QVERIFY(WriteBytes(file, "former"));
        Change(changed);
        m_document->TypeInputData(TestDocument::kUnitInput, u"µΩ"_s);
        m_document->SetIsModify(false);
        m_world->dialog.WillChoose(file);
        SaveDocument(*m_document);
        const ScriptedMessages::Shown& told = m_world->messages.All().constFirst();
        QVERIFY(told.icon == MessageIcon::Critical && told.title == u"Quorel 2006");
        QCOMPARE(
            m_world->messages.TakeOnly(),
            u"Il documento non è stato salvato nel file\n%1\n\nIl campo \"U.M. della conc. dell'analita\" "
            "contiene il carattere \"Ω\", che non può stare in un file di dati."_s.arg(file));
        QCOMPARE(BytesOf(file), "former");
        QVERIFY(m_document->IsModify());
        QCOMPARE(m_document->Title(), u"Limiti - no file"_s);
        QCOMPARE(m_world->dialog.FileName, QString()); // the next save asks again

        // Open stops after it, too: nothing is lost.
        m_world->messages.WillAnswer(Answer::Yes);
        m_world->dialog.WillChoose(m_folder->path());
        QVERIFY(!OpenDocument(*m_document));
        QCOMPARE(m_world->dialog.Asked(), 2);
        QVERIFY(m_world->messages.All().last().icon == MessageIcon::Critical);
    }

private:
    void Change(int what)
    {
        if (what == 1)
            m_document->Grid().Edits().TypeText(0, 0, u"5"_s);
        else if (what == 2)
            m_document->TypeInputData(0, u"HPLC"_s);
    }
};

QTEST_GUILESS_MAIN(DocumentLifeTest)
#include "DocumentLifeTest.moc"
