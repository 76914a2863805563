#pragma once

#include "Model/Channel.h"

// A discrete signal: one bit a sample in the store's digital block.
class KORVANE_EXPORT DigitalChannel : public Channel
{
public:
    DigitalChannel();
    DigitalChannel(const DigitalChannel& other) = default;

    bool normalState() const { return m_normalState; }
    void setNormalState(bool state) { m_normalState = state; }

    bool value(int sample) const;
    // Reads the bit directly, without a bounds check, flipped when the channel is inverted.
    bool testBit(int bit) const;

private:
    bool m_normalState = false;
};
