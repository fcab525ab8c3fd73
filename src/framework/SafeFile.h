// The one way in which the program writes a file: whole or not at all.
#pragma once

#include <QByteArrayView>
#include <QString>

/// Replaces the file by these bytes, or creates it. The bytes go to a temporary file in the same folder, are
/// written out to the disk and read back, and only then take the file's place; the folder is written out too.
/// Fails, with the former file as it was: DiskFull, PermissionDenied, PathAccess (a folder stands there),
/// PathNotFound (its folder is gone), DeviceError. The text tells the system's reason.
void WriteSafeFile(const QString& fileName, QByteArrayView bytes);
