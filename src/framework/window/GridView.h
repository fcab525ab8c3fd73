// The grid of measured values on screen: typing, and the caret's way down the columns.
#pragma once

#include "framework/DataGrid.h"

#include <QTableView>

class CellEditor;

class GridView : public QTableView
{
    Q_OBJECT

public:
    /// name: objectName. caption: what a screen reader says. The grid outlives the view.
    GridView(DataGrid& grid, const QString& name, const QString& caption, QWidget* parent = nullptr);

    /// The caret goes to the next cell of the column, down or up, and at its end to the next column.
    void Advance(bool forward);
    /// From the end of a column on: forward to the top of the next one, backward to the bottom of the one
    /// before; at the last and the first the caret stays.
    void NextCell(bool advanceNext);

    /// Takes over what is being typed, before a command runs. False when the cell refuses it: the field stays
    /// open then.
    [[nodiscard]] bool CommitEditor();

    QSize sizeHint() const override;

Q_SIGNALS:
    /// A typed text was refused; the cell is as it was.
    void Refused(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    QSize viewportSizeHint() const override;

private:
    void FitColumns();
    void ClearSelected();

    DataGrid& m_grid;
    CellEditor* m_editor;
};
