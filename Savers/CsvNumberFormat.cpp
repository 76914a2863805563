#include "Savers/CsvNumberFormat.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>

namespace {
constexpr int significantDigits = 6;
// Up to 15 digits a decimal differs from its nearest double by far less than one unit of its last
// digit, so rounding the decimal digits rounds the double the same way.
constexpr unsigned long long exactDigitsLimit = 1000000000000000ULL;
// The range of decimal exponents the locale writes without an exponent at six digits.
constexpr int lowestFixedExponent = -4;
constexpr int highestFixedExponent = significantDigits - 1;

// "00" to "99": two digits at a time halve the divisions of the common numbers.
constexpr char digitPairs[]
    = "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
      "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
      "8081828384858687888990919293949596979899";

int decimalDigits(unsigned long long value, char* digits)
{
    char buffer[24];
    char* const end = buffer + sizeof(buffer);
    char* p = end;
    while (value >= 100) {
        const unsigned pair = unsigned(value % 100) * 2;
        value /= 100;
        p -= 2;
        p[0] = digitPairs[pair];
        p[1] = digitPairs[pair + 1];
    }
    if (value >= 10) {
        p -= 2;
        p[0] = digitPairs[value * 2];
        p[1] = digitPairs[value * 2 + 1];
    } else {
        *--p = char('0' + value);
    }
    const int count = int(end - p);
    std::copy(p, end, digits);
    return count;
}

// 2^63: every double below it in magnitude converts to a 64-bit integer.
constexpr double int64Limit = 9223372036854775808.0;

// std::trunc, through the integer conversion where that is exact: it is a library call on
// processors without a rounding instruction, and a table makes millions of them.
double truncated(double value)
{
    return std::fabs(value) < int64Limit ? double(static_cast<long long>(value)) : std::trunc(value);
}

// Rounds the digits to six, halves upward; false for an exact half, which the binary value decides.
bool roundToSignificant(char* digits, int& count, int& exponent)
{
    if (count <= significantDigits)
        return true;
    const char first = digits[significantDigits];
    bool beyondHalf = first > '5';
    if (first == '5') {
        for (int i = significantDigits + 1; i < count && !beyondHalf; ++i)
            beyondHalf = digits[i] != '0';
        if (!beyondHalf)
            return false;
    }
    count = significantDigits;
    if (!beyondHalf)
        return true;
    int i = significantDigits - 1;
    while (i >= 0 && digits[i] == '9')
        digits[i--] = '0';
    if (i >= 0) {
        ++digits[i];
    } else {
        digits[0] = '1';
        ++exponent;
    }
    return true;
}
} // namespace

CsvNumberFormat::CsvNumberFormat(const QLocale& locale)
    : m_locale(locale)
    , m_decimalPoint(locale.decimalPoint().toLatin1())
    , m_negativeSign(locale.negativeSign().toLatin1())
{
}

char* CsvNumberFormat::writeFixed(char* out, unsigned long long magnitude, bool negative, int decimals) const
{
    if (magnitude >= exactDigitsLimit)
        return nullptr;
    if (magnitude == 0) {
        *out++ = '0';
        return out;
    }
    char digits[24];
    int count = decimalDigits(magnitude, digits);
    int exponent = count - 1 - decimals;
    if (!roundToSignificant(digits, count, exponent))
        return nullptr;
    if (exponent < lowestFixedExponent || exponent > highestFixedExponent)
        return nullptr;
    while (count > 1 && digits[count - 1] == '0')
        --count;

    if (negative)
        *out++ = m_negativeSign;
    if (exponent < 0) {
        *out++ = '0';
        *out++ = m_decimalPoint;
        for (int i = exponent + 1; i < 0; ++i)
            *out++ = '0';
        return std::copy(digits, digits + count, out);
    }
    const int integerDigits = exponent + 1;
    if (count <= integerDigits) {
        out = std::copy(digits, digits + count, out);
        return std::fill_n(out, integerDigits - count, '0');
    }
    out = std::copy(digits, digits + integerDigits, out);
    *out++ = m_decimalPoint;
    return std::copy(digits + integerDigits, digits + count, out);
}

char* CsvNumberFormat::writeScaled(char* out, long long units, int decimals) const
{
    const bool negative = units < 0;
    const unsigned long long magnitude
        = negative ? 0ULL - static_cast<unsigned long long>(units) : static_cast<unsigned long long>(units);
    if (char* end = writeFixed(out, magnitude, negative, decimals))
        return end;
    return writeValue(out, double(units) / std::pow(10.0, decimals));
}

char* CsvNumberFormat::writeValue(char* out, double value) const
{
    const QByteArray text = m_locale.toString(value, 'g', significantDigits).toLatin1();
    return std::copy(text.constBegin(), text.constBegin() + std::min(int(text.size()), maxLength), out);
}

double CsvNumberFormat::roundedThousandths(double value)
{
    const double n = value * 1000.0;
    if (n >= 0.0)
        return truncated(n + 0.5);
    const double integerPart = truncated(n - 1.0);
    return integerPart + truncated(n - integerPart + 0.5);
}

char* CsvNumberFormat::writeRounded(char* out, double value) const
{
    const double thousandths = roundedThousandths(value);
    if (std::fabs(thousandths) < double(exactDigitsLimit))
        return writeScaled(out, static_cast<long long>(thousandths), 3);
    return writeValue(out, thousandths / 1000.0);
}

bool CsvNumberFormat::isWholeNumber(double value)
{
    // Not a number and the infinities fail the first test.
    return std::fabs(value) < int64Limit && double(static_cast<long long>(value)) == value;
}

char* CsvNumberFormat::writeInteger(char* out, long long value)
{
    const bool negative = value < 0;
    const unsigned long long magnitude
        = negative ? 0ULL - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
    if (negative)
        *out++ = '-';
    return out + decimalDigits(magnitude, out);
}

char* CsvNumberFormat::writeMeasured(char* out, double value) const
{
    if (isWholeNumber(value))
        return writeInteger(out, static_cast<long long>(value));
    return writeRounded(out, value);
}
