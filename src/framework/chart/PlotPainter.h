// The painter of charts over QCustomPlot. Nothing else of the program knows that library.
#pragma once

#include "framework/chart/ChartData.h"
#include "framework/chart/ChartPainter.h"

#include <memory>
#include <optional>

class QCPAxis;
class QCPPainter;
class QCPTextElement;
class QCustomPlot;

class PlotPainter : public ChartPainter
{
public:
    PlotPainter();
    ~PlotPainter() override;

    void SetChart(const ChartData& chart, const QString& decSep) override;
    void Paint(QPaintDevice& device, const QSize& size) override;
    QByteArray Export(ChartFormat format, const QSize& size) override;
    void Zoom(const QPointF& at, double factor) override;
    void Drag(const QPointF& by) override;
    void ShowAll() override;
    std::optional<QPointF> ValuesAt(const QPointF& at) const override;

private:
    void ShowAxis(QCPAxis* axis, const ChartAxis& data) const;
    /// Below the axes, or nowhere.
    void PlaceLegend(bool shown);
    void FitLegend(int width);
    void FitTexts(int width);
    void PaintOn(QPaintDevice& device, const QSize& size, bool vectors);
    QByteArray ExportPdf(const QSize& size);
    QByteArray ExportSvg(const QSize& size);
    QByteArray ExportPng(const QSize& size);

    ChartData m_chart;
    double m_seen = 1; ///< how much of the whole
    std::unique_ptr<QCustomPlot> m_plot;
    QCPTextElement* m_title;
    QCPTextElement* m_footnote;
};
