#include "CalcLib/ComtradeText.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <limits>

namespace ComtradeText {
namespace {
bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

char foldAscii(char c)
{
    return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c;
}

std::string toChars(double value, std::chars_format form, int precision)
{
    char text[400];
    const auto result = std::to_chars(text, text + sizeof(text), value, form, precision);
    return std::string(text, result.ptr);
}

// What strtod gives for a number beyond the double range: infinity, or zero when the exponent
// is negative.
double outOfRange(const char* begin, const char* end)
{
    const bool negative = *begin == '-';
    for (const char* p = begin; p + 1 < end; ++p) {
        if ((*p == 'e' || *p == 'E') && p[1] == '-')
            return negative ? -0.0 : 0.0;
    }
    return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

// The end of the longest prefix of [begin, end) shaped like a decimal floating number.
const char* numberEnd(const char* begin, const char* end)
{
    const char* p = begin;
    if (p < end && (*p == '-' || *p == '+'))
        ++p;
    while (p < end && std::isdigit(static_cast<unsigned char>(*p)))
        ++p;
    if (p < end && *p == '.')
        ++p;
    while (p < end && std::isdigit(static_cast<unsigned char>(*p)))
        ++p;
    if (p < end && (*p == 'e' || *p == 'E')) {
        const char* e = p + 1;
        if (e < end && (*e == '-' || *e == '+'))
            ++e;
        if (e < end && std::isdigit(static_cast<unsigned char>(*e))) {
            while (e < end && std::isdigit(static_cast<unsigned char>(*e)))
                ++e;
            p = e;
        }
    }
    return p;
}
} // namespace

std::string general(double value)
{
    return toChars(value, std::chars_format::general, 6);
}

std::string fixedTwo(double value)
{
    return toChars(value, std::chars_format::fixed, 2);
}

int64_t leadingInteger(const std::string& text)
{
    size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        negative = text[i++] == '-';
    uint64_t magnitude = 0;
    const uint64_t limit = uint64_t(std::numeric_limits<int64_t>::max()) + (negative ? 1 : 0);
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        const unsigned digit = unsigned(text[i] - '0');
        if (magnitude > (limit - digit) / 10) {
            magnitude = limit;
            break;
        }
        magnitude = magnitude * 10 + digit;
    }
    if (negative)
        return magnitude == 0 ? 0 : -int64_t(magnitude - 1) - 1;
    return int64_t(magnitude);
}

double leadingDouble(const std::string& text)
{
    const char* begin = text.data();
    const char* end = begin + text.size();
    while (begin < end && isBlank(*begin))
        ++begin;
    const char* signStart = begin;
    const bool negative = begin < end && *begin == '-';
    if (begin < end && (*begin == '+' || *begin == '-'))
        ++begin;
    double value = 0.0;
    const auto result = std::from_chars(begin, end, value, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range)
        return outOfRange(signStart, numberEnd(signStart, end));
    if (result.ec != std::errc())
        return 0.0;
    return negative ? -value : value;
}

float toFloat(double value)
{
    if (value > std::numeric_limits<float>::max())
        return std::numeric_limits<float>::infinity();
    if (value < -std::numeric_limits<float>::max())
        return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

bool equalsIgnoreCase(const std::string& a, const char* b)
{
    size_t i = 0;
    for (; i < a.size(); ++i) {
        if (b[i] == '\0' || foldAscii(a[i]) != foldAscii(b[i]))
            return false;
    }
    return b[i] == '\0';
}

bool equalsIgnoreCase(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (foldAscii(a[i]) != foldAscii(b[i]))
            return false;
    }
    return true;
}

std::string numbersPlusOne(const std::vector<unsigned short>& numbers)
{
    std::string text;
    for (size_t i = 0; i < numbers.size(); ++i) {
        if (i != 0)
            text += ',';
        text += std::to_string(unsigned(numbers[i]) + 1);
    }
    return text;
}

std::vector<unsigned short> numbersMinusOne(const std::string& text)
{
    std::vector<unsigned short> numbers;
    size_t start = 0;
    while (start <= text.size()) {
        size_t comma = text.find(',', start);
        if (comma == std::string::npos)
            comma = text.size();
        const int64_t number = leadingInteger(text.substr(start, comma - start));
        if (number != 0)
            numbers.push_back(static_cast<unsigned short>(number - 1));
        start = comma + 1;
    }
    return numbers;
}

std::string timeStamp(uint64_t microseconds)
{
    const uint64_t seconds = microseconds / 1000000u;
    const unsigned fraction = unsigned(microseconds % 1000000u);
    std::tm calendar {};
    const auto time = static_cast<std::time_t>(seconds);
    if (seconds > uint64_t(std::numeric_limits<std::time_t>::max()) || !gmtime_r(&time, &calendar)) {
        const std::time_t epoch = 0;
        gmtime_r(&epoch, &calendar);
    }
    char text[128];
    const size_t length = std::strftime(text, sizeof(text), "%d/%m/%Y,%H:%M:%S", &calendar);
    char micro[16];
    std::snprintf(micro, sizeof(micro), ".%06u", fraction);
    return std::string(text, length) + micro;
}

} // namespace ComtradeText
