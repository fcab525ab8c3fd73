#include "framework/text/Conclusions.h"

#include "framework/text/TextFunctions.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString FillTemplate(QString text, const QList<Filling>& fillings)
{
    for (const Filling& filling : fillings)
        ReplaceStr(text, u"#%1#"_s.arg(filling.number), filling.text);
    return text;
}

QString WithHeading(Language language, TitleBlanks blanks, QStringView line, QStringView text)
{
    const QString title =
        language == Language::English ? u"V A L I D A T I O N  OF  A N A L Y T I C A L  M E T H O D"_s
        : blanks == TitleBlanks::Two  ? u"C O N V A L I D A  D E L   M E T O D O   A N A L I T I C O"_s
                                      : u"C O N V A L I D A   D E L   M E T O D O   A N A L I T I C O"_s;
    return QStringList{title, line.toString(), text.toString()}.join(u"\r\n\r\n"_s);
}
