#include "framework/chart/PlotPainter.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <qcustomplot.h>

#include <algorithm>
#include <array>
#include <cmath>

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
constexpr int kMargin = 10;

/// As many divisions as an axis has where the chart does not say.
constexpr int kUsualDivisions = 5;

constexpr double kBarWidth = 0.4;
/// Above and below what a chart shows, where its scale is free: a tenth of it.
constexpr double kRoom = 0.1;

/// Series are told apart by dashes, bars by patterns; the colours come on top (those of Okabe and Ito, which
/// colour blind readers can tell apart).
struct Look {
    QRgb color;
    Qt::PenStyle line;
    Qt::BrushStyle fill;
};
constexpr std::array kLooks = {Look{qRgb(0, 114, 178), Qt::SolidLine, Qt::Dense6Pattern},
                               Look{qRgb(213, 94, 0), Qt::DashLine, Qt::BDiagPattern},
                               Look{qRgb(0, 158, 115), Qt::DotLine, Qt::DiagCrossPattern}};

const Look& LookOf(std::size_t series)
{
    return kLooks[series % kLooks.size()];
}

QFont ChartFont(int points, bool bold = false)
{
    QFont font;
    font.setFamilies({u"Liberation Sans"_s, u"Arial"_s, u"Helvetica"_s});
    font.setPointSize(points);
    font.setBold(bold);
    return font;
}

/// A locale whose numbers have this decimal separator and no thousands.
QLocale LocaleOf(const QString& decSep)
{
    QLocale locale = decSep == u"," ? QLocale(QLocale::Italian, QLocale::Italy) : QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

/// A range that is not empty: QCustomPlot can't show one.
QCPRange RangeOf(const ChartScale& scale)
{
    if (scale.maximum > scale.minimum)
        return {scale.minimum, scale.maximum};
    const double around = std::max(std::fabs(scale.minimum) * 1e-3, 1e-9);
    return {scale.minimum - around, scale.minimum + around};
}

/// So many decimals that neighbouring ticks differ clearly.
int DecimalsOf(double step)
{
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step) + 0.5)), 0, 15);
}

} // namespace

PlotPainter::PlotPainter()
    : m_plot(std::make_unique<QCustomPlot>()),
      m_title(new QCPTextElement(m_plot.get())),
      m_footnote(new QCPTextElement(m_plot.get()))
{
    m_plot->setNoAntialiasingOnDrag(false);
    m_plot->setAntialiasedElements(QCP::aeAll);
    m_title->setFont(ChartFont(kTitlePoints, true));
    m_footnote->setFont(ChartFont(kFootnotePoints));
    m_footnote->setTextFlags(Qt::AlignLeft | Qt::AlignTop);
    QCPLayoutGrid* layout = m_plot->plotLayout();
    layout->insertRow(0);
    layout->addElement(0, 0, m_title);
    layout->addElement(2, 0, m_footnote);
    layout->setMargins(QMargins(kMargin, kMargin, kMargin, kMargin));
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
    m_title->setText(chart.title);
    m_title->setVisible(!chart.title.isEmpty());
    ShowAxis(m_plot->xAxis, chart.x);
    ShowAxis(m_plot->yAxis, chart.y);
    m_plot->axisRect()->axis(QCPAxis::atRight)->setVisible(chart.y.visible);
    const bool shown = !chart.IsEmpty() && (chart.type == ChartType::HighLow || chart.x.scale);
    m_plot->axisRect()->setVisible(shown);
    if (!shown)
        return;
    if (chart.type == ChartType::HighLow)
        AddBars();
    else
        AddCurves();
    ShowAll();
}

void PlotPainter::ShowAxis(QCPAxis* axis, const ChartAxis& data) const
{
    axis->setVisible(data.visible);
    axis->setLabel(data.title);
    axis->grid()->setVisible(data.visible);
}

/// Columns in pairs: x and y of one series each.
void PlotPainter::AddCurves()
{
    const std::size_t series = m_chart.rows.front().size() / 2;
    for (std::size_t i = 0; i < series; ++i) {
        auto* curve = new QCPCurve(m_plot->xAxis, m_plot->yAxis);
        QVector<QCPCurveData> points;
        points.reserve(static_cast<qsizetype>(m_chart.rows.size()));
        for (const auto& row : m_chart.rows)
            points.append(QCPCurveData(static_cast<double>(points.size()), row[2 * i], row[2 * i + 1]));
        curve->data()->set(points, true);
        curve->setPen(QPen(QColor(LookOf(i).color), 2, LookOf(i).line));
        curve->setName(m_chart.seriesNames.value(static_cast<qsizetype>(i)));
    }
}

/// A bar from the lowest to the highest number, and a line at the mean.
void PlotPainter::AddBars()
{
    const QSharedPointer<QCPAxisTickerText> labels(new QCPAxisTickerText);
    for (std::size_t i = 0; i < m_chart.rows.size(); ++i) {
        const auto& row = m_chart.rows[i];
        const double place = static_cast<double>(i) + 1;
        labels->addTick(place, m_chart.rowLabels.value(static_cast<qsizetype>(i)));
        auto* bar = new QCPBars(m_plot->xAxis, m_plot->yAxis);
        bar->setWidth(kBarWidth);
        bar->setBaseValue(row[1]);
        bar->addData(place, row[0] - row[1]);
        bar->setPen(QPen(QColor(LookOf(i).color), 1.5));
        bar->setBrush(QBrush(QColor(LookOf(i).color), LookOf(i).fill));
        auto* mean = new QCPCurve(m_plot->xAxis, m_plot->yAxis);
        mean->addData(0, place - kBarWidth / 2, row[2]);
        mean->addData(1, place + kBarWidth / 2, row[2]);
        mean->setPen(QPen(Qt::black, 2.5));
    }
    m_plot->xAxis->setTicker(labels);
    m_plot->xAxis->setSubTicks(false);
}

/// The divisions hold while all of the chart is in view.
void PlotPainter::SetRange(QCPAxis* axis, const ChartScale& scale, int majorDivisions) const
{
    const QCPRange range = RangeOf(scale);
    axis->setRange(range);
    const int decimals = DecimalsOf(range.size() / (majorDivisions > 0 ? majorDivisions : kUsualDivisions));
    axis->setNumberFormat(u"f"_s);
    axis->setNumberPrecision(decimals);
    if (majorDivisions == 0)
        return;
    // Ticks by their numbers: counted in steps, the outer ones could fall beside the ends by rounding.
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (int i = 0; i <= majorDivisions; ++i) {
        const double at = i == majorDivisions ? range.upper : range.lower + range.size() * i / majorDivisions;
        ticker->addTick(at, m_plot->locale().toString(at, 'f', decimals));
    }
    axis->setTicker(ticker);
    axis->setSubTicks(false);
}

void PlotPainter::ShowAll()
{
    if (m_chart.type == ChartType::HighLow) {
        double lowest = m_chart.rows.front()[1];
        double highest = m_chart.rows.front()[0];
        for (const auto& row : m_chart.rows) {
            const auto [low, high] = std::ranges::minmax(row);
            lowest = std::min(lowest, low);
            highest = std::max(highest, high);
        }
        const double room = (highest - lowest) * kRoom;
        SetRange(m_plot->yAxis, m_chart.y.scale.value_or(ChartScale{lowest - room, highest + room}), 0);
        SetRange(m_plot->xAxis, {0.5, static_cast<double>(m_chart.rows.size()) + 0.5}, 0);
        return;
    }
    SetRange(m_plot->xAxis, *m_chart.x.scale, m_chart.x.majorDivisions);
    SetRange(m_plot->yAxis, m_chart.y.scale.value_or(ChartScale{0, 1}), m_chart.y.majorDivisions);
}

/// Lines that are too long for the chart end in an ellipsis.
void PlotPainter::FitFootnote(int width)
{
    const QFontMetrics metrics(m_footnote->font());
    QStringList lines = m_chart.footnote.split(u"\r\n"_s);
    for (QString& line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, width - 2 * kMargin);
    m_footnote->setText(lines.join(u'\n'));
    m_footnote->setVisible(!m_chart.footnote.isEmpty());
}

void PlotPainter::PaintOn(QPaintDevice& device, const QSize& size, bool vectors)
{
    FitFootnote(size.width());
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
    if (!values)
        return;
    m_plot->yAxis->scaleRange(factor, values->y());
    if (m_chart.type == ChartType::HighLow) // the groups stay in view
        return;
    m_plot->xAxis->scaleRange(factor, values->x());
    m_plot->xAxis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
    m_plot->xAxis->setNumberPrecision(DecimalsOf(m_plot->xAxis->range().size() / kUsualDivisions));
}

void PlotPainter::Drag(const QPointF& by)
{
    const auto move = [](QCPAxis* axis, double from, double to) {
        axis->moveRange(axis->pixelToCoord(from) - axis->pixelToCoord(to));
    };
    move(m_plot->yAxis, 0, by.y());
    if (m_chart.type != ChartType::HighLow)
        move(m_plot->xAxis, 0, by.x());
}

std::optional<QPointF> PlotPainter::ValuesAt(const QPointF& at) const
{
    if (!m_plot->axisRect()->visible() || !m_plot->axisRect()->rect().contains(at.toPoint()))
        return std::nullopt;
    return QPointF(m_plot->xAxis->pixelToCoord(at.x()), m_plot->yAxis->pixelToCoord(at.y()));
}
