#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>

// Conversions of computed doubles to integers that stay defined for any input. Record files
// carry sample rates and counts of any value, and a rate of zero makes the quotients infinite;
// such values saturate at the ends of the range and a NaN becomes 0.
namespace Korvane {

// qRound with saturation.
inline int roundedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    // qRound itself adds and subtracts one, so the bounds keep a margin.
    constexpr int highest = std::numeric_limits<int>::max() - 2;
    if (value >= highest)
        return highest;
    if (value <= -highest)
        return -highest;
    return qRound(value);
}

// int(value) with saturation: truncation toward zero within the range.
inline int truncatedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

// Truncation toward zero of a microsecond count, kept within a quarter of the 64-bit range so
// that adding a second's worth of microseconds to it can never overflow.
inline long long truncatedMicroseconds(double value)
{
    constexpr double limit = 4.0e18;
    if (std::isnan(value))
        return 0;
    if (value >= limit)
        return static_cast<long long>(limit);
    if (value <= -limit)
        return -static_cast<long long>(limit);
    return static_cast<long long>(value);
}

} // namespace Korvane
