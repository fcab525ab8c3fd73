// Conclusions are templates with the placeholders #1# to #9#, filled with what a calculation gave.
#pragma once

#include <QString>
#include <QStringList>

/// The template with #1# replaced by the first text, #2# by the second and so on, in this order: a text that
/// holds a later placeholder gets it filled, too.
QString FillTemplate(QString text, const QStringList& values);
