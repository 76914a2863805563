// Device description files: reading, writing back and building the device from them.
#include "CalcLib/DeviceDescription.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    std::FILE* in = fmemopen(const_cast<uint8_t*>(data), size, "r");
    if (!in)
        return 0;
    DescriptionFile file;
    file.read(in);
    std::fclose(in);

    char* text = nullptr;
    size_t length = 0;
    std::FILE* out = open_memstream(&text, &length);
    if (out) {
        file.write(out);
        std::fclose(out);
        std::free(text);
    }

    DeviceDescription::PhasorSetup setup;
    setup.sampleRate = 1000.0;
    setup.scale = 0.25;
    setup.periods = 2;
    setup.window = 40;
    DeviceDescription device;
    device.load(file, setup);
    for (int i = 0; i < device.channelCount(); ++i)
        (void)device.channel(i).scaledValue();
    return 0;
}
