#pragma once

#include "korvane_export.h"

#include <cstdint>
#include <string>
#include <vector>

// Number and text forms shared by the COMTRADE writers and readers. All of them ignore the
// process locale: the files always carry a decimal point.
namespace ComtradeText {

// A double as a default C++ stream prints it: six significant digits, the shorter of fixed and
// exponent form ("1.23457e+06").
KORVANE_EXPORT std::string general(double value);
// Fixed form with two decimals.
KORVANE_EXPORT std::string fixedTwo(double value);

// Leading blanks, an optional sign and decimal digits up to the first other character, like
// atol; saturated at the limits of 64 bits. No digits give 0.
KORVANE_EXPORT int64_t leadingInteger(const std::string& text);
// Like atof in the "C" locale: the longest leading number, 0.0 when there is none.
KORVANE_EXPORT double leadingDouble(const std::string& text);
// Narrowing that turns values beyond the float range into infinities.
KORVANE_EXPORT float toFloat(double value);

// Byte-wise comparison that folds ASCII letters only.
KORVANE_EXPORT bool equalsIgnoreCase(const std::string& a, const char* b);
KORVANE_EXPORT bool equalsIgnoreCase(const std::string& a, const std::string& b);

// 0-based numbers written 1-based, separated by commas without blanks.
KORVANE_EXPORT std::string numbersPlusOne(const std::vector<unsigned short>& numbers);
// The comma-separated numbers back: a token that parses to 0 is dropped, the others less 1.
KORVANE_EXPORT std::vector<unsigned short> numbersMinusOne(const std::string& text);

// "dd/mm/yyyy,HH:MM:SS.uuuuuu" of microseconds since the epoch in UTC, split by unsigned
// division. A value beyond the calendar prints the epoch's date and time.
KORVANE_EXPORT std::string timeStamp(uint64_t microseconds);

} // namespace ComtradeText
