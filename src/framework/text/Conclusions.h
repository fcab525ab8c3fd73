// Conclusions are templates with the placeholders #1# to #9#, filled with what a calculation gave, below a
// title.
#pragma once

#include "framework/text/Language.h"

#include <QList>
#include <QString>
#include <QStringView>

/// What takes the place of one placeholder.
struct Filling {
    int number = 1;
    QString text;
};

/// The template with its placeholders filled in the order of the list: a text that holds a later placeholder
/// gets it filled, too.
QString FillTemplate(QString text, const QList<Filling>& fillings);

/// Deliberate: the Italian title is spelled with two blanks behind its first word in some tests, with three
/// in others.
enum class TitleBlanks { Two, Three };

/// The spaced-out title of all conclusions, the test's line below it, and the text.
QString WithHeading(Language language, TitleBlanks blanks, QStringView line, QStringView text);
