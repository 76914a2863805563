#include "Oscillogram.h"

Oscillogram::~Oscillogram() = default;

double Oscillogram::timeForSample(int a, int b) const
{
    return dateTime(a).uSecsTo(dateTime(b)) / 1000.0;
}

double Oscillogram::timeBetweenSamples(int a, int b) const
{
    return timeForSample(a, b);
}

std::vector<bool> Oscillogram::selectedChannels() const
{
    std::vector<bool> flags;
    const int count = countOfChannels();
    flags.reserve(count);
    for (int i = 0; i < count; ++i)
        flags.push_back(channel(i)->isSelected());
    return flags;
}

std::vector<std::vector<unsigned short>> Oscillogram::customColorsAsRgbaVector() const
{
    std::vector<std::vector<unsigned short>> colors;
    const int count = countOfChannels();
    colors.reserve(count);
    for (int i = 0; i < count; ++i) {
        const auto color = channel(i)->getCustomColor();
        if (!color) {
            colors.emplace_back();
            continue;
        }
        const QRgba64 rgba = color->rgba64();
        colors.push_back({ rgba.red(), rgba.green(), rgba.blue(), rgba.alpha() });
    }
    return colors;
}
