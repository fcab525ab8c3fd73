#include "framework/window/NoticeBar.h"

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QStyle>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kMostActions = 2;
constexpr int kCross = 40;
} // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), m_text(new QLabel), m_actions(new QBoxLayout(QBoxLayout::LeftToRight))
{
    setObjectName(u"NoticeBar"_s);
    setAccessibleName(u"Avviso"_s);
    setFrameStyle(StyledPanel | Plain);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    m_text->setObjectName(u"NoticeText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setForegroundRole(QPalette::ToolTipText);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(8, 2, 2, 2);
    layout->addWidget(m_text, 0, 0);
    layout->setColumnStretch(0, 1);
    m_actions->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_actions, 0, 1);
    const auto addButton = [&](const QString& name) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setFocusPolicy(Qt::TabFocus); // a click takes the focus from nobody
        m_buttons.append(button);
        return button;
    };
    for (int i = 0; i < kMostActions; ++i) {
        QToolButton* button = addButton(u"NoticeAction%1"_s.arg(i));
        m_actions->addWidget(button);
        connect(button, &QToolButton::clicked, this, [this, i] { Act(i); });
    }
    QToolButton* close = addButton(u"NoticeClose"_s);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(u"Chiudi l'avviso"_s);
    close->setAccessibleName(u"Chiudi l'avviso"_s);
    layout->addWidget(close, 0, 2);
    connect(close, &QToolButton::clicked, this, [this] { End(m_notices.constLast().cause); });
    hide();
}

void NoticeBar::ComeBehind(QWidget* widget)
{
    for (QToolButton* button : std::as_const(m_buttons)) {
        setTabOrder(widget, button);
        widget = button;
    }
}

void NoticeBar::Show(const Notice& notice)
{
    m_notices.removeIf([&](const Notice& shown) { return shown.cause == notice.cause; });
    m_notices.append(notice);
    Refresh();
    QAccessibleEvent event(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void NoticeBar::End(NoticeCause cause)
{
    if (m_notices.removeIf([cause](const Notice& shown) { return shown.cause == cause; }) > 0)
        Refresh();
}

void NoticeBar::EndActions(NoticeCause cause)
{
    const auto notice = std::ranges::find(m_notices, cause, &Notice::cause);
    if (notice == m_notices.end() || notice->actions.isEmpty())
        return;
    notice->actions.clear();
    Refresh();
}

void NoticeBar::Act(int index)
{
    // A copy: who runs ends the notice, or changes it.
    const NoticeAction action = m_notices.constLast().actions[index];
    action.run();
}

void NoticeBar::Refresh()
{
    if (isAncestorOf(QApplication::focusWidget()))
        Q_EMIT Left();
    const Notice shown = m_notices.isEmpty() ? Notice{} : m_notices.constLast();
    m_text->setText(shown.text);
    for (int i = 0; i < kMostActions; ++i) {
        const bool has = i < shown.actions.size();
        m_buttons[i]->setText(has ? shown.actions[i].caption : QString());
        m_buttons[i]->setVisible(has);
    }
    Arrange();
    setVisible(!m_notices.isEmpty());
}

/// In a narrow window the actions stand below the text, and in a very narrow one below each other.
void NoticeBar::Arrange()
{
    int together = 0;
    for (int i = 0; i < m_actions->count(); ++i) {
        const QWidget* button = m_actions->itemAt(i)->widget();
        together += button->isHidden() ? 0 : button->sizeHint().width() + m_actions->spacing();
    }
    const bool below = together * 2 > width();
    if (std::exchange(m_below, below) != below) {
        auto* grid = qobject_cast<QGridLayout*>(layout());
        grid->removeItem(m_actions);
        m_actions->setParent(nullptr);
        grid->addLayout(m_actions, below ? 1 : 0, below ? 0 : 1, below ? Qt::AlignLeft : Qt::Alignment());
    }
    m_actions->setDirection(together > width() - kCross ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void NoticeBar::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    Arrange();
}

void NoticeBar::keyPressEvent(QKeyEvent* event)
{
    auto* button = qobject_cast<QToolButton*>(QApplication::focusWidget());
    if (event->key() == Qt::Key_Escape)
        End(m_notices.constLast().cause);
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_buttons.contains(button))
        button->click();
    else
        QFrame::keyPressEvent(event);
}
