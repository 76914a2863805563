#include "ComtradeOscillogram.h"

#include "Model/NumericCast.h"

#include <QtGlobal>

#include <cmath>

void ComtradeOscillogram::setAnalogChannels(const QList<QSharedPointer<ComtradeAnalogChannel>>& channels)
{
    QList<QSharedPointer<AnalogChannel>> base;
    base.reserve(channels.size());
    for (const auto& channel : channels)
        base.append(channel);
    SimpleOscillogram::setAnalogChannels(base);
}

void ComtradeOscillogram::setDigitalChannels(const QList<QSharedPointer<ComtradeDigitalChannel>>& channels)
{
    QList<QSharedPointer<DigitalChannel>> base;
    base.reserve(channels.size());
    for (const auto& channel : channels)
        base.append(channel);
    SimpleOscillogram::setDigitalChannels(base);
}

bool ComtradeOscillogram::isSetToUtc() const
{
    if (!isComtrade2013())
        return false;
    return (timeCode() == 0 && localCode() == 0) || (timeCode() != localCode() && timeCode() == 0);
}

int ComtradeOscillogram::preFailureSamplesFrom(const PreciseDateTime& begin) const
{
    return Korvane::roundedToInt(double(begin.uSecsTo(triggerTime())) * sampleRate() / 1000000);
}

int ComtradeOscillogram::countOfPreFailureSamples() const
{
    const QList<MergedWave> waves = mergedWaves();
    if (waves.isEmpty())
        return preFailureSamplesFrom(beginTime());
    const PreciseDateTime trigger = triggerTime();
    int chosen = waves.size() - 1;
    for (int w = waves.size() - 1; w >= 0; --w) {
        if (waves[w].beginTime <= trigger) {
            chosen = w;
            break;
        }
    }
    return waves[chosen].sampleOffset + preFailureSamplesFrom(waves[chosen].beginTime);
}

PreciseDateTime ComtradeOscillogram::dateTime(int sample) const
{
    if (m_isEventTriggeredOsc)
        return beginTime().addUSec(timeStamp(sample));
    return SimpleOscillogram::dateTime(sample);
}

PreciseDateTime ComtradeOscillogram::endTime() const
{
    if (m_isEventTriggeredOsc)
        return beginTime().addUSec(m_timeStamps.isEmpty() ? 0 : m_timeStamps.last());
    return SimpleOscillogram::endTime();
}

double ComtradeOscillogram::timeForSample(int a, int b) const
{
    if (m_isEventTriggeredOsc) {
        // The stamp of b alone, in the file's units.
        Q_UNUSED(a)
        return double(timeStamp(b));
    }
    return SimpleOscillogram::timeForSample(a, b);
}

double ComtradeOscillogram::timeBetweenSamples(int a, int b) const
{
    if (m_isEventTriggeredOsc)
        return std::fabs(double(timeStamp(a) - timeStamp(b)));
    return SimpleOscillogram::timeBetweenSamples(a, b);
}

void ComtradeOscillogram::setTriggerTime(const PreciseDateTime& time)
{
    // An event-triggered record is triggered at its first value, whatever the file says.
    SimpleOscillogram::setTriggerTime(m_isEventTriggeredOsc ? beginTime() : time);
}
