#include "framework/grid/DataGrid.h"

#include "framework/grid/GridCells.h"
#include "framework/text/NumberText.h"
#include "stats/RuntimeFailure.h"

#include <algorithm>
#include <cmath>
#include <utility>

DataGrid::Redraw::Redraw(DataGrid& grid) : m_grid(grid)
{
    if (m_grid.m_redrawOff++ == 0)
        m_grid.beginResetModel();
}

DataGrid::Redraw::~Redraw()
{
    if (--m_grid.m_redrawOff == 0)
        m_grid.endResetModel();
}

DataGrid::DataGrid(const QString& decSep, QObject* parent)
    : QAbstractTableModel(parent),
      m_ownHistory(std::make_unique<History>()),
      m_format(decSep),
      m_edits(m_cells, m_format, *this, *m_ownHistory)
{
}

DataGrid::DataGrid(const QString& decSep, History& history, QObject* parent)
    : QAbstractTableModel(parent), m_format(decSep), m_edits(m_cells, m_format, *this, history)
{
}

void DataGrid::SetSize(int rows, int cols)
{
    if (rows == Rows() && cols == Cols())
        return;
    GridCells resized = m_cells.Resized(rows, cols);
    const Redraw redraw(*this);
    m_cells = std::move(resized);
}

void DataGrid::SetCells(const GridCells& cells)
{
    const Redraw redraw(*this);
    m_cells = cells;
}

void DataGrid::SetDigits(Digits digits)
{
    const Redraw redraw(*this);
    m_format.SetDigits(digits);
}

void DataGrid::SetGrouped(bool grouped)
{
    const Redraw redraw(*this);
    m_format.SetGrouped(grouped);
}

void DataGrid::SetValue(int row, int col, std::optional<double> value)
{
    m_cells.SetValue(row, col, value);
    TellViews({.row = row, .col = col});
}

std::optional<double> DataGrid::TextValue(int row, int col) const
{
    const auto value = Value(row, col);
    return value ? std::optional(RoundToDecimals(*value, GetDigits().decimali)) : std::nullopt;
}

double DataGrid::TextNumber(int row, int col) const
{
    const auto value = TextValue(row, col);
    if (!value)
        throw RuntimeFailure(FailureKind::TypeMismatch);
    return *value;
}

void DataGrid::Clear()
{
    const Redraw redraw(*this);
    std::ranges::fill(m_cells.values, GridCells::kEmpty);
}

void DataGrid::FillEmptyWithZero()
{
    const Redraw redraw(*this);
    std::ranges::replace_if(
        m_cells.values, [](double value) { return std::isnan(value); }, 0.0);
}

void DataGrid::SetColumnHeader(int col, const QString& text)
{
    m_cells.headers[col] = text;
    if (m_redrawOff == 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
}

void DataGrid::SetLocked(int row, int col, bool locked)
{
    m_cells.locked[m_cells.Place(row, col)] = locked;
    TellViews({.row = row, .col = col});
}

void DataGrid::UnlockAll()
{
    const Redraw redraw(*this);
    std::fill(m_cells.locked.begin(), m_cells.locked.end(), false);
}

void DataGrid::AfterStep(const GridChange& change)
{
    if (change.part == GridChange::Part::Cells)
        TellViews(change.block);
    else if (m_redrawOff == 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, change.block.col, change.block.col + change.block.cols - 1);
    Q_EMIT Edited(change);
}

void DataGrid::TellViews(const GridBlock& block)
{
    if (m_redrawOff == 0)
        Q_EMIT dataChanged(index(block.row, block.col),
                           index(block.row + block.rows - 1, block.col + block.cols - 1));
}

int DataGrid::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Rows();
}

int DataGrid::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Cols();
}

QVariant DataGrid::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_format.ShownText(Value(index.row(), index.column()));
    case Qt::EditRole:
        return Text(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case NumberRole: {
        const auto value = Value(index.row(), index.column());
        return value ? QVariant(*value) : QVariant();
    }
    default:
        return {};
    }
}

QVariant DataGrid::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical)
        return QString::number(section + 1);
    return m_cells.headers.value(section);
}

Qt::ItemFlags DataGrid::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    const bool editable = index.isValid() && !IsLocked(index.row(), index.column());
    return editable ? base | Qt::ItemIsEditable : base;
}

bool DataGrid::setData(const QModelIndex& index, const QVariant& value, int role)
{
    return index.isValid() && role == Qt::EditRole &&
           m_edits.TypeText(index.row(), index.column(), value.toString());
}
