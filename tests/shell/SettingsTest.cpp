// The settings file: what is read out of it in every shape, and what a change leaves as it was.
#include "shell/Settings.h"
#include "Compare.h"
#include "FullDisk.h"
#include "OrdinaryUser.h"
#include "TestWorld.h"

#include <QTemporaryDir>

#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
ssize_t g_readable = -1; ///< bytes, before a disk breaks; below 0 for one that is whole
} // namespace

/// In the place of the system's own.
extern "C" ssize_t read(int descriptor, void* bytes, size_t count)
{
    if (g_readable < 0)
        return ::syscall(SYS_read, descriptor, bytes, count);
    errno = EIO;
    const auto part = static_cast<size_t>(std::exchange(g_readable, 0));
    return part == 0 ? -1 : ::syscall(SYS_read, descriptor, bytes, std::min(count, part));
}

class SettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_folder = std::make_unique<QTemporaryDir>();
        m_ini = IniManager();
        m_ini.SetFileName(u"  "_s + m_folder->filePath(u"QuoSet.ini"_s) + u" "_s);
        m_ini.SetApplicationKey(u" Percorsi "_s);
    }

    void Values_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        QTest::addRow("plain") << "[Percorsi]\nBackup=/a/b/\n"_ba << u"/a/b/"_s;
        QTest::addRow("CR LF, blanks") << "[Percorsi]\r\n  Backup =  /a b/  \r\n"_ba << u"/a b/"_s;
        QTest::addRow("any case") << "[PERCORSI]\nbackup=/a/\n"_ba << u"/a/"_s;
        QTest::addRow("accents") << QByteArray("[Percorsi]\nBackup=/perché/\n") << u"/perché/"_s;
        QTest::addRow("a mark in front") << "\xef\xbb\xbf[Percorsi]\nBackup=/a/\n"_ba << u"/a/"_s;
        QTest::addRow("quoted") << "[Percorsi]\nBackup=\"/a/ \"\n"_ba << u"/a/"_s;
        QTest::addRow("equals signs in the value") << "[Percorsi]\nBackup=/a=b/\n"_ba << u"/a=b/"_s;
        QTest::addRow("control characters") << "[Percorsi]\nBackup=/a\tb\x01/\n"_ba << u"/ab/"_s;
        QTest::addRow("the first of two") << "[Percorsi]\nBackup=/1/\nBackup=/2/\n"_ba << u"/1/"_s;
        QTest::addRow("commented out") << "[Percorsi]\n;Backup=/1/\n#Backup=/2/\n"_ba << u"default"_s;
        QTest::addRow("empty") << "[Percorsi]\nBackup=\n"_ba << u"default"_s;
        QTest::addRow("another section") << "Backup=/0/\n[Parametri]\nBackup=/1/\n"_ba << u"default"_s;
        QTest::addRow("behind another section") << "[Percorsi]\n[Altri]\nBackup=/1/\n"_ba << u"default"_s;
        QTest::addRow("random bytes") << "\x00\xff[\x80=\n]=[[\r\r==\n[Percorsi\nBackup=1"_ba << u"default"_s;
        QTest::addRow("no file") << QByteArray() << u"default"_s;
        QTest::addRow("longer than the buffer")
            << QByteArray("[Percorsi]\nBackup=" + QByteArray(2000, 'a')) << QString(999, u'a');
    }

    void Values()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        if (!bytes.isNull())
            QVERIFY(WriteBytes(m_ini.FileName(), bytes));
        QCOMPARE(m_ini.GetValue(u"Backup"_s, u"default"_s), expected);
    }

    void NothingAtAllIsAFailure()
    {
        QVERIFY(WriteBytes(m_ini.FileName(), "[Percorsi]\nBackup=\n"));
        VERIFY_FAILS(m_ini.GetValue(u"Backup"_s, QString()), FailureKind::IniKey);
    }

    void Changes_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::addRow("in its place")
            << "; mine\n\n[Altri]\nBackup=x\n[Percorsi]\nbackup = /old/\nOpenSave=0\n"_ba
            << "; mine\n\n[Altri]\nBackup=x\n[Percorsi]\nBackup=/new/\nOpenSave=0\n"_ba;
        QTest::addRow("a new key, CR LF")
            << "[Percorsi]\r\nOpenSave=0\r\n\r\n[Altri]\r\nk=\xe8\r\n"_ba
            << "[Percorsi]\r\nOpenSave=0\r\nBackup=/new/\r\n\r\n[Altri]\r\nk=\xe8\r\n"_ba;
        QTest::addRow("a new section") << "[Altri]\nk=v"_ba
                                       << "[Altri]\nk=v\n[Percorsi]\nBackup=/new/\n"_ba;
        QTest::addRow("a new file") << QByteArray() << "[Percorsi]\nBackup=/new/\n"_ba;
        QTest::addRow("random bytes") << "\x00\xff[\x80\n"_ba
                                      << "\x00\xff[\x80\n[Percorsi]\nBackup=/new/\n"_ba;
    }

    void Changes()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        if (!before.isNull())
            QVERIFY(WriteBytes(m_ini.FileName(), before));
        QVERIFY(m_ini.SetValue(u"Backup"_s, u"/new/"_s));
        QCOMPARE(BytesOf(m_ini.FileName()), after);
    }

    void NotWritten()
    {
        WriteDefaultSettings(m_ini.FileName());
        const QByteArray before = BytesOf(m_ini.FileName());
        QVERIFY(!m_ini.SetValue(u"Backup"_s, u"/a\n[Altri]\nb=/"_s));
        {
            const FullDisk full(10);
            QVERIFY(!m_ini.SetValue(u"Backup"_s, u"/a/"_s));
        }
        for (const ssize_t readable : {0, 20}) { // what can't be read would be lost
            g_readable = readable;
            QVERIFY(!m_ini.SetValue(u"Backup"_s, u"/a/"_s));
            g_readable = -1;
        }
        {
            const OrdinaryUser user(m_folder->path());
            QFile::setPermissions(m_ini.FileName(), QFile::WriteOwner);
            QVERIFY(!m_ini.SetValue(u"Backup"_s, u"/a/"_s));
            QFile::setPermissions(m_ini.FileName(), QFile::ReadOwner | QFile::WriteOwner);
        }
        QCOMPARE(BytesOf(m_ini.FileName()), before);
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    IniManager m_ini;
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "SettingsTest.moc"
