// What dialogs share.
#pragma once

#include <QPushButton>
#include <QValidator>

/// Places a dialog in the middle of its screen, in its own size.
void CenterForm(QWidget* dialog);

/// A dialog's button with this objectName.
QPushButton* NewButton(const QString& name, const QString& caption);
/// The same, which the Enter key does not press.
QPushButton* ButtonWithoutEnter(const QString& name, const QString& caption);

/// Takes what counts of digits, rows and columns are typed as: nothing, or up to four digits.
QValidator* UpToFourDigits(QObject* parent);

/// The window over which a new dialog opens: the modal one that is open, else the frame.
QWidget* DialogParent(QWidget* frame);
