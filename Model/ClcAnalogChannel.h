#pragma once

#include "Model/AnalogChannel.h"

// A channel of a .clc archive: three doubles a row, with the archive's type and power codes.
class KORVANE_EXPORT ClcAnalogChannel : public AnalogChannel
{
public:
    ClcAnalogChannel() = default;
    ClcAnalogChannel(const ClcAnalogChannel& other) = default;

    unsigned short type() const { return m_type; }
    void setType(unsigned short type) { m_type = type; }
    int power() const { return m_power; }
    void setPower(int power) { m_power = power; }

private:
    unsigned short m_type = 0;
    int m_power = 0;
};
