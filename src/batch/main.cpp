// quorel-batch: the work of the windows without a window.
#include "batch/Batch.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

#include <unistd.h>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QFile out;
    QFile err;
    if (!out.open(stdout, QIODevice::WriteOnly) ||
        !err.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    const int status =
        RunBatch(QCoreApplication::arguments().sliced(1),
                 {.out = out,
                  .err = err,
                  .progress = ::isatty(STDERR_FILENO) == 1,
                  .dbFile = QCoreApplication::applicationDirPath() + QStringLiteral("/DB/QUOREL73.MDB"),
                  .version = QStringLiteral(QUOREL_VERSION)});
    if (!out.flush() || std::fflush(stdout) != 0) {
        err.write("quorel-batch: impossibile scrivere i risultati sull'uscita standard\n");
        return status == 0 ? 1 : status;
    }
    return status;
}
