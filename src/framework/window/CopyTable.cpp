#include "framework/window/CopyTable.h"

#include "framework/text/TextFunctions.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

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

void CopyTable(const QList<QStringList>& rows)
{
    auto data = std::make_unique<QMimeData>();
    data->setText(TabText(rows));
    data->setHtml(HtmlTable(rows));
    QGuiApplication::clipboard()->setMimeData(data.release());
}
