#pragma once

#include "korvane_export.h"

#include <QChar>
#include <QLocale>
#include <QString>

// The numbers of a CSV table. Writes what QLocale::toString(value, 'g', 6) of the chosen locale
// writes, but builds the common case, a value of few decimals, from its digits: a table of a long
// record holds tens of millions of numbers, and the locale's own conversion would set the pace.
// Whatever the digits cannot settle (exponents, exact halves) is left to the locale.
class KORVANE_EXPORT CsvNumberFormat
{
public:
    explicit CsvNumberFormat(const QLocale& locale);

    QLocale locale() const { return m_locale; }

    // QLocale::toString(units / 10^decimals, 'g', 6); units below 10^15 in magnitude, decimals 0 to 9.
    void appendScaled(QString& out, long long units, int decimals) const;
    // QLocale::toString(value, 'g', 6).
    void appendValue(QString& out, double value) const;
    // The value rounded to thousandths, halves upward, then as appendValue.
    void appendRounded(QString& out, double value) const;
    // A value without a fractional part as a plain integer, anything else rounded.
    void appendMeasured(QString& out, double value) const;

    // value × 1000 rounded to an integer, halves upward: truncation of n + 0.5 for n >= 0; below,
    // the integer part of n - 1 and its rounded remainder.
    static double roundedThousandths(double value);
    // Whether a finite value without a fractional part fits a 64-bit integer.
    static bool isWholeNumber(double value);
    static void appendInteger(QString& out, long long value);

private:
    // The digits of units / 10^decimals rounded to six significant ones, in fixed notation; false
    // when the locale must decide.
    bool appendFixed(QString& out, unsigned long long magnitude, bool negative, int decimals) const;

    QLocale m_locale;
    QChar m_decimalPoint;
    QChar m_negativeSign;
};
