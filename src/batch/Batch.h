// The companion's work: opens the documents of a call, calculates them, prints and writes what the windows
// would show, and goes on after each failure.
#pragma once

#include <QIODevice>
#include <QString>
#include <QStringList>

/// The world around one call.
struct BatchWorld {
    QIODevice& out;
    QIODevice& err;
    bool progress = false; ///< a line on err tells how far the work is
    QString programFolder; ///< where the database and the module of the charts lie
    QString version;
};

/// arguments without the program's name. The exit status: 0 every document read whole and calculated, 1 at
/// least one not (each named on err), 2 the call is wrong.
int RunBatch(const QStringList& arguments, const BatchWorld& world);
