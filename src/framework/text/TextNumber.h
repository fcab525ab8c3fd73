// Text to numbers, in three ways: shown text, text of a data file, typed text.
#pragma once

#include <QByteArrayView>
#include <QStringView>

#include <cstdint>
#include <optional>

/// The number that a shown text stands for. Blanks at both ends, a sign, digits, the separator, an exponent.
/// Fails: TypeMismatch for an empty text or one that is no number, Overflow beyond the range of doubles.
double TextToDouble(QStringView text, QStringView decSep);

/// The same number, or nothing where there would be a failure.
std::optional<double> NumberIn(QStringView text, QStringView decSep);

/// As TextToDouble, rounded half to even. Fails with Overflow outside -32768 to 32767, too.
std::int16_t TextToInt16(QStringView text, QStringView decSep);

/// The number at the start of a data file's field: blanks, a sign, digits, one point, an exponent with e or
/// E, up to the first character that can't belong to it; 0 where no number stands. Fails with Overflow beyond
/// the range of doubles.
double PointTextToDouble(QByteArrayView text);

/// The number that the user typed or pasted, or nothing. Point and comma are both understood: one of them
/// alone is the decimal separator; it groups thousands only where the other one follows or it stands twice,
/// and then the groups must have three digits.
std::optional<double> TypedNumber(QStringView text);
