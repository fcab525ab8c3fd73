"""The sentences of the tests, as they are required: conclusions and what stands above them, by language."""

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

LINEARITY_HEADINGS = {"it": WIDER_HEADING_IT + "TEST DELLA LINEARITA'\r\n\r\n", "en": HEADING_EN + "LINEARITY TEST\r\n\r\n"}
LINEARITY = {
    "it": "L'analisi della varianza indica: \r\nRegressione lineare#1# significativa;\r\nPertanto le variabili Y (risposte "
          "strumentali)#3# sono linearmente correlate alle variabili X (concentrazioni del prodotto).\r\nL'equazione che "
          "descrive la relazione tra le variabili X e Y é :\r\n\r\n#4#\r\n\r\nCurvatura#2# significativa;\r\nI limiti di "
          "confidenza dell'ordinata all'origine#5# contengono lo zero.\r\nPertanto le risposte strumentali#5# sono "
          "proporzionali alle concentrazioni del prodotto.\r\n\r\nLa sensibilità del metodo é pari a:\r\n\r\n#7#  \r\nper "
          "variazione della concentrazione uguale a 1 #8#\r\n\r\n",
    "en": "The variance analysis shows: \r\nLinear regression#1# significant;\r\nThe variables Y (results)#3# are linearly "
          "related to the variables X (concentrations of the product).\r\nThe equation describes the relation between the "
          "variables X and Y is :\r\n\r\n#4#\r\n\r\nCurvature#2# significant;\r\nThe confidence limits of the ordinate at "
          "the origin#5# contains zero.\r\nThe results#5# are proportional to the product concentrations.\r\n\r\nThe "
          "sensibility of the method is equal to:\r\n\r\n#7#  \r\nfor variation of the concentration equal to 1 #8#\r\n\r\n",
}
DISCRIMINATION = {
    "it": "La capacità discriminante del metodo, intesa come differenza di concentrazione che il metodo é in grado di "
          "discriminare con probabilità statistica del 95 %, é:\r\n\r\nD = #9#  #8#",
    "en": "The method discriminating ability as concentration difference that the method is able to discriminate as "
          "statistical probability of 95 %, is:\r\n\r\nD = #9#  #8#",
}
