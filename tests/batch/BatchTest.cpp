// The companion: JSON, summary, rewriting, exit states, and files that are not what they
// seem.
#include "batch/Batch.h"
#include "Compare.h"
#include "TestWorld.h"
#include "batch/JsonWriter.h"
#include "batch/Outcome.h"
#include "framework/files/Database.h"

#include <QBuffer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <limits>

#include <future>

using namespace Qt::StringLiterals;

namespace
{

struct Run {
    int status = -1;
    QByteArray out;
    QString err;

    QJsonObject Object(int line = 0) const
    {
        return QJsonDocument::fromJson(out.split('\n').value(line)).object();
    }
};

Run RunWith(const QStringList& arguments)
{
    QBuffer out;
    QBuffer err;
    out.open(QIODevice::WriteOnly);
    err.open(QIODevice::WriteOnly);
    Run run;
    run.status = RunBatch(QStringList{u"--decimal"_s, u"."_s} + arguments,
                          {.out = out, .err = err, .programFolder = {}, .version = u"1.2"_s});
    run.out = out.data();
    run.err = QString::fromUtf8(err.data());
    return run;
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

    void OneObjectALine()
    {
        const QString file = DataFile(u"one-to-five.LIM"_s);
        const Run run = RunWith({u"--json"_s, file});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out.count('\n'), 1);
        QCOMPARE(run.Object()[u"file"].toString(), file);
        QVERIFY(!run.Object().contains(u"charts"));
        QVERIFY(RunWith({u"--json"_s, u"--chart-data"_s, file}).Object()[u"charts"].isArray());
    }

    void NotCalculated()
    {
        const Run run = RunWith({u"--json"_s, DataFile(u"five-with-one-empty.LIM"_s)});
        QCOMPARE(run.status, 1);
        QVERIFY(run.err.contains(u"five-with-one-empty.LIM: non calcolato"_s));
    }

    void CutFile()
    {
        const QByteArray whole = BytesOf(DataFile(u"one-to-five.LIM"_s));
        const QString cut = m_folder->filePath(u"però cut.lim"_s);
        QVERIFY(WriteBytes(cut, whole.first(whole.indexOf("3,3"))));
        const Run run = RunWith({u"--json"_s, cut, DataFile(u"one-to-five.LIM"_s)});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.Object()[u"file"].toString(), cut);
        QCOMPARE(run.Object()[u"read"].toString(), u"partial"_s);
        QCOMPARE(run.Object()[u"failure"][u"number"].toInt(), 62);
        QVERIFY(run.err.contains(cut));
        QCOMPARE(run.Object(1)[u"read"].toString(), u"complete"_s);
        const QString target = m_folder->filePath(u"target"_s);
        QCOMPARE(RunWith({u"--rewrite"_s, target, cut}).status, 1);
        QVERIFY(QDir(target).isEmpty()); // the rest of the file would be lost
    }

    void FolderInOrderOfName()
    {
        for (const auto& name : {u"b.LIM"_s, u"B.lim"_s, u"a.Lim"_s, u"note.txt"_s})
            QVERIFY(QFile::copy(DataFile(u"one-to-five.LIM"_s), m_folder->filePath(name)));
        QVERIFY(QDir(m_folder->path()).mkdir(u"sub.LIM"_s));
        const Run run = RunWith({u"--json"_s, m_folder->path()});
        QCOMPARE(run.status, 0);
        QStringList names;
        for (int line = 0; line < run.out.count('\n'); ++line)
            names += run.Object(line)[u"file"].toString();
        QCOMPARE(names, QStringList({m_folder->path() + u"/B.lim"_s, m_folder->path() + u"/a.Lim"_s,
                                     m_folder->path() + u"/b.LIM"_s}));
    }

    void NamesWhatItCannotDo_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");
        QTest::addRow("none") << u"none.LIM"_s << u"File non trovato"_s;
        QTest::addRow("of no kind") << u"note.txt"_s << u"non è un file di dati"_s;
        QTest::addRow("of a kind to come") << u"lotto.TAR"_s << u"non sono ancora gestiti"_s;
        QTest::addRow("zeros") << u"zeros.LIM"_s << u"riga 1"_s;
        QTest::addRow("refused") << u"flat.SPC"_s << u"non calcolato: Dati non validi ! Controllare i dati"_s;
        QTest::addRow("nothing to calculate") << u"new.LIM"_s << u"la somma dei valori è zero"_s;
    }

    void NamesWhatItCannotDo()
    {
        QFETCH(QString, name);
        QFETCH(QString, reason);
        QVERIFY(WriteBytes(m_folder->filePath(u"zeros.LIM"_s), QByteArray(100, '\0')));
        QVERIFY(WriteBytes(m_folder->filePath(u"flat.SPC"_s),
                           DataFileWith(u"groups-of-5-and-6.SPC"_s, {{14, " 1,7.0001,5.0001"},
                                                                     {15, "2,7,5"},
                                                                     {16, "3,7,5"},
                                                                     {17, "4,7,5"},
                                                                     {18, "5,7,5"},
                                                                     {19, "6,NIL,5"}})));
        QVERIFY(WriteBytes(m_folder->filePath(u"lotto.TAR"_s), "x"));
        QVERIFY(WriteBytes(m_folder->filePath(u"note.txt"_s), "x"));
        QVERIFY(WriteBytes(m_folder->filePath(u"new.LIM"_s), "2\r\n\r\n\r\n\r\n\r\n0\r\n5\r\nVero\r\n"
                                                             " 1,0\r\n2,0\r\n3,0\r\n4,0\r\n5,0\r\n"));
        const Run run = RunWith({m_folder->filePath(name), DataFile(u"one-to-five.LIM"_s)});
        QCOMPARE(run.status, 1);
        QVERIFY2(run.err.contains(name + u": "_s) && run.err.contains(reason), qPrintable(run.err));
        QVERIFY(run.out.contains("15.8114")); // the other one is done all the same
    }

    void Rewrite()
    {
        const QString target = m_folder->filePath(u"new/folder"_s);
        const QString other = m_folder->filePath(u"older-kind.LIM"_s);
        QVERIFY(QFile::copy(DataFile(u"one-to-five.LIM"_s), other));
        const Run run = RunWith({u"--rewrite"_s, target, DataFile(u"older-kind.LIM"_s),
                                 DataFile(u"five-with-one-empty.LIM"_s), other});
        QCOMPARE(run.status, 1);
        QVERIFY(BytesOf(target + u"/older-kind.LIM"_s)
                    .startsWith("Quorel for Windows\r\n3\r\n3\r\n2\r\nTitolazione"));
        QCOMPARE(BytesOf(target + u"/five-with-one-empty.LIM"_s),
                 BytesOf(DataFile(u"five-with-one-empty.LIM"_s)));
        QVERIFY2(run.err.contains(other + u": non salvato"_s), qPrintable(run.err)); // the name is taken
        QCOMPARE(RunWith({u"--rewrite=%1/."_s.arg(m_folder->path()), other}).status,
                 2); // never where it came from
    }

    void LanguageAndSeparator()
    {
        const auto run = [](const QStringList& options) {
            const QJsonObject object = RunWith(options + QStringList{u"--json"_s, u"--chart-data"_s,
                                                                     DataFile(u"groups-of-5-and-6.SPC"_s)})
                                           .Object();
            return object[u"results"][u"F"].toString() + u' ' + object[u"charts"][0][u"xTitle"].toString();
        };
        QCOMPARE(run({}), u"2.850 Groups"_s);
        QCOMPARE(run({u"--language"_s, u"it"_s, u"--decimal"_s, u","_s}), u"2,850 Gruppi"_s);
    }

    /// The program itself, where there is no display.
    void ChartFiles()
    {
        const QString program = QStringLiteral(QUOREL_TEST_PROGRAM "/quorel-batch");
        const QString target = m_folder->filePath(u"charts"_s);
        const QString blank = m_folder->filePath(u"lotto 9.spc"_s);
        QVERIFY(QFile::copy(DataFile(u"groups-of-5-and-6.SPC"_s), blank));
        const Run run = Start(program, {u"--chart"_s, target, blank, DataFile(u"three-determinations.PRE"_s),
                                        DataFile(u"one-to-five.LIM"_s)});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.status, 0);
        QCOMPARE(
            QDir(target).entryList(QDir::Files, QDir::Name),
            (QStringList{u"lotto 9.spc.VtGrafSpec.pdf"_s, u"three-determinations.PRE.VtGrafPrec.pdf"_s}));
        QVERIFY(BytesOf(target + u"/lotto 9.spc.VtGrafSpec.pdf"_s).startsWith("%PDF-"));
        QCOMPARE(Start(program, {u"--chart"_s, m_folder->path(), blank}).status, 2);

        const QString alone = m_folder->filePath(u"quorel-batch"_s);
        QVERIFY(QFile::copy(program, alone));
        const Run without = Start(alone, {u"--chart"_s, target, blank});
        QCOMPARE(without.status, 1);
        QVERIFY2(without.err.contains(u"Il modulo dei grafici"_s), qPrintable(without.err));
    }

    void WrongCalls_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addRow("nothing") << QStringList();
        QTest::addRow("unknown option") << QStringList{u"--jason"_s, u"a.LIM"_s};
        QTest::addRow("value where none belongs") << QStringList{u"--json=1"_s, u"a.LIM"_s};
        QTest::addRow("value missing") << QStringList{u"a.LIM"_s, u"--language"_s};
        QTest::addRow("unknown language") << QStringList{u"--language"_s, u"fr"_s, u"a.LIM"_s};
        QTest::addRow("no separator") << QStringList{u"--decimal"_s, u";"_s, u"a.LIM"_s};
    }

    void WrongCalls()
    {
        QFETCH(QStringList, arguments);
        const Run run = RunWith(arguments);
        QCOMPARE(run.status, 2);
        QVERIFY(!run.err.isEmpty() && run.out.isEmpty());
    }

    void Summary()
    {
        const QByteArray text = RunWith({DataFile(u"one-to-five.LIM"_s)}).out;
        QVERIFY(text.contains("\n  Limite di rilevazione: 3.1623\n  Limite di determinazione: 15.8114\n"));
    }

    void Help()
    {
        const Run help = RunWith({u"--help"_s});
        QCOMPARE(help.status, 0);
        for (const auto& option : {"--json", "--chart", "--rewrite", "--decimal"})
            QVERIFY(help.out.contains(option));
        QVERIFY(help.out.contains("non è valida"));
        QCOMPARE(RunWith({u"--version"_s}).out, "quorel-batch 1.2\n");
    }

    void Json()
    {
        JsonWriter json;
        json.BeginObject();
        json.Key("a"_L1);
        json.Text(u"\"\\\r\n\t\u0001è\U0001F600\x7f");
        json.Key("b"_L1);
        json.BeginList();
        json.Number(0.1 + 0.2);
        json.Number(-1e300);
        json.Number(5e-324);
        json.Bool(true);
        json.BeginList();
        json.EndList();
        json.Null();
        json.EndList();
        json.EndObject();
        QJsonParseError error;
        const QJsonObject object = QJsonDocument::fromJson(json.Bytes(), &error).object();
        QCOMPARE(error.error, QJsonParseError::NoError);
        QCOMPARE(object[u"a"].toString(), u"\"\\\r\n\t\u0001è\U0001F600\x7f"_s);
        QCOMPARE_EQ(object[u"b"][0].toDouble(), 0.1 + 0.2);
        QCOMPARE_EQ(object[u"b"][2].toDouble(), 5e-324);
        QCOMPARE(object[u"b"].toArray().size(), 6);
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
    static Run Start(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const auto& name :
             {u"QT_QPA_PLATFORM"_s, u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"XDG_RUNTIME_DIR"_s})
            environment.remove(name);
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        process.waitForFinished();
        return {.status = process.exitCode(),
                .out = process.readAllStandardOutput(),
                .err = QString::fromUtf8(process.readAllStandardError())};
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(BatchTest)
#include "BatchTest.moc"
