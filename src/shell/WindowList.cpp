#include "shell/WindowList.h"

#include "framework/window/TestWindow.h"
#include "shell/MdiArrangement.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{
/// Marks the entries of a menu that stand for open windows.
constexpr const char* kWindowEntry = "windowEntry";
} // namespace

WindowList::WindowList(QMdiArea* area, std::function<bool()> mayLeave)
    : QObject(area), m_area(area), m_mayLeave(std::move(mayLeave))
{
}

void WindowList::SetMenu(QMenu* menu)
{
    disconnect(m_connection);
    m_connection = connect(menu, &QMenu::aboutToShow, this, [this, menu] { Fill(menu); });
}

void WindowList::Fill(QMenu* menu)
{
    for (QAction* action : menu->actions()) {
        if (action->property(kWindowEntry).toBool())
            delete action;
    }
    const QList<QMdiSubWindow*> windows = m_area->subWindowList();
    if (!windows.isEmpty())
        menu->addSeparator()->setProperty(kWindowEntry, true);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        auto* test = qobject_cast<TestWindow*>(windows[i]->widget());
        QString title = test != nullptr ? test->Document().Title() : windows[i]->windowTitle();
        QAction* action =
            menu->addAction(u"&%1 %2"_s.arg(QString::number(i + 1), title.replace(u'&', u"&&"_s)));
        action->setProperty(kWindowEntry, true);
        action->setCheckable(true);
        action->setChecked(windows[i] == m_area->currentSubWindow());
        connect(action, &QAction::triggered, windows[i], [this, window = windows[i]] {
            if (m_mayLeave())
                ActivateWindow(window);
        });
    }
}
