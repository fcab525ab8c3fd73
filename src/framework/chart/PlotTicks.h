// The axes of a painted chart: what they span, their ticks, and the numbers at them.
#pragma once

#include "framework/chart/ChartData.h"

#include <QLocale>

class QCPAxis;

/// The room around a chart, and beside the labels at its ends, in points.
inline constexpr int kChartMargin = 10;

/// A locale whose numbers have this decimal separator and no thousands.
QLocale LocaleOf(const QString& decSep);

/// Shows scale, with so many divisions from end to end, the ends included, which hold while all of the axis
/// is in view; 0: ticks at round numbers. The numbers are those of the plot's locale.
void SetScale(QCPAxis* axis, const ChartScale& scale, int majorDivisions);

/// Ticks at round numbers, whatever is in view.
void ShowRoundTicks(QCPAxis* axis);

/// A place for each label, counted from 1, all of them in view.
void ShowPlaces(QCPAxis* axis, const QStringList& labels, std::size_t count);
