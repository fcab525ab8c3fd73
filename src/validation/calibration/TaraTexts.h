// The conclusions of the calibration test.
#pragma once

#include "framework/text/Language.h"
#include "validation/calibration/TaraCalc.h"

#include <QString>

/// What a conclusion says besides its decisions: numbers as the window shows them.
struct TaraShown {
    QString a;
    QString b; ///< without its sign, as the next
    QString d;
    QString unit; ///< of the concentrations
};

QString TaraConclusions(Language language, const TaraResults& results, const TaraShown& shown);
