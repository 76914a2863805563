#pragma once

#include "Model/Oscillogram.h"

// What the merge form must know of the chosen records before it lets a merge start.
namespace MergeChecks {
// The longest time, in milliseconds, between the end of one record and the beginning of the
// next that a gluing bridges.
constexpr qint64 longestGapMs = 180000;

// Each record, in the order given, begins at most longestGapMs after the end of the one before;
// an overlap passes.
KORVANE_EXPORT bool gluingAllowed(const QList<QSharedPointer<Oscillogram>>& records);
// All records share at least one instant: the latest begin is not after the earliest end.
KORVANE_EXPORT bool timesOverlap(const QList<QSharedPointer<Oscillogram>>& records);
KORVANE_EXPORT bool allHaveFailures(const QList<QSharedPointer<Oscillogram>>& records);
KORVANE_EXPORT bool ratesDiffer(const QList<QSharedPointer<Oscillogram>>& records);
// The records differ in the counts or the names of their analogue or digital channels.
KORVANE_EXPORT bool configurationsDiffer(const QList<QSharedPointer<Oscillogram>>& records);
} // namespace MergeChecks
