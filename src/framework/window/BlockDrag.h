// Dragging a grid's selected block by its border to another place.
#pragma once

#include "framework/grid/DataGrid.h"
#include "framework/grid/GridCells.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <optional>

class GridView;
class QRubberBand;

/// Watches the view's mouse. Over the border of the selected block the pointer becomes a cross; a drag from
/// there shows where the block would go, always inside the grid, and Esc gives it up.
class BlockDrag : public QObject
{
    Q_OBJECT

public:
    explicit BlockDrag(GridView* view);

Q_SIGNALS:
    void Dropped(const GridBlock& from, int row, int col);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QRect RectOf(const GridBlock& block) const;
    bool OnBorder(const QPoint& at) const;
    bool Press(const QPoint& at);
    bool Move(const QPoint& at);
    bool Release();
    void End();

    GridView* m_view;
    QRubberBand* m_ghost;
    std::optional<GridBlock> m_from; ///< while dragging
    QPoint m_grip;                   ///< the cell of the block that was taken, as column and row inside it
    QPoint m_to;                     ///< where the block would go, as column and row
    bool m_cross = false;
};
