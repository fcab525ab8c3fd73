#include "validation/calibration/TaraTexts.h"

#include "framework/text/Conclusions.h"

using namespace Qt::StringLiterals;

QString TaraConclusions(Language language, const TaraResults& results, const TaraShown& shown)
{
    // The wording is the required one. #1# #3# regression, #2# curvature, #5# proportionality: their
    // negations; #4# the equation, #7# the slope, #8# the unit, #9# the discriminating power.
    static const InBoth<QString> kBody = {
        .it =
            u"L'analisi della varianza indica: \r\nRegressione lineare#1# significativa;\r\n"
            "Pertanto le variabili Y (risposte strumentali)#3# sono linearmente correlate alle variabili X "
            "(concentrazioni del prodotto).\r\n"
            "L'equazione che descrive la relazione tra le variabili X e Y é :\r\n\r\n#4#\r\n\r\n"
            "Curvatura#2# significativa;\r\n"
            "I limiti di confidenza dell'ordinata all'origine#5# contengono lo zero.\r\n"
            "Pertanto le risposte strumentali#5# sono proporzionali alle concentrazioni del prodotto.\r\n\r\n"
            "La sensibilità del metodo é pari a:\r\n\r\n#7#  \r\n"
            "per variazione della concentrazione uguale a 1 #8#\r\n\r\n"_s,
        .en = u"The variance analysis shows: \r\nLinear regression#1# significant;\r\n"
              "The variables Y (results)#3# are linearly related to the variables X (concentrations of the "
              "product).\r\n"
              "The equation describes the relation between the variables X and Y is :\r\n\r\n#4#\r\n\r\n"
              "Curvature#2# significant;\r\n"
              "The confidence limits of the ordinate at the origin#5# contains zero.\r\n"
              "The results#5# are proportional to the product concentrations.\r\n\r\n"
              "The sensibility of the method is equal to:\r\n\r\n#7#  \r\n"
              "for variation of the concentration equal to 1 #8#\r\n\r\n"_s};
    static const InBoth<QString> kDiscrimination = {
        .it =
            u"La capacità discriminante del metodo, intesa come differenza di concentrazione che il metodo é "
            "in grado di discriminare con probabilità statistica del 95 %, é:\r\n\r\nD = #9#  #8#"_s,
        .en = u"The method discriminating ability as concentration difference that the method is able to "
              "discriminate as statistical probability of 95 %, is:\r\n\r\nD = #9#  #8#"_s};
    static const InBoth<QString> kNegation = {u" NON"_s, u" NOT"_s};
    static const InBoth<QString> kLine = {u"TEST DELLA LINEARITA'"_s, u"LINEARITY TEST"_s};

    const auto unless = [&](bool holds) { return holds ? QString() : kNegation[language]; };
    const QString equation = u"Y = "_s + shown.a + (results.b >= 0 ? u" + "_s : u" - "_s) + shown.b + u" X"_s;
    const bool discriminates = results.d != 0;
    QList<Filling> fillings = {{1, unless(results.reg.significant)},
                               {2, unless(results.curv.significant)},
                               {3, unless(results.reg.significant)},
                               {4, equation},
                               {5, unless(results.Proportional())},
                               {7, shown.b},
                               {8, shown.unit}};
    if (discriminates)
        fillings.append({9, shown.d});
    const QString text = kBody[language] + (discriminates ? kDiscrimination[language] : QString());
    return WithHeading(language, TitleBlanks::Three, kLine[language], FillTemplate(text, fillings));
}
