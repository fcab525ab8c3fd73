// The one way in which the program writes a file: whole or not at all.
#pragma once

#include "stats/RuntimeFailure.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <QSaveFile>
#include <QString>

#include <functional>

/// A file being written. The bytes go to a temporary file in the same folder; Commit writes them out to the
/// disk, reads them back, and only then lets them take the file's place. An object that goes without Commit
/// leaves the former file as it was. All routines fail with DiskFull, PermissionDenied, PathAccess (a folder
/// stands there), PathNotFound (its folder is gone) or DeviceError; the text tells the system's reason.
class SafeFile
{
public:
    explicit SafeFile(const QString& fileName);

    void Write(QByteArrayView bytes);
    /// The file gets the time of change of an open file.
    void TakeTimeOf(int descriptor);
    void Commit();

private:
    bool ReadsBack();

    QSaveFile m_file;
    QCryptographicHash m_hash{QCryptographicHash::Sha1};
};

/// What the program calls an error of the system, with the system's own word for it; otherwise: what it calls
/// one that it has no kind for. 0 stands for an error that is not known.
RuntimeFailure SystemFailure(int systemError, FailureKind otherwise = FailureKind::DeviceError);

/// Replaces the file by these bytes, or creates it.
void WriteSafeFile(const QString& fileName, QByteArrayView bytes);

/// Copies a file, with its time of change, over the target. goOn is told how many bytes are copied so far;
/// once it says no, the copying ends with the target as it was and with false. Fails, besides, with
/// FileNotFound or PermissionDenied for the source.
bool CopySafeFile(const QString& source, const QString& target, const std::function<bool(qint64)>& goOn = {});
