// Comparison of numbers in tests. QCOMPARE takes two doubles below 1e-12 as equal, so doubles never go there:
// exact equality is QCOMPARE_EQ, everything else is COMPARE_CLOSE.
#pragma once

#include "stats/RuntimeFailure.h"

#include <QRegularExpression>
#include <QTest>

#include <cmath>

/// A warning of Qt or of our own fails the test; what the offscreen platform says of itself does not.
inline void FailOnWarnings()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

inline bool IsClose(double actual, double expected, double relTol)
{
    return expected == 0 ? actual == 0 : std::fabs(actual - expected) <= relTol * std::fabs(expected);
}

/// actual lies within relTol times |expected| of expected. An expected 0 means exactly 0.
#define COMPARE_CLOSE(actual, expected, relTol)                                                              \
    do {                                                                                                     \
        const double actualValue = (actual);                                                                 \
        const double expectedValue = (expected);                                                             \
        QVERIFY2(IsClose(actualValue, expectedValue, (relTol)),                                              \
                 qPrintable(QStringLiteral("actual %1, expected %2, apart by %3 of it, tolerance %4")        \
                                .arg(actualValue, 0, 'g', 17)                                                \
                                .arg(expectedValue, 0, 'g', 17)                                              \
                                .arg((actualValue - expectedValue) / expectedValue)                          \
                                .arg(relTol)));                                                              \
    } while (false)

/// The expression throws a RuntimeFailure of this kind.
#define VERIFY_FAILS(expression, expectedKind)                                                               \
    do {                                                                                                     \
        int failureNumber = 0;                                                                               \
        try {                                                                                                \
            static_cast<void>(expression);                                                                   \
        } catch (const RuntimeFailure& failure) {                                                            \
            failureNumber = failure.Number();                                                                \
        }                                                                                                    \
        QCOMPARE(failureNumber, static_cast<int>(expectedKind));                                             \
    } while (false)
