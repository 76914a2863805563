// The line signals of a whole record: all 45 codes at every sample of 200,000 samples of three
// voltages and three currents at 4000 Hz, six window analyses a sample through the calculation module.
// The cost per analysis is set against the bare engine analysing the same windows in the same run.

#include "Calc/CalcModule.h"
#include "Model/OscillogramData.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>
#include <random>
#include <vector>

namespace {
constexpr double kPi = 3.14159265358979323846;
constexpr double kRate = 4000.0;
constexpr int kWindow = 160;
constexpr int kSamples = 200000;
constexpr int kChannels = 6;

// Raw int16 samples of a slightly off-nominal system with a third harmonic and noise.
QSharedPointer<OscillogramData> lineRecord()
{
    std::mt19937 random(11);
    std::normal_distribution<double> noise(0.0, 15.0);
    const double amplitudes[kChannels] = { 8000, 8200, 7900, 3000, 1200, 2000 };
    const double angles[kChannels] = { 0.0, -2.1, 2.2, -0.5, -2.6, 1.4 };
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, kChannels, 0, kSamples + kWindow);
    for (int i = 0; i < kSamples + kWindow; ++i) {
        const double t = 2 * kPi * 49.8 * i / kRate;
        for (int c = 0; c < kChannels; ++c) {
            const double value = amplitudes[c] * std::cos(t + angles[c])
                + 0.1 * amplitudes[c] * std::cos(3 * t) + noise(random);
            builder.appendInt16Value(static_cast<short>(std::lround(value)));
        }
    }
    return builder.build();
}

PhasesPointers linePhases(const QSharedPointer<OscillogramData>& data)
{
    PhasesPointers phases;
    for (int c = 0; c < kChannels; ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(c);
        channel->setMultiplier(c < 3 ? 0.01 : 0.002);
        channel->setChanType(c + 1);
        channel->setNormalState(1);
        (c < 3 ? phases.voltages : phases.currents).append(channel);
    }
    return phases;
}

DevConfig moduleConfig()
{
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = kRate;
    config.windowSamples = kWindow;
    config.intervalMs = 40;
    config.stepMs = 8;
    config.varType = 2;
    config.constType = 2;
    return config;
}

double cpuNanoseconds()
{
    return static_cast<double>(std::clock()) * 1e9 / CLOCKS_PER_SEC;
}

// The baseline: the bare engine on the same windows, the buffer filled from a plain array.
double engineNanosecondsPerAnalysis(const OscillogramData& data)
{
    constexpr int kAnalyses = 60000;
    std::vector<int32_t> column(static_cast<size_t>(kSamples + kWindow));
    for (int i = 0; i < kSamples + kWindow; ++i)
        column[i] = data.int16ChannelValue(i, 0);
    CalcEngine engine;
    DevConfig config = moduleConfig();
    engine.init(config);
    config.shapeType = 1;
    config.multiplier = 0.01;
    const SampleBuffer& buffer = engine.buffer();
    double sink = 0.0;
    const double start = cpuNanoseconds();
    for (int a = 0; a < kAnalyses; ++a) {
        const int first = (a * 3) % kSamples;
        engine.setDevConfig(config);
        for (int j = 0; j < kWindow; ++j)
            *buffer[0][j] = column[first + j];
        engine.calculate();
        sink += engine.parameters().phase;
    }
    benchmark::DoNotOptimize(sink);
    return (cpuNanoseconds() - start) / kAnalyses;
}

void BM_LineSignalsOfWholeRecord(benchmark::State& state)
{
    const QSharedPointer<OscillogramData> data = lineRecord();
    const PhasesPointers phases = linePhases(data);
    const double engineNs = engineNanosecondsPerAnalysis(*data);
    CalcModule module;
    module.init(moduleConfig());
    double elapsed = 0.0;
    for (auto _ : state) {
        double sink = 0.0;
        const double start = cpuNanoseconds();
        for (int sample = kWindow; sample < kSamples + kWindow; ++sample) {
            module.initLineCalc(phases, sample, 3.0, 1.0);
            for (int code = 0; code < CalcModule::lineSignalCount; ++code)
                sink += module.calculateLineSignals(code, sample, false);
        }
        elapsed += cpuNanoseconds() - start;
        benchmark::DoNotOptimize(sink);
    }
    const double runs = static_cast<double>(state.iterations());
    const double perAnalysis = elapsed / runs / (double(kSamples) * kChannels);
    state.counters["samples/s"] = double(kSamples) * runs / (elapsed * 1e-9);
    state.counters["ns/analysis"] = perAnalysis;
    state.counters["engine_ns/analysis"] = engineNs;
    state.counters["x_engine"] = perAnalysis / engineNs;
}
BENCHMARK(BM_LineSignalsOfWholeRecord)->Iterations(1)->Unit(benchmark::kMillisecond);

// The 45 signals alone, from phasors already measured: what the formulas add to a sample.
void BM_LineSignalFormulas(benchmark::State& state)
{
    const QSharedPointer<OscillogramData> data = lineRecord();
    CalcModule module;
    module.init(moduleConfig());
    module.initLineCalc(linePhases(data), 1000, 3.0, 1.0);
    for (auto _ : state) {
        double sink = 0.0;
        for (int code = 0; code < CalcModule::lineSignalCount; ++code)
            sink += module.calculateLineSignals(code, 1000, false);
        benchmark::DoNotOptimize(sink);
    }
    state.counters["samples/s"]
        = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_LineSignalFormulas);
} // namespace

BENCHMARK_MAIN();
