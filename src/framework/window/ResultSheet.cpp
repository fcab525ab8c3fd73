#include "framework/window/ResultSheet.h"

#include "framework/document/TextTable.h"
#include "framework/text/TextFunctions.h"
#include "framework/window/Furnishings.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Each cell in one line.
QString TabText(const QList<QStringList>& rows)
{
    QString text;
    for (QStringList row : rows) {
        std::ranges::transform(row, row.begin(), InOneLine);
        text += row.join(u'\t') + u'\n';
    }
    return text;
}

QString HtmlTable(const QList<QStringList>& rows)
{
    QString html = u"<meta charset=\"utf-8\"><table>"_s;
    for (const QStringList& row : rows) {
        html += u"<tr>"_s;
        for (qsizetype i = 0; i < row.size(); ++i)
            html += (i == 0 ? u"<td>"_s : u"<td align=\"right\">"_s) +
                    row[i].toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</td>"_s;
        html += u"</tr>"_s;
    }
    return html + u"</table>"_s;
}

} // namespace

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

void ResultSheet::AddTable(const TextTable& table, QWidget* view)
{
    m_rows.append({.table = &table});
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view, &QWidget::customContextMenuRequested, this,
            [this, view](const QPoint& at) { PopUp(view, view->mapToGlobal(at), {CopyItem()}); });
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
            rows += QList<QStringList>{{row.table->Shape().caption}} + row.table->Rows();
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
    const QList<QStringList> rows = Rows();
    auto data = std::make_unique<QMimeData>();
    data->setText(TabText(rows));
    data->setHtml(HtmlTable(rows));
    QGuiApplication::clipboard()->setMimeData(data.release());
}
