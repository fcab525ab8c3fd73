// What the user did to a grid, to be taken back and done again.
#pragma once

#include "framework/grid/GridCells.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// One cell's change, from 0. Nothing stands for an empty cell.
struct CellChange {
    int row = 0;
    int col = 0;
    std::optional<double> before;
    std::optional<double> after;
};

/// One column header's change.
struct HeaderChange {
    int col = 0;
    QString before;
    QString after;
};

/// Another size: all that the grid held, and all that it held then.
struct SizeChange {
    GridCells before;
    GridCells after;
};

/// One action of the user: all that a typing, a paste, a clearing, a drag or a new size changed.
using GridStep = std::variant<std::vector<CellChange>, std::vector<HeaderChange>, SizeChange>;

class GridHistory
{
public:
    /// Ends the chance to do again what was taken back.
    /// The step where it stands now, valid until the next call.
    const GridStep& Add(GridStep step);
    void Clear();

    /// The step to take back or to do again, or null. Valid until the next call.
    const GridStep* Undo();
    const GridStep* Redo();

private:
    std::vector<GridStep> m_steps;
    std::size_t m_done = 0; ///< so many of them hold; the others were taken back
    std::size_t m_weight = 0;
};
