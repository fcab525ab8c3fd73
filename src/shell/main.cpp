// quorel: the desktop program.
#include "shell/Program.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Program program;
    return program.Start() ? QApplication::exec() : 1;
}
