// What dialogs share.
#pragma once

#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QList>
#include <QPushButton>
#include <QRect>
#include <QString>
#include <QValidator>

/// Puts a dialog together, of its body and the row of its buttons, and places it in the middle of its screen.
/// On a screen that is too small for the body the body scrolls, and the buttons stay in sight.
void BuildForm(QDialog* dialog, QWidget* body, QLayout* buttons);

/// The row of a dialog's buttons, on its right.
QLayout* ButtonRow(const QList<QPushButton*>& buttons);

/// Places a dialog in the middle of its screen, in its own size or in as much of it as the screen has room
/// for.
void CenterForm(QWidget* dialog);

/// Moves a dialog that is not shown yet, and that would cover this part of the screen, beside it. One for
/// which there is no room there stays.
void KeepClearOf(QWidget* dialog, const QRect& part);

/// The window title that shows this text, also where "[*]" stands in it.
QString TitleOf(QString text);

/// A label with this objectName, whose text is no markup.
QLabel* FixedLabel(const QString& name, const QString& text);

/// A dialog's button with this objectName.
QPushButton* NewButton(const QString& name, const QString& caption);
/// The same, which the Enter key does not press.
QPushButton* ButtonWithoutEnter(const QString& name, const QString& caption);

/// Takes what counts of digits, rows and columns are typed as: nothing, or up to four digits.
QValidator* UpToFourDigits(QObject* parent);

/// Selects all of a field that gets the focus, once the click that brings it has placed the caret.
void SelectLater(QLineEdit* edit);
/// Whether the focus goes to a menu or to another program, from where it comes back to the field.
bool WillComeBack(const QFocusEvent& event);
/// What a field must not get, so that the commands of the menus act on it: Ctrl+X, which it would take for
/// itself to cut, where the menu clears; and the loss of the focus to the menu bar, at which it would drop
/// its selection.
bool BelongsToMenu(const QEvent& event);
/// What does again what was taken back.
bool IsRedo(const QKeyEvent& key);

/// Whether a widget can be seen, in the document's window that is in front.
bool IsInFront(const QWidget& widget);

/// The window over which a new dialog opens: the modal one that is open, else the frame.
QWidget* DialogParent(QWidget* frame);
