#include "framework/text/DecimalDigits.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

/// One more at the digit of this place, counted from 0; -1 stands in front of the first.
void AddToLast(Decimal& decimal, int place)
{
    while (place >= 0 && decimal.digits[place] == '9')
        decimal.digits[place--] = '0';
    if (place >= 0) {
        ++decimal.digits[place];
    } else { // all nines: one digit more
        decimal.digits[0] = '1';
        ++decimal.exponent;
    }
}

/// Leaves `kept` digits before the cut (negative: the cut lies further left still), half away from zero.
void Round(Decimal& decimal, int kept)
{
    if (kept >= Decimal::kDigits)
        return;
    const bool up = kept >= 0 && decimal.digits[kept] >= '5';
    std::fill(decimal.digits + std::max(kept, 0), decimal.digits + Decimal::kDigits, '0');
    if (up)
        AddToLast(decimal, kept - 1);
}

/// The magnitude with so many digits, the exact value rounded to them: "d.ddde+xx".
const char* WriteDigits(char (&text)[96], double value, int digits)
{
    return std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific,
                         digits - 1)
        .ptr;
}

} // namespace

Decimal ToDecimal(double value)
{
    // The standard library rounds half to even, so the digits behind the last one decide here. Two of them
    // say enough, but for 50, which may stand for less, for more, or for a true half.
    char text[96];
    int written = Decimal::kDigits + 2;
    const char* end = WriteDigits(text, value, written);
    const char* behind = text + 1 + Decimal::kDigits; // the point is one more
    if (behind[0] == '5' && behind[1] == '0') {
        written = 80;
        end = WriteDigits(text, value, written);
    }
    Decimal decimal;
    decimal.negative = std::signbit(value);
    decimal.digits[0] = text[0];
    std::copy_n(text + 2, Decimal::kDigits - 1, decimal.digits + 1);
    const char* exponent = text + 2 + written; // its sign, behind the e
    std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end, decimal.exponent);
    if (*behind >= '5')
        AddToLast(decimal, Decimal::kDigits - 1);
    return decimal;
}

void AppendFixed(NumberBuffer& out, double value, int minInteger, int decimals)
{
    Decimal decimal = ToDecimal(value);
    Round(decimal, decimal.exponent + 1 + decimals);
    const bool zero =
        std::all_of(decimal.digits, decimal.digits + Decimal::kDigits, [](char c) { return c == '0'; });
    if (decimal.negative && !zero)
        out.append('-');
    const auto digit = [&](int power) {
        const int i = decimal.exponent - power;
        return i >= 0 && i < Decimal::kDigits ? decimal.digits[i] : '0';
    };
    for (int power = std::max(decimal.exponent, minInteger - 1); power >= 0; --power)
        out.append(digit(power));
    if (decimals > 0)
        out.append('.');
    for (int power = -1; power >= -decimals; --power)
        out.append(digit(power));
}
