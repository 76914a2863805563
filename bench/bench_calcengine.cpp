// Window analyses per second of the calculation engine and of the spectrum, against a plain pass
// that sums the same window; and a whole hodograph: two analyses a sample over 1,000,000 samples.

#include "CalcFixtures.h"
#include "CalcLib/CalcEngine.h"
#include "CalcLib/CalcRoutines.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>
#include <random>
#include <vector>

namespace {
constexpr double kPi = 3.14159265358979323846;

// A fault-like signal with a third harmonic, DC and noise, in raw units.
std::vector<int32_t> recordSamples(int count, double rate, double frequency = 49.7)
{
    std::mt19937 random(7);
    std::normal_distribution<double> noise(0.0, 20.0);
    std::vector<int32_t> x(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double t = i / rate;
        x[i] = static_cast<int32_t>(std::lround(8000.0 * std::sin(2 * kPi * frequency * t)
            + 900.0 * std::sin(2 * kPi * 3 * frequency * t + 0.3) + 300.0 + noise(random)));
    }
    return x;
}

// 40 ms windows: W = 80 at 2000 Hz, W = 400 at 10000 Hz.
DevConfig fortyMsConfig(int window)
{
    return talviConfig(window * 25.0, window);
}

DevConfig channelConfig(DevConfig config)
{
    config.shapeType = ShapeSine;
    config.multiplier = 0.01;
    config.adder = 1.5;
    return config;
}

void fill(CalcEngine& engine, const std::vector<int32_t>& record, int start)
{
    const SampleBuffer& buffer = engine.buffer();
    for (int i = 0; i < buffer.samples(); ++i)
        *buffer[0][i] = record[start + i];
}

// Processor time, so that other work on the machine does not blur the ratios.
double cpuNanoseconds()
{
    return static_cast<double>(std::clock()) * 1e9 / CLOCKS_PER_SEC;
}

// The baseline: one pass that sums the window through its cells, in nanoseconds.
double sumWindowNanoseconds(const SampleBuffer& buffer)
{
    constexpr int kPasses = 200000;
    int64_t total = 0;
    const double start = cpuNanoseconds();
    for (int pass = 0; pass < kPasses; ++pass) {
        int64_t sum = 0;
        for (int i = 0; i < buffer.samples(); ++i)
            sum += *buffer[0][i];
        benchmark::DoNotOptimize(sum);
        total += sum;
    }
    benchmark::DoNotOptimize(total);
    return (cpuNanoseconds() - start) / kPasses;
}

void reportAgainstSum(benchmark::State& state, double start, double sumNs)
{
    const double perAnalysis = (cpuNanoseconds() - start) / static_cast<double>(state.iterations());
    state.counters["analyses/s"]
        = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["sum_ns"] = sumNs;
    state.counters["x_sum"] = perAnalysis / sumNs;
}

void BM_SumWindow(benchmark::State& state)
{
    const int window = static_cast<int>(state.range(0));
    CalcEngine engine;
    engine.init(fortyMsConfig(window));
    fill(engine, recordSamples(window, window * 25.0), 0);
    const SampleBuffer& buffer = engine.buffer();
    for (auto _ : state) {
        int64_t sum = 0;
        for (int i = 0; i < buffer.samples(); ++i)
            sum += *buffer[0][i];
        benchmark::DoNotOptimize(sum);
    }
    state.counters["sums/s"]
        = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_SumWindow)->Arg(80)->Arg(400);

void BM_TalviCalculate(benchmark::State& state)
{
    const int window = static_cast<int>(state.range(0));
    CalcEngine engine;
    const DevConfig config = fortyMsConfig(window);
    engine.init(config);
    engine.setDevConfig(channelConfig(config));
    fill(engine, recordSamples(window, config.sampleRate), 0);
    const double sumNs = sumWindowNanoseconds(engine.buffer());
    const double start = cpuNanoseconds();
    for (auto _ : state) {
        engine.calculate();
        benchmark::DoNotOptimize(engine.parameters().rms);
    }
    reportAgainstSum(state, start, sumNs);
}
BENCHMARK(BM_TalviCalculate)->Arg(80)->Arg(400);

void BM_MeasureSpectrum(benchmark::State& state)
{
    const int window = static_cast<int>(state.range(0));
    CalcEngine engine;
    const DevConfig config = fortyMsConfig(window);
    engine.init(config);
    // Two periods of 50.3 Hz fit in 40 ms; two of 49.7 Hz would not.
    const std::vector<int32_t> record = recordSamples(window, config.sampleRate, 50.3);
    fill(engine, record, 0);
    const double sumNs = sumWindowNanoseconds(engine.buffer());
    std::vector<double> samples(record.begin(), record.end());
    std::vector<double> amplitudes, phases;
    int maxHarmonic = 0;
    double kni = 0.0;
    const double start = cpuNanoseconds();
    for (auto _ : state) {
        const int status = measureSpectrum(samples.data(), window, config.sampleRate, 2, 0.01, 150.0, 50.3,
            maxHarmonic, amplitudes, phases, kni);
        benchmark::DoNotOptimize(status);
        benchmark::DoNotOptimize(kni);
    }
    reportAgainstSum(state, start, sumNs);
    state.counters["harmonics"] = maxHarmonic;
}
BENCHMARK(BM_MeasureSpectrum)->Arg(400);

// A hodograph of 1,000,000 samples: a voltage and a current analysed at every sample, W = 80,
// the buffer filled from the record each time as the calculation module does.
void BM_Hodograph(benchmark::State& state)
{
    constexpr int kSamples = 1000000;
    constexpr int kWindow = 80;
    const DevConfig config = fortyMsConfig(kWindow);
    const std::vector<int32_t> voltage = recordSamples(kSamples + kWindow, config.sampleRate);
    std::vector<int32_t> current(voltage.rbegin(), voltage.rend());
    CalcEngine engine;
    engine.init(config);
    const DevConfig channel = channelConfig(config);
    const std::vector<const std::vector<int32_t>*> records { &voltage, &current };
    for (auto _ : state) {
        double sink = 0.0;
        for (int sample = 0; sample < kSamples; ++sample) {
            for (const std::vector<int32_t>* record : records) {
                engine.setDevConfig(channel);
                fill(engine, *record, sample);
                engine.calculate();
                sink += engine.parameters().phase;
            }
        }
        benchmark::DoNotOptimize(sink);
    }
    state.counters["analyses"] = 2.0 * kSamples;
}
BENCHMARK(BM_Hodograph)->Iterations(1)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
