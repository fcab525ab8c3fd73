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

using namespace Qt::StringLiterals;

namespace
{

constexpr int kTitlePoints = 10;
constexpr int kAxisPoints = 10;
constexpr int kNumberPoints = 8;
constexpr int kFootnotePoints = 7;

constexpr int kPointsInInch = 96;
constexpr double kPdfPoints = 72.0 / kPointsInInch;
constexpr double kPngScale = 3;

/// What zooming leaves in view: a part of the whole, or so many times the whole.
constexpr double kLeastSeen = 1e-4;
constexpr double kMostSeen = 10;

/// Numbers along y: so many, or as many as a small chart has room for.
constexpr int kMostNumbers = 5;
constexpr int kHeightOfNumber = 60;
/// Around the axes, where no number needs more.
constexpr int kAxesMargin = 15;
/// The library leaves 2 points beside a text.
constexpr int kTextMargin = kChartMargin + 2;

constexpr int kNamesInRow = 4;
constexpr int kIconWidth = 36;
constexpr int kBetweenNames = 24;
constexpr double kNoStretch = 0.001;

QFont ChartFont(int points, bool bold = false)
{
    QFont font;
    font.setFamilies({u"Liberation Sans"_s, u"Arial"_s, u"Helvetica"_s});
    font.setPointSize(points);
    font.setBold(bold);
    return font;
}

} // namespace

PlotPainter::PlotPainter()
    : m_plot(std::make_unique<QCustomPlot>()),
      m_title(new QCPTextElement(m_plot.get())),
      m_footnote(new QCPTextElement(m_plot.get()))
{
    m_plot->setAntialiasedElements(QCP::aeAll);
    m_plot->setAutoAddPlottableToLegend(false);
    m_plot->legend->setFont(ChartFont(kNumberPoints));
    m_plot->legend->setBorderPen(Qt::NoPen);
    m_plot->legend->setBrush(Qt::NoBrush);
    m_plot->legend->setIconSize(kIconWidth, QFontMetrics(m_plot->legend->font()).height());
    m_plot->legend->setColumnSpacing(kBetweenNames);
    m_plot->legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    m_title->setFont(ChartFont(kTitlePoints, true));
    m_footnote->setFont(ChartFont(kFootnotePoints));
    m_footnote->setTextFlags(Qt::AlignLeft | Qt::AlignTop);
    QCPLayoutGrid* layout = m_plot->plotLayout();
    layout->insertRow(0);
    layout->addElement(0, 0, m_title);
    layout->addElement(2, 0, m_footnote);
    layout->setMargins(QMargins(kChartMargin, kChartMargin, kChartMargin, kChartMargin));
    m_plot->axisRect()->setupFullAxesBox();
    m_plot->axisRect()->axis(QCPAxis::atTop)->setTicks(false);
    m_plot->axisRect()->axis(QCPAxis::atRight)->setTicks(false);
    for (QCPAxis* axis : {m_plot->xAxis, m_plot->yAxis}) {
        axis->setLabelFont(ChartFont(kAxisPoints));
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
    ShowAxis(m_plot->xAxis, chart.x);
    ShowAxis(m_plot->yAxis, chart.y);
    // Without the y axis, the x axis stands alone: a frame without sides would look cut.
    for (const QCPAxis::AxisType side : {QCPAxis::atRight, QCPAxis::atTop})
        m_plot->axisRect()->axis(side)->setVisible(chart.y.visible);
    const bool extent = HasExtent(chart);
    m_plot->axisRect()->setVisible(extent);
    m_plot->axisRect()->setMinimumMargins(QMargins(kAxesMargin, kAxesMargin, kAxesMargin, kAxesMargin));
    PlaceLegend(chart.legend && extent);
    if (!extent)
        return;
    AddSeries(*m_plot, chart);
    ShowAll();
}

void PlotPainter::ShowAxis(QCPAxis* axis, const ChartAxis& data) const
{
    axis->setVisible(data.visible);
    axis->setLabel(data.title);
}

void PlotPainter::PlaceLegend(bool shown)
{
    QCPLegend* legend = m_plot->legend;
    QCPLayoutGrid* layout = m_plot->plotLayout();
    legend->layout()->take(legend);
    layout->simplify();
    legend->setVisible(shown);
    if (!shown) {
        m_plot->axisRect()->insetLayout()->addElement(legend, Qt::AlignTop | Qt::AlignRight);
        return;
    }
    const int row = layout->rowCount() - 1; // above the footnote
    layout->insertRow(row);
    layout->addElement(row, 0, legend);
    layout->setRowStretchFactor(row, kNoStretch);
}

void PlotPainter::ShowAll()
{
    if (!HasExtent(m_chart))
        return;
    m_seen = 1;
    const ChartSpans spans = SpansOf(m_chart);
    if (m_chart.type == ChartType::HighLow)
        ShowPlaces(m_plot->xAxis, m_chart.rowLabels, m_chart.rows.size());
    else
        SetScale(m_plot->xAxis, m_chart.x.scale.value_or(spans.x), m_chart.x.majorDivisions);
    SetScale(m_plot->yAxis, m_chart.y.scale.value_or(spans.y), m_chart.y.majorDivisions);
}

/// The names stand together, in the middle below the axes, as many in a row as there is room for.
void PlotPainter::FitLegend(int width)
{
    QCPLegend* legend = m_plot->legend;
    if (!legend->visible())
        return;
    legend->setMargins(QMargins());
    int beside = -1;
    for (int inRow = kNamesInRow; inRow > 0 && beside < 0; --inRow) {
        legend->setWrap(inRow);
        legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
        beside = (width - 2 * kChartMargin - legend->minimumOuterSizeHint().width()) / 2;
    }
    legend->setMargins(QMargins(std::max(0, beside), kChartMargin / 2, std::max(0, beside), 0));
}

/// Lines that are too long for the chart end in an ellipsis.
void PlotPainter::FitTexts(int width)
{
    const auto fit = [width](QCPTextElement* element, const QString& text) {
        const QFontMetrics metrics(element->font());
        QStringList lines = text.split(u"\r\n"_s);
        for (QString& line : lines)
            line = metrics.elidedText(line, Qt::ElideRight, width - 2 * kTextMargin);
        element->setText(lines.join(u'\n'));
        element->setVisible(!text.isEmpty());
    };
    fit(m_title, m_chart.title);
    fit(m_footnote, m_chart.footnote);
}

void PlotPainter::PaintOn(QPaintDevice& device, const QSize& size, bool vectors)
{
    FitLegend(size.width());
    FitTexts(size.width());
    m_plot->yAxis->ticker()->setTickCount(std::clamp(size.height() / kHeightOfNumber, 1, kMostNumbers));
    QCPPainter painter(&device);
    painter.setMode(QCPPainter::pmVectorized, vectors);
    m_plot->toPainter(&painter, size.width(), size.height());
}

void PlotPainter::Paint(QPaintDevice& device, const QSize& size)
{
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
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

QByteArray PlotPainter::Export(ChartFormat format, const QSize& size)
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

void PlotPainter::Zoom(const QPointF& at, double factor)
{
    const auto values = ValuesAt(at);
    const double seen = m_seen * factor;
    if (!values || seen < kLeastSeen || seen > kMostSeen)
        return;
    m_seen = seen;
    m_plot->yAxis->scaleRange(factor, values->y());
    ShowRoundTicks(m_plot->yAxis);
    if (m_chart.type == ChartType::HighLow) // the groups stay in view
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
    if (m_chart.type != ChartType::HighLow)
        move(m_plot->xAxis, by.x());
}

std::optional<QPointF> PlotPainter::ValuesAt(const QPointF& at) const
{
    if (!m_plot->axisRect()->visible() || !m_plot->axisRect()->rect().contains(at.toPoint()))
        return std::nullopt;
    return QPointF(m_plot->xAxis->pixelToCoord(at.x()), m_plot->yAxis->pixelToCoord(at.y()));
}
