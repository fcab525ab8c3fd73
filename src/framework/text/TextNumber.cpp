#include "framework/text/TextNumber.h"

#include "framework/text/TextFunctions.h"
#include "stats/CheckedArithmetic.h"
#include "stats/RuntimeFailure.h"

#include <QList>
#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

using Plain = QVarLengthArray<char, 64>;

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
std::optional<Plain> PlainNumber(QStringView text, QStringView decSep)
{
    const QChar separator = decSep.isEmpty() ? QChar(u'.') : decSep.front();
    Plain plain;
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

/// All of text as a number; of no length where it is none.
Parsed ParseWhole(QStringView text, QStringView decSep)
{
    const auto plain = PlainNumber(text, decSep);
    const Parsed parsed = plain ? ParseStart(QByteArrayView(plain->constData(), plain->size())) : Parsed();
    return parsed.length == (plain ? plain->size() : 0) ? parsed : Parsed();
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
    auto whole = Ungrouped(text.first(last), text[last] == u'.' ? u',' : u'.');
    if (whole)
        whole->append(u'.').append(text.sliced(last + 1));
    return whole;
}

} // namespace

double TextToDouble(QStringView text, QStringView decSep)
{
    const Parsed parsed = ParseWhole(TrimBlanks(text), decSep);
    if (parsed.length == 0)
        throw RuntimeFailure(FailureKind::TypeMismatch);
    return ValueOf(parsed);
}

std::optional<double> NumberIn(QStringView text, QStringView decSep)
{
    const Parsed parsed = ParseWhole(TrimBlanks(text), decSep);
    return parsed.length == 0 || parsed.tooLarge ? std::nullopt : std::optional(parsed.value);
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
    return pointed ? NumberIn(*pointed, u".") : std::nullopt;
}
