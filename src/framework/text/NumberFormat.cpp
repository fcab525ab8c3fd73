#include "framework/text/NumberFormat.h"

#include "framework/text/TextFunctions.h"
#include "stats/CheckedArithmetic.h"

#include <QList>
#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

constexpr int kSignificant = 15;

/// Beyond this count of decimals a double of 15 significant digits has zeros alone.
constexpr int kLastDecimal = 340;

/// A number's decimal value at 15 significant digits: d[0].d[1]d[2]... times ten to the exponent.
struct Decimal {
    bool negative = false;
    char digits[kSignificant] = {};
    int exponent = 0;
};

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
    if (kept >= kSignificant)
        return;
    const bool up = kept >= 0 && decimal.digits[kept] >= '5';
    std::fill(decimal.digits + std::max(kept, 0), decimal.digits + kSignificant, '0');
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

/// Half away from zero, too, which the standard library's rounding (half to even) is not: the digits behind
/// the last one decide. Two of them say enough, but for 50, which may stand for less, for more, or for a true
/// half.
Decimal ToDecimal(double value)
{
    char text[96];
    int written = kSignificant + 2;
    const char* end = WriteDigits(text, value, written);
    const char* behind = text + 1 + kSignificant; // the point is one more
    if (behind[0] == '5' && behind[1] == '0') {
        written = 80;
        end = WriteDigits(text, value, written);
    }
    Decimal decimal;
    decimal.negative = std::signbit(value);
    decimal.digits[0] = text[0];
    std::copy_n(text + 2, kSignificant - 1, decimal.digits + 1);
    const char* exponent = text + 2 + written; // its sign, behind the e
    std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end, decimal.exponent);
    if (*behind >= '5')
        AddToLast(decimal, kSignificant - 1);
    return decimal;
}

using Buffer = QVarLengthArray<char, 64>;

/// The digits of value around a '.', with `decimals` decimals and at least `minInteger` integer digits.
void AppendFixed(Buffer& out, double value, int minInteger, int decimals)
{
    Decimal decimal = ToDecimal(value);
    Round(decimal, decimal.exponent + 1 + decimals);
    const bool zero =
        std::all_of(decimal.digits, decimal.digits + kSignificant, [](char c) { return c == '0'; });
    if (decimal.negative && !zero)
        out.append('-');
    const auto digit = [&](int power) {
        const int i = decimal.exponent - power;
        return i >= 0 && i < kSignificant ? decimal.digits[i] : '0';
    };
    for (int power = std::max(zero ? 0 : decimal.exponent, minInteger - 1); power >= 0; --power)
        out.append(digit(power));
    if (decimals > 0)
        out.append('.');
    for (int power = -1; power >= -decimals; --power)
        out.append(digit(power));
}

QString ToText(const Buffer& buffer, QStringView decSep)
{
    QString text = QString::fromLatin1(buffer.constData(), buffer.size());
    if (decSep != u".") {
        const qsizetype point = text.indexOf(u'.');
        if (point >= 0)
            text.replace(point, 1, decSep.toString());
    }
    return text;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Whether digits with an exponent that don't fit a double are too large rather than too small: the first
/// digit that is not 0 stands left of the point once the exponent has moved it.
bool IsTooLarge(const char* at, const char* end)
{
    long beforePoint = 0;
    long leadingZeros = 0;
    bool point = false;
    bool significant = false;
    for (; at != end && (IsDigit(*at) || (*at == '.' && !point)); ++at) {
        if (*at == '.') {
            point = true;
        } else if (significant || *at != '0') {
            significant = true;
            beforePoint += point ? 0 : 1;
        } else {
            leadingZeros += point ? 1 : 0;
        }
    }
    if (at == end || (*at != 'e' && *at != 'E'))
        return beforePoint > 0;
    ++at;
    const bool minus = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    long exponent = 0;
    for (; at != end && IsDigit(*at); ++at)
        exponent = std::min(exponent * 10 + (*at - '0'), 1'000'000'000L);
    return beforePoint - leadingZeros + (minus ? -exponent : exponent) > 0;
}

struct Parsed {
    double value = 0;
    qsizetype length = 0; ///< 0 where no number stands
    bool tooLarge = false;
};

/// Sign, digits, one point, exponent, at the very start of text.
Parsed ParseStart(QByteArrayView text)
{
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const char* at = begin;
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    const char* first = at;
    if (first != end && *first == '.')
        ++first;
    if (first == end || !IsDigit(*first))
        return {};
    double value = 0;
    const auto [stop, error] = std::from_chars(at, end, value);
    const bool outOfRange = error == std::errc::result_out_of_range;
    if (outOfRange)
        value = 0;
    return {negative ? -value : value, stop - begin, outOfRange && IsTooLarge(at, stop)};
}

double ValueOf(const Parsed& parsed)
{
    if (parsed.tooLarge)
        throw RuntimeFailure(FailureKind::Overflow);
    return parsed.value;
}

/// text as plain characters with a point where `decSep` stood, or nothing where it holds anything that no
/// number holds.
std::optional<Buffer> PlainNumber(QStringView text, QStringView decSep)
{
    const QChar separator = decSep.isEmpty() ? QChar(u'.') : decSep.front();
    Buffer plain;
    for (const QChar c : text) {
        if (c == separator)
            plain.append('.');
        else if (c.unicode() < 128 && c != u'.')
            plain.append(static_cast<char>(c.unicode()));
        else
            return std::nullopt;
    }
    return plain;
}

/// The digits in front of the decimal separator, grouped by `separator` in threes, without it; or nothing.
std::optional<QString> Ungrouped(QStringView whole, QChar separator)
{
    const QList<QStringView> groups = whole.split(separator);
    const QStringView first = groups.front();
    const qsizetype signs = first.startsWith(u'-') || first.startsWith(u'+') ? 1 : 0;
    const qsizetype count = first.size() - signs;
    if (count < 1 || count > 3 || first[signs] == u'0')
        return std::nullopt;
    QString digits = first.toString();
    for (qsizetype i = 1; i < groups.size(); ++i) {
        if (groups[i].size() != 3)
            return std::nullopt;
        digits += groups[i];
    }
    return digits;
}

/// text without thousands separators and with a point as decimal separator, or nothing where the separators
/// don't fit together.
std::optional<QString> WithPointAlone(QStringView text)
{
    const qsizetype points = text.count(u'.');
    const qsizetype commas = text.count(u',');
    if (points + commas <= 1)
        return text.toString().replace(u',', u'.');
    if (points == 0 || commas == 0)
        return Ungrouped(text, points == 0 ? u',' : u'.');
    const qsizetype last = std::max(text.lastIndexOf(u'.'), text.lastIndexOf(u','));
    if (text.count(text[last]) > 1)
        return std::nullopt;
    auto whole = Ungrouped(text.first(last), text[last] == u'.' ? u',' : u'.');
    if (whole)
        whole->append(u'.').append(text.sliced(last + 1));
    return whole;
}

} // namespace

QString GetNumFormat(int interi, int decimali, Define& define)
{
    QString format = QString(interi - 1, u'#') + u'0';
    if (decimali != 0)
        format += u'.' + QString(decimali, u'0');
    define.NumFormat = format;
    return format;
}

QString FormatNumber(double value, QStringView format, QStringView decSep)
{
    const qsizetype point = format.indexOf(u'.');
    const QStringView whole = point < 0 ? format : format.first(point);
    const qsizetype decimals = point < 0 ? 0 : format.size() - point - 1;
    Buffer text;
    AppendFixed(text, value, std::max(1, static_cast<int>(whole.count(u'0'))), static_cast<int>(decimals));
    return ToText(text, decSep);
}

QString DecimalText(double value, int decimals, QStringView decSep)
{
    Buffer text;
    AppendFixed(text, value, 1, decimals);
    return ToText(text, decSep);
}

QByteArray PointText(double value, int decimals)
{
    Buffer text;
    AppendFixed(text, value, 1, decimals);
    return QByteArray(text.constData(), text.size());
}

double RoundToDecimals(double value, int decimals)
{
    Buffer text;
    AppendFixed(text, value, 1, std::min(decimals, kLastDecimal));
    double rounded = 0;
    std::from_chars(text.constData(), text.constData() + text.size(), rounded);
    return rounded;
}

double GeneralValue(double value)
{
    const Decimal decimal = ToDecimal(value);
    Buffer text;
    text.append(decimal.digits, kSignificant);
    text.append('e');
    char exponent[8];
    const auto end = std::to_chars(exponent, exponent + sizeof exponent, decimal.exponent - kSignificant + 1);
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
    int count = kSignificant;
    while (count > 1 && decimal.digits[count - 1] == '0')
        --count;
    Buffer text;
    if (decimal.exponent >= -4 && decimal.exponent < kSignificant) {
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

double TextToDouble(QStringView text, QStringView decSep)
{
    const auto plain = PlainNumber(TrimBlanks(text), decSep);
    const Parsed parsed = plain ? ParseStart(QByteArrayView(plain->constData(), plain->size())) : Parsed();
    if (parsed.length == 0 || parsed.length != plain->size())
        throw RuntimeFailure(FailureKind::TypeMismatch);
    return ValueOf(parsed);
}

std::int16_t TextToInt16(QStringView text, QStringView decSep)
{
    const double value = std::nearbyint(TextToDouble(text, decSep)); // half to even
    if (std::fabs(value) > 40000)
        throw RuntimeFailure(FailureKind::Overflow);
    return Int16::FromWide(static_cast<std::int64_t>(value)).Value();
}

double PointTextToDouble(QByteArrayView text)
{
    qsizetype blanks = 0;
    while (blanks < text.size() && text[blanks] == ' ')
        ++blanks;
    return ValueOf(ParseStart(text.sliced(blanks)));
}

std::optional<double> TypedNumber(QStringView text)
{
    const auto pointed = WithPointAlone(text.trimmed());
    const auto plain = pointed ? PlainNumber(*pointed, u".") : std::nullopt;
    const Parsed parsed = plain ? ParseStart(QByteArrayView(plain->constData(), plain->size())) : Parsed();
    if (parsed.length == 0 || parsed.length != plain->size() || parsed.tooLarge)
        return std::nullopt;
    return parsed.value;
}
