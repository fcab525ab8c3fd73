#include "framework/grid/TabText.h"

#include <optional>

namespace
{

bool EndsCell(QChar c)
{
    return c == u'\t' || c == u'\n' || c == u'\r';
}

/// The cell in quotation marks that begins at `at`, which moves behind it; nothing, and `at` as it was, when
/// the marks do not close in front of a tab, a line end or the text's end: then they are characters like any
/// other.
std::optional<QString> TakeQuoted(QStringView text, qsizetype& at)
{
    QString cell;
    for (qsizetype i = at + 1; i < text.size(); ++i) {
        if (text[i] != u'"') {
            cell += text[i];
        } else if (i + 1 < text.size() && text[i + 1] == u'"') {
            cell += text[++i];
        } else if (i + 1 == text.size() || EndsCell(text[i + 1])) {
            at = i + 1;
            return cell;
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

QString TakePlain(QStringView text, qsizetype& at)
{
    const qsizetype start = at;
    while (at < text.size() && !EndsCell(text[at]))
        ++at;
    return text.sliced(start, at - start).toString();
}

QString TakeCell(QStringView text, qsizetype& at)
{
    if (at < text.size() && text[at] == u'"') {
        if (const auto quoted = TakeQuoted(text, at))
            return *quoted;
    }
    return TakePlain(text, at);
}

} // namespace

QList<QStringList> ParseTabText(QStringView text)
{
    QList<QStringList> rows;
    for (qsizetype at = 0; at < text.size();) {
        QStringList row{TakeCell(text, at)};
        while (at < text.size() && text[at] == u'\t') {
            ++at;
            row.append(TakeCell(text, at));
        }
        rows.append(row);
        if (at < text.size())
            at += text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
    }
    return rows;
}

QString MakeTabText(const QList<QStringList>& rows)
{
    QStringList lines;
    for (const QStringList& row : rows)
        lines.append(row.join(u'\t'));
    return lines.join(u'\n');
}
