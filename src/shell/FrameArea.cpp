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
    ColourHint();
}

/// Quiet, and yet at 4.5:1 on the area's own ground.
void FrameArea::ColourHint()
{
    constexpr QRgb kOnLight = 0xff2b2b2b;
    constexpr QRgb kOnDark = 0xffdcdcdc;
    constexpr int kMiddle = 110;
    QPalette colours = m_hint->palette();
    const QColor wanted(background().color().lightness() > kMiddle ? kOnLight : kOnDark);
    if (colours.color(QPalette::WindowText) == wanted)
        return;
    colours.setColor(QPalette::WindowText, wanted);
    m_hint->setPalette(colours);
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
        ColourHint();
}
