#pragma once

#include "korvane_export.h"

#include <cstdint>
#include <string>

// The configuration of one calculation, copied by value wherever it goes.
struct DevConfig
{
    int32_t rowCount = 0;
    double sampleRate = 10000.0;
    // Window length W in samples; also the first sample index at which a calculation is possible.
    int32_t windowSamples = 0;
    int32_t intervalMs = 0;
    int32_t shapeType = 0;
    // Block step of the filter-bank calculator, 4 or 8 ms.
    int32_t stepMs = 0;
    // 1 selects the filter-bank calculator for varying signals, anything else the tone analysis.
    int32_t varType = 0;
    // 0 selects the ring-buffer calculator for constant signals, anything else the tone analysis.
    int32_t constType = 0;
    double multiplier = 1.0;
    double adder = 0.0;
    // Converter delay in samples of sampleRate.
    double adcDelay = 0.0;
};

// Signal shapes as the channel's normal state holds them.
enum SignalShape : int32_t {
    ShapeUnknown = 0,
    ShapeSine = 1,
    ShapeConst = 2,
    ShapeMeandr = 3,
    // No calculation at all: the previous results stay.
    ShapeInstant = 4
};

// Reads the lower-case text form; anything unknown is ShapeUnknown.
KORVANE_EXPORT int32_t signalShapeFromText(const std::string& text);
// The capitalised form shown to the user; an unknown code shows as "Unknown".
KORVANE_EXPORT std::string signalShapeDisplayText(int32_t shape);

// What the calculation module hands out.
struct CalcParameters
{
    double rms = 0.0;
    double firstHarmonic = 0.0;
    double frequency = 0.0;
    double phase = 0.0;
    // Per cent of the first harmonic.
    double nonSinus = 0.0;
    double spare = 0.0;
    double dc = 0.0;
    // Total harmonic figure in per cent, written by the spectrum only.
    double kni = 0.0;
};

// One row of calculator output. Calculators write only what they know, and rows are not cleared
// between calculations: a field keeps what the last calculator left in it.
struct CalcResultRow
{
    double amplitude = 0.0;
    double rms = 0.0;
    double phase = 0.0;
    double frequency = 0.0;
    double nonSinus = 0.0;
    double dc = 0.0;
    double firstHarmonic = 0.0;
};
