// What the user did to a grid's cells, to be taken back and done again.
#pragma once

#include <optional>
#include <vector>

/// One cell's change, from 0. Nothing stands for an empty cell.
struct CellChange {
    int row = 0;
    int col = 0;
    std::optional<double> before;
    std::optional<double> after;
};

/// One action of the user: all that a typing, a paste, a clearing or a drag changed.
using GridAction = std::vector<CellChange>;

class GridHistory
{
public:
    /// Ends the chance to do again what was taken back.
    void Add(GridAction action);
    void Clear();

    /// The action to take back or to do again, or null. Valid until the next call.
    const GridAction* Undo();
    const GridAction* Redo();

private:
    std::vector<GridAction> m_actions;
    std::size_t m_done = 0; ///< so many of them hold; the others were taken back
    std::size_t m_changes = 0;
};
