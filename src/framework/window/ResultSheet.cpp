#include "framework/window/ResultSheet.h"

#include "framework/window/CopyTable.h"
#include "framework/window/Furnishings.h"
#include "framework/window/ResultTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

void ResultSheet::AddRow(const QLabel* caption, const QList<ResultField*>& fields)
{
    m_rows.append({caption, {fields.begin(), fields.end()}});
    for (ResultField* field : fields)
        connect(field, &ResultField::MenuWanted, this, [this, field](const QPoint& at) {
            PopUp(field, at, {{u"&Copia"_s, [field] { field->Copy(); }}, CopyItem()});
        });
}

void ResultSheet::AddHeadings(const QList<const QLabel*>& headings)
{
    m_rows.append({.cells = headings});
}

void ResultSheet::AddTable(ResultTable* table)
{
    m_rows.append({.table = table});
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table, &QWidget::customContextMenuRequested, this, [this, table](const QPoint& at) {
        PopUp(table, table->viewport()->mapToGlobal(at),
              {{u"&Copia tabella"_s, [table] { table->Copy(); }}, CopyItem()});
    });
}

void ResultSheet::AddConclusions(QPlainTextEdit* conclusions)
{
    conclusions->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(conclusions, &QWidget::customContextMenuRequested, this, [this, conclusions](const QPoint& at) {
        PopUp(
            conclusions, conclusions->viewport()->mapToGlobal(at),
            {{u"&Copia"_s, [conclusions] { conclusions->copy(); }, conclusions->textCursor().hasSelection()},
             {u"Copia c&onclusioni"_s,
              [conclusions] { QGuiApplication::clipboard()->setText(conclusions->toPlainText()); }},
             CopyItem()});
    });
}

void ResultSheet::PopUp(QWidget* over, const QPoint& at, const QList<MenuItem>& items)
{
    auto* menu = new QMenu(over);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuItem& item : items) {
        QAction* action = menu->addAction(item.caption);
        action->setEnabled(item.enabled);
        connect(action, &QAction::triggered, over, item.run);
    }
    menu->popup(at);
}

QStringList ResultSheet::RowTexts(const Row& row)
{
    QStringList texts{row.caption == nullptr ? QString() : row.caption->text()};
    for (const QLabel* cell : row.cells) {
        if (!cell->isHidden())
            texts += cell->text();
        if (row.caption == nullptr && texts.constFirst().isEmpty())
            texts.first() = cell->accessibleDescription();
    }
    const bool heading = row.cells.isEmpty() && row.caption != nullptr;
    const bool seen = heading ? !row.caption->isHidden() : texts.size() > 1;
    return seen ? texts : QStringList();
}

QList<QStringList> ResultSheet::Rows() const
{
    QList<QStringList> rows;
    if (m_stale)
        rows += QStringList(kStaleResults);
    for (const Row& row : m_rows) {
        if (row.table != nullptr)
            rows += QList<QStringList>{{row.table->accessibleName()}} + row.table->Texts();
        else if (const QStringList texts = RowTexts(row); !texts.isEmpty())
            rows += texts;
    }
    qsizetype cells = 0;
    for (const QStringList& row : std::as_const(rows))
        cells = std::max(cells, row.size());
    for (QStringList& row : rows)
        row.resize(cells);
    return rows;
}

void ResultSheet::Copy() const
{
    CopyTable(Rows());
}
