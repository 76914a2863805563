#pragma once

#include "korvane_export.h"

#include <QLocale>

// The numbers of a CSV table, written as bytes into a caller's buffer. Writes what
// QLocale::toString(value, 'g', 6) of the chosen locale writes, but builds the common case, a
// value of few decimals, from its digits: a table of a long record holds tens of millions of
// numbers, and the locale's own conversion would set the pace. Whatever the digits cannot settle
// (exponents, exact halves) is left to the locale. Each call returns the end of what it wrote.
class KORVANE_EXPORT CsvNumberFormat
{
public:
    // The most bytes one number takes.
    static constexpr int maxLength = 32;

    explicit CsvNumberFormat(const QLocale& locale);

    QLocale locale() const { return m_locale; }

    // QLocale::toString(units / 10^decimals, 'g', 6), for decimals 0 to 9.
    char* writeScaled(char* out, long long units, int decimals) const;
    // QLocale::toString(value, 'g', 6).
    char* writeValue(char* out, double value) const;
    // The value rounded to thousandths, halves upward, then as writeValue.
    char* writeRounded(char* out, double value) const;
    // A value without a fractional part as a plain integer, anything else rounded.
    char* writeMeasured(char* out, double value) const;
    static char* writeInteger(char* out, long long value);

    // value × 1000 rounded to an integer, halves upward: truncation of n + 0.5 for n >= 0; below,
    // the integer part of n - 1 and its rounded remainder.
    static double roundedThousandths(double value);
    // Whether a finite value without a fractional part fits a 64-bit integer.
    static bool isWholeNumber(double value);

private:
    // The digits of units / 10^decimals rounded to six significant ones, in fixed notation; null
    // when the locale must decide.
    char* writeFixed(char* out, unsigned long long magnitude, bool negative, int decimals) const;

    QLocale m_locale;
    char m_decimalPoint;
    char m_negativeSign;
};
