#include "shell/FrameArea.h"

#include <QEvent>

using namespace Qt::StringLiterals;

FrameArea::FrameArea()
    : m_hint(new QLabel(u"Per cominciare: scegliere un test dal menu Metodi,\n"
                        "oppure aprire un documento con Ctrl+O o trascinarlo qui."_s,
                        viewport()))
{
    setObjectName(u"Area"_s);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_hint->setObjectName(u"Hint"_s);
    m_hint->setAlignment(Qt::AlignCenter);
    ColourGround();
}

/// A little darker than a window, so that what stands there is read as in one.
void FrameArea::ColourGround()
{
    constexpr int kDarker = 108;
    setBackground(palette().color(QPalette::Window).darker(kDarker));
}

void FrameArea::resizeEvent(QResizeEvent* event)
{
    QMdiArea::resizeEvent(event);
    m_hint->setGeometry(viewport()->rect());
}

void FrameArea::changeEvent(QEvent* event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ColourGround();
}
