// What came of one file: read, calculated and made ready to be printed and written, on any thread.
#pragma once

#include "batch/CommandLine.h"
#include "framework/chart/ChartData.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

class FTable;

struct Outcome {
    QString file;        ///< the path as given
    QString complaint;   ///< why the document was not read whole and calculated, or empty
    QByteArray printed;  ///< the JSON object or the summary; empty for a file that could not be opened
    bool writes = false; ///< the call asks for files of it
    std::vector<ChartData> charts;       ///< to be painted
    std::optional<QByteArray> rewritten; ///< the document in the current file format
    QString notRewritten;                ///< why that can't be had, or empty
};

/// Reads and calculates one file and makes what the call asks for. Shares nothing with other calls but the
/// table of F.
Outcome Compute(const QString& file, const CommandLine& line, FTable& fTable);
