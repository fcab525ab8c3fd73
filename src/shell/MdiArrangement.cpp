#include "shell/MdiArrangement.h"

#include <QStyle>

namespace
{

QList<QMdiSubWindow*> Windows(const QMdiArea& area, bool minimized,
                              QMdiArea::WindowOrder order = QMdiArea::CreationOrder)
{
    QList<QMdiSubWindow*> windows = area.subWindowList(order);
    erase_if(windows,
             [minimized](const QMdiSubWindow* window) { return window->isMinimized() != minimized; });
    return windows;
}

/// Each a title bar below the one behind it, the active one in front of all.
void Cascade(const QMdiArea& area)
{
    const QStyle* style = area.style();
    const int step =
        style->pixelMetric(QStyle::PM_TitleBarHeight) + style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    QPoint at;
    for (QMdiSubWindow* window : Windows(area, false, QMdiArea::StackingOrder)) {
        window->showNormal();
        const QSize room = area.viewport()->size() - QSize(at.x(), at.y());
        window->setGeometry(QRect(at, window->sizeHint().boundedTo(room)));
        window->raise();
        at += QPoint(step, step);
    }
}

void Tile(const QMdiArea& area, Qt::Orientation along)
{
    const QList<QMdiSubWindow*> windows = Windows(area, false);
    const QList<QMdiSubWindow*> icons = Windows(area, true);
    QRect room = area.viewport()->rect();
    if (!icons.isEmpty())
        room.setBottom(room.bottom() - icons.front()->height());
    const int count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        if (along == Qt::Vertical)
            windows[i]->setGeometry(room.left(), room.top() + room.height() * i / count, room.width(),
                                    room.height() / count);
        else
            windows[i]->setGeometry(room.left() + room.width() * i / count, room.top(), room.width() / count,
                                    room.height());
    }
}

/// Minimized windows go into rows from the lower left corner up.
void PlaceIcons(const QMdiArea& area)
{
    const QRect room = area.viewport()->rect();
    QPoint at = room.bottomLeft();
    for (QMdiSubWindow* icon : Windows(area, true)) {
        if (at.x() > room.left() && at.x() + icon->width() > room.right())
            at = QPoint(room.left(), at.y() - icon->height());
        icon->move(at.x(), at.y() + 1 - icon->height());
        at.rx() += icon->width();
    }
}

} // namespace

void ActivateWindow(QMdiSubWindow* window)
{
    window->mdiArea()->setActiveSubWindow(window);
    if (window->isMinimized())
        window->showNormal();
}

void ArrangeWindows(QMdiArea& area, Arrangement arrangement)
{
    switch (arrangement) {
    case Arrangement::Cascade:
        Cascade(area);
        break;
    case Arrangement::TileHorizontally:
        Tile(area, Qt::Vertical); // each as wide as the area, one below the other
        break;
    case Arrangement::TileVertically:
        Tile(area, Qt::Horizontal);
        break;
    case Arrangement::Icons:
        PlaceIcons(area);
        break;
    }
}
