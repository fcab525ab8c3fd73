// The program itself, up to its painted frame.
#include "FirstPaint.h"

#include "shell/Program.h"

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Program program;
    if (!program.Start())
        return 1;
    new FirstPaint(program.Window().findChild<QMdiArea*>());
    return QApplication::exec();
}
