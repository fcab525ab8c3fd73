#include "framework/DataGrid.h"

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

double& DataGrid::Cell(int row, int col)
{
    return m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(Cols()) +
                   static_cast<std::size_t>(col)];
}

double DataGrid::Cell(int row, int col) const
{
    return m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(Cols()) +
                   static_cast<std::size_t>(col)];
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
    std::vector<double> cells(static_cast<std::size_t>(rows) * newCols, kEmpty);
    for (int row = 0; row < std::min(rows, m_rows); ++row) {
        for (int col = 0; col < std::min(cols, Cols()); ++col)
            cells[static_cast<std::size_t>(row) * newCols + static_cast<std::size_t>(col)] = Cell(row, col);
    }
    m_cells = std::move(cells);
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
    const double value = Holds(row, col) ? Cell(row, col) : kEmpty;
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

void DataGrid::SetValue(int row, int col, std::optional<double> value)
{
    Cell(row, col) = value.value_or(kEmpty);
    TellViews(row, col);
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

bool DataGrid::Accepts(const QString& text) const
{
    if (text.trimmed().isEmpty())
        return true;
    const auto value = TypedNumber(text);
    return value && *value >= 0 && *value <= m_largest;
}

bool DataGrid::TypeText(int row, int col, const QString& text)
{
    if (!Holds(row, col))
        return false;
    if (text == Text(row, col)) // left as it was shown: digits that the text doesn't show stay
        return true;
    if (!Accepts(text))
        return false;
    SetValue(row, col, TypedNumber(text));
    m_changeMade = true;
    Q_EMIT Edited(row, col);
    return true;
}

void DataGrid::TellViews(int row, int col)
{
    if (m_redrawOff > 0)
        return;
    const QModelIndex changed = index(row, col);
    Q_EMIT dataChanged(changed, changed);
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
    return index.isValid() ? base | Qt::ItemIsEditable : base;
}

bool DataGrid::setData(const QModelIndex& index, const QVariant& value, int role)
{
    return index.isValid() && role == Qt::EditRole && TypeText(index.row(), index.column(), value.toString());
}
