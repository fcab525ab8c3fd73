#include "framework/SafeFile.h"

#include "stats/RuntimeFailure.h"

#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace
{

[[noreturn]] void Fail(FailureKind kind, const QString& reason)
{
    const RuntimeFailure plain(kind);
    throw RuntimeFailure(kind,
                         reason.isEmpty() ? plain.Text() : plain.Text() + " (" + reason.toStdString() + ")");
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
    default:
        return otherwise;
    }
}

[[noreturn]] void FailWithSystemError(int systemError, FailureKind otherwise = FailureKind::DeviceError)
{
    const QString reason = systemError == 0 ? QString() : QString::fromLocal8Bit(std::strerror(systemError));
    Fail(KindOf(systemError, otherwise), reason);
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

/// The bytes that stand in the open file are these, and no more.
bool ReadsBackAs(int descriptor, QByteArrayView bytes)
{
    std::array<char, 65536> block;
    qsizetype at = 0;
    while (true) {
        const ssize_t count = ::pread(descriptor, block.data(), block.size(), at);
        if (count < 0 || at + count > bytes.size())
            return false;
        if (count == 0)
            return at == bytes.size();
        if (std::memcmp(block.data(), bytes.data() + at, static_cast<std::size_t>(count)) != 0)
            return false;
        at += count;
    }
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

void WriteSafeFile(const QString& fileName, QByteArrayView bytes)
{
    const QFileInfo target(fileName);
    RequirePlace(target);
    QSaveFile file(fileName);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly))
        FailWithSystemError(errno, FailureKind::PermissionDenied);
    // Unless committed, the temporary file goes with the object and the former file stays.
    if (file.write(bytes.data(), bytes.size()) != bytes.size() || !file.flush())
        FailWithSystemError(errno);
    if (::fsync(file.handle()) != 0)
        FailWithSystemError(errno);
    if (!ReadsBackAs(file.handle(), bytes))
        Fail(FailureKind::DeviceError, {});
    if (!file.commit())
        FailWithSystemError(errno);
    SyncFolder(target.absolutePath());
}
