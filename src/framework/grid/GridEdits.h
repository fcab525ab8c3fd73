// What the user does to a grid, step by step, and back again. Knows no view.
#pragma once

#include "framework/grid/CellFormat.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/History.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
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

/// What a step changed: cells, all of them inside the block, or the headers of the block's columns.
struct GridChange {
    enum class Part { Cells, Headers };
    Part part = Part::Cells;
    GridBlock block;
    bool again = false; ///< the step was taken back, or done again
    friend bool operator==(const GridChange&, const GridChange&) = default;
};

/// What became of the texts of a paste.
struct PasteCount {
    int taken = 0;
    int refused = 0; ///< no number, or one beyond the limits
    int outside = 0; ///< no cell to be changed stands there
    int rounded = 0; ///< of those taken: the cell shows another number than the text
    /// The first that was refused, at its cell.
    struct Text {
        int row = 0;
        int col = 0;
        QString text;
        friend bool operator==(const Text&, const Text&) = default;
    };
    std::optional<Text> firstRefused = {};
    GridBlock block = {}; ///< all that was pasted, where it went, also beyond the grid
    bool changed = false; ///< it was a step
    bool headed = false;  ///< the first row holds texts alone, and more rows follow
    friend bool operator==(const PasteCount&, const PasteCount&) = default;

    /// All of it was taken as it stood.
    bool Plain() const { return refused + outside + rounded == 0; }
};

/// Is told of each step, also of one that is taken back or done again.
class GridWatcher
{
public:
    virtual ~GridWatcher() = default;
    virtual void AfterStep(const GridChange& change) = 0;
};

/// Each routine that changes something is one step of the history, and marks the grid as changed. Locked
/// cells stay as they are.
class GridEdits
{
public:
    /// The cells and their format, which the program fills and the user edits. All outlive this object.
    GridEdits(GridCells& cells, const CellFormat& format, GridWatcher& watcher, History& history);

    /// Where the steps stand, with those of others.
    History& Steps() { return m_history; }

    /// True once the user has changed something; the program sets it false.
    bool ChangeMade() const { return m_changeMade; }
    void SetChangeMade(bool made) { m_changeMade = made; }

    /// Whether a cell takes a typed text: one that is accepted, or that of the cell as it is shown.
    bool Takes(int row, int col, const QString& text) const;
    /// A text typed into a cell: an empty one empties it. False, and the cell as it was, when it does not
    /// take it.
    bool TypeText(int row, int col, const QString& text);
    void ClearBlock(const GridBlock& block);
    /// The cells' texts, as MakeTabText puts them.
    QString BlockText(const GridBlock& block) const;
    /// Fills the cells from this one on, to the right and down, as far as the grid goes. Cells keep what they
    /// had where the text for them is not accepted; an empty text empties its cell. A row of texts goes down
    /// a grid of one column.
    PasteCount PasteText(int row, int col, const QString& text);
    /// Whether a cell holds a number in the place where a block would go, its own cells apart.
    bool Overwrites(const GridBlock& from, int row, int col) const;
    /// Puts the numbers of a block to another place; where it is no copy, the cells that they leave become
    /// empty.
    void MoveBlock(const GridBlock& from, int row, int col, bool copy);

    /// Headers that are data, from the first column on, as they are; the user typed them elsewhere.
    void SetHeaders(const QStringList& texts);

private:
    using CellChanges = std::vector<CellChange>;
    using HeaderChanges = std::vector<HeaderChange>;

    QList<QStringList> Turned(const QList<QStringList>& rows) const;
    void Add(CellChanges& step, int row, int col, std::optional<double> value) const;
    /// A text that its cell takes: a number, or nothing for a blank one.
    struct TakenText {
        std::optional<double> number;
    };
    std::optional<TakenText> Take(PasteCount& count, const QString& text, int row, int col, bool free) const;
    template<typename Changes>
    void Do(Changes step);
    std::optional<GridChange> Apply(const CellChanges& step, bool forward);
    std::optional<GridChange> Apply(const HeaderChanges& step, bool forward);

    GridCells& m_cells;
    const CellFormat& m_format;
    GridWatcher& m_watcher;
    History& m_history;
    bool m_changeMade = false;
};
