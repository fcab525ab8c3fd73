#include "framework/window/Forms.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRegularExpressionValidator>
#include <QScreen>

void CenterForm(QWidget* dialog)
{
    dialog->adjustSize();
    QRect place(QPoint(), dialog->size());
    place.moveCenter(dialog->screen()->availableGeometry().center());
    dialog->move(place.topLeft());
}

QPushButton* NewButton(const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

QPushButton* ButtonWithoutEnter(const QString& name, const QString& caption)
{
    QPushButton* button = NewButton(name, caption);
    button->setAutoDefault(false);
    return button;
}

QValidator* UpToFourDigits(QObject* parent)
{
    static const QRegularExpression kUpToFourDigits(QStringLiteral("[0-9]{0,4}"));
    return new QRegularExpressionValidator(kUpToFourDigits, parent);
}

bool WillComeBack(const QFocusEvent& event)
{
    const Qt::FocusReason reason = event.reason();
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

bool BelongsToMenu(const QEvent& event)
{
    if (event.type() == QEvent::FocusOut)
        return static_cast<const QFocusEvent&>(event).reason() == Qt::MenuBarFocusReason;
    return event.type() == QEvent::ShortcutOverride &&
           static_cast<const QKeyEvent&>(event).keyCombination() == (Qt::CTRL | Qt::Key_X);
}

bool IsRedo(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Redo) || key.keyCombination() == (Qt::CTRL | Qt::Key_Y);
}

bool IsInFront(const QWidget& widget)
{
    const QWidget* at = &widget;
    while (at != nullptr && qobject_cast<const QMdiSubWindow*>(at) == nullptr)
        at = at->parentWidget();
    const auto* frame = qobject_cast<const QMdiSubWindow*>(at);
    return widget.isVisible() && (frame == nullptr || frame->mdiArea()->currentSubWindow() == frame);
}

QWidget* DialogParent(QWidget* frame)
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : frame;
}
