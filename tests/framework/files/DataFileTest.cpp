// Reading fields and lines, the code page, writing, and files that are whole or not at all.
#include "Compare.h"
#include "FullDisk.h"
#include "TestWorld.h"
#include "framework/files/CodePage.h"
#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/files/SafeFile.h"

#include <QDir>
#include <QTemporaryDir>

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
    }

    void Fields()
    {
        QVERIFY(WriteBytes(m_file, "  Quorel for Windows\r\n3 \r4\n\"a, b\",,last\r\n   "));
        DataFileReader reader(m_file);
        QCOMPARE(reader.ReadField(), "Quorel for Windows");
        QCOMPARE(reader.ReadField(), "3 ");
        QCOMPARE(reader.ReadField(), "4");
        QCOMPARE(reader.Line(), 3);
        QCOMPARE(reader.ReadField(), "\"a");
        QCOMPARE(reader.ReadField(), "b\"");
        QCOMPARE(reader.ReadField(), "");
        QCOMPARE(reader.ReadField(), "last");
        QCOMPARE(reader.Line(), 4);
        VERIFY_FAILS(reader.ReadField(), FailureKind::EndOfFile);
        QCOMPARE(reader.Line(), 5);
    }

    void Lines()
    {
        QVERIFY(WriteBytes(m_file, "2,one, two \n\r\n\rna\xefve \x80\r"));
        DataFileReader reader(m_file);
        QCOMPARE(reader.ReadField(), "2");
        QCOMPARE(reader.ReadLine(), u"one, two "_s);
        QCOMPARE(reader.ReadLine(), QString());
        QCOMPARE(reader.ReadLine(), QString());
        QCOMPARE(reader.ReadLine(), u"naïve €"_s);
        VERIFY_FAILS(reader.ReadLine(), FailureKind::EndOfFile);
    }

    void BlocksDoNotShow()
    {
        // Line ends on either side of every block boundary of the reader.
        QByteArray bytes;
        for (int i = 0; i < 40000; ++i)
            bytes += QByteArray::number(i) + QByteArray(i % 7, ' ') +
                     (i % 3 == 0   ? "\r\n"
                      : i % 3 == 1 ? ","
                                   : "\r");
        QVERIFY(WriteBytes(m_file, bytes));
        DataFileReader reader(m_file);
        for (int i = 0; i < 40000; ++i)
            QCOMPARE(reader.ReadField().toByteArray().trimmed().toInt(), i);
        VERIFY_FAILS(reader.ReadField(), FailureKind::EndOfFile);
    }

    void NotToBeRead()
    {
        VERIFY_FAILS(DataFileReader(m_folder->filePath(u"none.LIM"_s)), FailureKind::FileNotFound);
        VERIFY_FAILS(DataFileReader(m_folder->path()), FailureKind::PathAccess);
        QVERIFY(WriteBytes(m_file, QByteArray(3 << 20, '\0')));
        VERIFY_FAILS(DataFileReader(m_file).ReadField(), FailureKind::Overflow);
    }

    void EveryByteComesBack()
    {
        QByteArray bytes;
        for (int c = 0; c < 256; ++c)
            bytes += static_cast<char>(c);
        const QString text = FromCodePage(bytes);
        QCOMPARE(text.size(), 256);
        QCOMPARE(text[0x80], QChar(u'€'));
        QCOMPARE(text[0xe0], QChar(u'à'));
        QCOMPARE(ToCodePage(text, u""), bytes);
    }

    void CharactersThatTheFileLacks_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("character");
        QTest::addRow("Greek") << u"10 Ω"_s << u"Ω"_s;
        QTest::addRow("one that looks like ASCII") << u"ａ"_s << u"ａ"_s;
        QTest::addRow("beyond 16 bits") << u"è \U0001F600"_s << u"\U0001F600"_s;
        QTest::addRow("half of a character") << u"è"_s + QChar(0xd800) << QString(QChar(0xd800));
    }

    void CharactersThatTheFileLacks()
    {
        QFETCH(QString, text);
        QFETCH(QString, character);
        QString told;
        try {
            ToCodePage(text, u"Analita");
        } catch (const RuntimeFailure& failure) {
            told = QString::fromStdString(failure.Text());
        }
        QVERIFY2(told.contains(u"\"Analita\"") &&
                     told.contains(u"\"%1\""_s.arg(QString::fromStdString(character.toStdString()))),
                 qPrintable(told));
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

    void ReplacedAsAWhole()
    {
        QVERIFY(WriteBytes(m_file, QByteArray(100000, 'x')));
        const QByteArray bytes = QByteArray(70000, 'a') + "\0b"_ba;
        WriteSafeFile(m_file, bytes);
        QCOMPARE(BytesOf(m_file), bytes);
        WriteSafeFile(m_file, {});
        QCOMPARE(BytesOf(m_file), QByteArray());
    }

    void FullDiskKeepsTheFormerFile_data()
    {
        QTest::addColumn<int>("size");
        QTest::addRow("within one buffer") << 300;
        QTest::addRow("many buffers") << 300000;
    }

    void FullDiskKeepsTheFormerFile()
    {
        QFETCH(int, size);
        QVERIFY(WriteBytes(m_file, "former"));
        {
            const FullDisk full(100);
            VERIFY_FAILS(WriteSafeFile(m_file, QByteArray(size, 'a')), FailureKind::DiskFull);
        }
        QCOMPARE(BytesOf(m_file), "former");
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"file.LIM"_s));
    }

    void CopyKeepsTheTimeOfChange()
    {
        const QByteArray bytes(700000, 'a');
        QVERIFY(WriteBytes(m_file, bytes));
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QDateTime changed = QDateTime::fromMSecsSinceEpoch(1136073600123);
        QVERIFY(file.setFileTime(changed, QFileDevice::FileModificationTime));
        const QString copy = m_folder->filePath(u"copy.LIM"_s);
        qint64 told = 0;
        CopySafeFile(m_file, copy, [&](qint64 copied) {
            told = copied;
            return true;
        });
        QCOMPARE(BytesOf(copy), bytes);
        QCOMPARE(QFileInfo(copy).lastModified(), changed);
        QCOMPARE(told, bytes.size());
        VERIFY_FAILS(CopySafeFile(m_folder->filePath(u"none"_s), copy), FailureKind::FileNotFound);
        QCOMPARE(BytesOf(copy), bytes);
    }

    void NotToBeWritten()
    {
        VERIFY_FAILS(WriteSafeFile(m_folder->path(), "a"), FailureKind::PathAccess);
        VERIFY_FAILS(WriteSafeFile(m_folder->filePath(u"none/file.LIM"_s), "a"), FailureKind::PathNotFound);
        QVERIFY(WriteBytes(m_file, "former"));
        VERIFY_FAILS(WriteSafeFile(m_file + u"/file.LIM"_s, "a"), FailureKind::PathNotFound);
        VERIFY_FAILS(WriteSafeFile(u"/proc/file.LIM"_s, "a"),
                     FailureKind::PathNotFound); // no files can be made there
        QFile::setPermissions(m_file, QFile::ReadOwner);
        if (QFileInfo(m_file).isWritable())
            QSKIP("this user may write what is read-only");
        VERIFY_FAILS(WriteSafeFile(m_file, "a"), FailureKind::PermissionDenied);
        QCOMPARE(BytesOf(m_file), "former");
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(DataFileTest)
#include "DataFileTest.moc"
