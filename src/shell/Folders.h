// The folders that the program works in: whether the user may, and making them.
#pragma once

#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "stats/RuntimeFailure.h"

#include <QString>

/// The rights asked for, as masks of the access check that the program was made for.
inline constexpr int kFolderRights = 0xF0000;     ///< create, change and delete in a folder
inline constexpr int kFileWriteRights = 0x120116; ///< write to a file

/// The rights that this user has there: mask when all of them, 0 when not, -1 when there is nothing to ask
/// about. A folder is asked by making and dropping a file without a name in it, a file by opening it: the
/// answer is what the system would do. A full disk takes no right away.
int CheckAccess(const QString& path, int mask);

/// The path without a separator at its end; the root stays what it is.
QString WithoutClosingSeparator(const QString& path);

/// Makes the folder where it is missing; its parent has to be there. False after its own message.
bool CreaCartella(const QString& path, int mask, const Define& define, Messages& messages);

/// False after its own message when the user lacks the rights in the folder, or a file stands there.
bool VerificaCartella(const QString& path, int mask, const Define& define, Messages& messages);

/// Copies the master of the database where no database stands yet. False after its own message when the user
/// can't write to it, or a folder stands there.
bool CopyDatabase(const QString& source, const QString& target, const Define& define, Messages& messages);

/// The message of a procedure that met a failure.
void ShowProcedureFailure(const QString& procedure, const RuntimeFailure& failure, const Define& define,
                          Messages& messages);
