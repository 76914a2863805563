#include "BaseOscillogram.h"

#include "Model/NumericCast.h"

PreciseDateTime BaseOscillogram::plainDateTime(int sample) const
{
    return beginTime().addUSec(Korvane::truncatedMicroseconds(sample * 1000000.0 / sampleRate()));
}

PreciseDateTime BaseOscillogram::dateTime(int sample) const
{
    return plainDateTime(sample);
}

int BaseOscillogram::tsFromBeginTime(int sample) const
{
    return Korvane::roundedToInt(sample * 1000000.0 / sampleRate());
}
