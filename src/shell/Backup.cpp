#include "shell/Backup.h"

#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"
#include "stats/RuntimeFailure.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Whether all files were copied. Fails as CopySafeFile does, with the file's name in front.
bool CopyAll(const QFileInfoList& files, const QDir& target, BackupProgress& progress)
{
    qint64 total = 0;
    for (const QFileInfo& file : files)
        total += file.size();
    qint64 done = 0;
    for (const QFileInfo& file : files) {
        const auto goOn = [&](qint64 copied) { return progress.Step(done + copied, total, file.fileName()); };
        try {
            if (!goOn(0) || !CopySafeFile(file.filePath(), target.filePath(file.fileName()), goOn))
                return false;
        } catch (const RuntimeFailure& failure) {
            throw RuntimeFailure(failure.Kind(), file.fileName().toStdString() + "\n" + failure.Text());
        }
        done += file.size();
    }
    return true;
}

} // namespace

bool BackupAtClose(const Define& define)
{
    bool number = false;
    const double value = define.BkAutoSave.toDouble(&number);
    return number && value != 0;
}

void BackupFiles(bool silent, const Define& define, Messages& messages, BackupProgress& progress)
{
    const auto tell = [&](MessageIcon icon, const QString& text) {
        messages.Show(icon, define.AppTitle, text);
    };
    const QFileInfo source(define.OpenSaveFolder);
    const QFileInfo target(define.BackupFolder);
    if (!source.isDir() || !target.isDir()) {
        tell(MessageIcon::Critical, u"Backup non eseguito: la cartella %1 non esiste."_s.arg(
                                        (source.isDir() ? target : source).filePath()));
        return;
    }
    if (source.canonicalFilePath() == target.canonicalFilePath()) {
        tell(MessageIcon::Critical,
             u"Backup non eseguito: la cartella dei dati e quella del backup sono la stessa, %1"_s.arg(
                 source.filePath()));
        return;
    }
    try {
        const QFileInfoList files = QDir(source.filePath()).entryInfoList(QDir::Files, QDir::Name);
        if (CopyAll(files, QDir(target.filePath()), progress) && !silent)
            tell(MessageIcon::Information, u"Backup completato"_s);
    } catch (const RuntimeFailure& failure) {
        tell(MessageIcon::Critical, u"Il backup si è fermato al file %1."_s.arg(FailureText(failure)));
    }
}
