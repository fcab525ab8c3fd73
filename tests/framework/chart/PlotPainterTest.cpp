// Charts of several series, by the shapes of the exported picture and by what is said of them. The painter is
// the real one, from its module.
#include "Compare.h"
#include "framework/chart/ChartPainter.h"

#include <QColor>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

struct Shape {
    QString kind;
    QString color;
    QString dashes;
    QList<QPointF> points;

    /// A mark's place; the middle of what it spans.
    QPointF Center() const
    {
        QRectF span(points.front(), QSizeF());
        for (const QPointF& point : points) {
            span.setLeft(std::min(span.left(), point.x()));
            span.setRight(std::max(span.right(), point.x()));
            span.setTop(std::min(span.top(), point.y()));
            span.setBottom(std::max(span.bottom(), point.y()));
        }
        return span.center();
    }
};

QList<QPointF> PointsOf(const QXmlStreamAttributes& element, const QString& kind)
{
    const auto number = [&](const QString& name) { return element.value(name).toDouble(); };
    if (kind == u"circle")
        return {{number(u"cx"_s), number(u"cy"_s)}};
    if (kind == u"rect")
        return {{number(u"x"_s), number(u"y"_s)},
                {number(u"x"_s) + number(u"width"_s), number(u"y"_s) + number(u"height"_s)}};
    QList<QPointF> points;
    static const QRegularExpression kPair(u"([-0-9.e]+),([-0-9.e]+)"_s);
    auto pairs = kPair.globalMatch(element.value(kind == u"path" ? u"d"_s : u"points"_s));
    while (pairs.hasNext()) {
        const auto pair = pairs.next();
        points.append({pair.captured(1).toDouble(), pair.captured(2).toDouble()});
    }
    return points;
}

QList<Shape> ShapesIn(const QByteArray& svg)
{
    QList<Shape> shapes;
    QXmlStreamAttributes group;
    for (QXmlStreamReader reader(svg); !reader.atEnd(); reader.readNext()) {
        if (!reader.isStartElement())
            continue;
        const QString kind = reader.name().toString();
        if (kind == u"g")
            group = reader.attributes();
        else if (QStringList({u"circle"_s, u"rect"_s, u"path"_s, u"polyline"_s}).contains(kind))
            shapes.append({kind, group.value(u"stroke"_s).toString(),
                           group.value(u"stroke-dasharray"_s).toString(),
                           PointsOf(reader.attributes(), kind)});
    }
    return shapes;
}

double ContrastOnWhite(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const double luminance =
        0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    return 1.05 / (luminance + 0.05);
}

} // namespace

class PlotPainterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void MarksStandAtTheirPointsGroupByGroup()
    {
        ChartData chart;
        chart.series = {{.line = false, .marks = true, .colourGroup = 2, .fitted = true}};
        chart.rows = {{0, 0}, {10, 10}, {2, 5}, {6, 1}, {4, 4}};
        Paint(chart);
        QVERIFY(Has(u"circle"_s, u"#0072b2"_s, {{0, 0}}));
        QVERIFY(Has(u"circle"_s, u"#0072b2"_s, {{10, 10}}));
        QCOMPARE(Centers(u"rect"_s, u"#d55e00"_s), QList<QPointF>({{2, 5}, {6, 1}}));
        QCOMPARE(Centers(u"path"_s, u"#009e73"_s).size(), 1); // the last group has one row alone
        QCOMPARE(std::round(Centers(u"path"_s, u"#009e73"_s).front().x()), 4.0);
        // y = 0.7297 + 0.7432 x, from the sums of squares by hand: 44 / 59.2 around (4.4, 4)
        QVERIFY(Has(u"polyline"_s, u"#000000"_s, {{0, 0.7297}, {10, 8.1622}}));
    }

    /// As many as a table may have rows of concentrations.
    void NoTwoOfThirtyGroupsLookTheSame()
    {
        ChartData chart;
        chart.series = {{.line = false, .marks = true, .colourGroup = 1}};
        for (int i = 0; i < 30; ++i)
            chart.rows.push_back({static_cast<double>(i), static_cast<double>(i % 3)});
        Paint(chart);
        QMap<int, QString> looks;
        for (const Shape& shape : std::as_const(m_shapes)) {
            const auto at = m_painter->ValuesAt(shape.Center());
            const QPointF form = shape.points.front() - shape.Center();
            if (!at || form.manhattanLength() > 10 || shape.color == u"#000000") // grid and ticks
                continue;
            QVERIFY2(ContrastOnWhite(QColor(shape.color)) >= 3, qPrintable(shape.color));
            looks[qRound(at->x())] +=
                shape.color + shape.kind + u"%1 %2 "_s.arg(qRound(form.x())).arg(qRound(form.y()));
        }
        QCOMPARE(looks.size(), 30);
        QCOMPARE(QSet<QString>(looks.cbegin(), looks.cend()).size(), 30);
    }

    /// Where no scale is given all points are seen; each curve has its own dashes, and its name below the
    /// axes.
    void ThreeCurvesWithALegend()
    {
        ChartData chart;
        chart.legend = true;
        chart.series = {{u"superiore"_s}, {u"centrale"_s}, {u"inferiore"_s}};
        chart.rows = {{0, 1, 0, 5, 2, 9}, {100, 2, 100, 6, 200, 8}};
        const QString svg = QString::fromUtf8(Paint(chart));
        QSet<QString> dashes;
        for (const QString& color : {u"#0072b2"_s, u"#d55e00"_s, u"#009e73"_s}) {
            QList<Shape> lines;
            for (const Shape& shape : std::as_const(m_shapes)) {
                if (shape.color == color)
                    lines += shape;
            }
            QCOMPARE(lines.size(), 2);
            QVERIFY(m_painter->ValuesAt(lines[0].Center()) && !m_painter->ValuesAt(lines[1].Center()));
            QVERIFY(lines[1].Center().y() > lines[0].Center().y());
            QCOMPARE(lines[1].dashes, lines[0].dashes);
            dashes += lines[0].dashes;
        }
        QCOMPARE(dashes.size(), 3);
        QVERIFY(Has(u"polyline"_s, u"#009e73"_s, {{2, 9}, {200, 8}}));
        for (const ChartSeries& series : chart.series)
            QCOMPARE(svg.count(series.name), 1);
        chart.legend = false;
        QVERIFY(!Paint(chart).contains("centrale"));
    }

    void AllOfItIsInView()
    {
        ChartData chart;
        chart.series = {{.line = false, .marks = true, .fitted = true}, {}};
        chart.rows = {{0, 0, 0, 2}, {1, 10, 0, 4}, {2, 10, 0, 6}};
        Paint(chart);
        QVERIFY(Has(u"polyline"_s, u"#0072b2"_s, {{0, 5. / 3}, {2, 35. / 3}})); // ends above all points
        QVERIFY(Has(u"polyline"_s, u"#d55e00"_s, {{0, 2}, {0, 4}, {0, 6}}));
        chart.rows = {{5, 1, 5, 1}, {5, 2, 5, 1}}; // no line through points one above the other
        Paint(chart);
        QVERIFY(Centers(u"polyline"_s, u"#0072b2"_s).isEmpty());
        chart.rows = {{5, 1, 5, 2}}; // two points apart in one row
        Paint(chart);
        QVERIFY(Has(u"circle"_s, u"#0072b2"_s, {{5, 1}}));
        chart.type = ChartType::HighLow;
        chart.rows = {{12, 10, 11}, {14, 12, 13}}; // a bar stands between its two ends
        Paint(chart);
        QCOMPARE(Centers(u"path"_s, u"#0072b2"_s), QList<QPointF>({{1, 11}}));
    }

    void Words()
    {
        ChartData chart;
        chart.title = u"Taratura"_s;
        chart.x.title = u"mg/l"_s;
        chart.series = {{.name = u"misure"_s, .line = false, .marks = true}, {}};
        chart.rows = {{0, 0, 0, 500}, {10, 1000, 10, 500}};
        QCOMPARE(ChartValueText(chart, {1, 300}, u","), u"x = 0; y = 500"_s);
        QCOMPARE(ChartValueText(chart, {1, 200}, u","), u"misure: x = 0; y = 0"_s);
        QCOMPARE(ChartDescription(chart, u","), u"Taratura; mg/l: da 0 a 10; serie: misure"_s);
        QCOMPARE(chart.SeriesNames(), QStringList({u"misure"_s, QString()}));
        chart.series.clear();
        QCOMPARE(ChartDescription(chart, u","), u"Taratura"_s);
        QVERIFY(chart.SeriesNames().isEmpty());
    }

private:
    QByteArray Paint(const ChartData& chart)
    {
        m_painter = CreateChartPainter(QStringLiteral(QUOREL_TEST_PROGRAM));
        m_painter->SetChart(chart, u","_s);
        const QByteArray svg = m_painter->Export(ChartFormat::Svg, kChartPage);
        m_shapes = ShapesIn(svg);
        return svg;
    }

    /// Whether a shape has these points, in the unit of the axes.
    bool Has(const QString& kind, const QString& color, const QList<QPointF>& points) const
    {
        return std::ranges::any_of(m_shapes, [&](const Shape& shape) {
            return shape.kind == kind && shape.color == color &&
                   std::ranges::equal(shape.points, points,
                                      [this](const QPointF& at, const QPointF& expected) {
                                          const auto values = m_painter->ValuesAt(at);
                                          return values && (*values - expected).manhattanLength() < 0.01;
                                      });
        });
    }

    /// The marks of a kind between the axes, rounded to whole numbers in their unit.
    QList<QPointF> Centers(const QString& kind, const QString& color) const
    {
        QList<QPointF> centers;
        for (const Shape& shape : m_shapes) {
            const auto at = m_painter->ValuesAt(shape.Center());
            if (shape.kind == kind && shape.color == color && at)
                centers += at->toPoint();
        }
        return centers;
    }

    std::unique_ptr<ChartPainter> m_painter;
    QList<Shape> m_shapes;
};

QTEST_MAIN(PlotPainterTest)
#include "PlotPainterTest.moc"
