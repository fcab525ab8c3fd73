// The conclusions of the test of the detection and quantitation limits.
#pragma once

#include "framework/text/Language.h"

#include <QString>
#include <QStringList>

/// The conclusions of one language: detection limit, then quantitation limit, without their heading. unit: of
/// the analyte's concentration. limRil, limDet: the two limits as they are shown.
QStringList LimiConclusions(Language language, const QString& unit, const QString& limRil,
                            const QString& limDet);

/// What the window shows: the Italian heading, and one of the conclusions.
QString LimiOnScreen(const QString& conclusion);
