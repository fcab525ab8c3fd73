// The program as one object: global values, what the documents need around them, and the frame.
#pragma once

#include "framework/document/Define.h"
#include "framework/files/Database.h"
#include "framework/window/FileDialog.h"
#include "framework/window/MessageBoxes.h"
#include "shell/MainWindow.h"

#include <QTranslator>

#include <memory>

/// Lives as long as the application object does.
class Program
{
public:
    Program();
    ~Program();
    Q_DISABLE_COPY_MOVE(Program)

    /// Sets the global values, finds the folders and shows the frame. False when the program can't work; what
    /// is wrong has been said then.
    [[nodiscard]] bool Start();

    MainWindow& Window() { return *m_window; }

private:
    QTranslator m_translator;
    Define m_define;
    FileDialog m_dialog{m_define};
    MessageBoxes m_messages;
    std::unique_ptr<DatabaseFTable> m_fTable;
    std::unique_ptr<MainWindow> m_window;
};
