// A chart and what is done with it, told by a file: a line with '>' is a step, the lines below it are what is
// seen then. '#' is a word for the reader.
#pragma once

#include "framework/chart/ChartData.h"

#include <QString>
#include <QStringList>

class ChartStory
{
public:
    virtual ~ChartStory() = default;

    /// Does the steps of a kept text, and tells where what comes differs from it, as DifferenceFrom does.
    QString Difference(const QString& file);

protected:
    /// The lines that were not there before, and what is there no more.
    static QStringList Changes(const QStringList& before, const QStringList& now);

    /// What is seen after a step; the steps that make a chart are done already.
    virtual QStringList Do(const QString& verb, const QString& rest) = 0;

    ChartData m_chart;

private:
    /// Whether this is one of the steps below. False for others.
    ///   chart NAME; bars; title TEXT; footnote TEXT (" / " parts lines); legend
    ///   x TITLE, y TITLE; x-scale FROM TO; x-divisions COUNT; x-hidden; x-quantity WORD; the same for y
    ///   series line|marks|fitted|group COUNT|colours #RRGGBB,...|fit-colour #RRGGBB... [: NAME]
    ///   label TEXT; row NUMBER...
    bool Make(const QString& verb, const QString& rest);
};

/// The numbers in a text of words.
QList<double> NumbersOf(const QString& words);
