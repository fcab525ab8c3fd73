#include "framework/document/ColumnDocument.h"

#include "framework/document/DocumentContext.h"
#include "framework/document/DocumentShape.h"
#include "framework/document/GridRows.h"
#include "framework/files/DataFileReader.h"
#include "framework/grid/DataGrid.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kFieldsInRow = 2;
} // namespace

ColumnDocument::ColumnDocument(const DocumentShape& shape, const DocumentContext& context)
    : TestDocument(shape, context)
{
}

void ColumnDocument::ResizeGrid()
{
    DataGrid& grid = Grid();
    const DataGrid::Redraw redraw(grid);
    grid.SetSize(Count(kNDet), 1);
    grid.SetColumnHeader(0, u"Risultati"_s);
    grid.FillEmptyWithZero();
}

void ColumnDocument::ResetOwn()
{
    Grid().SetSize(Count(kNDet), 1);
}

void ColumnDocument::ReadBody(DataFileReader& reader, int /*fieldCount*/)
{
    Grid().SetSize(Count(kNDet), 1);
    ReadRows(reader, Grid(), kFieldsInRow);
}

std::vector<double> ColumnDocument::Results() const
{
    std::vector<double> values(static_cast<std::size_t>(std::max<int>(0, Count(kNDet))));
    for (std::size_t row = 0; row < values.size(); ++row)
        values[row] = Grid().TextNumber(static_cast<int>(row), 0);
    return values;
}
