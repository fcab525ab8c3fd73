// What a chart shows, without how it is painted. Documents fill it, painters and the companion read it.
#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <utility>
#include <vector>

enum class ChartType {
    XY,     ///< columns in pairs, x and y of one series each
    HighLow ///< a row is a bar: highest, lowest, and the mark between them
};

/// A fixed scale, in the unit of the data.
struct ChartScale {
    double minimum = 0;
    double maximum = 1;
    friend bool operator==(const ChartScale&, const ChartScale&) = default;
};

struct ChartAxis {
    QString title;
    std::optional<ChartScale> scale; ///< as the data need it where none is set
    int majorDivisions = 0;          ///< 0: as it looks best
    bool visible = true;
};

struct ChartData {
    QString name; ///< "VtGrafPrec"
    ChartType type = ChartType::XY;
    QString title;
    QString footnote; ///< lines parted by CR LF
    ChartAxis x;
    ChartAxis y;
    bool legend = false;
    QStringList seriesNames; ///< where the chart names its series
    QStringList rowLabels;   ///< one a row, in high-low charts
    std::vector<std::vector<double>> rows;

    bool IsEmpty() const { return rows.empty(); }
    /// Everything but the name goes.
    void Clear() { *this = ChartData(name); }

    ChartData() = default;
    explicit ChartData(QString chartName) : name(std::move(chartName)) {}
};

/// What stands at a point of the chart, in words: the nearest point of a curve, or a bar's numbers. Empty
/// where nothing is near. at: in the unit of the axes.
QString ChartValueText(const ChartData& chart, const QPointF& at, QStringView decSep);

/// What the chart shows, for those who don't see it.
QString ChartDescription(const ChartData& chart, QStringView decSep);
