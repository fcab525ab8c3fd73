// The companion: what each kind of call prints, tells and writes; and the program itself, where there is no
// display, under several locales, without the module of the charts.
#include "batch/Batch.h"
#include "Compare.h"
#include "OrdinaryUser.h"
#include "TestWorld.h"
#include "batch/JsonWriter.h"
#include "batch/Outcome.h"
#include "framework/files/Database.h"
#include "stories/ExpectedText.h"

#include <QBuffer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <future>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

struct Run {
    int status = -1;
    QString out;
    QString err;
};

/// Takes so many writings, and no more.
class LimitedBuffer : public QBuffer
{
public:
    explicit LimitedBuffer(int writings) : m_left(writings) { open(QIODevice::WriteOnly); }

protected:
    qint64 writeData(const char* data, qint64 size) override
    {
        return m_left-- > 0 ? QBuffer::writeData(data, size) : -1;
    }

private:
    int m_left;
};

const QString kProgram = QStringLiteral(QUOREL_TEST_PROGRAM "/quorel-batch");

/// What is printed of a file with the numbers 1 to 5.
QString Five(const QString& file)
{
    return file +
           u"\n  Dev. standard: 1.5811\n  Limite di rilevazione: 3.1623\n  Limite di determinazione: 15.8114\n"
           "\nLIMITE DI RILEVAZIONE\nLa più piccola concentrazione ( mg/l ) dell'analita che può essere distinta "
           "dal bianco con il 95% di probabilità è pari a :\n\n3.1623\n"
           "\nLIMITE DI DETERMINAZIONE\nLa più piccola concentrazione ( mg/l ) dell'analita determinabile con "
           "accettabile precisione e accuratezza è pari a :\n\n15.8114\n\n"_s;
}

QString FiveWithComma(const QString& file)
{
    const QString text = Five(file);
    return text.first(file.size()) +
           text.sliced(file.size()).replace(QRegularExpression(u"(\\d)\\.(\\d)"_s), u"\\1,\\2"_s);
}

} // namespace

class BatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_folder = std::make_unique<QTemporaryDir>();
        for (const auto& folder : {u"other"_s, u"many/sub.LIM"_s, u"empty"_s, u"taken/five.LIM"_s})
            QVERIFY(QDir(m_folder->path()).mkpath(folder));
        QVERIFY(QFile::link(At("other"), At("linked")));
        const QByteArray five = BytesOf(DataFile(u"one-to-five.LIM"_s));
        for (const auto& name : {"five.LIM", "many/b.LIM", "many/B.lim", "many/a.Lim", "many/.c.LIM"})
            QVERIFY(WriteBytes(At(name), five));
        const QByteArray bars = BytesOf(DataFile(u"groups-of-5-and-6.SPC"_s));
        const std::pair<const char*, QByteArray> files[] = {
            {"cut.LIM", five.first(five.indexOf("3,3"))},
            {"zeros.LIM", "2\r\n\r\n\r\n\r\n\r\n0\r\n5\r\nVero\r\n 1,0\r\n2,0\r\n3,0\r\n4,0\r\n5,0\r\n"},
            {"bytes.LIM", QByteArray(100, '\0')},
            {"gap.LIM", BytesOf(DataFile(u"five-with-one-empty.LIM"_s))},
            {"other/five.LIM", BytesOf(DataFile(u"older-kind.LIM"_s))},
            {"curve.PRE", BytesOf(DataFile(u"three-determinations.PRE"_s))},
            {"lotto-9.spc", bars},
            {"flat.SPC", DataFileWith(u"groups-of-5-and-6.SPC"_s, {{14, " 1,7.0001,5.0001"},
                                                                   {15, "2,7,5"},
                                                                   {16, "3,7,5"},
                                                                   {17, "4,7,5"},
                                                                   {18, "5,7,5"},
                                                                   {19, "6,NIL,5"}})},
            {"lotto.ACC", "x"},
            {"note.txt", "x"},
            {"many/note.txt", "x"},
        };
        for (const auto& [name, bytes] : files)
            QVERIFY(WriteBytes(At(name), bytes));
    }

    /// Documents are computed side by side, each with global values of its own.
    void ComputesOnAnyThread()
    {
        DatabaseFTable table(QStringLiteral(QUOREL_TEST_PROGRAM "/DB/QUOREL73.MDB"));
        const QStringList files = {u"one-to-five.LIM"_s, u"three-determinations.PRE"_s,
                                   u"groups-of-5-and-6.SPC"_s};
        const auto printed = [&](int call) {
            CommandLine line;
            line.json = line.chartData = true;
            line.decSep = call % 2 == 0 ? u","_s : u"."_s;
            return Compute(DataFile(files[call % 3]), line, table).printed;
        };
        std::vector<std::future<QByteArray>> together;
        for (int call = 0; call < 48; ++call)
            together.push_back(std::async(std::launch::async, printed, call));
        for (int call = 0; call < 48; ++call)
            QCOMPARE(together[static_cast<std::size_t>(call)].get(), printed(call));
    }

    /// A dollar sign stands for the folder of the files.
    void Calls()
    {
        QStringList told;
        for (const QString& line : KeptText(u"calls.txt"_s).chopped(1).split(u'\n')) {
            if (line.isEmpty() || line.startsWith(u'#'))
                told += line;
            if (!line.startsWith(u'>'))
                continue;
            init(); // no call finds what another one wrote
            const Run run = RunWith(line.sliced(1));
            told += line;
            for (const auto& [text, sign] : {std::pair(run.out, u"  "_s), {run.err, u"! "_s}}) {
                for (const QString& part : text.isEmpty() ? QStringList() : text.chopped(1).split(u'\n'))
                    told += part.isEmpty() ? sign.trimmed() + u'|' : sign + part;
            }
            told += u"= %1"_s.arg(run.status);
        }
        const QString difference = DifferenceFrom(u"calls.txt"_s, told.join(u'\n') + u'\n');
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    void Json_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("expected"); // what of the object the call decides
        const auto row = [](const char* arguments, const QString& expected) {
            QTest::addRow("%s", arguments) << QString::fromLatin1(arguments) << expected;
        };
        row("$/five.LIM", uR"({"failure":null,"file":"$/five.LIM","messages":[],"read":"complete"})"_s);
        row("--chart-data $/cut.LIM",
            uR"({"charts":[],"failure":{"number":62,"text":"Fine del file raggiunta prima del previsto"},)"
            uR"("file":"$/cut.LIM","messages":[],"read":"partial"})"_s);
        row("--chart-data --decimal=, $/flat.SPC",
            uR"({"charts":[],"failure":null,"file":"$/flat.SPC","messages":[{"icon":"critical",)"
            uR"("text":"Dati non validi !\nControllare i dati","title":"Errore"}],"read":"complete"})"_s);
        const QString curve = uR"("failure":null,"file":"$/curve.PRE","messages":[],"read":"complete"})"_s;
        row("--chart-data $/curve.PRE", uR"({"charts":["Precision"],)"_s + curve);
        row("--language=it --chart-data $/curve.PRE", uR"({"charts":["Precisione"],)"_s + curve);
    }

    void Json()
    {
        QFETCH(QString, arguments);
        const Run run = RunWith(u"--json "_s + arguments);
        QVERIFY(run.out.startsWith(u"{\"file\":\"$/") && run.out.indexOf(u'\n') == run.out.size() - 1);
        QJsonObject object = QJsonDocument::fromJson(run.out.toUtf8()).object();
        QStringList keys = object.keys();
        if (object.contains(u"charts")) {
            QJsonArray titles;
            for (const auto& chart : object[u"charts"].toArray())
                titles += chart[u"title"];
            object[u"charts"] = titles;
            keys.removeOne(u"charts"_s);
        }
        QCOMPARE(keys.join(u' '),
                 u"aInputData cConcl conclusions decimali failure file grids headers interi key "
                 "means messages option read results size table values verdict"_s);
        for (const QString& key : std::as_const(keys)) {
            if (!arguments.isEmpty() &&
                !QStringList{u"failure"_s, u"file"_s, u"messages"_s, u"read"_s}.contains(key))
                object.remove(key);
        }
        QTEST(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)), "expected");
    }

    void Help()
    {
        const Run help = RunWith(u"--help"_s);
        QVERIFY(help.status == 0 && help.err.isEmpty());
        for (const auto& line :
             {u"Uso: quorel-batch [opzioni] FILE|CARTELLA..."_s, u"--json "_s, u"--chart-data "_s,
              u"--chart CARTELLA "_s, u"--rewrite CARTELLA "_s, u"--language it|en "_s, u"(en)"_s,
              u"--decimal CARATTERE "_s, u"--version "_s, u"--help "_s, u"2 la chiamata non è valida.\n"_s})
            QVERIFY2(help.out.contains(line), qPrintable(line));
    }

    /// What was read whole is written again, in the current format; of other files the rest would be lost.
    void Rewrite()
    {
        QCOMPARE(RunWith(u"--rewrite $/new/folder $/other/five.LIM $/gap.LIM $/cut.LIM $/none.LIM"_s).status,
                 1);
        QCOMPARE(QDir(At("new/folder")).entryList(QDir::Files), QStringList({u"five.LIM"_s, u"gap.LIM"_s}));
        QCOMPARE(BytesOf(At("new/folder/five.LIM")),
                 "Quorel for Windows\r\n3\r\n3\r\n" + BytesOf(DataFile(u"older-kind.LIM"_s)));
        QCOMPARE(BytesOf(At("new/folder/gap.LIM")), BytesOf(At("gap.LIM")));
        QCOMPARE(RunWith(u"--rewrite $/new/folder $/five.LIM $/other/five.LIM"_s).status, 1);
        QCOMPARE(BytesOf(At("new/folder/five.LIM")), BytesOf(At("five.LIM"))); // the first of the name
        const OrdinaryUser user(m_folder->path());
        QFile::setPermissions(At("empty"), QFile::ReadOwner | QFile::ExeOwner);
        QCOMPARE(RunWith(u"--rewrite $/empty $/five.LIM"_s).err,
                 u"quorel-batch: $/five.LIM: non salvato: Autorizzazione negata (Permission denied)\n"_s);
    }

    void OutputThatIsLost()
    {
        const Run run = RunWith(u"--rewrite $/new $/five.LIM $/curve.PRE $/lotto.ACC"_s, 1);
        QCOMPARE(run.out, Five(u"$/five.LIM"_s));
        QCOMPARE(run.err, u"quorel-batch: uscita standard: impossibile scrivere i risultati\n"_s);
        QCOMPARE(run.status, 1);
    }

    void Progress()
    {
        const QString clear = u"\r\x1b[K"_s;
        QCOMPARE(RunWith(u"$/five.LIM $/none.LIM"_s, 9, true).err,
                 clear + u"1/2 $/five.LIM"_s + clear + u"2/2 $/none.LIM"_s + clear +
                     u"quorel-batch: $/none.LIM: File non trovato\n"_s + clear);
        QCOMPARE(RunWith(u"$/five.LIM"_s, 9, true).err, clear);
    }

    /// Where both go to a terminal, the progress and the complaints come at once, the results at the end.
    void OnATerminal()
    {
        const QString clear = u"\r\x1b[K"_s;
        const QString out = Start(u"-qec|"_s + kProgram + u" $/none.LIM $/five.LIM|/dev/null"_s,
                                  u"LC_ALL=C.UTF-8"_s, u"script"_s)
                                .out.replace(u"\r\n"_s, u"\n"_s);
        QCOMPARE(out, clear + u"1/2 $/none.LIM"_s + clear +
                          u"quorel-batch: $/none.LIM: File non trovato\n"_s + clear + u"2/2 $/five.LIM"_s +
                          clear + Five(u"$/five.LIM"_s));
    }

    void SystemsSeparator_data()
    {
        QTest::addColumn<QString>("environment");
        QTest::addColumn<bool>("comma");
        // None of them needs to be installed.
        QTest::addRow("Italian") << u"LC_ALL=it_IT.UTF-8"_s << true;
        QTest::addRow("none") << u"LC_ALL=C.UTF-8 LANG=it_IT.UTF-8"_s << false;
        QTest::addRow("German numbers") << u"LANG=en_US.UTF-8 LC_NUMERIC=de_DE.UTF-8"_s << true;
        QTest::addRow("English numbers") << u"LANG=it_IT.UTF-8 LC_NUMERIC=en_US.UTF-8"_s << false;
    }

    void SystemsSeparator()
    {
        QFETCH(QString, environment);
        QFETCH(bool, comma);
        const Run run = Start(u"$/five.LIM"_s, environment);
        QCOMPARE(run.out, comma ? FiveWithComma(u"$/five.LIM"_s) : Five(u"$/five.LIM"_s));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.status, 0);
    }

    /// Without a display, whatever platform the session has.
    void ChartFiles()
    {
        const QString files = u" $/lotto-9.spc $/curve.PRE $/five.LIM $/flat.SPC"_s;
        const QStringList names{u"curve.PRE.VtGrafPrec.pdf"_s, u"lotto-9.spc.VtGrafSpec.pdf"_s};
        const auto sizes = [&](const QString& arguments, const QString& environment = u"LC_ALL=C.UTF-8"_s) {
            const Run run = Start(arguments + files, environment);
            QList<qsizetype> all;
            if (run.status == 1 &&
                run.err ==
                    u"quorel-batch: $/flat.SPC: non calcolato: Dati non validi ! Controllare i dati\n" &&
                QDir(At("charts")).entryList(QDir::Files, QDir::Name) == names) {
                for (const QString& name : names) {
                    const QByteArray pdf = BytesOf(At("charts/") + name);
                    if (pdf.startsWith("%PDF-") && pdf.contains("/MediaBox [0 0 596.000000 419.000000]"))
                        all += pdf.size();
                }
            }
            return all;
        };
        const auto first = sizes(u"--chart $/charts"_s);
        QCOMPARE(first.size(), 2);
        QVERIFY(first[0] != first[1]);
        QCOMPARE(sizes(u"--chart=$/charts"_s, u"LC_ALL=C.UTF-8 QT_QPA_PLATFORM=nothing"_s), first);
        QVERIFY(QDir(At("charts")).removeRecursively());
        const auto comma = sizes(u"--chart $/charts"_s, u"LC_ALL=it_IT.UTF-8"_s);
        const auto italian = sizes(u"--language it --chart $/charts"_s);
        QVERIFY(comma.size() == 2 && italian.size() == 2);
        QVERIFY(first != comma && first != italian);

        QVERIFY(QFile::remove(At("charts/curve.PRE.VtGrafPrec.pdf")) &&
                QDir().mkdir(At("charts/curve.PRE.VtGrafPrec.pdf")));
        const Run taken = Start(u"--chart $/charts --rewrite $/new $/curve.PRE $/lotto-9.spc"_s);
        QCOMPARE(taken.err,
                 u"quorel-batch: $/curve.PRE: non salvato: Il percorso non è quello di un file\n"_s);
        QCOMPARE(taken.status, 1);
        QCOMPARE(BytesOf(At("new/curve.PRE")), BytesOf(At("curve.PRE"))); // all the same
    }

    void WithoutTheModule()
    {
        QVERIFY(QFile::copy(kProgram, At("alone")) && QFile::link(kProgram, At("link")));
        const Run run = Start(u"--chart $/charts $/five.LIM"_s, u"LC_ALL=C.UTF-8"_s, At("alone"));
        QVERIFY2(run.err.startsWith(u"quorel-batch: Il modulo dei grafici non può essere caricato ("),
                 qPrintable(run.err));
        QVERIFY(run.err.endsWith(u")\n") && run.out.isEmpty() && run.status == 1);
        QCOMPARE(Start(u"$/five.LIM"_s, u"LC_ALL=C.UTF-8"_s, At("alone")).out, Five(u"$/five.LIM"_s));
        // The module lies beside the program, not beside a link to it.
        QCOMPARE(Start(u"--chart $/charts $/five.LIM"_s, u"LC_ALL=C.UTF-8"_s, At("link")).err, QString());
    }

    /// Little, which is lost at the end, and more than a buffer.
    void FullOutput()
    {
        const QString told = u"quorel-batch: impossibile scrivere i risultati sull'uscita standard\n"_s;
        const Run little = Start(u"$/five.LIM"_s, u"LC_ALL=C.UTF-8"_s, kProgram, u"/dev/full"_s);
        QCOMPARE(little.err, told);
        QCOMPARE(little.status, 1);
        const Run much =
            Start(u"--json --chart-data $/curve.PRE"_s, u"LC_ALL=C.UTF-8"_s, kProgram, u"/dev/full"_s);
        QCOMPARE(much.err, u"quorel-batch: uscita standard: impossibile scrivere i risultati\n"_s);
        QCOMPARE(much.status, 1);
    }

    void JsonBytes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const QString& text, const QByteArray& bytes) {
            QTest::addRow("%s", name) << text << '"' + bytes + '"';
        };
        row("empty", {}, "");
        row("quotes and backslash", u"\"a\"/\\"_s, "\\\"a\\\"/\\\\");
        row("line ends", u"a\r\n\"\n"_s, "a\\r\\n\\\"\\n");
        row("control characters", QString(u'\0') + u"\b\t\n\v\f\r\u001a\u001f \x7f\"\\è"_s,
            "\\u0000\\u0008\\u0009\\n\\u000b\\u000c\\r\\u001a\\u001f \\u007f\\\"\\\\è");
        row("beyond ASCII", u"è€\u0080\u2028\ufeff\U0001F600"_s, "è€\u0080\u2028\ufeff\U0001F600");
        row("half a pair", u'a' + QString(QChar(0xd83d)) + u'b', "a?b");
    }

    void JsonBytes()
    {
        QFETCH(QString, text);
        JsonWriter json;
        json.Text(text);
        QTEST(json.Bytes(), "bytes");
    }

    void JsonNumbers()
    {
        JsonWriter json;
        json.BeginList();
        for (const double number : {0.0, -0.0, 4.0, 0.1 + 0.2, 12345.0, 100000.0, -1e300, 5e-324})
            json.Number(number);
        for (const int number : {0, -1, 100000, std::numeric_limits<int>::min()})
            json.Number(number);
        json.EndList();
        QCOMPARE(json.Bytes(),
                 "[0,-0,4,0.30000000000000004,12345,1e+05,-1e+300,5e-324,0,-1,100000,-2147483648]");
    }

private:
    QString At(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    QString WithFolder(const QString& text) const { return QString(text).replace(u'$', m_folder->path()); }
    QString WithSign(const QByteArray& text) const
    {
        return QString::fromUtf8(text).replace(m_folder->path(), u"$"_s);
    }

    /// With the point, as long as the arguments, which blanks part, say nothing else.
    Run RunWith(const QString& arguments, int writings = 9, bool progress = false) const
    {
        LimitedBuffer out(writings);
        LimitedBuffer err(99);
        const int status = RunBatch(
            QStringList{u"--decimal"_s, u"."_s} + WithFolder(arguments).split(u' ', Qt::SkipEmptyParts),
            {.out = out, .err = err, .progress = progress, .programFolder = {}, .version = u"1.2"_s});
        return {status, WithSign(out.data()), WithSign(err.data())};
    }

    /// The program itself.
    Run Start(const QString& arguments, const QString& environment = u"LC_ALL=C.UTF-8"_s,
              const QString& program = kProgram, const QString& out = {}) const
    {
        QProcess process;
        QProcessEnvironment variables;
        for (const QString& variable : environment.split(u' '))
            variables.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
        process.setProcessEnvironment(variables);
        if (!out.isEmpty())
            process.setStandardOutputFile(out);
        process.start(program, WithFolder(arguments).split(arguments.contains(u'|') ? u'|' : u' '));
        process.waitForFinished();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                WithSign(process.readAllStandardOutput()), WithSign(process.readAllStandardError())};
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(BatchTest)
#include "BatchTest.moc"
