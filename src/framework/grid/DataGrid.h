// The grid of measured values: the model behind every data grid, without a view.
#pragma once

#include "framework/grid/CellFormat.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/GridEdits.h"
#include "framework/grid/History.h"
#include "framework/text/NumberText.h"

#include <QAbstractTableModel>
#include <QString>

#include <memory>
#include <optional>

/// Rows by columns of cells, each holding a number or nothing, indexed from 0. A cell's text is its number at
/// the grid's decimals; calculations that read text see the rounded number. The program fills the grid here;
/// what the user does goes through Edits, and is told by Edited.
class DataGrid : public QAbstractTableModel, private GridWatcher
{
    Q_OBJECT

public:
    /// Of a cell's number as a double, or an invalid QVariant for an empty cell.
    static constexpr int NumberRole = Qt::UserRole;

    /// decSep: the decimal separator of the shown texts. The second one has a history in common with others,
    /// which outlives it.
    explicit DataGrid(const QString& decSep, QObject* parent = nullptr);
    DataGrid(const QString& decSep, History& history, QObject* parent = nullptr);

    GridEdits& Edits() { return m_edits; }
    const GridEdits& Edits() const { return m_edits; }
    const GridCells& Cells() const { return m_cells; }
    const CellFormat& Format() const { return m_format; }

    int Rows() const { return m_cells.rows; }
    int Cols() const { return m_cells.Cols(); }
    /// As GridCells::Resized.
    void SetSize(int rows, int cols);
    /// All that the grid holds.
    void SetCells(const GridCells& cells);

    const Digits& GetDigits() const { return m_format.GetDigits(); }
    /// As CellFormat::SetDigits.
    void SetDigits(Digits digits);
    /// As CellFormat::SetGrouped.
    void SetGrouped(bool grouped);

    std::optional<double> Value(int row, int col) const { return m_cells.Value(row, col); }
    void SetValue(int row, int col, std::optional<double> value);
    QString Text(int row, int col) const { return m_format.Text(Value(row, col)); }
    /// The number that the cell's text reads back to.
    std::optional<double> TextValue(int row, int col) const;
    /// The same for a calculation that can't go on without it. Fails with TypeMismatch for an empty cell and
    /// for one outside the grid.
    double TextNumber(int row, int col) const;

    /// Empties all cells.
    void Clear();
    /// Puts 0 into every empty cell.
    void FillEmptyWithZero();

    const QString& ColumnHeader(int col) const { return m_cells.headers[col]; }
    void SetColumnHeader(int col, const QString& text);

    /// Cells that the user can't change.
    bool IsLocked(int row, int col) const { return m_cells.locked[m_cells.Place(row, col)]; }
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
    /// The user changed something.
    void Edited(const GridChange& change);

private:
    void AfterStep(const GridChange& change) override;
    void TellViews(const GridBlock& block);

    std::unique_ptr<History> m_ownHistory; ///< null where there is a common one
    GridCells m_cells;
    CellFormat m_format;
    GridEdits m_edits;
    int m_redrawOff = 0;
};
