#include "validation/specificity/SpecTexts.h"

#include "framework/text/Conclusions.h"

using namespace Qt::StringLiterals;

QString SpecConclusions(Language language, const SpecResults& results, const SpecHeader& header)
{
    // The wording is the required one. #1# and #2# the sizes of the groups.
    static const InBoth<QString> kNotDeterminable = {
        .it =
            u"Le varianze dei due gruppi di dati sono significativamente diverse.\r\n"
            "Data l'elevata dispersione dei risultati, con l'attuale numerosità dei dati (#1# per il gruppo A e #2# "
            "per il gruppo B) non è possibile stabilire statisticamente (P = 95%) una differenza tra i due "
            "gruppi.\r\nSpecificità statisticamente non determinabile."_s,
        .en =
            u"The variances of the two groups of data are significant different.\r\n"
            "Given the high dispersion of the results, with this numerosity of the data (#1# for the group A e #2# "
            "for the group B) it is not possible to establish statistically (P = 95%) one difference between the two "
            "groups.\r\nSpecificity statistically not determinable."_s};
    // #1# the method, #2# the negation, #3# the analyte.
    static const InBoth<QString> kDecision = {
        .it =
            u"Il metodo #1##2# è in grado di determinare l'analita #3# senza subire le interferenze da parte di "
            "altre sostanze note presenti nel campione."_s,
        .en =
            u"The method #1##2# determine analyte #3# without having the interferences from other known substances "
            "presents in the sample."_s};
    static const InBoth<QString> kNegation = {u" NON"_s, u" NOT"_s};
    static const InBoth<QString> kLine = {u"TEST DELLA SPECIFICITA'"_s, u"SPECIFICITY TEST"_s};
    const QString text =
        results.NotDeterminable()
            ? FillTemplate(kNotDeterminable[language],
                           {{1, QString::number(header.countA)}, {2, QString::number(header.countB)}})
            : FillTemplate(kDecision[language], {{1, header.method},
                                                 {2, results.Significant() ? kNegation[language] : QString()},
                                                 {3, header.analyte}});
    return WithHeading(language, TitleBlanks::Three, kLine[language], text);
}

QString SpecVerdict(Language language, const SpecResults& results)
{
    static const InBoth<QString> kNotDeterminable = {
        u"Dispersione dei dati elevata.\r\nSpecificità statisticamente non determinabile"_s,
        u"High dispertion data.\r\nSpecificity statistically not determinable"_s};
    static const InBoth<QString> kSignificant = {u"Differenza SIGNIFICATIVA (P = 95%)"_s,
                                                 u"Difference SIGNIFICANT (P = 95%)"_s};
    static const InBoth<QString> kNotSignificant = {u"Differenza NON SIGNIFICATIVA (P = 95%)"_s,
                                                    u"Difference NOT SIGNIFICANT (P = 95%)"_s};
    if (results.NotDeterminable())
        return kNotDeterminable[language];
    return (results.Significant() ? kSignificant : kNotSignificant)[language];
}
