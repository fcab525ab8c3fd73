#include "framework/chart/PlotTexts.h"

#include "framework/chart/PlotTicks.h"

#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kTitlePoints = 10;
constexpr int kAxisPoints = 10;
constexpr int kFootnotePoints = 7;

/// The library leaves 2 points beside a text.
constexpr int kTextMargin = kChartMargin + 2;
/// A wrapped footnote takes no more than a third of the page.
constexpr int kFootnotePart = 3;

/// The axes have this height, or this part of a low picture, before any text has room.
constexpr int kAxesHeight = 160;
constexpr double kAxesPart = 0.4;
/// What goes one after the other.
constexpr int kDispensable = 4;

/// Numbers along y: so many, or as many as a small chart has room for.
constexpr int kMostNumbers = 5;
constexpr int kHeightOfNumber = 60;

constexpr int kNamesInRow = 4;
constexpr int kIconWidth = 36;
constexpr int kBetweenNames = 24;
constexpr double kNoStretch = 0.001;

QStringList Wrapped(const QString& text, const QFont& font, int width)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

QString Footnote(const QString& text, const QFont& font, const QSize& size, bool wrapped)
{
    const QFontMetrics metrics(font);
    const int width = size.width() - 2 * kTextMargin;
    QStringList lines;
    for (const QString& line : text.split(u"\r\n"_s))
        lines += wrapped ? Wrapped(line, font, width)
                         : QStringList(metrics.elidedText(line, Qt::ElideRight, width));
    const qsizetype most = std::max(1, size.height() / kFootnotePart / metrics.lineSpacing());
    if (wrapped && lines.size() > most) {
        lines.resize(most);
        lines.back() = metrics.elidedText(lines.back() + u'…', Qt::ElideRight, width);
    }
    return lines.join(u'\n');
}

} // namespace

void LaidOutPlot::LayOut(const QSize& size)
{
    setViewport(QRect(QPoint(), size));
    updateLayout();
    updateLayout(); // the numbers at the axes go by the places that they had before
}

QFont ChartFont(int points, bool bold)
{
    QFont font;
    font.setFamilies({u"Liberation Sans"_s, u"Arial"_s, u"Helvetica"_s});
    font.setPointSize(points);
    font.setBold(bold);
    return font;
}

PlotTexts::PlotTexts(LaidOutPlot& plot)
    : m_plot(plot), m_title(new QCPTextElement(&plot)), m_footnote(new QCPTextElement(&plot))
{
    QCPLegend* legend = m_plot.legend;
    legend->setFont(ChartFont(kNumberPoints));
    legend->setBorderPen(Qt::NoPen);
    legend->setBrush(Qt::NoBrush);
    legend->setIconSize(kIconWidth, QFontMetrics(legend->font()).height());
    legend->setColumnSpacing(kBetweenNames);
    legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    m_title->setFont(ChartFont(kTitlePoints, true));
    m_footnote->setFont(ChartFont(kFootnotePoints));
    m_footnote->setTextFlags(Qt::AlignLeft | Qt::AlignTop);
    m_plot.xAxis->setLabelFont(ChartFont(kAxisPoints));
    m_plot.yAxis->setLabelFont(ChartFont(kAxisPoints));
    m_plot.plotLayout()->setMargins(QMargins(kChartMargin, kChartMargin, kChartMargin, kChartMargin));
}

void PlotTexts::Fit(const ChartData& chart, const QSize& size, bool wrapped)
{
    m_plot.yAxis->ticker()->setTickCount(std::clamp(size.height() / kHeightOfNumber, 1, kMostNumbers));
    const QCPAxisRect* axes = m_plot.axisRect();
    const int least = std::min(kAxesHeight, qRound(size.height() * kAxesPart));
    for (int withoutLast = 0; withoutLast <= kDispensable; ++withoutLast) {
        Show(chart, size, wrapped, withoutLast);
        m_plot.LayOut(size);
        if (!axes->visible() || axes->height() >= least)
            break;
    }
    if (m_plot.xAxis->label().isEmpty() && m_plot.yAxis->label().isEmpty())
        return;
    FitAxisTitle(m_plot.xAxis, chart.x.title, axes->width());
    FitAxisTitle(m_plot.yAxis, chart.y.title, axes->height());
    m_plot.LayOut(size);
}

/// The chart's texts without the last few of legend, titles of the axes, title, footnote.
void PlotTexts::Show(const ChartData& chart, const QSize& size, bool wrapped, int withoutLast)
{
    const auto shown = [withoutLast](int last, const QString& text) {
        return withoutLast < last ? text : QString();
    };
    m_footnote->setText(Footnote(shown(1, chart.footnote), m_footnote->font(), size, wrapped));
    const QFontMetrics metrics(m_title->font());
    const int width = size.width() - 2 * kTextMargin;
    m_title->setText(metrics.elidedText(shown(2, chart.title), Qt::ElideRight, width));
    m_plot.xAxis->setLabel(shown(3, chart.x.title));
    m_plot.yAxis->setLabel(shown(3, chart.y.title));
    StackUp(chart.legend && m_plot.axisRect()->visible() && withoutLast < 4);
    FitLegend(size.width());
}

/// One below the other: what is empty takes no room.
void PlotTexts::StackUp(bool withLegend)
{
    QCPLayoutGrid* layout = m_plot.plotLayout();
    m_plot.legend->setVisible(withLegend);
    m_title->setVisible(!m_title->text().isEmpty());
    m_footnote->setVisible(!m_footnote->text().isEmpty());
    QCPAxisRect* axes = m_plot.axisRect(); // is found in the layout alone
    const QList<QCPLayoutElement*> all = {m_title, axes, m_plot.legend, m_footnote};
    for (QCPLayoutElement* element : all) {
        if (element->layout() != nullptr)
            element->layout()->take(element);
    }
    layout->simplify();
    for (QCPLayoutElement* element : all) {
        const bool isText = element != axes;
        if (isText && !element->visible())
            continue;
        layout->addElement(layout->rowCount(), 0, element);
        layout->setRowStretchFactor(layout->rowCount() - 1, isText ? kNoStretch : 1);
    }
}

/// The names stand together, in the middle below the axes, as many in a row as there is room for.
void PlotTexts::FitLegend(int width)
{
    QCPLegend* legend = m_plot.legend;
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

/// No longer than the axis beside which it stands.
void PlotTexts::FitAxisTitle(QCPAxis* axis, const QString& title, int length)
{
    if (!axis->label().isEmpty())
        axis->setLabel(QFontMetrics(axis->labelFont()).elidedText(title, Qt::ElideRight, length));
}
