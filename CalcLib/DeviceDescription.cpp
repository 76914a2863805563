#include "CalcLib/DeviceDescription.h"

#include <cstdlib>
#include <limits>
#include <map>

namespace {
constexpr int kDroppedType = 1;
constexpr int kFirstPhaseType = 3;
constexpr int kLastPhaseType = 8;

long countOf(const DescriptionSection* main, const char* key)
{
    if (!main)
        return 0;
    const std::string* value = main->find(key);
    return value ? std::strtol(value->c_str(), nullptr, 10) : 0;
}

// The sections "<prefix><number>" with the number below count, in the order of the numbers.
// Looking them up by name for every number up to a count read from the file would let a
// damaged count run for hours.
std::vector<const DescriptionSection*> numberedSections(
    const DescriptionFile& file, const std::string& prefix, long count)
{
    std::map<long, const DescriptionSection*> found;
    for (const auto& section : file.sections()) {
        if (section.name.compare(0, prefix.size(), prefix) != 0 || section.name.size() == prefix.size())
            continue;
        const std::string digits = section.name.substr(prefix.size());
        if (digits.find_first_not_of("0123456789") != std::string::npos || digits.size() > 9)
            continue;
        const long number = std::strtol(digits.c_str(), nullptr, 10);
        // "achan%d" names one number in one way only.
        if (std::to_string(number) != digits || number >= count)
            continue;
        found.emplace(number, &section);
    }
    std::vector<const DescriptionSection*> sections;
    for (const auto& entry : found)
        sections.push_back(entry.second);
    return sections;
}
} // namespace

bool DeviceDescription::read(const std::string& path, const PhasorSetup& setup)
{
    DescriptionFile file;
    if (!file.read(path))
        return false;
    load(file, setup);
    return true;
}

void DeviceDescription::load(const DescriptionFile& file, const PhasorSetup& setup)
{
    m_lines.clear();
    m_channels.clear();
    const DescriptionSection* main = file.section("main");
    for (const DescriptionSection* section : numberedSections(file, "line", countOf(main, "lnum")))
        loadLine(*section);
    for (const DescriptionSection* section : numberedSections(file, "achan", countOf(main, "anum")))
        loadChannel(*section, setup);
}

void DeviceDescription::loadLine(const DescriptionSection& section)
{
    const std::string* name = section.find("name");
    const std::string* id = section.find("id");
    if (!name || !id)
        return;
    DeviceLine line;
    line.name = *name;
    const long number = std::strtol(id->c_str(), nullptr, 10);
    line.id = static_cast<int32_t>(std::max<long>(
        std::min<long>(number, std::numeric_limits<int32_t>::max()), std::numeric_limits<int32_t>::min()));
    const std::string* cm = section.find("cm");
    line.cmFlag = cm && !cm->empty() && (*cm)[0] == '0';
    const std::string* type = section.find("type");
    const long typeValue = type ? std::strtol(type->c_str(), nullptr, 10) : 0;
    line.type = typeValue > 3
        ? 0
        : static_cast<int32_t>(std::max<long>(typeValue, std::numeric_limits<int32_t>::min()));
    line.mask = line.id >= 1 && line.id <= 32 ? (1u << (line.id - 1)) : 0u;
    m_lines.push_back(line);
}

void DeviceDescription::loadChannel(const DescriptionSection& section, const PhasorSetup& setup)
{
    auto phasor = std::make_unique<CPhasor>();
    if (!phasor->setup(
            &section, setup.sampleRate, setup.scale, setup.averaging, setup.periods, setup.window, 1))
        return;
    const int type = phasor->type();
    if (type == kDroppedType)
        return;
    const int index = static_cast<int>(m_channels.size());
    if (type >= kFirstPhaseType && type <= kLastPhaseType) {
        for (auto& line : m_lines) {
            if (line.mask & phasor->linemask())
                line.phasePlaces[type - kFirstPhaseType] = index;
        }
    }
    m_channels.push_back(std::move(phasor));
}
