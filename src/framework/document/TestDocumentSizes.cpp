#include "framework/document/TestDocument.h"

#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/text/Found.h"
#include "framework/text/TextNumber.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

// The size fields, and the history in which another size is a step: all that was typed into a field between
// its getting and losing the focus, with all that the grids held before and after.

namespace
{

/// Size fields have up to four digits.
constexpr int kMostTyped = 9999;

/// Whether typing this number changes the grids.
bool Applies(const SizeField& field, int number)
{
    return number >= field.minimum && number <= field.maximum;
}

} // namespace

const SizeField& TestDocument::SizeOf(QAnyStringView control) const
{
    return Found(m_shape.sizes, control, &SizeField::control);
}

/// The number in a size field's text, rounded half to even; 0 where it is none.
int TestDocument::SizeNumber(QLatin1StringView control) const
{
    const double number = NumberIn(ControlText(control), m_context.define.DecSep).value_or(0);
    return static_cast<int>(std::nearbyint(std::clamp<double>(number, -kMostTyped, kMostTyped)));
}

QStringList TestDocument::SizeTexts() const
{
    QStringList texts;
    for (const Field& field : m_fields.OfKind(FieldKind::Size))
        texts.append(field.text);
    return texts;
}

void TestDocument::SetSizeTexts(const QStringList& texts)
{
    qsizetype next = 0;
    for (const Field& field : m_fields.OfKind(FieldKind::Size))
        SetControlText(field.control, texts[next++]);
}

TestDocument::SizeState TestDocument::Sizes() const
{
    SizeState state{.texts = SizeTexts(), .grids = {}};
    for (const DataGrid* grid : m_grids)
        state.grids.push_back(grid->Cells());
    return state;
}

void TestDocument::SetSizes(const SizeState& state)
{
    SetSizeTexts(state.texts);
    for (std::size_t i = 0; i < m_grids.size(); ++i)
        m_grids[i]->SetCells(state.grids[i]);
    m_isModify = true;
    NoteChange();
    Q_EMIT Changed();
}

/// The grids take the sizes that stand in the fields. What they were before the typing began is kept.
void TestDocument::ApplySizes()
{
    ResizeGrid();
    if (m_sizing)
        m_sizing->applied = SizeTexts();
}

void TestDocument::BeginSizing()
{
    if (!m_sizing)
        m_sizing = {.before = Sizes(), .applied = {}};
}

/// Whether the grids or the fields are other ones than before.
bool TestDocument::EndSizing()
{
    if (!m_sizing)
        return false;
    const auto sizing = *std::exchange(m_sizing, std::nullopt);
    if (sizing.applied.isEmpty())
        return false;
    const auto before = std::make_shared<const SizeState>(sizing.before);
    const auto after = std::make_shared<const SizeState>(Sizes());
    if (*before == *after)
        return false;
    std::size_t weight = 0;
    for (const auto& state : {before, after}) {
        for (const GridCells& cells : state->grids)
            weight += cells.values.size();
    }
    m_history.Add({[this, before, after](bool forward) { SetSizes(forward ? *after : *before); }, weight});
    return true;
}

/// A number that was typed and not applied gives way to the one that holds. Whether there was one.
bool TestDocument::DropUnapplied()
{
    if (!m_sizing)
        return false;
    const QStringList holds = m_sizing->applied.isEmpty() ? m_sizing->before.texts : m_sizing->applied;
    const bool dropped = holds != SizeTexts();
    SetSizeTexts(holds);
    return dropped;
}

void TestDocument::TypeSize(QLatin1StringView control, const QString& text)
{
    BeginSizing();
    SetControlText(control, text);
    if (Applies(SizeOf(control), SizeNumber(control))) {
        ApplySizes();
        m_isModify = true;
        NoteChange();
    }
    Q_EMIT Changed();
}

bool TestDocument::LeaveSize(QLatin1StringView control)
{
    const SizeField& field = SizeOf(control);
    const int number = SizeNumber(control);
    if (number >= field.minimum && (number <= field.maximum || field.refuses == SizeField::Refuses::Below)) {
        EndSizing();
        return true;
    }
    BeginSizing();
    if (field.beeps)
        m_context.messages.Beep();
    SetControlText(control, field.fallback == SizeField::Fallback::Initial ? field.initial
                                                                           : QString::number(Grid().Rows()));
    if (field.resizes)
        ApplySizes();
    if (EndSizing())
        NoteChange();
    m_isModify = m_isModify || field.modifies;
    Q_EMIT Changed();
    return false;
}

bool TestDocument::Undo()
{
    return Turn(&History::Undo);
}

bool TestDocument::Redo()
{
    return Turn(&History::Redo);
}

bool TestDocument::Turn(bool (History::*turn)())
{
    const bool typed = m_sizing.has_value() && m_sizing->applied.isEmpty();
    const bool dropped = DropUnapplied();
    EndSizing();
    if (dropped)
        Q_EMIT Changed();
    return (dropped && typed) || (m_history.*turn)(); // what was typed in vain was all there was to take back
}

/// The least number with which a field lets the grids hold a block; 0 for a field that the block is nothing
/// to.
int TestDocument::NeededBy(const SizeField& field, const GridBlock& block)
{
    if (field.countsColumns)
        return block.col + block.cols;
    const bool rows = field.rowsOf == SizeField::kAllColumns ||
                      (field.rowsOf >= block.col && field.rowsOf < block.col + block.cols);
    return rows ? block.row + block.rows : 0;
}

std::vector<TestDocument::Growth> TestDocument::GrowthFor(const DataGrid& grid, const GridBlock& block) const
{
    std::vector<Growth> growth;
    int cols = grid.Cols();
    for (const SizeField& field : m_shape.sizes) {
        const int needed = NeededBy(field, block);
        if (needed <= SizeNumber(field.control))
            continue;
        if (!Applies(field, needed) || needed > kMostTyped)
            return {};
        growth.push_back({&field, needed});
        if (field.countsColumns)
            cols = needed;
    }
    const int rows = block.row + block.rows;
    if (block.col + block.cols > cols || rows > GridCells::kMostCells / cols)
        return {};
    return growth;
}

PasteCount TestDocument::PasteWhole(DataGrid& grid, const GridBlock& block, const QString& text)
{
    EndSizing();
    const History::Group group(m_history);
    for (const Growth& each : GrowthFor(grid, block)) {
        TypeSize(each.field->control, QString::number(each.number));
        EndSizing();
    }
    return grid.Edits().PasteText(block.row, block.col, text);
}
