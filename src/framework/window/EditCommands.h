// Clear, copy, cut and paste, on the control that has the focus: a grid's block, or a text's selection.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/document/Messages.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/GridEdits.h"

#include <QWidget>

class GridView;

/// activeControl may be null or of any kind; one without text or cells is left alone.
void EditClear(QWidget* activeControl);
void EditCopy(QWidget* activeControl);
void EditCut(QWidget* activeControl);
void EditPaste(QWidget* activeControl);

/// Whether a block that is dropped on numbers is moved (Yes), copied (No), or stays (Cancel).
Answer AskMoveOrCopy(const DocumentContext& context);

/// A block was dropped: asks where it would overwrite numbers, and moves or copies it.
void DropBlock(GridView& view, GridEdits& grid, const GridBlock& from, int row, int col,
               const DocumentContext& context);
