// A chart on screen: zoom with the wheel, drag, double click back to the whole and then to the whole page,
// the values under the pointer, and a menu to copy and save it. All of this by keys, too.
#pragma once

#include "framework/chart/ChartData.h"
#include "framework/chart/ChartPainter.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/ResultState.h"

#include <QWidget>

#include <memory>
#include <optional>

class ChartNotice;

/// On its page.
enum class ChartPlace {
    Alone,
    Beside,  ///< another one; it can be enlarged
    Enlarged ///< in the place of both; it can be put back
};

class ChartView : public QWidget
{
    Q_OBJECT

public:
    /// name: of the chart. caption: what a screen reader says.
    ChartView(const QString& name, const QString& caption, const DocumentContext& context,
              QWidget* parent = nullptr);

    /// Shows this chart from now on, all of it.
    void ShowChart(const ChartData& chart);
    /// A chart of results that are no longer current is dimmed, on screen alone, and says so; one without
    /// results says how to get some.
    void SetResults(ResultState results);
    /// To the clipboard, as wide as a page.
    void CopyPicture();
    /// Where it stands: whether keys, mouse and menu ask for another place.
    void SetPlace(ChartPlace place);
    /// Whether a double click would show no more of it.
    bool IsFitted();

    QSize sizeHint() const override { return {640, 420}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

Q_SIGNALS:
    /// To be enlarged, or put back.
    void TurnAsked();
    /// Another part of it, or another chart.
    void AnotherSeen();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
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
    /// Zooms, drags or reads by a key. False: it is none of those.
    bool Move(int key, bool withCtrl);
    void ZoomMiddle(double factor);
    void DragBy(const QPointF& by);
    void ShowAll();
    /// After anything that changes what is in view, or where.
    void Seen();
    void Describe();
    bool CanTurn() const;
    bool IsStale() const;
    QString Hint() const;
    void ShowValues(const QPointF& at, const QPoint& global);
    /// Tells the numbers of the next point in view, or with -1 of the one before it.
    void ReadOn(int direction);
    void ShowMenu(const QPoint& global);
    void Save(ChartFormat format, const QString& extension, const QString& filter);

    ChartData m_chart;
    DocumentContext m_context;
    std::unique_ptr<ChartPainter> m_painter;
    QString m_failure;     ///< why there is no painter
    ChartNotice* m_notice; ///< that the chart is not whole
    bool m_isNew = true;   ///< to the painter
    ResultState m_results = ResultState::None;
    ChartPlace m_place = ChartPlace::Alone;
    std::optional<QPointF> m_dragFrom; ///< where the button is down
    bool m_isDragged = false;          ///< farther than a hand trembles
    qsizetype m_read = -1;             ///< the stop that was told last; negative: none
};
