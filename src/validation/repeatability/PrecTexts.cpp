#include "validation/repeatability/PrecTexts.h"

#include "framework/text/Conclusions.h"

using namespace Qt::StringLiterals;

QString PrecConclusions(Language language, int count, const QString& percent, const QString& s)
{
    // #1# the number of determinations, #2# P%, #3# the standard deviation. The wording is the required one.
    static const InBoth<QString> kTemplate = {
        .it =
            u"La precisione del contenuto analitico medio valutato da un analista con #1# replicazioni dell'analisi "
            "espressa in precisione percentuale P% = (CV * t / Sqr(n)) con una probabilità statistica del 95% è "
            ":\r\n\r\nP% = ± #2#\r\n\r\nLa deviazione standard delle misure effettuate è pari a: #3#"_s,
        .en =
            u"The precision of the medium analytical content estimated from an analyst with #1# replications of the "
            "analysis expressed in precision percentage P% = (CV * t / Sqr(n)) as statistical probability of 95% is "
            ":\r\n\r\nP% = ± #2#\r\n\r\nThe standard deviation of the measures is equal to: #3#"_s};
    static const InBoth<QString> kLine = {u"TEST DELLA PRECISIONE"_s, u"PRECISION TEST"_s};
    const QString text =
        FillTemplate(kTemplate[language], {{1, QString::number(count)}, {2, percent}, {3, s}});
    return WithHeading(language, TitleBlanks::Three, kLine[language], text);
}
