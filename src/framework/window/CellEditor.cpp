#include "framework/window/CellEditor.h"

#include "framework/grid/DataGrid.h"
#include "framework/window/Forms.h"

#include <QApplication>
#include <QKeyEvent>

#include <optional>

namespace
{

/// The way on that a key means inside the field: forward, backward, or none.
std::optional<bool> DirectionOf(const QKeyEvent& key)
{
    const bool shift = key.modifiers().testFlag(Qt::ShiftModifier);
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        return !shift;
    case Qt::Key_Backtab:
    case Qt::Key_Up:
        return false;
    case Qt::Key_Down:
        return true;
    default:
        return std::nullopt;
    }
}

} // namespace

CellEditor::CellEditor(GridView* view) : QStyledItemDelegate(view), m_view(view) {}

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                  const QModelIndex& /*index*/) const
{
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setAutoFillBackground(true);
    m_field = field;
    m_refused = false;
    Q_EMIT m_view->RefusalPast();
    return field;
}

/// Locked cells look like what is around the grid.
void CellEditor::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.flags().testFlag(Qt::ItemIsEditable))
        option->backgroundBrush = option->palette.window();
}

void CellEditor::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const QString text = qobject_cast<QLineEdit*>(editor)->text();
    m_refused = !model->setData(index, text);
    if (m_refused)
        Q_EMIT m_view->Refused(text);
}

void CellEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                      const QModelIndex& /*index*/) const
{
    editor->setGeometry(option.rect);
}

bool CellEditor::eventFilter(QObject* object, QEvent* event)
{
    auto* field = qobject_cast<QLineEdit*>(object);
    if (field != nullptr && BelongsToMenu(*event))
        return true;
    if (field != nullptr && event->type() == QEvent::FocusOut) {
        if (WillComeBack(*static_cast<QFocusEvent*>(event)))
            return false;
        // What is refused stays to be mended, also when the focus goes.
        if (!Accepts(*field)) {
            Q_EMIT m_view->Refused(field->text());
            return false;
        }
    }
    if (field == nullptr || event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    const auto forward = DirectionOf(*static_cast<QKeyEvent*>(event));
    if (!forward)
        return QStyledItemDelegate::eventFilter(object, event);
    if (Commit())
        m_view->Advance(*forward);
    return true;
}

bool CellEditor::Accepts(const QLineEdit& field) const
{
    const QModelIndex cell = m_view->currentIndex();
    return m_view->Grid().Edits().Takes(cell.row(), cell.column(), field.text());
}

bool CellEditor::Commit()
{
    if (m_field == nullptr)
        return true;
    QLineEdit* field = m_field;
    if (!Accepts(*field)) {
        QApplication::beep();
        Q_EMIT m_view->MendingAsked();
        field->setFocus();
        field->selectAll();
        Q_EMIT m_view->Refused(field->text());
        return false;
    }
    Q_EMIT commitData(field);
    Q_EMIT closeEditor(field, NoHint);
    return true;
}

void CellEditor::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    m_field.clear();
    if (!m_refused) // else the text is gone, and told of until another one is typed
        Q_EMIT m_view->RefusalPast();
    QStyledItemDelegate::destroyEditor(editor, index);
}
