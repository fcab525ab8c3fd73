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

/// So many decimals that a label lies within a twentieth of a step of its tick.
int DecimalsOf(double step)
{
    return std::clamp(static_cast<int>(std::ceil(1 - std::log10(step))), 0, 15);
}

/// From this on numbers have an exponent.
constexpr double kLargestPlain = 1e16;

QString TickLabel(const QLocale& locale, double tick, int decimals)
{
    return std::fabs(tick) < kLargestPlain ? locale.toString(tick, 'f', decimals)
                                           : locale.toString(tick, 'g', 6);
}

/// Ticks at round numbers, with the decimals that their step has.
class RoundTicker : public QCPAxisTicker
{
protected:
    double getTickStep(const QCPRange& range) override
    {
        const double step = QCPAxisTicker::getTickStep(range);
        m_decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 15);
        const double inLast = step * std::pow(10, m_decimals);
        if (std::fabs(inLast - std::round(inLast)) > 1e-6) // 2.5 and its like
            ++m_decimals;
        return step;
    }
    QString getTickLabel(double tick, const QLocale& locale, QChar, int) override
    {
        return TickLabel(locale, tick, m_decimals);
    }

private:
    int m_decimals = 0;
};

} // namespace

PlotPainter::PlotPainter()
    : m_plot(std::make_unique<QCustomPlot>()),
      m_title(new QCPTextElement(m_plot.get())),
      m_footnote(new QCPTextElement(m_plot.get()))
{
    m_plot->setNoAntialiasingOnDrag(false);
    m_plot->setAntialiasedElements(QCP::aeAll);
    m_plot->legend->setFont(ChartFont(kNumberPoints));
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
    // Without the y axis, the x axis stands alone: a frame without sides would look cut.
    for (const QCPAxis::AxisType side : {QCPAxis::atRight, QCPAxis::atTop})
        m_plot->axisRect()->axis(side)->setVisible(chart.y.visible);
    m_plot->axisRect()->setVisible(HasExtent());
    m_plot->legend->setVisible(chart.legend && HasExtent());
    if (!HasExtent())
        return;
    if (chart.type == ChartType::HighLow)
        AddBars();
    else
        AddCurves();
    ShowAll();
}

/// A chart of nothing but one point, many times, has its titles alone to show.
bool PlotPainter::HasExtent() const
{
    const auto& rows = m_chart.rows;
    if (m_chart.type == ChartType::HighLow || m_chart.x.scale)
        return !rows.empty();
    return std::ranges::any_of(rows, [&rows](const auto& row) { return row != rows.front(); });
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
    for (std::size_t i = 0; i < m_chart.rows.size(); ++i) {
        const auto& row = m_chart.rows[i];
        const double place = static_cast<double>(i) + 1;
        auto* bar = new QCPBars(m_plot->xAxis, m_plot->yAxis);
        bar->setWidth(kBarWidth);
        bar->setBaseValue(row[1]);
        bar->addData(place, row[0] - row[1]);
        bar->setName(m_chart.rowLabels.value(static_cast<qsizetype>(i)));
        bar->setPen(QPen(QColor(LookOf(i).color), 1.5));
        bar->setBrush(QBrush(QColor(LookOf(i).color), LookOf(i).fill));
        auto* mean = new QCPCurve(m_plot->xAxis, m_plot->yAxis);
        mean->addData(0, place - kBarWidth / 2, row[2]);
        mean->addData(1, place + kBarWidth / 2, row[2]);
        mean->setPen(QPen(Qt::black, 2.5));
        mean->removeFromLegend();
    }
}

void PlotPainter::ShowRoundTicks(QCPAxis* axis) const
{
    axis->setTicker(QSharedPointer<QCPAxisTicker>(new RoundTicker));
    axis->setSubTicks(true);
}

void PlotPainter::ShowGroups()
{
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (qsizetype i = 0; i < m_chart.rowLabels.size(); ++i)
        ticker->addTick(static_cast<double>(i) + 1, m_chart.rowLabels[i]);
    m_plot->xAxis->setTicker(ticker);
    m_plot->xAxis->setSubTicks(false);
    m_plot->xAxis->setRange(0.5, static_cast<double>(m_chart.rows.size()) + 0.5);
}

void PlotPainter::SetRange(QCPAxis* axis, const ChartScale& scale, int majorDivisions) const
{
    axis->setRange(RangeOf(scale));
    if (majorDivisions == 0)
        ShowRoundTicks(axis);
    else
        ShowDivisions(axis, majorDivisions);
}

/// Ticks from end to end, the ends included. They hold while all of the chart is in view.
void PlotPainter::ShowDivisions(QCPAxis* axis, int count) const
{
    const QCPRange range = axis->range();
    const int decimals = DecimalsOf(range.size() / count);
    // Ticks by their numbers: counted in steps, the outer ones could fall beside the ends by rounding.
    const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    for (int i = 0; i <= count; ++i) {
        const double at = i == count ? range.upper : range.lower + range.size() * i / count;
        ticker->addTick(at, TickLabel(m_plot->locale(), at, decimals));
    }
    axis->setTicker(ticker);
    axis->setSubTicks(false);
    // The labels at the ends stand half beside the axis.
    const QFontMetrics metrics(axis->tickLabelFont());
    const auto half = [&](double end) {
        return metrics.horizontalAdvance(TickLabel(m_plot->locale(), end, decimals)) / 2 + kMargin;
    };
    if (axis->orientation() == Qt::Horizontal)
        m_plot->axisRect()->setMinimumMargins({half(range.lower), kMargin, half(range.upper), kMargin});
}

/// What the numbers of every so manyth column span, with some room around.
ChartScale PlotPainter::SpanOf(std::size_t firstCol, std::size_t step) const
{
    ChartScale span{.minimum = m_chart.rows.front()[firstCol], .maximum = m_chart.rows.front()[firstCol]};
    for (const auto& row : m_chart.rows) {
        for (std::size_t col = firstCol; col < row.size(); col += step) {
            span.minimum = std::min(span.minimum, row[col]);
            span.maximum = std::max(span.maximum, row[col]);
        }
    }
    const double room = (span.maximum - span.minimum) * kRoom;
    return {.minimum = span.minimum - room, .maximum = span.maximum + room};
}

void PlotPainter::ShowAll()
{
    if (!HasExtent())
        return;
    const bool bars = m_chart.type == ChartType::HighLow;
    if (bars)
        ShowGroups();
    else
        SetRange(m_plot->xAxis, m_chart.x.scale.value_or(SpanOf(0, 2)), m_chart.x.majorDivisions);
    SetRange(m_plot->yAxis, m_chart.y.scale.value_or(bars ? SpanOf(0, 1) : SpanOf(1, 2)),
             m_chart.y.majorDivisions);
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
    ShowRoundTicks(m_plot->xAxis);
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
