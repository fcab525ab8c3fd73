// The least that a window of many documents does.
#include "FirstPaint.h"

#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto* area = new QMdiArea;
    window.setCentralWidget(area);
    window.resize(1100, 780);
    new FirstPaint(area);
    window.show();
    return QApplication::exec();
}
