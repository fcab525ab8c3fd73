// The field in which a cell is typed.
#pragma once

#include "framework/window/GridView.h"

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

/// Enter and Tab take the text over and move the caret on; a text that the cell refuses keeps the field open.
class CellEditor : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CellEditor(GridView* view);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    /// Takes the text of the open field over and closes it. False, with the field open, when the cell refuses
    /// it.
    bool Commit();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool Accepts(const QLineEdit& field) const;

    GridView* m_view;
    mutable bool m_refused = false;      ///< what was typed, by the cell that was left
    mutable QPointer<QLineEdit> m_field; ///< the open one; views ask for it from a const routine
};
