#include "SampleRecord.h"

#include "CalcLib/Comtrade.h"

#include <cmath>

namespace {
constexpr double pi = 3.14159265358979323846;
constexpr double frequency = 50.0;
constexpr float sampleRate = 2000.0f;
constexpr unsigned samples = 1200; // 0.6 s
constexpr unsigned faultStart = 400; // 0.2 s before the fault
constexpr unsigned faultEnd = 560; // cleared after 80 ms
// 14 June 2025, 10:21:33 UTC, in microseconds since the epoch.
constexpr int64_t firstTimeUs = 1749896493000000LL;

struct Phase
{
    const char* voltageName;
    const char* currentName;
    const char* letter;
    double angle;
};
const Phase phases[] = { { "Ua", "Ia", "A", 0.0 }, { "Ub", "Ib", "B", -120.0 }, { "Uc", "Ic", "C", 120.0 } };

ComtradeAnalogInfo analogInfo(const char* name, const char* phase, const char* unit, float scale, int type)
{
    ComtradeAnalogInfo info;
    info.name = name;
    info.phase = phase;
    info.unit = unit;
    info.multiplier = scale;
    info.primary = type == 2 ? 110000.0f : 600.0f;
    info.secondary = type == 2 ? 100.0f : 5.0f;
    info.ps = 'S';
    info.currentOrVoltage = type;
    info.physical = true;
    return info;
}

bool inFault(unsigned sample)
{
    return sample >= faultStart && sample < faultEnd;
}

// Secondary values: 57.7 V phase voltages and 1 A load current; during the fault phase A sags
// to 20 V and carries 25 A lagging by 75 degrees.
double value(unsigned phase, bool voltage, unsigned sample)
{
    const double t = sample / double(sampleRate);
    const bool faulted = phase == 0 && inFault(sample);
    const double amplitude = std::sqrt(2.0) * (voltage ? (faulted ? 20.0 : 57.7) : (faulted ? 25.0 : 1.0));
    const double lag = voltage ? 0.0 : (faulted ? 75.0 : 20.0);
    return amplitude * std::sin(2 * pi * frequency * t + (phases[phase].angle - lag) * pi / 180.0);
}

RasDescription lineDescription()
{
    RasEquipment line;
    line.equipmentType = 0;
    line.equipmentId = "ВЛ 110 кВ Северная";
    line.equipmentShortName = "ВЛ-1";
    line.voltageLevelKv = 110;
    line.vtChannelNumbers = { 0, 1, 2 };
    line.ctChannelNumbers = { 3, 4, 5 };
    line.rpDChannelNumbers = { 0, 1 };
    line.z0 = 1.2;
    line.z1 = 0.4;
    RasRecordingDevice device;
    device.recordingDeviceId = "РЗА-1";
    device.comtradeFileName = "korvane-sample";
    device.equipment.push_back(line);
    RasPowerObject object;
    object.stationName = "ПС Северная";
    object.recordingDevices.push_back(device);
    RasDescription description;
    description.powerObjects.push_back(object);
    return description;
}
} // namespace

int writeSampleRecord(const std::string& basePath)
{
    ComtradeAnalogList analogs;
    for (const Phase& phase : phases)
        analogs.push_back(analogInfo(phase.voltageName, phase.letter, "V", 1.0f, 2));
    for (const Phase& phase : phases)
        analogs.push_back(analogInfo(phase.currentName, phase.letter, "A", 1.0f, 1));
    ComtradeDigitalList digitals(2);
    digitals.front().name = "Пуск защиты";
    digitals.back().name = "Отключение";

    COMTRADE comtrade;
    comtrade.setBasePath(basePath);
    comtrade.setStationName("ПС Северная");
    comtrade.setDeviceName("РЗА-1");
    comtrade.setRevisionYear(1999);
    comtrade.setSampleRate(sampleRate);
    comtrade.setFormat(3);

    ComtradeDataBuffer buffer;
    if (buffer.init(1, samples, 6, 2, 3) != 0)
        return -1;
    for (unsigned s = 0; s < samples; ++s) {
        ComtradeSample& sample = buffer.sample(0, s);
        for (unsigned p = 0; p < 3; ++p) {
            sample.setAnalogFromDouble(p, value(p, true, s));
            sample.setAnalogFromDouble(3 + p, value(p, false, s));
        }
        sample.setDigital(0, s >= faultStart + 10 && s < faultEnd ? 1 : 0);
        sample.setDigital(1, s >= faultStart + 100 && s < faultEnd + 20 ? 1 : 0);
    }
    const int64_t triggerTimeUs = firstTimeUs + int64_t(faultStart) * 1000000 / int64_t(sampleRate);
    ComtradeFaultList faults { { "Однофазное КЗ фазы A", faultStart } };
    if (comtrade.writeCfg(analogs, digitals, samples - 1, "", firstTimeUs, triggerTimeUs) != 0
        || comtrade.writeDat(buffer, "", 0) != 0
        || comtrade.writeHdr("", triggerTimeUs, {}, { "Пример записи для проверки установки" }) != 0
        || comtrade.writeInf(analogs, digitals, faults, lineDescription(), "", {}, nullptr) != 0)
        return -1;
    return 0;
}
