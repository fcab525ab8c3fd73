// The conclusions of the repeatability test.
#pragma once

#include "framework/text/Language.h"

#include <QString>

/// count: of the determinations. percent: P%, and s, the standard deviation, both as they are shown.
QString PrecConclusions(Language language, int count, const QString& percent, const QString& s);
