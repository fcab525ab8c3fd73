// The open windows at the end of a menu Finestre: an entry each, the active one marked.
#pragma once

#include <QMdiArea>
#include <QMenu>

class WindowList : public QObject
{
    Q_OBJECT

public:
    /// The windows are those of area, which owns the list.
    explicit WindowList(QMdiArea* area);

    /// The menu that has the list from now on, below its own items; made anew each time the menu opens.
    void SetMenu(QMenu* menu);

private:
    void Fill(QMenu* menu);

    QMdiArea* m_area;
    QMetaObject::Connection m_connection; ///< with the menu
};
