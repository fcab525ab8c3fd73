#include "framework/text/NumberText.h"

#include "framework/text/DecimalDigits.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

/// Beyond this count of decimals a double of 15 significant digits has zeros alone.
constexpr int kLastDecimal = 340;

QString ToText(const NumberBuffer& buffer, QStringView decSep)
{
    QString text = QString::fromLatin1(buffer.constData(), buffer.size());
    if (decSep != u".") {
        const qsizetype point = text.indexOf(u'.');
        if (point >= 0)
            text.replace(point, 1, decSep.toString());
    }
    return text;
}

} // namespace

QString NumFormatOf(Digits digits)
{
    QString format = QString(digits.interi - 1, u'#') + u'0';
    if (digits.decimali != 0)
        format += u'.' + QString(digits.decimali, u'0');
    return format;
}

QString FormatNumber(double value, QStringView format, QStringView decSep)
{
    const qsizetype point = format.indexOf(u'.');
    const QStringView whole = point < 0 ? format : format.first(point);
    const qsizetype decimals = point < 0 ? 0 : format.size() - point - 1;
    NumberBuffer text;
    AppendFixed(text, value, std::max(1, static_cast<int>(whole.count(u'0'))), static_cast<int>(decimals));
    return ToText(text, decSep);
}

QString DecimalText(double value, int decimals, QStringView decSep)
{
    NumberBuffer text;
    AppendFixed(text, value, 1, decimals);
    return ToText(text, decSep);
}

QByteArray PointText(double value, int decimals)
{
    NumberBuffer text;
    AppendFixed(text, value, 1, decimals);
    return QByteArray(text.constData(), text.size());
}

double RoundToDecimals(double value, int decimals)
{
    NumberBuffer text;
    AppendFixed(text, value, 1, std::min(decimals, kLastDecimal));
    double rounded = 0;
    std::from_chars(text.constData(), text.constData() + text.size(), rounded);
    return rounded;
}

double GeneralValue(double value)
{
    const Decimal decimal = ToDecimal(value);
    NumberBuffer text;
    text.append(decimal.digits, Decimal::kDigits);
    text.append('e');
    char exponent[8];
    const auto end =
        std::to_chars(exponent, exponent + sizeof exponent, decimal.exponent - Decimal::kDigits + 1);
    text.append(exponent, end.ptr - exponent);
    double rounded = 0;
    std::from_chars(text.constData(), text.constData() + text.size(), rounded);
    return decimal.negative ? -rounded : rounded;
}

QString GeneralText(double value, QStringView decSep)
{
    const Decimal decimal = ToDecimal(value);
    if (value == 0)
        return QStringLiteral("0");
    int count = Decimal::kDigits;
    while (count > 1 && decimal.digits[count - 1] == '0')
        --count;
    NumberBuffer text;
    if (decimal.exponent >= -4 && decimal.exponent < Decimal::kDigits) {
        AppendFixed(text, value, 1, std::max(0, count - 1 - decimal.exponent));
        return ToText(text, decSep);
    }
    if (decimal.negative)
        text.append('-');
    text.append(decimal.digits[0]);
    if (count > 1)
        text.append('.');
    text.append(decimal.digits + 1, count - 1);
    const QString exponent = QString::number(std::abs(decimal.exponent)).rightJustified(2, u'0');
    return ToText(text, decSep) + (decimal.exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+")) +
           exponent;
}
