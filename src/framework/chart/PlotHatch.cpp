#include "framework/chart/PlotHatch.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

/// From line to line.
constexpr double kBetweenLines = 6;

/// Lines whose numbers are whole multiples of the step, so that hatches beside each other go on in each
/// other.
template<typename LineAt>
void AddLines(QPainterPath& path, double from, double to, double step, LineAt lineAt)
{
    const auto first = static_cast<qint64>(std::ceil(from / step));
    const auto behind = static_cast<qint64>(std::ceil(to / step));
    for (qint64 multiple = first; multiple < behind; ++multiple) {
        const QLineF line = lineAt(static_cast<double>(multiple) * step);
        path.moveTo(line.p1());
        path.lineTo(line.p2());
    }
}

/// Along x + y = number.
void AddRising(QPainterPath& path, const QRectF& box)
{
    AddLines(path, box.left() + box.top(), box.right() + box.bottom(), kBetweenLines * std::numbers::sqrt2,
             [&box](double number) {
                 const double from = std::max(box.left(), number - box.bottom());
                 const double to = std::min(box.right(), number - box.top());
                 return QLineF(from, number - from, to, number - to);
             });
}

/// Along y - x = number.
void AddFalling(QPainterPath& path, const QRectF& box)
{
    AddLines(path, box.top() - box.right(), box.bottom() - box.left(), kBetweenLines * std::numbers::sqrt2,
             [&box](double number) {
                 const double from = std::max(box.left(), box.top() - number);
                 const double to = std::min(box.right(), box.bottom() - number);
                 return QLineF(from, number + from, to, number + to);
             });
}

} // namespace

QPainterPath HatchLines(Hatch hatch, const QRectF& box)
{
    QPainterPath path;
    if (box.isEmpty())
        return path;
    if (hatch == Hatch::Rising || hatch == Hatch::Crossed)
        AddRising(path, box);
    if (hatch == Hatch::Falling || hatch == Hatch::Crossed)
        AddFalling(path, box);
    if (hatch == Hatch::Upright || hatch == Hatch::Squared)
        AddLines(path, box.left(), box.right(), kBetweenLines,
                 [&box](double x) { return QLineF(x, box.top(), x, box.bottom()); });
    if (hatch == Hatch::Squared)
        AddLines(path, box.top(), box.bottom(), kBetweenLines,
                 [&box](double y) { return QLineF(box.left(), y, box.right(), y); });
    return path;
}
