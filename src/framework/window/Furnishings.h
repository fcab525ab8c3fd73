// The look that all test windows share: colours, and the bands of the background.
#pragma once

#include <QColor>
#include <QPainter>
#include <QWidget>

/// What is said of results that are not those of what stands in the document.
inline const QString kStaleResults = QStringLiteral("Risultati non aggiornati");

/// The background of the tab pages, and the colour from which the bands begin.
inline constexpr QRgb kPageColor = qRgb(0xF4, 0xEE, 0xB1);

/// Of what is disabled, and of results that are not current: both read on white as on the deepest band.
inline constexpr QRgb kDisabledColor = qRgb(0x75, 0x71, 0x59);
inline constexpr QRgb kDimmedColor = qRgb(0x6a, 0x67, 0x52);
inline constexpr QRgb kDimmedGround = qRgb(0xfa, 0xf7, 0xdc);

/// What is disabled in menus and dialogs, too, is read.
void FurnishProgram();

/// Dark text on the pages' colour, whatever the desktop's theme.
void FurnishPalette(QWidget* window);

/// Shows its text as one that does not hold at the moment, or as one that does again.
void Dim(QWidget* widget, bool dimmed);

/// Horizontal bands from top to bottom, each a little darker and yellower than the one above.
void PaintBands(QPainter& painter, const QSize& size);
