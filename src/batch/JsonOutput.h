// One document as one JSON object, and as a short text.
#pragma once

#include "framework/document/DocumentLife.h"
#include "framework/document/TestDocument.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// A message that a window would have shown.
struct CollectedMessage {
    MessageIcon icon = MessageIcon::None;
    QString title;
    QString text;
};

/// What the companion knows of one document after it was read and calculated.
struct BatchResult {
    QString file; ///< the path as given
    const TestDocument& document;
    LoadOutcome outcome;
    QList<CollectedMessage> messages;
};

/// One line of UTF-8, ended by a line feed. Keys and values are those of docs/file-formats.md.
QByteArray JsonLine(const BatchResult& result, bool chartData);

/// File, results and Italian conclusions, for a reader. UTF-8.
QByteArray Summary(const BatchResult& result);
