// Numbers to text: the format strings of documents ("##0.000"), fixed decimals, and the general form.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

/// How many integer and decimal digits the numbers of a document have.
struct Digits {
    int interi = 1;   ///< at least 1
    int decimali = 0; ///< at least 0
    friend bool operator==(const Digits&, const Digits&) = default;
};

/// The format string of these digits, "##0.000" for 3 and 3.
QString NumFormatOf(Digits digits);

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
