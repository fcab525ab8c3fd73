// The logo on a report: its size, and whether its section is there at all.
#pragma once

#include "framework/document/Define.h"

#include <QString>

/// The size of a picture file in twips as a report takes it: the picture's own size, in hundredths of a
/// millimetre at 96 pixels an inch, times 0.55, rounded down. False for a file that is missing or no picture.
[[nodiscard]] bool GetLogoSize(const QString& path, int& height, int& width);

/// The part of a report that carries the logo. Sizes in twips.
struct ReportLogo {
    bool section1Suppressed = false;
    int picture1Height = 0;
    int picture1Width = 0;
};

/// Without a logo the section is suppressed. With one, each side of the picture is kept within its limit by
/// itself, proportions or not. A file that is missing leaves the section as it is. Deliberate: LogoFile alone
/// counts; the company data's flag "no logo" does not.
void SetReportLogo(ReportLogo& report, const Define& define);
