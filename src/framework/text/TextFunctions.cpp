#include "framework/text/TextFunctions.h"

#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

QString ReplaceStr(QString& text, const QString& search, const QString& replacement)
{
    if (replacement == search || search.isEmpty())
        return text;
    const bool single = replacement.contains(search);
    qsizetype at = text.indexOf(search);
    while (at >= 0) {
        text.replace(at, search.size(), replacement);
        // No match begins before `at`; a new one can only reach into what was just put in.
        const qsizetype next =
            single ? at + replacement.size() : std::max<qsizetype>(0, at - search.size() + 1);
        at = text.indexOf(search, next);
    }
    return text;
}

QString ReplaceStr(QString&& text, const QString& search, const QString& replacement)
{
    return ReplaceStr(text, search, replacement);
}

QString TrimBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

QString CenterStr(const QString& text, qsizetype width)
{
    if (text.size() >= width)
        return text;
    const QString blanks((width - text.size()) / 2, u' ');
    const QString centred = blanks + text + blanks;
    return centred.size() < (text.size() | width) ? u' ' + centred : centred;
}

QString InOneLine(QString text)
{
    for (const QLatin1StringView other : {"\r\n"_L1, "\n"_L1, "\r"_L1, "\t"_L1})
        text.replace(other, " "_L1);
    return text;
}

QString GetDecSep()
{
    return QLocale::system().toString(1.5F).sliced(1, 1);
}

QString FailureText(const RuntimeFailure& failure)
{
    return QString::fromStdString(failure.Text());
}
