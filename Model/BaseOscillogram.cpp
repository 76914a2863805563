#include "BaseOscillogram.h"

#include <QtGlobal>

PreciseDateTime BaseOscillogram::plainDateTime(int sample) const
{
    return beginTime().addUSec(static_cast<long long>(sample * 1000000.0 / sampleRate()));
}

PreciseDateTime BaseOscillogram::dateTime(int sample) const
{
    return plainDateTime(sample);
}

int BaseOscillogram::tsFromBeginTime(int sample) const
{
    return qRound(sample * 1000000.0 / sampleRate());
}
