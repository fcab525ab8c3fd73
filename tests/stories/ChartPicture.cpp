#include "stories/ChartPicture.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QLineF>
#include <QPolygonF>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <QTransform>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// Of marks and ticks.
constexpr double kSmall = 12;
constexpr double kSmallTick = 4;
/// From an axis to its label, from an icon to its text.
constexpr double kNear = 8;
constexpr double kNearIcon = 30;
const QString kAxisLook = u"#000000 1"_s;
const QString kGridLook = u"#e1e1e1 1"_s;

struct Shape {
    QString kind = {}; ///< an element of SVG
    QString look = {}; ///< pen and filling; of a text its size
    QPolygonF points = {};
    QRectF box = {};
    QRectF ink = {}; ///< what its letters take of the box
    QString text = {};
    bool turned = false;

    bool IsSmall() const { return std::max(box.width(), box.height()) < kSmall; }
};

struct Axis : AxisSpan {
    QString unit = u"%"_s;
    QList<double> ticks;
    QStringList labels;
    int smallTicks = 0;
    QList<std::pair<double, QString>> grid;

    QString Number(double place) const;
    QString Line() const;
};

QString Rounded(double value, int decimals = 0)
{
    const double unit = std::pow(10, decimals);
    return QString::number(std::round(value * unit) / unit + 0.0, 'g', 12);
}

QList<double> NumbersIn(const QString& text)
{
    static const QRegularExpression kNumber(u"-?[0-9.]+(e[-+]?[0-9]+)?"_s);
    QList<double> numbers;
    for (auto all = kNumber.globalMatch(text); all.hasNext();)
        numbers += all.next().captured().toDouble();
    return numbers;
}

/// "#0072b2 2 dashes 8,4 on #0072b2 31 %"
QString LookOf(const QXmlStreamAttributes& group)
{
    const auto value = [&](QLatin1StringView name) { return group.value(name).toString(); };
    const auto percent = [&](QLatin1StringView name) {
        return value(name) == u"1" ? QString() : u" %1 %"_s.arg(Rounded(value(name).toDouble() * 100));
    };
    QStringList look;
    if (value("stroke"_L1) != u"none")
        look += value("stroke"_L1) + u' ' + value("stroke-width"_L1) + percent("stroke-opacity"_L1);
    if (!value("stroke-dasharray"_L1).isEmpty())
        look += u"dashes "_s + value("stroke-dasharray"_L1);
    const QString fill = value("fill"_L1);
    if (fill != u"none")
        look += u"on "_s + fill + percent("fill-opacity"_L1);
    return look.join(u' ');
}

QPolygonF PointsOf(const QXmlStreamAttributes& element)
{
    const auto number = [&](QLatin1StringView name) { return element.value(name).toDouble(); };
    if (const double radius = number("r"_L1); radius > 0)
        return QRectF(number("cx"_L1) - radius, number("cy"_L1) - radius, 2 * radius, 2 * radius);
    if (element.hasAttribute("height"_L1))
        return QRectF(number("x"_L1), number("y"_L1), number("width"_L1), number("height"_L1));
    const QList<double> numbers =
        NumbersIn(element.value("points"_L1).toString() + element.value("d"_L1).toString());
    QPolygonF points;
    for (qsizetype i = 1; i < numbers.size(); i += 2)
        points += QPointF(numbers[i - 1], numbers[i]);
    return points;
}

/// "hatch 45° 135°, 6 apart": by its strokes.
QString HatchOf(const QPolygonF& ends)
{
    QStringList angles;
    for (qsizetype i = 1; i < ends.size(); i += 2) {
        const QString angle = Rounded(std::fmod(QLineF(ends[i - 1], ends[i]).angle(), 180)) + u"°"_s;
        angles += angles.contains(angle) ? QStringList() : QStringList(angle);
    }
    const QPointF first = ends[1] - ends[0];
    const QPointF aside = ends[2] - ends[0];
    const double apart = (first.x() * aside.y() - first.y() * aside.x()) / std::hypot(first.x(), first.y());
    return u"hatch %1, %2 apart"_s.arg(angles.join(u' '), Rounded(std::fabs(apart), 1));
}

Shape TextOf(const QXmlStreamAttributes& element, const QString& text, const QTransform& matrix)
{
    QFont font(element.value("font-family"_L1).toString());
    const double pixels = element.value("font-size"_L1).toDouble();
    font.setPixelSize(qRound(pixels));
    font.setBold(element.value("font-weight"_L1) == u"700");
    QString look = Rounded(pixels * 0.75) + (font.bold() ? u" bold"_s : QString());
    if (font.family() != u"Liberation Sans")
        look += u' ' + font.family();
    const QFontMetricsF metrics(font);
    const QPointF base(element.value("x"_L1).toDouble(), element.value("y"_L1).toDouble());
    const QRectF box(0, -metrics.ascent(), metrics.horizontalAdvance(text), metrics.height());
    const QRectF ink = metrics.tightBoundingRect(text).adjusted(1, 1, -1, -1);
    return {.look = look,
            .box = matrix.mapRect(box.translated(base)),
            .ink = matrix.mapRect(ink.translated(base)),
            .text = text,
            .turned = matrix.isRotating()};
}

/// To a thousandth of the axis.
QString Axis::Number(double place) const
{
    return Rounded(Value(place), qCeil(3 - std::log10(std::fabs(values[1] - values[0])))) + unit;
}

QString Axis::Line() const
{
    QString line = Number(places[0]) + u" to "_s + Number(places[1]);
    if (!ticks.isEmpty())
        line += u", labels "_s + labels.join(u" | "_s);
    for (qsizetype i = 0; i < ticks.size() && !unit.isEmpty(); ++i)
        line += u" at "_s + Number(ticks[i]);
    if (smallTicks > 0)
        line += u", %1 small ticks"_s.arg(smallTicks);
    if (!grid.isEmpty())
        line += grid.size() == ticks.size() ? u", grid"_s : u", grid of %1"_s.arg(grid.size());
    for (const auto& [at, look] : grid) {
        const bool off =
            std::ranges::none_of(ticks, [at = at](double tick) { return std::fabs(tick - at) < 0.1; });
        if (off || look != kGridLook)
            line += u" (%1 at %2)"_s.arg(look.chopped(2), Number(at));
    }
    return line;
}

/// What a picture is read into.
class Reader
{
public:
    explicit Reader(const QByteArray& svg);
    ChartPicture Picture() const;

private:
    void Read(const QByteArray& svg);
    void FindAxes();
    void FindLabels(std::size_t along);
    QString ThingLine(const Shape& thing) const;
    QString TextLine(const Shape& text) const;
    QStringList Faults() const;

    QString m_head;
    QRectF m_whole;
    QRectF m_axes;
    QStringList m_sides;
    std::array<Axis, 2> m_axis; ///< x, y
    QList<Shape> m_shapes;
    QList<Shape> m_things; ///< between the axes, in the order of painting
    QList<Shape> m_labels; ///< at the axes
    QList<Shape> m_icons;  ///< of the legend
    QList<Shape> m_texts;  ///< all others
};

Reader::Reader(const QByteArray& svg)
{
    Read(svg);
    FindAxes();
    const QRectF axes = m_axes.adjusted(-5, -5, 5, 5);
    for (const Shape& shape : std::as_const(m_shapes))
        (!shape.text.isEmpty() ? m_texts : axes.contains(shape.box.center()) ? m_things : m_icons) += shape;
    FindLabels(0);
    FindLabels(1);
    std::ranges::stable_sort(m_texts, {},
                             [](const Shape& text) { return std::pair(text.box.bottom(), text.box.left()); });
}

void Reader::Read(const QByteArray& svg)
{
    QXmlStreamAttributes group;
    for (QXmlStreamReader reader(svg); !reader.atEnd(); reader.readNext()) {
        if (!reader.isStartElement())
            continue;
        const QString kind = reader.name().toString();
        const QXmlStreamAttributes element = reader.attributes();
        const QList<double> m = NumbersIn(group.value("transform"_L1).toString());
        const QTransform matrix =
            m.size() == 6 ? QTransform(m[0], m[1], m[2], m[3], m[4], m[5]) : QTransform();
        if (kind == u"g") {
            group = element;
        } else if (kind == u"svg") {
            const QList<double> view = NumbersIn(element.value("viewBox"_L1).toString());
            m_whole = {view[0], view[1], view[2], view[3]};
            m_head = u"picture %1 x %2, %3"_s.arg(view[2]).arg(view[3]).arg(element.value("width"_L1));
        } else if (kind == u"title") {
            m_head += u" \"%1\""_s.arg(reader.readElementText());
        } else if (kind == u"defs" || kind == u"desc") {
            reader.skipCurrentElement();
        } else if (kind == u"text") {
            m_shapes += TextOf(element, reader.readElementText(), matrix);
        } else {
            const QPolygonF points = matrix.map(PointsOf(element));
            const QRectF box = points.boundingRect();
            if (box.width() >= m_whole.width() - 1 && box.height() >= m_whole.height() - 1)
                m_head += u' ' + LookOf(group);
            else if (!LookOf(group).isEmpty())
                m_shapes.append({element.value("d"_L1).count(u'M') > 1 ? HatchOf(points) : kind,
                                 LookOf(group), points, box, box.adjusted(1, 1, -1, -1)});
        }
    }
}

/// Takes the lines around the axes, the ticks and the grid out of the shapes.
void Reader::FindAxes()
{
    QList<Shape> lines;
    const auto isOfAxis = [](const Shape& shape) {
        return shape.points.size() == 2 && (shape.box.width() == 0 || shape.box.height() == 0) &&
               shape.look.endsWith(u" 1") && shape.look.size() == kAxisLook.size();
    };
    std::ranges::copy_if(m_shapes, std::back_inserter(lines), isOfAxis);
    m_shapes.removeIf(isOfAxis);
    m_axes = m_whole;
    for (const Shape& line : lines) { // the grid ends a point before the axes, and is painted before them
        const double before = line.look == kAxisLook ? 0 : 1;
        if (line.IsSmall())
            continue;
        if (line.box.width() == 0)
            m_axes = {m_axes.left(), line.box.top() - before, m_axes.width(), line.box.height() + before};
        else
            m_axes = {line.box.left(), m_axes.top(), line.box.width() + before, m_axes.height()};
    }
    m_axis[0].places = {m_axes.left(), m_axes.right()};
    m_axis[1].places = {m_axes.bottom(), m_axes.top()};
    for (const Shape& line : lines) {
        const bool upright = line.box.width() == 0;
        Axis& axis = m_axis[upright ? 0 : 1]; // that a tick would belong to
        const double at = upright ? line.box.left() : line.box.top();
        if (line.look != kAxisLook)
            axis.grid.append({at, line.look});
        else if (!line.IsSmall() && upright)
            m_sides += at == m_axes.left() ? u"left"_s : u"right"_s;
        else if (!line.IsSmall())
            m_sides += at == m_axes.top() ? u"top"_s : u"bottom"_s;
        else if (line.box.width() + line.box.height() < kSmallTick)
            ++axis.smallTicks;
        else
            axis.ticks += at;
    }
}

/// Takes the labels of an axis out of the texts; they tell its numbers. Places are numbered from 1.
void Reader::FindLabels(std::size_t along)
{
    Axis& axis = m_axis[along];
    QList<std::pair<double, double>> known;
    for (const double tick : std::as_const(axis.ticks)) {
        const auto label = std::ranges::find_if(m_texts, [&](const Shape& text) {
            const double off = (along == 0 ? text.box.center().x() : text.box.center().y()) - tick;
            const double away =
                along == 0 ? text.box.top() - m_axes.bottom() : m_axes.left() - text.box.right();
            return !text.turned && std::fabs(off) < 2 && away > 0 && away < kNear;
        });
        if (label == m_texts.end()) {
            axis.labels += u"·"_s;
            continue;
        }
        bool isNumber = false;
        const double number = QString(label->text).replace(u',', u'.').toDouble(&isNumber);
        known.append({tick, isNumber ? number : static_cast<double>(axis.labels.size() + 1)});
        axis.labels += label->look == u"8" ? label->text : label->text + u' ' + label->look;
        m_labels += *label;
        m_texts.erase(label);
    }
    if (known.size() < 2 || known.front().second == known.back().second)
        return;
    const AxisSpan labels{.places = {known.front().first, known.back().first},
                          .values = {known.front().second, known.back().second}};
    axis.values = {labels.Value(axis.places[0]), labels.Value(axis.places[1])};
    axis.unit.clear();
}

/// A line by its points, a bar by its corners, a mark by its middle and its form.
QString Reader::ThingLine(const Shape& thing) const
{
    QString line = thing.kind;
    QPolygonF points = thing.points;
    if (thing.IsSmall()) {
        points = {thing.box.center()};
        if (thing.kind == u"circle" || thing.kind == u"rect")
            line += u' ' + Rounded(thing.box.width(), 1);
        else
            for (const QPointF& corner : thing.points.translated(-thing.box.center()))
                line += u" %1,%2"_s.arg(Rounded(corner.x(), 1), Rounded(corner.y(), 1));
    } else if (thing.kind != u"polyline") {
        points = {thing.box.bottomLeft(), thing.box.topRight()};
    }
    line += u", "_s + thing.look + u':';
    if (const qsizetype count = points.size(); count > 6) {
        line += u" %1 points"_s.arg(count);
        points = {points[0], points[count / 4], points[count / 2], points[count * 3 / 4], points[count - 1]};
    }
    for (const QPointF& point : std::as_const(points))
        line += u" (%1; %2)"_s.arg(m_axis[0].Number(point.x()), m_axis[1].Number(point.y()));
    return line;
}

/// With its side of the axes, and with the icons before it.
QString Reader::TextLine(const Shape& text) const
{
    const QPointF middle = text.box.center();
    QString line = text.box.bottom() <= m_axes.top()   ? u"above"_s
                   : text.box.top() >= m_axes.bottom() ? u"below"_s
                   : text.box.right() <= m_axes.left() ? u"left"_s
                   : text.box.left() >= m_axes.right() ? u"right"_s
                   : m_sides.isEmpty()                 ? u"alone"_s
                                                       : u"INSIDE"_s;
    line += u" \"%1\" %2"_s.arg(text.text, text.look) + (text.turned ? u" turned"_s : QString());
    const QPointF aside = middle - m_axes.center();
    if (std::fabs(text.turned ? aside.y() : aside.x()) < 2)
        line += u", in the middle of the axes"_s;
    else if (std::fabs(middle.x() - m_whole.center().x()) < 2)
        line += u", in the middle"_s;
    else if (text.box.left() < 2 * kSmall)
        line += u", at "_s + Rounded(text.box.left());
    QRectF row;
    QString icons;
    for (const Shape& other : m_texts + m_icons) {
        if (std::fabs(other.box.center().y() - middle.y()) > 2)
            continue;
        row |= other.box;
        const double before = text.box.left() - other.box.right();
        if (other.text.isEmpty() && before > 0 && before < kNearIcon)
            icons += u", %1 %2 wide %3"_s.arg(other.kind, other.look, Rounded(other.box.width()));
    }
    if (!icons.isEmpty() && std::fabs(row.center().x() - m_whole.center().x()) < kNear)
        line += u", its row in the middle"_s;
    return line + icons;
}

/// What is cut, what lies on each other, what runs out of the axes.
QStringList Reader::Faults() const
{
    QStringList faults;
    QList<Shape> all = m_texts + m_labels + m_icons;
    if (!m_sides.isEmpty())
        all.append({.ink = m_axes, .text = u"the axes"_s});
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (!m_whole.contains(all[i].ink))
            faults += u"CUT: "_s + all[i].text + all[i].look;
        for (qsizetype j = 0; j < i; ++j) {
            if (!(all[i].text + all[j].text).isEmpty() && all[i].ink.intersects(all[j].ink))
                faults += u"OVERLAP: %1, %2"_s.arg(all[j].text, all[i].text);
        }
    }
    const QRectF room = m_axes.adjusted(-kSmall, -kSmall, kSmall, kSmall);
    for (const Shape& thing : m_things)
        faults +=
            (room | thing.box) == room ? QStringList() : QStringList(u"OUT OF THE AXES: "_s + thing.look);
    return faults;
}

ChartPicture Reader::Picture() const
{
    ChartPicture picture{.lines = {m_head}, .x = m_axis[0], .y = m_axis[1]};
    QStringList& lines = picture.lines;
    if (!m_sides.isEmpty()) {
        const auto part = [](double at, double whole) { return Rounded(at / whole * 100); };
        lines += u"axes %1, %2 to %3 % across, %4 to %5 % down"_s.arg(
            m_sides.join(u' '), part(m_axes.left(), m_whole.width()), part(m_axes.right(), m_whole.width()),
            part(m_axes.top(), m_whole.height()), part(m_axes.bottom(), m_whole.height()));
        lines += u"x "_s + m_axis[0].Line();
        lines += u"y "_s + m_axis[1].Line();
    }
    for (const Shape& thing : m_things) { // marks of one look in one line
        const QString line = ThingLine(thing);
        if (thing.IsSmall() && lines.back().startsWith(line.section(u':', 0, 0) + u':'))
            lines.back() += line.section(u':', 1);
        else
            lines += line;
    }
    QRectF former;
    for (const Shape& text : m_texts) {
        const bool inRow = text.box.bottom() == former.bottom();
        const QString behind = u"%1 behind it: "_s.arg(Rounded(text.box.left() - former.right()));
        lines += (inRow ? behind : QString()) + TextLine(text);
        former = text.box;
    }
    lines += Faults();
    return picture;
}

} // namespace

QByteArray SvgOf(const QSize& size, const std::function<void(QPaintDevice&)>& paint)
{
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    paint(generator);
    return buffer.data();
}

double AxisSpan::Place(double value) const
{
    return places[0] + (value - values[0]) / (values[1] - values[0]) * (places[1] - places[0]);
}

double AxisSpan::Value(double place) const
{
    return values[0] + (place - places[0]) / (places[1] - places[0]) * (values[1] - values[0]);
}

ChartPicture ReadPicture(const QByteArray& svg)
{
    return Reader(svg).Picture();
}
