// quorel-batch: the work of the windows without a window.
#include "batch/Batch.h"
#include "framework/chart/ChartPainter.h"
#include "stats/RuntimeFailure.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <span>
#include <string_view>

#include <unistd.h>

namespace
{

/// Where the executable lies. Known before there is an application object, unlike Qt's own answer.
QString ProgramFolder(const char* program)
{
    const QFileInfo self(QStringLiteral("/proc/self/exe"));
    return (self.exists() ? QFileInfo(self.canonicalFilePath()) : QFileInfo(QFile::decodeName(program)))
        .absolutePath();
}

/// What Qt says of a session that a companion has not got stays unsaid.
void PassOn(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    if (!message.startsWith(QLatin1StringView("QStandardPaths: XDG_RUNTIME_DIR")))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// Charts need an application that can paint; all else goes without, and starts the sooner.
bool Paints(std::span<char* const> arguments)
{
    return std::ranges::any_of(arguments, [](std::string_view argument) {
        return argument == "--chart" || argument.starts_with("--chart=");
    });
}

std::unique_ptr<QCoreApplication> MakeApplication(const QString& programFolder, int& argc, char** argv)
{
    if (!Paints({argv, static_cast<std::size_t>(argc)}))
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // no display is asked for
    return CreatePaintingApplication(programFolder, argc, argv);
}

int Run(int argc, char** argv)
{
    qInstallMessageHandler(PassOn);
    const QString programFolder = ProgramFolder(argv[0]);
    const auto application = MakeApplication(programFolder, argc, argv);
    QFile out;
    QFile err;
    if (!out.open(stdout, QIODevice::WriteOnly) ||
        !err.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    const int status =
        RunBatch(QCoreApplication::arguments().sliced(1), {.out = out,
                                                           .err = err,
                                                           .progress = ::isatty(STDERR_FILENO) == 1,
                                                           .programFolder = programFolder,
                                                           .version = QStringLiteral(QUOREL_VERSION)});
    if (!out.flush()) {
        err.write("quorel-batch: impossibile scrivere i risultati sull'uscita standard\n");
        return 1;
    }
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const RuntimeFailure& failure) { // without the module of the charts there is no application
        std::fprintf(stderr, "quorel-batch: %s\n", failure.what());
        return 1;
    }
}
