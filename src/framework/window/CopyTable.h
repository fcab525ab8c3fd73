// Tables on the clipboard, for spreadsheets and for texts.
#pragma once

#include <QList>
#include <QStringList>

/// Puts the rows there as text parted by tabs, each cell in one line, and as an HTML table.
void CopyTable(const QList<QStringList>& rows);
