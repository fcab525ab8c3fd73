// Numbers to text and back: the format strings of documents ("##0.000"), the general form, and the three ways
// in which text becomes a number (shown text, text of a data file, typed text).
#pragma once

#include "framework/document/Define.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

/// How many integer and decimal digits the numbers of a document have.
struct Digits {
    int interi = 1;   ///< at least 1
    int decimali = 0; ///< at least 0
    friend bool operator==(const Digits&, const Digits&) = default;
};

/// The format string of these digits, "##0.000" for 3 and 3; becomes the global NumFormat as well.
QString GetNumFormat(int interi, int decimali, Define& define);

/// value in a format string of "#", "0" and one point: rounded to the decimals of the format, at least as
/// many integer digits as it has zeros before the point, all integer digits where there are more. What is
/// rounded, half away from zero, is the number's decimal value at 15 significant digits; there is no negative
/// zero.
QString FormatNumber(double value, QStringView format, QStringView decSep);

/// value with the given count of decimals, rounded as FormatNumber does.
QString DecimalText(double value, int decimals, QStringView decSep);
/// The same with a point, as data files have it.
QByteArray PointText(double value, int decimals);

/// The number that value shown with the given count of decimals reads back to.
double RoundToDecimals(double value, int decimals);

/// The number that value in the general form reads back to: 15 significant digits.
double GeneralValue(double value);

/// value in the general form: 15 significant digits at most, no trailing zeros, an exponent (E+15, E-05) only
/// from 1e15 on and below 1e-4.
QString GeneralText(double value, QStringView decSep);

/// The number that a shown text stands for. Blanks at both ends, a sign, digits, the separator, an exponent.
/// Fails: TypeMismatch for an empty text or one that is no number, Overflow beyond the range of doubles.
double TextToDouble(QStringView text, QStringView decSep);

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
