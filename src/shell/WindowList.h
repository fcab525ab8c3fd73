// The open windows at the end of a menu Finestre: an entry each, the active one marked.
#pragma once

#include <QMdiArea>
#include <QMenu>

#include <functional>

class WindowList : public QObject
{
    Q_OBJECT

public:
    /// The windows are those of area, which owns the list. mayLeave: whether the window in front may give
    /// way.
    WindowList(QMdiArea* area, std::function<bool()> mayLeave);

    /// The menu that has the list from now on, below its own items; made anew each time the menu opens.
    void SetMenu(QMenu* menu);

private:
    void Fill(QMenu* menu);

    QMdiArea* m_area;
    std::function<bool()> m_mayLeave;
    QMetaObject::Connection m_connection; ///< with the menu
};
