#include "framework/grid/GridEdits.h"

#include "framework/grid/GridCells.h"
#include "framework/grid/TabText.h"

#include <QList>

#include <algorithm>
#include <utility>
#include <variant>

namespace
{

/// The smallest block around the cells that were told to it.
class Around
{
public:
    void Add(int row, int col)
    {
        m_top = std::min(m_top, row);
        m_left = std::min(m_left, col);
        m_bottom = std::max(m_bottom, row);
        m_right = std::max(m_right, col);
    }
    std::optional<GridBlock> Block() const
    {
        if (m_bottom < 0)
            return std::nullopt;
        return GridBlock{
            .row = m_top, .col = m_left, .rows = m_bottom - m_top + 1, .cols = m_right - m_left + 1};
    }

private:
    int m_top = GridCells::kMostCells;
    int m_left = GridCells::kMostCells;
    int m_bottom = -1;
    int m_right = -1;
};

/// The texts of a pasted row, or of a pasted column.
QStringList OneLine(const QString& text)
{
    const QList<QStringList> rows = ParseTabText(text);
    const bool column = std::ranges::all_of(rows, [](const QStringList& row) { return row.size() == 1; });
    if (!column)
        return rows.constFirst();
    QStringList line;
    for (const QStringList& row : rows)
        line += row;
    return line;
}

} // namespace

GridEdits::GridEdits(GridCells& cells, const CellFormat& format, GridWatcher& watcher)
    : m_cells(cells), m_format(format), m_watcher(watcher)
{
}

/// Notes a cell's change, where it is one.
void GridEdits::Add(CellChanges& step, int row, int col, std::optional<double> value) const
{
    const auto before = m_cells.Value(row, col);
    if (before != value && !m_cells.locked[m_cells.Place(row, col)])
        step.push_back({.row = row, .col = col, .before = before, .after = value});
}

void GridEdits::Add(HeaderChanges& step, int col, const QString& text) const
{
    const QString& before = m_cells.headers[col];
    const QString after = m_format.Text(m_format.Number(text));
    if (before != after)
        step.push_back({.col = col, .before = before, .after = after});
}

void GridEdits::Do(GridStep step)
{
    const auto empty = [](const auto* changes) { return changes != nullptr && changes->empty(); };
    if (empty(std::get_if<CellChanges>(&step)) || empty(std::get_if<HeaderChanges>(&step)))
        return;
    // In the history first: who is told of it may make a further step.
    Apply(&m_history.Add(std::move(step)), true);
}

/// Gives what a step changed its state of after (forward) or before. Cells and headers that the grid has lost
/// since are passed over.
std::optional<GridChange> GridEdits::Apply(const GridStep* step, bool forward)
{
    if (step == nullptr)
        return std::nullopt;
    GridChange change{.part = static_cast<GridChange::Part>(step->index()), .block = {}};
    m_watcher.BeforeStep(change.part);
    if (const auto* cells = std::get_if<CellChanges>(step)) {
        const auto block = ApplyCells(*cells, forward);
        if (!block)
            return std::nullopt;
        change.block = *block;
    } else if (const auto* headers = std::get_if<HeaderChanges>(step)) {
        const auto block = ApplyHeaders(*headers, forward);
        if (!block)
            return std::nullopt;
        change.block = *block;
    } else {
        const auto& size = std::get<SizeChange>(*step);
        m_cells = forward ? size.after : size.before;
        change.block = {.rows = m_cells.rows, .cols = m_cells.Cols()};
    }
    m_changeMade = true;
    m_watcher.AfterStep(change);
    return change;
}

std::optional<GridBlock> GridEdits::ApplyCells(const CellChanges& step, bool forward)
{
    Around around;
    for (const CellChange& change : step) {
        if (!m_cells.Holds(change.row, change.col) || m_cells.locked[m_cells.Place(change.row, change.col)])
            continue;
        m_cells.SetValue(change.row, change.col, forward ? change.after : change.before);
        around.Add(change.row, change.col);
    }
    return around.Block();
}

std::optional<GridBlock> GridEdits::ApplyHeaders(const HeaderChanges& step, bool forward)
{
    Around around;
    for (const HeaderChange& change : step) {
        if (change.col >= m_cells.Cols())
            continue;
        m_cells.headers[change.col] = forward ? change.after : change.before;
        around.Add(0, change.col);
    }
    return around.Block();
}

std::optional<GridChange> GridEdits::Undo()
{
    return Apply(m_history.Undo(), false);
}

std::optional<GridChange> GridEdits::Redo()
{
    return Apply(m_history.Redo(), true);
}

bool GridEdits::TypeText(int row, int col, const QString& text)
{
    if (!m_cells.Holds(row, col) || m_cells.locked[m_cells.Place(row, col)])
        return false;
    if (text == m_format.Text(
                    m_cells.Value(row, col))) // left as it was shown: digits that the text doesn't show stay
        return true;
    if (!m_format.Accepts(text))
        return false;
    CellChanges step;
    Add(step, row, col, m_format.Number(text));
    Do(std::move(step));
    return true;
}

void GridEdits::ClearBlock(const GridBlock& block)
{
    CellChanges step;
    for (int row = block.row; row < block.row + block.rows; ++row) {
        for (int col = block.col; col < block.col + block.cols; ++col)
            Add(step, row, col, std::nullopt);
    }
    Do(std::move(step));
}

QString GridEdits::BlockText(const GridBlock& block) const
{
    QList<QStringList> rows;
    for (int row = block.row; row < block.row + block.rows; ++row) {
        QStringList cells;
        for (int col = block.col; col < block.col + block.cols; ++col)
            cells.append(m_format.Text(m_cells.Value(row, col)));
        rows.append(cells);
    }
    return MakeTabText(rows);
}

PasteCount GridEdits::PasteText(int row, int col, const QString& text)
{
    PasteCount count;
    CellChanges step;
    int at = row;
    for (const QStringList& cells : ParseTabText(text)) {
        int to = col;
        for (const QString& cell : cells) {
            if (!m_cells.Holds(at, to)) {
                ++count.outside;
            } else if (m_cells.locked[m_cells.Place(at, to)] || !m_format.Accepts(cell)) {
                ++count.refused;
            } else {
                ++count.taken;
                Add(step, at, to, m_format.Number(cell));
            }
            ++to;
        }
        ++at;
    }
    Do(std::move(step));
    return count;
}

bool GridEdits::Overwrites(const GridBlock& from, int row, int col) const
{
    const auto inside = [&](int r, int c) {
        return r >= from.row && r < from.row + from.rows && c >= from.col && c < from.col + from.cols;
    };
    for (int r = row; r < row + from.rows; ++r) {
        for (int c = col; c < col + from.cols; ++c) {
            if (!inside(r, c) && m_cells.Value(r, c))
                return true;
        }
    }
    return false;
}

void GridEdits::MoveBlock(const GridBlock& from, int row, int col, bool copy)
{
    const auto arrives = [&](int r, int c) {
        return r >= row && r < row + from.rows && c >= col && c < col + from.cols;
    };
    CellChanges step;
    for (int r = 0; r < from.rows; ++r) {
        for (int c = 0; c < from.cols; ++c) {
            const int sourceRow = from.row + r;
            const int sourceCol = from.col + c;
            if (!m_cells.Holds(row + r, col + c) || m_cells.locked[m_cells.Place(row + r, col + c)])
                continue; // nowhere to go: the number stays where it is
            Add(step, row + r, col + c, m_cells.Value(sourceRow, sourceCol));
            if (!copy && !arrives(sourceRow, sourceCol))
                Add(step, sourceRow, sourceCol, std::nullopt);
        }
    }
    Do(std::move(step));
}

bool GridEdits::TypeHeader(int col, const QString& text)
{
    if (!m_headersEditable || col < 0 || col >= m_cells.Cols())
        return false;
    if (text == m_cells.headers[col])
        return true;
    if (!m_format.Accepts(text))
        return false;
    HeaderChanges step;
    Add(step, col, text);
    Do(std::move(step));
    return true;
}

PasteCount GridEdits::PasteHeaders(int col, const QString& text)
{
    PasteCount count;
    HeaderChanges step;
    int to = col;
    for (const QString& header : text.isEmpty() ? QStringList() : OneLine(text)) {
        if (to >= m_cells.Cols()) {
            ++count.outside;
        } else if (!m_headersEditable || !m_format.Accepts(header)) {
            ++count.refused;
        } else {
            ++count.taken;
            Add(step, to, header);
        }
        ++to;
    }
    Do(std::move(step));
    return count;
}

void GridEdits::ChangeSize(GridCells after)
{
    Do(SizeChange{.before = m_cells, .after = std::move(after)});
}
