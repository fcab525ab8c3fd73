#include "validation/limits/LimiTexts.h"

#include "framework/text/Conclusions.h"

using namespace Qt::StringLiterals;

namespace
{

/// #1# the unit, #2# the detection limit, #3# the quantitation limit. The wording is the required one.
const InBoth<QStringList>& Templates()
{
    static const InBoth<QStringList> kTemplates = {
        .it =
            {u"LIMITE DI RILEVAZIONE\r\nLa più piccola concentrazione ( #1# ) dell'analita che può essere distinta "
             "dal bianco con il 95% di probabilità è pari a :\r\n\r\n#2#"_s,
             u"LIMITE DI DETERMINAZIONE\r\nLa più piccola concentrazione ( #1# ) dell'analita determinabile con "
             "accettabile precisione e accuratezza è pari a :\r\n\r\n#3#"_s},
        .en = {
            u"DETECTION LIMIT\r\nThe smallest concentration ( #1# ) of the analyte that it can be distinguished "
            "from the white reference with probability of 95% is :\r\n\r\n#2#"_s,
            u"QUANTITATION LIMIT\r\nThe smallest concentration ( #1# ) of the analyte determinable with "
            "acceptable precision and accuracy is :\r\n\r\n#3#"_s}};
    return kTemplates;
}

} // namespace

QStringList LimiConclusions(Language language, const QString& unit, const QString& limRil,
                            const QString& limDet)
{
    QStringList texts = Templates()[language];
    for (QString& text : texts)
        text = FillTemplate(text, {{1, unit}, {2, limRil}, {3, limDet}});
    return texts;
}

QString LimiOnScreen(const QString& conclusion)
{
    return WithHeading(Language::Italian, TitleBlanks::Two,
                       u"TEST LIMITI DI RILEVAZIONE / DETERMINAZIONE\r\n", conclusion);
}
