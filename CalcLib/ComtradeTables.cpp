#include "CalcLib/ComtradeTables.h"

#include "CalcLib/ComtradeText.h"

#include <array>

namespace ComtradeTables {
namespace {
const std::array<const char*, 5> channelTypes = { "Unknown", "Sine", "Const", "Meandr", "Instant" };
const std::array<const char*, 7> equipmentTypes = { "Line", "Shunt_Reactor", "Power_Transformer", "Generator",
    "Breaker", "Busbar_Section", "Capacitor_Bank" };
const std::array<const char*, 7> protectionGroups = { "Relay_Protection", "Emergency_Control_Automation",
    "Control_Automation", "Operation_Control_Automation", "Operating_Current_System",
    "Digital_Fault_Recorder", "Fault_Recorder" };
const std::array<const char*, 4> dataFormats = { "ASCII", "binary", "binary32", "float32" };

template<size_t N>
std::string lookUp(const std::array<const char*, N>& table, int64_t index, const char* fallback)
{
    if (index < 0 || index >= int64_t(N))
        return fallback;
    return table[size_t(index)];
}
} // namespace

std::string channelTypeName(int32_t waveType)
{
    return lookUp(channelTypes, waveType, channelTypes[0]);
}

std::string currentOrVoltageName(int32_t currentOrVoltage)
{
    switch (currentOrVoltage) {
    case 1:
        return "I";
    case 2:
        return "U";
    default:
        return {};
    }
}

std::string equipmentTypeName(int equipmentType)
{
    return lookUp(equipmentTypes, equipmentType, "");
}

std::string protectionDeviceGroupName(int group)
{
    return lookUp(protectionGroups, group, "");
}

std::string dataFormatText(int format)
{
    return lookUp(dataFormats, format, dataFormats[3]);
}

int32_t channelTypeFromName(const std::string& name)
{
    for (size_t i = 0; i < channelTypes.size(); ++i) {
        if (ComtradeText::equalsIgnoreCase(name, channelTypes[i]))
            return int32_t(i);
    }
    return 0;
}

int32_t currentOrVoltageFromName(const std::string& name)
{
    if (ComtradeText::equalsIgnoreCase(name, "i"))
        return 1;
    if (ComtradeText::equalsIgnoreCase(name, "u"))
        return 2;
    return 0;
}

} // namespace ComtradeTables
