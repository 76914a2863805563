#include "MergeChecks.h"

#include <QStringList>

namespace {
QStringList channelNames(const Oscillogram& record)
{
    QStringList names;
    for (int c = 0; c < record.countOfAnalogChannels(); ++c)
        names.append(record.analogChannel(c)->name());
    names.append(QString());
    for (int c = 0; c < record.countOfDigitalChannels(); ++c)
        names.append(record.digitalChannel(c)->name());
    return names;
}
} // namespace

namespace MergeChecks {

bool gluingAllowed(const QList<QSharedPointer<Oscillogram>>& records)
{
    for (int r = 0; r + 1 < records.size(); ++r) {
        if (records[r]->endTime().mSecsTo(records[r + 1]->beginTime()) > longestGapMs)
            return false;
    }
    return true;
}

bool timesOverlap(const QList<QSharedPointer<Oscillogram>>& records)
{
    if (records.isEmpty())
        return false;
    PreciseDateTime latestBegin = records.first()->beginTime();
    PreciseDateTime earliestEnd = records.first()->endTime();
    for (const auto& record : records) {
        if (latestBegin.uSecsTo(record->beginTime()) > 0)
            latestBegin = record->beginTime();
        if (record->endTime().uSecsTo(earliestEnd) > 0)
            earliestEnd = record->endTime();
    }
    return latestBegin.uSecsTo(earliestEnd) >= 0;
}

bool allHaveFailures(const QList<QSharedPointer<Oscillogram>>& records)
{
    for (const auto& record : records) {
        if (record->failures().isEmpty())
            return false;
    }
    return true;
}

bool ratesDiffer(const QList<QSharedPointer<Oscillogram>>& records)
{
    for (const auto& record : records) {
        if (record->sampleRate() != records.first()->sampleRate())
            return true;
    }
    return false;
}

bool configurationsDiffer(const QList<QSharedPointer<Oscillogram>>& records)
{
    for (const auto& record : records) {
        if (channelNames(*record) != channelNames(*records.first()))
            return true;
    }
    return false;
}

} // namespace MergeChecks
