#include "framework/window/BlockDrag.h"

#include "framework/grid/GridCells.h"
#include "framework/window/GridView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QRubberBand>

#include <algorithm>
#include <utility>

namespace
{
constexpr int kBorder = 4;
} // namespace

BlockDrag::BlockDrag(GridView* view)
    : QObject(view), m_view(view), m_ghost(new QRubberBand(QRubberBand::Rectangle, view->viewport()))
{
    view->viewport()->setMouseTracking(true);
    view->viewport()->installEventFilter(this);
    view->installEventFilter(this);
}

QRect BlockDrag::RectOf(const GridBlock& block) const
{
    const QAbstractItemModel* model = m_view->model();
    const QRect first = m_view->visualRect(model->index(block.row, block.col));
    const QRect last =
        m_view->visualRect(model->index(block.row + block.rows - 1, block.col + block.cols - 1));
    return first.united(last);
}

bool BlockDrag::OnBorder(const QPoint& at) const
{
    const auto block = m_view->Block();
    if (!block)
        return false;
    const QRect rect = RectOf(*block);
    const QRect outside = rect.adjusted(-kBorder / 2, -kBorder / 2, kBorder / 2, kBorder / 2);
    return outside.contains(at) && !rect.adjusted(kBorder, kBorder, -kBorder, -kBorder).contains(at);
}

bool BlockDrag::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && m_from &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        End();
        return true;
    }
    const bool mouseEvent = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove ||
                            event->type() == QEvent::MouseButtonRelease;
    if (!mouseEvent || object != m_view->viewport())
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::MouseMove)
        return Move(mouse->position().toPoint());
    if (mouse->button() != Qt::LeftButton)
        return false;
    if (event->type() == QEvent::MouseButtonRelease)
        return Release();
    return mouse->modifiers() == Qt::NoModifier && Press(mouse->position().toPoint());
}

bool BlockDrag::Press(const QPoint& at)
{
    if (!OnBorder(at))
        return false;
    m_from = m_view->Block();
    const int col = std::clamp(m_view->columnAt(at.x()), m_from->col, m_from->col + m_from->cols - 1);
    const int row = std::clamp(m_view->rowAt(at.y()), m_from->row, m_from->row + m_from->rows - 1);
    m_grip = QPoint(col - m_from->col, row - m_from->row);
    m_to = QPoint(m_from->col, m_from->row);
    return true;
}

bool BlockDrag::Move(const QPoint& at)
{
    if (!m_from) {
        const bool cross = OnBorder(at);
        if (std::exchange(m_cross, cross) != cross) {
            if (cross)
                m_view->viewport()->setCursor(Qt::SizeAllCursor);
            else
                m_view->viewport()->unsetCursor();
        }
        return false;
    }
    const QAbstractItemModel* model = m_view->model();
    const int col = m_view->columnAt(at.x());
    const int row = m_view->rowAt(at.y());
    if (col >= 0)
        m_to.setX(std::clamp(col - m_grip.x(), 0, model->columnCount() - m_from->cols));
    if (row >= 0)
        m_to.setY(std::clamp(row - m_grip.y(), 0, model->rowCount() - m_from->rows));
    GridBlock ghost = *m_from;
    ghost.row = m_to.y();
    ghost.col = m_to.x();
    m_view->scrollTo(model->index(row >= 0 ? row : ghost.row, col >= 0 ? col : ghost.col));
    m_ghost->setGeometry(RectOf(ghost));
    m_ghost->show();
    return true;
}

bool BlockDrag::Release()
{
    if (!m_from)
        return false;
    const GridBlock from = *m_from;
    const QPoint to = m_to;
    End();
    if (to != QPoint(from.col, from.row))
        Q_EMIT Dropped(from, to.y(), to.x());
    return true;
}

void BlockDrag::End()
{
    m_from.reset();
    m_ghost->hide();
}
