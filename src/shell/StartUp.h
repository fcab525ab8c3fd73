// What happens before the frame is shown: global values, folders, settings, database.
#pragma once

#include "framework/document/Define.h"
#include "framework/document/Messages.h"

#include <QString>

/// Sets the global values that depend on nothing but the system. programFolder: where the executable and its
/// read-only masters lie.
void InitGlobals(Define& define, const QString& programFolder);

/// Finds or makes the folders, the settings file and the working database. documentsFolder: the user's
/// documents. False, after a message, when the program can't work.
bool InitPaths(Define& define, const QString& documentsFolder, Messages& messages);

/// The folder of the user's documents, made where the desktop has not made it yet.
QString GetSpecialFolder();
