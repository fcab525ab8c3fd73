// The backup of the data files.
#pragma once

#include "framework/document/Define.h"
#include "framework/document/Messages.h"

#include <QString>

/// Is told how far a backup is, and lets the interface breathe.
class BackupProgress
{
public:
    virtual ~BackupProgress() = default;
    /// done and total in bytes; name: the file being copied. False to stop; the file being copied is left as
    /// it was then.
    virtual bool Step(qint64 done, qint64 total, const QString& name) = 0;
    /// The copying is over; comes before any message.
    virtual void End() {}
};

/// Whether the settings ask for a backup when the program closes.
bool BackupAtClose(const Define& define);

/// Copies all files that lie directly in OpenSaveFolder to BackupFolder, over older copies, with their times
/// of change. Each copy is whole or absent. A folder that can't be listed is told; the first failure ends the
/// copying, told with the file's name. At the end a message, unless silent.
void BackupFiles(bool silent, const Define& define, Messages& messages, BackupProgress& progress);
