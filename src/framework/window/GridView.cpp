#include "framework/window/GridView.h"

#include "framework/grid/GridCells.h"
#include "framework/grid/GridEdits.h"
#include "framework/window/BlockDrag.h"
#include "framework/window/CellEditor.h"
#include "framework/window/Forms.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <optional>

namespace
{
/// Columns are as wide as the largest number and half a character more, and a cell's margins.
constexpr double kMoreCharacters = 0.5;
constexpr int kCellMargins = 12;
constexpr int kWidestColumn = 2000;
constexpr int kRowsShown = 12;
/// Points above and below a header's text.
constexpr int kHeaderMargins = 6;
} // namespace

GridView::GridView(DataGrid& grid, const QString& name, const QString& caption, QWidget* parent)
    : QTableView(parent), m_grid(grid), m_editor(new CellEditor(this))
{
    setObjectName(name);
    setAccessibleName(caption);
    setModel(&grid);
    setItemDelegate(m_editor);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(ContiguousSelection);
    setTabKeyNavigation(true); // so that Tab comes here as a key
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(fontMetrics().height() + kHeaderMargins);
    connect(&grid, &DataGrid::modelReset, this, &GridView::FitColumns);
    connect(&grid, &DataGrid::headerDataChanged, this, &GridView::FitColumns);
    connect(new BlockDrag(this), &BlockDrag::Dropped, this, &GridView::Dropped);
    FitColumns();
}

void GridView::FitColumns()
{
    const auto characters = static_cast<double>(m_grid.Format().LargestText().size()) + kMoreCharacters;
    const double number = characters * fontMetrics().horizontalAdvance(u'9') + kCellMargins;
    for (int col = 0; col < m_grid.Cols(); ++col) {
        const double width =
            std::max({number, WidestNumber(col), 1.0 * horizontalHeader()->sectionSizeHint(col)});
        setColumnWidth(col, static_cast<int>(std::min<double>(width, kWidestColumn)));
    }
}

/// The width that the numbers of a file take which can't be typed: they may have more digits than the format,
/// and a minus.
double GridView::WidestNumber(int col) const
{
    double least = 0;
    double most = 0;
    for (int row = 0; row < m_grid.Rows(); ++row) {
        const double value = m_grid.Value(row, col).value_or(0);
        least = std::min(least, value);
        most = std::max(most, value);
    }
    double width = 0;
    for (const double value : {least, most})
        width = std::max(width,
                         fontMetrics().horizontalAdvance(m_grid.Format().Text(value)) + 1.0 * kCellMargins);
    return width;
}

QSize GridView::viewportSizeHint() const
{
    return {horizontalHeader()->length(), verticalHeader()->defaultSectionSize() * kRowsShown};
}

QSize GridView::sizeHint() const
{
    const int frame = 2 * frameWidth();
    const int width = std::max(verticalHeader()->sizeHint().width(), verticalHeader()->minimumWidth()) +
                      horizontalHeader()->length() + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + frame;
    return {width, horizontalHeader()->height() + viewportSizeHint().height() + frame};
}

void GridView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        FitColumns();
}

std::optional<GridBlock> GridView::Block() const
{
    const QItemSelection selection = selectionModel()->selection();
    if (!selection.isEmpty()) {
        const QItemSelectionRange& range = selection.constFirst();
        return GridBlock{
            .row = range.top(), .col = range.left(), .rows = range.height(), .cols = range.width()};
    }
    const QModelIndex at = currentIndex();
    return at.isValid() ? std::optional(GridBlock{.row = at.row(), .col = at.column()}) : std::nullopt;
}

void GridView::SelectBlock(const GridBlock& block)
{
    const QModelIndex first = m_grid.index(block.row, block.col);
    setCurrentIndex(first);
    const QModelIndex last = m_grid.index(block.row + block.rows - 1, block.col + block.cols - 1);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void GridView::ClearSelected()
{
    if (const auto block = Block())
        m_grid.Edits().ClearBlock(*block);
}

QString GridView::SelectedText() const
{
    const auto block = Block();
    return block ? m_grid.Edits().BlockText(*block) : QString();
}

void GridView::PasteText(const QString& text)
{
    if (const auto block = Block())
        Q_EMIT Pasted(m_grid.Edits().PasteText(block->row, block->col, text), text);
}

void GridView::Advance(bool forward)
{
    const QModelIndex at = currentIndex();
    if (!at.isValid())
        return;
    const int row = at.row() + (forward ? 1 : -1);
    if (row < 0 || row >= m_grid.Rows())
        NextCell(forward);
    else
        setCurrentIndex(m_grid.index(row, at.column()));
}

void GridView::SetWalk(int columns, GridView* previous, GridView* next)
{
    m_walkedColumns = columns;
    m_previous = previous;
    m_next = next;
}

int GridView::WalkedColumns() const
{
    return std::min(m_walkedColumns.value_or(m_grid.Cols()), m_grid.Cols());
}

void GridView::NextCell(bool advanceNext)
{
    GridView* view = this;
    int col = currentIndex().column() + (advanceNext ? 1 : -1);
    if (col < 0 || col >= WalkedColumns()) {
        view = advanceNext ? m_next : m_previous;
        const bool beside = advanceNext && col > WalkedColumns(); // in a column that the walk leaves out
        if (beside || view == nullptr || !view->isVisibleTo(window())) {
            Q_EMIT WalkEnded(advanceNext);
            return;
        }
        col = advanceNext ? 0 : view->WalkedColumns() - 1;
        view->setFocus(Qt::TabFocusReason);
    }
    view->setCurrentIndex(view->m_grid.index(advanceNext ? 0 : view->m_grid.Rows() - 1, col));
}

bool GridView::CommitEditor()
{
    return m_editor->Commit();
}

/// The keys that work without a menu item: the clipboard's, taking back and doing again.
bool GridView::RunShortcut(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setText(SelectedText());
    else if (event.matches(QKeySequence::Paste))
        PasteText(QGuiApplication::clipboard()->text());
    else if (event.matches(QKeySequence::Undo))
        Q_EMIT TurnAsked(false);
    else if (IsRedo(event))
        Q_EMIT TurnAsked(true);
    else
        return false;
    return true;
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    switch (plain ? event->key() : 0) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        Advance(!event->modifiers().testFlag(Qt::ShiftModifier));
        break;
    case Qt::Key_Backtab:
        Advance(false);
        break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        ClearSelected();
        break;
    default:
        if (!RunShortcut(*event)) {
            QTableView::keyPressEvent(event);
            return;
        }
    }
    event->accept();
}

void GridView::mousePressEvent(QMouseEvent* event)
{
    // The right button shows the menu and leaves caret and selection alone; a text that its cell refuses
    // stays to be mended.
    if (event->button() != Qt::RightButton && CommitEditor())
        QTableView::mousePressEvent(event);
}

void GridView::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_popup == nullptr)
        return;
    m_popup->popup(event->globalPos());
}
