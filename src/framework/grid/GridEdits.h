// What the user does to a grid, step by step, and back again. Knows no view.
#pragma once

#include "framework/grid/CellFormat.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/GridHistory.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What a step changed: cells, all of them inside the block; the headers of the block's columns; or the size,
/// and with it all of the grid.
struct GridChange {
    enum class Part { Cells, Headers, Size };
    Part part = Part::Cells;
    GridBlock block;
    friend bool operator==(const GridChange&, const GridChange&) = default;
};

/// How many cells of a paste were taken, refused by their cells, and lay outside the grid.
struct PasteCount {
    int taken = 0;
    int refused = 0;
    int outside = 0;
    friend bool operator==(const PasteCount&, const PasteCount&) = default;
};

/// Is told of each step, also of one that is taken back or done again.
class GridWatcher
{
public:
    virtual ~GridWatcher() = default;
    virtual void BeforeStep(GridChange::Part part) = 0;
    virtual void AfterStep(const GridChange& change) = 0;
};

/// Each routine that changes something is one step of the history, and marks the grid as changed. Locked
/// cells stay as they are.
class GridEdits
{
public:
    /// The cells and their format, which the program fills and the user edits. All outlive this object.
    GridEdits(GridCells& cells, const CellFormat& format, GridWatcher& watcher);

    /// True once the user has changed something; the program sets it false.
    bool ChangeMade() const { return m_changeMade; }
    void SetChangeMade(bool made) { m_changeMade = made; }

    /// A text typed into a cell: an empty one empties it. False, and the cell as it was, when it is not
    /// accepted.
    bool TypeText(int row, int col, const QString& text);
    void ClearBlock(const GridBlock& block);
    /// The cells' texts, as MakeTabText puts them.
    QString BlockText(const GridBlock& block) const;
    /// Fills the cells from this one on, to the right and down, as far as the grid goes. Cells keep what they
    /// had where the text for them is not accepted; an empty text empties its cell.
    PasteCount PasteText(int row, int col, const QString& text);
    /// Whether a cell holds a number in the place where a block would go, its own cells apart.
    bool Overwrites(const GridBlock& from, int row, int col) const;
    /// Puts the numbers of a block to another place; where it is no copy, the cells that they leave become
    /// empty.
    void MoveBlock(const GridBlock& from, int row, int col, bool copy);

    // Headers that are data: numbers, shown and limited as the cells are.
    bool HeadersEditable() const { return m_headersEditable; }
    void SetHeadersEditable(bool editable) { m_headersEditable = editable; }
    /// As TypeText.
    bool TypeHeader(int col, const QString& text);
    /// The first row of a pasted text, from this column on; or its first column, where it is no more than
    /// that.
    PasteCount PasteHeaders(int col, const QString& text);

    /// Another size, with what the grid shall hold then.
    void ChangeSize(GridCells after);

    /// What was changed back, or again; nothing when there is nothing to do.
    std::optional<GridChange> Undo();
    std::optional<GridChange> Redo();
    void ForgetHistory() { m_history.Clear(); }

private:
    using CellChanges = std::vector<CellChange>;
    using HeaderChanges = std::vector<HeaderChange>;

    void Add(CellChanges& step, int row, int col, std::optional<double> value) const;
    void Add(HeaderChanges& step, int col, const QString& text) const;
    void Do(GridStep step);
    std::optional<GridChange> Apply(const GridStep* step, bool forward);
    std::optional<GridBlock> ApplyCells(const CellChanges& step, bool forward);
    std::optional<GridBlock> ApplyHeaders(const HeaderChanges& step, bool forward);

    GridCells& m_cells;
    const CellFormat& m_format;
    GridWatcher& m_watcher;
    GridHistory m_history;
    bool m_changeMade = false;
    bool m_headersEditable = false;
};
