#include "framework/text/Conclusions.h"

#include "framework/text/TextFunctions.h"

QString FillTemplate(QString text, const QStringList& values)
{
    for (qsizetype i = 0; i < values.size(); ++i)
        ReplaceStr(text, QStringLiteral("#%1#").arg(i + 1), values[i]);
    return text;
}
