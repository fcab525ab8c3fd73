// The start on an empty home and every later one; folders, rights, the database's copy, and the backup.
#include "shell/StartUp.h"
#include "Compare.h"
#include "FullDisk.h"
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

#include <unistd.h>

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
    bool Step(qint64 done, qint64 total, const QString& name) override
    {
        if (done > total)
            QTest::qFail("more done than there is", __FILE__, __LINE__);
        names.append(name);
        return names.size() < stopAfter;
    }
    QStringList names;
    int stopAfter = 1 << 30;
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

    void FirstStartAndSecond()
    {
        QVERIFY(Start());
        const Define& define = m_world->define;
        QCOMPARE(define.OpenSaveFolder, m_app + u"Doc/"_s);
        QCOMPARE(define.BackupFolder, m_app + u"Backup/"_s);
        QCOMPARE(define.DbFile, m_app + u"DB/QUOREL73.MDB"_s);
        QCOMPARE(define.BkAutoSave, u"0"_s);
        QCOMPARE(define.LogoFile, QString());
        QCOMPARE(BytesOf(define.IniFile),
                 u"[Percorsi]\nOpenSave=%1Doc/\nBackup=%1Backup/\n[Parametri]\nBkAutoSave=0\n"_s.arg(m_app)
                     .toUtf8());
        WriteCompany(define.DbFile, {.texts = {u"Rossi"_s}, .logoPath = u"/logo.bmp"_s, .noLogo = true});
        const QStringList before = Snapshot(m_home->path());
        QCOMPARE(before.filter(u"Doc"_s).size(), 1);
        TestWorld second;
        InitGlobals(second.define, QStringLiteral(QUOREL_TEST_PROGRAM));
        QVERIFY(InitPaths(second.define, m_documents, second.messages));
        QCOMPARE(Snapshot(m_home->path()), before);
        QCOMPARE(second.define.LogoFile, u"/logo.bmp"_s);
        QVERIFY(second.messages.All().isEmpty());
    }

    void FolderOfTheSettingsThatIsGoneIsMadeAnew()
    {
        QVERIFY(Start());
        WriteIni(u"[Percorsi]\nOpenSave=%1mine/\n[Parametri]\nBkAutoSave=1\n"_s.arg(m_documents));
        QVERIFY(Start());
        QVERIFY(QFileInfo(m_documents + u"mine"_s).isDir());
        QCOMPARE(m_world->define.BkAutoSave, u"1"_s);
        QVERIFY(BytesOf(m_world->define.IniFile).contains("\nBackup=" + m_app.toUtf8() + "Backup/\n"));
    }

    void BadFoldersOfTheSettingsAreToldAndTheStartGoesOn()
    {
        QVERIFY(Start());
        QVERIFY(WriteBytes(m_documents + u"file"_s, "x"));
        WriteIni(u"[Percorsi]\nOpenSave=%1file/\nBackup=%1none/none/\n"_s.arg(m_documents));
        QVERIFY(Start());
        QStringList told;
        for (const auto& message : m_world->messages.All())
            told += message.text.section(u"\r\n"_s, 0, 0);
        QCOMPARE(told, QStringList(
                           {u"Errore 75 nella procedura DEFINE.CreaCartella."_s,
                            u"Permessi insufficienti per la cartella %1file/"_s.arg(m_documents),
                            u"Permessi insufficienti per creare la cartella %1none/none/"_s.arg(m_documents),
                            u"Permessi insufficienti per la cartella %1none/none/"_s.arg(m_documents)}));
    }

    void NoStart_data()
    {
        QTest::addColumn<QString>("obstacle"); // a file in the place of a folder
        QTest::addColumn<QString>("message");
        QTest::addRow("documents that nobody can write to")
            << u"/proc/"_s << u"Permessi insufficienti per creare la"_s;
        QTest::addRow("a file in place of the folder")
            << u"Quorel2006"_s << u"Errore 75 nella procedura DEFINE.Crea"_s;
        QTest::addRow("a file in place of the database's")
            << u"Quorel2006/DB"_s << u"Errore 75 nella procedura"_s;
    }

    void NoStart()
    {
        QFETCH(QString, obstacle);
        QFETCH(QString, message);
        if (obstacle.startsWith(u'/')) {
            m_documents = obstacle;
        } else {
            QVERIFY(QDir(m_documents).mkpath(QFileInfo(obstacle).path()));
            QVERIFY(WriteBytes(m_documents + obstacle, "x"));
        }
        QVERIFY(!Start());
        const QString told = m_world->messages.TakeOnly();
        QVERIFY2(told.contains(message), qPrintable(told));
    }

    void NoMasterNoStart()
    {
        m_world->define.ProgramFolder = m_home->path();
        QVERIFY(!Start());
        QVERIFY(m_world->messages.TakeOnly().contains(u"Impossibile copiare il database"_s));
        QVERIFY(!QFileInfo::exists(m_app + u"DB/QUOREL73.MDB"_s));
    }

    void BadDatabaseIsToldAndTheStartGoesOn()
    {
        QVERIFY(Start());
        QVERIFY(WriteBytes(m_world->define.DbFile, "no database at all"));
        QVERIFY(Start());
        QVERIFY(m_world->messages.TakeOnly().contains(u"I dati dell'azienda non sono disponibili"_s));
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
        {
            const FullDisk full(10);
            QCOMPARE(CheckAccess(m_documents, kFolderRights), 0);
        }
        QCOMPARE(Snapshot(m_home->path()), before);
        if (::geteuid() == 0)
            QSKIP("root may write what is read-only");
        QFile::setPermissions(file, QFile::ReadOwner);
        QCOMPARE(CheckAccess(file, kFileWriteRights), 0);
        QFile::setPermissions(m_home->path(), QFile::ReadOwner | QFile::ExeOwner);
        QCOMPARE(CheckAccess(m_documents, kFolderRights), 0);
        QFile::setPermissions(m_home->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void Backup()
    {
        PrepareBackup();
        QVERIFY(WriteBytes(Source(u"però.LIM"_s), "new"));
        QVERIFY(WriteBytes(Source(u"note.txt"_s), ""));
        QVERIFY(WriteBytes(Target(u"però.LIM"_s), "an older copy"));
        QVERIFY(QDir(Source(u""_s)).mkdir(u"sub"_s));
        QVERIFY(WriteBytes(Source(u"sub/deep.LIM"_s), "x"));
        CountingProgress progress;
        BackupFiles(false, m_world->define, m_world->messages, progress);
        QCOMPARE(m_world->messages.TakeOnly(), u"Backup completato"_s);
        QCOMPARE(QDir(Target(u""_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
                 QStringList({u"note.txt"_s, u"però.LIM"_s}));
        QCOMPARE(BytesOf(Target(u"però.LIM"_s)), "new");
        QCOMPARE(QFileInfo(Target(u"però.LIM"_s)).lastModified(),
                 QFileInfo(Source(u"però.LIM"_s)).lastModified());
        BackupFiles(true, m_world->define, m_world->messages, progress);
        QCOMPARE(m_world->messages.TakeOnly(), u"0 messages"_s);
    }

    void BackupOfNothing()
    {
        PrepareBackup();
        CountingProgress progress;
        BackupFiles(false, m_world->define, m_world->messages, progress);
        QCOMPARE(m_world->messages.TakeOnly(), u"Backup completato"_s);
        QVERIFY(progress.names.isEmpty());
    }

    void BackupStopsAtTheFirstFailure()
    {
        PrepareBackup();
        QVERIFY(WriteBytes(Source(u"a.LIM"_s), "x"));
        QVERIFY(WriteBytes(Source(u"b.LIM"_s), QByteArray(1000, 'x')));
        QVERIFY(WriteBytes(Source(u"c.LIM"_s), "x"));
        QVERIFY(WriteBytes(Target(u"b.LIM"_s), "older"));
        CountingProgress progress;
        {
            const FullDisk full(100);
            BackupFiles(true, m_world->define, m_world->messages, progress);
        }
        QVERIFY(
            m_world->messages.TakeOnly().startsWith(u"Il backup si è fermato al file b.LIM\nDisco pieno"_s));
        QCOMPARE(BytesOf(Target(u"b.LIM"_s)), "older");
        QVERIFY(QFileInfo::exists(Target(u"a.LIM"_s)) && !QFileInfo::exists(Target(u"c.LIM"_s)));
    }

    void BackupCanBeStopped()
    {
        PrepareBackup();
        for (const auto& name : {u"a.LIM"_s, u"b.LIM"_s, u"c.LIM"_s})
            QVERIFY(WriteBytes(Source(name), "x"));
        CountingProgress progress;
        progress.stopAfter = 4; // during the second file
        BackupFiles(false, m_world->define, m_world->messages, progress);
        QCOMPARE(m_world->messages.TakeOnly(), u"0 messages"_s);
        QCOMPARE(QDir(Target(u""_s)).entryList(QDir::Files).size(), 1);
    }

    void BackupOntoItselfIsRefused()
    {
        PrepareBackup();
        QVERIFY(WriteBytes(Source(u"a.LIM"_s), "x"));
        m_world->define.BackupFolder = Source(u"../source"_s); // without a closing separator, too
        CountingProgress progress;
        BackupFiles(true, m_world->define, m_world->messages, progress);
        QVERIFY(m_world->messages.TakeOnly().contains(u"sono la stessa"_s));
        QCOMPARE(BytesOf(Source(u"a.LIM"_s)), "x");
        m_world->define.BackupFolder = Source(u"none"_s);
        BackupFiles(true, m_world->define, m_world->messages, progress);
        QVERIFY(m_world->messages.TakeOnly().contains(u"none non esiste"_s));
    }

    void BackupAtClosing()
    {
        for (const auto& [text, yes] :
             {std::pair{u"0"_s, false}, {u"1"_s, true}, {u"-1"_s, true}, {u"x"_s, false}}) {
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
            told = CompanyFailureText(m_world->define, failure);
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
    void WriteIni(const QString& text) { QVERIFY(WriteBytes(m_app + u"QuoSet.ini"_s, text.toUtf8())); }
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
