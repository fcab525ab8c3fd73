#include "framework/window/Furnishings.h"

#include "framework/text/Twips.h"

#include <QApplication>
#include <QPalette>

#include <algorithm>

namespace
{

constexpr double kBandHeight = 1000.0 / kTwipsInPixel;

// What each band is darker than the one before.
constexpr int kRedStep = 1;
constexpr int kGreenStep = 1;
constexpr int kBlueStep = 7;

void SetDisabled(QPalette& palette)
{
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(kDisabledColor));
}

} // namespace

void FurnishProgram()
{
    QPalette palette; // what is not set stays the desktop's
    SetDisabled(palette);
    QApplication::setPalette(palette);
}

void FurnishPalette(QWidget* window)
{
    const QColor page(kPageColor);
    QPalette palette(QColor(0xF3, 0xF0, 0xDC), page);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, page.lighter(105));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor(0x20, 0x20, 0x20));
    SetDisabled(palette);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xa8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    window->setPalette(palette);
}

void Dim(QWidget* widget, bool dimmed)
{
    QPalette palette; // what is not set comes from the window
    if (dimmed) {
        palette.setColor(QPalette::WindowText, QColor(kDimmedColor));
        palette.setColor(QPalette::Text, QColor(kDimmedColor));
        palette.setColor(QPalette::Base, QColor(kDimmedGround));
    }
    widget->setPalette(palette);
}

void PaintBands(QPainter& painter, const QSize& size)
{
    QColor color(kPageColor);
    for (int band = 0; band * kBandHeight < size.height(); ++band) {
        color.setRgb(std::max(0, color.red() - kRedStep), std::max(0, color.green() - kGreenStep),
                     std::max(0, color.blue() - kBlueStep));
        painter.fillRect(QRectF(0, band * kBandHeight, size.width(), kBandHeight), color);
    }
}
