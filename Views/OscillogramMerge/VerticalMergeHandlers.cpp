#include "VerticalMergeHandler.h"

#include <QtGlobal>

#include <algorithm>

namespace {
// The smallest or the largest of a count over all sources.
template<typename Count>
int extreme(const QList<QSharedPointer<Oscillogram>>& sources, Count count, bool largest)
{
    int result = 0;
    for (int s = 0; s < sources.size(); ++s) {
        const int value = count(*sources[s]);
        if (s == 0 || (largest ? value > result : value < result))
            result = value;
    }
    return result;
}
} // namespace

void VerticalMergeHandler::takeExtremeCounts(bool largest)
{
    m_preCount = extreme(
        m_sources, [this](const Oscillogram& s) { return scaledPre(s); }, largest);
    m_postCount = extreme(
        m_sources, [this](const Oscillogram& s) { return scaledPost(s); }, largest);
}

// --- by the first record's place

void FirstReportMergeHandler::calculateBeginTime()
{
    if (m_sources.isEmpty())
        return;
    for (int s = 0; s < m_sources.size(); ++s) {
        SimpleOscillogram& source = simple(s);
        source.setTriggerTime(source.beginTime());
        source.setCountOfPreFailureSamples(0);
        source.setCountOfPostFailureSamples(source.countOfSamples());
    }
    QDateTime earliest = m_sources[0]->beginTime().toDateTime();
    PreciseDateTime earliestBegin = m_sources[0]->beginTime();
    PreciseDateTime latestBegin = earliestBegin;
    QDateTime latestEnd = m_sources[0]->endTime().toDateTime();
    for (int s = 0; s < m_sources.size(); ++s) {
        const PreciseDateTime begin = m_sources[s]->beginTime();
        const QDateTime end = m_sources[s]->endTime().toDateTime();
        if (begin.toDateTime() > latestEnd || end < earliest)
            continue;
        if (begin.toDateTime() < earliest) {
            earliest = begin.toDateTime();
            earliestBegin = begin;
        }
        if (begin.toDateTime() > latestBegin.toDateTime())
            latestBegin = begin;
        latestEnd = qMax(latestEnd, end);
        m_fits[s] = true;
    }
    m_targetBeginTime = earliestBegin;
    for (int s = 0; s < m_sources.size(); ++s) {
        if (!m_fits[s])
            continue;
        SimpleOscillogram& source = simple(s);
        const int pre
            = int(double(source.beginTime().uSecsTo(latestBegin)) * source.sampleRate() / 1000000.0);
        source.setCountOfPreFailureSamples(pre);
        source.setCountOfPostFailureSamples(source.countOfSamples() - pre);
        source.setTriggerTime(m_targetBeginTime);
    }
}

void FirstReportMergeHandler::calculateCounts()
{
    takeExtremeCounts(true);
    m_totalCount = m_preCount + m_postCount;
}

MergedWave FirstReportMergeHandler::wave(int source) const
{
    MergedWave part;
    part.beginTime = m_sources[source]->beginTime();
    part.sampleOffset = qAbs(m_shifts[source]);
    return part;
}

// --- by the trigger instants

void TriggerTimeMergeHandler::calculateBeginTime()
{
    if (m_sources.isEmpty())
        return;
    m_targetBeginTime = m_sources[0]->triggerTime();
    m_failureSample = scaledPre(*m_sources[0]);
    // The first source's flag stays clear: only the others are laid against it.
    for (int s = 1; s < m_sources.size(); ++s) {
        m_failureSample = qMax(m_failureSample, scaledPre(*m_sources[s]));
        m_fits[s] = true;
    }
}

void TriggerTimeMergeHandler::calculateCounts()
{
    takeExtremeCounts(true);
    m_totalCount = m_preCount + m_postCount;
}

MergedWave TriggerTimeMergeHandler::wave(int source) const
{
    MergedWave part;
    const int shift = qAbs(m_shifts[source]);
    part.beginTime = m_targetBeginTime.addUSec(targetMicroseconds(qint64(shift) - m_failureSample));
    part.sampleOffset = shift;
    return part;
}

// --- by astronomical time

void AstronomicalTimeMergeHandler::calculateBeginTime()
{
    if (m_sources.isEmpty())
        return;
    m_targetBeginTime = m_sources.last()->beginTime();
    // This moves the trigger of the source records themselves; their counts follow from it.
    for (int s = 0; s < m_sources.size(); ++s) {
        simple(s).setTriggerTime(m_targetBeginTime);
        m_fits[s] = true;
    }
}

void AstronomicalTimeMergeHandler::calculateCounts()
{
    takeExtremeCounts(false);
    // Every source counts from the common begin, so the record is as long as the shortest rest.
    m_totalCount = m_postCount;
}

MergedWave AstronomicalTimeMergeHandler::wave(int) const
{
    MergedWave part;
    part.beginTime = m_targetBeginTime;
    return part;
}

// --- by the first failure

void FirstFailureMergeHandler::calculateBeginTime()
{
    if (m_sources.isEmpty())
        return;
    m_fits[0] = true;
    m_targetBeginTime = m_sources[0]->beginTime();
    for (int s = 0; s < m_sources.size(); ++s) {
        SimpleOscillogram& source = simple(s);
        const auto failures = source.failures();
        if (!failures.isEmpty())
            source.setTriggerTime(source.dateTime(failures.first()->blockNum()));
    }
}

void FirstFailureMergeHandler::calculateCounts()
{
    takeExtremeCounts(false);
    m_totalCount = m_preCount + m_postCount;
    m_failureSample = m_preCount;
}

MergedWave FirstFailureMergeHandler::wave(int source) const
{
    MergedWave part;
    part.beginTime = m_targetBeginTime.addUSec(-targetMicroseconds(m_failureSample));
    part.handlerValue = -m_shifts[source];
    return part;
}
