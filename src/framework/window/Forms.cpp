#include "framework/window/Forms.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace
{

/// Wants the room of all that it shows; the library's own stops at a few lines.
class BodyArea : public QScrollArea
{
public:
    explicit BodyArea(QWidget* body)
    {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        setWidget(body);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

/// At 150 % a desktop rounds the size of a window, to one less than was asked for.
constexpr int kRounding = 1;

/// The title that the desktop puts above a dialog; how high it is, is not known before it is there.
QSize WithTitle(const QWidget* dialog, const QSize& size)
{
    return size + QSize(0, dialog->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, dialog));
}

} // namespace

void BuildForm(QDialog* dialog, QWidget* body, QLayout* buttons)
{
    body->layout()->setContentsMargins(0, 0, 0, 0);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(new BodyArea(body), 1);
    layout->addLayout(buttons);
    CenterForm(dialog);
}

QLayout* ButtonRow(const QList<QPushButton*>& buttons)
{
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* button : buttons)
        row->addWidget(button);
    return row;
}

void CenterForm(QWidget* dialog)
{
    dialog->ensurePolished();
    const QRect room = dialog->screen()->availableGeometry();
    const int title = WithTitle(dialog, QSize(0, 0)).height();
    const int bar = dialog->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, dialog);
    const QSize whole = dialog->sizeHint() + QSize(kRounding, kRounding);
    // What has to scroll one way needs the room of the bar in the other.
    QSize size = whole;
    if (whole.height() + title > room.height())
        size.rwidth() += bar;
    if (whole.width() > room.width())
        size.rheight() += bar;
    dialog->resize(size.boundedTo(room.size() - QSize(0, title)));
    QRect place(QPoint(), WithTitle(dialog, dialog->size()));
    place.moveCenter(room.center());
    dialog->move(place.topLeft());
}

void KeepClearOf(QWidget* dialog, const QRect& part)
{
    const QRect room = dialog->screen()->availableGeometry();
    const QRect place(dialog->pos(), WithTitle(dialog, dialog->size()));
    if (!place.intersects(part))
        return;
    const std::array<QPoint, 4> beside = {
        QPoint(place.left(), part.bottom() + 1), QPoint(part.right() + 1, place.top()),
        QPoint(part.left() - place.width(), place.top()), QPoint(place.left(), part.top() - place.height())};
    for (const QPoint& at : beside) {
        if (room.contains(QRect(at, place.size()))) {
            dialog->move(at);
            return;
        }
    }
}

QString TitleOf(QString text)
{
    return text.replace("[*]"_L1, "[*][*]"_L1);
}

QLabel* FixedLabel(const QString& name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
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

void SelectLater(QLineEdit* edit)
{
    const auto select = [edit] {
        if (edit->hasFocus())
            edit->selectAll();
    };
    QMetaObject::invokeMethod(edit, select, Qt::QueuedConnection);
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
