// The look that all test windows share: colours, and the bands of the background.
#pragma once

#include <QColor>
#include <QPainter>
#include <QWidget>

/// The background of the tab pages, and the colour from which the bands begin.
inline constexpr QRgb kPageColor = qRgb(0xF4, 0xEE, 0xB1);

/// Dark text on the pages' colour, whatever the desktop's theme.
void FurnishPalette(QWidget* window);

/// Horizontal bands from top to bottom, each a little darker and yellower than the one above.
void PaintBands(QPainter& painter, const QSize& size);
