// What the cells of a grid show, and what can be typed into them.
#pragma once

#include "framework/text/NumberText.h"

#include <QString>

#include <optional>

/// The digits of a grid's numbers, and their decimal separator. What is typed must lie between 0 and the
/// all-nines number of the digits; what a file holds is shown as it comes.
class CellFormat
{
public:
    explicit CellFormat(QString decSep);

    const Digits& GetDigits() const { return m_digits; }
    /// interi at least 1, decimali at least 0.
    void SetDigits(Digits digits);

    /// Whether a cell that is not being typed shows its thousands in groups.
    void SetGrouped(bool grouped) { m_grouped = grouped; }

    /// Empty for an empty cell.
    QString Text(std::optional<double> value) const;
    /// The same in groups, for the eye alone: what is typed or copied has none, since a lone separator of
    /// thousands would be taken for a decimal one.
    QString ShownText(std::optional<double> value) const;
    /// Whether a typed text is empty or a number within the limits.
    bool Accepts(const QString& text) const;
    /// The number that a typed text stands for, where it is one within the limits.
    std::optional<double> Number(const QString& text) const;
    /// The largest number that can be typed: as many nines as the digits allow.
    QString LargestText() const;

private:
    Digits m_digits;
    double m_largest = 9;
    QString m_decSep;
    bool m_grouped = false;
};
