#include "framework/files/SafeFile.h"

#include "stats/RuntimeFailure.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr qsizetype kBlock = 1 << 18;

RuntimeFailure Failure(FailureKind kind, const QString& reason)
{
    const RuntimeFailure plain(kind);
    return {kind, reason.isEmpty() ? plain.Text() : plain.Text() + " (" + reason.toStdString() + ")"};
}

[[noreturn]] void Fail(FailureKind kind, const QString& reason)
{
    throw Failure(kind, reason);
}

FailureKind KindOf(int systemError, FailureKind otherwise)
{
    switch (systemError) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return FailureKind::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
        return FailureKind::PermissionDenied;
    case ENOENT:
    case ENOTDIR:
        return FailureKind::PathNotFound;
    case EISDIR:
        return FailureKind::PathAccess;
    default:
        return otherwise;
    }
}

[[noreturn]] void FailWithSystemError(int systemError, FailureKind otherwise = FailureKind::DeviceError)
{
    throw SystemFailure(systemError, otherwise);
}

void RequirePlace(const QFileInfo& target)
{
    if (target.isDir())
        Fail(FailureKind::PathAccess, {});
    if (!QFileInfo(target.absolutePath()).isDir())
        Fail(FailureKind::PathNotFound, {});
    if (target.exists() && !target.isWritable())
        Fail(FailureKind::PermissionDenied, {});
}

/// So that the new name, too, is on the disk. A folder that can't be opened for reading is left to the
/// system.
void SyncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

RuntimeFailure SystemFailure(int systemError, FailureKind otherwise)
{
    const QString reason = systemError == 0 ? QString() : QString::fromLocal8Bit(std::strerror(systemError));
    return Failure(KindOf(systemError, otherwise), reason);
}

SafeFile::SafeFile(const QString& fileName) : m_file(fileName)
{
    RequirePlace(QFileInfo(fileName));
    errno = 0;
    if (!m_file.open(QIODevice::WriteOnly))
        FailWithSystemError(errno, FailureKind::PermissionDenied);
}

void SafeFile::Write(QByteArrayView bytes)
{
    if (m_file.write(bytes.data(), bytes.size()) != bytes.size())
        FailWithSystemError(errno);
    m_hash.addData(bytes);
}

void SafeFile::TakeTimeOf(int descriptor)
{
    struct stat status {
    };
    if (::fstat(descriptor, &status) != 0 || !m_file.flush())
        FailWithSystemError(errno);
    const std::array<timespec, 2> times{timespec{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, status.st_mtim};
    if (::futimens(m_file.handle(), times.data()) != 0)
        FailWithSystemError(errno);
}

/// The bytes that stand in the file are those that were written, and no more.
bool SafeFile::ReadsBack()
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    QByteArray block(kBlock, Qt::Uninitialized);
    qint64 at = 0;
    while (true) {
        const ssize_t count = ::pread(m_file.handle(), block.data(), static_cast<std::size_t>(block.size()),
                                      static_cast<off_t>(at));
        if (count < 0)
            return false;
        if (count == 0)
            return hash.result() == m_hash.result();
        hash.addData(QByteArrayView(block.constData(), count));
        at += count;
    }
}

void SafeFile::Commit()
{
    if (!m_file.flush() || ::fsync(m_file.handle()) != 0)
        FailWithSystemError(errno);
    if (!ReadsBack())
        Fail(FailureKind::DeviceError, {});
    if (!m_file.commit())
        FailWithSystemError(errno);
    SyncFolder(QFileInfo(m_file.fileName()).absolutePath());
}

void WriteSafeFile(const QString& fileName, QByteArrayView bytes)
{
    SafeFile file(fileName);
    file.Write(bytes);
    file.Commit();
}

bool CopySafeFile(const QString& source, const QString& target, const std::function<bool(qint64)>& goOn)
{
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeFailure(from.exists() ? FailureKind::PermissionDenied : FailureKind::FileNotFound);
    SafeFile to(target);
    QByteArray block(kBlock, Qt::Uninitialized);
    qint64 copied = 0;
    while (true) {
        const qint64 count = from.read(block.data(), block.size());
        if (count < 0)
            Fail(FailureKind::DeviceError, from.errorString());
        if (count == 0)
            break;
        to.Write(QByteArrayView(block.constData(), count));
        copied += count;
        if (goOn && !goOn(copied))
            return false;
    }
    to.TakeTimeOf(from.handle());
    to.Commit();
    return true;
}
