#include "framework/window/Descriptions.h"

#include <QMouseEvent>

#include <utility>

void Descriptions::Describe(QWidget* widget, const QString& text)
{
    m_texts.insert(widget, text);
}

void Descriptions::Watch()
{
    for (auto described = m_texts.keyBegin(); described != m_texts.keyEnd(); ++described) {
        QList<QWidget*> all = (*described)->findChildren<QWidget*>();
        all.append(*described);
        for (QWidget* widget : std::as_const(all)) {
            widget->setMouseTracking(true);
            widget->installEventFilter(this);
        }
    }
}

bool Descriptions::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseMove) {
        // A widget without use for the event passes it on to its parents: all of them tell of the one under
        // the mouse.
        const QWidget* window = qobject_cast<QWidget*>(object)->window();
        const QPointF at = static_cast<QMouseEvent*>(event)->globalPosition();
        QWidget* widget = window->childAt(window->mapFromGlobal(at).toPoint());
        while (widget != nullptr && !m_texts.contains(widget))
            widget = widget->parentWidget();
        if (widget != nullptr)
            Q_EMIT Hovered(m_texts.value(widget));
    }
    return false;
}
