#include "framework/window/ChartNotice.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kFromAxes = 6;
constexpr int kPadding = 5;

} // namespace

ChartNotice::ChartNotice(QWidget* chart)
    : QFrame(chart), m_text(new QLabel(u"Il grafico non è mostrato per intero"_s))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    auto* all = new QPushButton(u"Mostra tutto"_s);
    all->setObjectName(u"MostraTutto"_s);
    all->setFocusPolicy(Qt::NoFocus); // the keys stay with the chart, which has Home for this
    connect(all, &QPushButton::clicked, this, &ChartNotice::AllAsked);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(all);
    hide();
}

void ChartNotice::PlaceIn(const QRect& axes)
{
    const auto show = [this](bool words) {
        m_text->setVisible(words);
        layout()->setContentsMargins(words ? QMargins(2 * kPadding, kPadding, kPadding, kPadding)
                                           : QMargins());
    };
    show(true);
    if (sizeHint().width() > axes.width() - 2 * kFromAxes)
        show(false);
    resize(sizeHint());
    move(axes.right() - kFromAxes - width(), axes.top() + kFromAxes);
}

void ChartNotice::showEvent(QShowEvent* /*event*/)
{
    QAccessibleEvent alert(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
