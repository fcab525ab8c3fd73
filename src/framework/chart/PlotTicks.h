// The axes of a painted chart: what they span, their ticks, and as many numbers at them as don't touch each
// other.
#pragma once

#include "framework/chart/ChartData.h"

#include <QLocale>
#include <QRectF>

class QCPAxis;
class QCPAxisRect;

/// The room around a chart, and beside the labels at its ends, in points.
inline constexpr int kChartMargin = 10;

/// A locale whose numbers have this decimal separator and no thousands.
QLocale LocaleOf(const QString& decSep);

/// Where numbers lie that are in view, those at the ends of the axes included.
QRectF EndToEnd(const QCPAxisRect& axes);

/// Shows the scale that is set, with so many divisions from end to end, the ends included, which hold while
/// all of the axis is in view; 0: ticks at round numbers. Ends that are equal stay so: what lies there is in
/// the middle. needed: the scale where none is set. The numbers are those of the plot's locale.
void SetScale(QCPAxis* axis, const ChartAxis& data, const ChartScale& needed);

/// Whether a scale was set whose ends are equal.
bool HasEqualEnds(const ChartAxis& data);

/// Ticks at round numbers, whatever is in view.
void ShowRoundTicks(QCPAxis* axis);

/// A place for each label, counted from 1, all of them in view.
void ShowPlaces(QCPAxis* axis, const QStringList& labels, std::size_t count);
