// Reading fields and lines, the code page, writing, and files that are whole or not at all.
#include "Compare.h"
#include "FullDisk.h"
#include "OrdinaryUser.h"
#include "SyncLog.h"
#include "TestWorld.h"
#include "framework/files/CodePage.h"
#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"

#include <QDir>
#include <QTemporaryDir>

#include <functional>

#include <unistd.h>

using namespace Qt::StringLiterals;

class DataFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(u"file.LIM"_s);
        syncLog = {.watched = m_file};
    }

    void FieldsAndLines()
    {
        QVERIFY(WriteBytes(m_file, "  Quorel for Windows\r\n3 \r4\n\"a, b\",,last\r\n   "));
        DataFileReader reader(m_file);
        QStringList read;
        QCOMPARE(FailureOf([&] {
                     while (true)
                         read += u"%1 %2"_s.arg(FromCodePage(reader.ReadField())).arg(reader.Line());
                 }),
                 u"62: Fine del file raggiunta prima del previsto"_s);
        QCOMPARE(read.join(u'|'), u"Quorel for Windows 1|3  2|4 3|\"a 4|b\" 4| 4|last 4"_s);
        QCOMPARE(reader.Line(), 5);

        QVERIFY(WriteBytes(m_file, "2,one, two \n\n\r\n\rna\xefve \x80\r"));
        DataFileReader lines(m_file);
        QCOMPARE(lines.ReadField(), "2");
        const QStringList expected = {u"one, two "_s, {}, {}, {}, u"naïve €"_s};
        for (int i = 0; i < 5; ++i)
            QVERIFY(lines.ReadLine() == expected[i] && lines.Line() == i + 1);
        VERIFY_FAILS(lines.ReadLine(), FailureKind::EndOfFile);
    }

    /// A line end on either side of a block's end, and across it.
    void BlocksDoNotShow()
    {
        for (const int length : {65534, 65535, 65536}) {
            for (const char* end : {"\r\n", "\r", "\n", ","}) {
                QVERIFY(WriteBytes(m_file, QByteArray(length, '1') + end + "  2" + end));
                DataFileReader reader(m_file);
                QVERIFY(reader.ReadField().size() == length && reader.ReadField() == "2");
                VERIFY_FAILS(reader.ReadField(), FailureKind::EndOfFile);
            }
        }
    }

    void NotToBeRead()
    {
        VERIFY_FAILS(DataFileReader(m_folder->filePath(u"none.LIM"_s)), FailureKind::FileNotFound);
        VERIFY_FAILS(DataFileReader(m_folder->path()), FailureKind::PathAccess);
        VERIFY_FAILS(DataFileReader(u"/proc/self/mem"_s).ReadLine(), FailureKind::DeviceError);
        const QByteArray longest(1 << 20, '\0');
        QVERIFY(WriteBytes(m_file, longest) && DataFileReader(m_file).ReadField() == longest);
        QVERIFY(WriteBytes(m_file, longest + 'x'));
        VERIFY_FAILS(DataFileReader(m_file).ReadLine(), FailureKind::Overflow);
        const OrdinaryUser user(m_folder->path());
        QFile::setPermissions(m_file, QFile::WriteOwner);
        VERIFY_FAILS(DataFileReader(m_file), FailureKind::PermissionDenied);
    }

    void CodePage()
    {
        QByteArray bytes;
        for (int c = 0; c < 256; ++c)
            bytes += static_cast<char>(c);
        const QString text = FromCodePage(bytes);
        QVERIFY(text.size() == 256 && text[0x80] == u'€' && text[0xe0] == u'à');
        QCOMPARE(ToCodePage(text, u""), bytes);

        // Each with the character that the code page lacks.
        const QString half(QChar(0xd800));
        const std::pair<QString, QString> rows[] = {
            {u"10 Ω"_s, u"Ω"_s},
            {u"ａ"_s, u"ａ"_s}, // looks like ASCII
            {u"è \U0001F600"_s, u"\U0001F600"_s},
            {u"è"_s + half, QString::fromStdString(half.toStdString())},
        };
        for (const auto& [unwritable, lacking] : rows)
            QCOMPARE(
                FailureOf([&] { ToCodePage(unwritable, u"Analita"); }),
                u"5: Il campo \"Analita\" contiene il carattere \"%1\", che non può stare in un file di dati"_s
                    .arg(lacking));
    }

    void Written()
    {
        DataFileWriter writer;
        writer.WriteText(u"però"_s, u"Analita");
        writer.WriteNumber(-3);
        const std::optional<double> row[] = {0.12, std::nullopt};
        writer.WriteRow(1, row, 3);
        writer.WriteRow(2, row, 0);
        QCOMPARE(writer.Bytes(), "per\xf2\r\n-3\r\n 1,0.120,NIL      \r\n2,0,NIL      \r\n");
    }

    /// Written out to the disk before it takes the former file's place, and its new name after that.
    void ReplacedAsAWhole()
    {
        QVERIFY(WriteBytes(m_file, QByteArray(100000, 'x')));
        const QByteArray bytes = QByteArray(70000, 'a') + "\0b"_ba;
        WriteSafeFile(m_file, bytes);
        QCOMPARE(syncLog.syncs.size(), 2);
        const auto& [file, folder] = std::pair(syncLog.syncs[0], syncLog.syncs[1]);
        QVERIFY(file.name.startsWith(m_folder->path() + u'/') && file.watched == QByteArray(100000, 'x'));
        QVERIFY(folder.name == m_folder->path() && folder.watched == bytes);
    }

    void FullDiskKeepsTheFormerFile()
    {
        QVERIFY(WriteBytes(m_file, "former"));
        for (const int size : {300, 300000}) { // within one buffer, and many buffers
            const FullDisk full(100);
            QCOMPARE(FailureOf([&] { WriteSafeFile(m_file, QByteArray(size, 'a')); }),
                     u"61: Disco pieno (File too large)"_s);
        }
        QVERIFY(BytesOf(m_file) == "former" && Names() == QStringList(u"file.LIM"_s));
    }

    void FailsBetweenWritingAndCommitting()
    {
        const QByteArray bytes(50000, 'x');
        const QString unlike = u"57: Errore di lettura o scrittura"_s;
        const struct {
            std::function<void(int)> obstacle; // is given the descriptor of what is being written
            QString failure;
        } rows[] = {
            {[](int) {}, {}},
            {[](int) { syncLog.error = EIO; }, u"57: Errore di lettura o scrittura (Input/output error)"_s},
            {[](int) { syncLog.error = ENOSPC; }, u"61: Disco pieno (No space left on device)"_s},
            {[](int) { syncLog.error = EDQUOT; }, u"61: Disco pieno (Disk quota exceeded)"_s},
            {[](int file) { ::pwrite(file, "y", 1, 7); }, unlike},
            {[](int file) { ::pwrite(file, "x", 1, 50000); }, unlike},
            {[](int file) { static_cast<void>(::ftruncate(file, 49999)); }, unlike},
            {[this](int) { QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::ExeOwner); },
             u"70: Autorizzazione negata (Permission denied)"_s},
            {[this](int) { QFile::remove(m_file) && QDir().mkdir(m_file); },
             u"75: Il percorso non è quello di un file (Is a directory)"_s},
            {[this](int) { m_folder->remove(); }, u"76: Percorso non trovato (No such file or directory)"_s},
        };
        for (const auto& [obstacle, failure] : rows) {
            init();
            QVERIFY(WriteBytes(m_file, "former"));
            const OrdinaryUser user(m_folder->path());
            const int next = ::dup(STDERR_FILENO); // the number that the next open file gets
            ::close(next);
            QString told;
            {
                SafeFile file(m_file);
                file.Write(bytes);
                obstacle(next);
                told = FailureOf([&] { file.Commit(); });
            }
            const int after = ::dup(STDERR_FILENO);
            ::close(after);
            QCOMPARE(after, next); // all that was open is closed
            QCOMPARE(told, failure);
            QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            if (QFileInfo(m_file).isFile()) // else the obstacle took it away
                QCOMPARE(BytesOf(m_file), failure.isEmpty() ? bytes : "former");
            QVERIFY(Names().size() <= 1); // nothing else is left
        }
    }

    void CopyKeepsTheTimeOfChange()
    {
        const QByteArray bytes(2 * (1 << 18) + 5, 'a'); // ends in a buffer
        QVERIFY(WriteBytes(m_file, bytes));
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QDateTime changed = QDateTime::fromMSecsSinceEpoch(1136073600123);
        QVERIFY(file.setFileTime(changed, QFileDevice::FileModificationTime));
        const QString copy = m_folder->filePath(u"copy.LIM"_s);
        QList<qint64> told;
        QVERIFY(CopySafeFile(m_file, copy, [&](qint64 copied) {
            told += copied;
            return true;
        }));
        QCOMPARE(QFileInfo(copy).lastModified(), changed);
        QCOMPARE(BytesOf(copy), bytes);
        QCOMPARE(told, QList<qint64>({262144, 524288, 524293}));
        // What ends before the end, or fails, leaves the copy as it was.
        QVERIFY(WriteBytes(m_file, "other"));
        QVERIFY(!CopySafeFile(m_file, copy, [](qint64) { return false; }));
        const auto failure = [&](const QString& source) {
            return FailureOf([&] { CopySafeFile(source, copy); });
        };
        QCOMPARE(failure(m_folder->filePath(u"none"_s)), u"53: File non trovato"_s);
        QCOMPARE(failure(u"/proc/self/mem"_s), u"57: Errore di lettura o scrittura (Input/output error)"_s);
        const OrdinaryUser user(m_folder->path());
        QFile::setPermissions(m_file, QFile::WriteOwner);
        QCOMPARE(failure(m_file), u"70: Autorizzazione negata"_s);
        QCOMPARE(BytesOf(copy), bytes);
    }

    void NotToBeWritten()
    {
        QVERIFY(WriteBytes(m_file, "former"));
        const OrdinaryUser user(m_folder->path());
        QFile::setPermissions(m_file, QFile::ReadOwner);
        const auto failure = [](const QString& name) { return FailureOf([&] { WriteSafeFile(name, "a"); }); };
        QCOMPARE(failure(m_folder->path()), u"75: Il percorso non è quello di un file"_s);
        QCOMPARE(failure(m_folder->filePath(u"none/file.LIM"_s)), u"76: Percorso non trovato"_s);
        QCOMPARE(failure(m_file + u"/file.LIM"_s), u"76: Percorso non trovato"_s);
        QCOMPARE(failure(m_file), u"70: Autorizzazione negata"_s);
        QCOMPARE(failure(u"/proc/file.LIM"_s), u"70: Autorizzazione negata (Permission denied)"_s);
        QCOMPARE(BytesOf(m_file), "former");
    }

private:
    /// Number and text of what the routine throws, or nothing.
    template<typename Routine>
    static QString FailureOf(const Routine& routine)
    {
        try {
            routine();
        } catch (const RuntimeFailure& failure) {
            return u"%1: %2"_s.arg(failure.Number()).arg(FailureText(failure));
        }
        return {};
    }
    /// All that stands in the folder, by name.
    QStringList Names() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(DataFileTest)
#include "DataFileTest.moc"
