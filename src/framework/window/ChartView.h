// A chart on screen: zoom with the wheel, drag, double click back to the whole, the values under the pointer,
// and a menu to copy and save it.
#pragma once

#include "framework/chart/ChartPainter.h"
#include "framework/document/TestDocument.h"

#include <QWidget>

class ChartView : public QWidget
{
    Q_OBJECT

public:
    /// chart outlives the view. caption: what a screen reader says.
    ChartView(const ChartData& chart, const QString& caption, const DocumentContext& context,
              QWidget* parent = nullptr);

    /// The chart has changed: shows it anew, all of it.
    void ShowChart();

    QSize sizeHint() const override { return {640, 420}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

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

    const ChartData& m_chart;
    DocumentContext m_context;
    std::unique_ptr<ChartPainter> m_painter;
    QString m_failure; ///< why there is no painter
    bool m_stale = true;
    std::optional<QPointF> m_dragFrom;
};
