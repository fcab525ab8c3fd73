// quorel: the desktop program.
#include "framework/Database.h"
#include "framework/TextFunctions.h"
#include "framework/window/FileDialog.h"
#include "framework/window/MessageBoxes.h"
#include "shell/MainWindow.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QTranslator>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"quorel"_s);
    QTranslator translator;
    if (translator.load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);

    Define define;
    define.DecSep = GetDecSep();
    define.OpenSaveFolder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    define.DbFile = QApplication::applicationDirPath() + u"/DB/QUOREL73.MDB"_s;
    FileDialog dialog;
    MessageBoxes messages;
    DatabaseFTable fTable(define.DbFile);
    MainWindow window({define, dialog, messages, fTable});
    dialog.SetParent(&window);
    messages.SetParent(&window);
    window.show();
    return QApplication::exec();
}
