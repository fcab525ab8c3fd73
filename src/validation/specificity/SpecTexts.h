// The conclusions and the verdict of the specificity test.
#pragma once

#include "framework/text/Language.h"
#include "validation/specificity/SpecCalc.h"

#include <QString>

/// What a conclusion says besides its numbers.
struct SpecHeader {
    QString method;
    QString analyte;
    int countA = 0; ///< of the results of group A
    int countB = 0;
};

QString SpecConclusions(Language language, const SpecResults& results, const SpecHeader& header);

QString SpecVerdict(Language language, const SpecResults& results);
