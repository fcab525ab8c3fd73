// A chart on screen: zoom with the wheel, drag, double click back to the whole, the values under the pointer,
// and a menu to copy and save it.
#pragma once

#include "framework/chart/ChartData.h"
#include "framework/chart/ChartPainter.h"
#include "framework/document/DocumentContext.h"

#include <QWidget>

#include <memory>
#include <optional>

class ChartView : public QWidget
{
    Q_OBJECT

public:
    /// name: of the chart. caption: what a screen reader says.
    ChartView(const QString& name, const QString& caption, const DocumentContext& context,
              QWidget* parent = nullptr);

    /// Shows this chart from now on, all of it.
    void ShowChart(const ChartData& chart);
    /// Whether Enter, Ctrl with a double click and the menu ask for the chart to be enlarged, or put back.
    void SetEnlargeable(bool enlargeable) { m_enlargeable = enlargeable; }

    QSize sizeHint() const override { return {640, 420}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

Q_SIGNALS:
    void EnlargeAsked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// The painter, loaded at the first call that finds a chart; null without one, or where it can't be
    /// loaded.
    ChartPainter* Painter();
    void ZoomAt(const QPointF& at, double factor);
    void DragBy(const QPointF& by);
    void ShowAll();
    void ShowValues(const QPointF& at, const QPoint& global);
    void CopyPicture();
    void Save(ChartFormat format, const QString& extension, const QString& filter);

    ChartData m_chart;
    DocumentContext m_context;
    std::unique_ptr<ChartPainter> m_painter;
    QString m_failure; ///< why there is no painter
    bool m_stale = true;
    bool m_enlargeable = false;
    std::optional<QPointF> m_dragFrom;
};
