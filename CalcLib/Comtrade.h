#pragma once

#include "CalcLib/CmrUserSettings.h"
#include "CalcLib/ComtradeDataBuffer.h"
#include "CalcLib/ComtradeInfo.h"
#include "CalcLib/RasDescription.h"
#include "korvane_export.h"

#include <cstdint>
#include <string>
#include <vector>

// The four files of a COMTRADE set, byte by byte, on strings that are already in the target
// encoding. Every file operation takes a path; an empty one means basePath plus the upper-case
// extension. All return 0 on success and -1 on failure.
class KORVANE_EXPORT COMTRADE
{
public:
    COMTRADE() = default;
    virtual ~COMTRADE() = default;

    int writeCfg(const ComtradeAnalogList& analogs, const ComtradeDigitalList& digitals, unsigned lastSample,
        const std::string& path, int64_t firstTimeUs, int64_t triggerTimeUs) const;
    // firstSample above zero appends to the file; sample numbers go on from firstSample + 1.
    int writeDat(const ComtradeDataBuffer& buffers, const std::string& path, uint64_t firstSample) const;
    int writeHdr(const std::string& path, int64_t timeUs, const std::vector<std::string>& secondLines,
        const std::vector<std::string>& additionalLines) const;
    int writeRawHdr(const std::string& path, const std::string& bytes) const;
    // userSettings may be null: then the section of the view state is left out.
    int writeInf(const ComtradeAnalogList& analogs, const ComtradeDigitalList& digitals,
        const ComtradeFaultList& faults, const RasDescription& ras, const std::string& path,
        const ComtradeMergedWaveList& mergedWaves, const CMR_USER_SETTINGS* userSettings) const;

    // Reads the first line, the counts and the channel lines into the lists, which are replaced.
    int readCfg(ComtradeAnalogList& analogs, ComtradeDigitalList& digitals, const std::string& path);
    // Completes the lists that readCfg filled; faults and ras are replaced. userSettings may be null.
    int readInf(ComtradeAnalogList& analogs, ComtradeDigitalList& digitals, ComtradeFaultList& faults,
        RasDescription& ras, const std::string& path, CMR_USER_SETTINGS* userSettings) const;
    int readMergedWaves(ComtradeMergedWaveList& mergedWaves, const std::string& path) const;

    // "+h", "0" or "-h", then "h" and the raw byte of minutes when they are not zero. The time code
    // also shifts every printed time stamp by its hours and minutes.
    void setTimeCode(int hours, unsigned char minutes);
    void setLocalCode(int hours, unsigned char minutes);
    void setFormat(int format) { m_dataFormat = format; }

    // The time stamp text of the .CFG and .HDR: timeOffsetUs plus the given microseconds.
    std::string timeStampText(int64_t timeUs) const;

    const std::string& basePath() const { return m_basePath; }
    void setBasePath(const std::string& path) { m_basePath = path; }
    const std::string& stationName() const { return m_stationName; }
    void setStationName(const std::string& name) { m_stationName = name; }
    const std::string& ownerName() const { return m_ownerName; }
    void setOwnerName(const std::string& name) { m_ownerName = name; }
    const std::string& softwareVersion() const { return m_softwareVersion; }
    void setSoftwareVersion(const std::string& version) { m_softwareVersion = version; }
    const std::string& deviceName() const { return m_deviceName; }
    void setDeviceName(const std::string& name) { m_deviceName = name; }
    int32_t revisionYear() const { return m_revisionYear; }
    void setRevisionYear(int32_t year) { m_revisionYear = year; }
    float lineFrequency() const { return m_lineFrequency; }
    void setLineFrequency(float frequency) { m_lineFrequency = frequency; }
    uint16_t rateCount() const { return m_rateCount; }
    void setRateCount(uint16_t count) { m_rateCount = count; }
    float sampleRate() const { return m_sampleRate; }
    void setSampleRate(float rate) { m_sampleRate = rate; }
    int32_t dataFormat() const { return m_dataFormat; }
    float timeMultiplier() const { return m_timeMultiplier; }
    void setTimeMultiplier(float multiplier) { m_timeMultiplier = multiplier; }
    const std::string& timeCode() const { return m_timeCode; }
    const std::string& localCode() const { return m_localCode; }
    uint16_t timeQuality() const { return m_timeQuality; }
    void setTimeQuality(uint16_t quality) { m_timeQuality = quality; }
    uint16_t leapSecond() const { return m_leapSecond; }
    void setLeapSecond(uint16_t leapSecond) { m_leapSecond = leapSecond; }
    int64_t timeOffsetUs() const { return m_timeOffsetUs; }

private:
    std::string pathOr(const std::string& path, const char* extension) const;
    // The time step of the .DAT in whole microseconds.
    uint32_t timeStepUs() const;

    std::string m_basePath = "/tmp";
    std::string m_stationName = "Станция";
    std::string m_ownerName;
    std::string m_softwareVersion = "v1.0";
    std::string m_deviceName = "Имя устройства";
    int32_t m_revisionYear = 2013;
    float m_lineFrequency = 50.0f;
    uint16_t m_rateCount = 1;
    float m_sampleRate = 4000.0f;
    int32_t m_dataFormat = 3;
    float m_timeMultiplier = 1.0f;
    std::string m_timeCode = "0";
    std::string m_localCode = "0";
    uint16_t m_timeQuality = 1;
    uint16_t m_leapSecond = 0;
    int64_t m_timeOffsetUs = 0;
};
