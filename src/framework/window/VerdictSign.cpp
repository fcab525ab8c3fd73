#include "framework/window/VerdictSign.h"

#include "framework/window/Furnishings.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace
{

/// The signs are drawn in a square of this side.
constexpr double kSide = 20;
constexpr double kStroke = 2.5;
constexpr double kLines = 1.5; ///< lines of text that it is high

QPainterPath PathOf(VerdictSign::Kind kind)
{
    QPainterPath path;
    if (kind == VerdictSign::Kind::Good) {
        path.moveTo(5.5, 10.5);
        path.lineTo(8.8, 13.8);
        path.lineTo(14.5, 6.8);
    } else if (kind == VerdictSign::Kind::Bad) {
        path.moveTo(6.5, 6.5);
        path.lineTo(13.5, 13.5);
        path.moveTo(13.5, 6.5);
        path.lineTo(6.5, 13.5);
    } else if (kind == VerdictSign::Kind::Open) {
        path.moveTo(7.2, 7.6);
        path.cubicTo(7.2, 3.4, 13.2, 3.8, 12.8, 7.6);
        path.cubicTo(12.6, 9.6, 10, 9.6, 10, 12);
        path.moveTo(10, 15.1);
        path.lineTo(10, 15.2);
    }
    return path;
}

QColor ColourOf(VerdictSign::Kind kind)
{
    switch (kind) {
    case VerdictSign::Kind::Good:
        return {0x1e, 0x7b, 0x34};
    case VerdictSign::Kind::Bad:
        return {0xb0, 0x2a, 0x2a};
    default:
        return {0x8a, 0x5a, 0x00};
    }
}

/// What a screen reader says.
QString NameOf(VerdictSign::Kind kind)
{
    switch (kind) {
    case VerdictSign::Kind::Good:
        return u"Esito positivo"_s;
    case VerdictSign::Kind::Bad:
        return u"Esito negativo"_s;
    case VerdictSign::Kind::Open:
        return u"Esito non determinabile"_s;
    case VerdictSign::Kind::None:
        break;
    }
    return {};
}

} // namespace

VerdictSign::VerdictSign(const QString& name)
{
    setObjectName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void VerdictSign::ShowKind(Kind kind, bool dimmed)
{
    m_kind = kind;
    m_dimmed = dimmed;
    setAccessibleName(NameOf(kind));
    update();
}

QSize VerdictSign::sizeHint() const
{
    const int side = qRound(fontMetrics().height() * kLines);
    return {side, side};
}

void VerdictSign::paintEvent(QPaintEvent* /*event*/)
{
    if (m_kind == Kind::None)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width() / kSide, height() / kSide);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_dimmed ? QColor(kDimmedColor) : ColourOf(m_kind));
    painter.drawEllipse(QPointF(kSide / 2, kSide / 2), kSide / 2, kSide / 2);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(PathOf(m_kind));
}
