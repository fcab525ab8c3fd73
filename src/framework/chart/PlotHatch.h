// Hatches as lines. The patterns of a brush are made of pixels: finer in a picture of more of them, dots in a
// PDF.
#pragma once

#include <QPainterPath>
#include <QRectF>

enum class Hatch { Rising, Crossed, Falling, Upright, Squared };

/// The lines of a hatch in a box, in points; none leaves it.
QPainterPath HatchLines(Hatch hatch, const QRectF& box);
