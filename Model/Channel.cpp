#include "Channel.h"

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
