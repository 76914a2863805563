#pragma once

#include "CalcLib/CalcInput.h"
#include "CalcLib/DevConfig.h"

#include <cmath>
#include <cstdint>
#include <vector>

// Inputs and settings of the calculators, shared by their tests and benchmarks. Standard C++ only.

// The difference of two angles in degrees, brought into [-180, 180).
inline double angleDifference(double a, double b)
{
    double d = std::fmod(a - b, 360.0);
    if (d < -180.0)
        d += 360.0;
    if (d >= 180.0)
        d -= 360.0;
    return d;
}

// One row of calculator input holding the cells, with an empty result row.
inline CalcInput makeInput(const std::vector<int32_t>& cells)
{
    CalcInput input;
    input.rows = 1;
    input.samples = static_cast<int32_t>(cells.size());
    input.buffer = SampleBuffer(1, input.samples);
    input.results.assign(1, CalcResultRow());
    for (int i = 0; i < input.samples; ++i)
        *input.buffer[0][i] = cells[i];
    return input;
}

// One row for the talvi calculator (variable and constant signals both by it), a window of the
// given samples at the rate, stepping 8 ms.
inline DevConfig talviConfig(double sampleRate, int windowSamples)
{
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = sampleRate;
    config.windowSamples = windowSamples;
    config.intervalMs = int(windowSamples * 1000 / sampleRate);
    config.stepMs = 8;
    config.varType = 2;
    config.constType = 2;
    return config;
}
