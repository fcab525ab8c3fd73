#include "framework/window/GridView.h"

#include "framework/window/CellEditor.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace
{
/// Columns are as wide as the largest number and half a character more, and a cell's margins.
constexpr double kMoreCharacters = 0.5;
constexpr int kCellMargins = 12;
constexpr int kWidestColumn = 2000;
constexpr int kRowsShown = 12;
} // namespace

GridView::GridView(DataGrid& grid, const QString& name, const QString& caption, QWidget* parent)
    : QTableView(parent), m_grid(grid), m_editor(new CellEditor(this))
{
    setObjectName(name);
    setAccessibleName(caption);
    setModel(&grid);
    setItemDelegate(m_editor);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setTabKeyNavigation(true); // so that Tab comes here as a key
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setHighlightSections(false);
    setSizeAdjustPolicy(AdjustToContentsOnFirstShow);
    connect(&grid, &DataGrid::DigitsChanged, this, &GridView::FitColumns);
    connect(&grid, &DataGrid::modelReset, this, &GridView::FitColumns);
    FitColumns();
}

void GridView::FitColumns()
{
    const auto characters = static_cast<double>(m_grid.LargestText().size()) + kMoreCharacters;
    const double number = characters * fontMetrics().horizontalAdvance(u'9') + kCellMargins;
    for (int col = 0; col < m_grid.Cols(); ++col) {
        const int width = std::max(static_cast<int>(std::min<double>(number, kWidestColumn)),
                                   horizontalHeader()->sectionSizeHint(col));
        setColumnWidth(col, width);
    }
}

QSize GridView::viewportSizeHint() const
{
    return {horizontalHeader()->length(), verticalHeader()->defaultSectionSize() * kRowsShown};
}

QSize GridView::sizeHint() const
{
    const int frame = 2 * frameWidth();
    const int width = verticalHeader()->sizeHint().width() + horizontalHeader()->length() +
                      style()->pixelMetric(QStyle::PM_ScrollBarExtent) + frame;
    return {width, horizontalHeader()->sizeHint().height() + viewportSizeHint().height() + frame};
}

void GridView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        FitColumns();
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

void GridView::NextCell(bool advanceNext)
{
    const int col = currentIndex().column() + (advanceNext ? 1 : -1);
    if (col < 0 || col >= m_grid.Cols())
        return;
    setCurrentIndex(m_grid.index(advanceNext ? 0 : m_grid.Rows() - 1, col));
}

bool GridView::CommitEditor()
{
    return m_editor->Commit();
}

void GridView::ClearSelected()
{
    const QModelIndexList selected = selectedIndexes();
    for (const QModelIndex& index : selected)
        m_grid.TypeText(index.row(), index.column(), QString());
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
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
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
}
