#include "CalcLib/Comtrade.h"

#include "CalcLib/ComtradeText.h"

#include <cmath>

namespace {
// The hours with their sign ("+" only when positive), then "h" and the minutes as one raw byte:
// the byte is what the files of this family carry, and nothing parses it back.
std::string zoneCode(int hours, unsigned char minutes)
{
    std::string code = hours > 0 ? "+" + std::to_string(hours) : std::to_string(hours);
    if (minutes != 0) {
        code += 'h';
        code += static_cast<char>(minutes);
    }
    return code;
}
} // namespace

void COMTRADE::setTimeCode(int hours, unsigned char minutes)
{
    m_timeCode = zoneCode(hours, minutes);
    m_timeOffsetUs = (3600 * int64_t(hours) + 60 * int64_t(minutes)) * 1000000;
}

void COMTRADE::setLocalCode(int hours, unsigned char minutes)
{
    m_localCode = zoneCode(hours, minutes);
}

std::string COMTRADE::timeStampText(int64_t timeUs) const
{
    return ComtradeText::timeStamp(uint64_t(m_timeOffsetUs) + uint64_t(timeUs));
}

std::string COMTRADE::pathOr(const std::string& path, const char* extension) const
{
    return path.empty() ? m_basePath + extension : path;
}

uint32_t COMTRADE::timeStepUs() const
{
    const double step = 1000000.0 / double(m_sampleRate);
    if (!(step >= 0.0) || step >= 4294967296.0)
        return 0;
    return static_cast<uint32_t>(step);
}
