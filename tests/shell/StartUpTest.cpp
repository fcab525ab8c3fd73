// What no story shows of the start and the backup: what later starts leave alone, rights, full disks,
// progress.
#include "shell/StartUp.h"
#include "Compare.h"
#include "FullDisk.h"
#include "OrdinaryUser.h"
#include "TestWorld.h"
#include "framework/files/Database.h"
#include "shell/Backup.h"
#include "shell/CompanyData.h"
#include "shell/Folders.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{

/// Name, size and time of change of all that lies in a folder.
QStringList Snapshot(const QString& folder)
{
    QStringList all;
    QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo info = files.nextFileInfo();
        all += u"%1 %2 %3"_s.arg(info.filePath(), QString::number(info.isFile() ? info.size() : 0),
                                 info.isFile() ? info.lastModified().toString(Qt::ISODateWithMs) : QString());
    }
    all.sort();
    return all;
}

class CountingProgress : public BackupProgress
{
public:
    explicit CountingProgress(const ScriptedMessages& messages) : m_messages(messages) {}
    bool Step(qint64 done, qint64 total, const QString& name) override
    {
        steps.append(u"%1 of %2: %3"_s.arg(QString::number(done), QString::number(total), name));
        return steps.size() < stopAfter;
    }
    void End() override { toldBefore = m_messages.All().size(); }
    QStringList steps;
    int stopAfter = 1 << 30;
    qsizetype toldBefore = -1; ///< messages, before the copying was over

private:
    const ScriptedMessages& m_messages;
};

} // namespace

class StartUpTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_home = std::make_unique<QTemporaryDir>();
        m_documents = m_home->path() + u'/';
        m_app = m_documents + u"Quorel2006/"_s;
        m_world = std::make_unique<TestWorld>();
        InitGlobals(m_world->define, QStringLiteral(QUOREL_TEST_PROGRAM));
    }

    void ASecondStartChangesNothing()
    {
        QVERIFY(Start());
        for (const auto& name : {u"Doc"_s, u"Backup"_s, u"DB"_s})
            QVERIFY(QFileInfo(m_app + name).isDir());
        QDir(m_app).rmdir(u"Doc"_s); // is made anew
        WriteCompany(m_world->define.DbFile, {.texts = {}, .logoPath = u"/logo.bmp"_s, .noLogo = true});
        QVERIFY(Start());
        const QStringList before = Snapshot(m_home->path());
        QCOMPARE(before.filter(u"Doc"_s).size(), 1);
        TestWorld second;
        InitGlobals(second.define, QStringLiteral(QUOREL_TEST_PROGRAM));
        QVERIFY(InitPaths(second.define, m_documents, second.messages));
        QCOMPARE(Snapshot(m_home->path()), before);
        QCOMPARE(second.define.LogoFile, u"/logo.bmp"_s);
        const FullDisk full(10); // takes no right away; the next saving tells of it
        QVERIFY(InitPaths(second.define, m_documents, second.messages));
        QVERIFY(second.messages.All().isEmpty());
    }

    void NoMasterNoStart()
    {
        m_world->define.ProgramFolder = m_home->path();
        QVERIFY(!Start());
        QVERIFY(m_world->messages.TakeOnly().contains(u"Impossibile copiare il database"_s));
        QVERIFY(!QFileInfo::exists(m_app + u"DB/QUOREL73.MDB"_s));
    }

    void Access()
    {
        const QString file = m_home->filePath(u"file"_s);
        QVERIFY(WriteBytes(file, "x"));
        const QStringList before = Snapshot(m_home->path());
        QCOMPARE(CheckAccess(m_documents, kFolderRights), kFolderRights);
        QCOMPARE(CheckAccess(file, kFileWriteRights), kFileWriteRights);
        QCOMPARE(CheckAccess(m_home->filePath(u"none"_s), kFolderRights), -1);
        QCOMPARE(CheckAccess(u"/proc/"_s, kFolderRights), 0); // not even for root
        QCOMPARE(Snapshot(m_home->path()), before);
        const OrdinaryUser user(m_home->path());
        QFile::setPermissions(file, QFile::ReadOwner);
        QCOMPARE(CheckAccess(file, kFileWriteRights), 0);
        QFile::setPermissions(m_home->path(), QFile::ReadOwner | QFile::ExeOwner);
        QCOMPARE(CheckAccess(m_documents, kFolderRights), 0);
        QFile::setPermissions(m_home->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void BackupTellsHowFarItIs()
    {
        PrepareBackup();
        QVERIFY(WriteBytes(Source(u"b.LIM"_s), QByteArray(300, 'b')));
        QVERIFY(WriteBytes(Source(u"però.LIM"_s), "new"));
        QVERIFY(WriteBytes(Source(u"A.txt"_s), ""));
        CountingProgress progress(m_world->messages);
        BackupFiles(false, m_world->define, m_world->messages, progress);
        QCOMPARE(progress.toldBefore, 0);
        QCOMPARE(m_world->messages.TakeOnly(), u"Backup completato"_s);
        QCOMPARE(progress.steps.first(), u"0 of 303: A.txt"_s);
        QVERIFY(progress.steps.contains(u"0 of 303: b.LIM"_s));
        QVERIFY(progress.steps.contains(u"300 of 303: però.LIM"_s));
        QCOMPARE(progress.steps.last(), u"303 of 303: però.LIM"_s);
        QCOMPARE(QFileInfo(Target(u"però.LIM"_s)).lastModified(),
                 QFileInfo(Source(u"però.LIM"_s)).lastModified());
        BackupFiles(true, m_world->define, m_world->messages, progress);
        QCOMPARE(m_world->messages.TakeOnly(), u"0 messages"_s);
    }

    void BackupStopsAtTheFirstFailure()
    {
        PrepareBackup();
        QVERIFY(WriteBytes(Source(u"a.LIM"_s), "x"));
        QVERIFY(WriteBytes(Source(u"b.LIM"_s), QByteArray(1000, 'x')));
        QVERIFY(WriteBytes(Source(u"c.LIM"_s), "x"));
        QVERIFY(WriteBytes(Target(u"b.LIM"_s), "older"));
        CountingProgress progress(m_world->messages);
        {
            const FullDisk full(100);
            BackupFiles(true, m_world->define, m_world->messages, progress);
        }
        QVERIFY(
            m_world->messages.TakeOnly().startsWith(u"Il backup si è fermato al file b.LIM\nDisco pieno"_s));
        QCOMPARE(BytesOf(Target(u"b.LIM"_s)), "older");
        QVERIFY(QFileInfo::exists(Target(u"a.LIM"_s)) && !QFileInfo::exists(Target(u"c.LIM"_s)));
    }

    void AFolderThatCantBeListed()
    {
        PrepareBackup();
        QVERIFY(WriteBytes(Source(u"a.LIM"_s), "x"));
        const OrdinaryUser user(m_home->path());
        for (const QFile::Permission only : {QFile::ExeOwner, QFile::ReadOwner}) {
            QFile::setPermissions(Source(u""_s), QFile::WriteOwner | only);
            CountingProgress progress(m_world->messages);
            BackupFiles(true, m_world->define, m_world->messages, progress);
            QCOMPARE(progress.toldBefore, 0);
            QVERIFY(m_world->messages.TakeOnly().contains(
                u"source non può essere letta.\n\nAutorizzazione negata"_s));
        }
        QFile::setPermissions(Source(u""_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void BackupCanBeStopped()
    {
        PrepareBackup();
        for (const auto& name : {u"a.LIM"_s, u"b.LIM"_s, u"c.LIM"_s})
            QVERIFY(WriteBytes(Source(name), "x"));
        CountingProgress progress(m_world->messages);
        progress.stopAfter = 4; // during the second file
        BackupFiles(false, m_world->define, m_world->messages, progress);
        QCOMPARE(m_world->messages.TakeOnly(), u"0 messages"_s);
        QCOMPARE(QDir(Target(u""_s)).entryList(QDir::Files), QStringList(u"a.LIM"_s));
    }

    void BackupAtClosing()
    {
        for (const auto& [text, yes] : {std::pair{u"0"_s, false},
                                        {u"1"_s, true},
                                        {u"-1"_s, true},
                                        {u"x"_s, false},
                                        {u"1,5"_s, true},
                                        {u"0,0"_s, false}}) {
            m_world->define.BkAutoSave = text;
            QCOMPARE(BackupAtClose(m_world->define), yes);
        }
    }

    void CompanyRecord()
    {
        QVERIFY(Start());
        const QString db = m_world->define.DbFile;
        QCOMPARE(ReadCompany(db).texts, Company().texts); // null fields read as empty
        Company company{
            .texts = {u"Rossi & C. \"Lab\""_s, u"R. D'Arco"_s}, .logoPath = u"/a.bmp"_s, .noLogo = true};
        company.texts[9] = QString(50, u'è');
        WriteCompany(db, company);
        QCOMPARE(ReadCompany(db).texts, company.texts);
        QCOMPARE(ReadCompany(db).logoPath, u"/a.bmp"_s);
        QVERIFY(ReadCompany(db).noLogo);
        QCOMPARE(GetLogoPath(db), u"/a.bmp"_s); // the flag does not count
        company.texts[8] = QString(51, u'a');
        QString told;
        try {
            WriteCompany(db, company);
        } catch (const RuntimeFailure& failure) {
            told = CompanySaveFailureText(m_world->define, failure);
        }
        QVERIFY2(told.contains(u"\"Indirizzo E-Mail\" è più lungo"_s), qPrintable(told));
        {
            auto other = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
            other.setDatabaseName(db);
            QVERIFY(other.open());
            QVERIFY(QSqlQuery(other).exec(u"BEGIN EXCLUSIVE"_s)); // locked by another program
            VERIFY_FAILS(ReadCompany(db), FailureKind::DatabaseNotOpen);
            VERIFY_FAILS(WriteCompany(db, Company()), FailureKind::DatabaseNotWritten);
            other.close();
        }
        QSqlDatabase::removeDatabase(u"other"_s);
        QCOMPARE(ReadCompany(db).texts[0], company.texts[0]);
        VERIFY_FAILS(WriteCompany(m_home->filePath(u"none"_s), company), FailureKind::DatabaseNotOpen);
        VERIFY_FAILS(ReadCompany(m_home->filePath(u"none"_s)), FailureKind::DatabaseNotOpen);
    }

private:
    bool Start() { return InitPaths(m_world->define, m_documents, m_world->messages); }
    QString Source(const QString& name) { return m_home->filePath(u"source/"_s) + name; }
    QString Target(const QString& name) { return m_home->filePath(u"target/"_s) + name; }
    void PrepareBackup()
    {
        QDir(m_home->path()).mkdir(u"source"_s);
        QDir(m_home->path()).mkdir(u"target"_s);
        m_world->define.OpenSaveFolder = Source(u""_s);
        m_world->define.BackupFolder = Target(u""_s);
    }

    std::unique_ptr<QTemporaryDir> m_home;
    QString m_documents;
    QString m_app;
    std::unique_ptr<TestWorld> m_world;
};

QTEST_GUILESS_MAIN(StartUpTest)
#include "StartUpTest.moc"
