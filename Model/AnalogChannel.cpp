#include "AnalogChannel.h"

#include "Model/OscillogramData.h"

#include <array>
#include <utility>

namespace {
const std::array<const char*, 10> chanTypeNames = { "Unknown", "Ua", "Ub", "Uc", "Ia", "Ib", "Ic", "Uab", "Ubc", "Uca" };

struct NamePattern
{
    const char* substring;
    int chanType;
    int phase;
};
// The first hit wins, so the line voltages come before the phase voltages they contain.
const std::array<NamePattern, 9> namePatterns = { { { "uab", 7, 0 }, { "ubc", 8, 0 }, { "uca", 9, 0 },
                                                     { "ua", 1, 1 }, { "ub", 2, 2 }, { "uc", 3, 3 },
                                                     { "ia", 4, 1 }, { "ib", 5, 2 }, { "ic", 6, 3 } } };
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

double AnalogChannel::getValue(int sample, int column) const
{
    const double value = Channel::getValue(sample, column);
    return isInverted() ? minValue() + maxValue() - value : value;
}

double AnalogChannel::extremeValue(bool maximum) const
{
    const OscillogramData& store = *data();
    const int column = dataOffset();
    switch (dataType()) {
    case DT::Int16:
        return maximum ? store.int16MaxValue(column) : store.int16MinValue(column);
    case DT::Int32:
        return maximum ? store.int32MaxValue(column) : store.int32MinValue(column);
    case DT::Float:
        return maximum ? store.floatMaxValue(column) : store.floatMinValue(column);
    case DT::Double:
        return maximum ? store.doubleMaxValue(column) : store.doubleMinValue(column);
    default:
        return 0.0;
    }
}

double AnalogChannel::minValue() const
{
    return extremeValue(false);
}

double AnalogChannel::maxValue() const
{
    return extremeValue(true);
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
