// The entries of the module.
#include "framework/chart/ChartModule.h"

#include "framework/chart/ChartPainter.h"
#include "framework/chart/PlotPainter.h"

#include <QApplication>

extern "C" Q_DECL_EXPORT ChartPainter* QuorelCreatePainter()
{
    return new PlotPainter;
}

extern "C" Q_DECL_EXPORT QCoreApplication* QuorelCreateApplication(int& argc, char** argv)
{
    return new QApplication(argc, argv);
}
