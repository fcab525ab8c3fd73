#include "framework/grid/GridCells.h"

#include "stats/RuntimeFailure.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

std::size_t GridCells::Place(int row, int col) const
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(Cols()) + static_cast<std::size_t>(col);
}

std::optional<double> GridCells::Value(int row, int col) const
{
    const double value = Holds(row, col) ? values[Place(row, col)] : kEmpty;
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

void GridCells::SetValue(int row, int col, std::optional<double> value)
{
    values[Place(row, col)] = value.value_or(kEmpty);
}

GridCells GridCells::Resized(int newRows, int newCols) const
{
    if (newRows < 0 || newCols < 0)
        throw RuntimeFailure(FailureKind::InvalidArgument);
    if (static_cast<qint64>(newRows) * newCols > kMostCells)
        throw RuntimeFailure(FailureKind::Overflow);
    GridCells resized{.rows = newRows, .headers = headers, .values = {}, .locked = {}};
    resized.headers.resize(newCols);
    const std::size_t count = static_cast<std::size_t>(newRows) * static_cast<std::size_t>(newCols);
    resized.values.assign(count, kEmpty);
    resized.locked.assign(count, false);
    for (int row = 0; row < std::min(rows, newRows); ++row) {
        for (int col = 0; col < std::min(Cols(), newCols); ++col) {
            resized.values[resized.Place(row, col)] = values[Place(row, col)];
            resized.locked[resized.Place(row, col)] = locked[Place(row, col)];
        }
    }
    return resized;
}

bool operator==(const GridCells& a, const GridCells& b)
{
    const auto same = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
    return a.rows == b.rows && a.headers == b.headers && a.locked == b.locked &&
           std::ranges::equal(a.values, b.values, same);
}
