// What the frame does with the windows of its area: which one is active, and where they stand.
#pragma once

#include "framework/window/Frame.h"

#include <QMdiArea>
#include <QMdiSubWindow>

/// Makes window the active one of its area; a minimized one is opened.
void ActivateWindow(QMdiSubWindow* window);

/// Places the windows of area. Minimized ones are moved by Icons alone, and leave the tiles a row.
void ArrangeWindows(QMdiArea& area, Arrangement arrangement);
