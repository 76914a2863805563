#pragma once

#include "korvane_export.h"

#include "Model/ComtradeVersion.h"

#include <QList>
#include <QString>
#include <QVector>

// The rules of compatible COMTRADE reading: what real relays and recorders write beside the
// standard, and how it is read. Strict reading uses none of this.
namespace ComtradeCompatibility {

// The count of comma-separated fields of a line, as the line parser cuts it.
KORVANE_EXPORT int fieldCount(const QString& line);

// The revision a .cfg is read by. A year of line 1 that the standard knows stands; any other
// is told by the shape of the first channel lines: 10 analogue or 3 digital fields are 1991,
// 13 analogue or 4 to 5 digital fields are 1999. Zero counts mean no line of that kind.
KORVANE_EXPORT ComtradeVersion inferVersion(const QString& yearToken, int analogFields, int digitalFields);

// Digital channel lines of 3 to 5 fields are read by the meaning of their fields.
KORVANE_EXPORT bool isReadableDigitalLine(int fields);

// Members a Mac archiver adds beside the real ones (resource forks): under __MACOSX/, or named ._*.
KORVANE_EXPORT bool isMacMetadataMember(const QString& memberName);

// A date whose first field cannot be a day-of-month order (the second above 12) is written
// month first; an ambiguous one keeps the standard order.
KORVANE_EXPORT bool isMonthFirst(long long first, long long second);

// One line of the rate table: the rate and the number (from 1) of the last sample taken at it.
struct RateSegment
{
    double rate = 0.0;
    long long lastSample = 0;
};

// True when the table says more than one rate and every rate is usable; only such a table gives
// the samples times of their own.
KORVANE_EXPORT bool hasSeveralRates(const QList<RateSegment>& rates);

// The time of every sample in microseconds from the first: each sample lies one period of its own
// segment's rate after the one before it. Samples beyond the table keep its last rate.
KORVANE_EXPORT QVector<long long> sampleTimes(const QList<RateSegment>& rates, int samples);

// The line the record's information shows when compatible reading departed from the standard.
KORVANE_EXPORT QString noteText(const QStringList& reasons);

} // namespace ComtradeCompatibility
