#include "framework/window/CornerLabel.h"

#include <QEvent>
#include <QHeaderView>

namespace
{
constexpr int kMargins = 12;
} // namespace

CornerLabel::CornerLabel(const QString& text, QTableView* view) : QLabel(text, view), m_view(view)
{
    setAlignment(Qt::AlignCenter);
    QPalette own = palette(); // and not that of cells that are dimmed
    own.setColor(QPalette::WindowText, own.color(QPalette::WindowText));
    setPalette(own);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view->verticalHeader()->setMinimumWidth(sizeHint().width() + kMargins);
    for (QHeaderView* header : {view->verticalHeader(), view->horizontalHeader()})
        header->installEventFilter(this);
    Place();
}

bool CornerLabel::eventFilter(QObject* /*object*/, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        Place();
    return false;
}

void CornerLabel::Place()
{
    const int frame = m_view->frameWidth();
    setGeometry(frame, frame, m_view->verticalHeader()->width(), m_view->horizontalHeader()->height());
}
