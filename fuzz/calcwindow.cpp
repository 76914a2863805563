// Arbitrary windows through every calculator of the engine and through the spectrum.
#include "CalcLib/CalcEngine.h"
#include "CalcLib/CalcRoutines.h"
#include "tests/support/StreamCapture.h"

#include <cstdint>
#include <cstring>
#include <iostream>
#include <vector>

namespace {
const double kRates[] = { 1000.0, 1200.0, 2000.0, 4000.0, 60.0, 10000.0 };
const int kIntervals[] = { 20, 40, 60, 80, 10, 0 };

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 6)
        return 0;
    // The varying phasor prints a line per analysis.
    StreamCapture quiet(std::cout);
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = kRates[data[0] % 6];
    config.intervalMs = kIntervals[data[1] % 6];
    config.windowSamples = static_cast<int32_t>(config.sampleRate * config.intervalMs / 1000.0);
    config.stepMs = data[2] & 1 ? 4 : 8;
    CalcEngine engine;
    engine.init(config);
    config.shapeType = data[3] % 5;
    config.varType = data[4] % 3;
    config.constType = data[4] / 3 % 3;
    config.multiplier = data[5] & 1 ? 0.001 : 1.0;
    config.adder = data[5] & 2 ? -7.5 : 0.0;
    config.adcDelay = data[5] & 4 ? 1.25 : 0.0;
    engine.setDevConfig(config);

    data += 6;
    size -= 6;
    const int window = engine.buffer().samples();
    std::vector<double> samples(static_cast<size_t>(window), 0.0);
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < window; ++i) {
            int32_t cell = 0;
            const size_t at = (static_cast<size_t>(i) + static_cast<size_t>(pass) * window) * sizeof cell;
            if (at + sizeof cell <= size)
                std::memcpy(&cell, data + at, sizeof cell);
            *engine.buffer()[0][i] = cell;
            samples[i] = cell;
        }
        engine.calculate();
    }
    int maxHarmonic = 0;
    std::vector<double> amplitudes, phases;
    double kni = 0.0;
    const double frequency = engine.parameters().frequency;
    measureSpectrum(samples.data(), window, config.sampleRate, 2, config.multiplier, 0.0, frequency,
        maxHarmonic, amplitudes, phases, kni);
    return 0;
}
