#include "ClcOscillogram.h"

#include "Model/NumericCast.h"
#include "Model/OscillogramData.h"

QSharedPointer<Channel> ClcOscillogram::channel(int index) const
{
    if (index < 0 || index >= countOfAnalogChannels())
        return {};
    return analogChannel(index);
}

int ClcOscillogram::countOfSamples() const
{
    const auto store = data();
    return store ? store->countOfSamples() : 0;
}

PreciseDateTime ClcOscillogram::endTime() const
{
    return beginTime().addUSec(Korvane::truncatedMicroseconds(countOfSamples() * 1000000.0 / sampleRate()));
}
