// The grid of measured values on screen: typing, the caret's way down the columns, blocks.
#pragma once

#include "framework/grid/DataGrid.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/GridEdits.h"

#include <QMenu>
#include <QTableView>

#include <optional>

class CellEditor;

class GridView : public QTableView
{
    Q_OBJECT

public:
    /// name: objectName. caption: what a screen reader says. The grid outlives the view.
    GridView(DataGrid& grid, const QString& name, const QString& caption, QWidget* parent = nullptr);

    DataGrid& Grid() const { return m_grid; }
    /// What a right click shows; owned by somebody else.
    void SetPopup(QMenu* menu) { m_popup = menu; }

    /// The selected block, or the cell of the caret; nothing in an empty grid.
    std::optional<GridBlock> Block() const;
    /// Selects a block, with the caret in its first cell.
    void SelectBlock(const GridBlock& block);

    // What the edit commands do with the selected block. Each asks nobody.
    void ClearSelected();
    QString SelectedText() const;
    /// From the first cell of the selected block on; tells of it by Pasted.
    void PasteText(const QString& text);

    /// The caret goes to the next cell of the column, down or up, and at its end to the next column.
    void Advance(bool forward);
    /// From the end of a column on: forward to the top of the next one, backward to the bottom of the one
    /// before; at the last and the first of the walk the caret goes on in another view, or stays.
    void NextCell(bool advanceNext);
    /// The caret's walk: over the first so many columns, and from there to the next view and back to the
    /// previous one. Without a view, or where it is hidden, the walk ends there.
    void SetWalk(int columns, GridView* previous, GridView* next);
    /// Takes over what is being typed, before a command runs. False when the cell refuses it: the field stays
    /// open then.
    [[nodiscard]] bool CommitEditor();

    QSize sizeHint() const override;

Q_SIGNALS:
    /// A typed text was refused; the cell is as it was.
    void Refused(const QString& text);
    void Pasted(const PasteCount& count, const QString& text);
    /// What was refused was mended or given up, or another text is typed.
    void RefusalPast();
    /// A refused text is about to get the focus, so that it is mended.
    void MendingAsked();
    /// The user wants the last step back, or done again.
    void TurnAsked(bool forward);
    /// The caret would go on where the walk ends.
    void WalkEnded(bool forward);
    /// A block was dropped on another place.
    void Dropped(const GridBlock& from, int row, int col);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyboardSearch(const QString& /*search*/) override {} // letters are no way around a grid of numbers
    QSize viewportSizeHint() const override;

private:
    int WalkedColumns() const;
    bool RunShortcut(const QKeyEvent& event);
    void FitColumns();
    double WidestNumber(int col) const;

    DataGrid& m_grid;
    CellEditor* m_editor;
    QMenu* m_popup = nullptr;
    std::optional<int> m_walkedColumns; ///< all where none are told
    GridView* m_previous = nullptr;
    GridView* m_next = nullptr;
};
