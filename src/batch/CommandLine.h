// The command line of quorel-batch.
#pragma once

#include "framework/text/Language.h"

#include <QString>
#include <QStringList>

struct CommandLine {
    bool json = false;
    bool chartData = false;
    bool help = false;
    bool version = false;
    Language language = Language::English; ///< of reports and charts
    QString chartDir;                      ///< empty: charts are not written
    QString rewriteDir;                    ///< empty: documents are not saved again
    QString decSep;                        ///< the separator that numbers show
    QStringList paths;                     ///< files and folders as given
    QString error;                         ///< why the call is wrong, or empty
};

/// arguments without the program's name.
CommandLine ParseCommandLine(const QStringList& arguments);

/// What --help prints.
QString HelpText();
