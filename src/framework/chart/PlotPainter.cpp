#include "framework/chart/PlotPainter.h"

#include "framework/chart/ChartData.h"
#include "framework/chart/PlotSeries.h"
#include "framework/chart/PlotTicks.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <qcustomplot.h>

#include <algorithm>
#include <optional>

namespace
{

constexpr int kPointsInInch = 96;
constexpr double kPdfPoints = 72.0 / kPointsInInch;
constexpr double kPngScale = 3;
constexpr double kInchesInMetre = 1 / 0.0254;

/// Of the whole.
constexpr double kMissed = 0.005;
/// What zooming leaves in view: a part of the whole, or so many times the whole.
constexpr double kLeastSeen = 1e-4;
constexpr double kMostSeen = 10;

/// Around the axes, where no number needs more.
constexpr int kAxesMargin = 15;

/// Whether range shows all of whole, but for what nobody misses: margins that follow the numbers at the axes
/// shift it a little.
bool Shows(const QCPRange& range, const QCPRange& whole)
{
    const double blur = whole.size() * kMissed;
    return range.lower <= whole.lower + blur && range.upper >= whole.upper - blur;
}

} // namespace

PlotPainter::PlotPainter() : m_plot(std::make_unique<LaidOutPlot>()), m_texts(*m_plot)
{
    m_plot->setAntialiasedElements(QCP::aeAll);
    m_plot->setAutoAddPlottableToLegend(false);
    m_plot->axisRect()->setupFullAxesBox();
    m_plot->axisRect()->axis(QCPAxis::atTop)->setTicks(false);
    m_plot->axisRect()->axis(QCPAxis::atRight)->setTicks(false);
    for (QCPAxis* axis : {m_plot->xAxis, m_plot->yAxis}) {
        axis->setTickLabelFont(ChartFont(kNumberPoints));
        axis->grid()->setPen(QPen(QColor(225, 225, 225), 1));
    }
}

PlotPainter::~PlotPainter() = default;

void PlotPainter::SetChart(const ChartData& chart, const QString& decSep)
{
    m_chart = chart;
    m_plot->setLocale(LocaleOf(decSep));
    m_plot->clearPlottables();
    m_plot->xAxis->setVisible(chart.x.visible);
    m_plot->yAxis->setVisible(chart.y.visible);
    // Without the y axis, the x axis stands alone: a frame without sides would look cut.
    for (const QCPAxis::AxisType side : {QCPAxis::atRight, QCPAxis::atTop})
        m_plot->axisRect()->axis(side)->setVisible(chart.y.visible);
    const bool extent = HasExtent(chart);
    m_plot->axisRect()->setVisible(extent);
    m_plot->axisRect()->setMinimumMargins(QMargins(kAxesMargin, kAxesMargin, kAxesMargin, kAxesMargin));
    if (!extent)
        return;
    AddSeries(*m_plot, chart);
    ShowAll();
}

void PlotPainter::ShowAll()
{
    if (!HasExtent(m_chart))
        return;
    const ChartSpans spans = SpansOf(m_chart);
    if (m_chart.type == ChartType::HighLow)
        ShowPlaces(m_plot->xAxis, m_chart.rowLabels, m_chart.rows.size());
    else
        SetScale(m_plot->xAxis, m_chart.x, spans.x);
    SetScale(m_plot->yAxis, m_chart.y, spans.y);
    m_seen = 1;
    m_wholeX = m_plot->xAxis->range();
    m_wholeY = m_plot->yAxis->range();
}

bool PlotPainter::IsWhole() const
{
    return !HasExtent(m_chart) ||
           (Shows(m_plot->xAxis->range(), m_wholeX) && Shows(m_plot->yAxis->range(), m_wholeY));
}

bool PlotPainter::IsFitted() const
{
    return !HasExtent(m_chart) ||
           (IsWhole() && Shows(m_wholeX, m_plot->xAxis->range()) && Shows(m_wholeY, m_plot->yAxis->range()));
}

QRect PlotPainter::LayOut(const QSize& size)
{
    m_screen = size;
    m_texts.Fit(m_chart, size, false);
    return m_plot->axisRect()->rect();
}

void PlotPainter::PaintOn(QPaintDevice& device, const QSize& size, bool vectors)
{
    QCPPainter painter(&device);
    painter.setMode(QCPPainter::pmVectorized, vectors);
    m_plot->toPainter(&painter, size.width(), size.height());
}

void PlotPainter::Paint(QPaintDevice& device, const QSize& size)
{
    LayOut(size);
    PaintOn(device, size, false);
}

QByteArray PlotPainter::ExportPdf(const QSize& size)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPointsInInch);
        writer.setPageSize(QPageSize(QSizeF(size) * kPdfPoints, QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setTitle(m_chart.title);
        PaintOn(writer, size, true);
    }
    return buffer.data();
}

QByteArray PlotPainter::ExportSvg(const QSize& size)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setResolution(kPointsInInch);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(), size));
        generator.setTitle(m_chart.title);
        PaintOn(generator, size, true);
    }
    return buffer.data();
}

QByteArray PlotPainter::ExportPng(const QSize& size)
{
    QImage image(size * kPngScale, QImage::Format_RGB32);
    image.setDevicePixelRatio(kPngScale);
    image.fill(Qt::white);
    PaintOn(image, size, false);
    // Behind the painting: fonts would grow with it.
    const int resolution = qRound(kPointsInInch * kPngScale * kInchesInMetre);
    image.setDotsPerMeterX(resolution);
    image.setDotsPerMeterY(resolution);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

QByteArray PlotPainter::Export(ChartFormat format, const QSize& size)
{
    m_texts.Fit(m_chart, size, true);
    const QByteArray file = FileOf(format, size);
    if (!m_screen.isEmpty())
        LayOut(m_screen); // places are those on screen
    return file;
}

QByteArray PlotPainter::FileOf(ChartFormat format, const QSize& size)
{
    switch (format) {
    case ChartFormat::Pdf:
        return ExportPdf(size);
    case ChartFormat::Svg:
        return ExportSvg(size);
    case ChartFormat::Png:
        return ExportPng(size);
    }
    return {};
}

bool PlotPainter::MovesAlongX() const
{
    return m_chart.type != ChartType::HighLow && !HasEqualEnds(m_chart.x);
}

void PlotPainter::Zoom(const QPointF& at, double factor)
{
    const auto values = ValuesAt(at);
    const double seen = m_seen * factor;
    if (!values || seen < kLeastSeen || seen > kMostSeen)
        return;
    m_seen = seen;
    m_plot->yAxis->scaleRange(factor, values->y());
    ShowRoundTicks(m_plot->yAxis);
    if (!MovesAlongX())
        return;
    m_plot->xAxis->scaleRange(factor, values->x());
    ShowRoundTicks(m_plot->xAxis);
}

void PlotPainter::Drag(const QPointF& by)
{
    const auto move = [](QCPAxis* axis, double to) {
        axis->moveRange(axis->pixelToCoord(0) - axis->pixelToCoord(to));
        if (to != 0)
            ShowRoundTicks(axis);
    };
    move(m_plot->yAxis, by.y());
    if (MovesAlongX())
        move(m_plot->xAxis, by.x());
}

std::optional<QPointF> PlotPainter::ValuesAt(const QPointF& at) const
{
    if (!m_plot->axisRect()->visible() || !EndToEnd(*m_plot->axisRect()).contains(at))
        return std::nullopt;
    return QPointF(m_plot->xAxis->pixelToCoord(at.x()), m_plot->yAxis->pixelToCoord(at.y()));
}

QPointF PlotPainter::PlaceOf(const QPointF& values) const
{
    return {m_plot->xAxis->coordToPixel(values.x()), m_plot->yAxis->coordToPixel(values.y())};
}
