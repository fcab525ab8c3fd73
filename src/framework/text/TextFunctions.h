// Small routines on text that documents, texts and files share.
#pragma once

#include "stats/RuntimeFailure.h"

#include <QString>
#include <QStringView>

/// text with each occurrence of search, looked for anew from the start after every replacement, replaced;
/// changes text in place as well. Case counts. A replacement that contains search is put in once for each
/// occurrence.
QString ReplaceStr(QString& text, const QString& search, const QString& replacement);
/// The same for a text that is not kept.
QString ReplaceStr(QString&& text, const QString& search, const QString& replacement);

/// text without the blanks at both ends; other white space stays.
QString TrimBlanks(QStringView text);

/// text between blanks, for a cell of this width in characters; unchanged where it fills the cell. An odd
/// blank stands in front.
/// Deliberate: whether there is an odd one is asked of the bits of both lengths.
QString CenterStr(const QString& text, qsizetype width);

/// text as one line: line ends and tabs become blanks.
QString InOneLine(QString text);

/// The system's decimal separator.
QString GetDecSep();

/// What a failure says: Italian, without a full stop at its end.
QString FailureText(const RuntimeFailure& failure);
