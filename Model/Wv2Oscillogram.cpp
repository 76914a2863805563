#include "Wv2Oscillogram.h"

void Wv2Oscillogram::setAnalogChannels(const QList<QSharedPointer<Wv2AnalogChannel>>& channels)
{
    QList<QSharedPointer<AnalogChannel>> base;
    base.reserve(channels.size());
    for (const auto& channel : channels)
        base.append(channel);
    SimpleOscillogram::setAnalogChannels(base);
}

void Wv2Oscillogram::setDigitalChannels(const QList<QSharedPointer<Wv2DigitalChannel>>& channels)
{
    QList<QSharedPointer<DigitalChannel>> base;
    base.reserve(channels.size());
    for (const auto& channel : channels)
        base.append(channel);
    SimpleOscillogram::setDigitalChannels(base);
}

QList<QSharedPointer<Line>> Wv2Oscillogram::linesForBitMask(unsigned short mask) const
{
    QList<QSharedPointer<Line>> found;
    for (const auto& line : lines()) {
        if (line->bit() & mask)
            found.append(line);
    }
    return found;
}
