#include "reports/ReportLogo.h"

#include <QImageReader>
#include <QSize>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double kHundredthsOfMillimetreInInch = 2540;
constexpr double kPixelsInInch = 96;
constexpr double kTwipsOfOwnUnit = 0.55;

int TwipsOf(int pixels)
{
    return static_cast<int>(
        std::floor(pixels * kHundredthsOfMillimetreInInch / kPixelsInInch * kTwipsOfOwnUnit));
}

} // namespace

bool GetLogoSize(const QString& path, int& height, int& width)
{
    QImageReader reader(path);
    QSize size = reader.size(); // read from the file's head, however large the picture
    if (!size.isValid())
        size = reader.read().size();
    if (reader.transformation().testFlag(QImageIOHandler::TransformationRotate90)) // as it is shown
        size.transpose();
    if (!size.isValid() || size.isEmpty())
        return false;
    height = TwipsOf(size.height());
    width = TwipsOf(size.width());
    return true;
}

void SetReportLogo(ReportLogo& report, const Define& define)
{
    if (define.LogoFile.isEmpty()) {
        report.section1Suppressed = true;
        return;
    }
    int height = 0;
    int width = 0;
    if (!GetLogoSize(define.LogoFile, height, width))
        return;
    report.section1Suppressed = false;
    report.picture1Height = std::min<int>(height, define.LogoMaxHeight);
    report.picture1Width = std::min<int>(width, define.LogoMaxWidth);
}
