// The text of a grid's block as spreadsheets put it on the clipboard: tabs between cells, line ends between
// rows.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

/// The rows of cells. LF, CR LF and CR end a row; a last, empty line is none. A cell in quotation marks may
/// hold tabs, line ends and doubled marks. Rows may differ in length.
QList<QStringList> ParseTabText(QStringView text);

QString MakeTabText(const QList<QStringList>& rows);
