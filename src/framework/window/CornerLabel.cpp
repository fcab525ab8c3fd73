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
    setPalette(view->horizontalHeader()->palette()); // and not that of cells that are dimmed
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
