#include "framework/window/ChartView.h"

#include "framework/chart/ChartData.h"
#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"
#include "framework/window/ChartNotice.h"
#include "framework/window/Furnishings.h"
#include "stats/RuntimeFailure.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
/// One step of the wheel shows this part of what was seen.
constexpr double kZoomStep = 0.8;
constexpr double kWheelStep = 120;
constexpr double kKeyDrag = 30;
/// Where keys read a curve of many points.
constexpr qsizetype kStops = 40;

/// White over a chart that is not current, of 255: black becomes a grey of 5.7 to 1.
constexpr int kVeil = 102;
constexpr QRgb kQuietText = qRgb(89, 89, 89);

const QString kNoChart = u"Inserire i dati e scegliere Calcola"_s;

/// Charts have a role of their own for screen readers, which don't read what is but painted.
QAccessibleInterface* ChartInterface(const QString& /*className*/, QObject* object)
{
    auto* chart = qobject_cast<ChartView*>(object);
    return chart == nullptr ? nullptr : new QAccessibleWidget(chart, QAccessible::Chart);
}

} // namespace

ChartView::ChartView(const QString& name, const QString& caption, const DocumentContext& context,
                     QWidget* parent)
    : QWidget(parent), m_context(context), m_notice(new ChartNotice(this))
{
    QAccessible::installFactory(ChartInterface);
    setObjectName(name);
    setAccessibleName(caption);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(m_notice, &ChartNotice::AllAsked, this, &ChartView::ShowAll);
    ShowChart(ChartData(name));
}

void ChartView::ShowChart(const ChartData& chart)
{
    m_chart = chart;
    m_isNew = true;
    m_read = -1;
    m_notice->hide();
    Describe();
    update();
    Q_EMIT AnotherSeen();
}

void ChartView::SetResults(ResultState results)
{
    if (std::exchange(m_results, results) == results)
        return;
    Describe();
    update();
}

void ChartView::SetPlace(ChartPlace place)
{
    m_place = place;
    Describe();
}

/// There is nothing to enlarge where there is no chart.
bool ChartView::CanTurn() const
{
    return m_place == ChartPlace::Enlarged || (m_place == ChartPlace::Beside && !m_chart.IsEmpty());
}

bool ChartView::IsFitted()
{
    const ChartPainter* chart = Painter();
    return chart == nullptr || chart->IsFitted();
}

bool ChartView::IsStale() const
{
    return m_results == ResultState::Stale && !m_chart.IsEmpty();
}

/// What stands in the chart's place.
QString ChartView::Hint() const
{
    if (!m_chart.IsEmpty())
        return m_failure;
    return m_results == ResultState::None ? kNoChart : ChartDescription(m_chart, m_context.define.DecSep);
}

void ChartView::Describe()
{
    QStringList parts = {m_chart.IsEmpty() ? Hint() : ChartDescription(m_chart, m_context.define.DecSep)};
    if (IsStale())
        parts.prepend(kStaleResults);
    if (CanTurn())
        parts +=
            m_place == ChartPlace::Enlarged ? u"Esc o Invio per affiancare"_s : u"Invio per ingrandire"_s;
    setAccessibleDescription(parts.join(u"; "_s));
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
    if (std::exchange(m_isNew, false))
        m_painter->SetChart(m_chart, m_context.define.DecSep);
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
    if (IsStale())
        painter.fillRect(rect(), QColor(255, 255, 255, kVeil));
    painter.setPen(QColor(kQuietText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, Hint());
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ChartView::Seen()
{
    ChartPainter* chart = Painter();
    const bool isCut = chart != nullptr && !chart->IsWhole();
    if (isCut)
        m_notice->PlaceIn(chart->LayOut(size()));
    m_notice->setVisible(isCut);
    update();
    Q_EMIT AnotherSeen();
}

void ChartView::ZoomAt(const QPointF& at, double factor)
{
    if (ChartPainter* chart = Painter()) {
        chart->Zoom(at, factor);
        Seen();
    }
}

void ChartView::ZoomMiddle(double factor)
{
    if (ChartPainter* chart = Painter())
        ZoomAt(QRectF(chart->LayOut(size())).center(), factor);
}

void ChartView::DragBy(const QPointF& by)
{
    if (ChartPainter* chart = Painter()) {
        chart->Drag(by);
        Seen();
    }
}

void ChartView::ShowAll()
{
    if (ChartPainter* chart = Painter()) {
        chart->ShowAll();
        Seen();
    }
}

void ChartView::resizeEvent(QResizeEvent* /*event*/)
{
    if (!m_notice->isHidden())
        Seen();
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
        m_isDragged = false;
        setCursor(Qt::ClosedHandCursor);
    }
}

void ChartView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragFrom)
        ShowValues(event->position(), event->globalPosition().toPoint());
    else if (const QPointF by = event->position() - *m_dragFrom;
             m_isDragged || by.manhattanLength() >= QApplication::startDragDistance()) {
        m_isDragged = true;
        m_dragFrom = event->position();
        DragBy(by);
    }
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
    if (CanTurn() && (IsFitted() || event->modifiers() == Qt::ControlModifier))
        Q_EMIT TurnAsked();
    else
        ShowAll();
}

void ChartView::ShowValues(const QPointF& at, const QPoint& global)
{
    const ChartPainter* chart = Painter();
    const auto values = chart == nullptr ? std::nullopt : chart->ValuesAt(at);
    QString text = values ? ChartValueText(m_chart, *values, m_context.define.DecSep) : QString();
    if (IsStale())
        text = text.isEmpty() ? kStaleResults : kStaleResults + u'\n' + text;
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, text, this);
}

void ChartView::ReadOn(int direction)
{
    ChartPainter* chart = Painter();
    if (chart == nullptr)
        return;
    chart->LayOut(size());
    QList<QPointF> places;
    for (const QPointF& point : ChartPoints(m_chart)) {
        if (const QPointF place = chart->PlaceOf(point); chart->ValuesAt(place))
            places += place;
    }
    const qsizetype apart = std::max<qsizetype>(1, places.size() / kStops);
    const qsizetype last = (places.size() - 1) / apart;
    if (places.isEmpty())
        return;
    m_read = m_read < 0 && direction < 0 ? last : std::clamp<qsizetype>(m_read + direction, 0, last);
    const QPointF place = places[m_read * apart];
    ShowValues(place, mapToGlobal(place).toPoint());
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isBack = event->key() == Qt::Key_Escape && m_place == ChartPlace::Enlarged;
    if (event->matches(QKeySequence::Copy))
        CopyPicture();
    else if (CanTurn() && (isEnter || isBack))
        Q_EMIT TurnAsked();
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        ShowMenu(mapToGlobal(rect().center())); // the menu's own key comes as an event of its own
    else if (!Move(event->key(), event->modifiers() == Qt::ControlModifier))
        QWidget::keyPressEvent(event);
}

bool ChartView::Move(int key, bool withCtrl)
{
    switch (key) {
    case Qt::Key_Plus:
        ZoomMiddle(kZoomStep);
        return true;
    case Qt::Key_Minus:
        ZoomMiddle(1 / kZoomStep);
        return true;
    case Qt::Key_Home:
        ShowAll();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int direction = key == Qt::Key_Right ? 1 : -1;
        if (withCtrl)
            ReadOn(direction);
        else
            DragBy({-direction * kKeyDrag, 0});
        return true;
    }
    case Qt::Key_Up:
        DragBy({0, kKeyDrag});
        return true;
    case Qt::Key_Down:
        DragBy({0, -kKeyDrag});
        return true;
    default:
        return false;
    }
}

void ChartView::contextMenuEvent(QContextMenuEvent* event)
{
    ShowMenu(event->globalPos());
}

void ChartView::ShowMenu(const QPoint& global)
{
    QMenu menu(this);
    menu.setObjectName(u"MenuGrafico"_s);
    menu.addAction(u"&Copia come immagine"_s, this, &ChartView::CopyPicture)->setShortcut(QKeySequence::Copy);
    menu.addSeparator();
    menu.addAction(u"Salva come &PDF..."_s, this,
                   [this] { Save(ChartFormat::Pdf, u"pdf"_s, u"PDF|*.pdf"_s); });
    menu.addAction(u"Salva come &SVG..."_s, this,
                   [this] { Save(ChartFormat::Svg, u"svg"_s, u"SVG|*.svg"_s); });
    menu.addAction(u"Salva come P&NG..."_s, this,
                   [this] { Save(ChartFormat::Png, u"png"_s, u"PNG|*.png"_s); });
    menu.addSeparator();
    // The key in letters: the library's own translation is an arrow.
    QAction* all = menu.addAction(u"Mostra &tutto\tHome"_s, this, &ChartView::ShowAll);
    for (QAction* action : menu.actions())
        action->setEnabled(Painter() != nullptr && (action != all || !IsFitted()));
    if (m_place != ChartPlace::Alone) {
        const QString caption =
            m_place == ChartPlace::Enlarged ? u"&Affianca\tEsc"_s : u"&Ingrandisci\tInvio"_s;
        menu.addAction(caption, this, &ChartView::TurnAsked)->setEnabled(CanTurn());
    }
    menu.exec(global);
}

void ChartView::CopyPicture()
{
    if (ChartPainter* chart = Painter())
        QGuiApplication::clipboard()->setImage(
            QImage::fromData(chart->Export(ChartFormat::Png, kChartPage), "PNG"));
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
