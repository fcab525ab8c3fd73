// What dialogs share.
#pragma once

#include <QWidget>

/// Places a dialog in the middle of its screen, in its own size.
void CenterForm(QWidget* dialog);

/// The window over which a new dialog opens: the modal one that is open, else the frame.
QWidget* DialogParent(QWidget* frame);
