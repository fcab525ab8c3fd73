// What a chart shows, without how it is painted. Documents fill it, painters and the companion read it.
#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

enum class ChartType {
    XY,     ///< columns in pairs: pair i has x and y of series i
    HighLow ///< a row is a bar: highest, lowest, and the mark between them
};

/// A fixed scale, in the unit of the data.
struct ChartScale {
    double minimum = 0;
    double maximum = 1;
    friend bool operator==(const ChartScale&, const ChartScale&) = default;
};

struct ChartColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const ChartColour&, const ChartColour&) = default;
};

struct ChartAxis {
    QString title;
    std::optional<ChartScale> scale; ///< as the data need it where none is set
    bool showsZero = false;          ///< it is in view whatever the data are
    int majorDivisions = 0;          ///< 0: as it looks best
    bool visible = true;
    QString quantity = {}; ///< what a number on it is, within a sentence ("risposta"); empty: x, y
};

/// How the points of one pair of columns are drawn.
struct ChartSeries {
    QString name = {};
    bool line = true;    ///< joins the points, in the order of the rows
    bool marks = false;  ///< a mark at each point
    int colourGroup = 0; ///< so many rows one below the other share form and colour of their marks; 0: all
    bool fitted = false; ///< the least squares line through the points of all rows, over the span of their x
    std::vector<ChartColour> colours = {};     ///< of the groups, in their order; empty: the program's looks
    std::optional<ChartColour> fitColour = {}; ///< of a thin fitted line; not set: the program's look
};

struct ChartData {
    QString name; ///< "VtGrafPrec"
    ChartType type = ChartType::XY;
    QString title;
    QString footnote; ///< lines parted by CR LF
    ChartAxis x;
    ChartAxis y;
    bool legend = false;             ///< names the series
    std::vector<ChartSeries> series; ///< one a pair; empty: each is a line without a name
    QStringList rowLabels;           ///< one a row, in high-low charts
    std::vector<std::vector<double>> rows;

    bool IsEmpty() const { return rows.empty(); }
    /// The pairs of an XY chart.
    std::size_t SeriesCount() const { return IsEmpty() ? 0 : rows.front().size() / 2; }
    ChartSeries Series(std::size_t i) const { return i < series.size() ? series[i] : ChartSeries(); }
    /// The names of all series, or nothing where none has one.
    QStringList SeriesNames() const;

    ChartData() = default;
    explicit ChartData(QString chartName) : name(std::move(chartName)) {}
};

/// What stands at a point of the chart, in words: the nearest point of all series, or a bar's numbers. Empty
/// where nothing is near. at: in the unit of the axes. A curve that stands alone is read along x. Where the
/// axes have quantities, a point is told with its group, counted from 1, and with the fitted line's value at
/// its x.
QString ChartValueText(const ChartData& chart, const QPointF& at, QStringView decSep);

/// Where a reader stops: at the points, series by series, or at the bars' marks. In the unit of the axes.
std::vector<QPointF> ChartPoints(const ChartData& chart);

/// What the chart shows, for those who don't see it.
QString ChartDescription(const ChartData& chart, QStringView decSep);
