// A double's decimal value, digit by digit: what every number turned into text is made of.
#pragma once

#include <QVarLengthArray>

/// A number's decimal value at 15 significant digits: d[0].d[1]d[2]... times ten to the exponent.
struct Decimal {
    static constexpr int kDigits = 15;
    bool negative = false;
    char digits[kDigits] = {}; ///< '0' to '9'
    int exponent = 0;
};

/// The decimal value of value, rounded half away from zero. value is finite.
Decimal ToDecimal(double value);

/// Plain characters of one number, the decimal separator a '.'.
using NumberBuffer = QVarLengthArray<char, 64>;

/// Appends value with `decimals` decimals, its decimal value rounded to them half away from zero, and at
/// least `minInteger` integer digits. There is no negative zero.
void AppendFixed(NumberBuffer& out, double value, int minInteger, int decimals);
