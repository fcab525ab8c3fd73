#include "shell/Backup.h"

#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"
#include "shell/Folders.h"
#include "stats/RuntimeFailure.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace
{

/// The files that lie directly in the folder, by their names. Fails as SystemFailure tells where the folder
/// can't be listed to its end, or its entries not be looked at.
QFileInfoList FilesOf(const QString& folder)
{
    namespace fs = std::filesystem;
    QFileInfoList files;
    std::error_code error;
    fs::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code unseen;
        const fs::file_status status = entry->status(unseen); // of what a link leads to
        std::error_code ownUnseen;
        const bool leadsNowhere = !fs::exists(status) && entry->is_symlink(ownUnseen);
        if (status.type() == fs::file_type::none && !leadsNowhere)
            throw SystemFailure(unseen.value());
        const QString name = QFile::decodeName(entry->path().filename().c_str());
        // A link that leads nowhere is told by its name, where it is copied.
        if ((fs::is_regular_file(status) || leadsNowhere) && !name.startsWith(u'.'))
            files.append(QFileInfo(QDir(folder), name));
    }
    if (error)
        throw SystemFailure(error.value());
    std::ranges::sort(files, {}, &QFileInfo::fileName);
    return files;
}

/// What is wrong with a folder, or nothing.
QString FolderFault(const QFileInfo& folder)
{
    if (folder.isDir())
        return {};
    return (folder.exists() ? u"al posto della cartella %1 c'è un file."_s : u"la cartella %1 non esiste."_s)
        .arg(folder.filePath());
}

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
    const double value = QString(define.BkAutoSave).replace(u',', u'.').toDouble(&number);
    return number && value != 0;
}

void BackupFiles(bool silent, const Define& define, Messages& messages, BackupProgress& progress)
{
    const auto tell = [&](MessageIcon icon, const QString& text) {
        progress.End();
        messages.Show(icon, define.AppTitle, text);
    };
    const QFileInfo source(WithoutClosingSeparator(define.OpenSaveFolder));
    const QFileInfo target(WithoutClosingSeparator(define.BackupFolder));
    for (const QFileInfo& folder : {source, target}) {
        if (const QString fault = FolderFault(folder); !fault.isEmpty()) {
            tell(MessageIcon::Critical, u"Backup non eseguito: "_s + fault);
            return;
        }
    }
    if (source.canonicalFilePath() == target.canonicalFilePath()) {
        tell(MessageIcon::Critical,
             u"Backup non eseguito: la cartella dei dati e quella del backup sono la stessa, %1"_s.arg(
                 source.filePath()));
        return;
    }
    QFileInfoList files;
    try {
        files = FilesOf(source.filePath());
    } catch (const RuntimeFailure& failure) {
        tell(MessageIcon::Critical, u"Backup non eseguito: la cartella %1 non può essere letta.\n\n%2."_s.arg(
                                        source.filePath(), FailureText(failure)));
        return;
    }
    try {
        if (CopyAll(files, QDir(target.filePath()), progress) && !silent)
            tell(MessageIcon::Information, u"Backup completato"_s);
    } catch (const RuntimeFailure& failure) {
        tell(MessageIcon::Critical, u"Il backup si è fermato al file %1."_s.arg(FailureText(failure)));
    }
}
