#pragma once

#include "korvane_export.h"

#include <QDateTime>
#include <QString>

#include <string>

// A QDateTime extended to microseconds: the time stamp of trigger times, sample times and
// measures. The calendar constructor also puts uSec / 1000 into the milliseconds of the
// QDateTime; arithmetic through seconds ignores those milliseconds, comparison does not.
class KORVANE_EXPORT PreciseDateTime
{
public:
    PreciseDateTime();
    PreciseDateTime(
        int year, int month, int day, int hour, int minute, int second, long long uSec, int offsetFromUtc);
    PreciseDateTime(const QDateTime& dateTime, long long uSec);

    static PreciseDateTime fromUSecsSinceEpoch(unsigned long long uSecs, int offsetFromUtc);
    static PreciseDateTime from(long long seconds, long long uSec, int offsetFromUtc);
    static PreciseDateTime from(const QDateTime& dateTime, long long uSec, int offsetFromUtc);
    static PreciseDateTime from(const QDateTime& dateTime, double fraction, int offsetFromUtc);

    QDateTime toDateTime() const { return m_dateTime; }
    long long uSec() const { return m_uSec; }
    long long toUSecsSinceEpoch() const;
    long long uSecsTo(const PreciseDateTime& other) const;
    long long mSecsTo(const PreciseDateTime& other) const;
    int offsetFromUtc() const;
    // Keeps the date and clock fields, so the instant changes.
    void setOffsetFromUtc(int seconds);
    // Keeps the instant and moves the date and clock fields by the difference of the offsets.
    void recalcTimeZone(int offsetFromUtc);

    PreciseDateTime addUSec(long long delta) const;
    // A duration stored in a time stamp; counts the milliseconds of the QDateTime as well.
    PreciseDateTime operator-(const PreciseDateTime& other) const;

    bool operator==(const PreciseDateTime& other) const;
    bool operator!=(const PreciseDateTime& other) const { return !(*this == other); }
    bool operator<(const PreciseDateTime& other) const;
    bool operator<=(const PreciseDateTime& other) const;

    QString toString() const;
    QString toStringMs() const;
    QString timeToString() const;
    std::string toCMRString() const;

private:
    QString microsecondsSuffix() const;

    QDateTime m_dateTime;
    long long m_uSec = 0;
};
