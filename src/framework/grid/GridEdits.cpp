#include "framework/grid/GridEdits.h"

#include "framework/grid/GridCells.h"
#include "framework/grid/TabText.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextNumber.h"

#include <QList>

#include <algorithm>
#include <memory>
#include <utility>

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
    std::optional<GridChange> Change(GridChange::Part part) const
    {
        if (m_bottom < 0)
            return std::nullopt;
        return GridChange{
            .part = part,
            .block = {
                .row = m_top, .col = m_left, .rows = m_bottom - m_top + 1, .cols = m_right - m_left + 1}};
    }

private:
    int m_top = GridCells::kMostCells;
    int m_left = GridCells::kMostCells;
    int m_bottom = -1;
    int m_right = -1;
};

/// Whether a row has texts, none of which is a number.
bool HoldsTextsAlone(const QStringList& row)
{
    const auto blank = [](const QString& text) { return text.trimmed().isEmpty(); };
    return !std::ranges::all_of(row, blank) &&
           std::ranges::none_of(row, [](const QString& text) { return TypedNumber(text).has_value(); });
}

} // namespace

GridEdits::GridEdits(GridCells& cells, const CellFormat& format, GridWatcher& watcher, History& history)
    : m_cells(cells), m_format(format), m_watcher(watcher), m_history(history)
{
}

/// A row of texts, where there is but one column for it, goes down that column.
QList<QStringList> GridEdits::Turned(const QList<QStringList>& rows) const
{
    if (m_cells.Cols() != 1 || rows.size() != 1)
        return rows;
    QList<QStringList> column;
    for (const QString& text : rows.constFirst())
        column += QStringList(text);
    return column;
}

/// Notes a cell's change, where it is one.
void GridEdits::Add(CellChanges& step, int row, int col, std::optional<double> value) const
{
    const auto before = m_cells.Value(row, col);
    if (before != value && !m_cells.locked[m_cells.Place(row, col)])
        step.push_back({.row = row, .col = col, .before = before, .after = value});
}

template<typename Changes>
void GridEdits::Do(Changes step)
{
    if (step.empty())
        return;
    const auto weight = step.size();
    const auto apply = [this, step = std::make_shared<const Changes>(std::move(step))](bool forward,
                                                                                       bool again) {
        auto change = Apply(*step, forward);
        if (!change)
            return;
        change->again = again;
        m_changeMade = true;
        m_watcher.AfterStep(*change);
    };
    // In the history first: who is told of it may make a further step.
    m_history.Add({[apply](bool forward) { apply(forward, true); }, weight});
    apply(true, false);
}

// Both give what a step changed its state of after (forward) or before. In a grid whose program took cells or
// headers away since, these are passed over.

std::optional<GridChange> GridEdits::Apply(const CellChanges& step, bool forward)
{
    Around around;
    for (const CellChange& change : step) {
        if (!m_cells.Holds(change.row, change.col) || m_cells.locked[m_cells.Place(change.row, change.col)])
            continue;
        m_cells.SetValue(change.row, change.col, forward ? change.after : change.before);
        around.Add(change.row, change.col);
    }
    return around.Change(GridChange::Part::Cells);
}

std::optional<GridChange> GridEdits::Apply(const HeaderChanges& step, bool forward)
{
    Around around;
    for (const HeaderChange& change : step) {
        if (change.col >= m_cells.Cols())
            continue;
        m_cells.headers[change.col] = forward ? change.after : change.before;
        around.Add(0, change.col);
    }
    return around.Change(GridChange::Part::Headers);
}

bool GridEdits::Takes(int row, int col, const QString& text) const
{
    return m_cells.Holds(row, col) && !m_cells.locked[m_cells.Place(row, col)] &&
           (text == m_format.Text(m_cells.Value(row, col)) || m_format.Accepts(text));
}

bool GridEdits::TypeText(int row, int col, const QString& text)
{
    if (!Takes(row, col, text))
        return false;
    if (text == m_format.Text(
                    m_cells.Value(row, col))) // left as it was shown: digits that the text doesn't show stay
        return true;
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
    const QList<QStringList> rows = Turned(ParseTabText(text));
    PasteCount count{.block = {.row = row, .col = col, .rows = static_cast<int>(rows.size()), .cols = 0},
                     .headed = rows.size() > 1 && HoldsTextsAlone(rows.constFirst())};
    CellChanges step;
    int at = row;
    for (const QStringList& cells : rows) {
        count.block.cols = std::max(count.block.cols, static_cast<int>(cells.size()));
        int to = col;
        for (const QString& cell : cells) {
            const bool free = m_cells.Holds(at, to) && !m_cells.locked[m_cells.Place(at, to)];
            if (const auto taken = Take(count, cell, at, to, free))
                Add(step, at, to, taken->number);
            ++to;
        }
        ++at;
    }
    count.changed = !step.empty();
    Do(std::move(step));
    return count;
}

/// Counts a pasted text, whose cell can be changed or not. What the cell takes, if it does.
std::optional<GridEdits::TakenText> GridEdits::Take(PasteCount& count, const QString& text, int row, int col,
                                                    bool free) const
{
    if (!free) {
        ++count.outside;
        return std::nullopt;
    }
    const auto number = m_format.Number(text);
    if (!number && !text.trimmed().isEmpty()) {
        if (count.refused++ == 0)
            count.firstRefused = {.row = row, .col = col, .text = text};
        return std::nullopt;
    }
    ++count.taken;
    if (number && *number != RoundToDecimals(*number, m_format.GetDigits().decimali))
        ++count.rounded;
    return TakenText{number};
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

void GridEdits::SetHeaders(const QStringList& texts)
{
    HeaderChanges step;
    for (int col = 0; col < std::min<qsizetype>(m_cells.Cols(), texts.size()); ++col) {
        if (m_cells.headers[col] != texts[col])
            step.push_back({.col = col, .before = m_cells.headers[col], .after = texts[col]});
    }
    Do(std::move(step));
}
