#include "shell/Program.h"

#include "framework/document/DocumentContext.h"
#include "framework/window/Furnishings.h"
#include "shell/StartUp.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QSettings>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace
{
const QString kFramePlace = u"frame/geometry"_s;
constexpr std::chrono::milliseconds kIconDelay{100};
} // namespace

Program::Program()
{
    QApplication::setOrganizationName(u"Quorel"_s);
    QApplication::setApplicationName(u"quorel"_s);
    // The texts that Qt itself shows are Italian, too, whatever the system's language.
    if (m_translator.load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&m_translator);
    FurnishProgram();
}

Program::~Program()
{
    if (m_window)
        QSettings().setValue(kFramePlace, m_window->saveGeometry());
}

bool Program::Start()
{
    InitGlobals(m_define, QApplication::applicationDirPath());
    if (!InitPaths(m_define, GetSpecialFolder(), m_messages))
        return false;
    m_fTable = std::make_unique<DatabaseFTable>(m_define.DbFile);
    m_window = std::make_unique<MainWindow>(DocumentContext{m_define, m_dialog, m_messages, *m_fTable});
    m_dialog.SetParent(m_window.get());
    m_messages.SetParent(m_window.get());
    m_window->restoreGeometry(QSettings().value(kFramePlace).toByteArray());
    m_window->show();
    // The picture needs a decoder, which the frame need not wait for: it comes once that is painted.
    QTimer::singleShot(kIconDelay, m_window.get(),
                       [this] { m_window->setWindowIcon(QIcon(u":/toolbar/Program.svg"_s)); });
    return true;
}
