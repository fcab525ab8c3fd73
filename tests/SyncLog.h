// What this process writes out to the disk, and a disk that doesn't take it. For one source file of a test.
#pragma once

#include "TestWorld.h"

#include <QFile>
#include <QList>
#include <QString>

#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

/// A file or folder that was written out, and what the watched file held then.
struct Sync {
    QString name;
    QByteArray watched;
};

struct SyncLog {
    QString watched;
    int error = 0; ///< of a disk that does not take it
    QList<Sync> syncs = {};
};
inline SyncLog syncLog;

/// In the place of the system's own.
extern "C" int fsync(int descriptor)
{
    if (syncLog.error != 0) {
        errno = syncLog.error;
        return -1;
    }
    const QString name = QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor));
    syncLog.syncs.append({name, BytesOf(syncLog.watched)});
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}
