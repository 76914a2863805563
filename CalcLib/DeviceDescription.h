#pragma once

#include "CalcLib/CPhasor.h"
#include "CalcLib/DescriptionFile.h"
#include "korvane_export.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

// A line of the device: its channels by phase place (index into the device's channels, -1
// for an empty place).
struct DeviceLine
{
    static constexpr int kPhasePlaces = 6;

    std::string name;
    int32_t id = 0;
    int32_t type = 0;
    bool cmFlag = false;
    // 1 << (id - 1); 0 for an id outside 1 to 32.
    uint32_t mask = 0;
    std::array<int, kPhasePlaces> phasePlaces { { -1, -1, -1, -1, -1, -1 } };
};

// A measuring device as its description file tells it: the lines and the analogue channels.
class KORVANE_EXPORT DeviceDescription
{
public:
    // Settings of the phasors that the channels become.
    struct PhasorSetup
    {
        double sampleRate = 10000.0;
        double scale = 0.0;
        int averaging = 3;
        int periods = 2;
        int window = 0;
    };

    // False if the file cannot be opened.
    bool read(const std::string& path, const PhasorSetup& setup);
    void load(const DescriptionFile& file, const PhasorSetup& setup);

    const std::vector<DeviceLine>& lines() const { return m_lines; }
    int channelCount() const { return static_cast<int>(m_channels.size()); }
    const CPhasor& channel(int i) const { return *m_channels[i]; }

private:
    void loadLine(const DescriptionSection& section);
    void loadChannel(const DescriptionSection& section, const PhasorSetup& setup);

    std::vector<DeviceLine> m_lines;
    std::vector<std::unique_ptr<CPhasor>> m_channels;
};
