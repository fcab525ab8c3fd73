// The documents that were opened or saved last, kept with the user's own settings of the desktop.
#pragma once

#include <QMenu>
#include <QString>
#include <QStringList>

/// Puts the document in front of the others; ten are kept.
void NoteDocument(const QString& fileName);

/// The names, the last one first.
QStringList RecentDocuments();

/// An item for each, with the name as its data; grey where the file is gone.
void AddRecentDocuments(QMenu* menu);
