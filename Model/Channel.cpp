#include "Channel.h"

#include "Model/OscillogramData.h"

Channel::Channel(const Channel& other)
    : m_physNum(other.physNum())
    , m_name(other.m_name)
    , m_dataType(other.m_dataType)
    , m_dataOffset(other.m_dataOffset)
    , m_dataCount(other.m_dataCount)
    , m_lineBitMask(other.m_lineBitMask)
    , m_isPhysical(other.m_isPhysical)
    , m_isSelected(other.m_isSelected)
    , m_lineNames(other.m_lineNames)
    , m_isInverted(other.m_isInverted)
{
}

Channel::~Channel() = default;

double Channel::getValue(int sample, int column) const
{
    switch (m_dataType) {
    case DT::Int16:
        return m_data->int16ChannelValue(sample, column);
    case DT::Int32:
        return m_data->int32ChannelValue(sample, column);
    case DT::Float:
        return m_data->floatChannelValue(sample, column);
    case DT::Double:
        return m_data->doubleChannelValue(sample, column);
    case DT::Digital:
        return m_data->digitalChannelValue(sample, column) ? 1.0 : 0.0;
    default:
        return 0.0;
    }
}
