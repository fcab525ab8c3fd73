// The grid of measured values: the model behind every data grid, without a view.
#pragma once

#include "framework/grid/GridHistory.h"
#include "framework/text/NumberText.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <optional>
#include <vector>

/// A rectangle of cells; the first row and column are 0.
struct GridBlock {
    int row = 0;
    int col = 0;
    int rows = 1;
    int cols = 1;
    friend bool operator==(const GridBlock&, const GridBlock&) = default;
};

/// How many cells of a paste were taken, refused by their cells, and lay outside the grid.
struct PasteCount {
    int taken = 0;
    int refused = 0;
    int outside = 0;
    friend bool operator==(const PasteCount&, const PasteCount&) = default;
};

/// Rows by columns of cells, each holding a number or nothing, indexed from 0. A cell's text is its number at
/// the grid's decimals; calculations that read text see the rounded number. What the user types must lie
/// between 0 and the all-nines number of the grid's digits; what a file holds is taken as it comes.
class DataGrid : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Of a cell's number as a double, or an invalid QVariant for an empty cell.
    static constexpr int NumberRole = Qt::UserRole;

    static constexpr int kMostCells = 1 << 20;

    /// decSep: the decimal separator of the shown texts.
    explicit DataGrid(QString decSep, QObject* parent = nullptr);

    int Rows() const { return m_rows; }
    int Cols() const { return static_cast<int>(m_columnHeaders.size()); }
    /// Cells inside both sizes stay; new ones are empty, new columns have no header.
    /// Fails: InvalidArgument for a negative size, Overflow above kMostCells.
    void SetSize(int rows, int cols);

    const Digits& GetDigits() const { return m_digits; }
    /// interi at least 1, decimali at least 0.
    void SetDigits(Digits digits);
    /// The largest number that can be typed: as many nines as the digits allow, as text.
    QString LargestText() const;

    std::optional<double> Value(int row, int col) const;
    void SetValue(int row, int col, std::optional<double> value);
    QString Text(int row, int col) const;
    /// The number that the cell's text reads back to.
    std::optional<double> TextValue(int row, int col) const;
    /// The same for a calculation that can't go on without it. Fails with TypeMismatch for an empty cell and
    /// for one outside the grid.
    double TextNumber(int row, int col) const;

    /// Empties all cells, and forgets what the user did to them.
    void Clear();
    /// Puts 0 into every empty cell.
    void FillEmptyWithZero();

    void SetColumnHeader(int col, const QString& text);

    /// True once the user has changed a cell; the program sets it false.
    bool ChangeMade() const { return m_changeMade; }
    void SetChangeMade(bool made) { m_changeMade = made; }

    /// Whether a typed text is empty or a number within the limits.
    bool Accepts(const QString& text) const;
    // What the user does. Each is one step of the history, marks the grid as changed and is told by Edited;
    // locked cells stay as they are.

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
    /// The block that was changed back, or again; nothing when there is nothing to do.
    std::optional<GridBlock> Undo();
    std::optional<GridBlock> Redo();

    /// Cells that the user can't change.
    bool IsLocked(int row, int col) const;
    void SetLocked(int row, int col, bool locked);
    void UnlockAll();

    /// While it lives, the views are told nothing; at its end they take the grid anew.
    class Redraw
    {
    public:
        explicit Redraw(DataGrid& grid);
        ~Redraw();
        Q_DISABLE_COPY_MOVE(Redraw)

    private:
        DataGrid& m_grid;
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// The user changed cells, all of them inside this block.
    void Edited(const GridBlock& block);
    void DigitsChanged();

private:
    bool Holds(int row, int col) const;
    std::size_t Place(int row, int col) const;
    void TellViews(const GridBlock& block);
    std::optional<double> Number(const QString& text) const;
    static void Add(GridAction& action, const DataGrid& grid, int row, int col, std::optional<double> value);
    void Change(GridAction action);
    std::optional<GridBlock> Apply(const GridAction* action, std::optional<double> CellChange::*side);

    int m_rows = 0;
    std::vector<double> m_cells; ///< row by row; an empty cell is NaN
    QStringList m_columnHeaders;
    Digits m_digits;
    double m_largest = 9;
    QString m_decSep;
    bool m_changeMade = false;
    std::vector<bool> m_locked; ///< row by row
    GridHistory m_history;
    int m_redrawOff = 0;
};
