#include "shell/LogoView.h"

#include "framework/text/Twips.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kRuler = 34; // room for a ruler and its label
constexpr int kTick = 5;

int Pixels(int twips)
{
    return twips / kTwipsInPixel;
}

} // namespace

LogoView::LogoView(QWidget* parent) : QWidget(parent)
{
    setObjectName(u"Image1"_s);
    setAccessibleName(u"Logo"_s);
    Describe();
}

void LogoView::SetLimits(int maxHeight, int maxWidth)
{
    m_limits = QSize(maxWidth, maxHeight);
    updateGeometry();
}

void LogoView::ShowPicture(const QImage& picture)
{
    m_picture = picture;
    Describe();
    update();
    Q_EMIT ShownSizeChanged();
}

void LogoView::Clear()
{
    ShowPicture(QImage());
}

void LogoView::SetStretch(bool stretch)
{
    m_stretch = stretch;
    update();
}

QSize LogoView::ShownSize() const
{
    return (m_picture.size() * kTwipsInPixel).boundedTo(m_limits);
}

void LogoView::Describe()
{
    setAccessibleDescription(HasPicture() ? u"Un'immagine"_s : u"Nessuna immagine"_s);
}

/// Where the largest picture would stand.
QRect LogoView::Field() const
{
    return {kRuler, 0, Pixels(m_limits.width()), Pixels(m_limits.height())};
}

QSize LogoView::sizeHint() const
{
    return {Field().width() + kRuler + 2, Field().height() + kRuler + 2};
}

void LogoView::PaintRulers(QPainter& painter) const
{
    const QRect field = Field();
    painter.setPen(palette().color(QPalette::WindowText));
    const int left = field.left() - kTick;
    painter.drawLine(left, field.top(), left, field.bottom());
    for (const int y : {field.top(), field.bottom()})
        painter.drawLine(left - kTick / 2, y, left + kTick / 2, y);
    const int below = field.bottom() + kTick;
    painter.drawLine(field.left(), below, field.right(), below);
    for (const int x : {field.left(), field.right()})
        painter.drawLine(x, below - kTick / 2, x, below + kTick / 2);

    painter.drawText(QRect(field.left(), below + 3, field.width(), kRuler), Qt::AlignHCenter | Qt::AlignTop,
                     u"10 cm"_s);
    painter.save();
    painter.translate(0, field.bottom());
    painter.rotate(-90);
    painter.drawText(QRect(0, 0, field.height(), left - 3), Qt::AlignHCenter | Qt::AlignBottom, u"2.5 cm"_s);
    painter.restore();
}

void LogoView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    PaintRulers(painter);
    const QRect field = Field();
    painter.fillRect(field, Qt::white);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DotLine));
    painter.drawRect(field.adjusted(0, 0, -1, -1));
    if (!HasPicture())
        return;
    const QSize shown(Pixels(ShownSize().width()), Pixels(ShownSize().height()));
    const QRect target(field.topLeft(), shown);
    if (m_stretch) {
        painter.drawImage(target, m_picture);
    } else {
        painter.setClipRect(target);
        painter.drawImage(target.topLeft(), m_picture);
    }
}
