"""The sentences of the three tests, as they are required: conclusions and what stands above them, by language."""

HEADING_IT = "C O N V A L I D A  D E L   M E T O D O   A N A L I T I C O\r\n\r\n"
WIDER_HEADING_IT = HEADING_IT.replace("A  D", "A   D")
HEADING_EN = "V A L I D A T I O N  OF  A N A L Y T I C A L  M E T H O D\r\n\r\n"

LIMITS_HEADING = HEADING_IT + "TEST LIMITI DI RILEVAZIONE / DETERMINAZIONE\r\n\r\n"
LIMITS = {
    "it": ["LIMITE DI RILEVAZIONE\r\nLa più piccola concentrazione ( #1# ) dell'analita che può essere distinta dal "
           "bianco con il 95% di probabilità è pari a :\r\n\r\n#2#",
           "LIMITE DI DETERMINAZIONE\r\nLa più piccola concentrazione ( #1# ) dell'analita determinabile con "
           "accettabile precisione e accuratezza è pari a :\r\n\r\n#3#"],
    "en": ["DETECTION LIMIT\r\nThe smallest concentration ( #1# ) of the analyte that it can be distinguished from "
           "the white reference with probability of 95% is :\r\n\r\n#2#",
           "QUANTITATION LIMIT\r\nThe smallest concentration ( #1# ) of the analyte determinable with acceptable "
           "precision and accuracy is :\r\n\r\n#3#"],
}

REPEATABILITY = {
    "it":
        WIDER_HEADING_IT + "TEST DELLA PRECISIONE\r\n\r\nLa precisione del contenuto analitico medio valutato da un analista "
        "con #1# replicazioni dell'analisi espressa in precisione percentuale P% = (CV * t / Sqr(n)) con una probabilità "
        "statistica del 95% è :\r\n\r\nP% = ± #2#\r\n\r\nLa deviazione standard delle misure effettuate è pari a: #3#",
    "en":
        HEADING_EN + "PRECISION TEST\r\n\r\nThe precision of the medium analytical content estimated from an analyst with "
        "#1# replications of the analysis expressed in precision percentage P% = (CV * t / Sqr(n)) as statistical "
        "probability of 95% is :\r\n\r\nP% = ± #2#\r\n\r\nThe standard deviation of the measures is equal to: #3#",
}

UNDETERMINED = {
    "it": "Le varianze dei due gruppi di dati sono significativamente diverse.\r\nData l'elevata dispersione dei "
          "risultati, con l'attuale numerosità dei dati (#1# per il gruppo A e #2# per il gruppo B) non è possibile "
          "stabilire statisticamente (P = 95%) una differenza tra i due gruppi.\r\nSpecificità statisticamente non "
          "determinabile.",
    "en": "The variances of the two groups of data are significant different.\r\nGiven the high dispersion of the "
          "results, with this numerosity of the data (#1# for the group A e #2# for the group B) it is not possible to "
          "establish statistically (P = 95%) one difference between the two groups.\r\nSpecificity statistically not "
          "determinable.",
}
DETERMINED = {
    "it": "Il metodo #1##2# è in grado di determinare l'analita #3# senza subire le interferenze da parte di altre "
          "sostanze note presenti nel campione.",
    "en": "The method #1##2# determine analyte #3# without having the interferences from other known substances "
          "presents in the sample.",
}
SPECIFICITY_HEADINGS = {"it": WIDER_HEADING_IT + "TEST DELLA SPECIFICITA'\r\n\r\n",
                        "en": HEADING_EN + "SPECIFICITY TEST\r\n\r\n"}
