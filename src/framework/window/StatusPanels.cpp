#include "framework/window/StatusPanels.h"

#include "framework/window/TestMenus.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

StatusPanel::StatusPanel(const QString& key, const QString& text) : QLabel(text)
{
    setObjectName(key);
    setTextFormat(Qt::PlainText);
    setFrameStyle(Panel | Sunken);
    setLineWidth(1);
    setMargin(3);
    setMinimumWidth(1);
    FurnishPalette(this); // the bar's style sheet lets none through
}

void StatusPanel::ShowText(const QString& text)
{
    setText(text);
    setToolTip(text);
}

/// A text that is too long for the panel ends in an ellipsis.
void StatusPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter);
    const QRect inside = contentsRect().marginsRemoved(QMargins(margin(), 0, margin(), 0));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, inside.width());
    style()->drawItemText(&painter, inside, static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

void StatusPanel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Clicked();
}

void StatusPanel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT DoubleClicked();
}

StatusPanels::StatusPanels(const TestInfo& info, Frame& frame, QWidget* parent)
    : QStatusBar(parent),
      m_frame(frame),
      m_descrBar(new StatusPanel(u"DescrBar"_s, {})),
      m_statusBar(new StatusPanel(u"StatusBar"_s, {}))
{
    setObjectName(u"StatusBar1"_s);
    setSizeGripEnabled(false);
    setStyleSheet(u"QStatusBar::item { border: none; }"_s); // the panels have their own bevels
    // Both have what is left over; where it is scarce the number format stays whole.
    for (StatusPanel* panel : {m_descrBar, m_statusBar}) {
        panel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        addWidget(panel);
    }
    connect(m_statusBar, &StatusPanel::DoubleClicked, this, &StatusPanels::StatusDoubleClicked);
    BuildStatusPanels(info);
    m_modified = StatePanel(u"ModifiedBar"_s, kModified);
    m_stale = StatePanel(u"StaleBar"_s, kStaleResults);
}

/// A panel at the right end, as wide as its text, which comes and goes, so that the others stay in their
/// place.
StatusPanel* StatusPanels::StatePanel(const QString& name, const QString& longest)
{
    auto* panel = new StatusPanel(name, longest);
    panel->setAlignment(Qt::AlignCenter);
    panel->setMinimumWidth(panel->sizeHint().width());
    addWidget(panel);
    ShowState(panel, {});
    return panel;
}

/// An empty one is not seen.
void StatusPanels::ShowState(StatusPanel* panel, const QString& text)
{
    panel->ShowText(text);
    panel->setFrameShape(text.isEmpty() ? QFrame::NoFrame : QFrame::Panel);
}

void StatusPanels::BuildStatusPanels(const TestInfo& info)
{
    for (const QString& key : OtherTests(info)) {
        const QString name = FindTest(key)->panel;
        auto* panel = new StatusPanel(name, name);
        panel->setAlignment(Qt::AlignCenter);
        panel->setToolTip(FindTest(key)->title);
        panel->SetInset(false);
        panel->setEnabled(m_frame.HasTest(key));
        connect(panel, &StatusPanel::Clicked, this, [this, key] { RunPanel(key); });
        addWidget(panel);
        m_tests.append(panel);
    }
}

void StatusPanels::RunPanel(const QString& key)
{
    m_frame.ShowTest(key); // opens a closed test, brings an open one forward, unless this one can't be left
    UpdateStatusPanels();
}

void StatusPanels::UpdateStatusPanels()
{
    for (const TestInfo& info : TestRegistry()) {
        const auto panel = std::ranges::find(m_tests, QString(info.panel), &QObject::objectName);
        if (panel != m_tests.end()) // the window's own test has none
            (*panel)->SetInset(m_frame.FormIsOpen(info.windowClass));
    }
}
