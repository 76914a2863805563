#include "DigitalChannel.h"

#include "Model/OscillogramData.h"

DigitalChannel::DigitalChannel()
{
    setDataType(DT::Digital);
}

bool DigitalChannel::value(int sample) const
{
    return testBit(data()->countOfDigitalChannels() * sample + dataOffset());
}

bool DigitalChannel::testBit(int bit) const
{
    return data()->digitalValues().testBit(bit) != isInverted();
}
