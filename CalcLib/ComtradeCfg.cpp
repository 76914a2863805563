#include "CalcLib/Comtrade.h"

#include "CalcLib/ComtradeFiles.h"
#include "CalcLib/ComtradeTables.h"
#include "CalcLib/ComtradeText.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

using ComtradeText::general;

namespace {
const char* const lineEnd = "\r\n";

// Commas would split the field, so names carry points instead.
std::string withoutCommas(std::string name)
{
    std::replace(name.begin(), name.end(), ',', '.');
    return name;
}

std::string analogLine(size_t number, const ComtradeAnalogInfo& a)
{
    std::string line = std::to_string(number) + "," + withoutCommas(a.name) + "," + a.phase + "," + a.circuit
        + "," + a.unit;
    for (float value :
        { a.multiplier, a.offsetAdder, a.skew, a.minValue, a.maxValue, a.primary, a.secondary })
        line += "," + general(value);
    return line + "," + a.ps + lineEnd;
}

std::string digitalLine(size_t number, const ComtradeDigitalInfo& d)
{
    return std::to_string(number) + "," + withoutCommas(d.name) + "," + d.phase + "," + d.circuit + ","
        + d.normalState + lineEnd;
}

// The year field: 1999, 2011 and 2013 stand; every other value reads as 1991.
int32_t knownRevisionYear(int64_t year)
{
    switch (year - 1999) {
    case 0:
        return 1999;
    case 12:
        return 2011;
    case 14:
        return 2013;
    default:
        return 1991;
    }
}

int64_t channelCount(const std::string& field)
{
    return std::max<int64_t>(0, ComtradeText::leadingInteger(field));
}

char firstCharOr(const std::string& field, char fallback)
{
    return field.empty() ? fallback : field[0];
}

ComtradeAnalogInfo readAnalog(const ComtradeFiles::Fields& f, int32_t physNum)
{
    ComtradeAnalogInfo a;
    a.name = f[1];
    a.phase = f[2];
    a.circuit = f[3];
    a.unit = f[4];
    float* numbers[]
        = { &a.multiplier, &a.offsetAdder, &a.skew, &a.minValue, &a.maxValue, &a.primary, &a.secondary };
    for (size_t i = 0; i < 7; ++i)
        *numbers[i] = ComtradeText::toFloat(ComtradeText::leadingDouble(f[5 + i]));
    a.ps = firstCharOr(f[12], 'p');
    a.physNum = physNum;
    return a;
}

ComtradeDigitalInfo readDigital(const ComtradeFiles::Fields& f, int32_t physNum)
{
    ComtradeDigitalInfo d;
    d.name = f[1];
    d.phase = f[2];
    d.circuit = f[3];
    d.normalState = firstCharOr(f[4], '0');
    d.physNum = physNum;
    return d;
}
} // namespace

int COMTRADE::writeCfg(const ComtradeAnalogList& analogs, const ComtradeDigitalList& digitals,
    unsigned lastSample, const std::string& path, int64_t firstTimeUs, int64_t triggerTimeUs) const
{
    std::string text = m_stationName + "," + m_deviceName + "," + std::to_string(m_revisionYear) + lineEnd;
    text += std::to_string(analogs.size() + digitals.size()) + "," + std::to_string(analogs.size()) + "A,"
        + std::to_string(digitals.size()) + "D" + lineEnd;
    size_t number = 0;
    for (const ComtradeAnalogInfo& analog : analogs)
        text += analogLine(++number, analog);
    number = 0;
    for (const ComtradeDigitalInfo& digital : digitals)
        text += digitalLine(++number, digital);
    text += general(m_lineFrequency) + lineEnd;
    text += std::to_string(m_rateCount) + lineEnd;
    text += general(m_sampleRate) + "," + std::to_string(lastSample) + lineEnd;
    text += timeStampText(firstTimeUs) + lineEnd;
    text += timeStampText(triggerTimeUs) + lineEnd;
    text += ComtradeTables::dataFormatText(m_dataFormat) + lineEnd;
    text += general(m_timeMultiplier) + lineEnd;
    if (m_revisionYear == 2013) {
        text += m_timeCode + "," + m_localCode + lineEnd;
        text += std::to_string(m_timeQuality) + "," + std::to_string(m_leapSecond) + lineEnd;
    }

    ComtradeFiles::File file = ComtradeFiles::open(pathOr(path, ".CFG"), "wb");
    if (!file) {
        std::cerr << "Error open CFG file for write\n";
        return -1;
    }
    return ComtradeFiles::writeAndClose(std::move(file), text) ? 0 : -1;
}

// Only the first line, the counts and the channel lines: the rest of the file is the loader's.
// Channel lines end with the file even when the counts promise more.
int COMTRADE::readCfg(ComtradeAnalogList& analogs, ComtradeDigitalList& digitals, const std::string& path)
{
    ComtradeFiles::File file = ComtradeFiles::open(pathOr(path, ".CFG"), "rb");
    if (!file) {
        std::cerr << "Error open CFG file for read\n";
        return -1;
    }
    ComtradeFiles::LineReader reader(file.get());
    std::string line;
    reader.next(line);
    // A folder opens but can't be read.
    if (std::ferror(file.get())) {
        std::cerr << "Error open CFG file for read\n";
        return -1;
    }
    const ComtradeFiles::Fields first(line);
    m_stationName = first[0];
    m_deviceName = first[1];
    m_revisionYear = knownRevisionYear(ComtradeText::leadingInteger(first[2]));

    reader.next(line);
    const ComtradeFiles::Fields counts(line);
    const int64_t analogCount = channelCount(counts[1]);
    const int64_t digitalCount = channelCount(counts[2]);

    analogs.clear();
    digitals.clear();
    for (int64_t i = 0; i < analogCount && reader.next(line); ++i)
        analogs.push_back(readAnalog(ComtradeFiles::Fields(line), int32_t(i + 1)));
    for (int64_t i = 0; i < digitalCount && reader.next(line); ++i)
        digitals.push_back(readDigital(ComtradeFiles::Fields(line), int32_t(i + 1)));
    return 0;
}
