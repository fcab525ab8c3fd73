#include "framework/document/GridRows.h"

#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/grid/DataGrid.h"
#include "framework/text/TextNumber.h"

#include <QByteArrayView>

#include <cstddef>
#include <optional>
#include <vector>

namespace
{

std::optional<double> CellOf(QByteArrayView field)
{
    while (field.endsWith(' '))
        field.chop(1);
    return field == "NIL" ? std::nullopt : std::optional(PointTextToDouble(field));
}

} // namespace

void ReadRows(DataFileReader& reader, DataGrid& grid, int fieldCount)
{
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int field = 0; field < fieldCount; ++field) {
            const QByteArrayView text = reader.ReadField();
            const int col = field - 1;
            if (col >= 0 && col < grid.Cols())
                grid.SetValue(row, col, CellOf(text));
        }
    }
}

void WriteRows(DataFileWriter& writer, const DataGrid& grid, int decimals)
{
    std::vector<std::optional<double>> values(static_cast<std::size_t>(grid.Cols()));
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col)
            values[static_cast<std::size_t>(col)] = grid.TextValue(row, col);
        writer.WriteRow(row + 1, values, decimals);
    }
}
