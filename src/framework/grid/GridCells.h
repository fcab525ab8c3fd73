// What a grid holds: sizes, numbers, locks and headers. Plain data, without a view.
#pragma once

#include <QStringList>

#include <cstddef>
#include <limits>
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

/// Rows by columns, indexed from 0.
struct GridCells {
    static constexpr int kMostCells = 1 << 20;
    static constexpr double kEmpty = std::numeric_limits<double>::quiet_NaN();

    int rows = 0;
    QStringList headers;        ///< one a column
    std::vector<double> values; ///< row by row; an empty cell is kEmpty
    std::vector<bool> locked;   ///< row by row: cells that the user can't change

    /// Empty cells are alike.
    friend bool operator==(const GridCells& a, const GridCells& b);

    int Cols() const { return static_cast<int>(headers.size()); }
    bool Holds(int row, int col) const { return row >= 0 && row < rows && col >= 0 && col < Cols(); }
    /// Where the cell stands in values and locked.
    std::size_t Place(int row, int col) const;
    /// Nothing for an empty cell and for one outside the grid.
    std::optional<double> Value(int row, int col) const;
    void SetValue(int row, int col, std::optional<double> value);

    /// The same in another size: cells inside both sizes stay; new ones are empty, new columns have no
    /// header. Fails: InvalidArgument for a negative size, Overflow above kMostCells.
    GridCells Resized(int newRows, int newCols) const;
};
