// The painter of charts over QCustomPlot. Nothing else of the program knows that library.
#pragma once

#include "framework/chart/ChartData.h"
#include "framework/chart/ChartPainter.h"
#include "framework/chart/PlotTexts.h"

#include <memory>
#include <optional>

class PlotPainter : public ChartPainter
{
public:
    PlotPainter();
    ~PlotPainter() override;

    void SetChart(const ChartData& chart, const QString& decSep) override;
    QRect LayOut(const QSize& size) override;
    void Paint(QPaintDevice& device, const QSize& size) override;
    QByteArray Export(ChartFormat format, const QSize& size) override;
    void Zoom(const QPointF& at, double factor) override;
    void Drag(const QPointF& by) override;
    void ShowAll() override;
    bool IsWhole() const override;
    bool IsFitted() const override;
    std::optional<QPointF> ValuesAt(const QPointF& at) const override;
    QPointF PlaceOf(const QPointF& values) const override;

private:
    /// Bars stay in view, and so does what lies between equal ends.
    bool MovesAlongX() const;
    void PaintOn(QPaintDevice& device, const QSize& size, bool vectors);
    QByteArray FileOf(ChartFormat format, const QSize& size);
    QByteArray ExportPdf(const QSize& size);
    QByteArray ExportSvg(const QSize& size);
    QByteArray ExportPng(const QSize& size);

    ChartData m_chart;
    double m_seen = 1; ///< how much of the whole
    QCPRange m_wholeX;
    QCPRange m_wholeY;
    QSize m_screen; ///< empty before it was painted there
    std::unique_ptr<LaidOutPlot> m_plot;
    PlotTexts m_texts;
};
