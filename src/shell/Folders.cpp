#include "shell/Folders.h"

#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"
#include "stats/RuntimeFailure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// A disk that is full lacks room, which is told when something is saved; the rights are there.
bool IsFull(int error)
{
    return error == ENOSPC || error == EDQUOT;
}

/// Where the file system knows no files without a name, one with a name is made and removed.
bool CanUseNamedFile(const QString& folder)
{
    QByteArray name = QFile::encodeName(QDir(folder).filePath(u".quorel-XXXXXX"_s));
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0)
        return IsFull(errno);
    ::close(descriptor);
    return ::unlink(name.constData()) == 0;
}

bool CanUseFolder(const QString& folder)
{
#ifdef O_TMPFILE
    const int descriptor =
        ::open(QFile::encodeName(folder).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (descriptor >= 0)
        return ::close(descriptor) == 0;
    if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
        return IsFull(errno);
#endif
    return CanUseNamedFile(folder);
}

bool CanWriteFile(const QString& file)
{
    const int descriptor = ::open(QFile::encodeName(file).constData(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    ::close(descriptor);
    return true;
}

QString ParentOf(const QString& path)
{
    const QString plain = WithoutClosingSeparator(path);
    const qsizetype separator = plain.lastIndexOf(u'/');
    return separator <= 0 ? u"/"_s : plain.first(separator);
}

bool IsFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

/// Fails with PathAccess where the path, or the folder that it lies in, is a file.
void RequireNoFile(const QString& path)
{
    for (const QString& place : {ParentOf(path), WithoutClosingSeparator(path)}) {
        if (QFileInfo(place).exists() && !IsFolder(place))
            throw RuntimeFailure(FailureKind::PathAccess,
                                 u"Al posto della cartella %1 c'è un file"_s.arg(place).toStdString());
    }
}

/// In one step. Fails as the system tells.
void MakeFolder(const QString& path)
{
    if (QDir().mkdir(WithoutClosingSeparator(path)))
        return;
    const int error = errno; // of the making, not of a look at what is there
    if (!IsFolder(path))     // another copy may have made it meanwhile
        throw SystemFailure(error, FailureKind::PathNotFound);
}

} // namespace

QString WithoutClosingSeparator(const QString& path)
{
    return path.size() > 1 && path.endsWith(u'/') ? path.chopped(1) : path;
}

int CheckAccess(const QString& path, int mask)
{
    const QFileInfo info(WithoutClosingSeparator(path));
    if (info.isDir())
        return CanUseFolder(info.filePath()) ? mask : 0;
    if (info.isFile())
        return CanWriteFile(info.filePath()) ? mask : 0;
    return -1;
}

bool CreaCartella(const QString& path, int mask, const Define& define, Messages& messages)
{
    if (IsFolder(path))
        return true;
    try {
        RequireNoFile(path);
        if (CheckAccess(ParentOf(path), mask) != mask) {
            messages.Show(MessageIcon::Critical, define.AppTitle,
                          u"Permessi insufficienti per creare la cartella "_s + path);
            return false;
        }
        MakeFolder(path);
    } catch (const RuntimeFailure& failure) {
        ShowProcedureFailure(u"CreaCartella"_s, failure, define, messages);
        return false;
    }
    return true;
}

bool VerificaCartella(const QString& path, int mask, const Define& define, Messages& messages)
{
    if (IsFolder(path) && CheckAccess(path, mask) == mask)
        return true;
    try {
        RequireNoFile(path);
        messages.Show(MessageIcon::Critical, define.AppTitle,
                      u"Permessi insufficienti per la cartella "_s + path);
    } catch (const RuntimeFailure& failure) {
        ShowProcedureFailure(u"VerificaCartella"_s, failure, define, messages);
    }
    return false;
}

bool CopyDatabase(const QString& source, const QString& target, const Define& define, Messages& messages)
{
    if (IsFolder(target)) {
        messages.Show(MessageIcon::Critical, define.AppTitle,
                      u"Al posto del database c'è una cartella:\n%1"_s.arg(target));
        return false;
    }
    if (!QFileInfo::exists(target)) {
        try {
            CopySafeFile(source, target);
        } catch (const RuntimeFailure& failure) {
            messages.Show(MessageIcon::Critical, define.AppTitle,
                          u"Impossibile copiare il database %1:\n%2."_s.arg(source, FailureText(failure)));
            return false;
        }
    }
    if (CheckAccess(target, kFileWriteRights) == kFileWriteRights)
        return true;
    messages.Show(MessageIcon::None, define.AppTitle, target + u": Permessi insufficienti"_s);
    return false;
}

void ShowProcedureFailure(const QString& procedure, const RuntimeFailure& failure, const Define& define,
                          Messages& messages)
{
    messages.Show(MessageIcon::Critical, define.AppTitle,
                  u"Errore %1 nella procedura DEFINE.%2.\r\n\r\n%3"_s.arg(QString::number(failure.Number()),
                                                                          procedure, FailureText(failure)));
}
