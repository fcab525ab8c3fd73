// What the tables of a document's shape bring about, in a document that has all of them: grids in the plural,
// fields by name, sizes with two ends, options, file lines, tables, values, charts, and the JSON of it all.
#include "TestWorld.h"
#include "batch/JsonOutput.h"
#include "framework/MadeUpDocument.h"
#include "framework/document/DocumentLife.h"
#include "validation/DocumentFactory.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QThread>

#include <csignal>
#include <functional>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// The first grid with 1 to 12, row by row.
void Fill(MadeUpDocument& document)
{
    for (int cell = 0; cell < 12; ++cell)
        document.Grid().SetValue(cell / 3, cell % 3, cell + 1);
}

/// The made-up document, or that of a key.
std::unique_ptr<TestDocument> Made(const QString& key, const DocumentContext& context)
{
    if (key.isEmpty())
        return MakeDocument<MadeUpDocument>(context);
    return CreateDocument(key, context);
}

/// All that a user can do to a document, done in another way for each `by`; then it is calculated.
void Fill(TestDocument& document, int by)
{
    for (int i = 0; i < TestDocument::kMostInputs; ++i)
        document.TypeInputData(i, u"%1 di %2"_s.arg(i).arg(by));
    int number = 5 + by;
    for (const SizeField& size : document.Shape().sizes)
        document.TypeSize(size.control, QString::number(number--));
    document.ChooseDigits({.interi = 3 + by, .decimali = by});
    if (!document.Shape().options.empty())
        document.ChooseOption(document.Shape().options.back().value);
    for (DataGrid* grid : document.Grids()) {
        if (document.Headers())
            grid->Edits().SetHeaders({QString::number(10 + by)});
        for (int cell = 0; cell < grid->Rows() * grid->Cols(); ++cell)
            grid->Edits().TypeText(cell / grid->Cols(), cell % grid->Cols(),
                                   QString::number(10 + by + cell % 7 * by));
        grid->SetLocked(0, 0, true);
    }
    if (document.Calc() != CalcEnd::Done)
        qFatal("not to be calculated");
    document.SetLanGraf(Language::English);
}

/// All that a document holds and shows, a line each, but the conclusions that a reset leaves.
QStringList StateOf(const TestDocument& document)
{
    LoadOutcome calculated;
    calculated.end = CalcEnd::Done;
    QJsonObject json = QJsonDocument::fromJson(JsonLine({{}, document, calculated, {}}, true)).object();
    json.remove(u"conclusions"_s);
    json.remove(u"verdict"_s);
    QStringList state{document.Title(), document.FormatText(), document.Context().define.NumFormat,
                      u"flags %1 %2, read %3 to %4"_s.arg(document.IsModify())
                          .arg(document.ChangeMade())
                          .arg(static_cast<int>(document.HowRead()))
                          .arg(document.ReadStop())};
    state += QString::fromLatin1(document.FileBytes()).split(u"\r\n"_s);
    for (const Field& field : document.Fields().All())
        state += field.control + u": %1 %2"_s.arg(field.visible).arg(field.text);
    for (const DataGrid* grid : document.Grids()) {
        const auto locked = std::ranges::count(grid->Cells().locked, true);
        state += u"%1 digits, %2 locked, headers %3"_s.arg(grid->GetDigits().interi)
                     .arg(locked)
                     .arg(grid->Cells().headers.join(u'|'));
    }
    for (auto value = json.begin(); value != json.end(); ++value)
        state += value.key() + u": "_s +
                 QString::fromUtf8(QJsonDocument(QJsonObject{{u"it"_s, value.value()}}).toJson());
    return state;
}

/// Whether the routine ends the process by itself.
template<typename Routine>
bool Aborts(const Routine& routine)
{
    const pid_t child = ::fork();
    if (child == 0) {
        qInstallMessageHandler(nullptr); // that of the test would tell of a failure
        std::signal(SIGABRT, SIG_DFL);
        ::close(STDERR_FILENO);
        routine();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

} // namespace

class TestDocumentTest : public QObject, private DocumentTest<MadeUpDocument>
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(u"file.TAR"_s); }

    void GridsGoWithTheirDocument()
    {
        QCOMPARE(m_document->Grids().size(), std::size_t{3});
        QThread other;
        m_document->moveToThread(&other);
        for (const DataGrid* grid : m_document->Grids())
            QCOMPARE(grid->thread(), &other);
        QVERIFY(m_document->Table("GridMedieSerie")->thread() == &other);
    }

    void FlagsOfAllGridsOrOfTheFirst()
    {
        QVERIFY(m_document->Grid(2).Edits().TypeText(0, 0, u"5"_s));
        QVERIFY(m_document->ChangeMade());
        QVERIFY(!m_document->ChangeMade(TestDocument::Which::FirstGrid));
        m_document->ClearFlags();
        QVERIFY(!m_document->ChangeMade());
    }

    void NothingOfTheFormerIsLeft_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addRow("made up") << QString();
        for (const auto& key : {"LIMI", "PREC", "SPEC", "TARA"})
            QTest::addRow("%s", key) << QString::fromLatin1(key);
    }

    /// New after another document is as the first one was, and a file opened after another one, whole or not,
    /// calculated or not, as if it were opened alone.
    void NothingOfTheFormerIsLeft()
    {
        QFETCH(QString, key);
        const auto document = Made(key, m_world->Context());
        const QStringList blank = StateOf(*document);
        const QByteArray zeros = document->FileBytes();
        Fill(*document, 2);
        const QByteArray filled = document->FileBytes();
        const auto untouched = [&] { return !document->Undo(); };
        m_world->dialog.FileName = m_file;
        m_world->messages.WillAnswer(Answer::No);
        QVERIFY(NewDocument(*document));
        QCOMPARE(StateOf(*document), blank);
        QVERIFY(untouched());
        QCOMPARE(m_world->dialog.FileName, QString());

        for (const QByteArray& bytes :
             {filled, zeros, filled.first(filled.size() - 20), filled.first(50), ""_ba}) {
            m_file = m_folder->filePath(u"a.%1"_s.arg(document->Info().extension));
            QVERIFY(bytes.isEmpty() ? QFile::remove(m_file)
                                    : WriteBytes(m_file, bytes)); // the last one is none
            TestWorld alone;
            const auto other = Made(key, alone.Context());
            alone.dialog.WillChoose(m_file);
            QVERIFY(OpenDocument(*other));
            Fill(*document, 1);
            m_world->messages.WillAnswer(Answer::No);
            m_world->dialog.WillChoose(m_file);
            QStringList told; // what stood when the window was last told
            QObject::connect(document.get(), &TestDocument::Changed, document.get(),
                             [&] { told = StateOf(*document); });
            QVERIFY(OpenDocument(*document));
            QObject::disconnect(document.get(), &TestDocument::Changed, nullptr, nullptr);
            QCOMPARE(StateOf(*document), StateOf(*other));
            QCOMPARE(told, StateOf(*document));
            QVERIFY(untouched());
            QCOMPARE(m_world->dialog.FileName, alone.dialog.FileName);
        }
    }

    void FailuresChangeNothing()
    {
        for (const auto& key : {u""_s, u"LIMI"_s, u"PREC"_s, u"SPEC"_s}) {
            const auto document = Made(key, m_world->Context());
            Fill(*document, 2);
            QStringList before = StateOf(*document);
            VERIFY_FAILS(document->WriteToFile(m_folder->path()), FailureKind::PathAccess);
            QCOMPARE(StateOf(*document), before);
            for (DataGrid* grid : document->Grids()) {
                for (int cell = 0; cell < grid->Rows() * grid->Cols(); ++cell)
                    grid->SetValue(cell / grid->Cols(), cell % grid->Cols(), 0);
            }
            before = StateOf(*document);
            const QSignalSpy calculated(document.get(), &TestDocument::Calculated);
            QSignalSpy pointer(document.get(), &TestDocument::Pointer);
            QVERIFY(document->Calc() != CalcEnd::Done);
            QCOMPARE(StateOf(*document), before);
            QVERIFY(calculated.isEmpty() && pointer.takeFirst().constFirst().toBool());
            document->Grid().SetValue(0, 0, std::nullopt);
            before = StateOf(*document);
            VERIFY_FAILS(document->Calc(), FailureKind::TypeMismatch);
            QCOMPARE(StateOf(*document), before);
        }
    }

    void UnknownNamesEndTheProgram()
    {
        QVERIFY(!Aborts([this] { m_document->ControlText("Somma"); }));
        QVERIFY(Aborts([this] { m_document->ControlText("Soma"); }));
    }

    void SizesHaveTwoEnds_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("applied");
        QTest::addColumn<QString>("left"); // what stands there after the focus went
        QTest::addRow("inside") << u"Dimensioni0"_s << u"15"_s << true << u"15"_s;
        QTest::addRow("above, refused: the rows") << u"Dimensioni0"_s << u"16"_s << false << u"4"_s;
        QTest::addRow("below, refused: the rows") << u"Dimensioni0"_s << u"2"_s << false << u"4"_s;
        QTest::addRow("above, not refused") << u"Dimensioni1"_s << u"41"_s << false << u"41"_s;
        QTest::addRow("below, refused: the default") << u"Dimensioni1"_s << u""_s << false << u"4"_s;
    }

    void SizesHaveTwoEnds()
    {
        QFETCH(QString, control);
        QFETCH(QString, text);
        QFETCH(bool, applied);
        QFETCH(QString, left);
        const QByteArray name = control.toLatin1();
        m_document->TypeSize(QLatin1StringView(name), text);
        QCOMPARE(m_document->IsModify(), applied);
        QCOMPARE(m_document->LeaveSize(QLatin1StringView(name)), text == left);
        QCOMPARE(m_document->ControlText(control), left);
        const bool refused = text != left;
        QCOMPARE(m_document->IsModify(), applied || refused);
        QCOMPARE(m_world->messages.Beeps(), refused && control == u"Dimensioni0"_s ? 1 : 0);
        if (applied || refused)
            QCOMPARE(m_document->ControlText("nDatiTot"),
                     QString::number(m_document->Grid(2).Rows() * m_document->Grid(2).Cols()));
        QCOMPARE(m_document->Shape().sizes[1].MinimumCaption(), u"(min. 3)"_s);
    }

    /// Whatever could bring other results makes those that are seen former ones, until others take their
    /// place.
    void ResultsOfAFormerState()
    {
        m_document->TypeInputData(0, u"GC"_s);
        QVERIFY(m_document->Results() == ResultState::None);
        const std::vector<std::function<void()>> changes = {
            [&] { m_document->TypeInputData(0, u"HPLC"_s); },
            [&] { m_document->ChooseOption(3); },
            [&] { m_document->ChooseDigits({.interi = 4, .decimali = 1}); },
            [&] { m_document->TypeSize("Dimensioni1"_L1, u"6"_s); },
            [&] { QVERIFY(m_document->Undo()); },
            [&] { QVERIFY(m_document->Grid(1).Edits().TypeText(0, 0, u"5"_s)); },
        };
        for (const auto& change : changes) {
            Fill(*m_document);
            QVERIFY(m_document->Calc() == CalcEnd::Done);
            change();
            QVERIFY(m_document->Results() == ResultState::Stale);
        }
        QVERIFY(m_document->Calc() == CalcEnd::Done);
        m_document->TypeSize("Dimensioni1"_L1,
                             u"1"_s); // refused, and what takes its place is what stood there
        QVERIFY(!m_document->LeaveSize("Dimensioni1"_L1) && m_document->Results() == ResultState::Current);
        QVERIFY(m_document->Grid(1).Edits().TypeText(0, 0, u"6"_s));
        m_document->Grid().Clear();
        m_document->Grid().FillEmptyWithZero();
        QVERIFY(m_document->Calc() == CalcEnd::SumIsZero && m_document->Results() == ResultState::Stale);
    }

    /// A size comes back with what all grids held, also after the document was saved; no more rows are
    /// offered than its field takes.
    void SizesAreTakenBack()
    {
        m_document->TypeSize("Dimensioni1"_L1, u"2"_s);
        m_document->TypeSize("Dimensioni1"_L1, u"4"_s); // as it was
        QVERIFY(m_document->LeaveSize("Dimensioni1"_L1) && !m_document->Undo());
        m_document->Grid(2).SetValue(3, 1, 7);
        m_document->TypeSize("Dimensioni1"_L1, u"2"_s);
        QVERIFY(m_document->LeaveSize("Dimensioni1"_L1));
        m_document->ClearFlags();
        QVERIFY(m_document->Undo() && m_document->IsModify());
        QCOMPARE_EQ(m_document->Grid(2).Value(3, 1), 7);
        QVERIFY(m_document->Redo());
        m_document->TypeSize("Dimensioni1"_L1, u"1"_s);
        QVERIFY(!m_document->LeaveSize("Dimensioni1"_L1));
        QVERIFY(m_document->Grid().Edits().TypeText(0, 0, u"5"_s) && m_document->Undo());
        QCOMPARE(m_document->Grid().Rows(), 4); // the refused size is a step before that
    }

    /// What is offered for a paste that has no room: sizes that their fields take.
    void GridsGrowForAPaste()
    {
        const auto growth = [this](const GridBlock& block) {
            QStringList sizes;
            for (const auto& [field, number] : m_document->GrowthFor(m_document->Grid(), block))
                sizes += u"%1 %2"_s.arg(number).arg(field->counted);
            return sizes.join(u", "_s);
        };
        QCOMPARE(growth({.row = 1, .col = 1, .rows = 39, .cols = 1}), u"40 determinazioni"_s);
        QCOMPARE(growth({.row = 1, .col = 1, .rows = 40, .cols = 1}), QString());
        QCOMPARE(growth({.row = 0, .col = 2, .rows = 2, .cols = 13}), u"15 gruppi"_s);
        QCOMPARE(growth({.row = 0, .col = 2, .rows = 2, .cols = 14}), QString());
        QCOMPARE(growth({.row = 0, .col = 0, .rows = 5, .cols = 4}), u"4 gruppi, 5 determinazioni"_s);
        QCOMPARE(growth({.row = 2, .col = 1, .rows = 2, .cols = 2}), QString());
        const QString before = m_document->Headers()->join(u' ');
        m_document->PasteWhole(m_document->Grid(), {.row = 4, .col = 4, .rows = 1, .cols = 1}, u"7"_s);
        QCOMPARE(m_document->Grid().Text(4, 4), u"7.00"_s);
        QVERIFY(m_document->Undo() && m_document->Grid().Cols() == 3 && m_document->Grid().Rows() == 4);
        QCOMPARE(m_document->Headers()->join(u' '), before);
    }

    void OptionsAndWhatFollowsThem()
    {
        const QSignalSpy changed(m_document.get(), &TestDocument::Changed);
        m_document->ChooseOption(3);
        m_document->ChooseDigits({.interi = 4, .decimali = 1});
        m_document->TypeSize("Dimensioni0"_L1, u"x"_s);
        QCOMPARE(changed.size(), 3);
        QCOMPARE(m_document->ControlText("LabelLivelli"), u"3 Livelli"_s);
        QVERIFY(m_document->ControlVisible("Esito"));
        m_document->Renew();
        QVERIFY(m_document->Option() == 1 && !m_document->ControlVisible("Esito"));
    }

    /// A file of every kind of line reads back what it was written from, and in the older kind has other
    /// digits.
    void FileOfAllKindsOfLines()
    {
        m_world->define.DecSep = u","_s;
        m_document = MakeDocument<MadeUpDocument>(m_world->Context());
        m_document->TypeInputData(TestDocument::kUnitInput, u"µg"_s);
        QCOMPARE(m_document->ControlText("LabelData2"), u"Inferiore (µg)"_s);
        m_document->ChooseOption(3);
        Fill(*m_document);
        m_document->Grid().Edits().SetHeaders({u"1,00"_s, u"2,50"_s});
        m_document->Grid(2).SetValue(3, 2, std::nullopt);
        const QByteArray bytes = m_document->FileBytes();
        QCOMPARE(bytes,
                 "Quorel for Windows\r\n5\r\n2\r\n4\r\n\r\n\r\n\xb5g\r\n\r\n0\r\n4\r\n3\r\n12\r\n\r\n3\r\n"
                 "1.00\r\n2.50\r\n3.00\r\n"
                 " 1,1.00,2.00,3.00\r\n2,4.00,5.00,6.00\r\n3,7.00,8.00,9.00\r\n4,10.00,11.00,12.00\r\n"
                 " 1,0.00,0.00,0.00\r\n2,0.00,0.00,0.00\r\n3,0.00,0.00,0.00\r\n4,0.00,0.00,0.00\r\n"
                 " 1,0.00,0.00,0.00\r\n2,0.00,0.00,0.00\r\n3,0.00,0.00,0.00\r\n4,0.00,0.00,NIL      \r\n");
        m_document->Renew();
        QVERIFY(WriteBytes(m_file, bytes));
        m_document->ReadFromFile(m_file);
        QCOMPARE(m_document->FileBytes(), bytes);
        QCOMPARE(m_document->Option(), std::optional(3));
        QCOMPARE(m_document->ControlText("LabelData2"), u"Inferiore (µg)"_s);

        QVERIFY(WriteBytes(m_file, QByteArray(bytes).remove(0, 26).replace(
                                       "\r\n4\r\n3\r\n12\r\n", "\r\n4 righe\r\n 3.0\r\n 12 \r\n")));
        m_document->ReadFromFile(m_file);
        QCOMPARE(m_document->ControlText("nDatiTot"), u"12"_s);
        QCOMPARE(m_document->Grid(1).GetDigits(), (Digits{3, 1}));
        QCOMPARE(m_document->ControlText("Dimensioni1") + m_document->ControlText("Dimensioni0"), u"43"_s);
        QCOMPARE(m_document->HowRead(), FileRead::Whole);
    }

    void ChartsAreMadeWhenAsked()
    {
        QVERIFY(m_document->ShownCharts()[1].IsEmpty());
        m_document->TypeInputData(0, u" HPLC "_s);
        Fill(*m_document);
        const int before = m_document->ChartState();
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QVERIFY(m_document->ChartState() != before);
        m_document->TypeInputData(0, u"GC"_s); // the footnote keeps the text of the calculation
        const ChartData italian = m_document->ShownCharts()[1];
        QCOMPARE(italian.name + u'|' + italian.title, u"VtGrafProp|Regressione"_s);
        QVERIFY(italian.footnote.startsWith(u"Metodo analitico: HPLC\r\n"_s));
        QCOMPARE(m_document->Chart(0, Language::English).title, u"Linearity"_s);
        m_document->SetLanGraf(Language::English);
        const ChartData english = m_document->ShownCharts()[0];
        QCOMPARE(english.title, u"Linearity"_s);
        QVERIFY(english.footnote.startsWith(u"Analytical method: GC\r\n"_s));
        const int shown = m_document->ChartState();
        m_document->ResetDocument();
        QVERIFY(m_document->ChartState() != shown); // the page shows it
        QVERIFY(m_document->ShownCharts()[0].IsEmpty());
    }

    /// The results stand; the chart of the calculation before does not stand on beside them.
    void ChartsWithoutNumbers()
    {
        Fill(*m_document);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        const int before = m_document->ChartState();
        m_document->Grid().SetValue(0, 0, 5000);
        const QSignalSpy calculated(m_document.get(), &TestDocument::Calculated);
        VERIFY_FAILS(m_document->Calc(), FailureKind::Overflow);
        QCOMPARE(calculated.size(), 1);
        QCOMPARE(m_document->ControlText("Somma"), u"5077.00"_s);
        QVERIFY(m_document->ChartState() != before && m_document->ShownCharts()[0].IsEmpty());
    }

    void OpenAsksAboutTheFirstGridAlone()
    {
        QVERIFY(WriteBytes(m_file, m_document->FileBytes()));
        QVERIFY(m_document->Grid(2).Edits().TypeText(0, 0, u"5"_s));
        m_world->dialog.WillChoose(m_file); // no question comes before
        QVERIFY(OpenDocument(*m_document));
        QVERIFY(m_document->Grid(0).Edits().TypeText(0, 0, u"5"_s));
        m_world->messages.WillAnswer(Answer::Cancel);
        QVERIFY(!OpenDocument(*m_document));
    }

    void FileCutInAGrid()
    {
        QByteArray bytes = m_document->FileBytes().replace("\r\n5\r\n2\r\n", "\r\n5\r\n4\r\n");
        bytes.replace(bytes.indexOf(" 1,0.00"), 7, " 1,1.2345");
        QVERIFY(WriteBytes(m_file, bytes.first(bytes.lastIndexOf("3,0.00"))));
        VERIFY_FAILS(m_document->ReadFromFile(m_file), FailureKind::EndOfFile);
        QCOMPARE(m_document->HowRead(), FileRead::InPart);
        QCOMPARE(m_document->ReadStop(), 28); // the line that would come
        QCOMPARE(m_document->Grid(2).Text(1, 0) + m_document->Grid(2).Text(2, 0), u"0.00"_s);
        QVERIFY(m_document->FileBytes().contains("\r\n 1,1.2300,0.0000,")); // as the cells show it
    }

    void BadFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("failure"); // 0: read whole
        QTest::addColumn<int>("line");
        TestWorld world;
        const auto document = MakeDocument<MadeUpDocument>(world.Context());
        const auto with = [&](int line, const QByteArray& text) {
            QList<QByteArray> lines = document->FileBytes().split('\n');
            lines[line - 1] = text + '\r';
            return lines.join('\n');
        };
        QTest::addRow("empty") << ""_ba << 62 << 1;
        QTest::addRow("blanks alone") << "   \t"_ba << 13 << 1;
        QTest::addRow("zeros") << QByteArray(5000, '\0') << 13 << 1;
        QTest::addRow("random bytes") << "\x8f\x00\x7f,\xfe\r\r\xff,,3"_ba << 13 << 1;
        QTest::addRow("cut behind the marker") << "Quorel for Windows\r\n"_ba << 62 << 2;
        QTest::addRow("no integer digits") << with(2, "0") << 5 << 2;
        QTest::addRow("negative decimals") << with(3, "-1") << 5 << 3;
        QTest::addRow("digits out of range") << with(2, "40000") << 6 << 2;
        QTest::addRow("fields in words") << with(4, "x") << 13 << 4;
        QTest::addRow("reserved line no number") << with(9, "x") << 0 << 0;
        QTest::addRow("negative size") << with(11, "-5") << 5 << 14;
        QTest::addRow("a value beyond all numbers") << with(19, "2,1e999,0,0") << 6 << 19;
    }

    void BadFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, failure);
        QFETCH(int, line);
        QVERIFY(WriteBytes(m_file, bytes));
        const LoadOutcome outcome = LoadDocument(*m_document, m_file);
        QCOMPARE(outcome.reading ? outcome.reading->Number() : 0, failure);
        QCOMPARE(m_document->ReadStop(), line);
        QVERIFY(!m_document->IsModify() && !m_document->ChangeMade());
        QCOMPARE(m_document->Title() == u"Taratura - no file", failure != 0);
    }

    /// What is printed takes the format that any window built last; the file takes the document's own.
    void ResultsTakeTheFormatBuiltLast()
    {
        Fill(*m_document);
        GetNumFormat(3, 1, m_world->define);
        QCOMPARE(m_document->Calc(), CalcEnd::Done);
        QCOMPARE(m_document->ControlText("Somma"), u"78.0"_s);
        const QSignalSpy changed(m_document.get(), &TestDocument::Changed);
        m_document->WriteToFile(m_file);
        QCOMPARE(changed.size(), 1);
        QVERIFY(BytesOf(m_file).contains("\r\n 1,1.00,2.00,3.00\r\n"));
        m_document->ChooseDigits({.interi = 4, .decimali = 1});
        QVERIFY(m_document->FileBytes().contains("\r\n 1,1.0,2.0,3.0\r\n"));
        QCOMPARE(m_document->Title(), u"Taratura - "_s + m_file);
    }

    void HeaderFieldIsOneLine()
    {
        m_document->TypeInputData(1, u"a\r\nb\nc\rd"_s);
        QCOMPARE(m_document->InputData(1), u"a b c d"_s);
        QVERIFY(m_document->IsModify());
    }

    void EndsOfACalculation()
    {
        QCOMPARE(m_document->Calc(), CalcEnd::SumIsZero);
        m_document->Grid().SetValue(0, 0, -1);
        QCOMPARE(m_document->Calc(), CalcEnd::Refused);
        QCOMPARE(m_world->messages.TakeOnly(), u"somma\nnegativa"_s);
        QCOMPARE(m_document->ControlText("Esito"), u"NONE"_s);
        QVERIFY(!m_document->ControlVisible("LabelStima"));
        TextTable& table = *m_document->Table("SprLinearita");
        QCOMPARE(table.Rows()[1] + table.Rows()[2],
                 QStringList({u"Regressione"_s, u"0"_s, u"0"_s, u"Totali"_s, u"0"_s, QString()}));
        QCOMPARE(table.headerData(1, Qt::Horizontal).toString() +
                     table.headerData(1, Qt::Vertical).toString() + table.index(1, 0).data().toString(),
                 u"GdLTotali0"_s);
        table.Fill({});
        QCOMPARE(table.rowCount(), 2);
    }

    /// To the byte, in the order of its keys.
    void Json()
    {
        Fill(*m_document);
        LoadOutcome outcome;
        outcome.end = m_document->Calc();
        const QList<CollectedMessage> messages = {{MessageIcon::Exclamation, u"Quorel"_s, u"a\nb"_s},
                                                  {MessageIcon::None, {}, {}},
                                                  {MessageIcon::Information, {}, {}},
                                                  {MessageIcon::Critical, {}, {}},
                                                  {MessageIcon::Question, {}, {}}};
        const QByteArray json = JsonLine({u"a.TAR"_s, *m_document, outcome, messages}, true);
        const auto chart = [](const QByteArray& name, const QByteArray& xTitle) {
            return "{`name`:`" + name +
                   "`,`title`:`Regressione`,`footnote`:`Metodo analitico: \\r\\nAnalita: \\r\\nCampione: \\r\\n"
                   "U.M. della conc. dell'analita: mg`,`xTitle`:`" +
                   xTitle + "`,`yTitle`:``,`seriesNames`:null,`rowLabels`:null,`data`:[[1,78],[2,156]]}";
        };
        const QByteArray charts = chart("VtGrafRegr", "curva") + ',' + chart("VtGrafProp", "residui");
        const QByteArray zeros = R"([["0.00","0.00","0.00"],["0.00","0.00","0.00"],)"
                                 R"(["0.00","0.00","0.00"],["0.00","0.00","0.00"]])";
        QCOMPARE(
            json,
            R"({"file":"a.TAR","key":"TARA","read":"complete","interi":5,"decimali":2,"aInputData":["","","","mg"],)"
            R"("size":{"Dimensioni":["3","4"],"nDatiTot":"12"},"option":1,"headers":["1.00","2.00","3.00"],)"
            R"("grids":[[["1.00","2.00","3.00"],["4.00","5.00","6.00"],["7.00","8.00","9.00"],)"
            R"(["10.00","11.00","12.00"]],)" +
                zeros + ',' + zeros +
                R"(],"results":{"Somma":"78.00","Esito":"bene","LabelStima":true},)"
                R"("table":[["Variazione","Devianza","GdL"],["Regressione","78.00","1"],["Totali","156.00",""]],)"
                R"("means":[["1","78.00"],["2","0.00"]],"cConcl":"somma 78.00",)"
                R"("conclusions":{"it":["somma 78.00"],"en":["sum 78.00"]},"verdict":null,)"
                R"("values":{"sum":78,"significant":true,"levels":[78,null]},"messages":[{"icon":"exclamation","title":"Quorel","text":"a\nb"},)"
                R"({"icon":"none","title":"","text":""},{"icon":"information","title":"","text":""},)"
                R"({"icon":"critical","title":"","text":""},{"icon":"question","title":"","text":""}],"failure":null,"charts":[)" +
                QByteArray(charts).replace('`', '"') + "]}\n");
    }
};

QTEST_GUILESS_MAIN(TestDocumentTest)
#include "TestDocumentTest.moc"
