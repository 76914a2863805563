#include "AnalogChannel.h"

#include <array>
#include <utility>

namespace {
const std::array<const char*, 10> chanTypeNames
    = { "Unknown", "Ua", "Ub", "Uc", "Ia", "Ib", "Ic", "Uab", "Ubc", "Uca" };

struct NamePattern
{
    const char* substring;
    int chanType;
    int phase;
};
// The first hit wins, so the line voltages come before the phase voltages they contain.
const std::array<NamePattern, 9> namePatterns = { { { "uab", 7, 0 }, { "ubc", 8, 0 }, { "uca", 9, 0 },
    { "ua", 1, 1 }, { "ub", 2, 2 }, { "uc", 3, 3 }, { "ia", 4, 1 }, { "ib", 5, 2 }, { "ic", 6, 3 } } };
} // namespace

QString AnalogChannel::chanTypeName() const
{
    if (m_chanType < 0 || m_chanType >= int(chanTypeNames.size()))
        return QString();
    return QString::fromLatin1(chanTypeNames[m_chanType]);
}

void AnalogChannel::setCMRChanType(int type)
{
    m_cmrChanType = type;
    const bool knownPhase = m_phaseNumber >= 1 && m_phaseNumber <= 3;
    switch (type) {
    case 0:
        if (m_phaseNumber != 0)
            findTypeByName();
        else
            m_chanType = 0;
        break;
    case 1:
        m_chanType = knownPhase ? m_phaseNumber + 3 : 0;
        break;
    case 2:
        m_chanType = knownPhase ? m_phaseNumber : 0;
        break;
    default:
        break;
    }
}

void AnalogChannel::definePhase()
{
    switch (m_chanType) {
    case 1:
    case 4:
        m_phaseNumber = 1;
        break;
    case 2:
    case 5:
        m_phaseNumber = 2;
        break;
    case 3:
    case 6:
        m_phaseNumber = 3;
        break;
    default:
        m_phaseNumber = 0;
        break;
    }
}

void AnalogChannel::findTypeByName()
{
    const QString lowered = name().toLower();
    for (const NamePattern& pattern : namePatterns) {
        if (lowered.contains(QLatin1String(pattern.substring))) {
            m_chanType = pattern.chanType;
            m_phaseNumber = pattern.phase;
            return;
        }
    }
    m_chanType = 0;
}
