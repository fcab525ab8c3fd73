#include "framework/chart/ChartPainter.h"

#include "framework/chart/ChartModule.h"
#include "stats/RuntimeFailure.h"

#include <QCoreApplication>
#include <QLibrary>

namespace
{

/// A routine of the module, which stays loaded once it was.
template<typename Routine>
Routine Resolve(const QString& programFolder, const char* name)
{
    QLibrary module(programFolder + QStringLiteral("/quorel_charts"));
    const auto routine = reinterpret_cast<Routine>(module.resolve(name));
    if (routine == nullptr)
        throw RuntimeFailure(FailureKind::FileNotFound, "Il modulo dei grafici non può essere caricato (" +
                                                            module.errorString().toStdString() + ")");
    return routine;
}

} // namespace

std::unique_ptr<ChartPainter> CreateChartPainter(const QString& programFolder)
{
    const auto create = Resolve<CreatePainterRoutine>(programFolder, kCreatePainter);
    return std::unique_ptr<ChartPainter>(create());
}

std::unique_ptr<QCoreApplication> CreatePaintingApplication(const QString& programFolder, int& argc,
                                                            char** argv)
{
    const auto create = Resolve<CreateApplicationRoutine>(programFolder, kCreateApplication);
    return std::unique_ptr<QCoreApplication>(create(argc, argv));
}
