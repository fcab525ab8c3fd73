// Text routines, number formats, and the ways from text to numbers.
#include "Compare.h"
#include "framework/document/Define.h"
#include "framework/text/Conclusions.h"
#include "framework/text/NumberText.h"
#include "framework/text/TextFunctions.h"
#include "framework/text/TextNumber.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

class TextAndNumberTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Replace()
    {
        QString text = u"1,5"_s;
        QCOMPARE(ReplaceStr(text, u","_s, u"."_s), u"1.5"_s);
        QCOMPARE(text, u"1.5"_s);
        QCOMPARE(ReplaceStr(u"a,b,c"_s, u","_s, u""_s), u"abc"_s);
        QCOMPARE(ReplaceStr(u"aXbx"_s, u"x"_s, u"-"_s), u"aXb-"_s);
        QCOMPARE(ReplaceStr(u"aaa"_s, u"a"_s, u"a"_s), u"aaa"_s);
        QCOMPARE(ReplaceStr(u""_s, u"a"_s, u"b"_s), u""_s);
        // The scan begins anew after every replacement: what a replacement makes is replaced, too.
        QCOMPARE(ReplaceStr(u"aabb"_s, u"ab"_s, u""_s), u""_s);
        QCOMPARE(ReplaceStr(u"xabab"_s, u"xab"_s, u"x"_s), u"x"_s);
        // A replacement that holds the search text ends all the same.
        QCOMPARE(ReplaceStr(u"#1# e #1#"_s, u"#1#"_s, u"<#1#>"_s), u"<#1#> e <#1#>"_s);
    }

    void Templates()
    {
        QCOMPARE(FillTemplate(u"( #1# ) #2# #1# #3#"_s, {{1, u"mg"_s}, {2, u"4"_s}}), u"( mg ) 4 mg #3#"_s);
        QCOMPARE(FillTemplate(u"#1#"_s, {{1, u"#2#"_s}, {2, u"7"_s}}), u"7"_s);
    }

    void Blanks()
    {
        QCOMPARE(TrimBlanks(u"  a\t b  "), u"a\t b"_s);
        QCOMPARE(TrimBlanks(u"   "), QString());
    }

    void FormatStrings()
    {
        Define define;
        QCOMPARE(GetNumFormat(3, 3, define), u"##0.000"_s);
        QCOMPARE(define.NumFormat, u"##0.000"_s);
        QCOMPARE(GetNumFormat(5, 0, define), u"####0"_s);
        QCOMPARE(GetNumFormat(1, 0, define), u"0"_s);
        QCOMPARE(define.NumFormat, u"0"_s);
    }

    void Format_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("expected"); // with a decimal comma
        QTest::addRow("half away from zero in the decimal value") << 0.0125 << u"0.000"_s << u"0,013"_s;
        QTest::addRow("the same below zero") << -0.0125 << u"0.000"_s << u"-0,013"_s;
        QTest::addRow("1.005 lies below in binary") << 1.005 << u"0.00"_s << u"1,01"_s;
        QTest::addRow("just below the half") << 0.01249999999999 << u"0.000"_s << u"0,012"_s;
        QTest::addRow("no negative zero") << -0.0004 << u"##0.000"_s << u"0,000"_s;
        QTest::addRow("minus zero itself") << -0.0 << u"0"_s << u"0"_s;
        QTest::addRow("carry into a new digit") << 999.9996 << u"##0.000"_s << u"1000,000"_s;
        QTest::addRow("carry from nothing") << 0.6 << u"0"_s << u"1"_s;
        QTest::addRow("nothing left") << 0.04 << u"0.0"_s << u"0,0"_s;
        QTest::addRow("far below the cut") << 1e-200 << u"0.00"_s << u"0,00"_s;
        QTest::addRow("more integer digits than the format") << 123456.5 << u"##0.0"_s << u"123456,5"_s;
        QTest::addRow("never padded") << 7.0 << u"###0"_s << u"7"_s;
        QTest::addRow("zeros behind the 15 digits")
            << 1.0 / 3 << u"0.00000000000000000"_s << u"0,33333333333333300"_s;
        QTest::addRow("large") << 1e21 << u"0.0"_s << u"1000000000000000000000,0"_s;
        QTest::addRow("true half behind the 15th digit")
            << -1234567890.328125 << u"0.00000"_s << u"-1234567890,32813"_s;
        QTest::addRow("16th digit rounded away") << 9007199254740993.0 << u"0"_s << u"9007199254740990"_s;
    }

    void Format()
    {
        QFETCH(double, value);
        QFETCH(QString, format);
        QFETCH(QString, expected);
        QCOMPARE(FormatNumber(value, format, u","), expected);
        QCOMPARE(FormatNumber(value, format, u"."), QString(expected).replace(u',', u'.'));
    }

    void RoundedNumberIsThatOfTheText()
    {
        std::mt19937_64 random(20060101);
        std::uniform_real_distribution<double> mantissa(-1000, 1000);
        for (int i = 0; i < 20000; ++i) {
            const double value = i % 4 == 0 ? std::round(mantissa(random) * 1e4) / 1e4 : mantissa(random);
            const int decimals = i % 14;
            QCOMPARE_EQ(RoundToDecimals(value, decimals), PointText(value, decimals).toDouble());
        }
        QCOMPARE_EQ(RoundToDecimals(1.25, 1), 1.3);
        QCOMPARE_EQ(RoundToDecimals(1.0 / 3, 32767), 0.333333333333333);
        QCOMPARE_EQ(RoundToDecimals(5e-324, 400), 4.94065645841247e-324);
        QVERIFY(!std::signbit(RoundToDecimals(-0.0001, 3)));
        QCOMPARE_EQ(GeneralValue(-10105045275477.25), -10105045275477.3);
    }

    void General_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        QTest::addRow("zero") << -0.0 << u"0"_s;
        QTest::addRow("whole") << 100.0 << u"100"_s;
        QTest::addRow("no trailing zeros") << 0.516 << u"0,516"_s;
        QTest::addRow("15 digits") << 2.0 / 3 << u"0,666666666666667"_s;
        QTest::addRow("half behind them") << 10105045275477.25 << u"10105045275477,3"_s;
        QTest::addRow("less than half, by the 18th digit") << 1.000000000000145 << u"1,00000000000014"_s;
        QTest::addRow("nines and a half") << 99999999999999.95 << u"100000000000000"_s;
        QTest::addRow("smallest without exponent") << 0.0001 << u"0,0001"_s;
        QTest::addRow("below") << -0.000012 << u"-1,2E-05"_s;
        QTest::addRow("largest without exponent") << 999999999999999.0 << u"999999999999999"_s;
        QTest::addRow("above") << 1e15 << u"1E+15"_s;
        QTest::addRow("far above") << 1.25e100 << u"1,25E+100"_s;
    }

    void General()
    {
        QFETCH(double, value);
        QFETCH(QString, expected);
        QCOMPARE(GeneralText(value, u","), expected);
    }

    void ShownText()
    {
        QCOMPARE_EQ(TextToDouble(u"  -1,5 ", u","), -1.5);
        QCOMPARE_EQ(TextToDouble(u"1E+15", u"."), 1e15);
        QCOMPARE_EQ(TextToDouble(u"5.", u"."), 5.0);
        for (const auto text :
             {u"", u" ", u"1.5", u"1,5x", u"x", u"-", u",", u"1 5", u"inf", u"nan", u"0x10", u"1,5,1", u"è"})
            VERIFY_FAILS(TextToDouble(text, u","), FailureKind::TypeMismatch);
        VERIFY_FAILS(TextToDouble(u"1e999", u"."), FailureKind::Overflow);
    }

    void Counts()
    {
        QCOMPARE(TextToInt16(u" 12 ", u","), std::int16_t{12});
        QCOMPARE(TextToInt16(u"2,5", u","), std::int16_t{2});
        QCOMPARE(TextToInt16(u"3,5", u","), std::int16_t{4});
        QCOMPARE(TextToInt16(u"-32768,5", u","), std::int16_t{-32768});
        QCOMPARE(TextToInt16(u"32767.4", u"."), std::int16_t{32767});
        VERIFY_FAILS(TextToInt16(u"32767.5", u"."), FailureKind::Overflow);
        VERIFY_FAILS(TextToInt16(u"-32769", u"."), FailureKind::Overflow);
        VERIFY_FAILS(TextToInt16(u"1e300", u"."), FailureKind::Overflow);
        VERIFY_FAILS(TextToInt16(u"", u"."), FailureKind::TypeMismatch);
        VERIFY_FAILS(TextToInt16(u"Limite di rilevazione", u"."), FailureKind::TypeMismatch);
    }

    void PointParser_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<double>("expected");
        QTest::addRow("plain") << "0.120"_ba << 0.12;
        QTest::addRow("blanks in front") << "   7.5"_ba << 7.5;
        QTest::addRow("stops at the comma") << "1,5"_ba << 1.0;
        QTest::addRow("stops at a letter") << "12abc"_ba << 12.0;
        QTest::addRow("plus") << "+3"_ba << 3.0;
        QTest::addRow("minus") << "-3.5"_ba << -3.5;
        QTest::addRow("point first") << ".5"_ba << 0.5;
        QTest::addRow("point last") << "5."_ba << 5.0;
        QTest::addRow("one point only") << "1.2.3"_ba << 1.2;
        QTest::addRow("exponent") << "1.5e-3"_ba << 0.0015;
        QTest::addRow("large E") << "2E2"_ba << 200.0;
        QTest::addRow("exponent without digits") << "2e"_ba << 2.0;
        QTest::addRow("exponent with a sign alone") << "2e+x"_ba << 2.0;
        QTest::addRow("no number") << "abc"_ba << 0.0;
        QTest::addRow("nothing") << ""_ba << 0.0;
        QTest::addRow("no words of the C library") << "infinity"_ba << 0.0;
        QTest::addRow("nor NaN") << "nan"_ba << 0.0;
        QTest::addRow("two signs") << "--5"_ba << 0.0;
        QTest::addRow("too small") << "1e-999"_ba << 0.0;
        QTest::addRow("too small, spelt out") << QByteArray("0." + QByteArray(400, '0') + "1") << 0.0;
        QTest::addRow("too small, with an exponent that is not")
            << QByteArray("0." + QByteArray(400, '0') + "1e10") << 0.0;
        QTest::addRow("many digits, small exponent")
            << QByteArray(QByteArray(400, '1') + "e-400") << 0.111111111111111111;
    }

    void PointParser()
    {
        QFETCH(QByteArray, text);
        QFETCH(double, expected);
        QCOMPARE_EQ(PointTextToDouble(text), expected);
    }

    void PointParserOverflows()
    {
        VERIFY_FAILS(PointTextToDouble("1e309"), FailureKind::Overflow);
        VERIFY_FAILS(PointTextToDouble(QByteArray(400, '9')), FailureKind::Overflow);
        VERIFY_FAILS(PointTextToDouble("-0.01e400"), FailureKind::Overflow);
    }

    void Typed_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected"); // -1: refused
        QTest::addRow("comma") << u"1,5"_s << 1.5;
        QTest::addRow("point") << u"1.5"_s << 1.5;
        QTest::addRow("never a factor of a thousand") << u"1.234"_s << 1.234;
        QTest::addRow("nor with a comma") << u"1,234"_s << 1.234;
        QTest::addRow("Italian thousands") << u"1.234,5"_s << 1234.5;
        QTest::addRow("English thousands") << u"1,234.5"_s << 1234.5;
        QTest::addRow("thousands with a sign") << u"+123.456,5"_s << 123456.5;
        QTest::addRow("two groups") << u"12.345.678"_s << 12345678.0;
        QTest::addRow("two groups and decimals") << u"1,234,567.25"_s << 1234567.25;
        QTest::addRow("blanks around") << u"  7 "_s << 7.0;
        QTest::addRow("exponent") << u"1,2E-05"_s << 1.2e-5;
        QTest::addRow("group of two") << u"12.34,5"_s << -1.0;
        QTest::addRow("group of four") << u"1.2345,6"_s << -1.0;
        QTest::addRow("first group of four") << u"1234.567,8"_s << -1.0;
        QTest::addRow("zero as first group") << u"0.123,4"_s << -1.0;
        QTest::addRow("both twice") << u"1.234,5.6,7"_s << -1.0;
        QTest::addRow("decimal separator twice") << u"1.234,567,8"_s << -1.0;
        QTest::addRow("groups behind the decimals") << u"1,234.567.890"_s << -1.0;
        QTest::addRow("text") << u"abc"_s << -1.0;
        QTest::addRow("text behind") << u"12 mg"_s << -1.0;
        QTest::addRow("separator alone") << u","_s << -1.0;
        QTest::addRow("too large") << u"1e999"_s << -1.0;
    }

    void Typed()
    {
        QFETCH(QString, text);
        QFETCH(double, expected);
        QCOMPARE_EQ(TypedNumber(text).value_or(-1), expected);
    }
};

QTEST_GUILESS_MAIN(TextAndNumberTest)
#include "TextAndNumberTest.moc"
