#include "framework/window/NoticeBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QStyle>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kMostActions = 2;
} // namespace

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_text(new QLabel)
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
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 2, 2);
    layout->addWidget(m_text, 1);
    const auto addButton = [&](const QString& name) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setFocusPolicy(Qt::TabFocus); // a click takes the focus from nobody
        layout->addWidget(button);
        m_buttons.append(button);
        return button;
    };
    for (int i = 0; i < kMostActions; ++i) {
        connect(addButton(u"NoticeAction%1"_s.arg(i)), &QToolButton::clicked, this, [this, i] { Act(i); });
    }
    QToolButton* close = addButton(u"NoticeClose"_s);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(u"Chiudi l'avviso"_s);
    close->setAccessibleName(u"Chiudi l'avviso"_s);
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
    const Notice shown = m_notices.isEmpty() ? Notice{} : m_notices.constLast();
    m_text->setText(shown.text);
    for (int i = 0; i < kMostActions; ++i) {
        const bool has = i < shown.actions.size();
        m_buttons[i]->setText(has ? shown.actions[i].caption : QString());
        m_buttons[i]->setVisible(has);
    }
    setVisible(!m_notices.isEmpty());
}
