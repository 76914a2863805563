#pragma once

#include "korvane_export.h"

#include <cstdint>
#include <string>

// The fixed name tables of the COMTRADE files. A value outside a table writes its fallback.
namespace ComtradeTables {

// waveType: "Unknown", "Sine", "Const", "Meandr", "Instant"; "Unknown" otherwise.
KORVANE_EXPORT std::string channelTypeName(int32_t waveType);
// currentOrVoltage: 1 "I", 2 "U"; empty otherwise.
KORVANE_EXPORT std::string currentOrVoltageName(int32_t currentOrVoltage);
// Equipment_Type of the .INF; empty outside the table.
KORVANE_EXPORT std::string equipmentTypeName(int equipmentType);
// Protection_Device_Group of the .INF; empty outside the table.
KORVANE_EXPORT std::string protectionDeviceGroupName(int group);
// The format word of the .CFG; an unknown format is written as float32.
KORVANE_EXPORT std::string dataFormatText(int format);

// The place of a ChannelType name in its table, compared without regard to case; 0 for any
// other text.
KORVANE_EXPORT int32_t channelTypeFromName(const std::string& name);
// "i" gives 1, "u" gives 2, without regard to case; anything else 0.
KORVANE_EXPORT int32_t currentOrVoltageFromName(const std::string& name);

} // namespace ComtradeTables
