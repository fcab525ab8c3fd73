#include "framework/grid/DataGrid.h"

#include "framework/grid/TabText.h"
#include "framework/text/TextNumber.h"
#include "stats/RuntimeFailure.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace
{

constexpr double kEmpty = std::numeric_limits<double>::quiet_NaN();

double LargestOf(const Digits& digits)
{
    // Beyond 15 digits the nines are those of the rounded power.
    const double power = std::pow(10.0, std::min(digits.interi, 300));
    return power - std::pow(10.0, -std::min(digits.decimali, 300));
}

} // namespace

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

DataGrid::DataGrid(QString decSep, QObject* parent) : QAbstractTableModel(parent), m_decSep(std::move(decSep))
{
}

bool DataGrid::Holds(int row, int col) const
{
    return row >= 0 && row < Rows() && col >= 0 && col < Cols();
}

std::size_t DataGrid::Place(int row, int col) const
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(Cols()) + static_cast<std::size_t>(col);
}

void DataGrid::SetSize(int rows, int cols)
{
    if (rows < 0 || cols < 0)
        throw RuntimeFailure(FailureKind::InvalidArgument);
    if (static_cast<qint64>(rows) * cols > kMostCells)
        throw RuntimeFailure(FailureKind::Overflow);
    if (rows == m_rows && cols == Cols())
        return;
    const Redraw redraw(*this);
    const auto newCols = static_cast<std::size_t>(cols);
    const std::size_t count = static_cast<std::size_t>(rows) * newCols;
    std::vector<double> cells(count, kEmpty);
    std::vector<bool> locked(count);
    for (int row = 0; row < std::min(rows, m_rows); ++row) {
        for (int col = 0; col < std::min(cols, Cols()); ++col) {
            const std::size_t place = static_cast<std::size_t>(row) * newCols + static_cast<std::size_t>(col);
            cells[place] = m_cells[Place(row, col)];
            locked[place] = m_locked[Place(row, col)];
        }
    }
    m_cells = std::move(cells);
    m_locked = std::move(locked);
    m_columnHeaders.resize(cols);
    m_rows = rows;
}

void DataGrid::SetDigits(Digits digits)
{
    const Redraw redraw(*this);
    m_digits = digits;
    m_largest = LargestOf(digits);
    Q_EMIT DigitsChanged();
}

QString DataGrid::LargestText() const
{
    const QString whole(m_digits.interi, u'9');
    return m_digits.decimali == 0 ? whole : whole + m_decSep + QString(m_digits.decimali, u'9');
}

std::optional<double> DataGrid::Value(int row, int col) const
{
    const double value = Holds(row, col) ? m_cells[Place(row, col)] : kEmpty;
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

void DataGrid::SetValue(int row, int col, std::optional<double> value)
{
    m_cells[Place(row, col)] = value.value_or(kEmpty);
    TellViews({.row = row, .col = col});
}

QString DataGrid::Text(int row, int col) const
{
    const auto value = Value(row, col);
    return value ? DecimalText(*value, m_digits.decimali, m_decSep) : QString();
}

std::optional<double> DataGrid::TextValue(int row, int col) const
{
    const auto value = Value(row, col);
    return value ? std::optional(RoundToDecimals(*value, m_digits.decimali)) : std::nullopt;
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
    std::ranges::fill(m_cells, kEmpty);
    m_history.Clear();
}

void DataGrid::FillEmptyWithZero()
{
    const Redraw redraw(*this);
    std::ranges::replace_if(
        m_cells, [](double value) { return std::isnan(value); }, 0.0);
}

void DataGrid::SetColumnHeader(int col, const QString& text)
{
    m_columnHeaders[col] = text;
    if (m_redrawOff == 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
}

bool DataGrid::IsLocked(int row, int col) const
{
    return m_locked[Place(row, col)];
}

void DataGrid::SetLocked(int row, int col, bool locked)
{
    m_locked[Place(row, col)] = locked;
    TellViews({.row = row, .col = col});
}

void DataGrid::UnlockAll()
{
    const Redraw redraw(*this);
    std::fill(m_locked.begin(), m_locked.end(), false);
}

bool DataGrid::Accepts(const QString& text) const
{
    return text.trimmed().isEmpty() || Number(text).has_value();
}

/// The number that a text stands for, where it is one within the limits.
std::optional<double> DataGrid::Number(const QString& text) const
{
    const auto value = TypedNumber(text);
    return value && *value >= 0 && *value <= m_largest ? value : std::nullopt;
}

/// Notes a cell's change, where it is one.
void DataGrid::Add(GridAction& action, const DataGrid& grid, int row, int col, std::optional<double> value)
{
    const auto before = grid.Value(row, col);
    if (before != value && !grid.IsLocked(row, col))
        action.push_back({.row = row, .col = col, .before = before, .after = value});
}

void DataGrid::Change(GridAction action)
{
    if (action.empty())
        return;
    Apply(&action, &CellChange::after);
    m_history.Add(std::move(action));
}

/// Gives the cells of an action their values of before or after. Cells that the grid has lost since are
/// passed over.
std::optional<GridBlock> DataGrid::Apply(const GridAction* action, std::optional<double> CellChange::*side)
{
    if (action == nullptr)
        return std::nullopt;
    int top = m_rows;
    int left = Cols();
    int bottom = -1;
    int right = -1;
    for (const CellChange& change : *action) {
        if (!Holds(change.row, change.col) || IsLocked(change.row, change.col))
            continue;
        m_cells[Place(change.row, change.col)] = (change.*side).value_or(kEmpty);
        top = std::min(top, change.row);
        left = std::min(left, change.col);
        bottom = std::max(bottom, change.row);
        right = std::max(right, change.col);
    }
    if (bottom < 0)
        return std::nullopt;
    const GridBlock block{.row = top, .col = left, .rows = bottom - top + 1, .cols = right - left + 1};
    m_changeMade = true;
    TellViews(block);
    Q_EMIT Edited(block);
    return block;
}

std::optional<GridBlock> DataGrid::Undo()
{
    return Apply(m_history.Undo(), &CellChange::before);
}

std::optional<GridBlock> DataGrid::Redo()
{
    return Apply(m_history.Redo(), &CellChange::after);
}

bool DataGrid::TypeText(int row, int col, const QString& text)
{
    if (!Holds(row, col) || IsLocked(row, col))
        return false;
    if (text == Text(row, col)) // left as it was shown: digits that the text doesn't show stay
        return true;
    if (!Accepts(text))
        return false;
    GridAction action;
    Add(action, *this, row, col, Number(text));
    Change(std::move(action));
    return true;
}

void DataGrid::ClearBlock(const GridBlock& block)
{
    GridAction action;
    for (int row = block.row; row < block.row + block.rows; ++row) {
        for (int col = block.col; col < block.col + block.cols; ++col)
            Add(action, *this, row, col, std::nullopt);
    }
    Change(std::move(action));
}

QString DataGrid::BlockText(const GridBlock& block) const
{
    QList<QStringList> rows;
    for (int row = block.row; row < block.row + block.rows; ++row) {
        QStringList cells;
        for (int col = block.col; col < block.col + block.cols; ++col)
            cells.append(Text(row, col));
        rows.append(cells);
    }
    return MakeTabText(rows);
}

PasteCount DataGrid::PasteText(int row, int col, const QString& text)
{
    PasteCount count;
    GridAction action;
    int at = row;
    for (const QStringList& cells : ParseTabText(text)) {
        int to = col;
        for (const QString& cell : cells) {
            if (!Holds(at, to)) {
                ++count.outside;
            } else if (IsLocked(at, to) || !Accepts(cell)) {
                ++count.refused;
            } else {
                ++count.taken;
                Add(action, *this, at, to, Number(cell));
            }
            ++to;
        }
        ++at;
    }
    Change(std::move(action));
    return count;
}

bool DataGrid::Overwrites(const GridBlock& from, int row, int col) const
{
    const auto inside = [&](int r, int c) {
        return r >= from.row && r < from.row + from.rows && c >= from.col && c < from.col + from.cols;
    };
    for (int r = row; r < row + from.rows; ++r) {
        for (int c = col; c < col + from.cols; ++c) {
            if (!inside(r, c) && Value(r, c))
                return true;
        }
    }
    return false;
}

void DataGrid::MoveBlock(const GridBlock& from, int row, int col, bool copy)
{
    const auto arrives = [&](int r, int c) {
        return r >= row && r < row + from.rows && c >= col && c < col + from.cols;
    };
    GridAction action;
    for (int r = 0; r < from.rows; ++r) {
        for (int c = 0; c < from.cols; ++c) {
            const int sourceRow = from.row + r;
            const int sourceCol = from.col + c;
            if (!Holds(row + r, col + c) || IsLocked(row + r, col + c))
                continue; // nowhere to go: the number stays where it is
            Add(action, *this, row + r, col + c, Value(sourceRow, sourceCol));
            if (!copy && !arrives(sourceRow, sourceCol))
                Add(action, *this, sourceRow, sourceCol, std::nullopt);
        }
    }
    Change(std::move(action));
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
    return m_columnHeaders.value(section);
}

Qt::ItemFlags DataGrid::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    const bool editable = index.isValid() && !IsLocked(index.row(), index.column());
    return editable ? base | Qt::ItemIsEditable : base;
}

bool DataGrid::setData(const QModelIndex& index, const QVariant& value, int role)
{
    return index.isValid() && role == Qt::EditRole && TypeText(index.row(), index.column(), value.toString());
}
