#include "framework/window/ResultField.h"

#include "framework/window/Forms.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kMargin = 2;
/// The least width of what wraps, in average characters: a verdict of one sentence stands in one line.
constexpr int kLineLength = 42;
} // namespace

ResultField::ResultField(const QString& control, const QString& caption)
{
    setObjectName(control);
    setAccessibleDescription(caption);
    setTextFormat(Qt::PlainText);
    setFrameStyle(StyledPanel | Sunken);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setMargin(kMargin);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::StrongFocus); // the flags above leave it to the mouse
}

void ResultField::ShowResult(const QString& text)
{
    if (text == this->text())
        return;
    setText(text);
    if (hasFocus())
        SelectAll();
}

void ResultField::Copy() const
{
    QGuiApplication::clipboard()->setText(text());
}

QSize ResultField::Room() const
{
    const int around = 2 * (margin() + frameWidth());
    const int width = wordWrap() ? kLineLength * fontMetrics().averageCharWidth()
                                 : fontMetrics().horizontalAdvance(u"00000000,000"_s);
    return {width + around, 0};
}

QSize ResultField::sizeHint() const
{
    const QSize hint = QLabel::sizeHint();
    return (wordWrap() ? QSize(0, hint.height()) : hint).expandedTo(Room());
}

QSize ResultField::minimumSizeHint() const
{
    return QLabel::minimumSizeHint().expandedTo(Room());
}

void ResultField::SelectAll()
{
    setSelection(0, static_cast<int>(text().size()));
}

void ResultField::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    SelectAll();
}

void ResultField::focusOutEvent(QFocusEvent* event)
{
    if (!BelongsToMenu(*event))
        QLabel::focusOutEvent(event);
}

/// The label's own version would put a caret there, and a double click select what lies between two commas.
void ResultField::mousePressEvent(QMouseEvent* /*event*/)
{
    SelectAll();
}

void ResultField::mouseMoveEvent(QMouseEvent* event)
{
    event->ignore(); // a drag selects no part
}

void ResultField::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void ResultField::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Copy();
    else
        event->ignore();
}

void ResultField::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    Q_EMIT MenuWanted(byKey ? mapToGlobal(rect().center()) : event->globalPos());
}

void ResultField::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
