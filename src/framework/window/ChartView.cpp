#include "framework/window/ChartView.h"

#include "framework/chart/ChartData.h"
#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"
#include "stats/RuntimeFailure.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
/// One step of the wheel shows this part of what was seen.
constexpr double kZoomStep = 0.8;
constexpr double kWheelStep = 120;
constexpr double kKeyDrag = 30;
} // namespace

ChartView::ChartView(const QString& name, const QString& caption, const DocumentContext& context,
                     QWidget* parent)
    : QWidget(parent), m_context(context)
{
    setObjectName(name);
    setAccessibleName(caption);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    ShowChart(ChartData(name));
}

void ChartView::ShowChart(const ChartData& chart)
{
    m_chart = chart;
    m_stale = true;
    setAccessibleDescription(ChartDescription(m_chart, m_context.define.DecSep));
    update();
}

ChartPainter* ChartView::Painter()
{
    if (m_chart.IsEmpty() || !m_failure.isEmpty())
        return nullptr;
    if (!m_painter) {
        try {
            m_painter = CreateChartPainter(m_context.define.ProgramFolder);
        } catch (const RuntimeFailure& failure) {
            m_failure = FailureText(failure);
            return nullptr;
        }
    }
    if (m_stale)
        m_painter->SetChart(m_chart, m_context.define.DecSep);
    m_stale = false;
    return m_painter.get();
}

void ChartView::paintEvent(QPaintEvent* /*event*/)
{
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
    }
    if (ChartPainter* chart = Painter())
        chart->Paint(*this, size());
    QPainter painter(this);
    if (!m_failure.isEmpty())
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_failure);
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ChartView::ZoomAt(const QPointF& at, double factor)
{
    if (ChartPainter* chart = Painter()) {
        chart->Zoom(at, factor);
        update();
    }
}

void ChartView::DragBy(const QPointF& by)
{
    if (ChartPainter* chart = Painter()) {
        chart->Drag(by);
        update();
    }
}

void ChartView::ShowAll()
{
    if (ChartPainter* chart = Painter()) {
        chart->ShowAll();
        update();
    }
}

void ChartView::wheelEvent(QWheelEvent* event)
{
    ZoomAt(event->position(), std::pow(kZoomStep, event->angleDelta().y() / kWheelStep));
    event->accept();
}

void ChartView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const ChartPainter* chart = Painter();
    if (chart != nullptr && chart->ValuesAt(event->position())) {
        m_dragFrom = event->position();
        setCursor(Qt::ClosedHandCursor);
    }
}

void ChartView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragFrom)
        DragBy(event->position() - *m_dragFrom);
    else
        ShowValues(event->position(), event->globalPosition().toPoint());
    if (m_dragFrom)
        m_dragFrom = event->position();
    event->ignore(); // the window describes what lies under the mouse
}

void ChartView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_dragFrom) {
        m_dragFrom.reset();
        unsetCursor();
    }
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_enlargeable && event->modifiers() == Qt::ControlModifier)
        Q_EMIT EnlargeAsked();
    else
        ShowAll();
}

void ChartView::ShowValues(const QPointF& at, const QPoint& global)
{
    const ChartPainter* chart = Painter();
    const auto values = chart == nullptr ? std::nullopt : chart->ValuesAt(at);
    const QString text = values ? ChartValueText(m_chart, *values, m_context.define.DecSep) : QString();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, text, this);
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    const QPointF middle = QRectF(rect()).center();
    switch (event->key()) {
    case Qt::Key_Plus:
        ZoomAt(middle, kZoomStep);
        break;
    case Qt::Key_Minus:
        ZoomAt(middle, 1 / kZoomStep);
        break;
    case Qt::Key_Home:
        ShowAll();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_enlargeable)
            Q_EMIT EnlargeAsked();
        else
            QWidget::keyPressEvent(event);
        break;
    case Qt::Key_Left:
        DragBy({kKeyDrag, 0});
        break;
    case Qt::Key_Right:
        DragBy({-kKeyDrag, 0});
        break;
    case Qt::Key_Up:
        DragBy({0, kKeyDrag});
        break;
    case Qt::Key_Down:
        DragBy({0, -kKeyDrag});
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ChartView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.setObjectName(u"MenuGrafico"_s);
    menu.addAction(u"&Copia come immagine"_s, this, &ChartView::CopyPicture);
    menu.addSeparator();
    menu.addAction(u"Salva come &PDF..."_s, this,
                   [this] { Save(ChartFormat::Pdf, u"pdf"_s, u"PDF|*.pdf"_s); });
    menu.addAction(u"Salva come &SVG..."_s, this,
                   [this] { Save(ChartFormat::Svg, u"svg"_s, u"SVG|*.svg"_s); });
    menu.addAction(u"Salva come P&NG..."_s, this,
                   [this] { Save(ChartFormat::Png, u"png"_s, u"PNG|*.png"_s); });
    menu.addSeparator();
    menu.addAction(u"Mostra &tutto"_s, this, &ChartView::ShowAll);
    if (m_enlargeable)
        menu.addAction(u"&Ingrandisci o affianca"_s, this, &ChartView::EnlargeAsked);
    for (QAction* action : menu.actions())
        action->setEnabled(Painter() != nullptr);
    menu.exec(event->globalPos());
}

void ChartView::CopyPicture()
{
    if (ChartPainter* chart = Painter())
        QGuiApplication::clipboard()->setImage(
            QImage::fromData(chart->Export(ChartFormat::Png, size()), "PNG"));
}

void ChartView::Save(ChartFormat format, const QString& extension, const QString& filter)
{
    // The dialog is the one that holds the name of the documents: it gets that back.
    CommonDialog& dialog = m_context.dialog;
    const KeepDialog keep(dialog);
    dialog.InitDir = m_context.define.OpenSaveFolder;
    dialog.DefaultExt = extension;
    dialog.Filter = filter;
    dialog.FileName.clear();
    if (!dialog.ShowSave())
        return;
    try {
        WriteSafeFile(dialog.FileName, Painter()->Export(format, kChartPage));
    } catch (const RuntimeFailure& failure) {
        m_context.messages.Show(MessageIcon::Critical, m_context.define.AppTitle,
                                NotSavedText(u"Il grafico"_s, dialog.FileName, failure));
    }
}
