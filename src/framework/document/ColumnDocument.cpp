#include "framework/document/ColumnDocument.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ColumnDocument::ColumnDocument(QAnyStringView key, const DocumentContext& context, int minimum,
                               const QString& defaultCount)
    : TestDocument(key, context), m_nDet{.control = kNDet, .minimum = minimum, .fallback = defaultCount}
{
}

void ColumnDocument::ResizeGrid()
{
    DataGrid& grid = Grid();
    const DataGrid::Redraw redraw(grid);
    grid.SetSize(Count(), 1);
    grid.SetColumnHeader(0, u"Risultati"_s);
    grid.FillEmptyWithZero();
}

void ColumnDocument::ResetSizes()
{
    SetControlText(kNDet, m_nDet.fallback);
    Grid().SetSize(Count(), 1);
}

std::vector<double> ColumnDocument::Results() const
{
    std::vector<double> values(static_cast<std::size_t>(std::max<int>(0, Count())));
    for (std::size_t row = 0; row < values.size(); ++row)
        values[row] = Grid().TextNumber(static_cast<int>(row), 0);
    return values;
}

void ColumnDocument::ReadResults(DataFileReader& reader, const QString& count)
{
    Grid().SetSize(CountIn(count), 1);
    for (int row = 0; row < Grid().Rows(); ++row)
        ReadRow(reader, Grid(), row, kFieldsInRow);
}
