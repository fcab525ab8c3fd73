#include "framework/window/EditCommands.h"

#include "framework/document/Define.h"
#include "framework/grid/GridCells.h"
#include "framework/text/TextFunctions.h"
#include "framework/window/ChartView.h"
#include "framework/window/GridView.h"
#include "framework/window/ResultTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// The selected text of a control, or nothing for a control that has none to select.
std::optional<QString> SelText(const QWidget* control)
{
    if (const auto* field = qobject_cast<const QLineEdit*>(control))
        return field->selectedText();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(control))
        return text->textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n');
    if (const auto* label = qobject_cast<const QLabel*>(control))
        return label->selectedText().replace(QChar::ParagraphSeparator, u'\n');
    return std::nullopt;
}

/// Puts a text in the place of the selected one, where the control can be changed.
void SetSelText(QWidget* control, const QString& text)
{
    if (auto* field = qobject_cast<QLineEdit*>(control); field != nullptr && !field->isReadOnly())
        field->insert(InOneLine(text));
    else if (auto* edit = qobject_cast<QPlainTextEdit*>(control); edit != nullptr && !edit->isReadOnly())
        edit->insertPlainText(text);
}

} // namespace

void EditClear(QWidget* activeControl)
{
    if (auto* grid = qobject_cast<GridView*>(activeControl))
        grid->ClearSelected();
    else
        SetSelText(activeControl, QString());
}

void EditCopy(QWidget* activeControl)
{
    if (const auto* grid = qobject_cast<const GridView*>(activeControl))
        QGuiApplication::clipboard()->setText(grid->SelectedText());
    else if (auto* chart = qobject_cast<ChartView*>(activeControl))
        chart->CopyPicture();
    else if (const auto* table = qobject_cast<const ResultTable*>(activeControl))
        table->Copy();
    else if (const auto text = SelText(activeControl))
        QGuiApplication::clipboard()->setText(*text);
}

void EditCut(QWidget* activeControl)
{
    EditCopy(activeControl);
    EditClear(activeControl);
}

void EditPaste(QWidget* activeControl)
{
    const QString text = QGuiApplication::clipboard()->text();
    if (auto* grid = qobject_cast<GridView*>(activeControl))
        grid->PasteText(text);
    else
        SetSelText(activeControl, text);
}

Answer AskMoveOrCopy(const DocumentContext& context)
{
    return context.messages.Ask(
        MessageIcon::Question, context.define.AppTitle,
        u"Desideri spostare i dati selezionati?\nScegliendo No i dati verranno copiati"_s);
}

void DropBlock(GridView& view, GridEdits& grid, const GridBlock& from, int row, int col,
               const DocumentContext& context)
{
    const Answer answer = grid.Overwrites(from, row, col) ? AskMoveOrCopy(context) : Answer::Yes;
    if (answer != Answer::Cancel) {
        grid.MoveBlock(from, row, col, answer == Answer::No);
        view.SelectBlock({.row = row, .col = col, .rows = from.rows, .cols = from.cols});
    }
    view.viewport()->update();
}
