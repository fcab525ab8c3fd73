// The grid of measured values: the model behind every data grid, without a view.
#pragma once

#include "framework/NumberFormat.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <optional>
#include <vector>

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

    /// Empties all cells.
    void Clear();
    /// Puts 0 into every empty cell.
    void FillEmptyWithZero();

    void SetColumnHeader(int col, const QString& text);

    /// True once the user has changed a cell; the program sets it false.
    bool ChangeMade() const { return m_changeMade; }
    void SetChangeMade(bool made) { m_changeMade = made; }

    /// Whether a typed text is empty or a number within the limits.
    bool Accepts(const QString& text) const;
    /// What the user typed into a cell: an empty text empties it. False, and the cell as it was, for a text
    /// that is no number or a number beyond the limits.
    bool TypeText(int row, int col, const QString& text);

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
    /// The user changed a cell.
    void Edited(int row, int col);
    void DigitsChanged();

private:
    bool Holds(int row, int col) const;
    double& Cell(int row, int col);
    double Cell(int row, int col) const;
    void TellViews(int row, int col);

    int m_rows = 0;
    std::vector<double> m_cells; ///< row by row; an empty cell is NaN
    QStringList m_columnHeaders;
    Digits m_digits;
    double m_largest = 9;
    QString m_decSep;
    bool m_changeMade = false;
    int m_redrawOff = 0;
};
