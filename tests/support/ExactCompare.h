#pragma once

#include <QString>
#include <QTest>

#include <cmath>

// QCOMPARE on doubles forgives the last bits (qFuzzyCompare); values that must come out as the
// same double, bit for bit, are compared with this one instead. The message is built only on
// failure, since it is used in loops over whole records.
#define KORVANE_COMPARE_EXACTLY(actual, expected)                                                            \
    do {                                                                                                     \
        const double korvaneActual = (actual);                                                               \
        const double korvaneExpected = (expected);                                                           \
        if (!(korvaneActual == korvaneExpected                                                               \
                || (std::isnan(korvaneActual) && std::isnan(korvaneExpected))))                              \
            QFAIL(qPrintable(QStringLiteral("%1 is %2, expected %3")                                         \
                                 .arg(QStringLiteral(#actual))                                               \
                                 .arg(korvaneActual, 0, 'g', 17)                                             \
                                 .arg(korvaneExpected, 0, 'g', 17)));                                        \
    } while (false)
