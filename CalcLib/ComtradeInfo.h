#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <vector>

// One analogue channel as the .CFG and the .INF describe it.
struct ComtradeAnalogInfo
{
    std::string name;
    std::string phase;
    std::string circuit;
    std::string unit;
    float multiplier = 1.0f;
    float offsetAdder = 0.0f;
    float skew = 0.0f;
    float minValue = -99999.0f;
    float maxValue = 99999.0f;
    float primary = 1.0f;
    float secondary = 1.0f;
    char ps = 'P';
    int32_t waveType = 1;
    int32_t currentOrVoltage = 0;
    int32_t physNum = 0;
    bool inversion = false;
    bool physical = false;
};

// One digital (status) channel as the .CFG and the .INF describe it.
struct ComtradeDigitalInfo
{
    std::string name;
    std::string phase;
    std::string circuit;
    char normalState = '0';
    int32_t physNum = 0;
    bool inversion = false;
    bool physical = false;
};

// A failure of the record: why and in which sample.
struct ComtradeFaultInfo
{
    std::string reason;
    uint32_t blockNum = 0;
};

// One part of a joined record: its begin time as text, its first sample, and the 0-based
// numbers of the channels it brought.
struct ComtradeMergedWaveInfo
{
    std::string beginTime;
    int32_t blockNum = 0;
    std::vector<unsigned short> analogNumbers;
    std::vector<unsigned short> digitalNumbers;
};

using ComtradeAnalogList = std::list<ComtradeAnalogInfo>;
using ComtradeDigitalList = std::list<ComtradeDigitalInfo>;
using ComtradeFaultList = std::list<ComtradeFaultInfo>;
using ComtradeMergedWaveList = std::vector<ComtradeMergedWaveInfo>;
